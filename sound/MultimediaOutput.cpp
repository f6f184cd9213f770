// The real sound output, built as a module of its own: the audio libraries it needs are loaded
// with the first sound instead of at every start of the program.
#include "Sound.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QMediaDevices>
#include <QPointer>
#include <QSoundEffect>
#include <QUrl>

#include <map>

namespace {

// One effect per file, kept while the application lives (it owns them, so none outlives it):
// QSoundEffect loads the file once and plays it in the background while the game goes on.
class MultimediaOutput : public qx::SoundOutput {
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

} // namespace

extern "C" Q_DECL_EXPORT qx::SoundOutput *qx_sound_output()
{
    static MultimediaOutput output;
    return &output;
}
