#pragma once
#include <SDL.h>

#include <cstdint>

struct BackgroundStar {
  std::int16_t X = 0;
  std::int16_t Y = 0;
  std::int16_t Z = 0;
  std::uint8_t r = 0, g = 0, b = 0, a = 255;
  BackgroundStar* next = nullptr;
  BackgroundStar* prev = nullptr;
};

// Head of the list: the newest star.
extern BackgroundStar* starlist;

void initBackgroundStars();
void addStar(int X, int Y, int Z, std::uint8_t r, std::uint8_t g, std::uint8_t b);
void removeStar(BackgroundStar* star);
void drawStars(SDL_Surface* surface, int velocityX, int velocityY);
int starCount();
