#pragma once
#include <SDL.h>

struct StellarObject;

// The ship dot's alpha on the system plan; pulses between 60 and 240 with the
// direction held in blinkRising, which the star chart shares. Entering a system
// puts it back to 0, rising.
extern int orbitAlpha;

// The plan's size and its place on the screen (the top right pane).
constexpr int orbitViewWidth = 280;
constexpr int orbitViewHeight = 245;
constexpr int orbitViewX = 515;
constexpr int orbitViewY = 5;

// Draws one frame of the plan of `object`'s system onto `screen` at (515, 5):
// the small star image, a white circle for each occupied lane, each planet's
// OrbitImage at its orbit angle, and the ship's dot at (shipX, 245 - shipY)
// with the alpha from before this frame's pulse step; then advances the pulse.
// A null object gives an empty plan with the dot; empty slots, missing images
// and out-of-range angles are skipped or wrapped, never read out of bounds.
void drawOrbitView(SDL_Surface* screen, StellarObject* object, const double* sinTable, const double* cosTable,
                   int shipX, int shipY);
