#include "OptionsStore.h"

#include "BackColor.h"
#include "GameState.h"
#include "OptionsTarget.h"
#include "Reg.h"
#include "ValueText.h"

#include <QAction>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

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

// How much of [start, start + length) lies within [low, high), as a share of the length.
double shareWithin(int start, int length, int low, int high)
{
    const int inside = std::min(start + length, high) - std::max(start, low);
    return length > 0 ? std::max(inside, 0) / double(length) : 1.0;
}

} // namespace

OptionsStore::OptionsStore(const Menus &menus, GameState &state, OptionsTarget &target)
    : m_menus(menus), m_state(state), m_target(target)
{
}

QString OptionsStore::refusalText(const QString &section, const QString &key, const QString &value)
{
    return tr("The setting \"%1\" in section \"%2\" has the value \"%3\", which QX cannot use. "
              "The current value is kept.")
        .arg(key, section, value);
}

QString OptionsStore::missingKeysText(const QString &section, const QStringList &keys)
{
    QStringList quoted;
    for (const QString &key : keys)
        quoted.append(QLatin1Char('"') + key + QLatin1Char('"'));
    if (keys.size() == 1)
        return tr("The setting %1 is missing from section \"%2\". Its current value is kept.")
            .arg(quoted.first(), section);
    return tr("The settings %1 are missing from section \"%2\". Their current values are kept.")
        .arg(quoted.join(QStringLiteral(", ")), section);
}

QString OptionsStore::faultText(const RegFault &fault, Moment moment)
{
    switch (moment) {
    case AtStart:
        if (fault.kind == RegFault::CannotRead)
            return tr("QX cannot read its settings file %1: %2. It starts with the built-in options.")
                .arg(fault.path, fault.reason);
        return tr("QX cannot write its settings file %1: %2. Options can still be changed, but Save "
                  "Options cannot keep them.")
            .arg(fault.path, fault.reason);
    case AtRestore:
        return tr("QX cannot read its settings file %1: %2. The options in use are kept.").arg(fault.path, fault.reason);
    case AtSave:
        break;
    }
    return tr("QX cannot save its options to %1: %2. The options in use are kept, and the file is left "
              "as it was.")
        .arg(fault.path, fault.reason);
}

std::optional<QString> OptionsStore::text(const QString &section, const char *key)
{
    QString stored = GetReg(section, QLatin1String(key));
    if (stored == QLatin1String(NotUsed)) {
        m_missing.append(QLatin1String(key));
        return std::nullopt;
    }
    return stored;
}

std::optional<OptionsStore::Reading> OptionsStore::read(const QString &section, const char *key)
{
    const std::optional<QString> stored = text(section, key);
    if (!stored)
        return std::nullopt;
    Reading r;
    r.key = QLatin1String(key);
    r.text = *stored;
    // "12abc" reads as 12, but a text that does not start with a number is no number at all.
    const std::optional<double> number = numberAtStart(r.text);
    if (!number) {
        refuse(section, r);
        return std::nullopt;
    }
    r.number = *number;
    return r;
}

void OptionsStore::loadBool(const QString &section, const char *key, QAction *item)
{
    if (const std::optional<QString> stored = text(section, key))
        item->setChecked(TF(*stored));
}

void OptionsStore::refuse(const QString &section, const Reading &reading)
{
    m_refusals.append(refusalText(section, reading.key, reading.text));
}

RegFault OptionsStore::LoadOptions(const QString &section)
{
    TakeRegFault();
    const RegBatch batch;
    const QString sound = GetReg(section, QStringLiteral("Sound"));
    if (RegFault fault = TakeRegFault(); fault.kind != RegFault::None)
        return fault;
    if (sound == QLatin1String(NotUsed))
        return {};

    m_refusals.clear();
    m_missing.clear();
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
    QStringList messages = std::exchange(m_refusals, {});
    if (!m_missing.isEmpty())
        messages.prepend(missingKeysText(section, std::exchange(m_missing, {})));
    for (const QString &message : messages)
        m_target.showWarning(message);
    return {};
}

void OptionsStore::loadBackColor(const QString &section)
{
    const std::optional<Reading> r = read(section, "BackColor");
    if (!r)
        return;
    const std::optional<qint32> color = toInt32(r->number);
    if (!color) {
        refuse(section, *r);
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
    const std::optional<Reading> r = read(section, "Frames");
    if (!r)
        return;
    const std::optional<qint16> frames = toInt16(r->number);
    QAction *item = frames ? m_menus.mnuOASpeed(*frames) : nullptr;
    if (!item) {
        refuse(section, *r);
        return;
    }
    if (QAction *old = m_menus.mnuOASpeed(m_state.Frames))
        old->setChecked(false);
    m_state.Frames = *frames;
    item->setChecked(true);
}

void OptionsStore::loadNumberOfDecks(const QString &section)
{
    const std::optional<Reading> r = read(section, "NumberOfDecks");
    if (!r)
        return;
    const std::optional<qint16> packs = toInt16(r->number);
    QAction *item = packs ? m_menus.mnuODNum(*packs) : nullptr;
    if (!item) {
        refuse(section, *r);
        return;
    }
    if (QAction *old = m_menus.mnuODNum(m_state.NumberOfDecks))
        old->setChecked(false);
    m_state.NumberOfDecks = *packs;
    item->setChecked(true);
}

void OptionsStore::loadWindowGeometry(const QString &section)
{
    QWidget *window = m_target.optionsWindow();
    // Read in the keys' order and refused in it too, once the checks that need all four are done.
    struct Coordinate {
        const char *key;
        int current;
        std::optional<QString> text; // nothing when the key is missing
        std::optional<int> value;    // nothing when the text is no usable number
    };
    Coordinate top{"WindowTop", window->y()}, left{"WindowLeft", window->x()},
        height{"WindowHeight", window->height()}, width{"WindowWidth", window->width()};
    for (Coordinate *c : {&top, &left, &height, &width}) {
        c->text = text(section, c->key);
        if (!c->text)
            continue;
        const std::optional<double> number = numberAtStart(*c->text);
        const std::optional<qint32> pixels = number ? toInt32(*number) : std::nullopt;
        if (pixels && *pixels >= -QWIDGETSIZE_MAX && *pixels <= QWIDGETSIZE_MAX)
            c->value = *pixels;
    }

    // A window must fit the desktop and stay usable: a size beyond the desktop only builds a huge
    // table, one below the window's minimum is a strip, and a place that leaves most of the window
    // off the desktop hides it.
    const QRect desktop = window->screen()->availableVirtualGeometry();
    const QSize frame = window->frameGeometry().size() - window->size(); // none before the first show
    const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
    const auto keepWithin = [](Coordinate &c, int lowest, int highest) {
        if (c.value && (*c.value < lowest || *c.value > highest))
            c.value.reset();
    };
    keepWithin(height, least.height(), desktop.height() - frame.height());
    keepWithin(width, least.width(), desktop.width() - frame.width());
    const int outerWidth = width.value.value_or(width.current) + frame.width();
    const int outerHeight = height.value.value_or(height.current) + frame.height();
    const double across = shareWithin(left.value.value_or(left.current), outerWidth, desktop.left(),
                                      desktop.right() + 1);
    const double down = shareWithin(top.value.value_or(top.current), outerHeight, desktop.top(),
                                    desktop.bottom() + 1);
    if (across * down < 0.5) {
        // Less than half the window would show. The coordinate that leaves too much of it off is
        // refused: with at least the root of a half shown each way, half the window shows.
        const double enough = std::sqrt(0.5);
        if (across < enough)
            left.value.reset();
        if (down < enough)
            top.value.reset();
    }

    for (Coordinate *c : {&top, &left, &height, &width})
        if (c->text && !c->value)
            m_refusals.append(refusalText(section, QLatin1String(c->key), *c->text));
    window->move(left.value.value_or(left.current), top.value.value_or(top.current));
    window->resize(width.value.value_or(width.current), height.value.value_or(height.current));
}

void OptionsStore::loadCardBack(const QString &section)
{
    const std::optional<Reading> r = read(section, "CardBack");
    if (!r)
        return;
    const std::optional<qint16> back = toInt16(r->number);
    if (!back || *back < 0 || *back >= m_target.cardBackCount()) {
        refuse(section, *r);
        return;
    }
    m_state.CardBack = *back;
    m_target.setCardBack(*back);
}

RegFault OptionsStore::SaveOptions(const QString &section)
{
    TakeRegFault();
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
    return TakeRegFault();
}

} // namespace qx
