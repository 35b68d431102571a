#pragma once
#include <SDL.h>

#include <array>

#include "ui/buttons.h"

struct FontTable;
struct Ship;

constexpr int holdSlots = 22;  // one per mineral
// One amount in CU per mineral, in mineral order.
using CargoHold = std::array<float, holdSlots>;

// The rover's hold is fixed; the ship's grows with its cargo holds.
constexpr float roverHoldCapacity = 50.0f;

// --- Hold operations. Each keeps free space = capacity - the sum of the amounts.

// The sum of the 22 amounts, added in mineral order as 32-bit floats (the
// order matters for the last digit, and every caller must agree on it).
float holdTotal(const CargoHold& hold);
// Free space of a hold of the given capacity: capacity - holdTotal.
float holdFreeSpace(const CargoHold& hold, float capacity);
// Puts up to `amount` CU of a mineral into a hold with `free` CU left; takes
// no more than fits. Returns what was stored and lowers `free` by it. A
// mineral number outside 0..21 or a negative amount stores nothing.
float storeCargo(CargoHold& hold, float& free, int mineral, float amount);
// Takes up to `amount` CU of a mineral out of a hold, no more than it holds.
// Returns what was taken and raises `free` by it. Bad numbers take nothing.
float takeCargo(CargoHold& hold, float& free, int mineral, float amount);
// Throws the selected amounts out of a hold (each cut to what is held),
// clears the selection and returns the new free space, recomputed from the
// remaining amounts so rounding cannot drift.
float jettisonCargo(CargoHold& hold, CargoHold& selection, float capacity);
// The same for the two holds of a ship, setting its shipHoldFree / roverHoldFree.
void jettisonShipHold(Ship& ship, CargoHold& selection);
void jettisonRoverHold(Ship& ship, CargoHold& selection);

// The format of an amount after its selection: the blanks keep the decimal
// points of 0.00 to 999.99 in one column.
const char* holdAmountFormat(float amount);

// --- The cargo window.

// Arrow columns: the ship's Up and Down, the rover's Up and Down.
enum ArrowColumn : int { ShipUpArrow = 0, ShipDownArrow, RoverUpArrow, RoverDownArrow, arrowColumns };
// Which of the two holds a selection belongs to.
enum HoldKind : int { ShipsHold = 0, RoversHold = 1 };
enum ArrowImage : int { UpNorm = 0, UpHighlight, UpSelect, DownNorm, DownHighlight, DownSelect, arrowImageCount };

struct CargoWindow {
  FontTable* fonts = nullptr;
  Ship* ship = nullptr;
  // Never above the amount held, never below 0.
  CargoHold jettisonSelection[2] = {};
  // At most one flag set: the arrow under the pointer.
  int arrowHover[arrowColumns][holdSlots] = {};
  int mousePressed = 0;
  // Frames a pressed arrow has been held; shared by all arrows.
  int repeatCounter = 0;
  TextButton shipJettisonButton;
  TextButton roverJettisonButton;
};
extern CargoWindow cargoWindow;

// The " X " close button; one record serves the cargo and the ship
// configuration windows, so its hover and running dots carry over.
extern TextButton closeButton;

// Keeps the fonts and the ship, loads the six arrow images from ".\Buttons\",
// clears the selections, hover flags and counters and makes the three buttons.
// A missing arrow image is logged and leaves a gap where it would be drawn.
void initCargoWindow(FontTable* fonts, Ship* ship);
// The background, title, mineral names and close button; a click on the close
// button clears both selections and closes the window.
void drawCargoList(SDL_Surface* screen);
// One hold column: arrows (a held arrow changes its selection once, then
// every frame after 15), selections, amounts, the total row, the heading and
// the jettison button, whose click throws the selection away.
void drawShipHold(SDL_Surface* screen);
void drawRoverHold(SDL_Surface* screen);
// On every mouse motion, open or not: button hover and the one arrow under (x, y).
void cargoMouseMotion(int x, int y);
// While the window is open.
void cargoMouseDown();
void cargoMouseUp();
