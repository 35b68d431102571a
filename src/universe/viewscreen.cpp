#include "universe/viewscreen.h"

#include <SDL_gfxPrimitives.h>

#include <cstdio>
#include <memory>

#include "base/debug_log.h"
#include "platform/surface_ptr.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "universe/starfield.h"
#include "universe/viewing_tree.h"

SDL_Surface* surfaceWorkSurface = nullptr;
SDL_Rect surfaceSourceRect = {10, 10, 280, 190};
SDL_Rect surfaceDestPoint = {10, 310, 0, 0};
SDL_Surface* (*viewscreenStarImage)(const char* classText) = starImage;

namespace {

constexpr int paneSize = 500;
constexpr int paneX = 5, paneY = 5;
constexpr int cellSize = 50;
// The last position offset that still lies on the map: cell 499, fraction 49.
constexpr int lastOffset = starMapSize * cellSize - 1;

// The ship image for each of the 72 headings, 5 degrees apart; set by initGameWindow.
constexpr int headingImages = 72;
SDL_Surface** viewShipImages = nullptr;
FontTable* viewFonts = nullptr;
Ship* viewShip = nullptr;

SDL_Surface* makeSurface(int w, int h, SDL_Surface* like) {
  const SDL_PixelFormat* f = like ? like->format : nullptr;
  return SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, f ? f->Rmask : 0x00FF0000, f ? f->Gmask : 0x0000FF00,
                              f ? f->Bmask : 0x000000FF, 0);
}

// Blits whatever part of an image falls on the pane; images far off it are skipped
// before their corner could overflow SDL's 16-bit rectangle.
void blitOnPane(SDL_Surface* image, SDL_Surface* pane, long x, long y) {
  if (!image) return;
  if (x >= paneSize || y >= paneSize || x + image->w <= 0 || y + image->h <= 0) return;
  SDL_Rect at{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
  SDL_BlitSurface(image, nullptr, pane, &at);
}

void drawShip(SDL_Surface* pane, int shipImageIndex) {
  if (shipImageIndex < 0 || shipImageIndex >= headingImages || !viewShipImages) return;
  blitOnPane(viewShipImages[shipImageIndex], pane, 225, 225);
}

// The header uses whatever font the other views left current; before any view
// has chosen one, the ordinary text font stands in.
void printHeader(SDL_Surface* pane, int column, int row) {
  if (!currentFont()) {
    FontTable* fonts = viewFonts ? viewFonts : &fontTable;
    if (!fonts->fonts[2]) return;
    setCurrentFont(fonts->fonts[2]);
  }
  // A star in the top row of the view would sit behind the read-out and break
  // up its letters, so the read-out gets a black backing of its own size.
  char text[32];
  std::snprintf(text, sizeof text, "X:%d  Y:%d", column, row);
  const int w = textWidth(text), h = fontHeight(currentFont());
  const int x = pane->w / 2 - w / 2;
  boxRGBA(pane, static_cast<Sint16>(x - 2), 14, static_cast<Sint16>(x + w + 1), static_cast<Sint16>(15 + h), 0, 0, 0,
          255);
  centeredPrint(pane, 15, "%s", text);
}

int clampOffset(int offset) { return offset < 0 ? 0 : (offset > lastOffset ? lastOffset : offset); }

void drawSpaceObjects(SDL_Surface* pane, StarMap& map, int offsetX, int offsetY) {
  const int cx = offsetX / cellSize, cy = offsetY / cellSize;
  const int fx = offsetX % cellSize, fy = offsetY % cellSize;
  for (const ViewNode* node = map[cx][cy].viewList; node; node = node->next) {
    if (node->x < 0 || node->x >= starMapSize || node->y < 0 || node->y >= starMapSize) continue;
    const StellarObject* object = map[node->x][node->y].object;
    if (!object) continue;
    const long x = static_cast<long>(node->x - cx + 5) * cellSize - fx;
    const long y = 501 - static_cast<long>(node->y - cy + 6) * cellSize + fy;
    blitOnPane(viewscreenStarImage(object->Class), pane, x, y);
  }
}

void drawSystemPlanets(SDL_Surface* pane, StellarObject* object, int systemX, int systemY, const double* sinTable,
                       const double* cosTable) {
  if (!object || !sinTable || !cosTable) return;
  for (int i = 0; i < maxPlanets; ++i) {
    const Planet* p = object->Planets[i];
    if (!p) continue;
    const int a = ((p->OrbitAngle % 360) + 360) % 360;
    const double s = sinTable[a], c = cosTable[a];
    const double u = 10 * i * s + 140 + 20 * s;
    const double v = 122 - 10 * i * c - 20 * c;
    const double px = (u - systemX / cellSize + 5) * cellSize - (systemX % cellSize);
    const double py = paneSize - (v - systemY / cellSize + 5) * cellSize + (systemY % cellSize);
    // Planets far outside the pane are neither blitted nor outlined.
    if (px < -100 || py < -100 || px > paneSize + 100 || py > paneSize + 100) continue;
    if (p->ViewImage) {
      const int w = p->ViewImage->w / 2, h = p->ViewImage->h / 2;
      blitOnPane(p->ViewImage, pane, static_cast<long>(px - w), static_cast<long>(py - h));
    }
    rectangleRGBA(pane, static_cast<Sint16>(px - 25), static_cast<Sint16>(py - 25), static_cast<Sint16>(px + 25),
                  static_cast<Sint16>(py + 25), 0, 255, 128, 255);
  }
}

}  // namespace

void initGameWindow(SDL_Surface** images, FontTable* fonts, Ship* ship) {
  logMessage("Initializing Game Window");
  viewShipImages = images;
  viewFonts = fonts;
  viewShip = ship;
  initBackgroundStars();
  if (surfaceWorkSurface) SDL_FreeSurface(surfaceWorkSurface);
  surfaceWorkSurface = makeSurface(300, 210, SDL_GetVideoSurface());
  if (!surfaceWorkSurface) logMessagef("Couldn't create the surface map's work surface: %s", SDL_GetError());
  surfaceSourceRect = SDL_Rect{10, 10, 280, 190};
  surfaceDestPoint = SDL_Rect{10, 310, 0, 0};
}

void drawViewscreen(SDL_Surface* screen, int velocityX, int velocityY, int shipImageIndex, int offsetX, int offsetY,
                    StarMap& map, int systemX, int systemY, StellarObject* object, int inSystem, const double* sinTable,
                    const double* cosTable) {
  SurfacePtr pane(makeSurface(paneSize, paneSize, screen));
  if (!pane) return;
  drawStars(pane.get(), velocityX, velocityY);
  // Off the map (below 300, or in the frame after passing cell 499) the pane shows
  // the nearest edge of the map, so no cell outside the grid is ever looked up.
  if (inSystem) {
    drawSystemPlanets(pane.get(), object, systemX, systemY, sinTable, cosTable);
    drawShip(pane.get(), shipImageIndex);
    printHeader(pane.get(), offsetX / cellSize, offsetY / cellSize);
  } else {
    offsetX = clampOffset(offsetX);
    offsetY = clampOffset(offsetY);
    drawSpaceObjects(pane.get(), map, offsetX, offsetY);
    drawShip(pane.get(), shipImageIndex);
    printHeader(pane.get(), offsetX / cellSize, offsetY / cellSize);
  }
  if (screen) {
    SDL_Rect at{paneX, paneY, 0, 0};
    SDL_BlitSurface(pane.get(), nullptr, screen, &at);
  }
}
