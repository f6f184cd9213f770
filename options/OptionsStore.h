#pragma once

#include "Menus.h"
#include "Reg.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

namespace qx {

struct GameState;
class OptionsTarget;

inline constexpr char UserSection[] = "User";
inline constexpr char DefaultSection[] = "Default";

// The player's options in the settings store: every option is a menu check mark, one of the game
// globals Frames, NumberOfDecks and CardBack, the window's colour or its geometry (in pixels).
// The store's application name must be set (SetRegApp) before either call.
class OptionsStore {
    Q_DECLARE_TR_FUNCTIONS(qx::OptionsStore)

public:
    OptionsStore(const Menus &menus, GameState &state, OptionsTarget &target);

    // Applies one section. A section without a "Sound" key is not there: nothing changes, the
    // window is not even hidden. Otherwise the window is hidden while the options are applied and
    // shown again afterwards. A value that QX cannot use (a pack count without a menu item, a
    // number key that does not start with a number, a window that would not fit the desktop or
    // would stand mostly off it, say) keeps the current value of that key and is reported in one
    // message box per key, after the window is back; keys missing from the section keep their
    // values too and are named in one message; the other keys still apply.
    // Returns the file's trouble when it could not be read (then nothing changes); the caller
    // tells the player, in words that fit the moment.
    RegFault LoadOptions(const QString &section);

    // Writes the current state into one section, every key, nothing validated. Returns the file's
    // trouble when it could not be read (then nothing is written) or written.
    RegFault SaveOptions(const QString &section);

    // The colour marks after a colour came from the store: Match is unchecked, then Gray or Match
    // is checked when the colour is one of theirs. Gray and Custom are never unchecked here, so an
    // earlier choice may leave a stale mark; that is how the menu has always behaved.
    void markLoadedBackColor(qint32 color);

    // The text of the message for a value that cannot be used.
    static QString refusalText(const QString &section, const QString &key, const QString &value);
    static QString missingKeysText(const QString &section, const QStringList &keys);
    // The text that tells the player of trouble with the settings file.
    enum Moment { AtStart, AtRestore, AtSave };
    static QString faultText(const RegFault &fault, Moment moment);

private:
    struct Reading {
        QString key;
        QString text;
        double number = 0;
    };
    // The stored text, or nothing when the key is missing (it is then noted for the message).
    std::optional<QString> text(const QString &section, const char *key);
    // A number key that is there and starts with a number; else noted or refused, and nothing.
    std::optional<Reading> read(const QString &section, const char *key);
    void refuse(const QString &section, const Reading &reading);
    void loadBool(const QString &section, const char *key, QAction *item);

    void loadBackColor(const QString &section);
    void loadFrames(const QString &section);
    void loadNumberOfDecks(const QString &section);
    void loadWindowGeometry(const QString &section);
    void loadCardBack(const QString &section);

    Menus m_menus;
    GameState &m_state;
    OptionsTarget &m_target;
    QStringList m_refusals;
    QStringList m_missing;
};

} // namespace qx
