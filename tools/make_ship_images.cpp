// Draws the ship pictures, the rover and the cargo window's arrow buttons.
//
//   make_ship_images <source data dir> <build data dir>
//
// For every ship file under <source>/Ships it writes <build>/Ships/<stem>.bmp
// (the ship seen from above, nose up) and <build>/Ships/<shipClass>_large.bmp
// (the blueprint shown by the configuration window). The blueprint's engines,
// shield generator, power plant and weapon mounts are drawn at the marker
// points of the ship file, read with the game's own parser, so the markers
// always sit on the parts they name. It also writes Ships/Rover.bmp and the six
// arrows under Buttons. Black is transparent wherever the game draws these, so
// dark pixels that must show use (1, 1, 1) or lighter.
#include <SDL.h>
#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/debug_log.h"
#include "ship/ship.h"

namespace fs = std::filesystem;

namespace {

struct Rgb {
  Uint8 r, g, b;
};

using SurfacePtr = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

SurfacePtr newSurface(int w, int h) {
  return SurfacePtr(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0),
                    &SDL_FreeSurface);
}

// Saved as 24-bit BMPs: a 32-bit BMP's spare byte can be taken for alpha by
// some loaders, which would make the whole picture invisible.
bool save(SDL_Surface* image, const fs::path& path) {
  SurfacePtr flat(SDL_CreateRGBSurface(SDL_SWSURFACE, image->w, image->h, 24, 0x00FF0000, 0x0000FF00, 0x000000FF, 0),
                  &SDL_FreeSurface);
  if (!flat || SDL_BlitSurface(image, nullptr, flat.get(), nullptr) != 0 ||
      SDL_SaveBMP(flat.get(), path.string().c_str()) != 0) {
    std::fprintf(stderr, "make_ship_images: couldn't write %s: %s\n", path.string().c_str(), SDL_GetError());
    return false;
  }
  return true;
}

// ---- Shapes in blueprint coordinates, shared by the blueprint and the sprite ----

// A polygon in blueprint pixels, drawn at any scale and offset.
struct Shape {
  std::vector<double> x, y;
};

struct Placement {
  double scale = 1.0;
  double dx = 0.0, dy = 0.0;
};

struct ScreenPolygon {
  std::vector<Sint16> xs, ys;
  int count() const { return static_cast<int>(xs.size()); }
};

ScreenPolygon placed(const Shape& shape, const Placement& p) {
  ScreenPolygon out;
  for (std::size_t i = 0; i < shape.x.size(); ++i) {
    out.xs.push_back(static_cast<Sint16>(std::lround(shape.x[i] * p.scale + p.dx)));
    out.ys.push_back(static_cast<Sint16>(std::lround(shape.y[i] * p.scale + p.dy)));
  }
  return out;
}

void fillShape(SDL_Surface* s, const Shape& shape, const Placement& p, Rgb c, Uint8 a = 255) {
  const ScreenPolygon poly = placed(shape, p);
  filledPolygonRGBA(s, poly.xs.data(), poly.ys.data(), poly.count(), c.r, c.g, c.b, a);
}

void outlineShape(SDL_Surface* s, const Shape& shape, const Placement& p, Rgb c, Uint8 a = 255) {
  const ScreenPolygon poly = placed(shape, p);
  polygonRGBA(s, poly.xs.data(), poly.ys.data(), poly.count(), c.r, c.g, c.b, a);
}

Shape mirrored(const Shape& shape, double axis) {
  Shape m = shape;
  for (double& x : m.x) x = 2 * axis - x;
  return m;
}

Shape rect(double x1, double y1, double x2, double y2) { return {{x1, x2, x2, x1}, {y1, y1, y2, y2}}; }

// The hull of the Surveyor class, nose up, centred on x = 260.
constexpr double centreX = 260.0;
const Shape forwardHull{{260, 282, 300, 306, 214, 220, 238}, {28, 60, 110, 172, 172, 110, 60}};
const Shape spine = rect(222, 170, 298, 432);
const Shape portWing{{222, 70, 60, 112, 222}, {270, 350, 372, 382, 396}};
const Shape starboardWing = mirrored(portWing, centreX);

// The cargo pods along the spine, two to a row, as many as the ship has holds
// (at most eight drawn).
std::vector<Shape> cargoPods(int holds) {
  std::vector<Shape> pods;
  const int shown = std::clamp(holds, 0, 8);
  for (int i = 0; i < shown; ++i) {
    const double top = 180 + 52 * (i / 2);
    pods.push_back(i % 2 == 0 ? rect(176, top, 218, top + 44) : rect(302, top, 344, top + 44));
  }
  return pods;
}

// An engine nacelle around its marker, the fusion chamber at the marker itself.
Shape nacelle(const MarkerPoint& m) { return rect(m.x - 18, m.y - 74, m.x + 18, m.y + 10); }
Shape nozzle(const MarkerPoint& m) {
  return {{m.x - 12.0, m.x + 12.0, m.x + 17.0, m.x - 17.0}, {m.y + 10.0, m.y + 10.0, m.y + 26.0, m.y + 26.0}};
}

// ---- The blueprint ----

constexpr int largeWidth = 520;
constexpr int largeHeight = 530;

const Rgb paper{14, 34, 80};
const Rgb gridMinor{22, 46, 100};
const Rgb gridMajor{38, 72, 134};
const Rgb panel{28, 62, 124};
const Rgb ink{170, 214, 255};
const Rgb bright{236, 246, 255};
const Rgb dim{90, 140, 200};
const Rgb amber{255, 196, 90};

void text(SDL_Surface* s, int x, int y, const std::string& t, Rgb c) {
  stringRGBA(s, static_cast<Sint16>(x), static_cast<Sint16>(y), t.c_str(), c.r, c.g, c.b, 255);
}

void drawPaper(SDL_Surface* s) {
  boxRGBA(s, 0, 0, largeWidth - 1, largeHeight - 1, paper.r, paper.g, paper.b, 255);
  for (int x = 0; x < largeWidth; x += 20) {
    const Rgb c = x % 100 == 0 ? gridMajor : gridMinor;
    vlineRGBA(s, static_cast<Sint16>(x), 0, largeHeight - 1, c.r, c.g, c.b, 255);
  }
  for (int y = 0; y < largeHeight; y += 20) {
    const Rgb c = y % 100 == 0 ? gridMajor : gridMinor;
    hlineRGBA(s, 0, largeWidth - 1, static_cast<Sint16>(y), c.r, c.g, c.b, 255);
  }
  rectangleRGBA(s, 3, 3, largeWidth - 4, largeHeight - 4, ink.r, ink.g, ink.b, 255);
  rectangleRGBA(s, 6, 6, largeWidth - 7, largeHeight - 7, dim.r, dim.g, dim.b, 255);
}

void drawTitleBlock(SDL_Surface* s, const Ship& ship) {
  boxRGBA(s, 12, 12, 200, 56, paper.r, paper.g, paper.b, 255);
  rectangleRGBA(s, 12, 12, 200, 56, ink.r, ink.g, ink.b, 255);
  hlineRGBA(s, 12, 200, 26, ink.r, ink.g, ink.b, 255);
  std::string name = ship.shipClass, type = ship.shipType;
  for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  for (char& c : type) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  text(s, 18, 16, name.substr(0, 22), bright);
  text(s, 18, 31, type.substr(0, 22), ink);
  text(s, 18, 44, "PLAN VIEW  SHEET 1/1", dim);
}

// The outline the deflector field follows around the hull, dashed.
void drawShieldEnvelope(SDL_Surface* s) {
  for (int deg = 0; deg < 360; deg += 6) {
    const double a1 = deg * M_PI / 180.0, a2 = (deg + 3) * M_PI / 180.0;
    lineRGBA(s, static_cast<Sint16>(centreX + 232 * std::cos(a1)), static_cast<Sint16>(265 + 250 * std::sin(a1)),
             static_cast<Sint16>(centreX + 232 * std::cos(a2)), static_cast<Sint16>(265 + 250 * std::sin(a2)), dim.r,
             dim.g, dim.b, 255);
  }
}

void drawEngine(SDL_Surface* s, const MarkerPoint& m) {
  const Placement one;
  fillShape(s, nacelle(m), one, panel);
  outlineShape(s, nacelle(m), one, ink);
  fillShape(s, nozzle(m), one, panel);
  outlineShape(s, nozzle(m), one, ink);
  // Cooling fins along the nacelle.
  for (int y = m.y - 66; y < m.y - 20; y += 8) {
    hlineRGBA(s, static_cast<Sint16>(m.x - 14), static_cast<Sint16>(m.x + 14), static_cast<Sint16>(y), dim.r, dim.g,
              dim.b, 255);
  }
  // The fusion chamber.
  circleRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), 9, bright.r, bright.g, bright.b, 255);
  circleRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), 5, ink.r, ink.g, ink.b, 255);
  filledCircleRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), 2, amber.r, amber.g, amber.b, 255);
}

void drawShieldGenerator(SDL_Surface* s, const MarkerPoint& m) {
  Sint16 xs[6], ys[6];
  for (int i = 0; i < 6; ++i) {
    const double a = (60 * i + 30) * M_PI / 180.0;
    xs[i] = static_cast<Sint16>(std::lround(m.x + 15 * std::cos(a)));
    ys[i] = static_cast<Sint16>(std::lround(m.y + 15 * std::sin(a)));
  }
  filledPolygonRGBA(s, xs, ys, 6, panel.r, panel.g, panel.b, 255);
  polygonRGBA(s, xs, ys, 6, bright.r, bright.g, bright.b, 255);
  for (int i = 0; i < 6; ++i) {
    lineRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), xs[i], ys[i], dim.r, dim.g, dim.b, 255);
  }
  circleRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), 7, ink.r, ink.g, ink.b, 255);
  filledCircleRGBA(s, static_cast<Sint16>(m.x), static_cast<Sint16>(m.y), 3, bright.r, bright.g, bright.b, 255);
}

void drawPowerPlant(SDL_Surface* s, const MarkerPoint& m) {
  const Sint16 x = static_cast<Sint16>(m.x), y = static_cast<Sint16>(m.y);
  boxRGBA(s, x - 20, y - 20, x + 20, y + 20, panel.r, panel.g, panel.b, 255);
  rectangleRGBA(s, x - 20, y - 20, x + 20, y + 20, ink.r, ink.g, ink.b, 255);
  // Coolant lines from the housing's corners to the torus.
  lineRGBA(s, x - 20, y - 20, x - 10, y - 10, dim.r, dim.g, dim.b, 255);
  lineRGBA(s, x + 20, y - 20, x + 10, y - 10, dim.r, dim.g, dim.b, 255);
  lineRGBA(s, x - 20, y + 20, x - 10, y + 10, dim.r, dim.g, dim.b, 255);
  lineRGBA(s, x + 20, y + 20, x + 10, y + 10, dim.r, dim.g, dim.b, 255);
  circleRGBA(s, x, y, 14, bright.r, bright.g, bright.b, 255);
  circleRGBA(s, x, y, 10, ink.r, ink.g, ink.b, 255);
  filledCircleRGBA(s, x, y, 5, amber.r, amber.g, amber.b, 255);
}

void drawTurret(SDL_Surface* s, const MarkerPoint& m) {
  const Sint16 x = static_cast<Sint16>(m.x), y = static_cast<Sint16>(m.y);
  boxRGBA(s, x - 6, y - 6, x + 6, y + 6, panel.r, panel.g, panel.b, 255);
  rectangleRGBA(s, x - 6, y - 6, x + 6, y + 6, ink.r, ink.g, ink.b, 255);
  filledCircleRGBA(s, x, y, 4, dim.r, dim.g, dim.b, 255);
  circleRGBA(s, x, y, 4, bright.r, bright.g, bright.b, 255);
  // Twin barrels pointing ahead.
  vlineRGBA(s, x - 2, y - 20, y - 4, bright.r, bright.g, bright.b, 255);
  vlineRGBA(s, x + 2, y - 20, y - 4, bright.r, bright.g, bright.b, 255);
}

void label(SDL_Surface* s, int x, int y, const std::string& t) { text(s, x, y, t, ink); }

SurfacePtr drawBlueprint(const Ship& ship) {
  SurfacePtr image = newSurface(largeWidth, largeHeight);
  if (!image) return image;
  SDL_Surface* s = image.get();
  const Placement one;
  drawPaper(s);
  drawShieldEnvelope(s);

  // Pylons joining the nacelles to the spine.
  for (const MarkerPoint& m : ship.engineMarkers) {
    const double x1 = std::min<double>(m.x, centreX), x2 = std::max<double>(m.x, centreX);
    fillShape(s, rect(x1, m.y - 60, x2, m.y - 44), one, panel);
    outlineShape(s, rect(x1, m.y - 60, x2, m.y - 44), one, dim);
  }
  for (const Shape& wing : {portWing, starboardWing}) {
    fillShape(s, wing, one, panel);
    outlineShape(s, wing, one, ink);
  }
  fillShape(s, spine, one, panel);
  outlineShape(s, spine, one, ink);
  fillShape(s, forwardHull, one, panel);
  outlineShape(s, forwardHull, one, bright);
  // Hull plating seams.
  for (int y = 200; y < 432; y += 36) hlineRGBA(s, 222, 298, static_cast<Sint16>(y), dim.r, dim.g, dim.b, 255);
  vlineRGBA(s, static_cast<Sint16>(centreX), 172, 300, dim.r, dim.g, dim.b, 255);
  // Bridge windows.
  for (int i = 0; i < 5; ++i) {
    const Sint16 x = static_cast<Sint16>(241 + 8 * i);
    boxRGBA(s, x, 96, x + 5, 102, ink.r, ink.g, ink.b, 255);
  }
  int hold = 1;
  for (const Shape& pod : cargoPods(ship.cargoHoldCount)) {
    fillShape(s, pod, one, panel);
    outlineShape(s, pod, one, ink);
    const int x = static_cast<int>(pod.x[0]) + 6, y = static_cast<int>(pod.y[0]) + 18;
    label(s, x, y, "C" + std::to_string(hold++));
  }

  for (const MarkerPoint& m : ship.engineMarkers) drawEngine(s, m);
  for (const MarkerPoint& m : ship.shieldMarkers) drawShieldGenerator(s, m);
  for (const MarkerPoint& m : ship.powerPlantMarkers) drawPowerPlant(s, m);
  for (int i = 0; i < ship.hardPointCount && i < maxHardPoints; ++i) {
    for (const MarkerPoint& m : ship.hardPoints[i].markers) {
      drawTurret(s, m);
      label(s, m.x + 14, m.y + 10, "HP" + std::to_string(i + 1));
    }
  }

  // Part names, set off to the right of the first marker of each part.
  if (!ship.shieldMarkers.empty()) {
    const MarkerPoint& m = ship.shieldMarkers.front();
    lineRGBA(s, static_cast<Sint16>(m.x + 16), static_cast<Sint16>(m.y), static_cast<Sint16>(m.x + 70),
             static_cast<Sint16>(m.y), dim.r, dim.g, dim.b, 255);
    label(s, m.x + 74, m.y - 4, "SHIELD GENERATOR");
  }
  if (!ship.powerPlantMarkers.empty()) {
    const MarkerPoint& m = ship.powerPlantMarkers.front();
    label(s, m.x - 28, m.y + 28, "REACTOR");
  }
  if (!ship.engineMarkers.empty()) {
    const MarkerPoint& m = ship.engineMarkers.back();
    label(s, m.x + 26, m.y - 4, "DRIVE");
  }
  drawTitleBlock(s, ship);
  return image;
}

// ---- The small ship, nose up ----

SurfacePtr drawShipSprite(const Ship& ship) {
  constexpr int size = 41;
  SurfacePtr image = newSurface(size, size);
  if (!image) return image;
  SDL_Surface* s = image.get();
  // The blueprint's hull, from y 28 to 498 and x 60 to 460, scaled into the sprite.
  Placement p;
  p.scale = 39.0 / 470.0;
  p.dx = 20.0 - centreX * p.scale;
  p.dy = 1.0 - 28.0 * p.scale;
  const Rgb hullLight{176, 186, 204}, hullDark{92, 102, 124}, edge{40, 44, 58};
  const Rgb cockpit{90, 170, 255}, podColour{150, 128, 92}, glow{255, 150, 40};
  for (const MarkerPoint& m : ship.engineMarkers) {
    fillShape(s, nacelle(m), p, hullDark);
    fillShape(s, nozzle(m), p, glow);
  }
  for (const Shape& wing : {portWing, starboardWing}) {
    fillShape(s, wing, p, hullDark);
    outlineShape(s, wing, p, edge);
  }
  fillShape(s, spine, p, hullLight);
  for (const Shape& pod : cargoPods(ship.cargoHoldCount)) fillShape(s, pod, p, podColour);
  fillShape(s, forwardHull, p, hullLight);
  outlineShape(s, forwardHull, p, edge);
  fillShape(s, rect(240, 92, 280, 106), p, cockpit);
  for (int i = 0; i < ship.hardPointCount && i < maxHardPoints; ++i) {
    for (const MarkerPoint& m : ship.hardPoints[i].markers) {
      const Sint16 x = static_cast<Sint16>(std::lround(m.x * p.scale + p.dx));
      const Sint16 y = static_cast<Sint16>(std::lround(m.y * p.scale + p.dy));
      pixelRGBA(s, x, y, 230, 60, 50, 255);
      pixelRGBA(s, x, static_cast<Sint16>(y - 1), 230, 60, 50, 255);
    }
  }
  return image;
}

// ---- The rover, nose up ----

// The game pins the rover picture's top-left corner 10 pixels left of and 13
// above the rover's own point on the surface view and turns it about the pixel
// (10, 13). So the picture is 20 x 26 and the rover is drawn symmetrically round
// that pixel: heading north or south its middle is the rover's point, which lies
// on the rover's own tile wherever in the tile the rover stands.
constexpr int roverWidth = 20, roverHeight = 26, roverX = 10, roverY = 13;

SurfacePtr drawRover() {
  SurfacePtr image = newSurface(roverWidth, roverHeight);
  if (!image) return image;
  SDL_Surface* s = image.get();
  const Rgb tyre{58, 58, 62}, body{214, 196, 150}, cockpit{120, 120, 130}, panelBlue{70, 130, 220}, lamp{255, 240, 160},
      trim{1, 1, 1};
  // Offsets from the middle pixel.
  const auto box = [s](int x1, int y1, int x2, int y2, Rgb c) {
    boxRGBA(s, static_cast<Sint16>(roverX + x1), static_cast<Sint16>(roverY + y1), static_cast<Sint16>(roverX + x2),
            static_cast<Sint16>(roverY + y2), c.r, c.g, c.b, 255);
  };
  for (const int y : {-4, 0, 4}) {
    box(-5, y, -4, y + 2, tyre);
    box(4, y, 5, y + 2, tyre);
  }
  box(-3, -5, 3, 6, body);
  rectangleRGBA(s, roverX - 3, roverY - 5, roverX + 3, roverY + 6, trim.r, trim.g, trim.b, 255);
  box(-2, -4, 2, -2, cockpit);
  box(-2, 1, 2, 5, panelBlue);
  box(-2, 3, 2, 3, trim);
  box(-2, -6, -2, -6, lamp);
  box(2, -6, 2, -6, lamp);
  return image;
}

// ---- The cargo window's arrows: 14 x 14, normal, lit under the mouse, pressed ----

enum class Look { Normal, Highlight, Select };

SurfacePtr drawArrow(bool up, Look look) {
  constexpr int size = 14;
  SurfacePtr image = newSurface(size, size);
  if (!image) return image;
  SDL_Surface* s = image.get();
  Rgb border{80, 80, 150}, fill{1, 1, 1}, arrow{140, 140, 210};
  if (look == Look::Highlight) {
    border = {150, 150, 255};
    fill = {24, 24, 70};
    arrow = {220, 220, 255};
  } else if (look == Look::Select) {
    border = {220, 220, 255};
    fill = {70, 70, 200};
    arrow = {255, 255, 255};
  }
  boxRGBA(s, 0, 0, size - 1, size - 1, fill.r, fill.g, fill.b, 255);
  rectangleRGBA(s, 0, 0, size - 1, size - 1, border.r, border.g, border.b, 255);
  // A symmetric arrow head: the 14 pixels have no middle column, so the tip is two wide.
  const Sint16 base = up ? 9 : 4, tip = up ? 3 : 10;
  Sint16 xs[4] = {3, 10, 7, 6}, ys[4] = {base, base, tip, tip};
  filledPolygonRGBA(s, xs, ys, 4, arrow.r, arrow.g, arrow.b, 255);
  polygonRGBA(s, xs, ys, 4, arrow.r, arrow.g, arrow.b, 255);
  return image;
}

bool writeArrows(const fs::path& buttons) {
  struct Variant {
    const char* suffix;
    Look look;
  };
  const Variant variants[] = {{"norm", Look::Normal}, {"highlight", Look::Highlight}, {"select", Look::Select}};
  bool ok = true;
  for (const bool up : {true, false}) {
    for (const Variant& v : variants) {
      SurfacePtr arrow = drawArrow(up, v.look);
      const fs::path path = buttons / (std::string(up ? "Up_" : "Down_") + v.suffix + ".bmp");
      ok = arrow && save(arrow.get(), path) && ok;
    }
  }
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_ship_images <source data dir> <build data dir>\n");
    return 2;
  }
  const fs::path source = argv[1], target = argv[2];
  setLogEcho(true);  // the parser's complaints about a ship file show in the build
  std::error_code ec;
  fs::create_directories(target / "Ships", ec);
  fs::create_directories(target / "Buttons", ec);

  bool ok = true;
  int ships = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(source / "Ships", ec)) {
    if (entry.path().extension() != ".txt") continue;
    Ship ship;
    if (!readShipFile(ship, entry.path().string())) {
      std::fprintf(stderr, "make_ship_images: couldn't read %s\n", entry.path().string().c_str());
      ok = false;
      continue;
    }
    SurfacePtr sprite = drawShipSprite(ship);
    SurfacePtr blueprint = drawBlueprint(ship);
    ok = sprite && save(sprite.get(), target / "Ships" / (entry.path().stem().string() + ".bmp")) && ok;
    ok = blueprint && save(blueprint.get(), target / "Ships" / (std::string(ship.shipClass) + "_large.bmp")) && ok;
    ++ships;
  }
  if (ec) {
    std::fprintf(stderr, "make_ship_images: can't list %s: %s\n", (source / "Ships").string().c_str(),
                 ec.message().c_str());
    ok = false;
  }
  SurfacePtr rover = drawRover();
  ok = rover && save(rover.get(), target / "Ships" / "Rover.bmp") && ok;
  ok = writeArrows(target / "Buttons") && ok;
  std::printf("make_ship_images: %d ship%s, the rover and the cargo arrows drawn\n", ships, ships == 1 ? "" : "s");
  return ok ? 0 : 1;
}
