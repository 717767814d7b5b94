// The recipes of the nine sound cues: what is struck, brushed or blown, when, and how loud.
// Gains count within a cue only, for each is brought to the same loudness at the end. Every cue is carried by
// what lies above 300 Hz: small loudspeakers give little else.
#include "cues.h"

#include <cmath>

namespace {
/// A piece is turned: two blocks of wood touch.
Sound Tick() {
    Noise noise{11};
    Sound tick;
    Mix(tick, Strike(950, 0.003, 0.02), 0, 1);
    Mix(tick, Strike(1730, 0.002, 0.012), 0, 0.4);
    Sound touch = Hiss(noise, 0.02, {2200, 1500}, 1);
    Fall(touch, 0.002, 0.004);
    Mix(tick, touch, 0, 0.5);
    return tick;
}

/// A drop is accepted: wood slides over wood and comes to rest.
Sound WoodenSlide() {
    Noise noise{23};
    Sound slide = Hiss(noise, 0.3, {1100, 620}, 2.5);
    Swell(slide, 0.55);
    constexpr double Rest = 0.24;
    Mix(slide, Strike(430, 0.006, 0.025), Rest, 0.22);
    Mix(slide, Strike(710, 0.005, 0.018), Rest, 0.16);
    Mix(slide, Strike(1180, 0.004, 0.01), Rest, 0.08);
    return slide;
}

/// Knuckles on a hollow door.
Sound Knock(double pitch, double decay) {
    Sound knock = Strike(pitch, 0.01, decay);
    Mix(knock, Strike(1.59 * pitch, 0.008, decay * 0.7), 0, 0.4);
    Mix(knock, Strike(2.14 * pitch, 0.008, decay * 0.4), 0, 0.2);
    return knock;
}

/// A drop is refused: two knocks, the second lower.
Sound Refusal() {
    Sound refusal = Knock(440, 0.05);
    Mix(refusal, Knock(349, 0.07), 0.12, 1);
    return refusal;
}

/// One pair of hands, clapping at its own pace and never quite evenly.
void AddClapper(Sound& applause, Noise& noise) {
    constexpr double End = 1.1;
    const double pace = noise.Between(0.15, 0.23);
    const double hollow = noise.Between(800, 1900);
    const double loudness = noise.Between(0.4, 1);
    double time = noise.Between(0, 0.2);
    while (time < End) {
        Sound clap = Hiss(noise, 0.09, {hollow * noise.Between(0.9, 1.1), hollow}, 1.6);
        Fall(clap, 0.0015, noise.Between(0.009, 0.016));
        const double tiring = time < End / 2 ? 1 : 2 - 2 * time / End;
        Mix(applause, clap, time, loudness * (0.15 + 0.85 * tiring));
        time += pace * noise.Between(0.88, 1.12);
    }
}

/// The figure is solved.
Sound Applause() {
    Noise noise{47};
    Sound applause;
    for (int clapper = 0; clapper < 16; ++clapper) AddClapper(applause, noise);
    // Many hands at once press against each other's loudest moments.
    for (double& sample : applause) sample = std::tanh(2 * sample);
    return applause;
}

/// Pieces fly home: three rushes of air, one after the other.
Sound Flight() {
    Noise noise{59};
    Sound flight;
    constexpr double Pitches[] = {500, 640, 820};
    for (int piece = 0; piece < 3; ++piece) {
        Sound rush = Hiss(noise, 0.42, {Pitches[piece], Pitches[piece] * 2.6}, 2);
        Swell(rush, 0.6);
        Mix(flight, rush, 0.1 * piece, 1);
    }
    return flight;
}

/// A menu or button command: the tick's brighter sister.
Sound BrightClick() {
    Noise noise{71};
    Sound click;
    Mix(click, Strike(2350, 0.002, 0.015), 0, 1);
    Mix(click, Strike(3900, 0.002, 0.008), 0, 0.3);
    Sound touch = Hiss(noise, 0.012, {5000, 4000}, 1);
    Fall(touch, 0.002, 0.003);
    Mix(click, touch, 0, 0.4);
    return click;
}

/// A collection has been chosen.
Sound BrushesAndDot() {
    Noise noise{83};
    Sound figure;
    for (const double start : {0.0, 0.17}) {
        Sound brush = Hiss(noise, 0.14, {3000, 4600}, 1.2);
        Swell(brush, 0.4);
        Mix(figure, brush, start, 0.8);
    }
    constexpr double Dot = 0.36;
    Mix(figure, Strike(780, 0.002, 0.022), Dot, 0.6);
    Mix(figure, Strike(1560, 0.002, 0.01), Dot, 0.2);
    return figure;
}

/// Very easy is chosen: the horn's opinion of it.
Sound SighingHorn() {
    Sound figure;
    const auto blow = [&](double start, double length, Glide pitch, double wobble) {
        Sound note = Horn(length, pitch, wobble);
        Swell(note, 0.3);
        Mix(figure, note, start, 1);
    };
    blow(0, 0.24, {440, 430}, 0);
    blow(0.23, 0.24, {415, 405}, 0);
    blow(0.46, 0.54, {392, 335}, 0.02);
    return figure;
}

/// Goodbye: a chord that rises string by string.
Sound RisingChord() {
    constexpr double Pitches[] = {392.00, 493.88, 587.33, 783.99};
    Sound chord;
    for (int string = 0; string < 4; ++string) {
        const double pitch = Pitches[string];
        Sound note = Strike(pitch, 0.015, 0.11 + 0.01 * string);
        Mix(note, Strike(2 * pitch, 0.015, 0.1), 0, 0.3);
        Mix(note, Strike(3 * pitch, 0.012, 0.06), 0, 0.1);
        Mix(chord, note, 0.085 * string, 1 - 0.1 * string);
    }
    return chord;
}
} // namespace

const std::array<Cue, 9> Cues = {{
    {"Click.wav", Tick},
    {"Slide.wav", WoodenSlide},
    {"Error.wav", Refusal, 1}, // the one that must not be missed
    {"clap4.wav", Applause},
    {"whoosh1.wav", Flight},
    {"click2.wav", BrightClick},
    {"shsh-dot.wav", BrushesAndDot},
    {"GiveUp.wav", SighingHorn},
    {"thank.wav", RisingChord},
}};
