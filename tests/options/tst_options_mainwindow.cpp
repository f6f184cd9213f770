#include "FakeOptionsTarget.h"
#include "MainWindow.h"
#include "TableView.h"
#include "OptionsCommands.h"
#include "OptionsStore.h"
#include "SettingsSandbox.h"
#include "Sound.h"

#include <QMenu>
#include <QTest>

#include <memory>

using namespace qx;

namespace {

class RecordingOutput : public SoundOutput {
public:
    QStringList played;
    int deviceCount() override { return 1; }
    void play(const QString &path) override { played.append(path); }
};

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
