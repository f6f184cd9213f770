#include "Sound.h"

#include <QCoreApplication>
#include <QLibrary>

namespace qx {

namespace {

// The audio module beside the program, loaded the first time a sound is wanted. Without it (or
// without its libraries) QX is silent, as on a computer with no audio output.
class ModuleOutput : public SoundOutput {
public:
    int deviceCount() override
    {
        SoundOutput *real = load();
        return real ? real->deviceCount() : 0;
    }
    void play(const QString &path) override
    {
        if (SoundOutput *real = load())
            real->play(path);
    }

private:
    SoundOutput *load()
    {
        if (!m_tried) {
            m_tried = true;
            // The library stays loaded once found: the output it hands out lives in it.
            QLibrary library(QCoreApplication::applicationDirPath() + QStringLiteral("/libqx_sound_multimedia.so"));
            using Factory = SoundOutput *(*)();
            if (auto factory = reinterpret_cast<Factory>(library.resolve("qx_sound_output")))
                m_real = factory();
        }
        return m_real;
    }

    SoundOutput *m_real = nullptr;
    bool m_tried = false;
};

struct SoundModule {
    ModuleOutput real;
    SoundOutput *output = &real;
    int waveDevices = 0;
};

SoundModule &module()
{
    static SoundModule m;
    return m;
}

} // namespace

void PlaySnd(const QString &file, int flags)
{
    Q_UNUSED(flags); // 1, asynchronous: QX never waits for a sound.
    SoundModule &m = module();
    if (m.waveDevices == 0)
        m.waveDevices = m.output->deviceCount();
    if (m.waveDevices == 0)
        return;
    m.output->play(QCoreApplication::applicationDirPath() + QLatin1Char('/') + file);
}

int WaveDevices()
{
    return module().waveDevices;
}

void setSoundOutput(SoundOutput *output)
{
    SoundModule &m = module();
    m.output = output ? output : &m.real;
    m.waveDevices = 0;
}

} // namespace qx
