// The saved-game reader on arbitrary bytes, read from memory, followed by the
// components as start-up loads them. The ships and components the seed games
// name are read once, at the start, from texts in memory, so the fuzzer reaches
// the weapon and hold lines of ships with and without hardpoints; a name it
// makes up finds nothing, as a missing file would.
#include <cmath>
#include <cstdint>
#include <map>
#include <string>

#include "base/data_problems.h"
#include "base/game_state.h"
#include "fuzz_support.h"
#include "platform/data_file.h"
#include "shell/saved_game.h"
#include "ship/components.h"
#include "ship/ship.h"
#include "universe/star_map.h"

namespace {

std::map<std::string, Ship> ships;
std::map<std::string, Engine> engines;
std::map<std::string, Shield> shields;
std::map<std::string, PowerPlant> powerPlants;
std::map<std::string, Weapon> weapons;

template <typename Record, typename Reader>
void keep(std::map<std::string, Record>& records, const std::string& name, const char* text, Reader read) {
  DataFile file(DataFile::Text{text});
  read(records[name], file, name);
}

template <typename Record, typename Apply>
void useNamed(const std::map<std::string, Record>& records, const char* name, Apply apply) {
  const auto found = records.find(name);
  if (found != records.end()) apply(found->second);
}

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
  auto ship = [](Ship& s, DataFile& f, const std::string& n) { readShipFile(s, f, n); };
  keep(ships, "Twin", "Twin\nGunboat\n90\n4\n2\n1,1\n2,2\n3,3\n4,4\n5,5\nTwo guns.\n", ship);
  keep(ships, "Bare", "Bare\nHauler\n80\n2\n0\n1,1\n2,2\n3,3\nNo guns.\n", ship);
  keep(ships, "Wide", "Wide\nBarge\n300\n30\n25\n1 1\n2 2\n3 3\n4 4\nMore mounts than fit.\n", ship);
  keep(engines, "Quick", "12\nA quick engine.\n", readEngine);
  keep(shields, "Strong", "# class\n7\nA strong shield.\n", readShield);
  keep(powerPlants, "Warm", "9\nA warm reactor.\n", readPowerPlant);
  keep(weapons, "Laser", "Laser\n35\nA laser.\n", readWeapon);
  keep(weapons, "Gun", "Gun\n-4\n", readWeapon);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  playerShip = Ship{};
  playerShip.roverHoldFree = 50.0f;
  gameState = GameState{};
  gameState.posX = gameState.posY = 300;  // where a game that names no cell stays
  DataFile file(fuzzText(data, size));
  readSavedGame(file, "NewGame.sav", [](Ship& ship, const char* stem) {
    const auto found = ships.find(stem);
    if (found == ships.end()) {
      reportDataProblem(stem, 0, "Couldn't open the ship file %s", stem);
    } else {
      ship = found->second;
    }
  });
  Ship& s = playerShip;
  useNamed(engines, s.engine.name, [&](const Engine& e) { s.engine.engineClass = e.engineClass; });
  useNamed(shields, s.shield.name, [&](const Shield& e) { s.shield.shieldClass = e.shieldClass; });
  useNamed(powerPlants, s.powerPlant.name,
           [&](const PowerPlant& e) { s.powerPlant.powerPlantClass = e.powerPlantClass; });
  for (int i = 0; i < s.hardPointCount && i < maxHardPoints; ++i)
    useNamed(weapons, s.hardPoints[i].weaponName, [&](const Weapon& w) { s.hardPoints[i].weapon = w; });

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
