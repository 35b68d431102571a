// Draws the desktop icon: the game's own ship sprite on a small field of stars,
// written as a 64 x 64 XPM (plain text, which desktop menus read and which
// needs no image encoder that SDL 1.2 lacks).
//
//   make_icon <ship sprite .bmp> <output .xpm>
#include <SDL.h>
#include <SDL_gfxPrimitives.h>
#include <SDL_image.h>
#include <SDL_rotozoom.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int iconSize = 64;

Uint32 pixelAt(SDL_Surface* s, int x, int y) {
  return *reinterpret_cast<Uint32*>(static_cast<Uint8*>(s->pixels) + y * s->pitch + x * 4);
}

// Two characters a pixel: 92 printable characters give room for every colour.
std::string code(int index) {
  static const char chars[] =
      " .XoO+@#$%&*=-;:>,<1234567890qwertyuipasdfghjklzxcvbnmMNBVCZASDFGHJKLPIUYTREWQ!~^/()_`'][{}|";
  const int n = sizeof chars - 1;
  return {chars[index % n], chars[(index / n) % n]};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_icon <ship sprite .bmp> <output .xpm>\n");
    return 2;
  }
  SDL_Surface* sprite = IMG_Load(argv[1]);
  if (!sprite) {
    std::fprintf(stderr, "make_icon: couldn't load %s: %s\n", argv[1], IMG_GetError());
    return 1;
  }
  SDL_Surface* icon =
      SDL_CreateRGBSurface(SDL_SWSURFACE, iconSize, iconSize, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000);
  SDL_Surface* ship =
      SDL_CreateRGBSurface(SDL_SWSURFACE, sprite->w, sprite->h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0);
  if (!icon || !ship) return 1;
  SDL_BlitSurface(sprite, nullptr, ship, nullptr);
  const double zoom = (iconSize - 14.0) / (sprite->w > sprite->h ? sprite->w : sprite->h);
  SDL_Surface* big = zoomSurface(ship, zoom, zoom, SMOOTHING_OFF);
  if (!big) return 1;

  // A round night sky with a few fixed stars, transparent outside the disc.
  SDL_FillRect(icon, nullptr, 0);
  filledCircleRGBA(icon, 31, 31, 31, 8, 10, 40, 255);
  aacircleRGBA(icon, 31, 31, 31, 164, 164, 255, 255);
  const int stars[][2] = {{14, 20}, {48, 14}, {20, 47}, {50, 44}, {33, 8}, {10, 33}, {55, 30}, {40, 55}};
  for (const auto& s : stars) pixelRGBA(icon, s[0], s[1], 255, 255, 230, 255);
  SDL_LockSurface(big);
  SDL_LockSurface(icon);
  const int ox = (iconSize - big->w) / 2, oy = (iconSize - big->h) / 2;
  for (int y = 0; y < big->h; ++y) {
    for (int x = 0; x < big->w; ++x) {
      const Uint32 p = pixelAt(big, x, y) & 0x00FFFFFF;
      const int ix = ox + x, iy = oy + y;
      // Black is the sprite's transparent colour, as in the game.
      if (p == 0 || ix < 0 || iy < 0 || ix >= iconSize || iy >= iconSize) continue;
      *reinterpret_cast<Uint32*>(static_cast<Uint8*>(icon->pixels) + iy * icon->pitch + ix * 4) = 0xFF000000 | p;
    }
  }

  // Colours as "#RRGGBB" (or None where the icon is clear), then the rows.
  std::map<Uint32, int> palette;
  std::vector<std::string> rows;
  for (int y = 0; y < iconSize; ++y) {
    std::string row;
    for (int x = 0; x < iconSize; ++x) {
      Uint32 p = pixelAt(icon, x, y);
      p = (p >> 24) < 128 ? 0 : (p | 0xFF000000);
      auto [it, added] = palette.try_emplace(p, static_cast<int>(palette.size()));
      row += code(it->second);
    }
    rows.push_back(row);
  }
  SDL_UnlockSurface(icon);
  SDL_UnlockSurface(big);

  std::FILE* out = std::fopen(argv[2], "w");
  if (!out) {
    std::fprintf(stderr, "make_icon: couldn't write %s\n", argv[2]);
    return 1;
  }
  std::fprintf(out, "/* XPM */\nstatic char *prospector[] = {\n\"%d %d %zu 2\",\n", iconSize, iconSize, palette.size());
  std::vector<std::pair<int, Uint32>> byIndex;
  for (const auto& [colour, index] : palette) byIndex.emplace_back(index, colour);
  std::sort(byIndex.begin(), byIndex.end());
  for (const auto& [index, colour] : byIndex) {
    if (colour == 0) {
      std::fprintf(out, "\"%s c None\",\n", code(index).c_str());
    } else {
      std::fprintf(out, "\"%s c #%06X\",\n", code(index).c_str(), colour & 0x00FFFFFF);
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::fprintf(out, "\"%s\"%s\n", rows[i].c_str(), i + 1 < rows.size() ? "," : "");
  }
  std::fprintf(out, "};\n");
  const bool ok = std::fclose(out) == 0;
  SDL_FreeSurface(big);
  SDL_FreeSurface(ship);
  SDL_FreeSurface(icon);
  SDL_FreeSurface(sprite);
  return ok ? 0 : 1;
}
