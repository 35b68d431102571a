#include "shell/command_window.h"

#include <memory>

#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "shell/screen_layout.h"
#include "ship/cargo.h"
#include "ship/ship.h"
#include "surface/rover.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

// The crew stations of the bridge (menu 0) and the menu of each station.
const int menuItemCount[menuCount] = {6, 5, 5, 5, 4, 4, 4, 4, 4, 4, 3, 3};
const char menuItems[menuCount][menuSlots][50] = {
    {"Captain", "Science", "Navigator", "Tactical", "Engineering", "Communication"},
    {"Land", "Disembark", "Cargo", "Log Planet", "Bridge", " "},
    {"Launch", "Disembark", "Cargo", "Log Planet", "Bridge", " "},
    {"Sensors", "Analysis", "Culture", "Status", "Bridge", " "},
    {"Maneuver", "Starmap", "Jump Pod", "Bridge", " ", " "},
    {"Raise Shields", "Arm Weapons", "Combat", "Bridge", " ", " "},
    {"Lower Shields", "Arm Weapons", "Combat", "Bridge", " ", " "},
    {"Raise Shields", "Disarm Weapons", "Combat", "Bridge", " ", " "},
    {"Lower Shields", "Disarm Weapons", "Combat", "Bridge", " ", " "},
    {"Damage", "Repair", "Configuration", "Bridge", " ", " "},
    {"Hail", "Distress", "Bridge", " ", " ", " "},
    {"Select Site", "Descent", "Cancel", " ", " ", " "},
};

namespace {

FontTable* windowFonts = nullptr;
int currentMenu = 0;
int currentItem = 0;
int itemSelected = 0;
int hoveredItem = 0;

constexpr int windowX = 515;
constexpr int windowY = 260;
constexpr int windowWidth = 280;
constexpr int windowHeight = 245;
constexpr int rowHeight = 30;
constexpr int noRow = 6;

void useFont(int entry) {
  if (windowFonts && windowFonts->fonts[entry]) setCurrentFont(windowFonts->fonts[entry]);
}

void printLabel(SDL_Surface* surface, int row) {
  if (windowFonts && currentFont()) printString(surface, 30, rowHeight * row + 2, "%s", menuItems[currentMenu][row]);
}

// Shows menu m from its first item; the toggle takes back the selection that
// the press on the item just set.
void switchToMenu(int menu) {
  setCurrentMenu(menu);
  setCurrentItem(0);
  toggleItemSelected();
}

// The tactical menus flip between each other as shields and weapons change.
void switchTactical(int menu, int item) {
  setCurrentMenu(menu);
  setCurrentItem(item);
  toggleItemSelected();
}

void openTactical() {
  const bool shields = playerShip.shieldsOnline != 0;
  const bool weapons = playerShip.weaponsOnline != 0;
  if (!shields && !weapons) {
    logMessage("menu 5");
    switchToMenu(5);
  } else if (shields && !weapons) {
    switchToMenu(6);
  } else if (!shields && weapons) {
    switchToMenu(7);
  } else {
    logMessage("menu 8");
    switchToMenu(8);
  }
}

void toggleCargo() {
  if (gameState.cargoOpen == 0) {
    drawCargoList(screen);
    gameState.cargoOpen = 1;
  } else {
    gameState.cargoOpen = 0;
  }
  toggleItemSelected();
}

void toggleStatus() {
  if (gameState.showShipStatus == 0) {
    gameState.showShipStatus = 1;
  } else {
    gameState.showShipStatus = 0;
    redrawAll();
  }
  toggleItemSelected();
}

// Only the orbit frame lowers the rover; a descent started anywhere else would
// wait, unseen, and freeze the command window until the next orbit.
void startDescent() {
  if (gameState.mode != Orbit) {
    showMessage("The rover can only be lowered from orbit");
    toggleItemSelected();
    return;
  }
  setAltitude(250);
  gameState.descentRunning = 1;
  gameState.heading = 0;
}

void startLaunch() {
  setAltitude(0);
  gameState.launchRunning = 1;
}

void bridgeAction(int item) {
  switch (item) {
    case 0:
      switchToMenu(gameState.mode == Surface ? 2 : 1);
      break;
    case 1:
      switchToMenu(3);
      break;
    case 2:
      switchToMenu(4);
      break;
    case 3:
      openTactical();
      break;
    case 4:
      switchToMenu(9);
      break;
    case 5:
      switchToMenu(10);
      break;
    default:
      break;
  }
}

// The four tactical menus: each switch flips one system and moves to the menu
// of the new combination, keeping the item just used under the mouse.
struct TacticalSwitch {
  int menu, item;
  int Ship::*system;
  int online;
  int nextMenu;
};
constexpr TacticalSwitch tacticalSwitches[] = {
    {5, 0, &Ship::shieldsOnline, 1, 6}, {5, 1, &Ship::weaponsOnline, 1, 7}, {6, 0, &Ship::shieldsOnline, 0, 5},
    {6, 1, &Ship::weaponsOnline, 1, 8}, {7, 0, &Ship::shieldsOnline, 1, 8}, {7, 1, &Ship::weaponsOnline, 0, 5},
    {8, 0, &Ship::shieldsOnline, 0, 7}, {8, 1, &Ship::weaponsOnline, 0, 6},
};

void tacticalAction(int menu, int item) {
  for (const TacticalSwitch& t : tacticalSwitches) {
    if (t.menu == menu && t.item == item) {
      playerShip.*t.system = t.online;
      switchTactical(t.nextMenu, item);
      return;
    }
  }
  if (item == 3) switchToMenu(0);
}

}  // namespace

void initCommandWindow(FontTable* fonts) {
  logMessage("Initializing Command Window");
  windowFonts = fonts;
  currentMenu = 0;
  currentItem = 0;
  itemSelected = 0;
  hoveredItem = 0;
}

int getCurrentMenu() { return currentMenu; }
int getCurrentItem() { return currentItem; }
int isItemSelected() { return itemSelected; }

void setCurrentMenu(int menu) {
  if (menu < 0 || menu >= menuCount) {
    logMessagef("Command window: no menu %d", menu);
    return;
  }
  currentMenu = menu;
}

void setCurrentItem(int item) { currentItem = item; }

void toggleItemSelected() {
  if (currentItem < menuItemCount[currentMenu]) itemSelected = 1 - itemSelected;
}

bool isActive(int menu, int item) { return currentMenu == menu && currentItem == item && itemSelected == 1; }

void commandWindowHover(int x, int y, SDL_Surface* target) {
  int row = noRow;
  for (int r = 0; r < menuSlots; ++r) {
    if (x > windowX && y > windowY + rowHeight * r && y < windowY + 20 + rowHeight * r) row = r;
  }
  // Only a change of row moves the current item, so a click that switched
  // menus leaves the new menu's first item current until the mouse moves on.
  if (row != hoveredItem) {
    hoveredItem = row;
    currentItem = row;
    drawCommandWindow(target);
  }
}

void drawCommandWindow(SDL_Surface* target) {
  if (!target) return;
  std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> surface(
      SDL_CreateRGBSurface(SDL_SWSURFACE, windowWidth, windowHeight, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0),
      &SDL_FreeSurface);
  if (!surface) {
    logMessagef("Command window: no surface: %s", SDL_GetError());
    return;
  }
  SDL_Surface* s = surface.get();
  useFont(14);
  for (int i = 0; i < menuItemCount[currentMenu]; ++i) {
    const Sint16 top = static_cast<Sint16>(rowHeight * i + 5);
    const Sint16 bottom = static_cast<Sint16>(rowHeight * i + 20);
    if (i == currentItem) {
      drawGlowFrame(s, 5, top, 20, bottom, 255, 255, 255, 5);
      useFont(13);
      printLabel(s, i);
      useFont(14);
    } else {
      drawGlowFrame(s, 5, top, 20, bottom, 128, 128, 128, 5);
      printLabel(s, i);
    }
  }
  if (itemSelected == 1 && currentItem < menuItemCount[currentMenu]) {
    const Sint16 top = static_cast<Sint16>(rowHeight * currentItem + 10);
    drawGlowFrame(s, 10, top, 15, static_cast<Sint16>(top + 5), 255, 255, 255, 5);
  }
  useFont(2);
  SDL_Rect place{windowX, windowY, 0, 0};
  SDL_BlitSurface(s, nullptr, target, &place);
}

void performMenuAction() {
  const int menu = currentMenu;
  const int item = currentItem;
  switch (menu) {
    case 0:
      bridgeAction(item);
      break;
    case 1:
    case 2:
      if (menu == 1 && item == 0) switchToMenu(11);
      if (menu == 2 && item == 0) startLaunch();
      if (item == 2) toggleCargo();
      if (item == 4) switchToMenu(0);
      break;
    case 3:
      if (item == 3) toggleStatus();
      if (item == 4) switchToMenu(0);
      break;
    case 4:
      if (item == 0) gameState.maneuverOn = 1 - gameState.maneuverOn;
      if (item == 1) {
        gameState.navigationOpen = 1 - gameState.navigationOpen;
        toggleItemSelected();
      }
      if (item == 3) switchToMenu(0);
      break;
    case 5:
    case 6:
    case 7:
    case 8:
      tacticalAction(menu, item);
      break;
    case 9:
      if (item == 2) {
        toggleItemSelected();
        gameState.configOpen = 1 - gameState.configOpen;
      }
      if (item == 3) switchToMenu(0);
      break;
    case 10:
      if (item == 2) switchToMenu(0);
      break;
    case 11:
      if (item == 1) startDescent();
      if (item == 2) switchToMenu(1);
      break;
    default:
      break;
  }
}
