#pragma once

#include "Menus.h"

#include <QString>
#include <QStringList>

namespace qx {

struct GameState;
class OptionsTarget;

inline constexpr char UserSection[] = "User";
inline constexpr char DefaultSection[] = "Default";

// The player's options in the settings store: every option is a menu check mark, one of the game
// globals Frames, NumberOfDecks and CardBack, the window's colour or its geometry (in pixels).
// The store's application name must be set (SetRegApp) before either call.
class OptionsStore {
public:
    OptionsStore(const Menus &menus, GameState &state, OptionsTarget &target);

    // Applies one section. A section without a "Sound" key is not there: nothing changes, the
    // window is not even hidden. Otherwise the window is hidden while the options are applied and
    // shown again afterwards. A value that QX cannot use (a pack count without a menu item, say)
    // keeps the current value of that key and is reported in one message box per key, after the
    // window is back; the other keys still apply.
    void LoadOptions(const QString &section);

    // Writes the current state into one section, every key, nothing validated.
    void SaveOptions(const QString &section);

    // The colour marks after a colour came from the store: Match is unchecked, then Gray or Match
    // is checked when the colour is one of theirs. Gray and Custom are never unchecked here, so an
    // earlier choice may leave a stale mark; that is how the menu has always behaved.
    void markLoadedBackColor(qint32 color);

    // The text of the message for a value that cannot be used.
    static QString refusalText(const QString &section, const QString &key, const QString &value);

private:
    struct Reading {
        QString key;
        QString text;
        double number;
    };
    Reading read(const QString &section, const char *key) const;
    void refuse(const QString &section, const Reading &reading);

    void loadBackColor(const QString &section);
    void loadFrames(const QString &section);
    void loadNumberOfDecks(const QString &section);
    void loadWindowGeometry(const QString &section);
    void loadCardBack(const QString &section);
    // A window coordinate (sizes must not be negative), or `current` after a refusal.
    int pixels(const QString &section, const char *key, int current, bool isSize);

    Menus m_menus;
    GameState &m_state;
    OptionsTarget &m_target;
    QStringList m_refusals;
};

} // namespace qx
