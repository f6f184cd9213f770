#pragma once

#include "BackColor.h"
#include "GameState.h"
#include "Menus.h"
#include "OptionsTarget.h"

#include <QDialog>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QStringList>

#include <QAction>

#include <functional>

// Every option check mark that is set, in menu order, by a short name: the built-in state reads
// "Sound Score Match Speed10 Humans Strikes Decks1".
inline QString checkedMarks(const qx::Menus &m)
{
    QStringList on;
    const auto add = [&on](const QAction *item, const QString &name) {
        if (item->isChecked())
            on.append(name);
    };
    add(m.mnuOSound, QStringLiteral("Sound"));
    add(m.mnuOScore, QStringLiteral("Score"));
    add(m.mnuOShowComputer, QStringLiteral("Computer"));
    add(m.mnuOCGray, QStringLiteral("Gray"));
    add(m.mnuOCMatch, QStringLiteral("Match"));
    add(m.mnuOCCustom, QStringLiteral("Custom"));
    for (const QAction *item : m.speedItems)
        add(item, QStringLiteral("Speed%1").arg(item->data().toInt()));
    add(m.mnuOPSelect[0], QStringLiteral("Humans"));
    add(m.mnuOPSelect[1], QStringLiteral("Computers"));
    add(m.mnuOPSelect[2], QStringLiteral("Strikes"));
    for (const QAction *item : m.deckItems)
        add(item, QStringLiteral("Decks%1").arg(item->data().toInt()));
    return on.join(QLatin1Char(' '));
}

inline const QString BuiltInMarks = QStringLiteral("Sound Score Match Speed10 Humans Strikes Decks1");

// A main window for the options: real menus on a real window, and a record of everything the
// options asked of it. Questions are answered by `answer`; dialogs run through `dialogRunner`
// instead of waiting for a person.
class FakeOptionsTarget : public QMainWindow, public qx::OptionsTarget {
public:
    explicit FakeOptionsTarget(qx::GameState &state) : m_state(state)
    {
        menus = qx::buildMenus(menuBar());
        // The table's own minimum, as on the main window.
        auto *table = new QWidget;
        table->setMinimumSize(120, 90);
        setCentralWidget(table);
        setGeometry(40, 50, 640, 480);
    }

    QWidget *optionsWindow() override { return this; }
    void applyBackColor(qint32 value) override { color = value; }
    qint32 backColor() const override { return color; }
    int cardBackCount() const override { return backs; }
    void setCardBack(int number) override { shownBack = number; }
    void repaintTable() override { ++repaints; }
    void abandonGame() override
    {
        ++abandons;
        m_state.CurrentPlayer = 0;
        m_state.NumPlayers = 0;
        m_state.Total = -1;
    }
    void showCardBackChooser() override { ++chooserShown; }
    void showAbout() override { ++aboutShown; }

    void showWarning(const QString &text) override
    {
        warnings.append(text);
        warnedWhileVisible.append(isVisible());
    }
    bool askYesNo(const QString &text) override
    {
        questions.append(text);
        return answer;
    }
    void runDialog(QDialog &dialog) override
    {
        ++dialogsRun;
        if (dialogRunner)
            dialogRunner(dialog);
    }

    qx::Menus menus;
    qint32 color = qx::BackColor::ButtonFace;
    int backs = 3;
    int shownBack = 0;
    int repaints = 0;
    int abandons = 0;
    int chooserShown = 0;
    int aboutShown = 0;
    int dialogsRun = 0;
    int hides = 0;
    int shows = 0;
    QStringList warnings;
    QList<bool> warnedWhileVisible;
    QStringList questions;
    bool answer = true;
    std::function<void(QDialog &)> dialogRunner;

protected:
    void hideEvent(QHideEvent *event) override
    {
        ++hides;
        QMainWindow::hideEvent(event);
    }
    void showEvent(QShowEvent *event) override
    {
        ++shows;
        QMainWindow::showEvent(event);
    }

private:
    qx::GameState &m_state;
};
