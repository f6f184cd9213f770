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

// Splits "Organisation\Application" at its last backslash; a name without one is a file of its own.
std::unique_ptr<QSettings> openStore(const char *caller)
{
    const QString &name = appName();
    if (name.isEmpty())
        qFatal("QX: %s was called before SetRegApp named the application", caller);
    const qsizetype cut = name.lastIndexOf(QLatin1Char('\\'));
    if (cut < 0)
        return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, name);
    QString organisation = name.left(cut);
    organisation.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, organisation,
                                       name.mid(cut + 1));
}

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
    const auto store = openStore("GetReg");
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
    const auto store = openStore("SaveReg");
    store->setValue(fullKey(section, key), value);
}

} // namespace qx
