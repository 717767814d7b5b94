// The game's sound cues: the name of each file, and the procedure that makes its sound.
// Every call of a procedure gives the same sound, ready to be mastered.
#pragma once

#include "synthesis.h"

#include <array>

struct Cue {
    const char* File;
    Sound (*Make)();
    double Level = 0;
};

extern const std::array<Cue, 9> Cues;
