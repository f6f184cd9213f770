#pragma once

#include <QString>

namespace qx {

// The settings store: one application name shared by every read and write, and sections of
// string keys under it. A backslash in the name nests the application under an organisation
// ("Brackenfall\QX" is the application "QX" of "Brackenfall", kept in
// ~/.config/Brackenfall/QX.conf), and each section is a group of that file.

// The literal an absent key reads as.
inline constexpr char NotUsed[] = "Not Used";

// Trouble with the file behind the store: it could not be read, or not be written.
struct RegFault {
    enum Kind { None, CannotRead, CannotWrite };
    Kind kind = None;
    QString path;
    QString reason;
};

void SetRegApp(const QString &name);
QString RegAppName();

// The stored value, or "Not Used" when the key is absent. Sections and keys are found whatever
// their letter case ("[user]" and "sound=True" are the section "User" and its key "Sound"), as
// the game has always found them. Stops the program when no application name was set: that can
// only be a programming error.
QString GetReg(const QString &section, const QString &key);

// Writes the value, creating the section as needed, over the key as it is already spelled. Same
// stop without an application name. Nothing is written to a file that could not be read: the
// rest of it would be lost.
void SaveReg(const QString &section, const QString &key, const QString &value);

// The first trouble with the store's file since the last call, which forgets it. A file that
// exists but cannot be read is found when the store is opened; a write is checked when the values
// reach the disk, and a save that changed nothing checks that the file could still be written.
RegFault TakeRegFault();

// While one of these lives, GetReg and SaveReg share one opening of the store, and the writes
// reach the disk together when the outermost one ends (a whole section is one write, not
// fourteen). Without one, every call opens the store and writes at once. Trouble with the file
// is ready for TakeRegFault once the outermost one has ended.
class RegBatch {
public:
    RegBatch();
    ~RegBatch();
    RegBatch(const RegBatch &) = delete;
    RegBatch &operator=(const RegBatch &) = delete;
};

} // namespace qx
