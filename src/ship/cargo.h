#pragma once
#include <SDL.h>

#include <array>

struct FontTable;
struct Ship;

// One amount in CU per mineral, in mineral order.
using CargoHold = std::array<float, 22>;

void initCargoWindow(FontTable* fonts, Ship* ship);
void drawCargoList(SDL_Surface* screen);
void drawShipHold(SDL_Surface* screen);
void drawRoverHold(SDL_Surface* screen);
void cargoMouseMotion(int x, int y);
void cargoMouseDown();
void cargoMouseUp();
