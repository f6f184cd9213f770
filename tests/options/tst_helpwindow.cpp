#include "HelpWindow.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

using namespace qx;

class TestHelpWindow : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_pages;

    void writePage(const QString &name, const QByteArray &html)
    {
        QFile file(m_pages.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(html);
    }

    static QToolButton *buttonOf(HelpWindow &help, const QString &text)
    {
        for (QToolButton *b : help.findChildren<QToolButton *>())
            if (b->text() == text)
                return b;
        return nullptr;
    }

private slots:
    void initTestCase()
    {
        writePage("contents.html", "<html><body><h1>Contents</h1><a href=\"rules.html\">Rules</a> "
                                   "<a href=\"strategy.html\">Strategy</a></body></html>");
        writePage("rules.html", "<html><body><h1>Rules</h1><a href=\"contents.html\">Back to contents</a></body></html>");
        QVERIFY(QDir(m_pages.path()).mkdir(QStringLiteral("de")));
        writePage("de/contents.html", "<html><body><h1>Inhalt</h1><a href=\"rules.html\">Regeln</a></body></html>");
        writePage("de/rules.html", "<html><body><h1>Regeln</h1></body></html>");
    }

    // The pages of the player's language where the help has them, English where it has not.
    void pageInPlayersLanguage_data()
    {
        QTest::addColumn<QLocale::Language>("language");
        QTest::addColumn<int>("topic");
        QTest::addColumn<QString>("shown");
        QTest::newRow("German rules") << QLocale::German << int(HelpWindow::Rules) << "de/rules.html";
        QTest::newRow("German contents") << QLocale::German << int(HelpWindow::Contents) << "de/contents.html";
        QTest::newRow("German, page not translated") << QLocale::German << int(HelpWindow::Strategy) << "strategy.html";
        QTest::newRow("French, no French pages") << QLocale::French << int(HelpWindow::Rules) << "rules.html";
        QTest::newRow("English") << QLocale::English << int(HelpWindow::Rules) << "rules.html";
        QTest::newRow("C") << QLocale::C << int(HelpWindow::Contents) << "contents.html";
    }

    void pageInPlayersLanguage()
    {
        QFETCH(QLocale::Language, language);
        QFETCH(int, topic);
        QFETCH(QString, shown);
        const QLocale before;
        QLocale::setDefault(QLocale(language));
        HelpWindow help(nullptr, m_pages.path());
        help.showTopic(topic);
        QLocale::setDefault(before);
        QCOMPARE(help.browser()->source().toLocalFile(), m_pages.filePath(shown));
    }

    void pagesOfTopics()
    {
        QCOMPARE(HelpWindow::pageOf(HelpWindow::Contents), QStringLiteral("contents.html"));
        QCOMPARE(HelpWindow::pageOf(HelpWindow::Rules), QStringLiteral("rules.html"));
        QCOMPARE(HelpWindow::pageOf(HelpWindow::Strategy), QStringLiteral("strategy.html"));
        QCOMPARE(HelpWindow::pageOf(99), QStringLiteral("contents.html"));
        QVERIFY(HelpWindow::defaultFolder().endsWith(QLatin1String("/help")));
    }

    void linksAndHistory()
    {
        HelpWindow help(nullptr, m_pages.path());
        help.showTopic(HelpWindow::Contents);
        QTextBrowser *browser = help.browser();
        QVERIFY(browser->toPlainText().contains(QLatin1String("Contents")));
        QToolButton *back = buttonOf(help, QStringLiteral("&Back"));
        QToolButton *forward = buttonOf(help, QStringLiteral("&Forward"));
        QToolButton *home = buttonOf(help, QStringLiteral("&Contents"));
        QVERIFY(back && forward && home);
        QVERIFY(!back->isEnabled());

        // A link resolves against the page it is on.
        browser->setSource(browser->source().resolved(QUrl(QStringLiteral("rules.html"))));
        QCOMPARE(browser->source().fileName(), QStringLiteral("rules.html"));
        QVERIFY(browser->toPlainText().contains(QLatin1String("Rules")));
        QVERIFY(back->isEnabled());

        back->click();
        QCOMPARE(browser->source().fileName(), QStringLiteral("contents.html"));
        QVERIFY(forward->isEnabled());
        forward->click();
        QCOMPARE(browser->source().fileName(), QStringLiteral("rules.html"));
        home->click();
        QCOMPARE(browser->source().fileName(), QStringLiteral("contents.html"));
    }

    void clickedLinkFollows()
    {
        HelpWindow help(nullptr, m_pages.path());
        help.showTopic(HelpWindow::Rules);
        QVERIFY(QTest::qWaitForWindowExposed(&help));
        QTextBrowser *browser = help.browser();
        // The only link on the rules page is its first text; click into it.
        const QRect link = browser->cursorRect(QTextCursor(browser->document()->findBlockByNumber(1)));
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, link.center() + QPoint(3, 0));
        QTRY_COMPARE(browser->source().fileName(), QStringLiteral("contents.html"));
    }

    void missingPageSaysSo()
    {
        HelpWindow help(nullptr, m_pages.path());
        help.showTopic(HelpWindow::Strategy);
        const QString text = help.browser()->toPlainText();
        QVERIFY2(text.contains(QLatin1String("Help page not found")), qPrintable(text));
        QVERIFY(text.contains(QLatin1String("strategy.html")));
    }

    void missingFolderSaysSo()
    {
        HelpWindow help(nullptr, m_pages.filePath(QStringLiteral("nowhere")));
        help.showTopic(HelpWindow::Contents);
        QVERIFY(help.browser()->toPlainText().contains(QLatin1String("contents.html")));
    }
};

QTEST_MAIN(TestHelpWindow)
#include "tst_helpwindow.moc"
