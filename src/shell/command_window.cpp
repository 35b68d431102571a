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

// The crew stations of the bridge and the menu of each station, in Menu order.
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
    switchToMenu(TacticalMenu);
  } else if (shields && !weapons) {
    switchToMenu(ShieldsUpMenu);
  } else if (!shields && weapons) {
    switchToMenu(WeaponsArmedMenu);
  } else {
    logMessage("menu 8");
    switchToMenu(ShieldsUpArmedMenu);
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
    case CaptainStation:
      switchToMenu(gameState.mode == Surface ? SurfaceMenu : OrbitMenu);
      break;
    case ScienceStation:
      switchToMenu(ScienceMenu);
      break;
    case NavigatorStation:
      switchToMenu(NavigatorMenu);
      break;
    case TacticalStation:
      openTactical();
      break;
    case EngineeringStation:
      switchToMenu(EngineeringMenu);
      break;
    case CommunicationStation:
      switchToMenu(CommunicationMenu);
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
    {TacticalMenu, ShieldsItem, &Ship::shieldsOnline, 1, ShieldsUpMenu},
    {TacticalMenu, WeaponsItem, &Ship::weaponsOnline, 1, WeaponsArmedMenu},
    {ShieldsUpMenu, ShieldsItem, &Ship::shieldsOnline, 0, TacticalMenu},
    {ShieldsUpMenu, WeaponsItem, &Ship::weaponsOnline, 1, ShieldsUpArmedMenu},
    {WeaponsArmedMenu, ShieldsItem, &Ship::shieldsOnline, 1, ShieldsUpArmedMenu},
    {WeaponsArmedMenu, WeaponsItem, &Ship::weaponsOnline, 0, TacticalMenu},
    {ShieldsUpArmedMenu, ShieldsItem, &Ship::shieldsOnline, 0, WeaponsArmedMenu},
    {ShieldsUpArmedMenu, WeaponsItem, &Ship::weaponsOnline, 0, ShieldsUpMenu},
};

void tacticalAction(int menu, int item) {
  for (const TacticalSwitch& t : tacticalSwitches) {
    if (t.menu == menu && t.item == item) {
      playerShip.*t.system = t.online;
      switchTactical(t.nextMenu, item);
      return;
    }
  }
  if (item == TacticalBridgeItem) switchToMenu(BridgeMenu);
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
    case BridgeMenu:
      bridgeAction(item);
      break;
    case OrbitMenu:
    case SurfaceMenu:
      if (menu == OrbitMenu && item == LandItem) switchToMenu(LandingMenu);
      if (menu == SurfaceMenu && item == LaunchItem) startLaunch();
      if (item == CargoItem) toggleCargo();
      if (item == CaptainBridgeItem) switchToMenu(BridgeMenu);
      break;
    case ScienceMenu:
      if (item == StatusItem) toggleStatus();
      if (item == ScienceBridgeItem) switchToMenu(BridgeMenu);
      break;
    case NavigatorMenu:
      if (item == ManeuverItem) gameState.maneuverOn = 1 - gameState.maneuverOn;
      if (item == StarmapItem) {
        gameState.navigationOpen = 1 - gameState.navigationOpen;
        toggleItemSelected();
      }
      if (item == NavigatorBridgeItem) switchToMenu(BridgeMenu);
      break;
    case TacticalMenu:
    case ShieldsUpMenu:
    case WeaponsArmedMenu:
    case ShieldsUpArmedMenu:
      tacticalAction(menu, item);
      break;
    case EngineeringMenu:
      if (item == ConfigurationItem) {
        toggleItemSelected();
        gameState.configOpen = 1 - gameState.configOpen;
      }
      if (item == EngineeringBridgeItem) switchToMenu(BridgeMenu);
      break;
    case CommunicationMenu:
      if (item == CommunicationBridgeItem) switchToMenu(BridgeMenu);
      break;
    case LandingMenu:
      if (item == DescentItem) startDescent();
      if (item == CancelItem) switchToMenu(OrbitMenu);
      break;
    default:
      break;
  }
}
