#pragma once

#include <QString>

namespace qx {

// The game's one sound effect, played by file name from the program's folder. Whether a sound is
// wanted at all (the Sound option, who won) is the caller's decision.

// Plays the wave file without waiting for it; flags 1 (asynchronous) is what every caller passes
// and the only way QX plays. A computer without an audio output plays nothing and says nothing;
// a missing or unreadable file is just as silent.
void PlaySnd(const QString &file, int flags);

// The number of audio outputs last found. Only a nonzero count is kept; while it is 0 the outputs
// are counted again at every PlaySnd.
int WaveDevices();

// Where the sound goes. The real output, in the module libqx_sound_multimedia.so beside the
// program, counts the desktop's audio outputs and plays through Qt Multimedia; tests put a
// recording one in its place.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;
    virtual int deviceCount() = 0;
    // `path` is the file's full path in the program's folder.
    virtual void play(const QString &path) = 0;
};

// Replaces the output (nullptr brings the real one back) and forgets the device count.
void setSoundOutput(SoundOutput *output);

} // namespace qx
