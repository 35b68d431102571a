#pragma once
#include <SDL.h>

// The four framed panes: viewscreen, message strip, top right pane, command pane.
void drawScreenLayout(SDL_Surface* surface);
// Redraws the panes' frames after the log window or a mode switch covered them,
// then the panes that no frame draws again by itself (redrawCoveredPanes).
void refreshLayout();
// Draws again what the frames do not redraw every frame: the command window,
// the message strip and, in orbit or on the surface, the map with its legend and
// the reading labels. Used after a window or a blank layout covered them; it
// changes no state and copies nothing into the debug log.
void redrawCoveredPanes();
// Redraws every pane as the current mode shows it.
void redrawAll();
// The viewscreen pane at the ship's position and heading: space around it, or
// with `inSystem` the current system around it. The Space frame draws space
// even in the frame that has just entered a system.
void drawGameViewscreen(bool inSystem);
// Draws the open overlay window (cargo, star chart, configuration) and notes
// that it was shown; returns 1 when one was drawn, 0 when none is open.
int drawOverlayWindow();
// Redraws everything once in the first frame after an overlay window closed.
void redrawAfterOverlay();
// Draws the cargo window over the screen and notes that it was shown.
void drawCargoWindow();
void drawFrameRate();
