#include "CheerSound.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace qx::CheerSound {

namespace {

constexpr double TwoPi = 2.0 * std::numbers::pi;
constexpr double PeakLevel = 0.82; // of full scale: loud enough, with room to spare

// A small generator of our own, so the sound is the same with every standard library.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : m_state(seed ? seed : 1u) {}
    double uniform() // [0, 1)
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return (m_state >> 8) / 16777216.0;
    }
    double between(double low, double high) { return low + (high - low) * uniform(); }
    double white() { return 2.0 * uniform() - 1.0; }

private:
    std::uint32_t m_state;
};

// Band-pass biquad with 0 dB peak gain.
class BandPass {
public:
    BandPass(double centre, double q)
    {
        const double w0 = TwoPi * centre / SampleRate;
        const double alpha = std::sin(w0) / (2.0 * q);
        const double a0 = 1.0 + alpha;
        m_b0 = alpha / a0;
        m_b2 = -alpha / a0;
        m_a1 = -2.0 * std::cos(w0) / a0;
        m_a2 = (1.0 - alpha) / a0;
    }
    double operator()(double x)
    {
        const double y = m_b0 * x + m_b2 * m_x2 - m_a1 * m_y1 - m_a2 * m_y2;
        m_x2 = m_x1;
        m_x1 = x;
        m_y2 = m_y1;
        m_y1 = y;
        return y;
    }

private:
    double m_b0, m_b2, m_a1, m_a2;
    double m_x1 = 0, m_x2 = 0, m_y1 = 0, m_y2 = 0;
};

double smoothStep(double edge0, double edge1, double x)
{
    const double t = std::clamp((x - edge0) / (edge1 - edge0), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

// How lively the crowd is over the whole sound: a quick swell, then thinning out at the end.
double crowdEnvelope(double t)
{
    return smoothStep(0.0, 0.25, t) * (1.0 - 0.85 * smoothStep(1.5, Seconds, t));
}

void addClap(std::vector<double> &mix, double start, double centre, double gain, Noise &noise)
{
    BandPass filter(centre, 1.3);
    const int first = static_cast<int>(start * SampleRate);
    const int length = static_cast<int>(0.035 * SampleRate);
    for (int i = 0; i < length && first + i < static_cast<int>(mix.size()); ++i) {
        const double t = static_cast<double>(i) / SampleRate;
        const double envelope = std::min(1.0, t / 0.0008) * std::exp(-t / 0.0065);
        mix[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)] += gain * filter(noise.white() * envelope);
    }
}

void addApplause(std::vector<double> &mix, Noise &noise)
{
    // Each clapper keeps a rhythm of their own; together they make the rustle of applause.
    constexpr int Clappers = 16;
    for (int c = 0; c < Clappers; ++c) {
        const double period = noise.between(0.15, 0.24);
        const double loudness = noise.between(0.5, 1.0);
        const double pitch = noise.between(800.0, 2300.0);
        for (double t = noise.between(0.0, 0.12); t < Seconds; t += period * noise.between(0.88, 1.12)) {
            const double gain = 1.0 * loudness * crowdEnvelope(t) * noise.between(0.7, 1.0);
            addClap(mix, t, pitch * noise.between(0.9, 1.1), gain, noise);
        }
    }
}

void addMurmur(std::vector<double> &mix, Noise &noise)
{
    // The room: soft filtered noise in the range of voices.
    BandPass low(450.0, 0.7), high(1100.0, 0.9);
    for (std::size_t i = 0; i < mix.size(); ++i) {
        const double t = static_cast<double>(i) / SampleRate;
        const double n = noise.white();
        mix[i] += 0.06 * crowdEnvelope(t) * (low(n) + 0.6 * high(n));
    }
}

struct Formants {
    std::array<double, 3> freq;
};

// The vowels of "hoo-ray" in order, at fractions of the shout's length.
struct VowelKey {
    double at;
    Formants formants;
};

constexpr std::array<VowelKey, 5> HoorayVowels{{
    {0.00, {{450, 1000, 2300}}}, // "oo"
    {0.24, {{450, 1000, 2300}}},
    {0.36, {{420, 1250, 1650}}}, // "r": the third formant dips
    {0.50, {{560, 1850, 2500}}}, // "ay"
    {1.00, {{400, 2150, 2750}}}, // gliding to "ee"
}};

Formants formantsAt(double u)
{
    for (std::size_t k = 1; k < HoorayVowels.size(); ++k) {
        const VowelKey &a = HoorayVowels[k - 1];
        const VowelKey &b = HoorayVowels[k];
        if (u <= b.at) {
            const double f = (u - a.at) / (b.at - a.at);
            Formants mixed{};
            for (std::size_t i = 0; i < 3; ++i)
                mixed.freq[i] = a.formants.freq[i] + f * (b.formants.freq[i] - a.formants.freq[i]);
            return mixed;
        }
    }
    return HoorayVowels.back().formants;
}

double formantGain(double frequency, const Formants &formants)
{
    constexpr std::array<double, 3> bandwidth{90, 120, 170};
    constexpr std::array<double, 3> strength{1.0, 0.6, 0.3};
    double gain = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double d = (frequency - formants.freq[i]) / (bandwidth[i] / 2);
        gain += strength[i] / (1.0 + d * d);
    }
    return gain;
}

// The voice rises on the stressed "RAY" and sags a little as breath runs out.
double pitchAt(double u, double base)
{
    if (u < 0.3)
        return base * (1.0 + 0.08 * u / 0.3);
    if (u < 0.48)
        return base * (1.08 + 0.40 * smoothStep(0.3, 0.48, u));
    return base * (1.48 - 0.22 * smoothStep(0.48, 1.0, u));
}

double voiceLoudness(double u)
{
    const double attack = smoothStep(0.0, 0.08, u);
    const double dip = 1.0 - 0.35 * std::exp(-std::pow((u - 0.33) / 0.05, 2));
    const double stress = 0.75 + 0.25 * smoothStep(0.3, 0.5, u);
    const double release = 1.0 - smoothStep(0.72, 1.0, u);
    return attack * dip * stress * release;
}

void addHooray(std::vector<double> &mix, double start, double duration, double basePitch, double gain, Noise &noise)
{
    const int first = static_cast<int>(start * SampleRate);
    const int length = static_cast<int>(duration * SampleRate);
    const double vibratoRate = noise.between(4.8, 6.2);
    double phase = 0.0;
    BandPass breathFilter(1600.0, 0.8);
    for (int i = 0; i < length && first + i < static_cast<int>(mix.size()); ++i) {
        const double u = static_cast<double>(i) / length;
        const double t = static_cast<double>(i) / SampleRate;
        const double vibrato = 1.0 + 0.015 * smoothStep(0.45, 0.6, u) * std::sin(TwoPi * vibratoRate * t);
        const double f0 = pitchAt(u, basePitch) * vibrato;
        phase = std::fmod(phase + TwoPi * f0 / SampleRate, TwoPi);

        const Formants formants = formantsAt(u);
        double voiced = 0.0;
        for (int k = 1; k * f0 < 4500.0; ++k)
            voiced += std::sin(k * phase) * formantGain(k * f0, formants) / std::pow(k, 0.6);

        // The breathy "h" at the start, and a little air under the whole shout.
        const double breath = breathFilter(noise.white()) * (0.9 * (1.0 - smoothStep(0.0, 0.07, u)) + 0.12);
        mix[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)] += gain * (voiceLoudness(u) * voiced * 0.9 + breath * 0.5 *
                                                                                                  (1.0 - smoothStep(0.7, 1.0, u)));
    }
}

void addHoorays(std::vector<double> &mix, Noise &noise)
{
    // A few men and women shouting together, none quite in time with the others.
    constexpr std::array<double, 6> voices{118, 136, 152, 205, 228, 255};
    for (std::size_t v = 0; v < voices.size(); ++v) {
        const double start = 0.08 + 0.035 * static_cast<double>(v) + noise.between(0.0, 0.08);
        const double duration = noise.between(1.15, 1.45);
        addHooray(mix, start, duration, voices[v] * noise.between(0.97, 1.03), noise.between(0.8, 1.0), noise);
    }
}

void softenHighs(std::vector<double> &mix)
{
    // A gentle one-pole low-pass (about 6 kHz) takes the hiss off the claps.
    const double a = std::exp(-TwoPi * 6000.0 / SampleRate);
    double y = 0.0;
    for (double &x : mix) {
        y = (1.0 - a) * x + a * y;
        x = y;
    }
}

void fadeEnds(std::vector<double> &mix)
{
    const std::size_t fadeIn = SampleRate / 100;
    const std::size_t fadeOut = SampleRate / 4;
    for (std::size_t i = 0; i < fadeIn && i < mix.size(); ++i)
        mix[i] *= static_cast<double>(i) / fadeIn;
    for (std::size_t i = 0; i < fadeOut && i < mix.size(); ++i)
        mix[mix.size() - 1 - i] *= 0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(i) / fadeOut);
}

} // namespace

std::vector<std::int16_t> synthesise()
{
    std::vector<double> mix(static_cast<std::size_t>(Seconds * SampleRate), 0.0);
    Noise noise(0x5eed99u);
    addApplause(mix, noise);
    addMurmur(mix, noise);
    addHoorays(mix, noise);
    softenHighs(mix);
    fadeEnds(mix);

    double peak = 0.0;
    for (double x : mix)
        peak = std::max(peak, std::abs(x));
    const double scale = peak > 0.0 ? PeakLevel * 32767.0 / peak : 0.0;

    std::vector<std::int16_t> samples;
    samples.reserve(mix.size());
    for (double x : mix)
        samples.push_back(static_cast<std::int16_t>(std::lround(x * scale)));
    return samples;
}

QByteArray waveFile(const std::vector<std::int16_t> &samples, int sampleRate)
{
    const auto dataBytes = static_cast<quint32>(samples.size() * 2);
    QByteArray file;
    file.reserve(qsizetype{44} + qsizetype{dataBytes});
    auto put32 = [&file](quint32 value) {
        char bytes[4];
        qToLittleEndian(value, bytes);
        file.append(bytes, 4);
    };
    auto put16 = [&file](quint16 value) {
        char bytes[2];
        qToLittleEndian(value, bytes);
        file.append(bytes, 2);
    };
    file.append("RIFF", 4);
    put32(36 + dataBytes);
    file.append("WAVE", 4);
    file.append("fmt ", 4);
    put32(16);                                  // format chunk size
    put16(1);                                   // PCM
    put16(1);                                   // mono
    put32(static_cast<quint32>(sampleRate));    // samples a second
    put32(static_cast<quint32>(sampleRate) * 2); // bytes a second
    put16(2);                                   // bytes a sample frame
    put16(16);                                  // bits a sample
    file.append("data", 4);
    put32(dataBytes);
    for (std::int16_t sample : samples)
        put16(static_cast<quint16>(sample));
    return file;
}

} // namespace qx::CheerSound
