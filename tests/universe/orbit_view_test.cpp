#include "universe/orbit_view.h"

#include "support/test_support.h"

namespace {

constexpr Uint32 white = 0xFFFFFF, red = 0xFF0000;

// The plan sits at (515, 5) on the screen.
Uint32 planPixel(int x, int y) { return pixelRGB(screen, 515 + x, 5 + y); }

class OrbitViewTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    SDL_FillRect(screen, nullptr, 0);
    icon = blankSurface(3, 3);
    SDL_FillRect(icon.get(), nullptr, red);
    // A class without a star image keeps the middle of the plan clear.
    system = objects.place(300, 300, "no such class");
  }
  void TearDown() override {
    for (Planet*& p : system->Planets) {
      if (p) p->OrbitImage = nullptr;  // the icon belongs to the test
    }
  }
  Planet* addPlanet(int lane, int angle) {
    auto* planet = new Planet;
    planet->OrbitAngle = angle;
    planet->OrbitImage = icon.get();
    system->Planets[lane] = planet;
    return planet;
  }
  void draw(int shipX = 0, int shipY = 0) { drawOrbitView(screen, system, sinTable, cosTable, shipX, shipY); }

  PlacedObjects objects;
  StellarObject* system = nullptr;
  SurfacePtr icon;
};

TEST_F(OrbitViewTest, DrawsCirclesOnlyForOccupiedLanes) {
  addPlanet(2, 90)->OrbitImage = nullptr;  // icons off the horizontal line through the centre
  addPlanet(7, 90)->OrbitImage = nullptr;
  draw(0, 300);  // the ship off the plan
  for (int side : {1, -1}) {
    std::vector<int> radii;
    for (int r = 1; r <= 139; ++r)
      if (planPixel(140 + side * r, 122) == white) radii.push_back(r);
    EXPECT_EQ(radii, (std::vector<int>{40, 90})) << "side " << side;
  }
}

// Top-left corners worked out by hand from sin and cos with 3.14 for pi: the
// truncation of values just below a whole number matters (lane 0, lane 1).
TEST_F(OrbitViewTest, PlanetIconsSitAtTheirOrbitAngle) {
  const struct {
    int lane, angle, x, y;
  } cases[] = {
      {0, 0, 135, 137},    // 118 + 20 x 0.999999999 lies just below 138
      {9, 90, 244, 118},   // 135 + 110 x 0.99999968
      {4, 180, 135, 58},   // 240 - (122 + 60 x 0.9999987)
      {1, 270, 105, 117},  // 240 - (122 + 30 x 0.00239)
      {1, -90, 105, 117},  // a stray angle wraps round to 270
      {1, 630, 105, 117},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "lane " << c.lane << " angle " << c.angle);
    for (Planet*& p : system->Planets) delete std::exchange(p, nullptr);
    addPlanet(c.lane, c.angle);
    SDL_FillRect(screen, nullptr, 0);
    draw(0, 300);
    // The corner pins the place; the icon is blitted whole.
    EXPECT_EQ(planPixel(c.x, c.y), red);
    EXPECT_NE(planPixel(c.x - 1, c.y), red);
    EXPECT_NE(planPixel(c.x, c.y - 1), red);
  }
}

// The dot stands at its plan point measured from the bottom, with a system or
// without one; without one the plan is left empty, and neither spills out of the pane.
TEST_F(OrbitViewTest, ShipDotStandsAtItsPlanPointMeasuredFromTheBottom) {
  orbitAlpha = 240;
  blinkRising = false;
  for (StellarObject* shown : {system, static_cast<StellarObject*>(nullptr)}) {
    SCOPED_TRACE(shown ? "system" : "no system");
    SDL_FillRect(screen, nullptr, 0x00FF00);
    drawOrbitView(screen, shown, sinTable, cosTable, 140, 2);
    EXPECT_NE(planPixel(140, 243), 0u);
    EXPECT_NE(planPixel(140, 241), 0u);  // radius 2, cut off by the plan's bottom edge
    EXPECT_NE(planPixel(142, 243), 0u);
    EXPECT_EQ(planPixel(140, 240), 0u);
    EXPECT_EQ(planPixel(143, 243), 0u);
    EXPECT_EQ(planPixel(140, 122), 0u);
    EXPECT_EQ(pixelRGB(screen, 514, 4), 0x00FF00u);
    EXPECT_EQ(pixelRGB(screen, 515 + 280, 5 + 245), 0x00FF00u);
  }
}

// The pulse after entering a system: up by 10 to 240, down to 60, up again; each
// frame's dot shows the alpha from before its own step. The dot is white blended
// over black, so its red channel is the alpha (within the blend's rounding).
TEST_F(OrbitViewTest, ShipDotPulsesFromZeroBetween60And240) {
  std::vector<int> expected;
  for (int a = 0; a <= 240; a += 10) expected.push_back(a);
  for (int a = 230; a >= 60; a -= 10) expected.push_back(a);
  for (int a = 70; a <= 240; a += 10) expected.push_back(a);
  expected.push_back(230);
  orbitAlpha = 0;
  blinkRising = true;
  for (std::size_t frame = 0; frame < expected.size(); ++frame) {
    draw(100, 100);
    const int shown = static_cast<int>(planPixel(100, 145) >> 16);
    EXPECT_LE(std::abs(shown - expected[frame]), 1) << "frame " << frame << " shows " << shown;
  }
}

}  // namespace
