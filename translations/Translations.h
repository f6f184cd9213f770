#pragma once

class QCoreApplication;

namespace qx {

// Makes the program speak the system's language (LC_ALL, LC_MESSAGES or LANG): its own texts
// from the translation built into the program, and Qt's own texts (Yes, No, Cancel) from the
// system's Qt translations when they are installed. Under an English or C locale nothing is
// installed, so every text stays the English one written in the sources. Call once, after the
// application object exists and before any window is made.
void installTranslations(QCoreApplication &app);

} // namespace qx
