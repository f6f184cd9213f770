#include "Sound.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QMediaDevices>
#include <QPointer>
#include <QSoundEffect>
#include <QUrl>

#include <map>

namespace qx {

namespace {

// One effect per file, kept while the application lives (it owns them, so none outlives it):
// QSoundEffect loads the file once and plays it in the background while the game goes on.
class MultimediaOutput : public SoundOutput {
public:
    int deviceCount() override { return int(QMediaDevices::audioOutputs().size()); }

    void play(const QString &path) override
    {
        QPointer<QSoundEffect> &effect = m_effects[path];
        if (!effect) {
            effect = new QSoundEffect(QCoreApplication::instance());
            effect->setSource(QUrl::fromLocalFile(path));
        }
        effect->play();
    }

private:
    std::map<QString, QPointer<QSoundEffect>> m_effects;
};

struct SoundModule {
    MultimediaOutput real;
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
