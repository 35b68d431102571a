#include "shell/flight.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

#include "shell/command_window.h"
#include "shell/debug_log.h"
#include "shell/game_state.h"
#include "shell/main_loop.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "surface/globe.h"
#include "universe/star_map.h"

namespace {

// Objects put on the star map for one test; the cells get back what they held.
class PlacedObjects {
 public:
  ~PlacedObjects() {
    for (auto it = placed_.rbegin(); it != placed_.rend(); ++it) {
      starMap[it->x][it->y].object = it->previous;
      delete it->object;
    }
  }
  StellarObject* place(int x, int y, const char* Class, const char* Eco, int planets) {
    auto* object = new StellarObject;
    object->x = x;
    object->y = y;
    std::snprintf(object->Class, sizeof object->Class, "%s", Class);
    std::snprintf(object->Eco, sizeof object->Eco, "%s", Eco);
    object->NumOfPlanets = planets;
    placed_.push_back({x, y, object, starMap[x][y].object});
    starMap[x][y].object = object;
    return object;
  }

 private:
  struct Entry {
    int x, y;
    StellarObject* object;
    StellarObject* previous;
  };
  std::vector<Entry> placed_;
};

const char* lastMessage(int back = 0) {
  int index = previousLine(messageWindow.writeIndex);
  for (int i = 0; i < back; ++i) index = previousLine(index);
  return messageWindow.lines[index];
}

std::pair<int, int> entryCell(int heading) {
  int x = -1, y = -1;
  systemEntryCell(heading, x, y);
  return {x, y};
}

std::pair<int, int> cellOfPlanet(int lane, int angle) {
  int x = -1, y = -1;
  planetCell(lane, angle, x, y);
  return {x, y};
}

std::vector<StellarObject*> released;
void countRelease(StellarObject* object) { released.push_back(object); }

class FlightTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    setFrameDelay(false);
    flushEvents();
    playerShip.engine.engineClass = 10;
    released.clear();
    releaseSystemImages = countRelease;
  }
  void TearDown() override {
    releaseSystemImages = releasePlanetImages;
    freeMineralDeposits(gameState.deposits);
    gameState.currentObject = nullptr;
    flushEvents();
  }
  static void flushEvents() {
    SDL_Event e;
    while (SDL_PollEvent(&e)) {
    }
  }
  // The frame loop works these out before the mode's frame runs.
  static void startOfFrame() {
    gameState.velX = gameState.speed * sinTable[gameState.heading];
    gameState.velY = gameState.speed * cosTable[gameState.heading];
    gameState.sectorX = (gameState.posX - 300) / 50;
    gameState.sectorY = (gameState.posY - 300) / 50;
  }
  static void inSystemOf(StellarObject* object, int sysX, int sysY) {
    gameState.mode = System;
    gameState.currentObject = object;
    gameState.sysX = sysX;
    gameState.sysY = sysY;
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

TEST(FlightPlacement, SystemEntryFacesTheDirectionOfTravel) {
  EXPECT_EQ(entryCell(0), std::pair(140, 2));
  EXPECT_EQ(entryCell(90), std::pair(278, 122));
  EXPECT_EQ(entryCell(180), std::pair(140, 243));
  EXPECT_EQ(entryCell(270), std::pair(2, 122));
  // Around the boundaries of the table (a = 360 - heading).
  EXPECT_EQ(entryCell(5), std::pair(140, 2));     // a 355
  EXPECT_EQ(entryCell(15), std::pair(140, 2));    // a 345
  EXPECT_EQ(entryCell(20), std::pair(210, 2));    // a 340
  EXPECT_EQ(entryCell(45), std::pair(210, 2));    // a 315
  EXPECT_EQ(entryCell(50), std::pair(278, 60));   // a 310
  EXPECT_EQ(entryCell(345), std::pair(70, 2));    // a 15
  EXPECT_EQ(entryCell(350), std::pair(140, 2));   // a 10
  EXPECT_EQ(entryCell(225), std::pair(70, 243));  // a 135
}

TEST(FlightPlacement, PlanetCellsFollowLaneAndOrbitAngle) {
  ensureScreen();
  EXPECT_EQ(cellOfPlanet(0, 0), std::pair(140, 102));
  EXPECT_EQ(cellOfPlanet(0, 90), std::pair(159, 121));
  EXPECT_EQ(cellOfPlanet(9, 180), std::pair(140, 231));
  EXPECT_EQ(cellOfPlanet(2, 0), std::pair(140, 82));
}

TEST_F(FlightTest, SpaceSpeedClimbsToTheEngineLimitAndFallsWhenUpIsLetGo) {
  gameState.maneuverOn = 1;
  gameState.upHeld = 1;
  EXPECT_EQ(speeds(11), (std::vector<int>{2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 20}));
  gameState.upHeld = 0;
  EXPECT_EQ(speeds(3), (std::vector<int>{18, 16, 14}));
  // Down is no brake: the ship slows exactly as with no key held.
  gameState.downHeld = 1;
  EXPECT_EQ(speeds(8), (std::vector<int>{12, 10, 8, 6, 4, 2, 0, 0}));
  EXPECT_EQ(gameState.heading, 0);
}

TEST_F(FlightTest, SystemSpeedClimbsByFiveToForty) {
  gameState.mode = System;
  gameState.upHeld = 1;
  EXPECT_EQ(speeds(9), (std::vector<int>{5, 10, 15, 20, 25, 30, 35, 40, 40}));
  gameState.upHeld = 0;
  EXPECT_EQ(speeds(2), (std::vector<int>{35, 30}));

  gameState.mode = Orbit;  // the controls leave the speed alone in orbit
  gameState.upHeld = 1;
  EXPECT_EQ(speeds(2), (std::vector<int>{30, 30}));
  gameState.mode = Surface;
  EXPECT_EQ(speeds(1), (std::vector<int>{4}));
  gameState.upHeld = 0;
  EXPECT_EQ(speeds(1), (std::vector<int>{0}));
}

TEST_F(FlightTest, ArrowsTurnByFiveDegreesAndWrap) {
  gameState.rightHeld = 1;
  applyFlightControls();
  EXPECT_EQ(gameState.heading, 355);
  applyFlightControls();
  EXPECT_EQ(gameState.heading, 350);
  gameState.rightHeld = 0;
  gameState.leftHeld = 1;
  for (int i = 0; i < 3; ++i) applyFlightControls();
  EXPECT_EQ(gameState.heading, 5);
  gameState.rightHeld = 1;  // both held: the turns cancel
  applyFlightControls();
  EXPECT_EQ(gameState.heading, 5);
}

TEST_F(FlightTest, FlyingIntoAnObjectsCellEntersItsSystemOnce) {
  PlacedObjects objects;
  StellarObject* star = objects.place(100, 100, "G", "Yellow", 7);
  gameState.posX = 100 * 50 + 300 + 25;
  gameState.posY = 100 * 50 + 300 + 48;
  gameState.lastSectorX = 100;
  gameState.lastSectorY = 99;
  gameState.speed = 12;
  startOfFrame();
  runSpaceFrame();
  EXPECT_EQ(gameState.mode, System);
  EXPECT_EQ(gameState.speed, 0);
  EXPECT_EQ(gameState.sysX, 140 * 50);
  EXPECT_EQ(gameState.sysY, 2 * 50);
  EXPECT_EQ(gameState.currentObject, star);
  EXPECT_STREQ(lastMessage(), "Class: G, Ecosphere: Yellow, Planets: 7");
  // This frame's move still happened and the frame was drawn.
  EXPECT_EQ(gameState.posY, 100 * 50 + 300 + 48 + 11);
  EXPECT_EQ(gameState.lastSectorY, 100);

  // Sitting in the same cell does not enter again.
  gameState.mode = Space;
  gameState.currentObject = nullptr;
  startOfFrame();
  runSpaceFrame();
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_EQ(gameState.currentObject, nullptr);
}

TEST_F(FlightTest, WhileAnOverlayIsOpenTheLastCellIsNotUpdated) {
  gameState.posX = gameState.posY = 200 * 50 + 300;
  gameState.lastSectorX = gameState.lastSectorY = 7;
  gameState.navigationOpen = 1;
  startOfFrame();
  runSpaceFrame();
  EXPECT_EQ(gameState.navigationWasShown, 1);
  EXPECT_EQ(gameState.lastSectorX, 7);
  gameState.navigationOpen = 0;
  runSpaceFrame();
  EXPECT_EQ(gameState.navigationWasShown, 0);
  EXPECT_EQ(gameState.lastSectorX, 200);
}

TEST_F(FlightTest, TheMapsLowEdgeHoldsTheShipAt300) {
  gameState.posX = 310;
  gameState.posY = 305;
  gameState.velX = 20.0;   // toward lower positions on the first axis
  gameState.velY = -20.0;  // and on the second
  runSpaceFrame();
  EXPECT_EQ(gameState.posX, 300);
  EXPECT_EQ(gameState.posY, 300);
  EXPECT_EQ(gameState.velX, 0.0);
  EXPECT_EQ(gameState.velY, 0.0);
}

TEST_F(FlightTest, PassingTheLastCellPullsTheShipBackWithoutLookingOffTheMap) {
  PlacedObjects objects;
  StellarObject* edgeStar = objects.place(499, 100, "M", "Cold", 0);
  gameState.posX = 499 * 50 + 300 + 49;
  gameState.posY = 100 * 50 + 300 + 10;
  gameState.lastSectorX = 499;
  gameState.lastSectorY = 100;
  gameState.heading = 270;  // toward higher positions on the first axis
  gameState.speed = 10;
  runFrame();  // crosses into cell 500
  EXPECT_EQ(gameState.posX, 25299 + 9);
  EXPECT_EQ(gameState.mode, Space);
  runFrame();  // cell 500: pulled back to cell 499
  EXPECT_EQ(gameState.posX, 25250);
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_EQ(gameState.lastSectorX, 500);
  runFrame();  // back in cell 499, which differs from the last drawn cell
  EXPECT_EQ(gameState.mode, System);
  EXPECT_EQ(gameState.currentObject, edgeStar);
  EXPECT_EQ(entryCell(270), std::pair(gameState.sysX / 50, gameState.sysY / 50));
}

TEST_F(FlightTest, CrossingASystemEdgePlacesTheShipNextToTheObject) {
  StellarObject object;
  object.x = 10;
  object.y = 20;
  struct Case {
    int sysX, sysY, posX, posY;
  };
  for (const Case c : {Case{281 * 50, 100 * 50, 850, 1300}, Case{-50, 100 * 50, 750, 1300},
                       Case{100 * 50, 246 * 50, 800, 1350}, Case{100 * 50, -50, 800, 1250}}) {
    inSystemOf(&object, c.sysX, c.sysY);
    gameState.speed = 30;
    runSystemFrame();
    EXPECT_EQ(gameState.mode, Space) << c.sysX << "," << c.sysY;
    EXPECT_EQ(gameState.speed, 0);
    EXPECT_EQ(gameState.posX, c.posX) << c.sysX << "," << c.sysY;
    EXPECT_EQ(gameState.posY, c.posY) << c.sysX << "," << c.sysY;
  }
  EXPECT_EQ(released.size(), 4u);
  EXPECT_EQ(released.front(), &object);
  // The cell index truncates toward zero, so -49 is still inside.
  inSystemOf(&object, -49, -49);
  runSystemFrame();
  EXPECT_EQ(gameState.mode, System);
  inSystemOf(&object, 280 * 50 + 49, 245 * 50 + 49);
  runSystemFrame();
  EXPECT_EQ(gameState.mode, System);
  EXPECT_EQ(released.size(), 4u);
}

TEST_F(FlightTest, LeavingAtACornerReleasesThePlanetImagesOnce) {
  StellarObject object;
  object.x = 10;
  object.y = 20;
  inSystemOf(&object, 281 * 50, -50);
  runSystemFrame();
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_EQ(released.size(), 1u);
  // Both edges apply; the second axis's placement comes last and wins.
  EXPECT_EQ(gameState.posX, 800);
  EXPECT_EQ(gameState.posY, 1250);
}

TEST_F(FlightTest, FlyingOntoAPlanetsCellEstablishesOrbit) {
  StellarObject object;
  Planet planet;
  planet.OrbitAngle = 0;  // lane 2 at angle 0: cell (140, 82)
  planet.Seed = 99;
  object.Planets[2] = &planet;
  setCurrentMenu(4);
  setCurrentItem(0);
  toggleItemSelected();
  ASSERT_TRUE(isActive(4, 0));
  gameState.maneuverOn = 1;
  gameState.heading = 35;
  gameState.scansTaken = 1;
  inSystemOf(&object, 140 * 50 + 25, 82 * 50 + 30);
  runSystemFrame();
  EXPECT_EQ(gameState.mode, Orbit);
  EXPECT_EQ(gameState.currentPlanet, 2);
  EXPECT_EQ(gameState.maneuverOn, 0);
  EXPECT_FALSE(isActive(4, 0));
  EXPECT_EQ(gameState.speed, 0);
  EXPECT_EQ(gameState.heading, 0);
  EXPECT_EQ(gameState.scansTaken, 0);
  EXPECT_STREQ(gameState.analysisLines[0], " ");
  EXPECT_STREQ(gameState.analysisLines[3], scansFirstText);
  EXPECT_STREQ(lastMessage(), "Orbit established");
  EXPECT_STREQ(lastMessage(1), "Entering orbit");

  // One cell off the planet nothing happens.
  gameState.mode = System;
  gameState.sysX = 141 * 50;
  runSystemFrame();
  EXPECT_EQ(gameState.mode, System);
}

TEST_F(FlightTest, LeavingOrbitPutsTheShipTwoCellsPastThePlanet) {
  StellarObject object;
  Planet planet;
  planet.OrbitAngle = 0;
  object.Planets[0] = &planet;
  gameState.currentObject = &object;
  gameState.currentPlanet = 0;
  leaveOrbit();
  EXPECT_EQ(gameState.sysX, 142 * 50);
  EXPECT_EQ(gameState.sysY, 104 * 50);
  // Right after leaving, the ship is not on the planet's cell.
  gameState.mode = System;
  runSystemFrame();
  EXPECT_EQ(gameState.mode, System);
}
