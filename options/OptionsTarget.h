#pragma once

#include <QtGlobal>

class QDialog;
class QString;
class QWidget;

namespace qx {

// What the options need from the main window: its geometry, its colour, its card back, and the
// few windows the menu opens. The main window implements it; tests use a fake.
class OptionsTarget {
public:
    virtual ~OptionsTarget() = default;

    // The main window (its geometry is saved and restored in pixels; it is hidden while a whole
    // section of options is applied).
    virtual QWidget *optionsWindow() = 0;

    // The background colour as stored: 0x00BBGGRR, or -2147483633 (0x8000000F) for the desktop's
    // button face. Applied to the window, the play area, the strike window and the Resume button.
    virtual void applyBackColor(qint32 value) = 0;
    virtual qint32 backColor() const = 0;

    // Card backs found by the chooser (the built-in back is number 0).
    virtual int cardBackCount() const = 0;
    // Shows back `number` on the stock; the caller keeps it within cardBackCount().
    virtual void setCardBack(int number) = 0;

    virtual void repaintTable() = 0;
    // The running game is dropped without a winner (the table shows no game).
    virtual void abandonGame() = 0;

    virtual void showCardBackChooser() = 0;
    virtual void showAbout() = 0;

    // The options' own dialogs. The defaults show real message boxes over optionsWindow() and run
    // the dialog modally; tests override them so that nothing waits for a person.
    // A message box with a warning icon (a stored value QX cannot use).
    virtual void showWarning(const QString &text);
    // A Yes/No question with a question icon; true only for Yes.
    virtual bool askYesNo(const QString &text);
    // Runs a dialog modally (the colour chooser).
    virtual void runDialog(QDialog &dialog);
};

} // namespace qx
