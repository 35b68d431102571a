#include "shell/saved_game_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "base/game_state.h"
#include "shell/saved_game.h"
#include "ship/ship.h"

namespace {

// Floor division: a system position just past the left or top edge is cell -1,
// so the ship leaves by that edge again when the game is continued.
int cellOf(int position) { return position >= 0 ? position / 50 : -((-position + 49) / 50); }

// The reader takes a carriage return before the line feed for a DOS line end;
// a text that really ends in one gets a second, which the reader leaves it.
void addLine(std::string& text, const char* line) {
  text += line;
  if (*line && line[std::strlen(line) - 1] == '\r') text += '\r';
  text += '\n';
}

void addNumber(std::string& text, int n) { addLine(text, std::to_string(n).c_str()); }

// Nine significant digits give back the same float through atof.
void addHold(std::string& text, const CargoHold& hold, float capacity) {
  float sum = 0.0f;
  std::string line;
  for (std::size_t i = 0; i < hold.size(); ++i) {
    float amount = std::isfinite(hold[i]) && hold[i] > 0.0f ? hold[i] : 0.0f;
    if (sum + amount > capacity) {
      amount = std::max(0.0f, capacity - sum);
      while (amount > 0.0f && sum + amount > capacity) amount = std::nextafter(amount, 0.0f);
    }
    sum += amount;
    char number[32];
    std::snprintf(number, sizeof number, "%s%.9g", i ? " " : "", static_cast<double>(amount));
    line += number;
  }
  addLine(text, line.c_str());
}

}  // namespace

std::string savedGameText() {
  const Ship& ship = playerShip;
  const GameState& g = gameState;
  std::string text = "# A voyage of Star Prospector, written by the game.\n# Ship file, ship name:\n";
  addLine(text, savedShipStem());
  addLine(text, ship.shipName);
  text += "# Star-map cell, system cell, planet slot, mode:\n";
  addNumber(text, cellOf(g.posX - 300));
  addNumber(text, cellOf(g.posY - 300));
  addNumber(text, cellOf(g.sysX));
  addNumber(text, cellOf(g.sysY));
  addNumber(text, g.currentPlanet);
  addNumber(text, g.mode);
  text += "# Engine, shield, power plant, one weapon per hardpoint:\n";
  addLine(text, ship.engine.name);
  addLine(text, ship.shield.name);
  addLine(text, ship.powerPlant.name);
  const int hardPoints = std::clamp(ship.hardPointCount, 0, maxHardPoints);
  for (int i = 0; i < hardPoints; ++i) addLine(text, ship.hardPoints[i].weaponName);
  text += "# The ship's hold, then the rover's, in CU in mineral order:\n";
  addHold(text, ship.shipHold, ship.shipHoldCapacity);
  addHold(text, ship.roverHold, roverHoldCapacity);
  return text;
}
