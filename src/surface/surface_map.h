#pragma once
#include <SDL.h>

#include <array>
#include <cstdint>
#include <string>

#include "universe/planet.h"

struct SurfacePoint {
  int x = 0;
  int y = 0;
};
// The map cell under the mouse: x 0 to 359, y 0 to 179.
extern SurfacePoint scanCursor;
// The chosen site; while the rover drives, the rover's cell.
extern SurfacePoint landingSite;
// Where the rover stands, in tenths of a degree: x 0 to 3590, y 0 to 1790.
extern SurfacePoint roverPosition;

// Where the map's cell (0, 0) lies on the screen; the map is 360 x 180 pixels.
constexpr int mapLeft = 25;
constexpr int mapTop = 20;

// The 256 terrain colours of a planet (planetColor of each elevation under its
// Hydro, as 0xAARRGGBB pixel values), looked up once so that a whole map does
// not compare colour-table names per cell. A null planet gets the grey ramp.
using ShadeTable = std::array<std::uint32_t, 256>;
ShadeTable planetShadeTable(const Planet* planet);

// The text of a map cell as the player reads it: "%d'N %d'E" and its three
// siblings, 90'N 180'W at the top left corner and 0'S 0'E at the centre.
std::string coordinateText(int x, int y);

// The frame, elevation scale, mineral legend and the coordinate labels around
// the map. Leaves font table entry 2 current, which drawCoordinates prints with.
void drawSurfaceLegend(SDL_Surface* screen, Planet* planet);
// The whole terrain, one pixel a cell, written in one locked pass, and the
// site marker (cross hairs and a wrapping dotted box) over it.
void drawSurfaceMap(SDL_Surface* screen, Planet* planet);
// A dot (SDL_gfx's filled circle of radius 1) for every deposit not yet
// emptied, in list order, so a later deposit's dot covers an earlier one's.
void drawDeposits(SDL_Surface* screen, MineralDepositList& deposits);
// The scan cursor, the landing site, the rover's fuel and its free cargo space
// as a percentage of 50 CU, each on its own black box, in font table entry 2.
void drawCoordinates(SDL_Surface* screen);
// The scan cursor follows the mouse, held to the map's edges when outside it.
void trackScanCursor(int mouseX, int mouseY);
// The site (and the rover) jump to the scan cursor's cell.
void selectSite();
// Moves the site a cell: 0 Left, 1 Up, 2 Right, 3 Down, held at the map's
// edges; the rover follows. Other directions leave the site where it is.
void moveSite(int direction);

// Sets the game window up for a planet arriving in orbit: clears the viewscreen
// and top right panes, generates and smooths the planet's terrain from its
// seed, turns the globe back to 0 and puts the site and rover at the map centre.
void prepareGameWindow(SDL_Surface* screen, Planet* planet);
