#pragma once

// The speed and heading controls (run by the frame loop while maneuverOn is set and no history window is shown).
void applyFlightControls();

// The system cell the ship enters at for a heading (0..355).
void systemEntryCell(int heading, int& ex, int& ey);
// The system cell of planet lane `lane` at an orbit angle.
void planetCell(int lane, int orbitAngle, int& px, int& py);
