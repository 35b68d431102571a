#include "shell/flight.h"
// placeholder
void runSpaceFrame() {}
void runSystemFrame() {}
void applyFlightControls() {}
void leaveOrbit() {}
void systemEntryCell(int, int& ex, int& ey) { ex = ey = 0; }
void planetCell(int, int, int& px, int& py) { px = py = 0; }
