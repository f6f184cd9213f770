#include "FakeOptionsTarget.h"
#include "MainWindow.h"
#include "TableView.h"
#include "OptionsCommands.h"
#include "OptionsStore.h"
#include "SettingsSandbox.h"
#include "Sound.h"

#include <QDir>
#include <QMenu>
#include <QScreen>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace qx;

namespace {

class RecordingOutput : public SoundOutput {
public:
    QStringList played;
    int deviceCount() override { return 1; }
    void play(const QString &path) override { played.append(path); }
};

// Answers every message box as soon as it shows, and notes its text and its parent.
class MessageBoxWatch : public QObject {
public:
    MessageBoxWatch() { qApp->installEventFilter(this); }
    ~MessageBoxWatch() override { qApp->removeEventFilter(this); }
    QStringList texts;
    QList<QWidget *> parents;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box && event->type() == QEvent::Show) {
            texts.append(box->text());
            parents.append(box->parentWidget());
            QTimer::singleShot(0, box, &QDialog::reject);
        }
        return false;
    }
};

QString checkedSizes(const Menus &menus)
{
    QStringList on;
    for (const QAction *item : menus.sizeItems)
        if (item->isChecked())
            on.append(item->data().toString());
    return on.join(QLatin1Char(' '));
}

} // namespace

// The options inside the real main window: its start-up writes "Default" and applies "User".
class TestOptionsMainWindow : public QObject {
    Q_OBJECT

private:
    SettingsSandbox m_sandbox;

private slots:
    void init() { m_sandbox.reset(); }
    void cleanup() { setSoundOutput(nullptr); }

    void firstStartKeepsBuiltInStateAndWritesDefault()
    {
        MainWindow window;
        QCOMPARE(checkedMarks(window.menus()), BuiltInMarks);
        QCOMPARE(window.state().Frames, 10);
        QCOMPARE(window.state().NumberOfDecks, 1);
        QCOMPARE(window.state().CardBack, 0);
        QCOMPARE(window.backColor(), BackColor::ButtonFace);
        QCOMPARE(RegAppName(), QStringLiteral("Brackenfall\\QX"));
        QCOMPARE(GetReg(QStringLiteral("Default"), QStringLiteral("Frames")), QStringLiteral("10"));
        QCOMPARE(GetReg(QStringLiteral("Default"), QStringLiteral("BackColor")), QStringLiteral("-2147483633"));
        QCOMPARE(GetReg(QStringLiteral("User"), QStringLiteral("Sound")), QStringLiteral("Not Used"));
    }

    void savedUserOptionsComeBackAtTheNextStart()
    {
        {
            MainWindow first;
            first.menus().mnuOSound->trigger();
            first.menus().mnuOASpeed(20)->trigger();
            first.menus().mnuOCGray->trigger();
            first.menus().mnuODNum(3)->trigger();
            first.setCardBack(first.cardBackCount() - 1);
            first.menus().mnuOSave->trigger();
        }
        MainWindow second;
        QCOMPARE(checkedMarks(second.menus()), QStringLiteral("Score Gray Speed20 Humans Strikes Decks3"));
        QCOMPARE(second.state().Frames, 20);
        QCOMPARE(second.state().NumberOfDecks, 3);
        QCOMPARE(second.state().CardBack, second.cardBackCount() - 1);
        QCOMPARE(second.backColor(), BackColor::Gray);
        QVERIFY(second.isVisible());

        second.menus().mnuORestoreDefault->trigger();
        QCOMPARE(checkedMarks(second.menus()), QStringLiteral("Sound Score Gray Match Speed10 Humans Strikes Decks1"));
        QCOMPARE(second.state().CardBack, 0);
    }

    void startUpMessagesWaitForTheSplash_data()
    {
        QTest::addColumn<QString>("trouble");
        QTest::addColumn<QString>("begins");
        QTest::addColumn<QString>("ends");
        QTest::newRow("unusable value") << "NumberOfDecks=7"
                                        << "The setting \"NumberOfDecks\" in section \"User\" has the value \"7\""
                                        << "The current value is kept.";
        QTest::newRow("unreadable file") << "file is a folder" << "QX cannot read its settings file %1: "
                                         << "It starts with the built-in options.";
        QTest::newRow("folder cannot be made") << "folder is a file" << "QX cannot write its settings file %1: "
                                               << "";
    }
    void startUpMessagesWaitForTheSplash()
    {
        QFETCH(QString, trouble);
        QFETCH(QString, begins);
        QFETCH(QString, ends);
        if (trouble == QLatin1String("file is a folder")) {
            QVERIFY(m_sandbox.block(SettingsSandbox::FileIsFolder));
        } else if (trouble == QLatin1String("folder is a file")) {
            QVERIFY(m_sandbox.block(SettingsSandbox::FolderIsFile));
        } else {
            MainWindow first;
            first.menus().mnuOSave->trigger();
            SaveReg(QStringLiteral("User"), QStringLiteral("NumberOfDecks"), QStringLiteral("7"));
        }

        MessageBoxWatch watch;
        MainWindow window;
        // Nothing is shown while the splash may still stand over the main window.
        QVERIFY2(watch.texts.isEmpty(), qPrintable(watch.texts.join('\n')));
        window.show();
        window.showStartUpMessages();
        QCOMPARE(watch.texts.size(), 1);
        const QString text = watch.texts.first();
        QVERIFY2(text.startsWith(begins.arg(m_sandbox.storeFile())), qPrintable(text));
        QVERIFY2(text.endsWith(ends), qPrintable(text));
        QCOMPARE(watch.parents.first(), &window);
        // Told once: later messages show at once.
        window.showStartUpMessages();
        QCOMPARE(watch.texts.size(), 1);
        QCOMPARE(checkedMarks(window.menus()), BuiltInMarks);
    }

    void sizeMarksAtStart_data()
    {
        QTest::addColumn<bool>("sizeSaved");
        QTest::addColumn<QString>("checked");
        QTest::newRow("nothing saved") << false << "2";
        QTest::newRow("size saved") << true << "";
    }
    void sizeMarksAtStart()
    {
        QFETCH(bool, sizeSaved);
        QFETCH(QString, checked);
        if (sizeSaved) {
            MainWindow first;
            first.resize(first.size() - QSize(40, 30));
            first.menus().mnuOSave->trigger();
        }
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(checkedSizes(window.menus()), checked);
    }

    void defaultHoldsWhereTheWindowOpened()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint opened = window.pos();
        QCOMPARE(GetReg(QStringLiteral("Default"), QStringLiteral("WindowLeft")), QString::number(opened.x()));
        QCOMPARE(GetReg(QStringLiteral("Default"), QStringLiteral("WindowTop")), QString::number(opened.y()));
        // QX places its window itself, on the middle of the desktop, so that it knows the place
        // before the window system shows it.
        const QPoint middle = window.screen()->availableGeometry().center();
        QVERIFY2((window.frameGeometry().center() - middle).manhattanLength() < 40,
                 qPrintable(QStringLiteral("%1,%2").arg(opened.x()).arg(opened.y())));
        window.move(opened + QPoint(30, 20));
        window.menus().mnuORestoreDefault->trigger();
        QCOMPARE(window.pos(), opened);
    }

    void decksDuringAGameAskFirst()
    {
        MainWindow window;
        QStringList asked;
        bool answer = false;
        window.ask = [&](const QString &text) {
            asked.append(text);
            return answer;
        };
        window.state().CurrentPlayer = 2;
        window.state().NumPlayers = 3;
        window.state().Total = 40;

        window.menus().mnuODNum(2)->trigger();
        QCOMPARE(asked, QStringList{QStringLiteral("You will have to begin a new game after this change. Continue?")});
        QCOMPARE(window.state().NumberOfDecks, 1);
        QCOMPARE(window.state().CurrentPlayer, 2);
        QVERIFY(!window.menus().mnuODNum(2)->isChecked());

        answer = true;
        static_cast<Table &>(window).showMessage(QStringLiteral("Player 1's Turn"));
        static_cast<Table &>(window).setTakeOverEnabled(true);
        window.menus().mnuODNum(2)->trigger();
        QCOMPARE(window.state().NumberOfDecks, 2);
        QCOMPARE(window.state().CurrentPlayer, 0);
        QCOMPARE(window.state().Total, -1);
        QCOMPARE(window.caption(), QStringLiteral("Press 'F2' to begin"));
        // The abandoned game leaves nothing behind: no turn message, no seat to hand over.
        QVERIFY(window.playArea()->message().isEmpty());
        QVERIFY(!window.menus().mnuGTakeOver->isEnabled());
    }

    void guestMenus()
    {
        MainWindow window;
        Table &table = window;
        table.setGuestMenusEnabled(false);
        QVERIFY(!window.menus().mnuNumDecks->menuAction()->isEnabled());
        QVERIFY(!window.menus().mnuOSave->isEnabled());
        QVERIFY(window.menus().mnuOSound->isEnabled());
        table.setGuestMenusEnabled(true);
        QVERIFY(window.menus().mnuNumDecks->menuAction()->isEnabled());
    }

    void cheerPlaysFromTheProgramsFolder()
    {
        RecordingOutput output;
        setSoundOutput(&output);
        MainWindow window;
        static_cast<Table &>(window).playCheer();
        QCOMPARE(output.played, QStringList{QCoreApplication::applicationDirPath() + QStringLiteral("/CHEER.WAV")});
    }
};

QTEST_MAIN(TestOptionsMainWindow)
#include "tst_options_mainwindow.moc"
