#include "Reg.h"

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

struct Batch {
    int depth = 0;
    std::unique_ptr<QSettings> store;
};

Batch &batch()
{
    static Batch b;
    return b;
}

// Splits "Organisation\Application" at its last backslash; a name without one is a file of its own.
std::unique_ptr<QSettings> newStore(const QString &name)
{
    const qsizetype cut = name.lastIndexOf(QLatin1Char('\\'));
    if (cut < 0)
        return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, name);
    QString organisation = name.left(cut);
    organisation.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, organisation,
                                       name.mid(cut + 1));
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
            m_own = newStore(name);
            m_store = m_own.get();
            return;
        }
        if (!b.store)
            b.store = newStore(name);
        m_store = b.store.get();
    }
    QSettings *operator->() const { return m_store; }

private:
    std::unique_ptr<QSettings> m_own;
    QSettings *m_store = nullptr;
};

QString fullKey(const QString &section, const QString &key)
{
    return section + QLatin1Char('/') + key;
}

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
    const QVariant value = store->value(fullKey(section, key));
    if (!value.isValid())
        return QString::fromLatin1(NotUsed);
    // A hand-edited value with commas comes back from the file as a list; the game wants its text.
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(QStringLiteral(", "));
    return value.toString();
}

void SaveReg(const QString &section, const QString &key, const QString &value)
{
    const Store store("SaveReg");
    const QString full = fullKey(section, key);
    // A value that is already there is left alone: the file is then not rewritten (and synced to
    // disk) at every start, when the Default section is saved again unchanged.
    const QVariant stored = store->value(full);
    if (stored.isValid() && stored.toString() == value)
        return;
    store->setValue(full, value);
}

} // namespace qx

namespace qx {

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
