#include "Reg.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStringList>

#include <memory>

namespace qx {

namespace {

QString &appName()
{
    static QString name;
    return name;
}

RegFault &pendingFault()
{
    static RegFault fault;
    return fault;
}

void noteFault(RegFault::Kind kind, const QString &path, const QString &reason)
{
    RegFault &fault = pendingFault();
    if (fault.kind == RegFault::None)
        fault = RegFault{kind, path, reason};
}

// Why a file that QSettings could not read cannot be read, in the system's words where it has some.
QString readProblem(const QString &path)
{
    if (QFileInfo(path).isDir())
        return QCoreApplication::translate("qx::Reg", "It is a folder, not a file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    return QCoreApplication::translate("qx::Reg", "It cannot be read");
}

// Why the file cannot be written, or nothing when it can: the same temporary file beside it that
// a real save goes through is made and thrown away.
QString writeProblem(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return QCoreApplication::translate("qx::Reg", "The folder %1 cannot be made").arg(folder);
    if (QFileInfo(path).isDir())
        return QCoreApplication::translate("qx::Reg", "It is a folder, not a file");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    file.cancelWriting();
    return {};
}

// One opening of the store and what became of it.
class OpenStore {
public:
    explicit OpenStore(const QString &name) : m_settings(newSettings(name))
    {
        // QSettings reads its file as it opens; a file that is there but unreadable says so here.
        if (m_settings->status() == QSettings::AccessError) {
            m_unreadable = true;
            noteFault(RegFault::CannotRead, m_settings->fileName(), readProblem(m_settings->fileName()));
        }
    }

    ~OpenStore()
    {
        if (m_unreadable || !m_saving)
            return;
        const QString path = m_settings->fileName();
        if (m_changed) {
            m_settings->sync();
            if (m_settings->status() == QSettings::AccessError) {
                const QString why = writeProblem(path);
                noteFault(RegFault::CannotWrite, path, why.isEmpty() ? QCoreApplication::translate("qx::Reg", "It cannot be written") : why);
            }
        } else if (const QString why = writeProblem(path); !why.isEmpty()) {
            // Nothing needed writing, but the player must still learn that a save would fail.
            noteFault(RegFault::CannotWrite, path, why);
        }
    }

    QString get(const QString &section, const QString &key) const
    {
        const QVariant value = m_settings->value(storedKey(section, key));
        if (!value.isValid())
            return QString::fromLatin1(NotUsed);
        // A hand-edited value with commas comes back from the file as a list; the game wants its text.
        if (value.userType() == QMetaType::QStringList)
            return value.toStringList().join(QStringLiteral(", "));
        return value.toString();
    }

    void save(const QString &section, const QString &key, const QString &value)
    {
        m_saving = true;
        if (m_unreadable)
            return;
        const QString full = storedKey(section, key);
        // A value that is already there is left alone: the file is then not rewritten (and synced
        // to disk) at every start, when the Default section is saved again unchanged.
        const QVariant stored = m_settings->value(full);
        if (stored.isValid() && stored.toString() == value)
            return;
        m_settings->setValue(full, value);
        m_changed = true;
    }

private:
    // Splits "Organisation\Application" at its last backslash; a name without one is a file of its own.
    static std::unique_ptr<QSettings> newSettings(const QString &name)
    {
        const qsizetype cut = name.lastIndexOf(QLatin1Char('\\'));
        if (cut < 0)
            return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, name);
        QString organisation = name.left(cut);
        organisation.replace(QLatin1Char('\\'), QLatin1Char('/'));
        return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, organisation,
                                           name.mid(cut + 1));
    }

    // The key as the file spells it, or as the game spells it when the file does not have it.
    QString storedKey(const QString &section, const QString &key) const
    {
        QString full = section + QLatin1Char('/') + key;
        if (m_settings->contains(full))
            return full;
        const QStringList keys = m_settings->allKeys();
        for (const QString &stored : keys)
            if (stored.compare(full, Qt::CaseInsensitive) == 0)
                return stored;
        return full;
    }

    std::unique_ptr<QSettings> m_settings;
    bool m_unreadable = false;
    bool m_saving = false;
    bool m_changed = false;
};

struct Batch {
    int depth = 0;
    std::unique_ptr<OpenStore> store;
};

Batch &batch()
{
    static Batch b;
    return b;
}

// The batch's store while a batch is open, else a store of its own for one call.
class Store {
public:
    explicit Store(const char *caller)
    {
        const QString &name = appName();
        if (name.isEmpty())
            qFatal("QX: %s was called before SetRegApp named the application", caller);
        Batch &b = batch();
        if (b.depth == 0) {
            m_own = std::make_unique<OpenStore>(name);
            m_store = m_own.get();
            return;
        }
        if (!b.store)
            b.store = std::make_unique<OpenStore>(name);
        m_store = b.store.get();
    }
    OpenStore *operator->() const { return m_store; }

private:
    std::unique_ptr<OpenStore> m_own;
    OpenStore *m_store = nullptr;
};

} // namespace

void SetRegApp(const QString &name)
{
    appName() = name;
}

QString RegAppName()
{
    return appName();
}

QString GetReg(const QString &section, const QString &key)
{
    const Store store("GetReg");
    return store->get(section, key);
}

void SaveReg(const QString &section, const QString &key, const QString &value)
{
    const Store store("SaveReg");
    store->save(section, key, value);
}

RegFault TakeRegFault()
{
    return std::exchange(pendingFault(), RegFault{});
}

RegBatch::RegBatch()
{
    ++batch().depth;
}

RegBatch::~RegBatch()
{
    Batch &b = batch();
    if (--b.depth == 0)
        b.store.reset(); // writes what the batch changed
}

} // namespace qx
