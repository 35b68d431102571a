#include "displays/ship_config.h"

#include <SDL_gfxPrimitives.h>
#include <SDL_image.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "base/debug_log.h"
#include "base/game_state.h"
#include "platform/data_path.h"
#include "ship/cargo.h"
#include "ui/bitmap_font.h"
#include "ui/buttons.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

ShipConfigWindow shipConfig;

namespace {

// Font table entries of the window.
constexpr int textFont = 2;
constexpr int valueFont = 6;
constexpr int lineHeightFont = 7;
constexpr int panelTitleFont = 10;
constexpr int windowTitleFont = 16;

// Colours as 0xRRGGBBAA.
constexpr Uint32 markerColor = 0xFFFFFF90;
constexpr Uint32 markerLitColor = 0xFFFFFFFF;
constexpr Uint32 selectedFill = 0x0000FF90;
constexpr Uint32 leaderColor = 0xFF4040FF;

constexpr int panelX = 550;
constexpr int wrapWidth = 240;
constexpr int markerReach = 11;  // a truncated distance below this hits

Sint16 at(int v) { return static_cast<Sint16>(v); }

// A marker's place on the screen, from the image origin. Ship files may hold any
// int, so the sum is taken wide and kept within reach of the drawing calls' 16
// bits: a marker far off the screen stays far off instead of wrapping onto it.
int markerScreen(int marker, int origin) {
  return static_cast<int>(std::clamp(static_cast<long long>(marker) + origin, -16000LL, 16000LL));
}

void useFont(int entry) {
  if (shipConfig.fonts && shipConfig.fonts->fonts[entry]) setCurrentFont(shipConfig.fonts->fonts[entry]);
}

BitmapFont* fontAt(int entry) { return shipConfig.fonts ? shipConfig.fonts->fonts[entry] : currentFont(); }

// Loads an image in the screen's pixel format when a screen is open, so the
// per-frame blit need not convert it.
SurfacePtr loadForScreen(const char* gamePath) {
  SurfacePtr loaded(IMG_Load(hostPath(gamePath).c_str()));
  if (!loaded || !SDL_GetVideoSurface()) return loaded;
  SurfacePtr converted(SDL_DisplayFormat(loaded.get()));
  return converted ? std::move(converted) : std::move(loaded);
}

bool isSeparator(char c) { return c == ' ' || c == '\t' || c == '\n'; }

// The component's markers by selection number; hardpoints past the ship's count have none.
const MarkerList* markersOf(const Ship& ship, int component) {
  switch (component) {
    case EngineSelected:
      return &ship.engineMarkers;
    case ShieldSelected:
      return &ship.shieldMarkers;
    case PowerPlantSelected:
      return &ship.powerPlantMarkers;
    default:
      if (component >= firstHardPoint && component < firstHardPoint + maxHardPoints)
        return &ship.hardPoints[component - firstHardPoint].markers;
      return nullptr;
  }
}

int* hoverOf(int component) {
  switch (component) {
    case EngineSelected:
      return &shipConfig.engineHover;
    case ShieldSelected:
      return &shipConfig.shieldHover;
    case PowerPlantSelected:
      return &shipConfig.powerPlantHover;
    default:
      return &shipConfig.hardPointHover[component - firstHardPoint];
  }
}

constexpr int lastComponent = firstHardPoint + maxHardPoints - 1;

void drawShape(SDL_Surface* screen, int x, int y, bool ring, Uint32 color) {
  if (ring) {
    for (int r = 10; r <= 12; ++r) circleColor(screen, at(x), at(y), at(r), color);
  } else {
    for (int k = 8; k <= 10; ++k) rectangleColor(screen, at(x - k), at(y - k), at(x + k), at(y + k), color);
  }
}

void drawLeaderLines(SDL_Surface* screen, const MarkerList& markers) {
  for (const MarkerPoint& p : markers) {
    const int x = markerScreen(p.x, shipConfig.imageX), y = markerScreen(p.y, shipConfig.imageY);
    lineColor(screen, at(x), at(y), 525, 60, leaderColor);
    filledCircleColor(screen, at(x), at(y), 2, leaderColor);
  }
}

void drawComponentMarkers(SDL_Surface* screen, const MarkerList& markers, int hovered, int index) {
  const Uint32 color = hovered ? markerLitColor : markerColor;
  const bool ring = index < firstHardPoint;
  const bool selected = index == shipConfig.selectedComponent;
  for (const MarkerPoint& p : markers) {
    const int x = markerScreen(p.x, shipConfig.imageX), y = markerScreen(p.y, shipConfig.imageY);
    drawShape(screen, x, y, ring, color);
    if (!selected) continue;
    if (ring) {
      filledCircleColor(screen, at(x), at(y), 13, selectedFill);
    } else {
      boxColor(screen, at(x - 7), at(y - 7), at(x + 7), at(y + 7), selectedFill);
    }
    drawShape(screen, x, y, ring, markerLitColor);
  }
  if (selected) {
    drawLeaderLines(screen, markers);
    lineColor(screen, 526, 60, 550, 60, leaderColor);
  }
}

// A label in white and its value in the value font right after it.
void printRow(SDL_Surface* screen, int y, const char* label, const char* value) {
  useFont(textFont);
  printString(screen, panelX, y, "%s", label);
  useFont(valueFont);
  printString(screen, panelX + textWidth(label), y, "%s", value);
}

}  // namespace

int pointDistance(int x1, int y1, int x2, int y2) {
  // Differences in double: two ints far apart differ by more than an int holds.
  const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1;
  return static_cast<int>(std::min(std::sqrt(dx * dx + dy * dy), static_cast<double>(INT_MAX)));
}

bool markersHit(const MarkerList& markers, int x, int y) {
  for (const MarkerPoint& p : markers) {
    const double dx = static_cast<double>(p.x) + shipConfig.imageX - x;
    const double dy = static_cast<double>(p.y) + shipConfig.imageY - y;
    if (std::sqrt(dx * dx + dy * dy) < markerReach) return true;
  }
  return false;
}

std::string descriptionForPanel(const std::string& description) {
  constexpr std::size_t room = descriptionBufferSize - 1;
  if (description.size() <= room) return description;
  std::string cut = description.substr(0, room);
  // Drop the word the cut runs through, unless the text is one long word.
  if (!isSeparator(description[room])) {
    std::size_t end = cut.size();
    while (end > 0 && !isSeparator(cut[end - 1])) --end;
    if (end > 0) cut.resize(end);
  }
  return cut;
}

int wrapText(SDL_Surface* surface, const char* text, int width, int x, int y) {
  if (!surface || !text) return 0;
  useFont(textFont);
  BitmapFont* font = fontAt(textFont);
  const int lineHeight = shipConfig.fonts ? shipConfig.fonts->heights[lineHeightFont] : fontHeight(font);
  constexpr std::size_t longestLine = wrapLineLimit - 1;  // and its ending blank
  std::string line;
  int lineWidth = 0;
  int lines = 0;
  auto newLine = [&] {
    printString(surface, x, y, "%s", line.c_str());
    y += lineHeight;
    ++lines;
    line.clear();
    lineWidth = 0;
  };
  auto fits = [&](std::size_t length, int wordWidth) {
    return lineWidth + wordWidth <= width && line.size() + length <= longestLine;
  };
  const std::string_view all(text);
  std::size_t i = 0;
  while (i < all.size()) {
    while (i < all.size() && isSeparator(all[i])) ++i;
    std::size_t end = i;
    while (end < all.size() && !isSeparator(all[end])) ++end;
    if (i == end) break;
    std::string_view word = all.substr(i, end - i);
    int wordWidth = 0;
    for (char c : word) wordWidth += charWidth(font, c);
    if (!fits(word.size(), wordWidth)) newLine();
    // A word too wide for a whole line goes on in pieces, each as much of it
    // as a line holds (at least one character), so none passes the width.
    while (!word.empty() && !fits(word.size(), wordWidth)) {
      std::size_t n = 0;
      int pieceWidth = 0;
      while (n < word.size() && fits(n + 1, pieceWidth + charWidth(font, word[n])))
        pieceWidth += charWidth(font, word[n++]);
      if (n == 0) pieceWidth = charWidth(font, word[n++]);
      line.assign(word.substr(0, n));
      newLine();
      word.remove_prefix(n);
      wordWidth -= pieceWidth;
    }
    line += word;
    line += ' ';
    lineWidth += wordWidth + charWidth(font, ' ');
    i = end;
  }
  newLine();
  return lines;
}

void initShipConfig(FontTable* fonts) {
  shipConfig.fonts = fonts;
  initTextButton(&closeButton, 30, 20, 760, 10, " X ");
  shipConfig.imageX = 10;
  shipConfig.imageY = 50;
}

void loadLargeShipImage(Ship* ship) {
  shipConfig.ship = ship;
  if (!ship) return;
  char path[160];
  std::snprintf(path, sizeof path, ".\\Ships\\%s_large.bmp", ship->shipClass);
  logMessagef("Loading large ship image: %s", path);
  shipConfig.largeImage = loadForScreen(path);
  if (!shipConfig.largeImage) logMessagef("Large ship image missing: %s", path);
}

void shipConfigMouseMotion(int x, int y) {
  trackHover(x, y, &closeButton);
  for (int c = EngineSelected; c <= lastComponent; ++c) {
    const MarkerList* markers = shipConfig.ship ? markersOf(*shipConfig.ship, c) : nullptr;
    *hoverOf(c) = markers && markersHit(*markers, x, y);
  }
  shipConfig.lastX = x;
  shipConfig.lastY = y;
}

void shipConfigMouseDown() { pressButton(&closeButton); }

void shipConfigMouseUp() {
  releaseButton(&closeButton);
  shipConfig.selectedComponent = ShipSelected;
  if (!shipConfig.ship) return;
  for (int c = EngineSelected; c <= lastComponent; ++c) {
    if (markersHit(*markersOf(*shipConfig.ship, c), shipConfig.lastX, shipConfig.lastY)) {
      shipConfig.selectedComponent = c;
      return;
    }
  }
}

namespace {

// The engine, shield and power plant panels: the name and class rows; returns
// the description to wrap under them.
const std::string* namedClassRows(SDL_Surface* screen, const char* name, int componentClass,
                                  const std::string& description) {
  char value[32];
  printRow(screen, 80, "Name: ", name);
  std::snprintf(value, sizeof value, "%d", componentClass);
  printRow(screen, 100, "Class: ", value);
  return &description;
}

}  // namespace

void drawComponentInfo(SDL_Surface* screen) {
  const Ship* ship = shipConfig.ship;
  if (!screen || !ship) return;
  const int selected = shipConfig.selectedComponent;
  char title[32];
  char value[32];
  const std::string* description = &ship->description;
  int descriptionY = 120;
  switch (selected) {
    case EngineSelected:
      std::snprintf(title, sizeof title, "Engine");
      description = namedClassRows(screen, ship->engine.name, ship->engine.engineClass, ship->engine.description);
      break;
    case ShieldSelected:
      std::snprintf(title, sizeof title, "Shields");
      description = namedClassRows(screen, ship->shield.name, ship->shield.shieldClass, ship->shield.description);
      break;
    case PowerPlantSelected:
      std::snprintf(title, sizeof title, "Power Plant");
      description =
          namedClassRows(screen, ship->powerPlant.name, ship->powerPlant.powerPlantClass, ship->powerPlant.description);
      break;
    default:
      if (selected >= firstHardPoint && selected <= lastComponent) {
        const HardPoint& hardPoint = ship->hardPoints[selected - firstHardPoint];
        std::snprintf(title, sizeof title, "HardPoint %d", selected - 3);
        printRow(screen, 80, "Name: ", hardPoint.weaponName);
        printRow(screen, 100, "Type: ", hardPoint.weapon.weaponType);
        std::snprintf(value, sizeof value, "%d", hardPoint.weapon.energyOutput);
        printRow(screen, 120, "Energy Output: ", value);
        description = &hardPoint.weapon.description;
        descriptionY = 140;
      } else {
        // The ship itself, also for a selection number nothing stands for.
        std::snprintf(title, sizeof title, "Ship");
        printRow(screen, 80, "Class: ", ship->shipClass);
        printRow(screen, 100, "Type: ", ship->shipType);
      }
      break;
  }
  if (description->size() >= static_cast<std::size_t>(descriptionBufferSize)) {
    static const std::string* warned = nullptr;
    if (warned != description) logMessagef("Description cut to %d bytes: %s", descriptionBufferSize - 1, title);
    warned = description;
  }
  wrapText(screen, descriptionForPanel(*description).c_str(), wrapWidth, panelX, descriptionY);
  useFont(panelTitleFont);
  printString(screen, 672 - textWidth(title) / 2, 51, "%s", title);
  rectangleColor(screen, 550, 50, 790, 70, leaderColor);
  useFont(textFont);
}

void drawShipConfig(SDL_Surface* screen) {
  if (!screen) return;
  boxRGBA(screen, 0, 0, 800, 600, 0, 0, 0, 255);
  drawFadingFrame(screen, 0, 0, 799, 599, 128, 128, 255, 5);
  if (shipConfig.largeImage) {
    SDL_Rect to{at(shipConfig.imageX), at(shipConfig.imageY), 0, 0};
    SDL_BlitSurface(shipConfig.largeImage.get(), nullptr, screen, &to);
  }
  if (const Ship* ship = shipConfig.ship) {
    for (int c = EngineSelected; c <= lastComponent; ++c)
      drawComponentMarkers(screen, *markersOf(*ship, c), *hoverOf(c), c);
  }
  drawComponentInfo(screen);
  useFont(windowTitleFont);
  printString(screen, 10, 10, "Ship Configuration");
  useFont(textFont);
  drawTextButton(screen, &closeButton, shipConfig.fonts);
  if (takeClick(&closeButton)) gameState.configOpen = 0;
}
