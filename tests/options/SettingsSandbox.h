#pragma once

#include "Reg.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

// Points the per-user settings store into a temporary folder for the whole test run, so tests
// never touch the real ~/.config, and empties it between tests.
class SettingsSandbox {
public:
    SettingsSandbox()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_dir.path());
    }

    void reset()
    {
        qx::SetRegApp(QStringLiteral("Brackenfall\\QX"));
        QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Brackenfall"), QStringLiteral("QX"))
            .clear();
    }

    QString path() const { return m_dir.path(); }
    QString storeFile() const { return m_dir.filePath(QStringLiteral("Brackenfall/QX.conf")); }

private:
    QTemporaryDir m_dir;
};
