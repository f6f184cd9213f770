// QX in other languages. The real program, started under a German, a French, an English and the
// C locale, shows its caption and menus in that language (English exactly as written in the
// sources) with accelerators that stay unique in each menu; and each language's translation file
// holds a finished translation of every text the sources have, no more and no fewer.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

namespace {

// One text of a translation file: its context and English source, its translation, and whether
// a translator has finished it.
struct Message {
    QString context;
    QString source;
    QString translation;
    bool finished = false;
};

// The text of the element just started; lupdate writes control characters such as the "\r" of a
// line break as <byte value="xd"/>.
QString elementText(QXmlStreamReader &xml)
{
    QString text;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isCharacters())
            text += xml.text();
        else if (xml.isStartElement() && xml.name() == QLatin1String("byte"))
            text += QChar(xml.attributes().value(QLatin1String("value")).mid(1).toUInt(nullptr, 16));
        else if (xml.isEndElement() && xml.name() != QLatin1String("byte"))
            break;
    }
    return text;
}

QList<Message> readTs(const QString &path)
{
    QList<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    QString context;
    Message message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == QLatin1String("message")) {
            messages.append(message);
        } else if (xml.isStartElement()) {
            const auto name = xml.name();
            if (name == QLatin1String("name")) {
                context = xml.readElementText();
            } else if (name == QLatin1String("message")) {
                message = Message{context, {}, {}, false};
            } else if (name == QLatin1String("source")) {
                message.source = elementText(xml);
            } else if (name == QLatin1String("translation")) {
                message.finished = xml.attributes().value(QLatin1String("type")).isEmpty();
                message.translation = elementText(xml);
            }
        }
    }
    if (xml.hasError())
        qWarning("%s, line %lld: %s", qPrintable(path), xml.lineNumber(), qPrintable(xml.errorString()));
    return messages;
}

QString keyOf(const Message &m) { return m.context + QLatin1Char('|') + m.source; }

// The %1, %2, ... a text fills in, as a sorted list.
QStringList placeholdersOf(const QString &text)
{
    QStringList found;
    static const QRegularExpression placeholder(QStringLiteral("%\\d+"));
    for (const auto &match : placeholder.globalMatch(text))
        found.append(match.captured());
    found.sort();
    return found;
}

// The number of accelerator marks ("&N"), leaving out a literal "&&" and HTML entities.
qsizetype acceleratorsOf(QString text)
{
    static const QRegularExpression notAccelerators(QStringLiteral("&&|&[a-zA-Z]+;|&#\\d+;"));
    text.remove(notAccelerators);
    return text.count(QLatin1Char('&'));
}

// The accelerator letter of a caption, lower case; none for a caption without one.
QChar acceleratorOf(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&')) {
            if (caption[i + 1] != QLatin1Char('&'))
                return caption[i + 1].toLower();
            ++i;
        }
    }
    return {};
}

} // namespace

class TestTranslations : public QObject {
    Q_OBJECT

private slots:
    void captionsFollowLocale_data()
    {
        QTest::addColumn<QString>("lang");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("menuBar");
        QTest::addColumn<QString>("newGame");
        const QStringList english{"&Game", "&Options", "&Cards", "&Help"};
        QTest::newRow("C") << "C" << "Press 'F2' to begin" << english << "&Game > &New\tF2";
        QTest::newRow("English") << "en_GB.UTF-8" << "Press 'F2' to begin" << english << "&Game > &New\tF2";
        QTest::newRow("German") << "de_DE.UTF-8" << "Zum Beginnen 'F2' drücken"
                                << QStringList{"&Spiel", "&Optionen", "&Karten", "&Hilfe"} << "&Spiel > &Neu\tF2";
        QTest::newRow("French") << "fr_FR.UTF-8" << "Appuyez sur 'F2' pour commencer"
                                << QStringList{"&Partie", "&Options", "&Cartes", "&Aide"}
                                << "&Partie > &Nouvelle\tF2";
    }

    void captionsFollowLocale()
    {
        QFETCH(QString, lang);
        QFETCH(QString, title);
        QFETCH(QStringList, menuBar);
        QFETCH(QString, newGame);

        QProcess qx;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *other : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"})
            env.remove(QString::fromLatin1(other));
        env.insert(QStringLiteral("LANG"), lang);
        env.insert(QStringLiteral("QX_PRINT_CAPTIONS"), QStringLiteral("1"));
        qx.setProcessEnvironment(env);
        qx.start(QStringLiteral(QX_PROGRAM), {});
        QVERIFY2(qx.waitForFinished(120000), "QX did not leave after showing its window");
        QCOMPARE(qx.exitCode(), 0);

        QString shownTitle;
        QStringList shownBar;
        QStringList entries;
        for (const QString &line : QString::fromUtf8(qx.readAllStandardOutput()).split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1String("title\t")))
                shownTitle = line.mid(6);
            else if (line.startsWith(QLatin1String("menu\t")))
                entries.append(line.mid(5));
        }
        for (const QString &entry : std::as_const(entries))
            if (!entry.contains(QLatin1String(" > ")))
                shownBar.append(entry.section(QLatin1Char('\t'), 0, 0));
        QCOMPARE(shownTitle, title);
        QCOMPARE(shownBar, menuBar);
        QVERIFY2(entries.contains(newGame), qPrintable(entries.join(QLatin1Char('\n'))));

        // Within one menu (or the menu bar), no two entries share an accelerator, or the key
        // would only ever reach the first of them.
        QHash<QString, QHash<QChar, QString>> lettersByMenu;
        for (const QString &entry : std::as_const(entries)) {
            const QString caption = entry.section(QLatin1Char('\t'), 0, 0);
            const qsizetype cut = caption.lastIndexOf(QLatin1String(" > "));
            const QString menu = cut < 0 ? QString() : caption.left(cut);
            const QString own = cut < 0 ? caption : caption.mid(cut + 3);
            const QChar letter = acceleratorOf(own);
            if (letter.isNull())
                continue;
            QHash<QChar, QString> &letters = lettersByMenu[menu];
            QVERIFY2(!letters.contains(letter),
                     qPrintable(QStringLiteral("'%1' and '%2' share an accelerator").arg(letters.value(letter), own)));
            letters.insert(letter, own);
        }
    }

    void everyTextTranslated_data()
    {
        QTest::addColumn<QString>("language");
        for (const QString &language : QStringLiteral(QX_LANGUAGES).split(QLatin1Char(',')))
            QTest::newRow(qPrintable(language)) << language;
    }

    void everyTextTranslated()
    {
        QFETCH(QString, language);
        const QString shipped = QStringLiteral(QX_SOURCE_DIR "/translations/qx_%1.ts").arg(language);
        const QList<Message> messages = readTs(shipped);
        QVERIFY2(!messages.isEmpty(), qPrintable(shipped));

        // The same update a developer runs (the qx_update_translations target), on a copy.
        QTemporaryDir scratch;
        const QString updated = scratch.filePath(QFileInfo(shipped).fileName());
        QVERIFY(QFile::copy(shipped, updated));
        QProcess lupdate;
        lupdate.setWorkingDirectory(QStringLiteral(QX_SOURCE_DIR));
        QStringList arguments{"-silent", "-locations", "none", "-no-obsolete", "-extensions", "cpp,h"};
        arguments += QStringLiteral(QX_TRANSLATED_SOURCES).split(QLatin1Char(','));
        arguments += {QStringLiteral("-ts"), updated};
        lupdate.start(QStringLiteral(QX_LUPDATE), arguments);
        QVERIFY2(lupdate.waitForFinished(120000), "lupdate did not finish");
        QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());

        QSet<QString> inSources;
        for (const Message &m : readTs(updated))
            inSources.insert(keyOf(m));
        QSet<QString> inFile;
        for (const Message &m : messages)
            inFile.insert(keyOf(m));
        const QStringList untranslated = QSet(inSources).subtract(inFile).values();
        const QStringList unused = QSet(inFile).subtract(inSources).values();
        QVERIFY2(untranslated.isEmpty(),
                 qPrintable(QStringLiteral("texts not yet in %1 (run the qx_update_translations target):\n")
                                .arg(shipped) + untranslated.join(QLatin1Char('\n'))));
        QVERIFY2(unused.isEmpty(), qPrintable(QStringLiteral("texts the sources no longer have:\n") +
                                              unused.join(QLatin1Char('\n'))));

        for (const Message &m : messages) {
            const QString where = keyOf(m);
            QVERIFY2(m.finished && !m.translation.trimmed().isEmpty(), qPrintable(QStringLiteral("unfinished: ") + where));
            QVERIFY2(placeholdersOf(m.translation) == placeholdersOf(m.source),
                     qPrintable(QStringLiteral("placeholders differ: ") + where + QStringLiteral(" -> ") + m.translation));
            QVERIFY2(acceleratorsOf(m.translation) == acceleratorsOf(m.source),
                     qPrintable(QStringLiteral("accelerators differ: ") + where + QStringLiteral(" -> ") + m.translation));
        }
    }
};

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
