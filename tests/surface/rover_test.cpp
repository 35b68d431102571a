#include "surface/rover.h"

#include <SDL_gfxPrimitives.h>

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

// The hold's arithmetic is the cargo code's; here the deposit keeps what did not fit and only a take is announced.
TEST_F(RoverTest, CollectionTakesWhatTheHoldHasRoomFor) {
  for (auto [free, left, message] : {std::tuple{3.0f, 6.99f, "Collected 3.00cu of Iron"}, {0.0f, 9.99f, ""}}) {
    playerShip.roverHold[0] = 50.0f - free;
    playerShip.roverHoldFree = free;
    MineralDepositList deposits = {{180, 90, 1, 9.99f}};
    const int before = messageWindow.writeIndex;
    view(deposits);
    EXPECT_NEAR(deposits[0].amount, left, 1e-4) << free;
    EXPECT_EQ(messageWindow.writeIndex - before, *message ? 1 : 0) << free;
    EXPECT_STREQ(*message ? lastMessage() : "", message);
  }
  // Bad deposits (no such mineral, off the map a whole turn west, less than nothing) and view images are skipped.
  LogWatch log;
  playerShip.roverHold = {}, playerShip.roverHoldFree = 50.0f;
  MineralDepositList bad = {{180, 90, 40, 5.0f}, {-180, 90, 1, 5.0f}, {180, 900, 1, 5.0f}, {180, 90, 1, -5.0f}};
  view(bad, 500);
  drawSurfaceView(screen, &planet, 300, -7, 0, 0, bad);
  EXPECT_EQ(std::pair(playerShip.roverHoldFree, bad[0].amount), std::pair(50.0f, 5.0f));
  EXPECT_TRUE(log.saw("no mineral 40"));
}

// The view word for word, every tile walking the whole list: the quick view must leave exactly these pixels.
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
  SDL_Rect at{140, 87, 0, 0}, source{10, 10, 280, 190}, dest{10, 310, 0, 0};  // the rover centred on its tile
  SDL_BlitSurface(shipImages[72 + heading], nullptr, view, &at);
  SDL_BlitSurface(view, &source, target, &dest);
}

TEST_F(RoverTest, QuickViewDrawsWhatTheWholeListWalkDraws) {
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
    EXPECT_EQ(differingPixels(screen, want.get(), 10, 310, 290, 500), 0) << at.x << "," << at.y;
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

// Streaks fade from full blue by 25 an age step, wrapping bright past age 10, each drawn over the black view.
TEST_F(RoverTest, ExhaustStreaksFadeWithAge) {
  setAltitude(255);
  for (int i = 0; i < 6; ++i) exhaustStreaks[i] = {std::int8_t(2 * i), std::int8_t(4 * i), 1};
  drawLandingSequence(screen, &planet, 1, 0, none);   // 255 -> 250: each steps right, one age older
  const int alphas[] = {230, 180, 130, 80, 30, 236};  // ages 1, 3, 5, 7, 9, 11
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(int(pixelRGB(screen, 151 + 4 * i, 420) & 0xFF), alphas[i], 2) << i;
}
