#include "shell/saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>

#include "base/game_state.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "universe/planet.h"
#include "universe/star_map.h"

// Designated initializers set just the fields a case needs; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

// Saved games are read in a directory of their own holding a ship with two
// hardpoints (Twin) and one without (Bare), as the game reads its data directory.
class SavedGameTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    playerShip = Ship{};
    dir.write("Ships/Twin.txt", "Twin\nGunboat\n90\n4\n2\n1,1\n2,2\n3,3\n4,4\n5,5\nTwo guns.\n");
    dir.write("Ships/Bare.txt", "Bare\nHauler\n80\n2\n0\n1,1\n2,2\n3,3\nNo guns.\n");
    previous_ = std::filesystem::current_path();
    std::filesystem::current_path(dir.dir());
  }
  void TearDown() override {
    std::filesystem::current_path(previous_);
    freeMineralDeposits(gameState.deposits);
    playerShip = Ship{};
    gameState = GameState{};
  }
  bool load(const std::string& content) { return loadGame(dir.write("Test.sav", content).c_str()); }
  // A Bare saved game: position, system cell, slot and mode, then the hold lines.
  bool loadBare(const std::string& cells, const std::string& holds) {
    return load("Bare\nN\n" + cells + "\nE\nS\nP\n" + holds);
  }

  TempDir dir;
  std::filesystem::path previous_;
};

}  // namespace

TEST_F(SavedGameTest, LinesAreCountedPastCommentsThroughBothHolds) {
  LogWatch log;
  ASSERT_TRUE(
      load("# a saved game\n# for the tests\nTwin\nLucky Star\n10\n# the second axis\n20\n140\n2\n3\n0\n"
           "Quick\nStrong\nWarm\n# the two weapons\nLaser\nGun\n1, 2.5\n# the rover's hold\n"
           "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\nignored after the rover's hold\n"));
  EXPECT_TRUE(log.saw("Load and cache player object: Twin"));
  EXPECT_STREQ(playerShip.shipName, "Lucky Star");
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.sysX, gameState.sysY, gameState.currentPlanet),
            std::tuple(800, 1300, 7000, 100, 3));
  EXPECT_STREQ(playerShip.powerPlant.name, "Warm");
  EXPECT_STREQ(playerShip.hardPoints[1].weaponName, "Gun");
  EXPECT_STREQ(playerShip.hardPoints[2].weaponName, "");
  EXPECT_EQ(std::pair(playerShip.shipHoldFree, playerShip.roverHoldFree), std::pair(196.5f, 50.0f));
  EXPECT_EQ(std::pair(playerShip.fuel, playerShip.shield.shieldCurrent), std::pair(999, 220));
}

TEST_F(SavedGameTest, HoldListsMixSeparatorsAndStopAtTheTwentySecondNumber) {
  ASSERT_TRUE(loadBare("1\n1\n1\n1\n0\n0", "10, 5.5 0\n\t4,\t,4  \n"));
  EXPECT_EQ(playerShip.hardPointCount, 0);
  EXPECT_EQ(std::tuple(playerShip.shipHold[1], playerShip.shipHoldFree), std::tuple(5.5f, 100.0f - 15.5f));
  EXPECT_EQ(std::tuple(playerShip.roverHold[1], playerShip.roverHoldFree), std::tuple(4.0f, 42.0f));

  std::string hold;
  for (int i = 1; i <= 25; ++i) hold += std::to_string(i) + " ";
  LogWatch log;
  ASSERT_TRUE(loadBare("1\n1\n1\n1\n0\n0", hold + "\n" + hold + "\n"));
  EXPECT_EQ(playerShip.shipHold[21], 22.0f);
  EXPECT_EQ(playerShip.roverHoldFree, 50.0f - 253.0f) << "the sum of 1 to 22";
  EXPECT_TRUE(log.saw("25 numbers on the ship's hold line"));
  EXPECT_TRUE(log.saw("25 numbers on the rover's hold line"));
}

TEST_F(SavedGameTest, MissingOrShortFilesStopWhereTheyEnd) {
  gameState.posX = 1234;
  EXPECT_FALSE(loadGame("NoSuch.sav"));
  EXPECT_EQ(gameState.posX, 1234);
  playerShip.roverHoldFree = 7.0f;
  ASSERT_TRUE(loadBare("1\n1\n1\n1\n0\n0", "1 1\n"));
  // The rover's hold as the ship file left it; the fuel is set only after the rover's hold line.
  EXPECT_EQ(std::tuple(playerShip.shipHoldFree, playerShip.roverHoldFree, playerShip.fuel),
            std::tuple(98.0f, 50.0f, 0));
}

TEST_F(SavedGameTest, ValuesOutsideTheirRangesAreClampedWithALogLine) {
  const struct {
    const char* cells;
    const char* logged;
  } cases[] = {{"1\n1\n1\n1\n0\n7", "mode 7 is not 0 to 3"},
               {"1\n1\n1\n1\n12\n2", "planet slot 12 is not 0 to 9"},
               {"1\n1\n1\n1\n-1\n1", "planet slot -1 is not 0 to 9"},
               {"-4\n99999999999\n400\n-2\n0\n0", "star-map x cell -4 is off the map"}};
  for (const auto& c : cases) {
    LogWatch log;
    ASSERT_TRUE(loadBare(c.cells, "0\n0\n"));
    EXPECT_EQ(std::pair(gameState.mode, gameState.currentPlanet), std::pair(int(Space), 0)) << c.cells;
    EXPECT_TRUE(log.saw(c.logged)) << c.cells;
  }
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.sysX, gameState.sysY),
            std::tuple(300, 499 * 50 + 300, 280 * 50, 0));

  const std::string longText(200, 'n');
  ASSERT_TRUE(load("Bare\n" + longText + "\n1\n1\n1\n1\n0\n0\n" + longText + "\nS\nP\n0\n0\n"));
  EXPECT_EQ(std::string(playerShip.shipName), std::string(99, 'n'));
  EXPECT_EQ(std::string(playerShip.engine.name), std::string(99, 'n'));
}

TEST_F(SavedGameTest, RestoringASystemThatIsNotThereFallsBackToSpace) {
  ASSERT_EQ(starMap[3][4].object, nullptr);
  for (const auto& [mode, sectorX] : {std::pair(System, 3), std::pair(Orbit, 3), std::pair(Surface, 995)}) {
    LogWatch log;
    gameState = {.mode = mode, .sectorX = sectorX, .sectorY = 4};
    restoreSavedMode();
    EXPECT_EQ(gameState.mode, Space) << mode;
    EXPECT_TRUE(log.saw("Load file ask for a solar system that doesn't exist")) << mode;
  }
}

TEST_F(SavedGameTest, RestoringAnOrbitPreparesThePlanetOrTellsThePlayerItIsNotThere) {
  PlacedObjects objects;
  StellarObject* star = objects.place(7, 8);
  star->Planets[2] = new Planet;
  star->Planets[2]->Seed = 4242;
  star->NumOfPlanets = 3;
  for (int slot : {4, 2}) {
    gameState = {.mode = Orbit, .sectorX = 7, .sectorY = 8, .heading = 90, .currentPlanet = slot};
    gameState.scansTaken = 1;
    restoreSavedMode();
    EXPECT_EQ(std::tuple(gameState.mode, gameState.currentObject, gameState.heading, gameState.scansTaken),
              std::tuple(slot == 2 ? Orbit : Space, star, 0, 0));
    if (slot == 4) {
      EXPECT_STREQ(lastMessage(), "Load file ask for planet that doesn't exist");
    }
  }
  EXPECT_STREQ(gameState.analysisLines[3], scansFirstText);
}
