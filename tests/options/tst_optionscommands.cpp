#include "FakeOptionsTarget.h"
#include "HelpWindow.h"
#include "OptionsCommands.h"
#include "OptionsStore.h"
#include "SettingsSandbox.h"

#include <QColorDialog>
#include <QMenu>
#include <QTest>
#include <QTextBrowser>

#include <memory>

using namespace qx;

class TestOptionsCommands : public QObject {
    Q_OBJECT

private:
    SettingsSandbox m_sandbox;
    GameState m_state;
    std::unique_ptr<FakeOptionsTarget> m_window;
    std::unique_ptr<OptionsStore> m_store;
    std::unique_ptr<OptionsCommands> m_commands;

    // The menu item by the short name checkedMarks() uses, or by its control name.
    QAction *item(const QString &name) const
    {
        const Menus &m = m_window->menus;
        if (name.startsWith(QLatin1String("Speed")))
            return m.mnuOASpeed(name.mid(5).toInt());
        if (name.startsWith(QLatin1String("Decks")))
            return m.mnuODNum(name.mid(5).toInt());
        const QMap<QString, QAction *> byName = {
            {"Sound", m.mnuOSound},       {"Score", m.mnuOScore},          {"Computer", m.mnuOShowComputer},
            {"Gray", m.mnuOCGray},        {"Match", m.mnuOCMatch},         {"Custom", m.mnuOCCustom},
            {"Humans", m.mnuOPSelect[0]}, {"Computers", m.mnuOPSelect[1]}, {"Strikes", m.mnuOPSelect[2]},
            {"Save", m.mnuOSave},         {"Restore", m.mnuORestore},      {"RestoreDefault", m.mnuORestoreDefault},
            {"CardBack", m.mnuCBack},     {"About", m.mnuAbout},           {"Contents", m.mnuHContents},
            {"Rules", m.mnuHRules},       {"Strategy", m.mnuHStrategy},
        };
        return byName.value(name);
    }

    void trigger(const QString &name)
    {
        QAction *a = item(name);
        QVERIFY2(a, qPrintable(name));
        a->trigger();
    }

    void startGame()
    {
        m_state.CurrentPlayer = 1;
        m_state.NumPlayers = 3;
        m_state.Total = 0;
    }

private slots:
    void init()
    {
        m_sandbox.reset();
        m_state = GameState{};
        m_window = std::make_unique<FakeOptionsTarget>(m_state);
        m_store = std::make_unique<OptionsStore>(m_window->menus, m_state, *m_window);
        m_commands = std::make_unique<OptionsCommands>(m_window->menus, m_state, *m_window, *m_store);
        m_window->show();
    }

    void cleanup()
    {
        m_commands.reset();
        m_store.reset();
        m_window.reset();
    }

    void checkMarks_data()
    {
        QTest::addColumn<QStringList>("triggered");
        QTest::addColumn<QString>("marks");
        QTest::addColumn<int>("frames");
        QTest::addColumn<int>("decks");
        QTest::addColumn<int>("color");
        QTest::addColumn<int>("repaints");

        const int face = BackColor::ButtonFace;
        const int gray = BackColor::Gray;
        const auto row = [](const char *name) -> QTestData & { return QTest::newRow(name); };
        row("nothing") << QStringList{} << BuiltInMarks << 10 << 1 << face << 0;
        row("sound off") << QStringList{"Sound"} << "Score Match Speed10 Humans Strikes Decks1" << 10 << 1 << face << 0;
        row("sound off and on") << QStringList{"Sound", "Sound"} << BuiltInMarks << 10 << 1 << face << 0;
        row("tally off repaints") << QStringList{"Score"} << "Sound Match Speed10 Humans Strikes Decks1" << 10 << 1
                                  << face << 1;
        row("tally off and on") << QStringList{"Score", "Score"} << BuiltInMarks << 10 << 1 << face << 2;
        row("computer moves on") << QStringList{"Computer"} << "Sound Score Computer Match Speed10 Humans Strikes Decks1"
                                 << 10 << 1 << face << 0;
        row("pause before computers on") << QStringList{"Computers"}
                                         << "Sound Score Match Speed10 Humans Computers Strikes Decks1" << 10 << 1
                                         << face << 0;
        row("pauses are independent") << QStringList{"Humans", "Strikes"} << "Sound Score Match Speed10 Decks1" << 10
                                      << 1 << face << 0;
        row("speed none") << QStringList{"Speed0"} << "Sound Score Match Speed0 Humans Strikes Decks1" << 0 << 1 << face
                          << 0;
        row("speed fast") << QStringList{"Speed5"} << "Sound Score Match Speed5 Humans Strikes Decks1" << 5 << 1 << face
                          << 0;
        row("speed slow then fast") << QStringList{"Speed20", "Speed5"}
                                    << "Sound Score Match Speed5 Humans Strikes Decks1" << 5 << 1 << face << 0;
        row("speed already checked stays") << QStringList{"Speed10"} << BuiltInMarks << 10 << 1 << face << 0;
        row("speed twice stays") << QStringList{"Speed20", "Speed20"}
                                 << "Sound Score Match Speed20 Humans Strikes Decks1" << 20 << 1 << face << 0;
        row("decks 3") << QStringList{"Decks3"} << "Sound Score Match Speed10 Humans Strikes Decks3" << 10 << 3 << face
                       << 0;
        row("decks already checked stays") << QStringList{"Decks1"} << BuiltInMarks << 10 << 1 << face << 0;
        row("decks 4 then 2") << QStringList{"Decks4", "Decks2"} << "Sound Score Match Speed10 Humans Strikes Decks2"
                              << 10 << 2 << face << 0;
        row("gray") << QStringList{"Gray"} << "Sound Score Gray Speed10 Humans Strikes Decks1" << 10 << 1 << gray << 1;
        row("gray twice stays") << QStringList{"Gray", "Gray"} << "Sound Score Gray Speed10 Humans Strikes Decks1" << 10
                                << 1 << gray << 2;
        row("match again stays") << QStringList{"Match"} << BuiltInMarks << 10 << 1 << face << 1;
        row("gray then match") << QStringList{"Gray", "Match"} << BuiltInMarks << 10 << 1 << face << 2;
        row("custom") << QStringList{"Custom"} << "Sound Score Custom Speed10 Humans Strikes Decks1" << 10 << 1
                      << 0x332211 << 1;
        row("custom then gray") << QStringList{"Custom", "Gray"} << "Sound Score Gray Speed10 Humans Strikes Decks1"
                                << 10 << 1 << gray << 2;
        row("custom twice stays") << QStringList{"Custom", "Custom"}
                                  << "Sound Score Custom Speed10 Humans Strikes Decks1" << 10 << 1 << 0x332211 << 2;
    }
    void checkMarks()
    {
        QFETCH(QStringList, triggered);
        QFETCH(QString, marks);
        QFETCH(int, frames);
        QFETCH(int, decks);
        QFETCH(int, color);
        QFETCH(int, repaints);
        // The chooser is left with red 0x11, green 0x22, blue 0x33 picked.
        m_window->dialogRunner = [](QDialog &dialog) {
            static_cast<QColorDialog &>(dialog).setCurrentColor(QColor(0x11, 0x22, 0x33));
            dialog.accept();
        };
        for (const QString &name : triggered)
            trigger(name);
        QCOMPARE(checkedMarks(m_window->menus), marks);
        QCOMPARE(m_state.Frames, frames);
        QCOMPARE(m_state.NumberOfDecks, decks);
        QCOMPARE(m_window->color, color);
        QCOMPARE(m_window->repaints, repaints);
        QVERIFY(m_window->questions.isEmpty());
    }

    void shortcutsRunTheCommandOnce()
    {
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window.get(), Qt::Key_F5);
        QVERIFY(!m_window->menus.mnuOSound->isChecked());
        QTest::keyClick(m_window.get(), Qt::Key_M, Qt::ControlModifier);
        QVERIFY(m_window->menus.mnuOASpeed(10)->isChecked());
        QCOMPARE(m_state.Frames, 10);
        QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(m_state.Frames, 5);
        QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Score Match Speed5 Humans Strikes Decks1"));
    }

    void decksDuringGame_data()
    {
        QTest::addColumn<int>("packs");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<int>("decksAfter");
        QTest::newRow("2, yes") << 2 << true << 2;
        QTest::newRow("2, no") << 2 << false << 1;
        QTest::newRow("same count, yes") << 1 << true << 1;
        QTest::newRow("same count, no") << 1 << false << 1;
    }
    void decksDuringGame()
    {
        QFETCH(int, packs);
        QFETCH(bool, yes);
        QFETCH(int, decksAfter);
        startGame();
        m_window->answer = yes;
        trigger(QStringLiteral("Decks%1").arg(packs));
        QCOMPARE(m_window->questions,
                 QStringList{QStringLiteral("You will have to begin a new game after this change. Continue?")});
        QCOMPARE(m_window->abandons, yes ? 1 : 0);
        QCOMPARE(m_state.CurrentPlayer, yes ? 0 : 1);
        QCOMPARE(m_state.NumberOfDecks, decksAfter);
        QCOMPARE(checkedMarks(m_window->menus),
                 QStringLiteral("Sound Score Match Speed10 Humans Strikes Decks%1").arg(decksAfter));
    }

    void customCancelledAppliesLastColourChosen()
    {
        m_window->color = BackColor::Gray;
        QColor shownFirst;
        m_window->dialogRunner = [&shownFirst](QDialog &dialog) {
            auto &chooser = static_cast<QColorDialog &>(dialog);
            shownFirst = chooser.currentColor();
            chooser.setCurrentColor(QColor(10, 20, 30));
            chooser.reject();
        };
        // Cancelled the first time: the chooser's first colour.
        trigger(QStringLiteral("Custom"));
        QCOMPARE(shownFirst, QColor(192, 192, 192));
        QCOMPARE(m_window->color, BackColor::fromQColor(QColor(192, 192, 192)));
        QCOMPARE(m_window->repaints, 1);
        QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Sound Score Custom Speed10 Humans Strikes Decks1"));

        const auto browseThen = [this](QColor browsed, bool ok) {
            m_window->dialogRunner = [browsed, ok](QDialog &dialog) {
                static_cast<QColorDialog &>(dialog).setCurrentColor(browsed);
                ok ? dialog.accept() : dialog.reject();
            };
            trigger(QStringLiteral("Custom"));
        };
        browseThen(QColor(1, 2, 3), true);
        QCOMPARE(m_window->color, BackColor::fromQColor(QColor(1, 2, 3)));
        m_window->color = BackColor::ButtonFace;
        browseThen(QColor(50, 60, 70), false);
        QCOMPARE(m_window->color, BackColor::fromQColor(QColor(1, 2, 3)));
        // The chooser opens on that colour again, not on the one browsed before cancelling.
        m_window->dialogRunner = [&shownFirst](QDialog &dialog) {
            shownFirst = static_cast<QColorDialog &>(dialog).currentColor();
            dialog.reject();
        };
        trigger(QStringLiteral("Custom"));
        QCOMPARE(shownFirst, QColor(1, 2, 3));
        QCOMPARE(m_window->dialogsRun, 4);
    }

    void colourConversions()
    {
        QCOMPARE(BackColor::fromQColor(QColor(0x11, 0x22, 0x33)), 0x332211);
        QCOMPARE(BackColor::toQColor(0x332211), QColor(0x11, 0x22, 0x33));
        QCOMPARE(BackColor::toQColor(BackColor::Gray), QColor(192, 192, 192));
        QCOMPARE(BackColor::toQColor(BackColor::ButtonFace), QGuiApplication::palette().color(QPalette::Button));
    }

    void saveAndRestoreCommands()
    {
        m_state.Frames = 10;
        SetRegApp(QStringLiteral("Brackenfall\\QX"));
        m_store->SaveOptions(QStringLiteral("Default"));
        const QPoint start = m_window->pos();

        trigger(QStringLiteral("Restore")); // nothing saved yet: nothing happens
        QCOMPARE(m_window->repaints, 0);

        trigger(QStringLiteral("Sound"));
        trigger(QStringLiteral("Speed20"));
        trigger(QStringLiteral("Gray"));
        trigger(QStringLiteral("Save"));
        QCOMPARE(GetReg(QStringLiteral("User"), QStringLiteral("Frames")), QStringLiteral("20"));

        m_window->move(start + QPoint(100, 60));
        trigger(QStringLiteral("RestoreDefault"));
        QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Sound Score Gray Match Speed10 Humans Strikes Decks1"));
        QCOMPARE(m_window->pos(), start);

        trigger(QStringLiteral("Restore"));
        QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Score Gray Speed20 Humans Strikes Decks1"));
        QCOMPARE(m_window->color, BackColor::Gray);
        QVERIFY2(m_window->warnings.isEmpty(), qPrintable(m_window->warnings.join('\n')));
    }

    void storeTroubleIsTold_data()
    {
        QTest::addColumn<int>("block");
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("told"); // how the message begins, before the path
        const QString cannotRead = QStringLiteral("QX cannot read its settings file ");
        const QString cannotSave = QStringLiteral("QX cannot save its options to ");
        const int unreadable = SettingsSandbox::FileIsFolder;
        QTest::newRow("unreadable, Save") << unreadable << "Save" << cannotSave;
        QTest::newRow("unreadable, Restore") << unreadable << "Restore" << cannotRead;
        QTest::newRow("unreadable, Restore Default") << unreadable << "RestoreDefault" << cannotRead;
        QTest::newRow("folder cannot be made, Save") << int(SettingsSandbox::FolderIsFile) << "Save" << cannotSave;
    }
    void storeTroubleIsTold()
    {
        QFETCH(int, block);
        QFETCH(QString, command);
        QFETCH(QString, told);
        QVERIFY(m_sandbox.block(SettingsSandbox::Block(block)));
        const QString marks = checkedMarks(m_window->menus);
        const QPoint pos = m_window->pos();
        trigger(command);
        QCOMPARE(m_window->warnings.size(), 1);
        const QString text = m_window->warnings.first();
        QVERIFY2(text.startsWith(told + m_sandbox.storeFile() + QStringLiteral(": ")), qPrintable(text));
        QCOMPARE(checkedMarks(m_window->menus), marks);
        QCOMPARE(m_window->pos(), pos);
        QCOMPARE(m_window->hides, 0);
        QVERIFY(!QFileInfo(m_sandbox.storeFile()).isFile());
        // Told again at the next try: nothing was mended.
        trigger(command);
        QCOMPARE(m_window->warnings, QStringList({text, text}));
    }

    void windowsOfTheMenus()
    {
        trigger(QStringLiteral("CardBack"));
        trigger(QStringLiteral("About"));
        QCOMPARE(m_window->chooserShown, 1);
        QCOMPARE(m_window->aboutShown, 1);
    }

    void guestMenus()
    {
        const Menus &m = m_window->menus;
        const QList<QAction *> guarded = {m.mnuOPause->menuAction(), m.mnuOShowComputer,
                                          m.mnuNumDecks->menuAction(), m.mnuOSave,
                                          m.mnuORestore, m.mnuORestoreDefault};
        m_commands->setGuestMenusEnabled(false);
        for (QAction *a : guarded)
            QVERIFY2(!a->isEnabled(), qPrintable(a->text()));
        QVERIFY(m.mnuOSound->isEnabled());
        QVERIFY(m.mnuOAnimation->menuAction()->isEnabled());
        QVERIFY(m.mnuOColor->menuAction()->isEnabled());
        m_commands->setGuestMenusEnabled(true);
        for (QAction *a : guarded)
            QVERIFY2(a->isEnabled(), qPrintable(a->text()));
    }

    void helpTopics_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("page");
        QTest::newRow("contents") << "Contents" << "contents.html";
        QTest::newRow("rules") << "Rules" << "rules.html";
        QTest::newRow("strategy") << "Strategy" << "strategy.html";
    }
    void helpTopics()
    {
        QFETCH(QString, command);
        QFETCH(QString, page);
        m_commands->setHelpFolder(m_sandbox.path());
        trigger(command);
        HelpWindow *help = m_commands->helpWindow();
        QVERIFY(help);
        QVERIFY(help->isVisible());
        QCOMPARE(help->browser()->source().fileName(), page);
        trigger(QStringLiteral("Contents"));
        QCOMPARE(m_commands->helpWindow(), help); // one help window, reused
    }
};

QTEST_MAIN(TestOptionsCommands)
#include "tst_optionscommands.moc"
