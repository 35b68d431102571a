// The voyage writer against the saved-game reader: any saved game, once
// loaded, is written out and loaded again, and the second load must give the
// same game for everything the format holds. Seeds are the saved-game corpus.
#include <cstdint>
#include <cstring>
#include <map>
#include <string>

#include "base/game_state.h"
#include "fuzz_support.h"
#include "platform/data_file.h"
#include "shell/saved_game.h"
#include "shell/saved_game_writer.h"
#include "ship/ship.h"

namespace {

// The ships the seed games name, read once from memory; a made-up name finds
// none, as a missing file would.
std::map<std::string, Ship> ships;

void keepShip(const char* name, const char* text) {
  DataFile file(DataFile::Text{text});
  readShipFile(ships[name], file, name);
}

// Reads a saved game's text from memory as start-up reads the file.
void readGame(const std::string& text) {
  DataFile file(DataFile::Text{text});
  readSavedGame(file, "NewGame.sav", [](Ship& ship, const char* stem) {
    const auto found = ships.find(stem);
    if (found != ships.end()) ship = found->second;
  });
}

// The state a fresh start has before a saved game is read.
void resetGame() {
  playerShip = Ship{};
  playerShip.roverHoldFree = 50.0f;
  gameState = GameState{};
  gameState.posX = gameState.posY = 300;
}

bool sameText(const char* a, const char* b) { return std::strcmp(a, b) == 0; }

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  keepShip("Twin", "Twin\nGunboat\n90\n4\n2\n1,1\n2,2\n3,3\n4,4\n5,5\nTwo guns.\n");
  keepShip("Bare", "Bare\nHauler\n80\n2\n0\n1,1\n2,2\n3,3\nNo guns.\n");
  keepShip("Wide", "Wide\nBarge\n300\n30\n25\n1 1\n2 2\n3 3\n4 4\nMore mounts than fit.\n");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  resetGame();
  readGame(std::string(reinterpret_cast<const char*>(data), size));
  const GameState first = gameState;
  const Ship ship = playerShip;
  const std::string stem = savedShipStem();
  const bool complete = ship.fuel == 999;  // set once the rover's hold line is read

  const std::string written = savedGameText();
  resetGame();
  readGame(written);
  const GameState& g = gameState;
  const Ship& again = playerShip;
  fuzzCheck(again.fuel == 999, "the written voyage ends before the rover's hold line");
  fuzzCheck(stem == savedShipStem() && sameText(ship.shipName, again.shipName), "ship file or name changed");
  fuzzCheck(g.posX == first.posX && g.posY == first.posY && g.sysX == first.sysX && g.sysY == first.sysY,
            "position changed");
  fuzzCheck(g.mode == first.mode && g.currentPlanet == first.currentPlanet, "mode or planet changed");
  fuzzCheck(sameText(ship.engine.name, again.engine.name) && sameText(ship.shield.name, again.shield.name) &&
                sameText(ship.powerPlant.name, again.powerPlant.name),
            "component names changed");
  fuzzCheck(ship.hardPointCount == again.hardPointCount, "hardpoint count changed");
  for (int i = 0; i < ship.hardPointCount && i < maxHardPoints; ++i) {
    fuzzCheck(sameText(ship.hardPoints[i].weaponName, again.hardPoints[i].weaponName), "weapon name changed");
  }
  fuzzCheck(ship.shipHold == again.shipHold && ship.roverHold == again.roverHold, "hold amounts changed");
  if (complete) {
    fuzzCheck(ship.shipHoldFree == again.shipHoldFree && ship.roverHoldFree == again.roverHoldFree,
              "free hold space changed");
  }
  return 0;
}
