#include "surface/surface_map.h"

#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <cstdio>

#include "base/debug_log.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "surface/terrain.h"
#include "surface/terrain_cache.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"
#include "universe/star_map.h"

SurfacePoint scanCursor;
SurfacePoint landingSite;
SurfacePoint roverPosition;

namespace {

constexpr int mapRight = mapLeft + terrainWidth - 1;   // 384
constexpr int mapBottom = mapTop + terrainHeight - 1;  // 199
constexpr int textFont = 2;
constexpr int boldFont = 3;

// The legend's five columns and five rows; mineral n sits in column n / 5, row n % 5.
constexpr int legendColumns[] = {25, 105, 220, 340, 430};
constexpr int legendRows[] = {215, 230, 245, 260, 275};
constexpr bool boldInLegend(int mineral) {
  return mineral == 2 || mineral == 6 || mineral == 9 || mineral == 10 || mineral == 13;
}

constexpr const char* coordinateLabels[] = {
    "Scan coordinates: ", "Land coordinates: ", "Fuel left: ", "Cargo space: ", "Damage: "};

int wrap(int value, int size) { return ((value % size) + size) % size; }

BitmapFont* font(int entry) { return fontTable.fonts[entry]; }

// The graphics library's colour word for a pixel value: shifted up, alpha below.
Uint32 gfxColor(std::uint32_t pixel, Uint8 alpha) { return (pixel << 8) | alpha; }

bool holdsMap(const SDL_Surface* s) {
  return s && s->format->BytesPerPixel == 4 && s->w > mapRight && s->h > mapBottom;
}

void drawSiteMarker(SDL_Surface* screen) {
  const int sx = landingSite.x, sy = landingSite.y;
  hlineRGBA(screen, mapLeft, mapRight, sy + mapTop, 0, 0, 255, 90);
  vlineRGBA(screen, sx + mapLeft, mapTop, mapBottom, 0, 0, 255, 90);
  auto dot = [screen](int x, int y) {
    pixelRGBA(screen, wrap(x, terrainWidth) + mapLeft, wrap(y, terrainHeight) + mapTop, 0, 0, 255, 90);
  };
  for (int x = sx - 14; x <= sx + 13; ++x) {
    dot(x, sy - 9);
    dot(x, sy + 10);
  }
  for (int y = sy - 9; y <= sy + 9; ++y) {
    dot(sx - 14, y);
    dot(sx + 14, y);
  }
}

// SDL_gfx draws an opaque filled circle of radius 1 as a plus of five pixels
// in the mapped colour; writing them straight keeps a map of 64,800 dots well
// inside a frame.
void plotDot(SDL_Surface* s, int cx, int cy, Uint32 pixel) {
  static constexpr int offsets[5][2] = {{0, -1}, {-1, 0}, {0, 0}, {1, 0}, {0, 1}};
  const SDL_Rect& clip = s->clip_rect;
  if (cx > clip.x && cy > clip.y && cx + 1 < clip.x + clip.w && cy + 1 < clip.y + clip.h) {
    Uint32* centre = reinterpret_cast<Uint32*>(static_cast<Uint8*>(s->pixels) + cy * s->pitch) + cx;
    const int row = s->pitch / 4;
    centre[-row] = centre[-1] = centre[0] = centre[1] = centre[row] = pixel;
    return;
  }
  for (const auto& o : offsets) {
    const int x = cx + o[0], y = cy + o[1];
    if (x < clip.x || y < clip.y || x >= clip.x + clip.w || y >= clip.y + clip.h) continue;
    *reinterpret_cast<Uint32*>(static_cast<Uint8*>(s->pixels) + y * s->pitch + x * 4) = pixel;
  }
}

}  // namespace

ShadeTable planetShadeTable(const Planet* planet) {
  ShadeTable table{};
  const char* hydro = planet ? planet->Hydro : nullptr;
  for (int e = 0; e < 256; ++e) table[e] = planetColor(static_cast<std::uint8_t>(e), hydro);
  return table;
}

std::string coordinateText(int x, int y) {
  char text[64];
  if (y < 90) {
    if (x >= 180) {
      std::snprintf(text, sizeof text, "%d'N %d'E", 90 - y, x - 180);
    } else {
      std::snprintf(text, sizeof text, "%d'N %d'W", 90 - y, 180 - x);
    }
  } else if (x < 180) {
    std::snprintf(text, sizeof text, "%d'S %d'W", y - 90, 180 - x);
  } else {
    std::snprintf(text, sizeof text, "%d'S %d'E", y - 90, x - 180);
  }
  return text;
}

void drawSurfaceLegend(SDL_Surface* screen, Planet* planet) {
  if (!screen) return;
  const ShadeTable shades = planetShadeTable(planet);
  drawGlowFrame(screen, 10, 10, 500, 300, 128, 255, 128, 5);

  // 180 lines for 254 shades: the step is a single-precision float, as the
  // scale has always been drawn, so its top line is shade 253.
  float s = 0.0f;
  for (int i = 0; i < 180; ++i) {
    hlineColor(screen, 405, 425, 200 - i, gfxColor(shades[static_cast<int>(s)], 255));
    s = s + 1.4166666f;
  }

  printString(screen, font(textFont), 430, 20, "%s", "High");
  printString(screen, font(textFont), 430, 105, "%s", "Elevation");
  printString(screen, font(textFont), 430, 185, "%s", "Low");

  for (int m = 0; m < mineralCount; ++m) {
    const int x = legendColumns[m / 5], y = legendRows[m % 5];
    printString(screen, font(boldInLegend(m) ? boldFont : textFont), x + 10, y, "%s", mineralName(m));
    filledCircleColor(screen, x, y + 5, 2, mineralColor(m, 255));
  }

  int y = 340;
  for (const char* label : coordinateLabels) {
    printString(screen, font(textFont), 300, y, "%s", label);
    y += 30;
  }
  setCurrentFont(font(textFont));
}

void drawSurfaceMap(SDL_Surface* screen, Planet* planet) {
  if (!holdsMap(screen)) {
    logMessage("drawSurfaceMap: the screen cannot hold the surface map");
    return;
  }
  const ShadeTable shades = planetShadeTable(planet);
  if (SDL_LockSurface(screen) == 0) {
    auto* base = static_cast<Uint8*>(screen->pixels);
    for (int y = 0; y < terrainHeight; ++y) {
      auto* row = reinterpret_cast<Uint32*>(base + (y + mapTop) * screen->pitch) + mapLeft;
      for (int x = 0; x < terrainWidth; ++x) row[x] = shades[terrain.cells[x * terrainHeight + y]];
    }
    SDL_UnlockSurface(screen);
  } else {
    logMessagef("drawSurfaceMap: can't lock the screen: %s", SDL_GetError());
  }
  drawSiteMarker(screen);
}

void drawDeposits(SDL_Surface* screen, MineralDepositList& deposits) {
  if (!screen) return;
  if (screen->format->BytesPerPixel != 4 || SDL_LockSurface(screen) != 0) {
    for (const MineralDeposit& d : deposits) {
      if (d.amount > 0.0f) filledCircleColor(screen, d.x + mapLeft, d.y + mapTop, 1, mineralColor(d.kind, 255));
    }
    return;
  }
  // One mapped pixel per mineral; an unknown kind dots white, as mineralColor gives it.
  Uint32 pixels[mineralCount + 1];
  for (int m = 0; m <= mineralCount; ++m) {
    const Uint32 c = mineralColor(static_cast<std::uint8_t>(m), 255);
    pixels[m] = SDL_MapRGB(screen->format, c >> 24, (c >> 16) & 0xFF, (c >> 8) & 0xFF);
  }
  for (const MineralDeposit& d : deposits) {
    if (!(d.amount > 0.0f)) continue;
    plotDot(screen, d.x + mapLeft, d.y + mapTop, pixels[std::min<int>(d.kind, mineralCount)]);
  }
  SDL_UnlockSurface(screen);
}

void drawCoordinates(SDL_Surface* screen) {
  if (!screen) return;
  BitmapFont* text = font(textFont);
  const std::string scan = coordinateText(scanCursor.x, scanCursor.y);
  const std::string land = coordinateText(landingSite.x, landingSite.y);
  boxRGBA(screen, 425, 340, 495, 350, 0, 0, 0, 255);
  printString(screen, text, 425, 340, "%s", scan.c_str());
  boxRGBA(screen, 425, 370, 495, 380, 0, 0, 0, 255);
  printString(screen, text, 425, 370, "%s", land.c_str());
  boxRGBA(screen, 370, 400, 425, 410, 0, 0, 0, 255);
  printString(screen, text, 375, 400, "%.2f%%", playerShip.roverFuel);
  boxRGBA(screen, 385, 430, 440, 440, 0, 0, 0, 255);
  const float cargoSpace = playerShip.roverHoldFree / roverHoldCapacity * 100.0f;
  printString(screen, text, 390, 430, "%.2f%%", cargoSpace);
}

void trackScanCursor(int mouseX, int mouseY) {
  scanCursor.x = std::clamp(mouseX - mapLeft, 0, terrainWidth - 1);
  scanCursor.y = std::clamp(mouseY - mapTop, 0, terrainHeight - 1);
}

void selectSite() {
  landingSite = scanCursor;
  roverPosition = SurfacePoint{scanCursor.x * 10, scanCursor.y * 10};
}

void moveSite(int direction) {
  static constexpr int steps[4][2] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}};
  if (direction >= 0 && direction < 4) {
    landingSite.x = std::clamp(landingSite.x + steps[direction][0], 0, terrainWidth - 1);
    landingSite.y = std::clamp(landingSite.y + steps[direction][1], 0, terrainHeight - 1);
  } else {
    logMessagef("moveSite: no direction %d", direction);
  }
  roverPosition = SurfacePoint{landingSite.x * 10, landingSite.y * 10};
}

void prepareGameWindow(SDL_Surface* screen, Planet* planet) {
  if (screen) {
    boxRGBA(screen, 5, 5, 505, 505, 0, 0, 0, 255);
    boxRGBA(screen, 515, 5, 795, 250, 0, 0, 0, 255);
  }
  if (planet) {
    smoothedTerrain(terrain, planet->Seed);  // mostly made when the system was entered
  } else {
    logMessage("prepareGameWindow: no planet to generate terrain for");
  }
  globeRotation = 0;
  landingSite = SurfacePoint{180, 90};
  roverPosition = SurfacePoint{1800, 900};
}
