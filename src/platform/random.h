#pragma once
// The program's one random-number generator: the ISO C sample generator, so a
// planet's terrain and deposits come out the same on every platform.
// No code calls std::rand or std::srand.

constexpr int randomMax = 32767;

// srand: restart the sequence at a seed.
void seedRandom(unsigned int seed);
// rand: the next value, 0 to randomMax.
int nextRandom();

// The seed for the places that seed with the time; `--seed` fixes it so a run repeats.
unsigned int timeSeed();
void setTimeSeedOverride(unsigned int seed);
