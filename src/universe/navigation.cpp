#include "universe/navigation.h"

#include <SDL_gfxPrimitives.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "base/game_state.h"
#include "platform/surface_ptr.h"
#include "ui/bitmap_font.h"
#include "ui/buttons.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

ChartCell scanCell;
ChartCell targetCell{390, 280};
int blinkAlpha = 0;
bool blinkRising = true;

namespace {

constexpr int windowX = 85, windowY = 5;
constexpr int windowWidth = 630, windowHeight = 590;
constexpr int lastCell = starMapSize - 1;

constexpr const char* scanningLabel =
    "( Scanning) X:   , Y:   , Stellar Object:              , Ecosphere:       , Planets: ";
constexpr const char* targetingLabel =
    "(Targeting) X:   , Y:   , Stellar Object:              , Ecosphere:       , Planets: ";

struct ChartColor {
  const char* Class;
  Uint8 r, g, b;
};
constexpr ChartColor chartColors[] = {
    {"O", 0, 0, 255},
    {"B", 128, 128, 255},
    {"A", 255, 255, 255},
    {"F", 255, 128, 0},
    {"G", 255, 255, 0},
    {"K", 0, 255, 0},
    {"M", 255, 0, 0},
    {"White Drawf", 255, 100, 255},
    {"Neutron Star", 155, 0, 155},
    {"Black Hole", 96, 57, 19},
};

FontTable* navigationFonts = nullptr;
TextButton closeButton;
// Where the chart's cell (0, 0) is drawn inside the window; set at the start of every frame.
int chartOriginX = 111, chartOriginY = 11;

// Both cursors are made once and switched between; SDL keeps the one installed.
SDL_Cursor* crosshairCursor = nullptr;
SDL_Cursor* squareCursor = nullptr;
SDL_Cursor* installedCursor = nullptr;
// What the last frame selected, kept apart from SDL: without a mouse (headless)
// SDL makes no cursors, but the choice is still made.
bool squareSelected = false;

SDL_Cursor* makeCursor(const Uint8 (&mask)[8]) {
  Uint8 data[8] = {};
  Uint8 maskBits[8];
  std::memcpy(maskBits, mask, sizeof maskBits);
  return SDL_CreateCursor(data, maskBits, 8, 8, 4, 4);
}

void installCursor(bool square) {
  squareSelected = square;
  SDL_Cursor* cursor = square ? squareCursor : crosshairCursor;
  if (!cursor || cursor == installedCursor) return;
  SDL_SetCursor(cursor);
  installedCursor = cursor;
}

int clampCell(int v) { return v < 0 ? 0 : (v > lastCell ? lastCell : v); }

// The mouse sets cells only inside the chart's square on the screen.
bool onChart(int x, int y) { return x > 195 && x < 695 && y >= 16 && y < 515; }

const ChartColor* chartColor(const char* Class) {
  for (const ChartColor& c : chartColors) {
    if (std::strcmp(c.Class, Class) == 0) return &c;
  }
  return nullptr;
}

void useFont(int entry) {
  if (navigationFonts && navigationFonts->fonts[entry]) setCurrentFont(navigationFonts->fonts[entry]);
}

SurfacePtr makeWindowSurface(SDL_Surface* like) {
  const SDL_PixelFormat* f = like ? like->format : nullptr;
  return SurfacePtr(SDL_CreateRGBSurface(SDL_SWSURFACE, windowWidth, windowHeight, 32, f ? f->Rmask : 0x00FF0000,
                                         f ? f->Gmask : 0x0000FF00, f ? f->Bmask : 0x000000FF, 0));
}

void drawGrid(SDL_Surface* s) {
  useFont(0);
  for (int i = 0; i <= 10; ++i) {
    vlineRGBA(s, static_cast<Sint16>(110 + 50 * i), 10, 511, 255, 255, 255, 64);
    hlineRGBA(s, 110, 611, static_cast<Sint16>(10 + 50 * i), 255, 255, 255, 64);
    printString(s, 90, 5 + 50 * i, "%3d", 500 - 50 * i);
    printString(s, 100 + 50 * i, 510, "%3d", 50 * i);
  }
}

// Every object is one opaque pixel, so the pixels are written straight into the surface.
void drawObjects(SDL_Surface* s, StarMap& map) {
  if (SDL_LockSurface(s) != 0) return;
  auto* pixels = static_cast<Uint8*>(s->pixels);
  for (int column = 0; column < starMapSize; ++column) {
    for (int row = 0; row < starMapSize; ++row) {
      const StellarObject* object = map[column][row].object;
      if (!object) continue;
      const ChartColor* color = chartColor(object->Class);
      if (!color) continue;
      const int x = chartOriginX + column, y = chartOriginY + lastCell - row;
      if (x < 0 || y < 0 || x >= s->w || y >= s->h) continue;
      const Uint32 pixel = SDL_MapRGB(s->format, color->r, color->g, color->b);
      std::memcpy(pixels + y * s->pitch + x * 4, &pixel, 4);
    }
  }
  SDL_UnlockSurface(s);
}

// One read-out line: the label, the cell's column and map row, and what the cell holds.
// Returns whether the cell holds an object.
bool drawCellLine(SDL_Surface* s, StarMap& map, int y, const char* label, const ChartCell& cell) {
  useFont(2);
  printString(s, 10, y, "%s", label);
  useFont(6);
  const int column = clampCell(cell.column), mapRow = lastCell - clampCell(cell.row);
  printString(s, 107, y, "%3d", column);
  printString(s, 157, y, "%3d", mapRow);
  const StellarObject* object = map[column][mapRow].object;
  if (object) {
    printString(s, 300, y, "%s", object->Class);
    printString(s, 480, y, "%s", object->Eco);
    printString(s, 600, y, "%d", object->NumOfPlanets);
  } else {
    printString(s, 300, y, "---");
    printString(s, 480, y, "---");
    printString(s, 600, y, "---");
  }
  return object != nullptr;
}

void drawTargetMarker(SDL_Surface* s, bool occupied) {
  const Sint16 tx = static_cast<Sint16>(chartOriginX + targetCell.column);
  const Sint16 ty = static_cast<Sint16>(chartOriginY + targetCell.row);
  const Uint8 a = static_cast<Uint8>(blinkAlpha);
  if (occupied) {
    rectangleRGBA(s, tx - 3, ty - 3, tx + 3, ty + 3, 0, 255, 255, a);
  } else {
    // A crosshair that leaves the target pixel itself open.
    hlineRGBA(s, tx - 1, tx - 3, ty, 255, 255, 255, a);
    hlineRGBA(s, tx + 1, tx + 3, ty, 255, 255, 255, a);
    vlineRGBA(s, tx, ty - 1, ty - 3, 255, 255, 255, a);
    vlineRGBA(s, tx, ty + 1, ty + 3, 255, 255, 255, a);
  }
}

void drawReadouts(SDL_Surface* s, int column, int row, int topSpeed) {
  const int h = navigationFonts ? navigationFonts->heights[2] : 0;
  useFont(2);
  printString(s, 10, 60, "Current");
  printString(s, 10, 60 + h, "Position");
  useFont(6);
  printString(s, 10, 60 + 2 * h, "X:%3d", column);
  printString(s, 10, 60 + 3 * h, "Y:%3d", row);

  const int dx = column - targetCell.column;
  const int dy = (lastCell - row) - targetCell.row;
  const double distance = std::sqrt(static_cast<double>(dx * dx + dy * dy));
  useFont(2);
  printString(s, 10, 140, "Distance");
  useFont(6);
  printString(s, 10, 140 + h, "%.2f SU", distance);
  useFont(2);
  printString(s, 10, 190, "Fuel");
  useFont(6);
  // An engine without speed can't make the trip: nothing to divide by.
  if (topSpeed > 0) {
    printString(s, 10, 190 + h, "%.2f CU", distance * 50.0 / topSpeed * 0.05);
  } else {
    printString(s, 10, 190 + h, "---");
  }
}

void advancePulse() {
  blinkAlpha += blinkRising ? 30 : -30;
  if (blinkAlpha >= 240) blinkRising = false;
  if (blinkAlpha < 1) blinkRising = true;
}

}  // namespace

void initNavigationWindow(FontTable* fonts) {
  static const Uint8 crosshairMask[8] = {0x00, 0x08, 0x08, 0x08, 0x77, 0x08, 0x08, 0x08};
  static const Uint8 squareMask[8] = {0x00, 0x7F, 0x41, 0x41, 0x41, 0x41, 0x41, 0x7F};
  if (!crosshairCursor) crosshairCursor = makeCursor(crosshairMask);
  if (!squareCursor) squareCursor = makeCursor(squareMask);
  installedCursor = nullptr;
  installCursor(false);
  navigationFonts = fonts;
  closeButton = TextButton{};
  initTextButton(&closeButton, 30, 20, 30, 15, " X ");
  targetCell = ChartCell{390, 280};
  blinkAlpha = 0;
  blinkRising = true;
}

int isNavigationWindowOpen() { return gameState.navigationOpen; }

void navigationMouseMoved(int x, int y) {
  if (onChart(x, y)) scanCell = ChartCell{clampCell(x - 196), clampCell(y - 16)};
  trackHover(x - windowX, y - windowY, &closeButton);
}

void navigationMouseDown() { pressButton(&closeButton); }

void navigationMouseUp(int x, int y) {
  releaseButton(&closeButton);
  if (onChart(x, y)) targetCell = ChartCell{clampCell(x - 196), clampCell(y - 16)};
}

void moveTargetUp() { targetCell.row = clampCell(targetCell.row - 1); }
void moveTargetDown() { targetCell.row = clampCell(targetCell.row + 1); }
void moveTargetLeft() { targetCell.column = clampCell(targetCell.column - 1); }
void moveTargetRight() { targetCell.column = clampCell(targetCell.column + 1); }

SDL_Cursor* navigationCursor(bool square) { return square ? squareCursor : crosshairCursor; }
bool navigationSquareCursorSelected() { return squareSelected; }

int drawNavigationWindow(SDL_Surface* screen, StarMap& map, int column, int row, int topSpeed) {
  chartOriginX = 111;
  chartOriginY = 11;
  SurfacePtr window = makeWindowSurface(screen);
  if (!window) return 0;
  SDL_Surface* s = window.get();

  boxRGBA(s, 10, 10, 620, 580, 0, 0, 0, 255);
  drawFadingFrame(s, 0, 0, windowWidth, windowHeight, 255, 0, 0, 10);
  drawGrid(s);
  drawObjects(s, map);

  const bool scanOccupied = drawCellLine(s, map, 550, scanningLabel, scanCell);
  installCursor(scanOccupied);
  const bool targetOccupied = drawCellLine(s, map, 565, targetingLabel, targetCell);
  drawTargetMarker(s, targetOccupied);

  // The ship's circle sits one pixel up and left of its cell's pixel.
  const int shipX = 110 + column, shipY = 10 + lastCell - row;
  aacircleRGBA(s, static_cast<Sint16>(shipX), static_cast<Sint16>(shipY), 2, 255, 255, 255,
               static_cast<Uint8>(blinkAlpha));
  fadingLine(s, shipX, shipY, chartOriginX + targetCell.column, chartOriginY + targetCell.row, 255, 255, 255);

  drawReadouts(s, column, row, topSpeed);
  useFont(2);
  drawTextButton(s, &closeButton, navigationFonts);
  advancePulse();

  if (screen) {
    SDL_Rect at{windowX, windowY, 0, 0};
    SDL_BlitSurface(s, nullptr, screen, &at);
  }
  const int clicked = takeClick(&closeButton);
  if (clicked) gameState.navigationOpen = 0;
  return clicked;
}

void fadingLine(SDL_Surface* surface, int x1, int y1, int x2, int y2, Uint8 red, Uint8 green, Uint8 blue) {
  const int dx = std::abs(x2 - x1), dy = std::abs(y2 - y1);
  const int sx = x2 >= x1 ? 1 : -1, sy = y2 >= y1 ? 1 : -1;
  const bool xMajor = dx >= dy;
  const int n = xMajor ? dx : dy;
  const int m = xMajor ? dy : dx;
  int error = n / 2;
  int step = n == 0 ? 255 : 255 / n;
  if (step < 1) step = 1;
  int x = x1, y = y1;
  for (int i = 0; i <= n; ++i) {
    const int alpha = (n == 0 || i * step + 50 > 255) ? 255 : i * step + 50;
    if (x >= INT16_MIN && x <= INT16_MAX && y >= INT16_MIN && y <= INT16_MAX) {
      pixelRGBA(surface, static_cast<Sint16>(x), static_cast<Sint16>(y), red, green, blue, static_cast<Uint8>(alpha));
    }
    error += m;
    if (error >= n && n > 0) {
      error -= n;
      if (xMajor) {
        y += sy;
      } else {
        x += sx;
      }
    }
    if (xMajor) {
      x += sx;
    } else {
      y += sy;
    }
  }
}
