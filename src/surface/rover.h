#pragma once
#include <SDL.h>

#include <array>
#include <cstdint>

#include "universe/planet.h"

// One line of the landing engine's exhaust, drawn below the rover.
struct ExhaustStreak {
  std::int8_t age = 0;     // 0 to 15; older streaks are fainter until 10, then wrap brighter
  std::int8_t offset = 0;  // pixels left or right of screen column 150
  int drift = 0;           // 1 moves right each step, 0 moves left
};
constexpr int exhaustStreakCount = 6;
extern std::array<ExhaustStreak, exhaustStreakCount> exhaustStreaks;

// One frame of the rover's close view: moves the rover by (-dx, -dy) tenths of
// a degree with the map's wrap, makes its cell the landing site, draws the
// 30 x 21 tiles around it with the terrain at opacity alpha (the rover under
// them while alpha < 255, on top at 255) and the deposits on them, collects
// what lies in the rover's cell into its hold (a "Collected" message each),
// and copies the view to the screen at (10, 310). Looks the deposits up by
// cell, so a frame costs the same on a planet thick with them.
void drawSurfaceView(SDL_Surface* screen, Planet* planet, int alpha, int headingIndex, int dx, int dy,
                     MineralDepositList& deposits);
// One frame of descent (descending 1) or launch (0): the surface view at the
// current altitude, the altitude five steps on, the six exhaust streaks.
void drawLandingSequence(SDL_Surface* screen, Planet* planet, int descending, int headingIndex,
                         MineralDepositList& deposits);
// Starts a landing sequence at altitude a (kept to 0..255) with every streak aged 10.
void setAltitude(int a);
// The terrain's opacity over the rover: 250 at the top of a descent, 0 landed, 255 launched.
int getAltitude();
// Collects one deposit into the rover's hold: all of it, or what the hold has
// room for, with a "Collected %.2fcu of %s" message; free space stays
// 50 - the hold's sum. Returns whether anything was taken.
bool collectDeposit(MineralDeposit& deposit);
// Moves the rover's hold into the ship's hold at the end of a launch, mineral
// by mineral, as far as the ship's free space goes; the rest stays in the rover.
void transferRoverCargo();
