// The saved-game loader on arbitrary bytes, written to NewGame.sav, followed by
// the component loaders as start-up runs them. The scratch directory holds the
// ships and components the seed games name, so the fuzzer reaches the weapon
// and hold lines of ships with and without hardpoints.
#include <cmath>
#include <cstdint>

#include "base/game_state.h"
#include "fuzz_support.h"
#include "shell/saved_game.h"
#include "ship/components.h"
#include "ship/ship.h"
#include "universe/star_map.h"

namespace {

// The amounts are always finite and fit the hold; once both hold lines are read
// (the starting values are set after the rover's) free is capacity - sum.
void checkHold(const CargoHold& hold, float capacity, float free, bool linesRead, const char* which) {
  float sum = 0.0f;
  for (float amount : hold) {
    fuzzCheck(std::isfinite(amount) && amount >= 0.0f && amount <= capacity, which);
    sum += amount;
  }
  fuzzCheck(std::isfinite(free) && free >= 0.0f, which);
  if (linesRead) fuzzCheck(std::fabs(capacity - sum - free) <= 0.01f + capacity * 1e-5f, which);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  enterScratchDirectory();
  writeScratchFile("Ships/Twin.txt", "Twin\nGunboat\n90\n4\n2\n1,1\n2,2\n3,3\n4,4\n5,5\nTwo guns.\n");
  writeScratchFile("Ships/Bare.txt", "Bare\nHauler\n80\n2\n0\n1,1\n2,2\n3,3\nNo guns.\n");
  writeScratchFile("Ships/Wide.txt", "Wide\nBarge\n300\n30\n25\n1 1\n2 2\n3 3\n4 4\nMore mounts than fit.\n");
  writeScratchFile("Engines/Quick.txt", "12\nA quick engine.\n");
  writeScratchFile("Shields/Strong.txt", "# class\n7\nA strong shield.\n");
  writeScratchFile("PowerPlants/Warm.txt", "9\nA warm reactor.\n");
  writeScratchFile("Weapons/Laser.txt", "Laser\n35\nA laser.\n");
  writeScratchFile("Weapons/Gun.txt", "Gun\n-4\n");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeScratchFile("NewGame.sav", data, size);
  playerShip = Ship{};
  playerShip.roverHoldFree = 50.0f;
  gameState = GameState{};
  gameState.posX = gameState.posY = 300;  // where a game that names no cell stays
  if (!loadGame("NewGame.sav")) return 0;
  loadEngine(playerShip);
  loadShield(playerShip);
  loadPowerPlant(playerShip);
  loadWeapons(playerShip);

  const GameState& g = gameState;
  fuzzCheck(g.mode >= Space && g.mode <= Surface, "mode outside 0 to 3");
  fuzzCheck(g.currentPlanet >= 0 && g.currentPlanet < maxPlanets, "planet slot outside 0 to 9");
  const int cellX = (g.posX - 300) / 50, cellY = (g.posY - 300) / 50;
  fuzzCheck(cellX >= 0 && cellX < starMapSize && cellY >= 0 && cellY < starMapSize, "star-map cell off the grid");
  const bool bothHoldsRead = playerShip.fuel == 999;
  checkHold(playerShip.shipHold, playerShip.shipHoldCapacity, playerShip.shipHoldFree, bothHoldsRead,
            "ship's hold invariant");
  checkHold(playerShip.roverHold, 50.0f, playerShip.roverHoldFree, bothHoldsRead, "rover's hold invariant");
  return 0;
}
