#include "shell/saved_game.h"

#include "platform/data_file.h"
#include "support/test_support.h"

// Designated initializers set just the fields a case needs; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

class SavedGameTest : public GameTest {
 protected:
  void TearDown() override {
    freeMineralDeposits(gameState.deposits);
    playerShip = Ship{};
    gameState = GameState{};
  }
  // Reads a saved game whose ship has `hardPoints` weapons and two holds of 50 CU.
  static void read(const std::string& text, int hardPoints = 0) {
    DataFile file(DataFile::Text{text});
    readSavedGame(file, "Test.sav", [&](Ship& ship, const char*) {
      ship.hardPointCount = hardPoints;
      ship.shipHoldCapacity = ship.shipHoldFree = 100;
      ship.roverHoldFree = roverHoldCapacity;
    });
  }
  // Position, system cell, slot and mode, then the hold lines.
  static void readCells(const std::string& cells, const std::string& holds) {
    read("Bare\nN\n" + cells + "\nE\nS\nP\n" + holds);
  }
};

}  // namespace

TEST_F(SavedGameTest, LinesAreCountedPastCommentsThroughBothHolds) {
  read(
      "# a saved game\n# for the tests\nTwin\nLucky Star\n10\n# the second axis\n20\n140\n2\n3\n0\n"
      "Quick\nStrong\nWarm\n# the two weapons\nLaser\nGun\n1, 2.5\n# the rover's hold\n"
      "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\nignored after the rover's hold\n",
      2);
  EXPECT_EQ(
      std::tuple(std::string(playerShip.shipName), gameState.currentPlanet, std::string(playerShip.powerPlant.name),
                 std::string(playerShip.hardPoints[1].weaponName), playerShip.hardPoints[2].weaponName[0]),
      std::tuple("Lucky Star", 3, "Warm", "Gun", '\0'));
  EXPECT_EQ(
      std::tuple(playerShip.shipHoldFree, playerShip.roverHoldFree, playerShip.fuel, playerShip.shield.shieldCurrent),
      std::tuple(96.5f, 50.0f, 999, 220));
}

TEST_F(SavedGameTest, ValuesOutsideTheirRangesFallBackWithALogLine) {
  // System cells one past an edge stay there, unlogged, so the first System frame leaves by that edge.
  const struct {
    const char *cells, *logged;  // "": nothing is far outside, and the system is on the map
    int mode, sysX, sysY;
  } cases[] = {{"1\n1\n1\n1\n0\n7", "mode 7 is not 0 to 3", Space, 50, 50},
               {"1\n1\n1\n1\n12\n2", "planet slot 12 is not 0 to 9", Space, 50, 50},
               {"1\n1\n1\n1\n-1\n1", "planet slot -1 is not 0 to 9", Space, 50, 50},
               {"100\n100\n281\n246\n0\n1", "", System, 281 * 50, 246 * 50},
               {"100\n100\n-1\n-1\n0\n1", "", System, -50, -50}};
  PlacedObjects objects;
  objects.place(100, 100, "G");
  for (const auto& c : cases) {
    LogWatch log;
    readCells(c.cells, "0\n0\n");
    checkSavedPlace();
    EXPECT_EQ(std::tuple(gameState.mode, gameState.currentPlanet, gameState.sysX, gameState.sysY),
              std::tuple(c.mode, 0, c.sysX, c.sysY))
        << c.cells;
    EXPECT_TRUE(*c.logged ? log.saw(c.logged) : !log.saw("far outside") && !log.saw("has none")) << c.cells;
  }
  LogWatch log;
  readCells("-4\n99999999999\n400\n-2\n0\n0", "0\n0\n");
  EXPECT_EQ(std::tuple(gameState.posX, gameState.posY, gameState.sysX, gameState.sysY),
            std::tuple(300, 499 * 50 + 300, 281 * 50, -50));
  for (const char* line :
       {"star-map x cell -4 is off the map", "system x cell 400 is far outside the system; using 281",
        "system y cell -2 is far outside the system; using -1"})
    EXPECT_TRUE(log.saw(line)) << line;

  const std::string longText(200, 'n');
  read("Bare\n" + longText + "\n1\n1\n1\n1\n0\n0\n" + longText + "\nS\nP\n0\n0\n");
  EXPECT_EQ(std::string(playerShip.shipName) + playerShip.engine.name, std::string(198, 'n'));
}

// The ship's hold is line 12 of the file, the rover's line 13.
TEST_F(SavedGameTest, HoldAmountsThatAreNotFiniteOrDoNotFitAreLoggedAndLeftEmpty) {
  using Slots = std::array<float, 3>;
  const struct {
    const char* holds;
    Slots ship, rover;
    float shipFree, roverFree;
    const char* logged;
  } cases[] = {
      {"nan 5\n0\n", {0, 5, 0}, {}, 95, 50, "line 12: ship's hold amount nan is not 0 to 100.00 CU; slot 1"},
      {"-0.5, 2\n0\n", {0, 2, 0}, {}, 98, 50, "line 12: ship's hold amount -0.5 is not 0 to 100.00 CU; slot 1"},
      {"60 50 40\n0\n", {60, 0, 40}, {}, 0, 50, "line 12: ship's hold amount 50 is not 0 to 40.00 CU; slot 2"},
      {"100\n-inf 50 1\n", {100, 0, 0}, {0, 50, 0}, 0, 0, "line 13: rover's hold amount 1 is not 0 to 0.00 CU; slot 3"},
      {"0\n49.5 0.25 0.25\n", {}, {49.5f, 0.25f, 0.25f}, 100, 0, nullptr},
      {"-0 3\n-0 1\n", {0, 3, 0}, {0, 1, 0}, 97, 49, nullptr}};  // a negative zero reads as 0
  for (const auto& c : cases) {
    LogWatch log;
    playerShip = Ship{};
    readCells("1\n1\n1\n1\n0\n0", c.holds);
    const auto first = [](const auto& hold) { return Slots{hold[0], hold[1], hold[2]}; };
    EXPECT_EQ(std::tuple(first(playerShip.shipHold), first(playerShip.roverHold), playerShip.shipHoldFree,
                         playerShip.roverHoldFree),
              std::tuple(c.ship, c.rover, c.shipFree, c.roverFree))
        << c.holds;
    EXPECT_FALSE(std::signbit(playerShip.shipHold[0])) << c.holds;
    EXPECT_TRUE(c.logged ? log.saw(c.logged) : !log.saw("hold amount")) << c.holds;
  }
}

TEST_F(SavedGameTest, RestoringAPlaceThatIsNotThereFallsBackToSpaceAndAnOrbitPreparesThePlanet) {
  ASSERT_EQ(starMap[3][4].object, nullptr);
  for (const auto& [mode, sectorX] : {std::pair(System, 3), std::pair(Orbit, 3), std::pair(Surface, 995)}) {
    LogWatch log;
    gameState = {.mode = mode, .sectorX = sectorX, .sectorY = 4};
    restoreSavedMode();
    EXPECT_EQ(gameState.mode, Space) << mode;
    EXPECT_TRUE(log.saw("Load file ask for a solar system that doesn't exist")) << mode;
  }
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
}
