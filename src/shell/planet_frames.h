#pragma once

struct Planet;

// What the Orbit and Surface frames share.

// Science, Analysis: puts the four analysis lines into the message window once
// and deselects the item.
void showAnalysisOnce();
// The cargo window is the only overlay in orbit and on the surface: draws it
// and returns true while it is open; redraws everything once after it closed.
bool drawCargoOverlay();
// The top right pane: the turning wire globe and one step of a running sensor
// sweep, or the ship's status when Science, Status shows it.
void drawPlanetPane(Planet& planet);
