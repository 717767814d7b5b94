// Sound cues: short wave files in the program's folder, started and forgotten. Every failure is silence.
#pragma once

#include <string>

/// Plays the cue's wave file if the sound is on; waits for nothing.
void PlayCue(const std::string& name);

/// Stops what is sounding. Sent whether the sound is on or not.
void CloseSound();
