#include "shell/flight.h"

#include "support/test_support.h"

// Designated initializers set just the fields a case needs; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

std::vector<StellarObject*> released;
void countRelease(StellarObject* object) { released.push_back(object); }

class FlightTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    setFrameDelay(false);
    for (SDL_Event e; SDL_PollEvent(&e);) {
    }
    playerShip.engine.engineClass = 10;
    released.clear();
    releaseSystemImages = countRelease;
  }
  void TearDown() override {
    releaseSystemImages = releasePlanetImages;
    freeMineralDeposits(gameState.deposits);
    gameState.currentObject = nullptr;
  }
  static std::vector<int> speeds(int frames) {
    std::vector<int> seen;
    for (int i = 0; i < frames; ++i) {
      applyFlightControls();
      seen.push_back(gameState.speed);
    }
    return seen;
  }
};

}  // namespace

TEST(FlightPlacement, EntryAndPlanetCells) {
  ensureScreen();
  const struct {
    int heading, x, y;
  } entries[] = {{0, 140, 2},   {90, 278, 122},  {180, 140, 243}, {270, 2, 122}, {15, 140, 2},   {20, 210, 2},
                 {45, 210, 2},  {50, 278, 60},   {345, 70, 2},    {350, 140, 2}, {225, 70, 243}, {300, 2, 60},
                 {240, 2, 182}, {120, 278, 182}, {285, 2, 122},   {286, 2, 60}};
  for (const auto& e : entries) {
    std::pair<int, int> cell;
    systemEntryCell(e.heading, cell.first, cell.second);
    EXPECT_EQ(cell, std::pair(e.x, e.y)) << e.heading;
  }
  const struct {
    int lane, angle, x, y;
  } planets[] = {{0, 0, 140, 102}, {0, 90, 159, 121}, {9, 180, 140, 231}, {2, 0, 140, 82}};
  for (const auto& p : planets) {
    std::pair<int, int> cell;
    planetCell(p.lane, p.angle, cell.first, cell.second);
    EXPECT_EQ(cell, std::pair(p.x, p.y)) << p.lane << "," << p.angle;
  }
}

TEST_F(FlightTest, SpeedRampsInSpaceAndSystemAndDownIsNoBrake) {
  gameState.maneuverOn = gameState.upHeld = 1;
  EXPECT_EQ(speeds(11), (std::vector<int>{2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 20}));
  gameState.upHeld = 0;
  gameState.downHeld = 1;
  EXPECT_EQ(speeds(11), (std::vector<int>{18, 16, 14, 12, 10, 8, 6, 4, 2, 0, 0}));
  gameState.rightHeld = 1;
  applyFlightControls();
  EXPECT_EQ(gameState.heading, 355) << "turns by 5 degrees, wrapping";

  gameState = {.mode = System, .upHeld = 1};
  EXPECT_EQ(speeds(9), (std::vector<int>{5, 10, 15, 20, 25, 30, 35, 40, 40}));
  gameState.upHeld = 0;
  EXPECT_EQ(speeds(1), (std::vector<int>{35}));
  gameState.mode = Orbit;
  gameState.upHeld = 1;
  EXPECT_EQ(speeds(1), (std::vector<int>{35})) << "orbit leaves the speed alone";
}

TEST_F(FlightTest, TheMapsEdgesHoldTheShipOnIt) {
  gameState = {.posX = 310, .posY = 305, .velX = 20.0, .velY = -20.0};
  runSpaceFrame();
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.velX, gameState.velY), std::tuple(300, 300, 0., 0.));

  // Past the last cell the ship is pulled back without the map being read off its end.
  PlacedObjects objects;
  StellarObject* edgeStar = objects.place(499, 100, "M", "Cold");
  gameState = {
      .posX = 499 * 50 + 349, .posY = 5310, .lastSectorX = 499, .lastSectorY = 100, .speed = 10, .heading = 270};
  runFrame();
  EXPECT_EQ(std::pair(gameState.mode, gameState.posX), std::pair(int(Space), 25299 + 9));
  runFrame();
  EXPECT_EQ(std::pair(gameState.mode, gameState.posX), std::pair(int(Space), 25250));
  runFrame();  // cell 499 differs from the last drawn cell
  EXPECT_EQ(std::pair(gameState.mode, gameState.currentObject), std::pair(int(System), edgeStar));
}

TEST_F(FlightTest, CrossingASystemEdgePlacesTheShipNextToTheObject) {
  StellarObject object;
  object.x = 10;
  object.y = 20;
  const struct {
    int sysX, sysY, mode, posX, posY;
  } cases[] = {{281 * 50, 5000, Space, 850, 1300}, {-50, 5000, Space, 750, 1300},
               {5000, 246 * 50, Space, 800, 1350}, {5000, -50, Space, 800, 1250},
               {281 * 50, -50, Space, 800, 1250},  // the second axis wins
               {-49, -49, System, 0, 0},           {280 * 50 + 49, 245 * 50 + 49, System, 0, 0}};
  for (const auto& c : cases) {
    gameState = {.mode = System, .sysX = c.sysX, .sysY = c.sysY, .speed = 30, .currentObject = &object};
    runSystemFrame();
    EXPECT_EQ(std::tuple(gameState.mode, gameState.posX, gameState.posY, gameState.speed == 0),
              std::tuple(c.mode, c.posX, c.posY, c.mode == Space))
        << c.sysX << "," << c.sysY;
  }
  EXPECT_EQ(released, std::vector<StellarObject*>(5, &object)) << "released once per exit";
}

TEST_F(FlightTest, FlyingOntoAPlanetsCellEstablishesOrbitAndLeavingPutsTheShipPastIt) {
  StellarObject object;
  Planet planet;
  planet.Seed = 99;
  object.Planets[2] = &planet;  // lane 2 at angle 0: cell (140, 82)
  setCurrentMenu(4);
  toggleItemSelected();
  gameState = {.mode = System, .sysX = 7025, .sysY = 4130, .heading = 35, .currentObject = &object, .maneuverOn = 1};
  gameState.scansTaken = 1;
  for (char* line : gameState.analysisLines) std::snprintf(line, 8, "%s", "stale");  // a last planet's analysis
  runSystemFrame();
  EXPECT_EQ(std::tuple(gameState.mode, gameState.currentPlanet, gameState.maneuverOn, gameState.heading,
                       gameState.scansTaken),
            std::tuple(Orbit, 2, 0, 0, 0));
  EXPECT_FALSE(isActive(4, 0));
  EXPECT_EQ(std::vector<std::string>(std::begin(gameState.analysisLines), std::end(gameState.analysisLines)),
            (std::vector<std::string>{" ", " ", " ", scansFirstText}));
  EXPECT_STREQ(lastMessage(), "Orbit established");
  EXPECT_STREQ(lastMessage(1), "Entering orbit");

  leaveOrbit();
  EXPECT_EQ(std::pair(gameState.sysX, gameState.sysY), std::pair(142 * 50, 84 * 50));
  gameState.mode = System;
  runSystemFrame();
  EXPECT_EQ(gameState.mode, System) << "off the planet's cell";
}
