// The rover: its close view read back from the screen, collection into its
// hold, the wrap at the map's edges, the landing sequence with its exhaust,
// and the whole descent and launch through the orbit and surface frames.
#include "surface/rover.h"

#include <SDL_gfxPrimitives.h>

#include <numeric>

#include "support/test_support.h"
#include "universe/viewscreen.h"

namespace {

float holdSum(const CargoHold& hold) { return std::accumulate(hold.begin(), hold.end(), 0.0f); }

class RoverTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    if (!surfaceWorkSurface) initGameWindow(shipImages, &fontTable, &playerShip);
    terrain = Terrain{};
    std::strcpy(planet.Hydro, "Green");  // elevation e shades as the pixel e << 8
    playerShip.roverHold = {};
    playerShip.roverHoldFree = 50.0f;
    playerShip.shipHold = {};
    playerShip.shipHoldCapacity = 200.0f;
    playerShip.shipHoldFree = 200.0f;
    roverPosition = SurfacePoint{1800, 900};
    SDL_FillRect(screen, nullptr, 0);
  }
  int messagesSince(int start) const { return messageWindow.writeIndex - start; }
  Planet planet;
};

}  // namespace

TEST_F(RoverTest, CollectionTakesWhatTheHoldHasRoomFor) {
  const struct {
    float free, amount;
    float taken, left;
    const char* message;  // nullptr: no message
  } cases[] = {{50.0f, 9.99f, 9.99f, 0.0f, "Collected 9.99cu of Iron"},
               {3.0f, 9.99f, 3.0f, 6.99f, "Collected 3.00cu of Iron"},
               {0.0f, 9.99f, 0.0f, 9.99f, nullptr},
               {9.99f, 9.99f, 9.99f, 0.0f, "Collected 9.99cu of Iron"}};
  for (const auto& c : cases) {
    playerShip.roverHold = {};
    playerShip.roverHold[0] = 50.0f - c.free;  // keeps free = 50 - sum
    playerShip.roverHoldFree = c.free;
    MineralDepositList deposits = {{180, 90, 1, c.amount}};
    const int before = messageWindow.writeIndex;
    drawSurfaceView(screen, &planet, 255, 0, 0, 0, deposits);
    EXPECT_NEAR(playerShip.roverHold[1], c.taken, 1e-4) << c.free;
    EXPECT_NEAR(deposits[0].amount, c.left, 1e-4) << c.free;
    EXPECT_NEAR(playerShip.roverHoldFree, 50.0f - holdSum(playerShip.roverHold), 1e-4);
    EXPECT_EQ(messagesSince(before), c.message ? 1 : 0) << c.free;
    if (c.message) {
      EXPECT_STREQ(lastMessage(), c.message);
    }
  }
  MineralDeposit deposit{0, 0, 1, 5.0f};
  playerShip.roverHoldFree = 0.0f;
  EXPECT_FALSE(collectDeposit(deposit)) << "a full hold takes nothing";
  playerShip.roverHoldFree = 1.0f;
  EXPECT_TRUE(collectDeposit(deposit));
}

// The view word for word: every tile walks the whole list. The quick view must
// leave exactly these pixels on the screen.
void literalView(SDL_Surface* view, SDL_Surface* target, const MineralDepositList& deposits, int px, int py) {
  const int X = px / 10, Y = py / 10, rx = px % 10, ry = py % 10;
  for (int a = 0; a < 30; ++a) {
    for (int b = 0; b < 21; ++b) {
      const int cx = (X + a - 15 + 360) % 360, cy = (Y + b - 10 + 180) % 180;
      const Uint32 shade = terrain.cells[cx * 180 + cy] << 8;
      boxColor(view, 10 * a - rx, 10 * b - ry, 10 * a + 10 - rx, 10 * b + 10 - ry, (shade << 8) | 255);
      for (const MineralDeposit& d : deposits) {
        if (d.x != cx || d.y != cy || d.amount == 0) continue;
        filledCircleColor(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 4, mineralColor(d.kind, 128));
        circleRGBA(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 4, 128, 128, 128, 128);
        circleColor(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 3, mineralColor(d.kind, 255));
      }
    }
  }
  if (SDL_Surface* rover = shipImages[72]) {
    SDL_Rect at{140, 87, 0, 0};
    SDL_BlitSurface(rover, nullptr, view, &at);
  }
  SDL_Rect source{10, 10, 280, 190}, dest{10, 310, 0, 0};
  SDL_BlitSurface(view, &source, target, &dest);
}

TEST_F(RoverTest, QuickViewDrawsWhatTheWholeListWalkDraws) {
  seedRandom(5);
  for (auto& cell : terrain.cells) cell = static_cast<std::uint8_t>(nextRandom() % 256);
  MineralDepositList deposits;
  for (int x = 0; x < 360; ++x)
    for (int y = 0; y < 180; ++y)
      if (nextRandom() % 3 == 0)
        deposits.push_back({x, y, static_cast<std::uint8_t>(nextRandom() % 22), (nextRandom() % 1000) / 100.0f});
  deposits.push_back({3, 176, 4, 1.0f});   // a second deposit in a cell, drawn over the first
  deposits.push_back({180, 91, 6, 0.0f});  // an emptied one over it, not drawn
  const SDL_PixelFormat* f = surfaceWorkSurface->format;
  const SurfacePtr view(SDL_CreateRGBSurface(SDL_SWSURFACE, 300, 210, 32, f->Rmask, f->Gmask, f->Bmask, f->Amask));
  const SurfacePtr want = blankSurface(800, 600);
  const SurfacePoint places[] = {{1803, 907}, {7, 1789}, {3589, 3}, {34, 1764}};
  for (const SurfacePoint& at : places) {
    roverPosition = at;
    playerShip.roverHoldFree = 0.0f;  // nothing collected: both draw the same list
    drawSurfaceView(screen, &planet, 255, 0, 0, 0, deposits);
    literalView(view.get(), want.get(), deposits, at.x, at.y);
    int differing = 0;
    for (int y = 310; y < 500; ++y)
      for (int x = 10; x < 290; ++x) differing += pixelRGB(screen, x, y) != pixelRGB(want.get(), x, y);
    EXPECT_EQ(differing, 0) << at.x << "," << at.y;
  }
}

TEST_F(RoverTest, DrivingWrapsAtTheEdgesOfTheMap) {
  const struct {
    SurfacePoint from;
    int dx, dy;
    SurfacePoint to;
  } cases[] = {{{1, 900}, 2, 0, {3590, 900}}, {{1800, 1}, 0, 3, {1800, 1790}},   {{3589, 5}, -2, 0, {0, 5}},
               {{10, 1789}, 0, -2, {10, 0}},  {{1800, 900}, 3, -2, {1797, 902}}, {{0, 0}, 0, 0, {0, 0}}};
  for (const auto& c : cases) {
    roverPosition = c.from;
    MineralDepositList none;
    drawSurfaceView(screen, &planet, 255, 0, c.dx, c.dy, none);
    EXPECT_EQ(std::tuple(roverPosition.x, roverPosition.y, landingSite.x, landingSite.y),
              std::tuple(c.to.x, c.to.y, c.to.x / 10, c.to.y / 10))
        << c.from.x << "," << c.from.y;
  }
}

TEST_F(RoverTest, LaunchTransferLeavesWhatTheShipCannotTake) {
  playerShip.shipHold[1] = 195.0f;
  playerShip.shipHoldFree = 5.0f;
  playerShip.roverHold[0] = 3.0f;  // Lead
  playerShip.roverHold[1] = 4.0f;  // Iron
  playerShip.roverHoldFree = 43.0f;
  transferRoverCargo();
  EXPECT_EQ((std::vector{playerShip.shipHold[0], playerShip.shipHold[1], playerShip.shipHoldFree}),
            (std::vector{3.0f, 197.0f, 0.0f}));
  EXPECT_EQ((std::vector{playerShip.roverHold[0], playerShip.roverHold[1], playerShip.roverHoldFree}),
            (std::vector{0.0f, 2.0f, 48.0f}));
}

TEST_F(RoverTest, ExhaustStreaksStepFadeAndStartAgain) {
  setAltitude(255);
  const int ages[] = {0, 5, 9, 10, 12, 14}, offsets[] = {-9, -6, -3, 0, 3, 6};
  for (int i = 0; i < 6; ++i) {
    exhaustStreaks[i].age = static_cast<std::int8_t>(ages[i]);
    exhaustStreaks[i].offset = static_cast<std::int8_t>(offsets[i]);
    exhaustStreaks[i].drift = i % 2 == 0 ? 1 : 0;
  }
  MineralDepositList none;
  // 255 -> 250, a multiple of ten: every streak steps and is drawn over the black view.
  drawLandingSequence(screen, &planet, 1, 0, none);
  EXPECT_EQ(getAltitude(), 250);
  const int movedOffsets[] = {-8, -7, -2, -1, 4, 5};
  const int alphas[] = {230, 105, 5, 236, 186, 136};  // ages 1, 6, 10, 11, 13, 15
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(exhaustStreaks[i].offset, movedOffsets[i]);
    EXPECT_EQ(exhaustStreaks[i].age, ages[i] + 1);
    // Each streak is a line from 408 to 433 of (128, 128, 255) at its age's alpha, below the rover's picture.
    const Uint32 p = pixelRGB(screen, 150 + movedOffsets[i], 410);
    EXPECT_NEAR(static_cast<int>(p & 0xFF), 255 * alphas[i] / 256, 1) << i;
    EXPECT_TRUE(pixelRGB(screen, 150 + movedOffsets[i], 407) == 0 && pixelRGB(screen, 150 + movedOffsets[i], 433));
  }
  // 250 -> 245: drawn as they are. 245 -> 240: the oldest starts again younger; the others step on.
  drawLandingSequence(screen, &planet, 1, 0, none);
  drawLandingSequence(screen, &planet, 1, 0, none);
  EXPECT_EQ(std::tuple(getAltitude(), exhaustStreaks[0].age, exhaustStreaks[0].offset), std::tuple(240, 2, -7));
  EXPECT_LT(exhaustStreaks[5].age, 15);
}

TEST_F(RoverTest, BadDepositsAndImagesAreSkipped) {
  LogWatch log;
  MineralDepositList deposits = {{180, 90, 40, 5.0f}, {-3, 90, 1, 5.0f}, {180, 900, 1, 5.0f}};
  drawSurfaceView(screen, &planet, 255, 500, 0, 0, deposits);
  drawSurfaceView(screen, &planet, 300, -7, 0, 0, deposits);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 50.0f);
  EXPECT_FLOAT_EQ(deposits[0].amount, 5.0f);
  EXPECT_TRUE(log.saw("no mineral 40"));
}

// A planet of a star placed for the test, in orbit with Captain's menu showing.
class LandingTest : public RoverTest {
 protected:
  void SetUp() override {
    RoverTest::SetUp();
    object = placed.place(7, 7, "G", "Lane 1", 1);
    object->Planets[0] = &planet;
    gameState.currentObject = object;
    gameState.currentPlanet = 0;
    gameState.mode = Orbit;
  }
  void TearDown() override { object->Planets[0] = nullptr; }
  void choose(int menu, int item) {
    setCurrentMenu(menu);
    setCurrentItem(item);
    toggleItemSelected();
    performMenuAction();
  }
  PlacedObjects placed;
  StellarObject* object = nullptr;
};

TEST_F(LandingTest, DescentLandsFacingNorthAfterFiftyFramesAndTheRoverDrives) {
  gameState.heading = 135;
  landingSite = SurfacePoint{40, 40};
  roverPosition = SurfacePoint{400, 400};
  gameState.deposits = {{40, 40, 1, 7.5f}, {41, 40, 0, 2.0f}};
  choose(LandingMenu, DescentItem);
  EXPECT_EQ(std::tuple(gameState.heading, gameState.descentRunning, getAltitude()), std::tuple(0, 1, 250));
  for (int frame = 1; frame <= 50; ++frame) {
    ASSERT_EQ(gameState.mode, Orbit) << frame;
    runOrbitFrame();
  }
  EXPECT_EQ(std::tuple(gameState.mode, gameState.descentRunning, getCurrentMenu()),
            std::tuple(Surface, 0, SurfaceMenu));
  EXPECT_FLOAT_EQ(playerShip.roverHold[1], 7.5f) << "collected during the descent";

  // Drive one cell east (heading 270 points east: x falls by velX < 0).
  gameState.heading = 270;
  gameState.velX = 4 * std::sin(270 / 180.0 * 3.14);
  for (int frame = 0; frame < 4; ++frame) runSurfaceFrame();
  EXPECT_EQ(roverPosition.x, 412);
  EXPECT_FLOAT_EQ(playerShip.roverHold[0], 2.0f);
  gameState.velX = 0;
  setAltitude(77);  // the launch climbs from the ground whatever was left before
  choose(SurfaceMenu, LaunchItem);
  EXPECT_EQ(std::pair(getAltitude(), gameState.launchRunning), std::pair(0, 1));
}
