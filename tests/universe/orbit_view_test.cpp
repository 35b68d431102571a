#include "universe/orbit_view.h"

#include <cstdlib>
#include <vector>

#include "base/screen.h"
#include "support/test_support.h"
#include "universe/navigation.h"

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
  std::vector<int> right, left;
  for (int x = 141; x < 280; ++x)
    if (planPixel(x, 122) == white) right.push_back(x - 140);
  for (int x = 139; x >= 0; --x)
    if (planPixel(x, 122) == white) left.push_back(140 - x);
  EXPECT_EQ(right, (std::vector<int>{40, 90}));
  EXPECT_EQ(left, (std::vector<int>{40, 90}));
}

// Top-left corners worked out by hand from sin and cos with 3.14 for pi: the
// truncation of values just below a whole number matters (lane 0, lane 1).
TEST_F(OrbitViewTest, PlanetIconsSitAtTheirOrbitAngle) {
  struct Case {
    int lane, angle, x, y;
  };
  const Case cases[] = {
      {0, 0, 135, 137},    // 118 + 20 x 0.999999999 lies just below 138
      {9, 90, 244, 118},   // 135 + 110 x 0.99999968
      {4, 180, 135, 58},   // 240 - (122 + 60 x 0.9999987)
      {1, 270, 105, 117},  // 240 - (122 + 30 x 0.00239)
      {1, -90, 105, 117},  // a stray angle wraps round to 270
      {1, 630, 105, 117},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "lane " << c.lane << " angle " << c.angle);
    for (Planet*& p : system->Planets) delete std::exchange(p, nullptr);
    addPlanet(c.lane, c.angle);
    SDL_FillRect(screen, nullptr, 0);
    draw(0, 300);
    EXPECT_EQ(planPixel(c.x, c.y), red);
    EXPECT_EQ(planPixel(c.x + 2, c.y + 2), red);
    EXPECT_NE(planPixel(c.x - 1, c.y), red);
    EXPECT_NE(planPixel(c.x, c.y - 1), red);
    EXPECT_NE(planPixel(c.x + 3, c.y + 3), red);
  }
}

TEST_F(OrbitViewTest, ShipDotStandsAtItsPlanPointMeasuredFromTheBottom) {
  orbitAlpha = 240;
  blinkRising = false;
  draw(140, 2);
  EXPECT_NE(planPixel(140, 243), 0u);
  EXPECT_NE(planPixel(140, 241), 0u);  // radius 2, cut off by the plan's bottom edge
  EXPECT_NE(planPixel(142, 243), 0u);
  EXPECT_EQ(planPixel(140, 240), 0u);
  EXPECT_EQ(planPixel(143, 243), 0u);
  EXPECT_EQ(pixelRGB(screen, 515 + 140, 5 + 245), 0u) << "the plan drew below its own surface";
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

TEST_F(OrbitViewTest, NoSystemGivesAnEmptyPlanWithTheDot) {
  orbitAlpha = 200;
  SDL_FillRect(screen, nullptr, 0x00FF00);
  drawOrbitView(screen, nullptr, sinTable, cosTable, 10, 10);
  EXPECT_EQ(planPixel(140, 122), 0u);
  EXPECT_NE(planPixel(10, 235), 0u);
  EXPECT_EQ(pixelRGB(screen, 514, 4), 0x00FF00u) << "the plan spilled out of its pane";
  EXPECT_EQ(pixelRGB(screen, 515 + 280, 5 + 245), 0x00FF00u);
}

}  // namespace
