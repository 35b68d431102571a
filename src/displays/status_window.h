#pragma once
#include <SDL.h>

struct FontTable;
struct Ship;
struct Planet;

void initStatusWindow(SDL_Surface** shipImages, FontTable* fonts, Ship* ship);
void drawStatusWindow(SDL_Surface* target);
void drawGlobeFrame(SDL_Surface* target);
void drawPlanetLabels(SDL_Surface* target);
void drawPlanetScan(SDL_Surface* target, int lane, Planet* planet);
void setScanProgress(int value);
int scanProgress();
