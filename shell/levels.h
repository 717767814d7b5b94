// The three levels of play. A level changes how much the pictures give away, never what counts as solved.
#pragma once

/// Sets the level. Does nothing when it is already set.
void Normal_Play();
void Easy_Play();
void VeryEasy_Play();
