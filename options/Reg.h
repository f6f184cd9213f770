#pragma once

#include <QString>

namespace qx {

// The settings store: one application name shared by every read and write, and sections of
// string keys under it. A backslash in the name nests the application under an organisation
// ("Brackenfall\QX" is the application "QX" of "Brackenfall", kept in
// ~/.config/Brackenfall/QX.conf), and each section is a group of that file.

// The literal an absent key reads as.
inline constexpr char NotUsed[] = "Not Used";

void SetRegApp(const QString &name);
QString RegAppName();

// The stored value, or "Not Used" when the key is absent. Stops the program when no application
// name was set: that can only be a programming error.
QString GetReg(const QString &section, const QString &key);

// Writes the value, creating the section as needed. Same stop without an application name.
void SaveReg(const QString &section, const QString &key, const QString &value);

// While one of these lives, GetReg and SaveReg share one opening of the store, and the writes
// reach the disk together when the outermost one ends (a whole section is one write, not
// fourteen). Without one, every call opens the store and writes at once.
class RegBatch {
public:
    RegBatch();
    ~RegBatch();
    RegBatch(const RegBatch &) = delete;
    RegBatch &operator=(const RegBatch &) = delete;
};

} // namespace qx
