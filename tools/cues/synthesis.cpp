// Synthesis of tones and noises sample by sample.
// Plain arithmetic on doubles throughout, so that every run gives the same waves.
#include "synthesis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
using std::numbers::pi;

std::size_t Samples(double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * SampleRate));
}
} // namespace

double Noise::Next() {
    State ^= State << 13;
    State ^= State >> 17;
    State ^= State << 5;
    return State * 0x1p-31 - 1;
}

double Noise::Between(double low, double high) {
    return low + (high - low) * (Next() + 1) / 2;
}

double Rise(double progress) {
    return 0.5 - 0.5 * std::cos(pi * std::clamp(progress, 0.0, 1.0));
}

double Glide::At(double progress) const {
    return From * std::pow(To / From, progress);
}

Sound Strike(double pitch, double attack, double decay) {
    Sound sound(Samples(attack + 6 * decay));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = std::sin(2 * pi * pitch * static_cast<double>(i) / SampleRate);
    Fall(sound, attack, decay);
    return sound;
}

Sound Hiss(Noise& noise, double length, Glide centre, double sharpness) {
    Sound sound(Samples(length));
    // A state-variable filter: two integrators in a loop, stable however fast its centre moves.
    double band = 0;
    double low = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double progress = static_cast<double>(i) / static_cast<double>(sound.size());
        const double step = std::tan(pi * centre.At(progress) / SampleRate);
        const double high =
            (noise.Next() - low - (step + 1 / sharpness) * band) / (1 + step * (step + 1 / sharpness));
        const double middle = band + step * high;
        const double bottom = low + step * middle;
        band = middle + step * high;
        low = bottom + step * middle;
        sound[i] = middle / sharpness;
    }
    return sound;
}

Sound Horn(double length, Glide pitch, double wobble) {
    constexpr int Partials = 12;
    constexpr double WobbleRate = 6.5;
    Sound sound(Samples(length));
    double phase = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double progress = static_cast<double>(i) / static_cast<double>(sound.size());
        const double sway = wobble * std::sin(2 * pi * WobbleRate * static_cast<double>(i) / SampleRate);
        phase += 2 * pi * pitch.At(progress) * (1 + sway) / SampleRate;
        const double brightness = 0.35 + 0.4 * std::sin(pi * progress);
        double loudness = 1;
        for (int partial = 1; partial <= Partials; ++partial) {
            sound[i] += loudness * std::sin(partial * phase);
            loudness *= brightness;
        }
    }
    return sound;
}

void Swell(Sound& sound, double peak) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double progress = static_cast<double>(i) / static_cast<double>(sound.size());
        sound[i] *= Rise(progress / peak) * Rise((1 - progress) / (1 - peak));
    }
}

void Fall(Sound& sound, double attack, double decay) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double time = static_cast<double>(i) / SampleRate;
        sound[i] *= Rise(time / attack) * std::exp(-time / decay);
    }
}

void Mix(Sound& sound, const Sound& addition, double start, double gain) {
    const std::size_t first = Samples(start);
    sound.resize(std::max(sound.size(), first + addition.size()));
    for (std::size_t i = 0; i < addition.size(); ++i) sound[first + i] += gain * addition[i];
}
