#include "OptionsCommands.h"

#include "BackColor.h"
#include "GameState.h"
#include "HelpWindow.h"
#include "OptionsStore.h"
#include "OptionsTarget.h"

#include <QAction>
#include <QColorDialog>
#include <QMenu>

namespace qx {

namespace {

// Runs `command` when the checkable item is triggered, after taking back the toggle Qt has
// already made, so the command finds the marks exactly as the player saw them.
template <typename Command>
void onChoice(QAction *item, QObject *context, Command command)
{
    QObject::connect(item, &QAction::triggered, context, [item, command](bool checkedNow) {
        if (item->isCheckable())
            item->setChecked(!checkedNow);
        command();
    });
}

} // namespace

OptionsCommands::OptionsCommands(const Menus &menus, GameState &state, OptionsTarget &target,
                                 OptionsStore &store, QObject *parent)
    : QObject(parent), m_menus(menus), m_state(state), m_target(target), m_store(store)
{
    connectSwitches();
    connectChoices();
    connectCommands();
}

void OptionsCommands::connectSwitches()
{
    // Sound, Show Computer Moves and the pauses are read where they are needed; the tally is drawn
    // on the table, so that one repaints.
    connect(m_menus.mnuOScore, &QAction::triggered, this, [this] { m_target.repaintTable(); });
}

void OptionsCommands::connectChoices()
{
    for (QAction *item : std::as_const(m_menus.speedItems)) {
        const int frames = item->data().toInt();
        onChoice(item, this, [this, frames] { mnuOASpeed_Click(frames); });
    }
    for (QAction *item : std::as_const(m_menus.deckItems)) {
        const int packs = item->data().toInt();
        onChoice(item, this, [this, packs] { mnuODNum_Click(packs); });
    }
    onChoice(m_menus.mnuOCGray, this, [this] { mnuOCGray_Click(); });
    onChoice(m_menus.mnuOCMatch, this, [this] { mnuOCMatch_Click(); });
    onChoice(m_menus.mnuOCCustom, this, [this] { mnuOCCustom_Click(); });
}

void OptionsCommands::connectCommands()
{
    connect(m_menus.mnuORestore, &QAction::triggered, this, [this] {
        tellFault(m_store.LoadOptions(QLatin1String(UserSection)), OptionsStore::AtRestore);
    });
    connect(m_menus.mnuORestoreDefault, &QAction::triggered, this, [this] {
        tellFault(m_store.LoadOptions(QLatin1String(DefaultSection)), OptionsStore::AtRestore);
    });
    connect(m_menus.mnuOSave, &QAction::triggered, this, [this] {
        tellFault(m_store.SaveOptions(QLatin1String(UserSection)), OptionsStore::AtSave);
    });
    connect(m_menus.mnuCBack, &QAction::triggered, this, [this] { m_target.showCardBackChooser(); });
    connect(m_menus.mnuAbout, &QAction::triggered, this, [this] { m_target.showAbout(); });
    connect(m_menus.mnuHContents, &QAction::triggered, this, [this] { showHelpTopic(HelpWindow::Contents); });
    connect(m_menus.mnuHRules, &QAction::triggered, this, [this] { showHelpTopic(HelpWindow::Rules); });
    connect(m_menus.mnuHStrategy, &QAction::triggered, this, [this] { showHelpTopic(HelpWindow::Strategy); });
}

void OptionsCommands::tellFault(const RegFault &fault, OptionsStore::Moment moment)
{
    if (fault.kind != RegFault::None)
        m_target.showWarning(OptionsStore::faultText(fault, moment));
}

void OptionsCommands::setGuestMenusEnabled(bool enabled)
{
    m_menus.mnuOPause->menuAction()->setEnabled(enabled);
    m_menus.mnuOShowComputer->setEnabled(enabled);
    m_menus.mnuNumDecks->menuAction()->setEnabled(enabled);
    m_menus.mnuOSave->setEnabled(enabled);
    m_menus.mnuORestore->setEnabled(enabled);
    m_menus.mnuORestoreDefault->setEnabled(enabled);
}

void OptionsCommands::mnuOASpeed_Click(int frames)
{
    QAction *item = m_menus.mnuOASpeed(frames);
    if (!item)
        return;
    if (QAction *old = m_menus.mnuOASpeed(m_state.Frames))
        old->setChecked(false);
    m_state.Frames = qint16(frames);
    item->setChecked(true);
}

void OptionsCommands::mnuODNum_Click(int packs)
{
    QAction *item = m_menus.mnuODNum(packs);
    if (!item)
        return;
    if (m_state.gameRunning()) {
        if (!m_target.askYesNo(tr("You will have to begin a new game after this change. Continue?")))
            return;
        m_target.abandonGame();
    }
    if (QAction *old = m_menus.mnuODNum(m_state.NumberOfDecks))
        old->setChecked(false);
    m_state.NumberOfDecks = qint16(packs);
    item->setChecked(true);
}

void OptionsCommands::mnuOCGray_Click()
{
    applyBackColor(BackColor::Gray, m_menus.mnuOCGray);
}

void OptionsCommands::mnuOCMatch_Click()
{
    applyBackColor(BackColor::ButtonFace, m_menus.mnuOCMatch);
}

void OptionsCommands::mnuOCCustom_Click()
{
    if (!m_colorDialog) {
        m_chosenColor = BackColor::toQColor(m_target.backColor());
        m_colorDialog = new QColorDialog(m_chosenColor, m_target.optionsWindow());
        m_colorDialog->setWindowTitle(tr("Background Color"));
    }
    m_colorDialog->setCurrentColor(m_chosenColor);
    m_target.runDialog(*m_colorDialog);
    // Cancel still applies a colour, but the one last chosen with OK (the chooser's first colour
    // the first time): a colour merely browsed before cancelling was never chosen.
    if (m_colorDialog->result() == QDialog::Accepted)
        m_chosenColor = m_colorDialog->currentColor();
    applyBackColor(BackColor::fromQColor(m_chosenColor), m_menus.mnuOCCustom);
}

void OptionsCommands::applyBackColor(qint32 color, QAction *chosen)
{
    m_target.applyBackColor(color);
    for (QAction *item : {m_menus.mnuOCGray, m_menus.mnuOCMatch, m_menus.mnuOCCustom})
        item->setChecked(item == chosen);
    m_target.repaintTable();
}

void OptionsCommands::showHelpTopic(int topic)
{
    if (!m_help)
        m_help = new HelpWindow(m_target.optionsWindow(), m_helpFolder);
    m_help->showTopic(topic);
}

} // namespace qx
