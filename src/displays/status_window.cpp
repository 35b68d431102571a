#include "displays/status_window.h"

#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <array>

#include "base/debug_log.h"
#include "platform/surface_ptr.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"
#include "universe/planet.h"

int shieldDisplay = 0;
int globeFrame = 0;

namespace {

SDL_Surface** shipImageCache = nullptr;
FontTable* statusFonts = nullptr;
Ship* statusShip = nullptr;
int sweepCounter = 0;

constexpr int panelWidth = 280;
constexpr int panelHeight = 245;
constexpr int panelX = 515;
constexpr int panelY = 5;
constexpr int globeX = 595;
constexpr int globeY = 120;
constexpr int labelX = 520;
constexpr int sweepLines = 15;
constexpr int sweepStep = 4;
constexpr int sweepEnd = 120;
constexpr int barStart = 50;
constexpr int barLength = 100;

BitmapFont* font(int entry) { return statusFonts ? statusFonts->fonts[entry] : nullptr; }
int fontRowHeight(int entry) { return statusFonts ? statusFonts->heights[entry] : 0; }

void blitAt(SDL_Surface* image, SDL_Surface* target, int x, int y) {
  if (!image || !target) return;
  SDL_Rect where{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
  SDL_BlitSurface(image, nullptr, target, &where);
}

// ONLINE in red, OFFLINE in green, after the label of its row.
void printOnOff(SDL_Surface* panel, int y, int online) {
  if (online != 0) {
    printString(panel, font(5), 105, y, "ONLINE");
  } else {
    printString(panel, font(4), 105, y, "OFFLINE");
  }
}

void printTextRows(SDL_Surface* panel, const Ship& ship) {
  BitmapFont* text = font(2);
  const int h = fontRowHeight(2);
  centeredPrint(panel, font(11), 0, "%s", ship.shipName);
  leftPrint(panel, text, 20, "Ship Class   : %s", ship.shipClass);
  leftPrint(panel, text, 20 + h, "Ship Type    : %s", ship.shipType);
  leftPrint(panel, text, 20 + 2 * h, "Engine Class : %d", ship.engine.engineClass);
  leftPrint(panel, text, 20 + 3 * h, "Shield Class : %d", ship.shield.shieldClass);
  leftPrint(panel, text, 20 + 4 * h, "Armor Class  : %d", ship.armorClass);
  leftPrint(panel, text, 20 + 5 * h, "Fuel Remain  : %d", ship.fuel);
  // In 64 bits: a ship file may name more holds than 50 CU each fit in an int.
  const long long capacity = static_cast<long long>(ship.cargoHoldCount) * 50;
  leftPrint(panel, text, 20 + 6 * h, "Cargo Holds  : %.2f / %lld",
            static_cast<double>(capacity) - static_cast<double>(ship.shipHoldFree), capacity);
  leftPrint(panel, text, 20 + 7 * h, "HardPoints   : %d", ship.hardPointCount);
  leftPrint(panel, text, 20 + 8 * h, "Warp Speed   : %d / %d", ship.engine.warpCurrent, ship.engine.engineClass);
  leftPrint(panel, text, 20 + 9 * h, "Shield Status:");
  printOnOff(panel, 20 + 9 * h, ship.shieldsOnline);
  leftPrint(panel, text, 20 + 10 * h, "Weapon Status:");
  printOnOff(panel, 20 + 10 * h, ship.weaponsOnline);
}

// Within 10 of the charge the bar snaps to it; otherwise it moves 10 a drawing.
void followShieldCharge(int shieldCurrent) {
  if (shieldCurrent - 10 < shieldDisplay && shieldDisplay < shieldCurrent + 10) {
    shieldDisplay = shieldCurrent;
  } else if (shieldDisplay < shieldCurrent) {
    shieldDisplay += 10;
  } else {
    shieldDisplay -= 10;
  }
}

struct Gauge {
  int textY;
  const char* label;
  int barY;
  Uint8 r, g, b;
  int shown;  // the value the bar stands for
  int current;
  int maximum;
};

int barEnd(int value, int maximum) {
  // No capacity means nothing to fill: an empty bar instead of a division by zero.
  if (maximum <= 0) return barStart;
  const double end = static_cast<double>(value) / maximum * barLength + barStart;
  // Out-of-range values (a hull above its maximum) stop at the panel's edges.
  return static_cast<int>(std::clamp(end, 0.0, static_cast<double>(panelWidth - 1)));
}

void drawGauges(SDL_Surface* panel, const Ship& ship) {
  const std::array<Gauge, 3> gauges{{
      {220, "Hull Integraty", 225, 255, 0, 0, ship.hullCurrent, ship.hullCurrent, ship.hullMax},
      {205, "Armor Strength", 210, 255, 255, 0, ship.armorCurrent, ship.armorCurrent, ship.armorMax},
      {190, "Shield Strength", 195, 0, 255, 0, shieldDisplay, ship.shield.shieldCurrent, ship.shield.shieldMax},
  }};
  BitmapFont* text = font(2);
  for (const Gauge& g : gauges) {
    leftPrint(panel, text, g.textY, "%.3d/%.3d", g.current, g.maximum);
    rightPrint(panel, text, g.textY, "%s", g.label);
    drawGlowLine(panel, barStart, static_cast<Sint16>(g.barY), static_cast<Sint16>(barEnd(g.shown, g.maximum)),
                 static_cast<Sint16>(g.barY), g.r, g.g, g.b, 5);
  }
}

void drawScale(SDL_Surface* panel) {
  for (int x : {50, 75, 100, 125, 150}) vlineRGBA(panel, static_cast<Sint16>(x), 190, 235, 255, 255, 255, 255);
  BitmapFont* text = font(2);
  printString(panel, text, 43, 235, "0%%");
  printString(panel, text, 68, 235, "25%%");
  printString(panel, text, 93, 235, "50%%");
  printString(panel, text, 117, 235, "75%%");
  printString(panel, text, 143, 235, "100%%");
}

void drawReadings(SDL_Surface* target, int lane, const Planet& planet) {
  BitmapFont* value = font(4);
  const auto after = [value](const char* label) { return labelX + textWidth(value, label); };
  printString(target, value, after("Orbital Lane: "), 15, "%d", lane);
  printString(target, value, after("Mass: "), 35, "%.2f x 10", static_cast<double>(planet.Mass));
  // Measured on a one-digit sample mass, so a longer mass runs into the exponent.
  printString(target, font(1), 2 + after("Mass: 1.22 x 10"), 33, "%d", planet.MassExponent);
  printString(target, value, after("Gravity: "), 55, "%.2fg", static_cast<double>(planet.Gravity));
  printString(target, value, after("Temperature: "), 75, "%dc to %dc", planet.MinTemp, planet.MaxTemp);
  printString(target, value, after("Mineral Density: "), 95, "%d", planet.MineralDensity);
}

}  // namespace

void initStatusWindow(SDL_Surface** shipImages, FontTable* fonts, Ship* ship) {
  logMessage("Initializing Status Window");
  shipImageCache = shipImages;
  statusFonts = fonts;
  statusShip = ship;
  shieldDisplay = 0;
  buildGlobeImages();
  globeFrame = 0;
  sweepCounter = 0;
  buildOrbitAngles();
}

void drawStatusWindow(SDL_Surface* target) {
  SurfacePtr panel(SDL_CreateRGBSurface(SDL_SWSURFACE, panelWidth, panelHeight, 32, 0, 0, 0, 0));
  if (!panel || !statusShip) return;
  const Ship& ship = *statusShip;
  printTextRows(panel.get(), ship);
  setCurrentFont(font(2));
  followShieldCharge(ship.shield.shieldCurrent);
  drawGauges(panel.get(), ship);
  drawScale(panel.get());
  if (shipImageCache) blitAt(shipImageCache[0], panel.get(), 200, 60);
  blitAt(panel.get(), target, panelX, panelY);
}

void drawGlobeFrame(SDL_Surface* target) {
  if (globeFrame < 0 || globeFrame >= globeImageCount) globeFrame = 0;
  blitAt(globeImages[globeFrame], target, globeX, globeY);
  globeFrame = (globeFrame + 1) % globeImageCount;
}

void drawPlanetLabels(SDL_Surface* target) {
  BitmapFont* text = font(2);
  printString(target, text, labelX, 15, "Orbital Lane:");
  printString(target, text, labelX, 35, "Mass:");
  printString(target, text, labelX, 55, "Gravity:");
  printString(target, text, labelX, 75, "Temperature:");
  printString(target, text, labelX, 95, "Mineral Density:");
}

void drawPlanetScan(SDL_Surface* target, int lane, Planet* planet) {
  for (int i = 0; i < sweepLines; ++i) {
    const int x = sweepCounter - i + 605;
    if (x > 600 && x < 705) {
      vlineRGBA(target, static_cast<Sint16>(x), 125, 230, 128, 128, 255, static_cast<Uint8>(255 - 15 * i));
    }
  }
  sweepCounter += sweepStep;
  // Reached or passed: a counter set to an odd value still ends its sweep.
  if (sweepCounter >= sweepEnd) {
    if (planet) drawReadings(target, lane, *planet);
    sweepCounter = 0;
  }
}

void setScanProgress(int value) { sweepCounter = value; }
int scanProgress() { return sweepCounter; }
