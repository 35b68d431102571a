#include "shell/command_window.h"
// placeholder
const int menuItemCount[menuCount] = {6, 5, 5, 5, 4, 4, 4, 4, 4, 4, 3, 3};
const char menuItems[menuCount][menuSlots][50] = {};
namespace {
int menu = 0, item = 0, selected = 0;
}
void initCommandWindow(FontTable*) {}
int getCurrentMenu() { return menu; }
int getCurrentItem() { return item; }
int isItemSelected() { return selected; }
void setCurrentMenu(int m) { menu = m; }
void setCurrentItem(int i) { item = i; }
void toggleItemSelected() {
  if (item < menuItemCount[menu]) selected = 1 - selected;
}
void commandWindowHover(int, int, SDL_Surface*) {}
void drawCommandWindow(SDL_Surface*) {}
void performMenuAction() {}
bool isActive(int m, int i) { return menu == m && item == i && selected == 1; }
