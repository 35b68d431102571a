#include "universe/starfield.h"
// placeholder
BackgroundStar* starlist = nullptr;
void initBackgroundStars() {}
void addStar(int, int, int, std::uint8_t, std::uint8_t, std::uint8_t) {}
void removeStar(BackgroundStar*) {}
void drawStars(SDL_Surface*, int, int) {}
int starCount() { return 0; }
