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
    system = objects.place(300, 300, "no such class");  // no star image: the plan's middle stays clear
  }
  void TearDown() override {
    for (Planet* p : system->Planets)
      if (p) p->OrbitImage = nullptr;  // the icon belongs to the test
  }
  void draw(int shipX, int shipY) { drawOrbitView(screen, system, sinTable, cosTable, shipX, shipY); }
  PlacedObjects objects;
  StellarObject* system = nullptr;
  SurfacePtr icon;
};

}  // namespace

// Top-left corners worked out by hand from sin and cos with 3.14 for pi: the
// truncation of values just below a whole number matters (lanes 0 and 9).
TEST_F(OrbitViewTest, CirclesForOccupiedLanesAndIconsAtTheirOrbitAngle) {
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
    if (!system->Planets[c.lane]) system->Planets[c.lane] = new Planet;
    system->Planets[c.lane]->OrbitAngle = c.angle;
    system->Planets[c.lane]->OrbitImage = icon.get();
    SDL_FillRect(screen, nullptr, 0);
    draw(0, 300);  // the ship off the plan
    EXPECT_TRUE(planPixel(c.x, c.y) == red && planPixel(c.x - 1, c.y) != red && planPixel(c.x, c.y - 1) != red);
  }
  for (int side : {1, -1}) {  // no icon lies on the centre's row
    std::vector<int> radii;
    for (int r = 1; r <= 139; ++r)
      if (planPixel(140 + side * r, 122) == white) radii.push_back(r);
    EXPECT_EQ(radii, (std::vector<int>{20, 30, 60, 110})) << "side " << side;
  }
}

// The pulse after entering a system: up by 10 to 240, down to 60, up again; each
// frame's dot, white over black, shows in its red channel the alpha from before its own step.
TEST_F(OrbitViewTest, ShipDotPulsesFromZeroBetween60And240) {
  orbitAlpha = 0;
  blinkRising = true;
  for (int frame = 0; frame < 62; ++frame) {
    const int want = frame <= 24 ? 10 * frame : frame <= 42 ? 240 - 10 * (frame - 24) : 60 + 10 * (frame - 42);
    draw(100, 100);
    EXPECT_NEAR(int(planPixel(100, 145) >> 16), frame == 61 ? 230 : want, 1) << "frame " << frame;
  }
}
