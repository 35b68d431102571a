// Draws the ten star images the viewscreen and the orbit view show, one per
// kind of stellar object, into the directory given on the command line.
//
// Every image is 48 x 48 on black; black is the colour key, so only the star
// shows over the starfield. Pixels that must show dark use (1, 1, 1).
#include <SDL.h>
#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr int canvasSize = 48;
constexpr int centre = 24;

struct Rgb {
  int r, g, b;
};

// A main-sequence star or a white dwarf: a bright disc inside a soft glow.
struct GlowingStar {
  const char* file;
  int coreRadius;
  int glowRadius;
  Rgb core;
  Rgb glow;
  int spikes;  // length of the four diffraction spikes; 0 for none
};

const GlowingStar glowingStars[] = {
    {"M.bmp", 5, 11, {255, 150, 90}, {225, 70, 25}, 0},
    {"K.bmp", 7, 14, {255, 195, 125}, {240, 120, 45}, 0},
    {"G.bmp", 8, 16, {255, 242, 175}, {255, 190, 80}, 0},
    {"F.bmp", 10, 18, {255, 252, 228}, {250, 230, 160}, 0},
    {"A.bmp", 11, 20, {242, 246, 255}, {185, 205, 255}, 22},
    {"B.bmp", 13, 22, {205, 222, 255}, {125, 165, 255}, 23},
    {"O.bmp", 15, 23, {180, 205, 255}, {85, 125, 255}, 23},
    {"WhiteDrawf.bmp", 3, 8, {245, 250, 255}, {165, 200, 255}, 0},
};

SDL_Surface* newCanvas() {
  // 32-bit XRGB with no alpha channel, so black is the pixel value 0.
  return SDL_CreateRGBSurface(SDL_SWSURFACE, canvasSize, canvasSize, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0);
}

Uint8 byte(int v) { return static_cast<Uint8>(std::clamp(v, 0, 255)); }

// A radial glow built from stacked translucent discs: each smaller disc adds
// to the ones under it, so the light rises smoothly towards the centre.
void drawGlow(SDL_Surface* s, int outer, int inner, Rgb colour, int peakAlpha) {
  for (int r = outer; r > inner; --r) {
    const double t = static_cast<double>(outer - r) / std::max(1, outer - inner);
    const int alpha = static_cast<int>(4 + peakAlpha * t * t);
    filledCircleRGBA(s, centre, centre, r, byte(colour.r), byte(colour.g), byte(colour.b), byte(alpha));
  }
}

void drawSpikes(SDL_Surface* s, int length, Rgb colour) {
  for (int d = 1; d <= length; ++d) {
    const int alpha = 150 * (length - d) / length;
    const Uint8 r = byte(colour.r), g = byte(colour.g), b = byte(colour.b), a = byte(alpha);
    pixelRGBA(s, centre + d, centre, r, g, b, a);
    pixelRGBA(s, centre - d, centre, r, g, b, a);
    pixelRGBA(s, centre, centre + d, r, g, b, a);
    pixelRGBA(s, centre, centre - d, r, g, b, a);
  }
}

void drawGlowingStar(SDL_Surface* s, const GlowingStar& star) {
  drawGlow(s, star.glowRadius, star.coreRadius, star.glow, 80);
  if (star.spikes) drawSpikes(s, star.spikes, star.core);
  filledCircleRGBA(s, centre, centre, star.coreRadius, byte(star.core.r), byte(star.core.g), byte(star.core.b), 255);
  aacircleRGBA(s, centre, centre, star.coreRadius, byte(star.core.r), byte(star.core.g), byte(star.core.b), 160);
  // Brighter towards the middle (the limb darkens), so the disc reads as a sphere of hot gas.
  drawGlow(s, star.coreRadius - 1, 0, {255, 255, 255}, 40);
}

// A tiny, hard blue-white point with a faint halo and sharp spikes.
void drawNeutronStar(SDL_Surface* s) {
  drawGlow(s, 6, 2, {120, 170, 255}, 70);
  drawSpikes(s, 12, {200, 225, 255});
  filledCircleRGBA(s, centre, centre, 2, 225, 240, 255, 255);
  pixelRGBA(s, centre, centre, 255, 255, 255, 255);
}

// A dark disc ringed by light, in front of a tilted, glowing accretion disc.
void drawBlackHole(SDL_Surface* s) {
  // The accretion disc, wide and flat, hotter towards its inner edge.
  for (int rx = 22; rx > 9; --rx) {
    const int ry = std::max(2, rx / 4);
    const int alpha = 20 + (22 - rx) * 10;
    filledEllipseRGBA(s, centre, centre, rx, ry, 255, byte(120 + (22 - rx) * 8), byte(40 + (22 - rx) * 6), byte(alpha));
  }
  // Light bent over the top and bottom of the hole: the bright photon ring.
  drawGlow(s, 13, 9, {255, 190, 110}, 120);
  filledCircleRGBA(s, centre, centre, 9, 255, 235, 200, 255);
  // The hole itself: near-black, so it hides the stars behind it instead of letting them through.
  filledCircleRGBA(s, centre, centre, 8, 1, 1, 1, 255);
  // The near side of the disc crosses in front of the hole.
  for (int rx = 16; rx > 8; --rx) {
    hlineRGBA(s, centre - rx, centre + rx, centre + 1, 255, byte(150 + (16 - rx) * 12), 90, byte(60 + (16 - rx) * 20));
  }
  hlineRGBA(s, centre - 12, centre + 12, centre, 255, 220, 160, 140);
}

bool save(SDL_Surface* s, const std::string& directory, const char* file) {
  const std::string path = directory + "/" + file;
  if (SDL_SaveBMP(s, path.c_str()) != 0) {
    std::fprintf(stderr, "make_star_images: can't write %s: %s\n", path.c_str(), SDL_GetError());
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: make_star_images <directory>\n");
    return 2;
  }
  const std::string directory = argv[1];
  bool ok = true;
  for (const GlowingStar& star : glowingStars) {
    SDL_Surface* s = newCanvas();
    drawGlowingStar(s, star);
    ok = save(s, directory, star.file) && ok;
    SDL_FreeSurface(s);
  }
  SDL_Surface* s = newCanvas();
  drawNeutronStar(s);
  ok = save(s, directory, "NeutronStar.bmp") && ok;
  SDL_FreeSurface(s);
  s = newCanvas();
  drawBlackHole(s);
  ok = save(s, directory, "BlackHole.bmp") && ok;
  SDL_FreeSurface(s);
  return ok ? 0 : 1;
}
