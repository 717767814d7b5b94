// Wave files: a sound as the bytes of a file that every player knows.
// 16-bit samples, one channel, without any further chunk.
#pragma once

#include "synthesis.h"

#include <string>

std::string WaveFile(const Sound& sound);
