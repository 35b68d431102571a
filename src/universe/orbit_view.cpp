#include "universe/orbit_view.h"

#include <SDL_gfxPrimitives.h>

#include "platform/surface_ptr.h"
#include "universe/navigation.h"
#include "universe/star_map.h"

int orbitAlpha = 0;

namespace {

constexpr int centreX = 140;
constexpr int centreY = 122;
constexpr int starX = 128;
constexpr int starY = 111;

// Angles come from the data; a stray one must still index the tables.
int wrapDegrees(int angle) { return ((angle % 360) + 360) % 360; }

void blitAt(SDL_Surface* image, SDL_Surface* target, int x, int y) {
  if (!image) return;
  SDL_Rect where{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
  SDL_BlitSurface(image, nullptr, target, &where);
}

void drawLanes(SDL_Surface* plan, const StellarObject& object, const double* sinTable, const double* cosTable) {
  for (int lane = 0; lane < maxPlanets; ++lane) {
    const Planet* planet = object.Planets[lane];
    if (!planet) continue;
    const int a = wrapDegrees(planet->OrbitAngle);
    const double s = sinTable[a], c = cosTable[a];
    circleRGBA(plan, centreX, centreY, static_cast<Sint16>(10 * lane + 20), 255, 255, 255, 255);
    // The same point the viewscreen puts the planet at, less half the icon; kept in
    // this order so the truncation lands where it always has (lane 0 at angle 0 on y 137).
    const int x = static_cast<int>(10 * lane * s + 135 + 20 * s);
    const int y = static_cast<int>(240 - (122 - 10 * lane * c - 20 * c));
    blitAt(planet->OrbitImage, plan, x, y);
  }
}

// One step of the pulse shared with the star chart: up by 10 to 240, down to 60.
void stepPulse() {
  if (blinkRising) {
    orbitAlpha += 10;
    if (orbitAlpha >= 240) blinkRising = false;
  } else {
    orbitAlpha -= 10;
    if (orbitAlpha <= 60) blinkRising = true;
  }
}

}  // namespace

void drawOrbitView(SDL_Surface* screen, StellarObject* object, const double* sinTable, const double* cosTable,
                   int shipX, int shipY) {
  SurfacePtr plan(SDL_CreateRGBSurface(SDL_SWSURFACE, orbitViewWidth, orbitViewHeight, 32, 0, 0, 0, 0));
  if (!plan) return;
  if (object) {
    blitAt(smallStarImage(object->Class), plan.get(), starX, starY);
    if (sinTable && cosTable) drawLanes(plan.get(), *object, sinTable, cosTable);
  }
  filledCircleRGBA(plan.get(), static_cast<Sint16>(shipX), static_cast<Sint16>(orbitViewHeight - shipY), 2, 255, 255,
                   255, static_cast<Uint8>(orbitAlpha));
  stepPulse();
  if (screen) blitAt(plan.get(), screen, orbitViewX, orbitViewY);
}
