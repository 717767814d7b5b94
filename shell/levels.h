// The three levels of play. A level never changes what counts as solved, only how much the pictures give
// away.
#pragma once

/// Each sets its level; nothing happens where it is set already.
void Normal_Play();
void Easy_Play();
void VeryEasy_Play();
