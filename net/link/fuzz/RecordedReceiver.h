#pragma once

#include "LinkReceiver.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QStringList>

namespace qx::link {

// A LinkReceiver whose events are written down in the same words as ReferenceReceiver's, so the two
// can be compared. Each received file is read while it exists, and its name is checked: "NG..." in
// the system's temporary directory.
class RecordedReceiver {
public:
    RecordedReceiver()
    {
        LinkHandlers handlers;
        handlers.title = [this](const QByteArray &p) { m_events.append("title:" + p); };
        handlers.version = [this](const QByteArray &p) { m_events.append("version:" + p); };
        handlers.setupInfo = [this](const QByteArray &p) { m_events.append("setup:" + p); };
        handlers.data = [this](const QByteArray &p) { m_events.append("data:" + p); };
        handlers.leave = [this] { m_events.append("leave"); };
        handlers.welcome = [this] { m_events.append("welcome"); };
        handlers.overflow = [this] { m_events.append("overflow"); };
        handlers.file = [this](const QString &fileName, const QByteArray &tag) {
            const QFileInfo info(fileName);
            if (!info.fileName().startsWith(QLatin1String("NG")) || info.absolutePath() != QDir(QDir::tempPath()).absolutePath())
                m_badFileNames.append(fileName);
            m_fileNames.append(fileName);
            QFile file(fileName);
            const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
            m_events.append("file:" + tag + ":" + content);
        };
        m_receiver.setHandlers(std::move(handlers));
    }

    QList<QByteArray> feed(const QByteArray &arrival)
    {
        m_events.clear();
        m_receiver.feed(arrival);
        return m_events;
    }

    const LinkReceiver &receiver() const { return m_receiver; }
    LinkReceiver &receiver() { return m_receiver; }
    // Every file reported so far; each must be gone by now.
    const QStringList &fileNames() const { return m_fileNames; }
    const QStringList &badFileNames() const { return m_badFileNames; }

private:
    LinkReceiver m_receiver;
    QList<QByteArray> m_events;
    QStringList m_fileNames;
    QStringList m_badFileNames;
};

} // namespace qx::link
