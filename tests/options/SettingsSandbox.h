#pragma once

#include "Reg.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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
        // A store a test left blocked is mended first.
        const QString folder = QFileInfo(storeFile()).path();
        if (QFileInfo(folder).isDir())
            QDir(folder).removeRecursively();
        else
            QFile::remove(folder);
        qx::SetRegApp(QStringLiteral("Brackenfall\\QX"));
        QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Brackenfall"), QStringLiteral("QX"))
            .clear();
    }

    // Makes the store unusable even for the superuser: a folder where its file goes (it can be
    // neither read nor written), or a file where its folder goes (nothing can be written).
    enum Block { FileIsFolder, FolderIsFile };
    bool block(Block how) const
    {
        const QString folder = QFileInfo(storeFile()).path();
        if (!QDir(folder).removeRecursively())
            return false;
        if (how == FileIsFolder)
            return QDir().mkpath(storeFile());
        QFile file(folder);
        return file.open(QIODevice::WriteOnly);
    }

    QString path() const { return m_dir.path(); }
    QString storeFile() const { return m_dir.filePath(QStringLiteral("Brackenfall/QX.conf")); }

private:
    QTemporaryDir m_dir;
};
