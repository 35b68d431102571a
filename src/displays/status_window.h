#pragma once
#include <SDL.h>

struct FontTable;
struct Ship;
struct Planet;

// The shield value the shield bar shows; follows shieldCurrent by 10 a drawing
// so the bar fills and drains visibly. 0 after initStatusWindow.
extern int shieldDisplay;
// The globe image drawGlobeFrame shows next, 0 to 19.
extern int globeFrame;

// Once at start-up, after the fonts: logs "Initializing Status Window", keeps the
// three references, resets shieldDisplay, globeFrame and scanProgress, and makes
// the globe images and then the orbit-angle table (in that order: the second
// seeds the random generator).
void initStatusWindow(SDL_Surface** shipImages, FontTable* fonts, Ship* ship);
// Rebuilds the ship status panel (texts, gauges, scale, ship image) and puts it
// on `target` at (515, 5). Moves shieldDisplay one step toward shieldCurrent.
// A maximum of 0 (or less) shows an empty bar; bars never leave the panel.
void drawStatusWindow(SDL_Surface* target);
// Shows globe image globeFrame at (595, 120) and moves on to the next of the 20,
// so the wire globe turns once in 20 frames. A missing image is skipped.
void drawGlobeFrame(SDL_Surface* target);
// The five labels of the planet readings, at x 520 from y 15 down.
void drawPlanetLabels(SDL_Surface* target);
// One frame of the sensor sweep over the globe; advances scanProgress by 4 and,
// on the frame that reaches 120 (the 30th), draws the five readings of `planet`
// (lane `lane`) after their labels and puts scanProgress back to 0. A null
// planet completes the sweep without readings.
void drawPlanetScan(SDL_Surface* target, int lane, Planet* planet);
// The sweep counter: the main loop resets it on entering orbit and takes 0 after
// a drawPlanetScan as the sign that the readings were just shown.
void setScanProgress(int value);
int scanProgress();
