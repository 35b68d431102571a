#pragma once
#include <SDL.h>

#include "platform/surface_ptr.h"
#include "ship/ship.h"

struct FontTable;

// What selectedComponent holds: the ship, the three fixed components, then
// hardpoint 0 at 4 up to hardpoint 9 at 13.
enum SelectedComponent : int { ShipSelected = 0, EngineSelected, ShieldSelected, PowerPlantSelected, firstHardPoint };

// The working buffer a description is copied into before it is wrapped, and
// the longest line the wrapping builds (characters, the ending blank included).
constexpr int descriptionBufferSize = 10000;
constexpr int wrapLineLimit = 119;

struct ShipConfigWindow {
  FontTable* fonts = nullptr;
  Ship* ship = nullptr;
  SurfacePtr largeImage;  // ".\Ships\<shipClass>_large.bmp"; none draws nothing
  int imageX = 10, imageY = 50;
  int selectedComponent = ShipSelected;
  int engineHover = 0, shieldHover = 0, powerPlantHover = 0;
  int hardPointHover[maxHardPoints] = {};
  int lastX = 0, lastY = 0;
};
extern ShipConfigWindow shipConfig;

// Keeps the font table, makes the shared " X " button and sets the image origin.
// Selection and hover flags stay as they are, so they survive a reload.
void initShipConfig(FontTable* fonts);
// Keeps the ship and loads its large schematic, logging the path it loads.
// A missing image is logged and the window draws without it.
void loadLargeShipImage(Ship* ship);
// On every mouse motion, shown or not: the close button's hover, each
// component's hover flag, and the position a release selects at.
void shipConfigMouseMotion(int x, int y);
void shipConfigMouseDown();
// Releases the close button and selects anew at the last pointer position:
// the first component whose markers are hit, else the ship.
void shipConfigMouseUp();
// The whole window over the screen; a click of " X " closes it.
void drawShipConfig(SDL_Surface* screen);

// The distance between two points, truncated to a whole number.
int pointDistance(int x1, int y1, int x2, int y2);
// Whether a screen position lies within 10 pixels (truncated distance < 11)
// of a marker point placed at the image origin. An empty list is never hit.
bool markersHit(const MarkerList& markers, int x, int y);
// The info panel for the selected component.
void drawComponentInfo(SDL_Surface* screen);
// Draws `text` as words in font entry 2, breaking lines before a word that
// would pass `width` pixels, one font-7 height apart. Returns the lines drawn
// (an empty first line counts). A word wider than `width`, or longer than a
// line holds, is broken into pieces, each as much of it as fits on a line, so
// nothing is lost and no line passes the width.
int wrapText(SDL_Surface* surface, const char* text, int width, int x, int y);
// The description as the panel wraps it: cut to the working buffer (9999
// bytes), dropping a word the cut would split.
std::string descriptionForPanel(const std::string& description);
