#include "surface/rover.h"

#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "base/debug_log.h"
#include "base/message_window.h"
#include "platform/random.h"
#include "platform/surface_ptr.h"
#include "ship/ship.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"
#include "universe/viewscreen.h"

std::array<ExhaustStreak, exhaustStreakCount> exhaustStreaks;

namespace {

std::uint8_t altitude = 0;

constexpr int viewColumns = 30;
constexpr int viewRows = 21;
constexpr int tileSize = 10;
constexpr int roverLeft = 140;
constexpr int roverTop = 87;
constexpr int maxPositionX = 3590;
constexpr int maxPositionY = 1790;

int wrap(int value, int size) { return ((value % size) + size) % size; }

bool onMap(const MineralDeposit& d) { return d.x >= 0 && d.x < terrainWidth && d.y >= 0 && d.y < terrainHeight; }

// The deposits in view, bucketed by tile in list order (a counting sort by
// tile), rebuilt each frame with one walk of the list; a frame then looks at
// each tile's own deposits instead of the whole list 630 times.
struct ViewIndex {
  std::array<int, viewColumns * viewRows + 1> start{};
  std::vector<int> order;
  std::vector<std::pair<int, int>> inView;  // (deposit, tile) in list order

  void build(const MineralDepositList& deposits, int X, int Y) {
    start.fill(0);
    inView.clear();
    const int left = X - viewColumns / 2, top = Y - viewRows / 2;
    for (std::size_t i = 0; i < deposits.size(); ++i) {
      const MineralDeposit& d = deposits[i];
      if (!onMap(d)) continue;
      // Both lie within one map width (or height) of the view's corner.
      int a = d.x - left;
      if (a < 0) a += terrainWidth;
      if (a >= terrainWidth) a -= terrainWidth;
      if (a >= viewColumns) continue;
      int b = d.y - top;
      if (b < 0) b += terrainHeight;
      if (b >= terrainHeight) b -= terrainHeight;
      if (b >= viewRows) continue;
      const int tile = a * viewRows + b;
      inView.emplace_back(static_cast<int>(i), tile);
      start[tile + 1] += 1;
    }
    for (std::size_t t = 1; t < start.size(); ++t) start[t] += start[t - 1];
    order.assign(inView.size(), 0);
    std::array<int, viewColumns * viewRows> fill{};
    for (const auto& [index, tile] : inView) order[start[tile] + fill[tile]++] = index;
  }
};

ViewIndex viewIndex;

void drawDepositMarkerShapes(SDL_Surface* view, int cx, int cy, std::uint8_t kind) {
  filledCircleColor(view, cx, cy, 4, mineralColor(kind, 128));
  circleRGBA(view, cx, cy, 4, 128, 128, 128, 128);
  circleColor(view, cx, cy, 3, mineralColor(kind, 255));
}

// A marker covers the 9 x 9 pixels around its tile's centre. On a plain tile
// (every landed frame: the boxes are opaque) what it leaves depends only on
// the tile's pixel and the mineral, so each such pair is drawn once with the
// library's own circles on a scratch block and copied from then on: a view
// full of deposits costs 630 small copies instead of 1,890 blended circles.
constexpr int markerSize = 9;
using MarkerBlock = std::array<Uint32, markerSize * markerSize>;

struct MarkerCache {
  std::unordered_map<std::uint64_t, MarkerBlock> blocks;
  SurfacePtr scratch;
  Uint32 formatKey[4] = {};

  const MarkerBlock* find(SDL_Surface* view, Uint32 under, std::uint8_t kind) {
    const SDL_PixelFormat* f = view->format;
    if (!scratch || formatKey[0] != f->Rmask || formatKey[1] != f->Gmask || formatKey[2] != f->Bmask ||
        formatKey[3] != f->Amask) {
      blocks.clear();
      scratch.reset(
          SDL_CreateRGBSurface(SDL_SWSURFACE, markerSize, markerSize, 32, f->Rmask, f->Gmask, f->Bmask, f->Amask));
      if (!scratch) return nullptr;
      formatKey[0] = f->Rmask, formatKey[1] = f->Gmask, formatKey[2] = f->Bmask, formatKey[3] = f->Amask;
    }
    const std::uint64_t key = (std::uint64_t{under} << 8) | kind;
    if (auto it = blocks.find(key); it != blocks.end()) return &it->second;
    if (blocks.size() > 8192) blocks.clear();  // many planets later; start over rather than grow
    SDL_FillRect(scratch.get(), nullptr, under);
    drawDepositMarkerShapes(scratch.get(), markerSize / 2, markerSize / 2, kind);
    MarkerBlock block;
    for (int y = 0; y < markerSize; ++y)
      for (int x = 0; x < markerSize; ++x) block[y * markerSize + x] = pixelAt(scratch.get(), x, y);
    return &blocks.emplace(key, block).first->second;
  }

  static Uint32& pixelAt(SDL_Surface* s, int x, int y) {
    return *reinterpret_cast<Uint32*>(static_cast<Uint8*>(s->pixels) + y * s->pitch + x * 4);
  }
};

MarkerCache markerCache;

// The block under a marker centred at (cx, cy), clipped to the view; whether it
// is one plain pixel value, and which.
bool plainUnder(SDL_Surface* view, int cx, int cy, Uint32& under) {
  const int r = markerSize / 2;
  const int x0 = std::max(cx - r, 0), x1 = std::min(cx + r, view->w - 1);
  const int y0 = std::max(cy - r, 0), y1 = std::min(cy + r, view->h - 1);
  if (x0 > x1 || y0 > y1) return false;
  under = MarkerCache::pixelAt(view, x0, y0);
  for (int y = y0; y <= y1; ++y)
    for (int x = x0; x <= x1; ++x)
      if (MarkerCache::pixelAt(view, x, y) != under) return false;
  return true;
}

void drawDepositMarker(SDL_Surface* view, int cx, int cy, std::uint8_t kind) {
  Uint32 under = 0;
  const MarkerBlock* block = nullptr;
  if (view->format->BytesPerPixel == 4 && !SDL_MUSTLOCK(view) && view->clip_rect.x == 0 && view->clip_rect.y == 0 &&
      view->clip_rect.w == view->w && view->clip_rect.h == view->h && plainUnder(view, cx, cy, under)) {
    block = markerCache.find(view, under, kind);
  }
  if (!block) {
    drawDepositMarkerShapes(view, cx, cy, kind);
    return;
  }
  const int r = markerSize / 2;
  for (int y = 0; y < markerSize; ++y) {
    const int vy = cy - r + y;
    if (vy < 0 || vy >= view->h) continue;
    for (int x = 0; x < markerSize; ++x) {
      const int vx = cx - r + x;
      if (vx >= 0 && vx < view->w) MarkerCache::pixelAt(view, vx, vy) = (*block)[y * markerSize + x];
    }
  }
}

void blitRover(SDL_Surface* view, int headingIndex) {
  SDL_Surface* image = shipImages[roverImageBase + headingIndex];
  if (!image) return;
  SDL_Rect at{roverLeft, roverTop, 0, 0};
  SDL_BlitSurface(image, nullptr, view, &at);
}

// The streaks hang below the rover: its picture is centred on the rover's point,
// (150, 400) on the screen, and reaches 7 rows below it.
constexpr int streakTop = 408, streakBottom = 433;

void drawStreak(SDL_Surface* screen, const ExhaustStreak& s) {
  const Uint8 alpha = static_cast<Uint8>(255 - 25 * s.age);
  vlineRGBA(screen, static_cast<Sint16>(150 + s.offset), streakTop, streakBottom, 128, 128, 255, alpha);
}

}  // namespace

bool collectDeposit(MineralDeposit& deposit) {
  Ship& ship = playerShip;
  const std::uint8_t m = deposit.kind;
  if (m >= mineralCount) {
    logMessagef("collectDeposit: no mineral %d; the deposit stays", m);
    return false;
  }
  // All of it, or what the hold still has room for; the rest stays for later.
  const float taken = storeCargo(ship.roverHold, ship.roverHoldFree, m, deposit.amount);
  if (!(taken > 0.0f)) return false;
  deposit.amount -= taken;
  showMessagef("Collected %.2fcu of %s", taken, mineralName(m));
  return true;
}

void drawSurfaceView(SDL_Surface* screen, Planet* planet, int alpha, int headingIndex, int dx, int dy,
                     MineralDepositList& deposits) {
  alpha = std::clamp(alpha, 0, 255);
  headingIndex = wrap(headingIndex, shipImageCount - roverImageBase);
  SDL_Surface* view = surfaceWorkSurface;
  if (view && alpha < 255) blitRover(view, headingIndex);

  // Leaving one edge puts the rover on the far edge itself, as it always has.
  roverPosition.x -= dx;
  roverPosition.y -= dy;
  if (roverPosition.x < 0) roverPosition.x = maxPositionX;
  if (roverPosition.x > maxPositionX) roverPosition.x = 0;
  if (roverPosition.y < 0) roverPosition.y = maxPositionY;
  if (roverPosition.y > maxPositionY) roverPosition.y = 0;
  landingSite = SurfacePoint{roverPosition.x / 10, roverPosition.y / 10};
  const int X = landingSite.x, Y = landingSite.y;
  const int rx = roverPosition.x % 10, ry = roverPosition.y % 10;

  viewIndex.build(deposits, X, Y);
  // The rover's cell is tile (15, 10). Collection empties a deposit or the
  // hold, so each deposit there is taken in list order before any tile is drawn,
  // exactly once a frame, and a deposit taken whole is no longer drawn.
  const int roverTile = (viewColumns / 2) * viewRows + viewRows / 2;
  for (int k = viewIndex.start[roverTile]; k < viewIndex.start[roverTile + 1]; ++k) {
    collectDeposit(deposits[viewIndex.order[k]]);
  }

  if (view) {
    const ShadeTable shades = planetShadeTable(planet);
    for (int a = 0; a < viewColumns; ++a) {
      const int cx = wrap(X + a - viewColumns / 2, terrainWidth);
      for (int b = 0; b < viewRows; ++b) {
        const int cy = wrap(Y + b - viewRows / 2, terrainHeight);
        const int left = tileSize * a - rx, top = tileSize * b - ry;
        const std::uint32_t shade = shades[terrain.cells[cx * terrainHeight + cy]];
        boxColor(view, left, top, left + tileSize, top + tileSize, (shade << 8) | static_cast<Uint32>(alpha));
        const int tile = a * viewRows + b;
        for (int k = viewIndex.start[tile]; k < viewIndex.start[tile + 1]; ++k) {
          const MineralDeposit& d = deposits[viewIndex.order[k]];
          if (d.amount > 0.0f) drawDepositMarker(view, left + 5, top + 5, d.kind);
        }
      }
    }
    if (alpha == 255) blitRover(view, headingIndex);
    if (screen) {
      SDL_Rect source = surfaceSourceRect;
      SDL_Rect dest = surfaceDestPoint;
      SDL_BlitSurface(view, &source, screen, &dest);
    }
  }
}

void drawLandingSequence(SDL_Surface* screen, Planet* planet, int descending, int headingIndex,
                         MineralDepositList& deposits) {
  drawSurfaceView(screen, planet, altitude, headingIndex, 0, 0, deposits);
  altitude = static_cast<std::uint8_t>(descending == 1 ? altitude - 5 : altitude + 5);
  const bool step = altitude % 10 == 0;
  for (ExhaustStreak& s : exhaustStreaks) {
    if (step) {
      if (s.age == 15) {
        s.age = static_cast<std::int8_t>(nextRandom() % 15);
        s.offset = static_cast<std::int8_t>(nextRandom() % 7);
        if (nextRandom() % 10 < 5) {
          s.offset = static_cast<std::int8_t>(-s.offset);
          s.drift = 1;
        } else {
          s.drift = 0;
        }
        continue;  // a new streak shows from the next frame on
      }
      s.offset = static_cast<std::int8_t>(s.offset + (s.drift == 1 ? 1 : -1));
      s.age = static_cast<std::int8_t>(s.age + 1);
    }
    if (screen) drawStreak(screen, s);
  }
}

void setAltitude(int a) {
  altitude = static_cast<std::uint8_t>(std::clamp(a, 0, 255));
  for (ExhaustStreak& s : exhaustStreaks) s.age = 10;
}

int getAltitude() { return altitude; }

void transferRoverCargo() {
  Ship& ship = playerShip;
  for (int m = 0; m < mineralCount; ++m) {
    const float moved = storeCargo(ship.shipHold, ship.shipHoldFree, m, ship.roverHold[m]);
    ship.roverHold[m] -= moved;
    ship.roverHoldFree += moved;
  }
}
