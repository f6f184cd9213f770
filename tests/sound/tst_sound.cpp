#include "Sound.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QTest>

using namespace qx;

namespace {

// Counts the device queries and records what would have played.
class RecordingOutput : public SoundOutput {
public:
    int devices = 0;
    int queries = 0;
    QStringList played;

    int deviceCount() override
    {
        ++queries;
        return devices;
    }
    void play(const QString &path) override { played.append(path); }
};

} // namespace

class TestSound : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { setSoundOutput(nullptr); }

    void noDeviceAsksAgainEveryCall()
    {
        RecordingOutput output;
        setSoundOutput(&output);
        for (int i = 0; i < 3; ++i)
            PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        QCOMPARE(output.queries, 3);
        QVERIFY(output.played.isEmpty());
        QCOMPARE(WaveDevices(), 0);

        // A device that turns up later is found at the next call and then kept.
        output.devices = 2;
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        QCOMPARE(output.queries, 4);
        QCOMPARE(WaveDevices(), 2);
        QCOMPARE(output.played.size(), 2);
    }

    void fileComesFromTheProgramsFolder()
    {
        RecordingOutput output;
        output.devices = 1;
        setSoundOutput(&output);
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        QCOMPARE(output.played, QStringList{QCoreApplication::applicationDirPath() + QStringLiteral("/CHEER.WAV")});
    }

    void newOutputForgetsTheCount()
    {
        RecordingOutput first;
        first.devices = 1;
        setSoundOutput(&first);
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        QCOMPARE(WaveDevices(), 1);
        RecordingOutput second;
        setSoundOutput(&second);
        QCOMPARE(WaveDevices(), 0);
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        QCOMPARE(second.queries, 1);
        QVERIFY(second.played.isEmpty());
    }

    void audioModuleIsBesideTheProgram()
    {
        // The real output comes from this module; a wrong name or place would leave QX silent.
        QLibrary module(QCoreApplication::applicationDirPath() + QStringLiteral("/libqx_sound_multimedia.so"));
        QVERIFY2(module.load(), qPrintable(module.errorString()));
        using Factory = SoundOutput *(*)();
        auto factory = reinterpret_cast<Factory>(module.resolve("qx_sound_output"));
        QVERIFY(factory);
        SoundOutput *output = factory();
        QVERIFY(output);
        QCOMPARE(factory(), output); // one output for the program's life
        QVERIFY(output->deviceCount() >= 0);
    }

    void realOutputNeverFails()
    {
        // Without an audio output (as on the build machines) this is a silent no-op; with one it
        // starts the cheer, or stays silent when the file is missing, and returns at once.
        PlaySnd(QStringLiteral("CHEER.WAV"), 1);
        PlaySnd(QStringLiteral("NO SUCH FILE.WAV"), 1);
        QTest::qWait(50);
        QVERIFY(WaveDevices() >= 0);
    }
};

QTEST_MAIN(TestSound)
#include "tst_sound.moc"
