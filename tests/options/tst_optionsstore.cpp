#include "FakeOptionsTarget.h"
#include "OptionsStore.h"
#include "SettingsSandbox.h"
#include "ValueText.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace qx;

namespace {

const QString User = QStringLiteral("User");
const QString Default = QStringLiteral("Default");

void save(const QString &section, const char *key, const QString &value)
{
    SaveReg(section, QLatin1String(key), value);
}

// A whole "User" section in the built-in state, so a test can change just the keys it is about.
void saveBuiltInUser()
{
    const RegBatch batch;
    const QList<std::pair<const char *, const char *>> keys = {
        {"Sound", "True"},        {"TallyScore", "True"},   {"ShowComputerMoves", "False"},
        {"BackColor", "-2147483633"}, {"Frames", "10"},     {"HumanPause", "True"},
        {"ComputerPause", "False"}, {"StrikePause", "True"}, {"NumberOfDecks", "1"},
        {"WindowTop", "50"},      {"WindowLeft", "40"},     {"WindowHeight", "480"},
        {"WindowWidth", "640"},   {"CardBack", "0"},
    };
    for (const auto &[key, value] : keys)
        save(User, key, QLatin1String(value));
}

} // namespace

class TestOptionsStore : public QObject {
    Q_OBJECT

private:
    QByteArray readStoreFile() const
    {
        QFile file(m_sandbox.storeFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    SettingsSandbox m_sandbox;
    GameState m_state;
    std::unique_ptr<FakeOptionsTarget> m_window;
    std::unique_ptr<OptionsStore> m_store;

    // What the main window does while it loads: built-in globals, then the "Default" section.
    void startUp()
    {
        m_state.Frames = 10;
        m_state.NumberOfDecks = 1;
        SetRegApp(QStringLiteral("Brackenfall\\QX"));
        m_store->SaveOptions(Default);
    }

private slots:
    void init()
    {
        m_sandbox.reset();
        m_state = GameState{};
        m_window = std::make_unique<FakeOptionsTarget>(m_state);
        m_store = std::make_unique<OptionsStore>(m_window->menus, m_state, *m_window);
        m_window->show();
        m_window->hides = m_window->shows = 0;
    }

    void cleanup()
    {
        m_store.reset();
        m_window.reset();
    }

    void tf_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("expected");
        QTest::newRow("True") << "True" << true;
        QTest::newRow("TRUE") << "TRUE" << true;
        QTest::newRow("true") << "true" << true;
        QTest::newRow("tRuE") << "tRuE" << true;
        QTest::newRow("False") << "False" << false;
        QTest::newRow("-1") << "-1" << false;
        QTest::newRow("1") << "1" << false;
        QTest::newRow("yes") << "yes" << false;
        QTest::newRow("padded") << " True" << false;
        QTest::newRow("Not Used") << "Not Used" << false;
        QTest::newRow("empty") << "" << false;
    }
    void tf()
    {
        QFETCH(QString, text);
        QFETCH(bool, expected);
        QCOMPARE(TF(text), expected);
    }

    void leadingNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("digits then letters") << "12abc" << 12.0;
        QTest::newRow("fraction") << "2.5" << 2.5;
        QTest::newRow("missing marker") << "Not Used" << 0.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("negative") << "-3" << -3.0;
        QTest::newRow("plus") << "+4" << 4.0;
        QTest::newRow("leading blanks") << "  7" << 7.0;
        QTest::newRow("point first") << ".5" << 0.5;
        QTest::newRow("point last") << "5." << 5.0;
        QTest::newRow("exponent") << "1e3" << 1000.0;
        QTest::newRow("D exponent") << "1D2" << 100.0;
        QTest::newRow("negative exponent") << "-.5E+1x" << -5.0;
        QTest::newRow("exponent without digits") << "12e" << 12.0;
        QTest::newRow("signed exponent without digits") << "12e+" << 12.0;
        QTest::newRow("sign alone") << "-" << 0.0;
        QTest::newRow("point alone") << "." << 0.0;
        QTest::newRow("tiny") << "1e-999" << 0.0;
    }
    void leadingNumber()
    {
        QFETCH(QString, text);
        QFETCH(double, expected);
        QCOMPARE(qx::leadingNumber(text), expected);
    }

    void overflowIsInfinite()
    {
        QVERIFY(std::isinf(qx::leadingNumber(u"1e999")));
        QVERIFY(!toInt16(qx::leadingNumber(u"1e999")));
        QVERIFY(!toInt32(qx::leadingNumber(u"-1e999")));
        QVERIFY(!toInt32(std::numeric_limits<double>::quiet_NaN()));
    }

    void bankersRounding_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected"); // -99999 for "does not fit 16 bits"
        QTest::newRow("12abc") << "12abc" << 12;
        QTest::newRow("2.5 to even") << "2.5" << 2;
        QTest::newRow("3.5 to even") << "3.5" << 4;
        QTest::newRow("-2.5 to even") << "-2.5" << -2;
        QTest::newRow("2.51 up") << "2.51" << 3;
        QTest::newRow("Not Used") << "Not Used" << 0;
        QTest::newRow("top") << "32767.4" << 32767;
        QTest::newRow("over top") << "32767.5" << -99999;
        QTest::newRow("bottom to even") << "-32768.5" << -32768;
        QTest::newRow("too big") << "99999" << -99999;
    }
    void bankersRounding()
    {
        QFETCH(QString, text);
        QFETCH(int, expected);
        const std::optional<qint16> value = toInt16(qx::leadingNumber(text));
        QCOMPARE(value ? int(*value) : -99999, expected);
    }

    void int32Range()
    {
        QCOMPARE(toInt32(qx::leadingNumber(u"-2147483633")).value_or(0), -2147483633);
        QCOMPARE(toInt32(qx::leadingNumber(u"2147483647")).value_or(0), 2147483647);
        QVERIFY(!toInt32(qx::leadingNumber(u"2147483648")));
        QVERIFY(!toInt32(qx::leadingNumber(u"-2147483649")));
    }

    void storeNestsApplicationAndSections()
    {
        QCOMPARE(GetReg(User, QStringLiteral("Sound")), QStringLiteral("Not Used"));
        save(User, "Sound", QStringLiteral("True"));
        save(Default, "Sound", QStringLiteral("False"));
        QCOMPARE(GetReg(User, QStringLiteral("Sound")), QStringLiteral("True"));
        QCOMPARE(GetReg(Default, QStringLiteral("Sound")), QStringLiteral("False"));
        QCOMPARE(GetReg(User, QStringLiteral("Frames")), QStringLiteral("Not Used"));

        QFile file(m_sandbox.storeFile());
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        const QByteArray text = file.readAll();
        QVERIFY(text.contains("[User]"));
        QVERIFY(text.contains("[Default]"));
    }

    void batchWritesOnceAtItsEnd()
    {
        {
            const RegBatch outer;
            save(User, "Frames", QStringLiteral("5"));
            {
                const RegBatch inner;
                save(User, "CardBack", QStringLiteral("2"));
            }
            QCOMPARE(GetReg(User, QStringLiteral("CardBack")), QStringLiteral("2"));
            QVERIFY(!QFile::exists(m_sandbox.storeFile()) || !readStoreFile().contains("CardBack"));
        }
        QVERIFY(readStoreFile().contains("Frames=5"));
        QVERIFY(readStoreFile().contains("CardBack=2"));
    }

    void handEditedListReadsAsText()
    {
        QFile file(m_sandbox.storeFile());
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[User]\nFrames=5, 10\n");
        file.close();
        QCOMPARE(GetReg(User, QStringLiteral("Frames")), QStringLiteral("5, 10"));
    }

    void unchangedValueLeavesTheFileAlone()
    {
        // The store rewrites its file without comments; a comment that survives shows the file was
        // not written again.
        QFile file(m_sandbox.storeFile());
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("; written by hand\n[Default]\nFrames=10\nSound=True\n");
        file.close();
        save(Default, "Frames", QStringLiteral("10"));
        save(Default, "Sound", QStringLiteral("True"));
        QVERIFY(readStoreFile().contains("; written by hand"));

        save(Default, "Frames", QStringLiteral("5"));
        QVERIFY(!readStoreFile().contains("; written by hand"));
        QCOMPARE(GetReg(Default, QStringLiteral("Frames")), QStringLiteral("5"));
        QCOMPARE(GetReg(Default, QStringLiteral("Sound")), QStringLiteral("True"));
    }

    void emptyApplicationNameStops()
    {
        QProcess probe;
        probe.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--read-without-app-name")});
        QVERIFY(probe.waitForFinished(30000));
        QCOMPARE(probe.exitStatus(), QProcess::CrashExit);
        QVERIFY(probe.readAllStandardError().contains("SetRegApp"));
    }

    void emptyStoreKeepsBuiltInState()
    {
        startUp();
        const QRect before = m_window->geometry();
        m_store->LoadOptions(User);
        QCOMPARE(checkedMarks(m_window->menus), BuiltInMarks);
        QCOMPARE(m_state.Frames, 10);
        QCOMPARE(m_state.NumberOfDecks, 1);
        QCOMPARE(m_state.CardBack, 0);
        QCOMPARE(m_window->color, BackColor::ButtonFace);
        QCOMPARE(m_window->geometry(), before);
        QCOMPARE(m_window->hides, 0);
        QCOMPARE(m_window->repaints, 0);
        QVERIFY(m_window->warnings.isEmpty());
    }

    void defaultSectionIsBuiltInState_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::newRow("Sound") << "Sound" << "True";
        QTest::newRow("TallyScore") << "TallyScore" << "True";
        QTest::newRow("ShowComputerMoves") << "ShowComputerMoves" << "False";
        QTest::newRow("BackColor") << "BackColor" << "-2147483633";
        QTest::newRow("Frames") << "Frames" << "10";
        QTest::newRow("HumanPause") << "HumanPause" << "True";
        QTest::newRow("ComputerPause") << "ComputerPause" << "False";
        QTest::newRow("StrikePause") << "StrikePause" << "True";
        QTest::newRow("NumberOfDecks") << "NumberOfDecks" << "1";
        // The window's frame position (the offscreen platform draws a small frame too).
        QTest::newRow("WindowTop") << "WindowTop" << "y";
        QTest::newRow("WindowLeft") << "WindowLeft" << "x";
        QTest::newRow("WindowHeight") << "WindowHeight" << "480";
        QTest::newRow("WindowWidth") << "WindowWidth" << "640";
        QTest::newRow("CardBack") << "CardBack" << "0";
    }
    void defaultSectionIsBuiltInState()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        // A stale "Default" from an earlier run is overwritten at every start.
        SaveReg(Default, key, QStringLiteral("stale"));
        startUp();
        if (value == QLatin1String("y"))
            value = QString::number(m_window->frameGeometry().top());
        if (value == QLatin1String("x"))
            value = QString::number(m_window->frameGeometry().left());
        QCOMPARE(GetReg(Default, key), value);
    }

    void saveChangeRestoreBringsEveryKeyBack()
    {
        const QPoint startPos = m_window->pos();
        startUp();
        const Menus &m = m_window->menus;
        m.mnuOSound->setChecked(false);
        m.mnuOScore->setChecked(false);
        m.mnuOShowComputer->setChecked(true);
        m_window->color = 0x123456;
        m.mnuOASpeed(10)->setChecked(false);
        m.mnuOASpeed(20)->setChecked(true);
        m_state.Frames = 20;
        m.mnuOPSelect[0]->setChecked(false);
        m.mnuOPSelect[1]->setChecked(true);
        m.mnuOPSelect[2]->setChecked(false);
        m.mnuODNum(1)->setChecked(false);
        m.mnuODNum(3)->setChecked(true);
        m_state.NumberOfDecks = 3;
        m_window->setGeometry(70, 80, 500, 400);
        const QRect saved = m_window->geometry();
        const QPoint savedPos = m_window->pos();
        m_state.CardBack = 2;
        m_store->SaveOptions(User);
        const QString savedMarks = checkedMarks(m);
        QCOMPARE(GetReg(User, QStringLiteral("Sound")), QStringLiteral("False"));
        QCOMPARE(GetReg(User, QStringLiteral("BackColor")), QString::number(0x123456));

        m_store->LoadOptions(Default);
        QCOMPARE(checkedMarks(m), BuiltInMarks);
        QCOMPARE(m_window->pos(), startPos);
        QCOMPARE(m_state.CardBack, 0);

        m_window->shownBack = -1;
        m_store->LoadOptions(User);
        // Match was unchecked by the "Default" load and the saved colour is a custom one.
        QCOMPARE(checkedMarks(m), QStringLiteral("Computer Speed20 Computers Decks3"));
        QCOMPARE(savedMarks, QStringLiteral("Computer Match Speed20 Computers Decks3"));
        QCOMPARE(m_window->color, 0x123456);
        QCOMPARE(m_state.Frames, 20);
        QCOMPARE(m_state.NumberOfDecks, 3);
        QCOMPARE(m_state.CardBack, 2);
        QCOMPARE(m_window->shownBack, 2);
        QCOMPARE(m_window->pos(), savedPos);
        QCOMPARE(m_window->size(), saved.size());
        QVERIFY(m_window->isVisible());
        QCOMPARE(m_window->hides, 2);
        QCOMPARE(m_window->repaints, 2);
        QVERIFY(m_window->warnings.isEmpty());
    }

    void restoreWithoutUserSectionChangesNothing()
    {
        startUp();
        m_window->move(123, 234);
        m_window->menus.mnuOSound->setChecked(false);
        m_state.Frames = 0;
        save(User, "Frames", QStringLiteral("20"));
        const QPoint pos = m_window->pos();
        m_window->hides = m_window->shows = 0;

        m_store->LoadOptions(User);
        QCOMPARE(m_window->pos(), pos);
        QCOMPARE(m_window->hides, 0);
        QCOMPARE(m_window->shows, 0);
        QCOMPARE(m_window->repaints, 0);
        QVERIFY(!m_window->menus.mnuOSound->isChecked());
        QCOMPARE(m_state.Frames, 0);
    }

    void restoreDefaultMovesWindowBack()
    {
        m_window->move(11, 22);
        const QPoint start = m_window->pos();
        startUp();
        m_window->setGeometry(300, 200, 400, 300);
        m_store->LoadOptions(Default);
        QCOMPARE(m_window->pos(), start);
        QCOMPARE(m_window->size(), QSize(640, 480));
    }

    void storedBooleans_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("checked");
        QTest::newRow("true") << "true" << true;
        QTest::newRow("TRUE") << "TRUE" << true;
        QTest::newRow("TrUe") << "TrUe" << true;
        QTest::newRow("-1") << "-1" << false;
        QTest::newRow("1") << "1" << false;
        QTest::newRow("yes") << "yes" << false;
        QTest::newRow("False") << "False" << false;
    }
    void storedBooleans()
    {
        QFETCH(QString, text);
        QFETCH(bool, checked);
        const RegBatch batch;
        saveBuiltInUser();
        for (const char *key : {"Sound", "TallyScore", "ShowComputerMoves", "HumanPause", "ComputerPause", "StrikePause"})
            save(User, key, text);
        // A section is there when its "Sound" key is, whatever the key says.
        m_store->LoadOptions(User);
        const Menus &m = m_window->menus;
        for (const QAction *item : {m.mnuOSound, m.mnuOScore, m.mnuOShowComputer, m.mnuOPSelect[0],
                                    m.mnuOPSelect[1], m.mnuOPSelect[2]})
            QCOMPARE(item->isChecked(), checked);
        QCOMPARE(m_window->hides, 1);
    }

    void lenientNumbers_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        QTest::newRow("decks 3abc") << "NumberOfDecks" << "3abc" << 3;
        QTest::newRow("decks 2.5") << "NumberOfDecks" << "2.5" << 2;
        QTest::newRow("decks 3.5") << "NumberOfDecks" << "3.5" << 4;
        QTest::newRow("decks 1.5") << "NumberOfDecks" << "1.5" << 2;
        QTest::newRow("decks blank 4") << "NumberOfDecks" << " 4" << 4;
        QTest::newRow("frames 1e1") << "Frames" << "1e1" << 10;
        QTest::newRow("frames 20.49") << "Frames" << "20.49" << 20;
        QTest::newRow("frames 0.5") << "Frames" << "0.5" << 0;
        QTest::newRow("back 2 of them") << "CardBack" << "2 of them" << 2;
    }
    void lenientNumbers()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);
        QFETCH(int, expected);
        saveBuiltInUser();
        m_state.CardBack = 1;
        SaveReg(User, key, text);
        m_store->LoadOptions(User);
        QVERIFY2(m_window->warnings.isEmpty(), qPrintable(m_window->warnings.join('\n')));
        const int actual = key == QLatin1String("Frames")          ? m_state.Frames
                           : key == QLatin1String("NumberOfDecks") ? m_state.NumberOfDecks
                                                                   : m_state.CardBack;
        QCOMPARE(actual, expected);
        if (key == QLatin1String("Frames"))
            QVERIFY(checkedMarks(m_window->menus).contains(QStringLiteral("Speed%1 ").arg(expected)));
        if (key == QLatin1String("NumberOfDecks"))
            QVERIFY(checkedMarks(m_window->menus).endsWith(QStringLiteral("Decks%1").arg(expected)));
    }

    void loadedColourMarks_data()
    {
        QTest::addColumn<QString>("before"); // the colour item checked before
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("after");  // colour items checked afterwards
        QTest::newRow("match, custom") << "Match" << "1193046" << "";
        QTest::newRow("gray, custom") << "Gray" << "1193046" << "Gray";
        QTest::newRow("custom, custom") << "Custom" << "1193046" << "Custom";
        QTest::newRow("custom, gray") << "Custom" << "12632256" << "Gray Custom";
        QTest::newRow("gray, match") << "Gray" << "-2147483633" << "Gray Match";
        QTest::newRow("match, gray") << "Match" << "12632256" << "Gray";
        QTest::newRow("match, gray with fraction") << "Match" << "12632256.4" << "Gray";
    }
    void loadedColourMarks()
    {
        QFETCH(QString, before);
        QFETCH(QString, stored);
        QFETCH(QString, after);
        const Menus &m = m_window->menus;
        m.mnuOCMatch->setChecked(before == QLatin1String("Match"));
        m.mnuOCGray->setChecked(before == QLatin1String("Gray"));
        m.mnuOCCustom->setChecked(before == QLatin1String("Custom"));
        saveBuiltInUser();
        save(User, "BackColor", stored);
        m_store->LoadOptions(User);
        QStringList colours;
        for (const QString &mark : checkedMarks(m).split(' '))
            if (mark == QLatin1String("Gray") || mark == QLatin1String("Match") || mark == QLatin1String("Custom"))
                colours.append(mark);
        QCOMPARE(colours.join(' '), after);
        QCOMPARE(m_window->color, toInt32(qx::leadingNumber(stored)).value());
    }

    void unusableValues_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::newRow("decks 0") << "NumberOfDecks" << "0";
        QTest::newRow("decks 7") << "NumberOfDecks" << "7";
        QTest::newRow("decks garbage") << "NumberOfDecks" << "many";
        QTest::newRow("decks 5") << "NumberOfDecks" << "5";
        QTest::newRow("frames 99999") << "Frames" << "99999";
        QTest::newRow("frames 7") << "Frames" << "7";
        QTest::newRow("frames -5") << "Frames" << "-5";
        QTest::newRow("back 50") << "CardBack" << "50";
        QTest::newRow("back 3 of 3") << "CardBack" << "3";
        QTest::newRow("back -1") << "CardBack" << "-1";
        QTest::newRow("back huge") << "CardBack" << "1e300";
        QTest::newRow("colour too big") << "BackColor" << "99999999999";
        QTest::newRow("colour overflow") << "BackColor" << "1e999";
        QTest::newRow("colour not a number") << "BackColor" << "abc";
        QTest::newRow("decks not a number") << "NumberOfDecks" << "x3";
        QTest::newRow("width negative") << "WindowWidth" << "-5";
        QTest::newRow("top far away") << "WindowTop" << "1e12";
        // Window geometry that would hang the program on a huge table or hide the window.
        QTest::newRow("height not a number") << "WindowHeight" << "abc";
        QTest::newRow("width beyond the desktop") << "WindowWidth" << "100000";
        QTest::newRow("height beyond the desktop") << "WindowHeight" << "100000";
        QTest::newRow("width below the minimum") << "WindowWidth" << "100";
        QTest::newRow("height below the minimum") << "WindowHeight" << "12";
        QTest::newRow("left far off") << "WindowLeft" << "-5000";
        QTest::newRow("left mostly off") << "WindowLeft" << "-400";
        QTest::newRow("top below the desktop") << "WindowTop" << "5000";
        QTest::newRow("top mostly off") << "WindowTop" << "-300";
    }
    void unusableValues()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);
        {
        const RegBatch batch;
        saveBuiltInUser();
        // Everything else in the section differs from the current state and must still apply.
        save(User, "Sound", QStringLiteral("False"));
        if (key != QLatin1String("NumberOfDecks"))
            save(User, "NumberOfDecks", QStringLiteral("2"));
        if (key != QLatin1String("Frames"))
            save(User, "Frames", QStringLiteral("5"));
        if (key != QLatin1String("CardBack"))
            save(User, "CardBack", QStringLiteral("1"));
        if (key != QLatin1String("WindowLeft"))
            save(User, "WindowLeft", QStringLiteral("77"));
        SaveReg(User, key, text);
        }
        m_window->color = 42;
        const QRect before = m_window->geometry();
        const QPoint beforePos = m_window->pos();

        m_store->LoadOptions(User);

        QCOMPARE(m_window->warnings.size(), 1);
        QCOMPARE(m_window->warnings.first(), OptionsStore::refusalText(User, key, text));
        QVERIFY(m_window->warnings.first().contains(QStringLiteral("\"%1\"").arg(key)));
        QVERIFY(m_window->warnedWhileVisible.first());
        QVERIFY(m_window->isVisible());
        QVERIFY(!m_window->menus.mnuOSound->isChecked());
        QCOMPARE(m_window->x(), key == QLatin1String("WindowLeft") ? beforePos.x() : 77);

        const QString marks = checkedMarks(m_window->menus);
        if (key == QLatin1String("NumberOfDecks")) {
            QCOMPARE(m_state.NumberOfDecks, 1);
            QVERIFY(marks.endsWith(QStringLiteral("Decks1")));
        } else {
            QCOMPARE(m_state.NumberOfDecks, 2);
        }
        if (key == QLatin1String("Frames")) {
            QCOMPARE(m_state.Frames, 10);
            QVERIFY(marks.contains(QStringLiteral("Speed10")));
        } else {
            QCOMPARE(m_state.Frames, 5);
        }
        QCOMPARE(m_state.CardBack, key == QLatin1String("CardBack") ? 0 : 1);
        QCOMPARE(m_window->color, key == QLatin1String("BackColor") ? 42 : BackColor::ButtonFace);
        if (key == QLatin1String("WindowWidth"))
            QCOMPARE(m_window->width(), before.width());
        if (key == QLatin1String("WindowHeight"))
            QCOMPARE(m_window->height(), before.height());
        if (key == QLatin1String("WindowTop"))
            QCOMPARE(m_window->y(), beforePos.y());
    }

    void refusalMessageText()
    {
        QCOMPARE(OptionsStore::refusalText(User, QStringLiteral("NumberOfDecks"), QStringLiteral("7")),
                 QStringLiteral("The setting \"NumberOfDecks\" in section \"User\" has the value \"7\", "
                                "which QX cannot use. The current value is kept."));
        QCOMPARE(OptionsStore::missingKeysText(User, {QStringLiteral("Frames"), QStringLiteral("CardBack")}),
                 QStringLiteral("The settings \"Frames\", \"CardBack\" are missing from section \"User\". "
                                "Their current values are kept."));
        QCOMPARE(OptionsStore::missingKeysText(User, {QStringLiteral("Frames")}),
                 QStringLiteral("The setting \"Frames\" is missing from section \"User\". "
                                "Its current value is kept."));
    }

    void missingKeys_data()
    {
        QTest::addColumn<QStringList>("present"); // besides "Sound"
        QTest::addColumn<QStringList>("missing");
        QTest::newRow("only Sound") << QStringList{}
                                    << QStringList{"TallyScore", "ShowComputerMoves", "BackColor", "Frames",
                                                   "HumanPause", "ComputerPause", "StrikePause", "NumberOfDecks",
                                                   "WindowTop", "WindowLeft", "WindowHeight", "WindowWidth",
                                                   "CardBack"};
        QTest::newRow("two missing") << QStringList{"ShowComputerMoves", "BackColor", "Frames", "HumanPause",
                                                    "ComputerPause", "StrikePause", "NumberOfDecks", "WindowTop",
                                                    "WindowLeft", "WindowHeight", "CardBack"}
                                     << QStringList{"TallyScore", "WindowWidth"};
    }
    void missingKeys()
    {
        QFETCH(QStringList, present);
        QFETCH(QStringList, missing);
        startUp();
        // What is there differs from the current state.
        const QMap<QString, QString> changed = {
            {"TallyScore", "False"}, {"ShowComputerMoves", "True"}, {"BackColor", "12632256"},
            {"Frames", "5"},         {"HumanPause", "False"},       {"ComputerPause", "True"},
            {"StrikePause", "False"}, {"NumberOfDecks", "3"},       {"WindowTop", "60"},
            {"WindowLeft", "70"},    {"WindowHeight", "400"},       {"WindowWidth", "500"},
            {"CardBack", "2"},
        };
        {
            const RegBatch batch;
            save(User, "Sound", QStringLiteral("False"));
            for (const QString &key : present)
                SaveReg(User, key, changed.value(key));
        }
        m_window->color = 42;
        const QRect before = m_window->geometry();

        m_store->LoadOptions(User);

        QCOMPARE(m_window->warnings, QStringList{OptionsStore::missingKeysText(User, missing)});
        QVERIFY(m_window->warnedWhileVisible.first());
        QVERIFY(!m_window->menus.mnuOSound->isChecked());
        QVERIFY(m_window->menus.mnuOScore->isChecked());
        QCOMPARE(m_window->width(), before.width());
        if (present.isEmpty()) {
            QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Score Match Speed10 Humans Strikes Decks1"));
            QCOMPARE(m_state.Frames, 10);
            QCOMPARE(m_state.NumberOfDecks, 1);
            QCOMPARE(m_state.CardBack, 0);
            QCOMPARE(m_window->color, 42);
            QCOMPARE(m_window->geometry(), before);
        } else {
            QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Score Computer Gray Speed5 Computers Decks3"));
            QCOMPARE(m_window->pos(), QPoint(70, 60));
            QCOMPARE(m_window->height(), 400);
            QCOMPARE(m_state.CardBack, 2);
        }
    }

    void anyLetterCase_data()
    {
        QTest::addColumn<QString>("section");
        QTest::addColumn<bool>("lowerKeys");
        QTest::newRow("lower-case keys") << "User" << true;
        QTest::newRow("lower-case section") << "user" << false;
        QTest::newRow("upper-case section, lower-case keys") << "USER" << true;
    }
    void anyLetterCase()
    {
        QFETCH(QString, section);
        QFETCH(bool, lowerKeys);
        QFile file(m_sandbox.storeFile());
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QByteArray text = "[" + section.toLatin1() + "]\nSound=False\nTallyScore=False\nShowComputerMoves=True\n"
                          "BackColor=12632256\nFrames=5\nHumanPause=False\nComputerPause=True\nStrikePause=False\n"
                          "NumberOfDecks=3\nWindowTop=60\nWindowLeft=70\nWindowHeight=400\nWindowWidth=500\n"
                          "CardBack=2\n";
        file.write(lowerKeys ? text.toLower() : text);
        file.close();

        m_store->LoadOptions(User);
        QVERIFY2(m_window->warnings.isEmpty(), qPrintable(m_window->warnings.join('\n')));
        QCOMPARE(checkedMarks(m_window->menus), QStringLiteral("Computer Gray Speed5 Computers Decks3"));
        QCOMPARE(m_window->pos(), QPoint(70, 60));
        QCOMPARE(m_window->size(), QSize(500, 400));
        QCOMPARE(m_state.CardBack, 2);

        // Saving writes over the keys as they are spelled, not beside them.
        m_window->menus.mnuOSound->setChecked(true);
        m_store->SaveOptions(User);
        const QByteArray saved = readStoreFile().toLower();
        QCOMPARE(saved.count("sound="), 1);
        QCOMPARE(saved.count("[user]"), 1);
        QVERIFY(saved.contains("sound=true"));
        QCOMPARE(GetReg(User, QStringLiteral("Sound")), QStringLiteral("True"));
    }
};

int main(int argc, char **argv)
{
    // The probe for emptyApplicationNameStops: reading the store before it is named must stop.
    if (argc > 1 && qstrcmp(argv[1], "--read-without-app-name") == 0) {
        QCoreApplication app(argc, argv);
        GetReg(QStringLiteral("User"), QStringLiteral("Sound"));
        return 0;
    }
    QApplication app(argc, argv);
    TestOptionsStore test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_optionsstore.moc"
