#pragma once
#include <SDL.h>

struct FontTable;

// The menus, in the order of the menu table.
enum Menu : int {
  BridgeMenu = 0,  // the crew stations
  OrbitMenu,       // Captain in orbit
  SurfaceMenu,     // Captain on the surface
  ScienceMenu,
  NavigatorMenu,
  TacticalMenu,        // shields down, weapons disarmed
  ShieldsUpMenu,       // shields up, weapons disarmed
  WeaponsArmedMenu,    // shields down, weapons armed
  ShieldsUpArmedMenu,  // shields up, weapons armed
  EngineeringMenu,
  CommunicationMenu,
  LandingMenu,  // Captain, Land
  menuCount
};

// The items of each menu, by row.
enum BridgeItem : int {
  CaptainStation = 0,
  ScienceStation,
  NavigatorStation,
  TacticalStation,
  EngineeringStation,
  CommunicationStation
};
// The orbit and surface menus differ only in their first item.
enum CaptainItem : int { LandItem = 0, LaunchItem = 0, DisembarkItem, CargoItem, LogPlanetItem, CaptainBridgeItem };
enum ScienceItem : int { SensorsItem = 0, AnalysisItem, CultureItem, StatusItem, ScienceBridgeItem };
enum NavigatorItem : int { ManeuverItem = 0, StarmapItem, JumpPodItem, NavigatorBridgeItem };
enum TacticalItem : int { ShieldsItem = 0, WeaponsItem, CombatItem, TacticalBridgeItem };
enum EngineeringItem : int { DamageItem = 0, RepairItem, ConfigurationItem, EngineeringBridgeItem };
enum CommunicationItem : int { HailItem = 0, DistressItem, CommunicationBridgeItem };
enum LandingItem : int { SelectSiteItem = 0, DescentItem, CancelItem };

constexpr int menuSlots = 6;
extern const int menuItemCount[menuCount];
extern const char menuItems[menuCount][menuSlots][50];

void initCommandWindow(FontTable* fonts);
int getCurrentMenu();
int getCurrentItem();
int isItemSelected();
void setCurrentMenu(int menu);
void setCurrentItem(int item);
void toggleItemSelected();
void commandWindowHover(int x, int y, SDL_Surface* target);
void drawCommandWindow(SDL_Surface* target);
void performMenuAction();
// Whether (menu, item) is the current item and selected.
bool isActive(int menu, int item);
