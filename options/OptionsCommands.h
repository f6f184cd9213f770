#pragma once

#include "Menus.h"

#include "HelpWindow.h"
#include "OptionsStore.h"

#include <QColorDialog>
#include <QObject>
#include <QPointer>

class QAction;

namespace qx {

struct GameState;
class OptionsTarget;

// The commands of the Options menu, the Card Back item of the Cards menu and the Help menu.
// Sound, Tally Score, Show Computer Moves and the three pause items are plain switches: the
// action's own toggle is the command. Speed, decks and colours set their marks themselves, so
// their handlers first take back the toggle Qt made when the item was triggered.
class OptionsCommands : public QObject {
    Q_OBJECT
public:
    OptionsCommands(const Menus &menus, GameState &state, OptionsTarget &target, OptionsStore &store,
                    QObject *parent = nullptr);

    // Pause Game, Show Computer Moves, Number Of Decks, Save, Restore and Restore Default
    // Options: the items a guest of a network game may not use.
    void setGuestMenusEnabled(bool enabled);

    // The commands themselves, as the menu runs them.
    void mnuOASpeed_Click(int frames);
    void mnuODNum_Click(int packs);
    void mnuOCGray_Click();
    void mnuOCMatch_Click();
    void mnuOCCustom_Click();
    void showHelpTopic(int topic);

    // Where the help pages are read from (help/ beside the program unless set).
    void setHelpFolder(const QString &folder) { m_helpFolder = folder; }
    // The help window, once a help topic has been opened.
    HelpWindow *helpWindow() const { return m_help; }
    // The colour chooser, once Custom has been chosen; it opens on the colour last chosen with OK.
    QColorDialog *colorDialog() const { return m_colorDialog; }

private:
    void connectSwitches();
    void connectChoices();
    void connectCommands();
    // Tells the player of trouble with the settings file.
    void tellFault(const RegFault &fault, OptionsStore::Moment moment);
    // Sets the background colour and leaves exactly `chosen` of the three colour items checked.
    void applyBackColor(qint32 color, QAction *chosen);

    Menus m_menus;
    GameState &m_state;
    OptionsTarget &m_target;
    OptionsStore &m_store;
    QString m_helpFolder;
    QPointer<HelpWindow> m_help;
    QPointer<QColorDialog> m_colorDialog;
    QColor m_chosenColor;
};

} // namespace qx
