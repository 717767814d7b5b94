// The few tools from which the sound cues are built: noise, struck tones, a horn, and their shaping.
// Times are seconds, pitches hertz; a full-scale wave runs from -1 to 1.
#pragma once

#include <cstdint>
#include <vector>

constexpr int SampleRate = 22050;

using Sound = std::vector<double>;

/// A repeatable source of chance. The seed must not be 0.
struct Noise {
    std::uint32_t State;
    /// Evenly spread over -1 to 1.
    double Next();
    double Between(double low, double high);
};

/// A pitch that moves from one value to the other, by equal intervals in equal times.
struct Glide {
    double From;
    double To;
    /// `progress` runs from 0 to 1.
    double At(double progress) const;
};

/// From 0 up to 1 along half a cosine while `progress` runs from 0 to 1; level before and after.
double Rise(double progress);

/// A tone that is struck, rises within `attack` and dies away; `decay` is the time to 1/e.
Sound Strike(double pitch, double attack, double decay);

/// Noise in a band around a moving centre; the greater the sharpness, the narrower the band.
Sound Hiss(Noise& noise, double length, Glide centre, double sharpness);

/// A muted horn that opens and closes once. `wobble` is the depth of its vibrato as a share of the pitch.
Sound Horn(double length, Glide pitch, double wobble);

/// Raises the sound softly from silence until `peak`, a share of its length, and lowers it from there.
void Swell(Sound& sound, double peak);

/// Raises the sound from silence within `attack`, and lets it die away from the start.
void Fall(Sound& sound, double attack, double decay);

/// Adds a sound to another, which grows if need be.
void Mix(Sound& sound, const Sound& addition, double start, double gain);
