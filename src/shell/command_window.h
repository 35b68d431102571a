#pragma once
#include <SDL.h>

struct FontTable;

constexpr int menuCount = 12;
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
