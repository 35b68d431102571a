// The rover: its close view read back from the screen, collection into its
// hold, the wrap at the map's edges, the landing sequence with its exhaust,
// and the whole descent and launch through the orbit and surface frames.
#include "surface/rover.h"

#include <SDL_gfxPrimitives.h>

#include <numeric>

#include "support/test_support.h"
#include "universe/viewscreen.h"

namespace {

class RoverTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    if (!surfaceWorkSurface) initGameWindow(shipImages, &fontTable, &playerShip);
    terrain = Terrain{};
    std::strcpy(planet.Hydro, "Green");  // elevation e shades as the pixel e << 8
    playerShip.roverHold = {}, playerShip.shipHold = {};
    playerShip.roverHoldFree = 50.0f;
    playerShip.shipHoldCapacity = playerShip.shipHoldFree = 200.0f;
    roverPosition = SurfacePoint{1800, 900};
    SDL_FillRect(screen, nullptr, 0);
  }
  void view(MineralDepositList& deposits, int heading = 0, int dx = 0, int dy = 0) {
    drawSurfaceView(screen, &planet, 255, heading, dx, dy, deposits);
  }
  Planet planet;
  MineralDepositList none;
};

}  // namespace

TEST_F(RoverTest, CollectionTakesWhatTheHoldHasRoomFor) {
  const struct {
    float free, amount, taken, left;
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
    view(deposits);
    const float sum = std::accumulate(playerShip.roverHold.begin(), playerShip.roverHold.end(), 0.0f);
    EXPECT_NEAR(playerShip.roverHold[1], c.taken, 1e-4) << c.free;
    EXPECT_NEAR(deposits[0].amount, c.left, 1e-4) << c.free;
    EXPECT_NEAR(playerShip.roverHoldFree, 50.0f - sum, 1e-4);
    EXPECT_EQ(messageWindow.writeIndex - before, c.message ? 1 : 0) << c.free;
    EXPECT_STREQ(c.message ? lastMessage() : nullptr, c.message);
  }
  MineralDeposit deposit{0, 0, 1, 5.0f};
  EXPECT_TRUE((playerShip.roverHoldFree = 0.0f, !collectDeposit(deposit)) &&
              (playerShip.roverHoldFree = 1.0f, collectDeposit(deposit)))
      << "a full hold takes nothing";
  // Bad deposits and view images are skipped.
  LogWatch log;
  playerShip.roverHold = {}, playerShip.roverHoldFree = 50.0f;
  MineralDepositList bad = {{180, 90, 40, 5.0f}, {-3, 90, 1, 5.0f}, {180, 900, 1, 5.0f}};
  view(bad, 500);
  drawSurfaceView(screen, &planet, 300, -7, 0, 0, bad);
  EXPECT_EQ(std::pair(playerShip.roverHoldFree, bad[0].amount), std::pair(50.0f, 5.0f));
  EXPECT_TRUE(log.saw("no mineral 40"));
}

// The view word for word: every tile walks the whole list. The quick view must
// leave exactly these pixels on the screen.
void literalView(SDL_Surface* view, SDL_Surface* target, const MineralDepositList& deposits, int px, int py,
                 int heading) {
  const int X = px / 10, Y = py / 10, rx = px % 10, ry = py % 10;
  for (int a = 0; a < 30; ++a) {
    for (int b = 0; b < 21; ++b) {
      const int cx = (X + a - 15 + 360) % 360, cy = (Y + b - 10 + 180) % 180, x = 10 * a - rx, y = 10 * b - ry;
      const Uint32 shade = terrain.cells[cx * 180 + cy] << 8;
      boxColor(view, x, y, x + 10, y + 10, (shade << 8) | 255);
      for (const MineralDeposit& d : deposits) {
        if (d.x != cx || d.y != cy || d.amount == 0) continue;
        filledCircleColor(view, x + 5, y + 5, 4, mineralColor(d.kind, 128));
        circleRGBA(view, x + 5, y + 5, 4, 128, 128, 128, 128);
        circleColor(view, x + 5, y + 5, 3, mineralColor(d.kind, 255));
      }
    }
  }
  SDL_Rect at{140, 87, 0, 0}, source{10, 10, 280, 190}, dest{10, 310, 0, 0};
  SDL_BlitSurface(shipImages[72 + heading], nullptr, view, &at);
  SDL_BlitSurface(view, &source, target, &dest);
}

TEST_F(RoverTest, QuickViewDrawsWhatTheWholeListWalkDrawsWithTheRoverOnItsTile) {
  SDL_Surface* saved[std::size(shipImages)];
  std::copy(std::begin(shipImages), std::end(shipImages), saved);
  std::fill(std::begin(shipImages), std::end(shipImages), nullptr);
  Ship ship;
  loadShip(shipImages, ship, "Surveyor");
  seedRandom(5);
  for (auto& cell : terrain.cells) cell = static_cast<std::uint8_t>(nextRandom() % 256);
  MineralDepositList deposits;
  for (int i = 0; i < 360 * 180; ++i)
    if (nextRandom() % 3 == 0)
      deposits.push_back({i / 180, i % 180, std::uint8_t(nextRandom() % 22), (nextRandom() % 1000) / 100.0f});
  deposits.push_back({3, 176, 4, 1.0f});   // a second deposit in a cell, drawn over the first
  deposits.push_back({180, 91, 6, 0.0f});  // an emptied one over it, not drawn
  const SDL_PixelFormat* f = surfaceWorkSurface->format;
  const SurfacePtr work(SDL_CreateRGBSurface(SDL_SWSURFACE, 300, 210, 32, f->Rmask, f->Gmask, f->Bmask, f->Amask));
  const SurfacePtr want = blankSurface(800, 600);
  // Headings a whole turn or two off show the same picture.
  for (auto [at, heading, turns] :
       {std::tuple{SurfacePoint{1803, 907}, 0, 0}, {{7, 1789}, 36, 1}, {{3589, 3}, 71, -1}, {{34, 1764}, 9, -2}}) {
    roverPosition = at;
    playerShip.roverHoldFree = 0.0f;  // nothing collected: both draw the same list
    view(deposits, heading + 72 * turns);
    literalView(work.get(), want.get(), deposits, at.x, at.y, heading);
    int differing = 0;
    for (int i = 0; i < 280 * 190; ++i)
      differing += pixelRGB(screen, 10 + i % 280, 310 + i / 280) != pixelRGB(want.get(), 10 + i % 280, 310 + i / 280);
    EXPECT_EQ(differing, 0) << at.x << "," << at.y;
  }
  // Wherever in its cell the rover is, heading north or south, the middle of its
  // picture lies on its own tile, which the view draws from 150 - rx, 400 - ry.
  terrain = Terrain{};  // elevation 0 everywhere: only the rover is lit
  for (int headingIndex : {0, 36})
    for (auto [rx, ry] : {std::pair{0, 0}, {9, 9}, {0, 9}, {9, 0}, {4, 6}}) {
      roverPosition = SurfacePoint{1800 + rx, 900 + ry};
      view(none, headingIndex);
      int left = 800, right = -1, top = 600, bottom = -1;
      for (int i = 0; i < 280 * 190; ++i)
        if (const int x = 10 + i % 280, y = 310 + i / 280; pixelRGB(screen, x, y))
          left = std::min(left, x), right = std::max(right, x), top = std::min(top, y), bottom = std::max(bottom, y);
      const double midX = (left + right) / 2.0, midY = (top + bottom) / 2.0;  // no rover: far off its tile
      EXPECT_TRUE(midX >= 150 - rx && midX <= 160 - rx && midY >= 400 - ry && midY <= 410 - ry)
          << "heading " << headingIndex << ", rover at " << rx << "," << ry << ": " << midX << "," << midY;
    }
  for (SDL_Surface*& image : shipImages) SDL_FreeSurface(image);
  std::copy(std::begin(saved), std::end(saved), shipImages);
}

TEST_F(RoverTest, DrivingWrapsAtTheEdgesOfTheMapAndLaunchTransfersWhatFits) {
  const struct {
    SurfacePoint from;
    int dx, dy;
    SurfacePoint to;
  } cases[] = {{{1, 900}, 2, 0, {3590, 900}}, {{1800, 1}, 0, 3, {1800, 1790}},   {{3589, 5}, -2, 0, {0, 5}},
               {{10, 1789}, 0, -2, {10, 0}},  {{1800, 900}, 3, -2, {1797, 902}}, {{0, 0}, 0, 0, {0, 0}}};
  for (const auto& c : cases) {
    roverPosition = c.from;
    view(none, 0, c.dx, c.dy);
    EXPECT_EQ(std::tuple(roverPosition.x, roverPosition.y, landingSite.x, landingSite.y),
              std::tuple(c.to.x, c.to.y, c.to.x / 10, c.to.y / 10))
        << c.from.x << "," << c.from.y;
  }
  playerShip.shipHold[1] = 195.0f, playerShip.shipHoldFree = 5.0f;
  playerShip.roverHold[0] = 3.0f, playerShip.roverHold[1] = 4.0f, playerShip.roverHoldFree = 43.0f;
  transferRoverCargo();
  EXPECT_EQ((std::vector{playerShip.shipHold[0], playerShip.shipHold[1], playerShip.shipHoldFree,
                         playerShip.roverHold[0], playerShip.roverHold[1], playerShip.roverHoldFree}),
            (std::vector{3.0f, 197.0f, 0.0f, 0.0f, 2.0f, 48.0f}));
}

TEST_F(RoverTest, ExhaustStreaksStepFadeAndStartAgain) {
  setAltitude(255);
  const int ages[] = {0, 5, 9, 10, 12, 14}, offsets[] = {-9, -6, -3, 0, 3, 6};
  for (int i = 0; i < 6; ++i) exhaustStreaks[i] = {std::int8_t(ages[i]), std::int8_t(offsets[i]), i % 2 == 0 ? 1 : 0};
  // 255 -> 250, a multiple of ten: every streak steps and is drawn over the black view.
  drawLandingSequence(screen, &planet, 1, 0, none);
  EXPECT_EQ(getAltitude(), 250);
  const int movedOffsets[] = {-8, -7, -2, -1, 4, 5};
  const int alphas[] = {230, 105, 5, 236, 186, 136};  // ages 1, 6, 10, 11, 13, 15
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(std::pair(int(exhaustStreaks[i].offset), int(exhaustStreaks[i].age)),
              std::pair(movedOffsets[i], ages[i] + 1));
    // Each streak is a line from 408 to 433 of (128, 128, 255) at its age's alpha, below the rover's picture.
    const int x = 150 + movedOffsets[i];
    EXPECT_NEAR(static_cast<int>(pixelRGB(screen, x, 410) & 0xFF), 255 * alphas[i] / 256, 1) << i;
    EXPECT_TRUE(pixelRGB(screen, x, 407) == 0 && pixelRGB(screen, x, 433));
  }
  // 250 -> 245: drawn as they are. 245 -> 240: the oldest starts again younger; the others step on.
  drawLandingSequence(screen, &planet, 1, 0, none);
  drawLandingSequence(screen, &planet, 1, 0, none);
  EXPECT_EQ(std::tuple(getAltitude(), exhaustStreaks[0].age, exhaustStreaks[0].offset), std::tuple(240, 2, -7));
  EXPECT_LT(exhaustStreaks[5].age, 15);
}

// From orbit with Captain's menu: descent, a short drive and the launch through the real frames.
TEST_F(RoverTest, DescentLandsFacingNorthAfterFiftyFramesAndTheRoverDrives) {
  PlacedObjects placed;
  StellarObject* object = placed.place(7, 7, "G", "Lane 1", 1);
  object->Planets[0] = new Planet(planet);
  gameState.currentObject = object, gameState.currentPlanet = 0, gameState.mode = Orbit;
  auto choose = [](int menu, int item) {
    setCurrentMenu(menu), setCurrentItem(item), toggleItemSelected(), performMenuAction();
  };
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
