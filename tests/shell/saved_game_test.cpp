#include "shell/saved_game.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "shell/debug_log.h"
#include "shell/game_state.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "surface/globe.h"
#include "universe/planet.h"
#include "universe/star_map.h"

namespace {

class LogWatch {
 public:
  bool saw(const char* text) const {
    for (int i = start_; i != debugLog.writeIndex; i = (i + 1) % logLineCount) {
      if (std::strstr(debugLog.lines[i], text)) return true;
    }
    return false;
  }

 private:
  int start_ = debugLog.writeIndex;
};

const char* lastMessage() {
  const int index = (messageWindow.writeIndex + logLineCount - 1) % logLineCount;
  return messageWindow.lines[index];
}

// A ship with two hardpoints and one without any; saved games are read in a
// directory of their own, as the game reads them in its data directory.
class SavedGameTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    playerShip = Ship{};
    dir.write("Ships/Twin.txt", "Twin\nGunboat\n90\n4\n2\n1,1\n2,2\n3,3\n4,4\n5,5\nTwo guns.\n");
    dir.write("Ships/Bare.txt", "Bare\nHauler\n80\n2\n0\n1,1\n2,2\n3,3\nNo guns.\n");
    char* cwd = getcwd(nullptr, 0);
    previous_ = cwd;
    std::free(cwd);
    ASSERT_EQ(chdir(dir.dir().c_str()), 0);
  }
  void TearDown() override {
    ASSERT_EQ(chdir(previous_.c_str()), 0);
    playerShip = Ship{};
    gameState = GameState{};
  }

  bool load(const std::string& content) { return loadGame(dir.write("Test.sav", content).c_str()); }

  TempDir dir;

 private:
  std::string previous_;
};

const std::string twoRoverZeros = "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n";

}  // namespace

TEST_F(SavedGameTest, LinesAreCountedPastCommentsThroughBothHolds) {
  LogWatch log;
  ASSERT_TRUE(
      load("# a saved game\n"
           "# for the tests\n"
           "Twin\n"
           "Lucky Star\n"
           "10\n"
           "# the second axis\n"
           "20\n"
           "140\n"
           "2\n"
           "3\n"
           "0\n"
           "Quick\n"
           "Strong\n"
           "Warm\n"
           "# the two weapons\n"
           "Laser\n"
           "Gun\n"
           "1, 2.5\n"
           "# the rover's hold\n" +
           twoRoverZeros + "ignored after the rover's hold\n"));
  EXPECT_TRUE(log.saw("Loading: "));
  EXPECT_TRUE(log.saw("Load and cache player object: Twin"));
  EXPECT_STREQ(playerShip.shipClass, "Twin");
  EXPECT_STREQ(playerShip.shipName, "Lucky Star");
  EXPECT_EQ(gameState.posX, 800);
  EXPECT_EQ(gameState.posY, 1300);
  EXPECT_EQ(gameState.sysX, 7000);
  EXPECT_EQ(gameState.sysY, 100);
  EXPECT_EQ(gameState.currentPlanet, 3);
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_STREQ(playerShip.engine.name, "Quick");
  EXPECT_STREQ(playerShip.shield.name, "Strong");
  EXPECT_STREQ(playerShip.powerPlant.name, "Warm");
  EXPECT_STREQ(playerShip.hardPoints[0].weaponName, "Laser");
  EXPECT_STREQ(playerShip.hardPoints[1].weaponName, "Gun");
  EXPECT_STREQ(playerShip.hardPoints[2].weaponName, "");
  EXPECT_EQ(playerShip.shipHold[0], 1.0f);
  EXPECT_EQ(playerShip.shipHold[1], 2.5f);
  EXPECT_FLOAT_EQ(playerShip.shipHoldCapacity, 200.0f);
  EXPECT_FLOAT_EQ(playerShip.shipHoldFree, 196.5f);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 50.0f);
  // The values the file does not hold.
  EXPECT_EQ(playerShip.engine.engineClass, 10);
  EXPECT_EQ(playerShip.shield.shieldClass, 10);
  EXPECT_EQ(playerShip.powerPlant.powerPlantClass, 10);
  EXPECT_EQ(playerShip.armorClass, 10);
  EXPECT_EQ(playerShip.shield.shieldMax, 999);
  EXPECT_EQ(playerShip.armorMax, 999);
  EXPECT_EQ(playerShip.fuel, 999);
  EXPECT_EQ(playerShip.hullCurrent, 70);
  EXPECT_EQ(playerShip.armorCurrent, 500);
  EXPECT_EQ(playerShip.shield.shieldCurrent, 220);
}

TEST_F(SavedGameTest, HoldListsMixSeparatorsAndKeepTheSlotsTheyDoNotReach) {
  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n0\n0\nE\nS\nP\n10, 5.5 0\n\t4,\t,4  \n"));
  EXPECT_EQ(playerShip.shipHold[0], 10.0f);
  EXPECT_EQ(playerShip.shipHold[1], 5.5f);
  EXPECT_EQ(playerShip.shipHold[2], 0.0f);
  // The ship file has just cleared the holds; nothing else was written.
  EXPECT_EQ(playerShip.shipHold[3], 0.0f);
  EXPECT_FLOAT_EQ(playerShip.shipHoldFree, 100.0f - 15.5f);
  EXPECT_EQ(playerShip.roverHold[0], 4.0f);
  EXPECT_EQ(playerShip.roverHold[1], 4.0f);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 42.0f);
}

TEST_F(SavedGameTest, WithoutHardpointsLineElevenIsTheShipsHold) {
  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n0\n0\nE\nS\nP\n3 3\n1\n"));
  EXPECT_EQ(playerShip.hardPointCount, 0);
  EXPECT_EQ(playerShip.shipHold[0], 3.0f);
  EXPECT_EQ(playerShip.shipHold[1], 3.0f);
  EXPECT_FLOAT_EQ(playerShip.shipHoldFree, 94.0f);
  EXPECT_EQ(playerShip.roverHold[0], 1.0f);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 49.0f);
  EXPECT_STREQ(playerShip.hardPoints[0].weaponName, "");
}

TEST_F(SavedGameTest, NumbersPastTheTwentySecondAreIgnored) {
  std::string hold;
  for (int i = 1; i <= 25; ++i) hold += std::to_string(i) + " ";
  LogWatch log;
  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n0\n0\nE\nS\nP\n" + hold + "\n" + hold + "\n"));
  EXPECT_EQ(playerShip.shipHold[21], 22.0f);
  EXPECT_EQ(playerShip.roverHold[21], 22.0f);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 50.0f - 253.0f) << "the sum of 1 to 22";
  EXPECT_TRUE(log.saw("25 numbers on the ship's hold line"));
  EXPECT_TRUE(log.saw("25 numbers on the rover's hold line"));
}

TEST_F(SavedGameTest, AShortFileStopsWhereItEnds) {
  playerShip.roverHoldFree = 7.0f;
  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n0\n0\nE\nS\nP\n1 1\n"));
  EXPECT_FLOAT_EQ(playerShip.shipHoldFree, 98.0f);
  EXPECT_FLOAT_EQ(playerShip.roverHoldFree, 50.0f) << "as the ship file left it";
  EXPECT_EQ(playerShip.fuel, 0) << "set only after the rover's hold line";
  EXPECT_EQ(playerShip.shield.shieldCurrent, 0);
}

TEST_F(SavedGameTest, MissingFileChangesNothing) {
  gameState.posX = 1234;
  std::strcpy(playerShip.shipName, "Unchanged");
  LogWatch log;
  EXPECT_FALSE(loadGame("NoSuch.sav"));
  EXPECT_EQ(gameState.posX, 1234);
  EXPECT_STREQ(playerShip.shipName, "Unchanged");
  EXPECT_FALSE(log.saw("Loading: "));
}

TEST_F(SavedGameTest, ModeOrPlanetOutsideTheirRangesStartInSpace) {
  LogWatch log;
  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n0\n7\nE\nS\nP\n0\n0\n"));
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_TRUE(log.saw("mode 7 is not 0 to 3"));

  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n12\n2\nE\nS\nP\n0\n0\n"));
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_EQ(gameState.currentPlanet, 0);
  EXPECT_TRUE(log.saw("planet slot 12 is not 0 to 9"));

  ASSERT_TRUE(load("Bare\nN\n1\n1\n1\n1\n-1\n1\nE\nS\nP\n0\n0\n"));
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_EQ(gameState.currentPlanet, 0);
}

TEST_F(SavedGameTest, CellsOffTheMapsAreKeptAtTheEdge) {
  LogWatch log;
  ASSERT_TRUE(load("Bare\nN\n-4\n99999999999\n400\n-2\n0\n0\nE\nS\nP\n0\n0\n"));
  EXPECT_EQ(gameState.posX, 300);
  EXPECT_EQ(gameState.posY, 499 * 50 + 300);
  EXPECT_EQ(gameState.sysX, 280 * 50);
  EXPECT_EQ(gameState.sysY, 0);
  EXPECT_TRUE(log.saw("star-map x cell -4 is off the map"));
}

TEST_F(SavedGameTest, LongTextsAreCutToTheirFields) {
  const std::string longText(200, 'n');
  ASSERT_TRUE(load("Bare\n" + longText + "\n1\n1\n1\n1\n0\n0\n" + longText + "\nS\nP\n0\n0\n"));
  EXPECT_EQ(std::string(playerShip.shipName), std::string(99, 'n'));
  EXPECT_EQ(std::string(playerShip.engine.name), std::string(99, 'n'));
}

namespace {

// Puts an object into a star-map cell for one test and takes it out again.
class PlacedObject {
 public:
  PlacedObject(int x, int y) : x_(x), y_(y), previous_(starMap[x][y].object) {
    object.x = x;
    object.y = y;
    std::strcpy(object.Class, "G");
    starMap[x][y].object = &object;
  }
  ~PlacedObject() {
    releasePlanetImages(&object);
    starMap[x_][y_].object = previous_;
  }
  StellarObject object;

 private:
  int x_, y_;
  StellarObject* previous_;
};

}  // namespace

TEST_F(SavedGameTest, RestoringASystemThatIsNotThereFallsBackToSpace) {
  gameState.mode = System;
  gameState.sectorX = 3;
  gameState.sectorY = 4;
  const StellarObject* before = starMap[3][4].object;
  ASSERT_EQ(before, nullptr) << "the test needs an empty cell";
  LogWatch log;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_TRUE(log.saw("Load file ask for a solar system that doesn't exist"));

  gameState.mode = Orbit;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, Space);

  // A cell off the map is no system either.
  gameState.mode = Surface;
  gameState.sectorX = 995;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, Space);
}

TEST_F(SavedGameTest, RestoringASystemMakesItCurrent) {
  PlacedObject placed(7, 8);
  gameState.mode = System;
  gameState.sectorX = 7;
  gameState.sectorY = 8;
  gameState.sysX = 1500;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, System);
  EXPECT_EQ(gameState.currentObject, &placed.object);
  EXPECT_EQ(gameState.sysX, 1500);
}

TEST_F(SavedGameTest, RestoringAnEmptyPlanetSlotTellsThePlayer) {
  PlacedObject placed(7, 8);
  gameState.mode = Orbit;
  gameState.sectorX = 7;
  gameState.sectorY = 8;
  gameState.currentPlanet = 4;
  gameState.speed = 6;
  gameState.heading = 90;
  gameState.scansTaken = 1;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, Space);
  EXPECT_STREQ(lastMessage(), "Load file ask for planet that doesn't exist");
  EXPECT_EQ(gameState.currentObject, &placed.object);
  EXPECT_EQ(gameState.speed, 0);
  EXPECT_EQ(gameState.heading, 0);
  EXPECT_EQ(gameState.scansTaken, 0);
}

TEST_F(SavedGameTest, RestoringAnOrbitPreparesThePlanet) {
  PlacedObject placed(7, 8);
  Planet planet;
  planet.Seed = 4242;
  planet.MineralDensity = 5;
  std::strcpy(planet.Hydro, "Water");
  placed.object.Planets[2] = &planet;
  placed.object.NumOfPlanets = 3;
  gameState.mode = Orbit;
  gameState.sectorX = 7;
  gameState.sectorY = 8;
  gameState.currentPlanet = 2;
  gameState.scansTaken = 1;
  restoreSavedMode();
  EXPECT_EQ(gameState.mode, Orbit);
  EXPECT_EQ(gameState.currentObject, &placed.object);
  EXPECT_EQ(gameState.scansTaken, 0);
  EXPECT_STREQ(gameState.analysisLines[0], " ");
  EXPECT_STREQ(gameState.analysisLines[3], "Scans must be taken first before it can be analyze");
  freeMineralDeposits(gameState.deposits);
  releasePlanetImages(&placed.object);
  placed.object.Planets[2] = nullptr;
}
