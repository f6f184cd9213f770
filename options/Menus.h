#pragma once

#include <QCoreApplication>
#include <QList>

class QAction;
class QMenu;
class QMenuBar;

namespace qx {

// The main window's whole menu tree, in its order, under the names the game uses. The options
// are the check marks of these actions: whoever needs an option reads its action.
// Index-carrying arrays keep the index as the action's data() and as the array position where the
// index is small (mnuOASpeed by frame count 0, 5, 10, 20; mnuODNum by pack count 1..4;
// mnuCSize by scale 1, 2, 4).
struct Menus {
    Q_DECLARE_TR_FUNCTIONS(qx::Menus)

public:
    QMenu *mnuGame = nullptr;
    QAction *mnuGNew = nullptr;
    QAction *mnuGTakeOver = nullptr;
    QAction *mnuGExit = nullptr;

    QMenu *mnuOptions = nullptr;
    QAction *mnuOSound = nullptr;
    QAction *mnuOScore = nullptr;
    QAction *mnuOShowComputer = nullptr;
    QMenu *mnuOColor = nullptr;
    QAction *mnuOCGray = nullptr;
    QAction *mnuOCMatch = nullptr;
    QAction *mnuOCCustom = nullptr;
    QMenu *mnuOAnimation = nullptr;
    QAction *mnuOASpeed(int frames) const; // 0, 5, 10, 20; nullptr for any other count
    QList<QAction *> speedItems;           // None, Fast, Medium, Slow
    QMenu *mnuOPause = nullptr;
    QAction *mnuOPSelect[3] = {};          // Before Humans, Before Computers, After Strikes
    QMenu *mnuNumDecks = nullptr;
    QAction *mnuODNum(int packs) const;    // 1..4; nullptr outside
    QList<QAction *> deckItems;            // 1, 2, 3, 4
    QAction *mnuORestore = nullptr;
    QAction *mnuORestoreDefault = nullptr;
    QAction *mnuOSave = nullptr;

    QMenu *mnuCards = nullptr;
    QAction *mnuCSize(int index) const;    // 1 Small, 2 Medium, 4 Large; nullptr otherwise
    QList<QAction *> sizeItems;            // Small, Medium, Large
    QAction *mnuCBack = nullptr;

    QMenu *mnuHelp = nullptr;
    QAction *mnuHContents = nullptr;
    QAction *mnuHRules = nullptr;
    QAction *mnuHStrategy = nullptr;
    QAction *mnuAbout = nullptr;
};

// Builds the menu tree into the bar with every caption, shortcut and initial check mark.
Menus buildMenus(QMenuBar *bar);

} // namespace qx
