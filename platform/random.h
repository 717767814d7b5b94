// The random generator, seeded from the clock.
#pragma once

/// Starts the generator afresh; the same seed gives the same numbers on every machine.
void Randomize(float seed);

/// The next number, uniform in [0, 1).
float Rnd();
