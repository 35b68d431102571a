#include "ship/cargo.h"

#include <SDL_gfxPrimitives.h>
#include <SDL_image.h>

#include <cstdio>
#include <utility>

#include "base/debug_log.h"
#include "base/game_state.h"
#include "platform/data_path.h"
#include "platform/surface_ptr.h"
#include "ship/ship.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"
#include "universe/planet.h"

static_assert(holdSlots == mineralCount, "a hold keeps one amount per mineral");

CargoWindow cargoWindow;
TextButton closeButton;

namespace {

// Font table entries of the window.
constexpr int textFont = 2;
constexpr int nameFont = 7;
constexpr int headingFont = 11;
constexpr int titleFont = 15;

constexpr int firstRowY = 70;
constexpr int rowHeight = 20;
constexpr int totalRowY = 520;
constexpr int amountX = 83;          // from a hold column's left edge to where selections end and amounts begin
constexpr int downArrowX = 15;       // from the Up arrow to the Down arrow
constexpr int heldRepeatDelay = 15;  // frames a held arrow waits before repeating

// The names right-aligned to ten characters, as the column shows them.
constexpr const char* mineralLabels[holdSlots] = {
    "      Lead", "      Iron", "    Cobalt", "    Nickel", "    Copper", "      Zinc", "Molybdenum", "       Tin",
    " Magnesium", "  Aluminum", "  Titanium", "  Chromium", "  Antimony", "Promethium", "   Mercury", "  Tungsten",
    "    Silver", "      Gold", "  Platinum", "   Silicon", "   Rodnium", "   Shyneum"};

constexpr const char* arrowFiles[arrowImageCount] = {".\\Buttons\\Up_norm.bmp",        ".\\Buttons\\Up_highlight.bmp",
                                                     ".\\Buttons\\Up_select.bmp",      ".\\Buttons\\Down_norm.bmp",
                                                     ".\\Buttons\\Down_highlight.bmp", ".\\Buttons\\Down_select.bmp"};

// One hold as the window shows it.
struct HoldColumn {
  int x;
  HoldKind kind;
  ArrowColumn up, down;
  const char* heading;
};
constexpr HoldColumn shipColumn{120, ShipsHold, ShipUpArrow, ShipDownArrow, "Ship's hold"};
constexpr HoldColumn roverColumn{320, RoversHold, RoverUpArrow, RoverDownArrow, "Rover's hold"};

// Up and Down, each normal, highlighted and selected; loaded once at start-up.
SurfacePtr arrows[arrowImageCount];

// Loads an image in the screen's pixel format when a screen is open, so the
// per-frame blit need not convert it.
SurfacePtr loadForScreen(const char* gamePath) {
  SurfacePtr loaded(IMG_Load(hostPath(gamePath).c_str()));
  if (!loaded || !SDL_GetVideoSurface()) return loaded;
  SurfacePtr converted(SDL_DisplayFormat(loaded.get()));
  return converted ? std::move(converted) : std::move(loaded);
}

bool validMineral(int mineral) { return mineral >= 0 && mineral < holdSlots; }

void useFont(int entry) {
  if (cargoWindow.fonts && cargoWindow.fonts->fonts[entry]) setCurrentFont(cargoWindow.fonts->fonts[entry]);
}

void blitAt(SDL_Surface* image, SDL_Surface* screen, int x, int y) {
  if (!image) return;  // a missing image leaves a gap
  SDL_Rect to{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
  SDL_BlitSurface(image, nullptr, screen, &to);
}

// Text in the current font that ends at x.
void printEndingAt(SDL_Surface* screen, int x, int y, const char* text) {
  printString(screen, x - textWidth(text), y, "%s", text);
}

void printHeld(SDL_Surface* screen, int x, int y, float amount) {
  printString(screen, x, y, holdAmountFormat(amount), amount);
}

// One arrow of one row: picks its image and, while it is held, steps the
// selection by `step` (once at the press, then every frame after the delay).
void drawArrow(SDL_Surface* screen, int x, int y, ArrowColumn column, int row, ArrowImage norm, float step,
               float& selected, float held) {
  const int hovered = cargoWindow.arrowHover[column][row];
  if (!hovered) {
    blitAt(arrows[norm].get(), screen, x, y);
    return;
  }
  if (!cargoWindow.mousePressed) {
    blitAt(arrows[norm + 1].get(), screen, x, y);
    return;
  }
  blitAt(arrows[norm + 2].get(), screen, x, y);
  if (cargoWindow.repeatCounter == 0 || cargoWindow.repeatCounter > heldRepeatDelay) {
    selected += step;
    if (selected > held) selected = held;
    if (selected < 0.0f) selected = 0.0f;
  }
  ++cargoWindow.repeatCounter;
}

void drawHold(SDL_Surface* screen, const HoldColumn& column) {
  Ship* ship = cargoWindow.ship;
  if (!screen || !ship) return;
  CargoHold& hold = column.kind == ShipsHold ? ship->shipHold : ship->roverHold;
  CargoHold& selection = cargoWindow.jettisonSelection[column.kind];
  const int c = column.x;
  useFont(textFont);
  float selectedSum = 0.0f;
  char text[64];
  for (int m = 0; m < holdSlots; ++m) {
    const int y = firstRowY + rowHeight * m;
    drawArrow(screen, c, y, column.up, m, UpNorm, 1.0f, selection[m], hold[m]);
    drawArrow(screen, c + downArrowX, y, column.down, m, DownNorm, -1.0f, selection[m], hold[m]);
    std::snprintf(text, sizeof text, "%.2f", selection[m]);
    printEndingAt(screen, c + amountX, y, text);
    printHeld(screen, c + amountX, y, hold[m]);
    selectedSum += selection[m];
  }

  std::snprintf(text, sizeof text, "%.2f", selectedSum);
  printEndingAt(screen, c + amountX, totalRowY, text);
  if (column.kind == ShipsHold) {
    printHeld(screen, c + amountX, totalRowY, ship->shipHoldCapacity);
  } else {
    printString(screen, c + amountX, totalRowY, "/ 50.00 CU");
  }

  useFont(headingFont);
  printString(screen, c, 45, "%s", column.heading);
  useFont(textFont);
  TextButton& jettison = column.kind == ShipsHold ? cargoWindow.shipJettisonButton : cargoWindow.roverJettisonButton;
  drawTextButton(screen, &jettison, cargoWindow.fonts);
  if (takeClick(&jettison)) {
    if (column.kind == ShipsHold) {
      jettisonShipHold(*ship, selection);
    } else {
      jettisonRoverHold(*ship, selection);
    }
  }
}

}  // namespace

float holdTotal(const CargoHold& hold) {
  float sum = 0.0f;
  for (float amount : hold) sum += amount;
  return sum;
}

float holdFreeSpace(const CargoHold& hold, float capacity) { return capacity - holdTotal(hold); }

float storeCargo(CargoHold& hold, float& free, int mineral, float amount) {
  if (!validMineral(mineral) || !(amount > 0.0f) || !(free > 0.0f)) return 0.0f;
  const float stored = amount < free ? amount : free;
  hold[mineral] += stored;
  free -= stored;
  return stored;
}

float takeCargo(CargoHold& hold, float& free, int mineral, float amount) {
  if (!validMineral(mineral) || !(amount > 0.0f) || !(hold[mineral] > 0.0f)) return 0.0f;
  const float taken = amount < hold[mineral] ? amount : hold[mineral];
  hold[mineral] -= taken;
  free += taken;
  return taken;
}

float jettisonCargo(CargoHold& hold, CargoHold& selection, float capacity) {
  for (int m = 0; m < holdSlots; ++m) {
    // The selection never exceeds the amount held; the cut only guards
    // against a selection made before the hold shrank.
    const float thrown = selection[m] < hold[m] ? selection[m] : hold[m];
    if (thrown > 0.0f) hold[m] -= thrown;
    selection[m] = 0.0f;
  }
  return holdFreeSpace(hold, capacity);
}

void jettisonShipHold(Ship& ship, CargoHold& selection) {
  ship.shipHoldFree = jettisonCargo(ship.shipHold, selection, ship.shipHoldCapacity);
}

void jettisonRoverHold(Ship& ship, CargoHold& selection) {
  ship.roverHoldFree = jettisonCargo(ship.roverHold, selection, roverHoldCapacity);
}

const char* holdAmountFormat(float amount) {
  if (amount < 10.0f) return "/  %.2f CU";
  if (amount < 100.0f) return "/ %.2f CU";
  return "/%.2f CU";
}

void initCargoWindow(FontTable* fonts, Ship* ship) {
  cargoWindow.fonts = fonts;
  cargoWindow.ship = ship;
  for (int i = 0; i < arrowImageCount; ++i) {
    arrows[i] = loadForScreen(arrowFiles[i]);
    if (!arrows[i]) logMessagef("Arrow image missing: %s", arrowFiles[i]);
  }
  cargoWindow.mousePressed = 0;
  cargoWindow.repeatCounter = 0;
  for (auto& column : cargoWindow.arrowHover)
    for (int& flag : column) flag = 0;
  for (CargoHold& selection : cargoWindow.jettisonSelection) selection.fill(0.0f);
  initTextButton(&closeButton, 30, 20, 760, 10, " X ");
  initTextButton(&cargoWindow.shipJettisonButton, 155, 20, 120, 540, "Jettison");
  initTextButton(&cargoWindow.roverJettisonButton, 155, 20, 320, 540, "Jettison");
}

void drawCargoList(SDL_Surface* screen) {
  if (!screen) return;
  boxRGBA(screen, 0, 0, 800, 600, 0, 0, 0, 255);
  drawFadingFrame(screen, 0, 0, 799, 599, 0, 255, 0, 5);
  useFont(titleFont);
  printString(screen, 10, 10, "Cargo List");
  useFont(nameFont);
  for (int m = 0; m < holdSlots; ++m) printString(screen, 10, firstRowY + rowHeight * m, "%s", mineralLabels[m]);
  printString(screen, 10, totalRowY, "     Total");
  useFont(textFont);
  drawTextButton(screen, &closeButton, cargoWindow.fonts);
  if (takeClick(&closeButton)) {
    for (CargoHold& selection : cargoWindow.jettisonSelection) selection.fill(0.0f);
    gameState.cargoOpen = 0;
  }
}

void drawShipHold(SDL_Surface* screen) { drawHold(screen, shipColumn); }

void drawRoverHold(SDL_Surface* screen) { drawHold(screen, roverColumn); }

void cargoMouseMotion(int x, int y) {
  trackHover(x, y, &closeButton);
  trackHover(x, y, &cargoWindow.shipJettisonButton);
  trackHover(x, y, &cargoWindow.roverJettisonButton);
  for (auto& column : cargoWindow.arrowHover)
    for (int& flag : column) flag = 0;
  int column = -1;
  if (x >= 121 && x <= 134) {
    column = ShipUpArrow;
  } else if (x >= 136 && x <= 149) {
    column = ShipDownArrow;
  } else if (x >= 321 && x <= 334) {
    column = RoverUpArrow;
  } else if (x >= 336 && x <= 349) {
    column = RoverDownArrow;
  }
  if (column >= 0 && y >= firstRowY && y <= 509) cargoWindow.arrowHover[column][(y - firstRowY) / rowHeight] = 1;
}

void cargoMouseDown() {
  cargoWindow.mousePressed = 1;
  pressButton(&closeButton);
  pressButton(&cargoWindow.shipJettisonButton);
  pressButton(&cargoWindow.roverJettisonButton);
}

void cargoMouseUp() {
  cargoWindow.mousePressed = 0;
  cargoWindow.repeatCounter = 0;
  releaseButton(&closeButton);
  releaseButton(&cargoWindow.shipJettisonButton);
  releaseButton(&cargoWindow.roverJettisonButton);
}
