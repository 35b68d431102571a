// The frame loop, the keyboard and mouse handlers it hands events to, and flight in Space and in a system.

#include "shell/event_queue.h"
#include "shell/flight.h"
#include "shell/input.h"
#include "support/test_support.h"

// Designated initializers set just the fields a case needs; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

std::vector<StellarObject*> released;

class FrameLoopTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    setFrameDelay(false);
    TearDown();
    gameState.posX = gameState.posY = 1000 * 50;  // far off the map's objects
    playerShip.engine.engineClass = 10;
    released.clear();
    releaseSystemImages = [](StellarObject* object) { released.push_back(object); };
  }
  void TearDown() override {
    for (SDL_Event e; SDL_PollEvent(&e);) continue;
    clearEvents();
    SDL_SetModState(KMOD_NONE);
    releaseSystemImages = releasePlanetImages;
    freeMineralDeposits(gameState.deposits);
    gameState.currentObject = nullptr;
  }
};

}  // namespace

TEST_F(FrameLoopTest, CtrlTogglesNeedExactlyOneCtrlKeyAndArrowsAreHeldUnlessTheChartOrSiteCursorTakesThem) {
  const int cases[][2] = {
      {KMOD_NONE, 0}, {KMOD_LCTRL, 1}, {KMOD_RCTRL, 1}, {KMOD_LCTRL | KMOD_RCTRL, 0}, {KMOD_LCTRL | KMOD_LSHIFT, 1}};
  for (const auto& [mods, acts] : cases) {
    SDL_SetModState(static_cast<SDLMod>(mods));
    for (const auto& [key, flag] : {std::pair(SDLK_d, &debugLog.visible), std::pair(SDLK_z, &messageWindow.expanded),
                                    std::pair(SDLK_r, &gameState.showFrameRate)}) {
      const int before = *flag;
      onKeyDown(key);
      EXPECT_EQ(*flag, acts ? !before : before) << mods << " key " << key;
      onKeyDown(key);
      EXPECT_EQ(*flag, before) << mods << " key " << key;
    }
  }

  const auto pressArrows = [] {
    for (int key : {SDLK_UP, SDLK_DOWN, SDLK_RIGHT, SDLK_LEFT}) onKeyDown(key);
    return std::tuple(gameState.upHeld, gameState.downHeld, gameState.rightHeld, gameState.leftHeld);
  };
  gameState.navigationOpen = 1;  // the chart's cursor takes them
  EXPECT_EQ(pressArrows(), std::tuple(0, 0, 0, 0));
  gameState.navigationOpen = 0;
  EXPECT_EQ(pressArrows(), std::tuple(1, 1, 1, 1));
  onKeyUp(SDLK_DOWN);
  setCurrentMenu(11);  // Site Selection
  toggleItemSelected();
  onKeyDown(SDLK_DOWN);
  EXPECT_EQ(std::pair(gameState.downHeld, gameState.siteClicked), std::pair(0, 1));
}

TEST_F(FrameLoopTest, ClicksGoByTheLastMotionAndOverlaysTakeThemFirst) {
  onMouseButtonDown(700, 400);  // before any motion the pointer is at (0, 0), the viewscreen
  EXPECT_EQ(gameState.siteClicked, 1);
  gameState.siteClicked = 0;
  onMouseMotion(600, 330);  // row 2: Navigator
  for (int* overlay : {&gameState.cargoOpen, &gameState.navigationOpen, &gameState.configOpen}) {
    *overlay = 1;
    onMouseButtonDown(0, 0);
    onMouseButtonUp(0, 0);
    EXPECT_EQ(std::pair(getCurrentMenu(), isItemSelected()), std::pair(0, 0));
    *overlay = 0;
  }
  gameState.navigationOpen = 1;  // the chart takes the release where it happens
  targetCell = ChartCell{}, scanCell = ChartCell{};
  onMouseMotion(300, 100);  // and scans what the pointer passes over
  onMouseButtonUp(300, 100);
  EXPECT_EQ(std::tuple(targetCell.column, targetCell.row, scanCell.column, scanCell.row), std::tuple(104, 84, 104, 84));
}

// The trig tables use 3.14 and never reach one; the cells where a heading enters a system and where planets lie.
TEST_F(FrameLoopTest, LayoutFramesThePanesAndTrigTablesEntryAndPlanetCellsAreTheGames) {
  EXPECT_EQ(std::pair(cosTable[0], std::round(cosTable[90] * 1e6)), std::pair(0.999999999, 796.0));
  drawScreenLayout(screen);
  for (const auto& [x, y] : {std::pair(0, 0), std::pair(799, 599), std::pair(799, 0), std::pair(700, 510)})
    EXPECT_EQ(pixelRGB(screen, x, y), 0xA4A4FFu) << x << "," << y;
  EXPECT_EQ(pixelRGB(screen, 250, 250), 0u);
  // Headings 15, 45 ... 345 each end a 30-degree sector of entry cells; 286 starts one.
  const int entries[][3] = {{0, 140, 2},     {15, 140, 2},    {45, 210, 2},    {75, 278, 60},  {105, 278, 122},
                            {135, 278, 182}, {165, 210, 243}, {195, 140, 243}, {225, 70, 243}, {255, 2, 182},
                            {285, 2, 122},   {286, 2, 60},    {315, 2, 60},    {345, 70, 2},   {350, 140, 2}};
  int x = 0, y = 0;
  for (const auto& [heading, ex, ey] : entries) {
    systemEntryCell(heading, x, y);
    EXPECT_EQ(std::pair(x, y), std::pair(ex, ey)) << heading;
  }
  planetCell(0, 90, x, y);
  EXPECT_EQ(std::pair(x, y), std::pair(159, 121));
  planetCell(9, 180, x, y);
  EXPECT_EQ(std::pair(x, y), std::pair(140, 231));
}

// Arrows scroll an open history window, else Up speeds up to the top speed, letting go slows (not in orbit).
TEST_F(FrameLoopTest, ArrowsScrollAnOpenHistoryWindowElseSpeedUpToTheTopAndTurnsWrap) {
  gameState.maneuverOn = 1;
  // Each frame: the log (else the messages) open, Up (else Down) held.
  const int frames[][2] = {{1, 1}, {1, 1}, {1, 0}, {0, 1}, {0, 1}, {0, 0}};
  for (const auto& [log, up] : frames) {
    debugLog.visible = log;
    messageWindow.expanded = !log;
    gameState.upHeld = up;
    gameState.downHeld = !up;
    runFrame();
  }
  EXPECT_EQ(std::pair(historyScroll, gameState.speed), std::pair(2, 0));
  gameState = GameState{};
  const struct {
    int mode, up, turn, frames, speed, heading;  // turn: 1 right, -1 left; headings wrap
  } ramps[] = {{Space, 1, 0, 1, 2, 0},   {Space, 1, 0, 10, 20, 0}, {Space, 0, 0, 1, 18, 0},  {Space, 0, 0, 10, 0, 0},
               {System, 1, 0, 1, 5, 0},  {System, 1, 0, 8, 40, 0}, {System, 0, 0, 1, 35, 0}, {Orbit, 1, 1, 1, 35, 355},
               {Orbit, 1, -1, 1, 35, 0}, {Orbit, 1, -1, 1, 35, 5}, {Orbit, 1, 1, 1, 35, 0}};
  for (const auto& r : ramps) {
    gameState.mode = r.mode;
    gameState.upHeld = r.up;
    gameState.rightHeld = r.turn == 1;
    gameState.leftHeld = r.turn == -1;
    for (int i = 0; i < r.frames; ++i) applyFlightControls();
    EXPECT_EQ(std::pair(gameState.speed, gameState.heading), std::pair(r.speed, r.heading))
        << r.mode << r.up << r.frames;
  }
}

// The chart over the game reckons fuel from the engine's top speed: class 6 flies 12 a frame.
TEST_F(FrameLoopTest, TheChartOverTheGameReckonsFuelFromTheEnginesTopSpeed) {
  initNavigationWindow(&fontTable);
  gameState.navigationOpen = 1, gameState.sectorX = gameState.sectorY = 100;
  playerShip.engine.engineClass = 6;
  targetCell = ChartCell{103, 395};  // 5 cells away
  drawOverlayWindow();
  EXPECT_TRUE(showsText(screen, 95, 195 + fontTable.heights[2], fontTable.fonts[6], "1.04 CU", 1000, true));
}

TEST_F(FrameLoopTest, TheMapsEdgesHoldTheShipOnIt) {
  gameState = {.posX = 310, .posY = 305, .velX = 20.0, .velY = -20.0};
  runSpaceFrame();
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.velX, gameState.velY), std::tuple(300, 300, 0., 0.));
  gameState = {.posX = 320, .posY = 280, .velX = 20.0, .velY = 20.0};  // reaching the edge is not passing it
  runSpaceFrame();
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.velX, gameState.velY), std::tuple(300, 300, 20., 20.));

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

TEST_F(FrameLoopTest, CrossingASystemEdgePlacesTheShipNextToTheObject) {
  StellarObject object;
  object.x = 10;
  object.y = 20;
  // At a corner the second axis wins.
  const struct {
    int sysX, sysY, mode, posX, posY;
  } cases[] = {{281 * 50, 5000, Space, 850, 1300},          {-50, 5000, Space, 750, 1300},
               {5000, 246 * 50, Space, 800, 1350},          {5000, -50, Space, 800, 1250},
               {281 * 50, -50, Space, 800, 1250},           {-49, -49, System, 0, 0},
               {280 * 50 + 49, 245 * 50 + 49, System, 0, 0}};
  for (const auto& c : cases) {
    gameState = {.mode = System, .sysX = c.sysX, .sysY = c.sysY, .speed = 30, .currentObject = &object};
    runSystemFrame();
    EXPECT_EQ(std::tuple(gameState.mode, gameState.posX, gameState.posY, gameState.speed == 0),
              std::tuple(c.mode, c.posX, c.posY, c.mode == Space))
        << c.sysX << "," << c.sysY;
  }
  EXPECT_EQ(released, std::vector<StellarObject*>(5, &object)) << "released once per exit";
}

TEST_F(FrameLoopTest, FlyingOntoAPlanetsCellEstablishesOrbitAndLeavingPutsTheShipPastIt) {
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
  leaveOrbit();  // off the planet's cell, so the next frame does not take the ship straight back into orbit
  EXPECT_EQ(std::pair(gameState.sysX, gameState.sysY), std::pair(142 * 50, 84 * 50));
}
