// Loudness is what a sound level meter shows: the maximum of the A-weighted power, averaged with a time
// constant of 125 ms (fast). Such an average hears a click as softer than a tone of the same height, as the
// ear does.
#include "mastering.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
/// How far one sample draws along an average that forgets within `seconds`.
double Pull(double seconds) {
    return 1 - std::exp(-1 / (seconds * SampleRate));
}

Sound Below(double pitch, Sound sound) {
    const double pull = Pull(1 / (2 * std::numbers::pi * pitch));
    double average = 0;
    for (double& sample : sound) sample = average += pull * (sample - average);
    return sound;
}

Sound Above(double pitch, Sound sound) {
    Mix(sound, Below(pitch, sound), 0, -1);
    return sound;
}

/// The A-curve is a chain of such filters. The last two are at 12.2 kHz, beyond what our sample rate carries;
/// one at 7 kHz does their work, and is wrong by less than 0.4 dB up to 6 kHz.
Sound AWeighted(Sound sound) {
    for (const double pitch : {20.6, 20.6, 107.7, 737.9}) sound = Above(pitch, sound);
    return Below(7000, sound);
}

double Loudness(const Sound& sound) {
    const double pull = Pull(0.125);
    double average = 0;
    double loudness = 0;
    for (const double sample : AWeighted(sound)) {
        average += pull * (sample * sample - average);
        loudness = std::max(loudness, average);
    }
    return 10 * std::log10(loudness);
}

void FadeEnds(Sound& sound) {
    constexpr double FadeIn = 0.001 * SampleRate;
    constexpr double FadeOut = 0.008 * SampleRate;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const auto before = static_cast<double>(i);
        const auto after = static_cast<double>(sound.size() - 1 - i);
        sound[i] *= Rise(before / FadeIn) * Rise(after / FadeOut);
    }
}
} // namespace

Sound Mastered(Sound sound, double level) {
    // As loud as can be: the cue with the most peak for its loudness reaches half of full scale.
    constexpr double CommonLoudness = -26.4;
    sound = Above(40, sound);
    FadeEnds(sound);
    const double gain = std::pow(10, (CommonLoudness + level - Loudness(sound)) / 20);
    for (double& sample : sound) sample *= gain;
    return sound;
}
