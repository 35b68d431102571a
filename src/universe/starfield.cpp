#include "universe/starfield.h"

#include "base/debug_log.h"
#include "platform/random.h"
#include "universe/navigation.h"

BackgroundStar* starlist = nullptr;

namespace {

constexpr int fieldSize = 600;
constexpr int initialStars = 500;

// A replacement or initial star: random depth and colour; the caller picks the place.
void addRandomStar(int X, int Y) {
  const int Z = 128 + nextRandom() % 128;
  const auto r = static_cast<std::uint8_t>(nextRandom() % 255);
  const auto g = static_cast<std::uint8_t>(nextRandom() % 255);
  const auto b = static_cast<std::uint8_t>(nextRandom() % 255);
  addStar(X, Y, Z, r, g, b);
}

void clearStars() {
  while (starlist) removeStar(starlist);
}

// Near stars (high Z) move faster: depth 128 moves a tenth of the ship's speed.
int depthDivisor(int Z) {
  const int d = 10 - (Z - 128) / 12;
  return d == 0 ? 1 : d;
}

// The field wraps: a star that leaves by one edge comes back in at the opposite one.
void replaceIfOutside(BackgroundStar* star) {
  if (star->X < 0) {
    removeStar(star);
    addRandomStar(fieldSize, nextRandom() % fieldSize);
  } else if (star->X > fieldSize) {
    removeStar(star);
    addRandomStar(0, nextRandom() % fieldSize);
  } else if (star->Y < 0) {
    removeStar(star);
    const int X = nextRandom() % fieldSize;
    addRandomStar(X, fieldSize);
  } else if (star->Y > fieldSize) {
    removeStar(star);
    const int X = nextRandom() % fieldSize;
    addRandomStar(X, 0);
  }
}

}  // namespace

void initBackgroundStars() {
  logMessage("Initializing background stars");
  clearStars();
  seedRandom(timeSeed());
  for (int i = 0; i < initialStars; ++i) {
    // X is drawn before Y: the order of the draws fixes the field for a seed.
    const int X = nextRandom() % fieldSize;
    const int Y = nextRandom() % fieldSize;
    addRandomStar(X, Y);
  }
}

void addStar(int X, int Y, int Z, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  auto* star = new BackgroundStar;
  star->X = static_cast<std::int16_t>(X);
  star->Y = static_cast<std::int16_t>(Y);
  star->Z = static_cast<std::int16_t>(Z);
  star->r = r;
  star->g = g;
  star->b = b;
  star->a = 255;
  star->next = starlist;
  star->prev = nullptr;
  if (starlist) starlist->prev = star;
  starlist = star;
}

void removeStar(BackgroundStar* star) {
  if (!star) return;
  if (star->prev) {
    star->prev->next = star->next;
  } else if (starlist == star) {
    starlist = star->next;
  }
  if (star->next) star->next->prev = star->prev;
  delete star;
}

void drawStars(SDL_Surface* surface, int velocityX, int velocityY) {
  if (!starlist) {
    logMessage("nothing in starlist from drawStars");
    return;
  }
  BackgroundStar* star = starlist;
  while (star) {
    // Replacements go to the head, so the rest of this pass never meets them.
    BackgroundStar* const following = star->next;
    int stepX, stepY;
    if (star->Z == 255) {
      stepX = 2 * velocityX;
      stepY = 2 * velocityY;
    } else {
      const int d = depthDivisor(star->Z);
      stepX = velocityX / d;
      stepY = velocityY / d;
    }
    const int oldX = star->X, oldY = star->Y;
    star->X = static_cast<std::int16_t>(star->X + stepX);
    star->Y = static_cast<std::int16_t>(star->Y + stepY);
    if (surface) fadingLine(surface, oldX, oldY, star->X, star->Y, star->r, star->g, star->b);
    replaceIfOutside(star);
    star = following;
  }
}

int starCount() {
  int count = 0;
  for (const BackgroundStar* star = starlist; star; star = star->next) ++count;
  return count;
}
