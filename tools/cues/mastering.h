// Mastering: makes every cue fit to be played beside the others.
#pragma once

#include "synthesis.h"

/// The sound without rumble, silent at both ends, and as loud to the ear as every other of the same `level`.
/// Levels are in decibels; 0 is so soft that two cues at once do not clip.
Sound Mastered(Sound sound, double level);
