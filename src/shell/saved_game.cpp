#include "shell/saved_game.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <string>

#include "base/data_problems.h"
#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "platform/data_file.h"
#include "platform/data_path.h"
#include "platform/text.h"
#include "shell/orbit.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "surface/surface_map.h"
#include "universe/planet.h"
#include "universe/star_map.h"
#include "universe/viewscreen.h"

namespace {

// The system plan is 281 x 246 cells.
constexpr int systemWidth = 281;
constexpr int systemHeight = 246;

// The saved game being read and the number of its line in hand, for reports.
std::string savedFile;
int savedLine = 0;
int modeLine = 0;
int planetLine = 0;
// The ship file stem of line 0 as last read; the ship record keeps only the class.
std::string shipStem;

__attribute__((format(printf, 1, 2))) void problem(const char* format, ...) {
  va_list args;
  va_start(args, format);
  reportDataProblemV(savedFile, savedLine, format, args);
  va_end(args);
}

// A saved cell outside its map would put the ship where no view can index it;
// it is kept at the nearest edge instead.
int savedCell(const std::string& line, int limit, const char* what) {
  const int cell = parseInt(line);
  const int kept = std::clamp(cell, 0, limit - 1);
  if (kept != cell) problem("Saved game: %s cell %d is off the map; using %d", what, cell, kept);
  return kept;
}

// A system cell past an edge is kept past it: the first System frame then
// takes the ship out of the system by that edge, as flight would. Only the
// distance is limited, to one cell beyond the edge, so the position cannot
// overflow and the exit tests see the same side.
int savedSystemCell(const std::string& line, int limit, const char* what) {
  const int cell = parseInt(line);
  const int kept = std::clamp(cell, -1, limit);
  if (kept != cell) problem("Saved game: %s cell %d is far outside the system; using %d", what, cell, kept);
  return kept;
}

template <std::size_t N>
void copyName(char (&field)[N], const std::string& line, const char* what) {
  if (copyText(field, line)) problem("Saved game: %s longer than %zu characters, cut", what, N - 1);
}

// A hold line: up to 22 amounts from slot 0; the slots after the last number
// keep what they held. Returns the sum of the numbers stored, added up in
// single precision in the order of the line. An amount that is not a finite
// number from 0 up to what is still free of `capacity` is logged and leaves
// its slot empty, so the hold's free space never goes negative or non-finite.
float readHold(const std::string& line, CargoHold& hold, float capacity, const char* which) {
  const std::vector<std::string_view> tokens = splitTokens(line);
  if (tokens.size() > hold.size()) {
    problem("Saved game: %zu numbers on the %s hold line; only the first %zu kept", tokens.size(), which, hold.size());
  }
  float sum = 0.0f;
  for (std::size_t i = 0; i < tokens.size() && i < hold.size(); ++i) {
    const float amount = static_cast<float>(parseReal(tokens[i]));
    if (!std::isfinite(amount) || amount < 0.0f || sum + amount > capacity) {
      const int shown = static_cast<int>(std::min<std::size_t>(tokens[i].size(), 12));
      problem("%s hold amount %.*s is not 0 to %.2f CU; slot %zu left empty", which, shown, tokens[i].data(),
              std::max(0.0f, capacity - sum), i + 1);
      hold[i] = 0.0f;
      continue;
    }
    // "-0" is a zero too; kept negative it would show as "-0.00".
    hold[i] = amount == 0.0f ? 0.0f : amount;
    sum += hold[i];
  }
  return sum;
}

void headerLine(int index, const std::string& line, const ShipLoader& loadShipNamed) {
  Ship& ship = playerShip;
  switch (index) {
    case 0: {
      char stem[100];
      copyName(stem, line, "ship file name");
      shipStem = stem;
      loadShipNamed(ship, stem);
      break;
    }
    case 1:
      copyName(ship.shipName, line, "ship name");
      break;
    case 2:
      gameState.posX = savedCell(line, starMapSize, "star-map x") * 50 + 300;
      break;
    case 3:
      gameState.posY = savedCell(line, starMapSize, "star-map y") * 50 + 300;
      break;
    case 4:
      gameState.sysX = savedSystemCell(line, systemWidth, "system x") * 50;
      break;
    case 5:
      gameState.sysY = savedSystemCell(line, systemHeight, "system y") * 50;
      break;
    case 6:
      gameState.currentPlanet = parseInt(line);
      planetLine = savedLine;
      break;
    case 7:
      gameState.mode = parseInt(line);
      modeLine = savedLine;
      break;
    case 8:
      copyName(ship.engine.name, line, "engine name");
      break;
    case 9:
      copyName(ship.shield.name, line, "shield name");
      break;
    case 10:
      copyName(ship.powerPlant.name, line, "power plant name");
      break;
    default:
      break;
  }
}

// The values a saved game does not hold, set once both holds are read.
void setStartingValues() {
  Ship& ship = playerShip;
  ship.engine.engineClass = 10;
  ship.powerPlant.powerPlantClass = 10;
  ship.shield.shieldClass = 10;
  ship.armorClass = 10;
  ship.shield.shieldMax = static_cast<int>(10 * 99.9);
  ship.armorMax = static_cast<int>(10 * 99.9);
  ship.fuel = 999;
  ship.hullCurrent = 70;
  ship.armorCurrent = 500;
  ship.shield.shieldCurrent = 220;
}

// A mode or planet slot the game does not have starts the game in Space.
void checkModeAndPlanet() {
  if (gameState.mode < Space || gameState.mode > Surface) {
    reportDataProblem(savedFile, modeLine, "Saved game: mode %d is not 0 to 3; starting in Space", gameState.mode);
    gameState.mode = Space;
  }
  if (gameState.currentPlanet < 0 || gameState.currentPlanet >= maxPlanets) {
    reportDataProblem(savedFile, planetLine, "Saved game: planet slot %d is not 0 to 9; starting in Space",
                      gameState.currentPlanet);
    gameState.currentPlanet = 0;
    gameState.mode = Space;
  }
}

StellarObject* objectUnderShip() {
  const int x = gameState.sectorX, y = gameState.sectorY;
  if (x < 0 || x >= starMapSize || y < 0 || y >= starMapSize) return nullptr;
  return starMap[x][y].object;
}

constexpr const char* missingSystemText = "Load file ask for a solar system that doesn't exist";
constexpr const char* missingPlanetText = "Load file ask for planet that doesn't exist";

void restoreOrbit() {
  gameState.scansTaken = 0;
  StellarObject* object = objectUnderShip();
  if (!object) {
    logMessage(missingSystemText);
    gameState.mode = Space;
    return;
  }
  buildPlanetImages(object);
  gameState.currentObject = object;
  gameState.speed = 0;
  gameState.heading = 0;
  Planet* planet = currentPlanetRecord();
  if (!planet) {
    showMessage(missingPlanetText);
    gameState.mode = Space;
    return;
  }
  establishOrbit(object, gameState.currentPlanet, planet);
}

}  // namespace

bool loadGame(const char* path) {
  DataFile file(hostPath(path));
  savedFile = path;
  savedLine = modeLine = planetLine = 0;
  if (!file.isOpen()) {
    reportDataProblem(savedFile, 0, "Couldn't open the saved game %s", path);
    return false;
  }
  logMessagef("Loading: %s", path);
  readSavedGame(file, path, [](Ship& ship, const char* stem) { loadShip(shipImages, ship, stem); });
  return true;
}

void readSavedGame(DataFile& file, const std::string& name, const ShipLoader& loadShipNamed) {
  savedFile = name;
  savedLine = modeLine = planetLine = 0;
  shipStem.clear();

  // Lines 0 to 10 are fixed, then one weapon per hardpoint of the ship that
  // line 0 loaded, the ship's hold and the rover's hold; the rest is ignored.
  enum class Section { Header, Weapons, ShipHold, RoverHold, Done };
  Section section = Section::Header;
  int lineIndex = 0;
  int weaponsRead = 0;
  int hardPoints = 0;
  std::string line;
  while (section != Section::Done && file.nextField(line)) {
    savedLine = file.lineNumber();
    if (file.lastLineCut()) problem("Saved game: line longer than 999 characters, cut");
    switch (section) {
      case Section::Header:
        headerLine(lineIndex++, line, loadShipNamed);
        if (lineIndex == 11) {
          hardPoints = std::clamp(playerShip.hardPointCount, 0, maxHardPoints);
          section = hardPoints > 0 ? Section::Weapons : Section::ShipHold;
        }
        break;
      case Section::Weapons:
        copyName(playerShip.hardPoints[weaponsRead].weaponName, line, "weapon name");
        if (line.empty()) problem("Saved game: hardpoint %d has no weapon named", weaponsRead + 1);
        if (++weaponsRead == hardPoints) section = Section::ShipHold;
        break;
      case Section::ShipHold:
        playerShip.shipHoldFree =
            playerShip.shipHoldCapacity - readHold(line, playerShip.shipHold, playerShip.shipHoldCapacity, "ship's");
        section = Section::RoverHold;
        break;
      case Section::RoverHold:
        playerShip.roverHoldFree =
            roverHoldCapacity - readHold(line, playerShip.roverHold, roverHoldCapacity, "rover's");
        setStartingValues();
        section = Section::Done;
        break;
      case Section::Done:
        break;
    }
  }
  savedLine = 0;
  if (section != Section::Done) problem("Saved game: ends before the rover's hold line; the rest keep their values");
  checkModeAndPlanet();
}

const char* savedShipStem() { return shipStem.c_str(); }

void restoreSavedMode() {
  switch (gameState.mode) {
    case Space:
      break;
    case System:
      if (StellarObject* object = objectUnderShip()) {
        buildPlanetImages(object);
        gameState.currentObject = object;
      } else {
        logMessage(missingSystemText);
        gameState.mode = Space;
      }
      break;
    case Orbit:
    case Surface:
      restoreOrbit();
      break;
    default:
      logMessagef("Saved game: mode %d is not 0 to 3; starting in Space", gameState.mode);
      gameState.mode = Space;
      break;
  }
}

void checkSavedPlace() {
  if (gameState.mode == Space) return;
  const int x = (gameState.posX - 300) / 50, y = (gameState.posY - 300) / 50;
  const StellarObject* object = x >= 0 && x < starMapSize && y >= 0 && y < starMapSize ? starMap[x][y].object : nullptr;
  if (!object) {
    reportDataProblem(savedFile, modeLine,
                      "Saved game: mode %d asks for a system at %d, %d, where the star map has none", gameState.mode, x,
                      y);
  } else if ((gameState.mode == Orbit || gameState.mode == Surface) && !object->Planets[gameState.currentPlanet]) {
    reportDataProblem(savedFile, planetLine, "Saved game: the system at %d, %d has no planet on lane %d", x, y,
                      gameState.currentPlanet);
  }
}
