#include "base/screen.h"

#include <cmath>

SDL_Surface* screen = nullptr;
double sinTable[360];
double cosTable[360];

void fillTrigTables() {
  for (int i = 0; i < 360; ++i) {
    const float fraction = static_cast<float>(i) / 180.0f;
    const double angle = fraction * 3.14;
    sinTable[i] = std::sin(angle);
    cosTable[i] = std::cos(angle);
  }
  // No entry may be exactly 1.
  cosTable[0] = 0.999999999;
}
