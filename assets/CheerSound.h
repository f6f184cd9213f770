#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

// The win sound, synthesised: a crowd's applause with a few voices shouting "hooray" over it.
namespace qx::CheerSound {

constexpr int SampleRate = 22050;
constexpr double Seconds = 2.5;

// Mono 16-bit samples, peak well below full scale. The same samples on every run.
std::vector<std::int16_t> synthesise();

// A RIFF/WAVE file (PCM, mono, 16-bit) holding the samples.
QByteArray waveFile(const std::vector<std::int16_t> &samples, int sampleRate);

} // namespace qx::CheerSound
