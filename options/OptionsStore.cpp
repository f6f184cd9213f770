#include "OptionsStore.h"

#include "BackColor.h"
#include "GameState.h"
#include "OptionsTarget.h"
#include "Reg.h"
#include "ValueText.h"

#include <QAction>
#include <QWidget>

#include <optional>
#include <utility>

namespace qx {

namespace {

void saveBool(const QString &section, const char *key, const QAction *item)
{
    SaveReg(section, QLatin1String(key), boolText(item->isChecked()));
}

void saveNumber(const QString &section, const char *key, qint64 value)
{
    SaveReg(section, QLatin1String(key), QString::number(value));
}

void loadBool(const QString &section, const char *key, QAction *item)
{
    item->setChecked(TF(GetReg(section, QLatin1String(key))));
}

} // namespace

OptionsStore::OptionsStore(const Menus &menus, GameState &state, OptionsTarget &target)
    : m_menus(menus), m_state(state), m_target(target)
{
}

QString OptionsStore::refusalText(const QString &section, const QString &key, const QString &value)
{
    return QStringLiteral("The setting \"%1\" in section \"%2\" has the value \"%3\", which QX cannot use. "
                          "The current value is kept.")
        .arg(key, section, value);
}

OptionsStore::Reading OptionsStore::read(const QString &section, const char *key) const
{
    Reading r;
    r.key = QLatin1String(key);
    r.text = GetReg(section, r.key);
    r.number = leadingNumber(r.text);
    return r;
}

void OptionsStore::refuse(const QString &section, const Reading &reading)
{
    m_refusals.append(refusalText(section, reading.key, reading.text));
}

void OptionsStore::LoadOptions(const QString &section)
{
    const RegBatch batch;
    const QString sound = GetReg(section, QStringLiteral("Sound"));
    if (sound == QLatin1String(NotUsed))
        return;

    m_refusals.clear();
    QWidget *window = m_target.optionsWindow();
    window->hide();

    m_menus.mnuOSound->setChecked(TF(sound));
    loadBool(section, "TallyScore", m_menus.mnuOScore);
    loadBool(section, "ShowComputerMoves", m_menus.mnuOShowComputer);
    loadBackColor(section);
    loadFrames(section);
    loadBool(section, "HumanPause", m_menus.mnuOPSelect[0]);
    loadBool(section, "ComputerPause", m_menus.mnuOPSelect[1]);
    loadBool(section, "StrikePause", m_menus.mnuOPSelect[2]);
    loadNumberOfDecks(section);
    loadWindowGeometry(section);
    loadCardBack(section);

    window->show();
    m_target.repaintTable();

    // Reported over the window, once it is back, so the player sees what the message is about.
    const QStringList refusals = std::exchange(m_refusals, {});
    for (const QString &text : refusals)
        m_target.showWarning(text);
}

void OptionsStore::loadBackColor(const QString &section)
{
    const Reading r = read(section, "BackColor");
    const std::optional<qint32> color = toInt32(r.number);
    if (!color) {
        refuse(section, r);
        return;
    }
    m_target.applyBackColor(*color);
    markLoadedBackColor(*color);
}

void OptionsStore::markLoadedBackColor(qint32 color)
{
    m_menus.mnuOCMatch->setChecked(false);
    if (color == BackColor::Gray)
        m_menus.mnuOCGray->setChecked(true);
    else if (color == BackColor::ButtonFace)
        m_menus.mnuOCMatch->setChecked(true);
}

void OptionsStore::loadFrames(const QString &section)
{
    const Reading r = read(section, "Frames");
    const std::optional<qint16> frames = toInt16(r.number);
    QAction *item = frames ? m_menus.mnuOASpeed(*frames) : nullptr;
    if (!item) {
        refuse(section, r);
        return;
    }
    if (QAction *old = m_menus.mnuOASpeed(m_state.Frames))
        old->setChecked(false);
    m_state.Frames = *frames;
    item->setChecked(true);
}

void OptionsStore::loadNumberOfDecks(const QString &section)
{
    const Reading r = read(section, "NumberOfDecks");
    const std::optional<qint16> packs = toInt16(r.number);
    QAction *item = packs ? m_menus.mnuODNum(*packs) : nullptr;
    if (!item) {
        refuse(section, r);
        return;
    }
    if (QAction *old = m_menus.mnuODNum(m_state.NumberOfDecks))
        old->setChecked(false);
    m_state.NumberOfDecks = *packs;
    item->setChecked(true);
}

int OptionsStore::pixels(const QString &section, const char *key, int current, bool isSize)
{
    const Reading r = read(section, key);
    const std::optional<qint32> value = toInt32(r.number);
    const qint32 lowest = isSize ? 0 : -QWIDGETSIZE_MAX;
    if (!value || *value < lowest || *value > QWIDGETSIZE_MAX) {
        refuse(section, r);
        return current;
    }
    return *value;
}

void OptionsStore::loadWindowGeometry(const QString &section)
{
    QWidget *window = m_target.optionsWindow();
    const int top = pixels(section, "WindowTop", window->y(), false);
    const int left = pixels(section, "WindowLeft", window->x(), false);
    const int height = pixels(section, "WindowHeight", window->height(), true);
    const int width = pixels(section, "WindowWidth", window->width(), true);
    window->move(left, top);
    window->resize(width, height);
}

void OptionsStore::loadCardBack(const QString &section)
{
    const Reading r = read(section, "CardBack");
    const std::optional<qint16> back = toInt16(r.number);
    if (!back || *back < 0 || *back >= m_target.cardBackCount()) {
        refuse(section, r);
        return;
    }
    m_state.CardBack = *back;
    m_target.setCardBack(*back);
}

void OptionsStore::SaveOptions(const QString &section)
{
    const RegBatch batch;
    const QWidget *window = m_target.optionsWindow();
    saveBool(section, "Sound", m_menus.mnuOSound);
    saveBool(section, "TallyScore", m_menus.mnuOScore);
    saveBool(section, "ShowComputerMoves", m_menus.mnuOShowComputer);
    saveNumber(section, "BackColor", m_target.backColor());
    saveNumber(section, "Frames", m_state.Frames);
    saveBool(section, "HumanPause", m_menus.mnuOPSelect[0]);
    saveBool(section, "ComputerPause", m_menus.mnuOPSelect[1]);
    saveBool(section, "StrikePause", m_menus.mnuOPSelect[2]);
    saveNumber(section, "NumberOfDecks", m_state.NumberOfDecks);
    saveNumber(section, "WindowTop", window->y());
    saveNumber(section, "WindowLeft", window->x());
    saveNumber(section, "WindowHeight", window->height());
    saveNumber(section, "WindowWidth", window->width());
    saveNumber(section, "CardBack", m_state.CardBack);
}

} // namespace qx
