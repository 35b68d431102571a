#pragma once
#include <SDL.h>

struct Options;

extern SDL_Surface* screen;
extern double sinTable[360];
extern double cosTable[360];

void fillTrigTables();
void drawScreenLayout(SDL_Surface* surface);
void refreshLayout();
void redrawAll();
int drawOverlayWindow();
void drawFrameRate();

// Start-up, steps 1 to 26. Ends the process with status 1 when video fails.
void startUp(const Options& options);
// One pass of the frame loop.
void runFrame();
// Whether runFrame waits for the frame-rate manager (off with --unthrottled and in benchmarks).
void setFrameDelay(bool enabled);
// The whole program: options, start-up, the loop. Returns only on bad options.
int gameMain(int argc, char** argv);
