#include "ship/ship.h"

#include <SDL_image.h>
#include <SDL_rotozoom.h>

#include <algorithm>
#include <cstdio>

#include "base/data_problems.h"
#include "base/debug_log.h"
#include "platform/data_file.h"
#include "platform/data_path.h"
#include "platform/text.h"

Ship playerShip;
SDL_Surface* shipImages[shipImageCount] = {};

namespace {

constexpr int headingsCached = roverImageBase;  // one image per 5 degrees
constexpr float holdSize = 50.0f;

// Replaces entries base .. base + 71 with the image turned by 0, 5, ... 355
// degrees. Earlier entries are freed: a second load must not leak the first.
void cacheRotations(SDL_Surface** images, int base, SDL_Surface* source) {
  SDL_SetColorKey(source, SDL_SRCCOLORKEY, 0);
  for (int i = 0; i < headingsCached; ++i) {
    SDL_Surface* turned = rotozoomSurface(source, 5.0 * i, 1.0, SMOOTHING_OFF);
    if (!turned) {
      logMessagef("Couldn't rotate a ship image by %d degrees", 5 * i);
      continue;
    }
    SDL_SetColorKey(turned, SDL_SRCCOLORKEY, 0);
    if (images[base + i]) SDL_FreeSurface(images[base + i]);
    images[base + i] = turned;
  }
}

void loadRotations(SDL_Surface** images, int base, const std::string& gamePath) {
  SDL_Surface* image = IMG_Load(hostPath(gamePath).c_str());
  if (!image) {
    reportDataProblem(gamePath, 0, "Couldn't load %s", gamePath.c_str());
    return;
  }
  cacheRotations(images, base, image);
  SDL_FreeSurface(image);
}

template <std::size_t N>
void copyField(char (&field)[N], const std::string& line, const char* what, const DataFile& file,
               const std::string& path) {
  if (copyText(field, line)) {
    reportDataProblem(path, file.lineNumber(), "Ship file: %s longer than %zu characters, cut", what, N - 1);
  }
}

MarkerList readMarkers(const std::string& line, const char* what, const DataFile& file, const std::string& path) {
  bool dropped = false;
  MarkerList list = parseMarkerList(line, &dropped);
  if (dropped) {
    reportDataProblem(path, file.lineNumber(),
                      "Ship file: odd number of coordinates for the %s markers; the last one dropped", what);
  }
  return list;
}

}  // namespace

MarkerList parseMarkerList(std::string_view line, bool* dropped) {
  const std::vector<std::string_view> tokens = splitTokens(line);
  MarkerList list;
  list.reserve(tokens.size() / 2);
  for (std::size_t i = 0; i + 1 < tokens.size(); i += 2) {
    list.push_back({parseInt(tokens[i]), parseInt(tokens[i + 1])});
  }
  if (dropped) *dropped = tokens.size() % 2 != 0;
  return list;
}

float holdCapacity(int cargoHoldCount) {
  const float capacity = static_cast<float>(cargoHoldCount) * holdSize;
  return capacity > 999.0f ? 999.99f : capacity;
}

bool readShipFile(Ship& ship, const std::string& path) {
  DataFile file(path);
  if (!file.isOpen()) return false;
  readShipFile(ship, file, path);
  return true;
}

void readShipFile(Ship& ship, DataFile& file, const std::string& path) {
  // Lines 0 to 7 are fixed; then one marker line per hardpoint and the
  // description. Everything after the description is ignored.
  int lineIndex = 0;
  int hardPointsExpected = 0;
  int hardPointsRead = 0;
  bool descriptionRead = false;
  std::string line;
  while (file.nextField(line)) {
    if (file.lastLineCut())
      reportDataProblem(path, file.lineNumber(), "Ship file: line longer than 999 characters, cut");
    switch (lineIndex) {
      case 0:
        copyField(ship.shipClass, line, "class", file, path);
        break;
      case 1:
        copyField(ship.shipType, line, "type", file, path);
        break;
      case 2:
        ship.hullMax = parseInt(line);
        break;
      case 3:
        // A negative count would give the hold a negative capacity.
        ship.cargoHoldCount = parseInt(line);
        if (ship.cargoHoldCount < 0) {
          logMessagef("Ship file: %d cargo holds is below 0; using 0", ship.cargoHoldCount);
          ship.cargoHoldCount = 0;
        }
        break;
      case 4: {
        const int count = parseInt(line);
        hardPointsExpected = std::clamp(count, 0, maxHardPoints);
        if (hardPointsExpected != count) {
          reportDataProblem(path, file.lineNumber(), "Ship file: %d hardpoints is outside 0 to %d; using %d", count,
                            maxHardPoints, hardPointsExpected);
        }
        ship.hardPointCount = hardPointsExpected;
        for (HardPoint& hardPoint : ship.hardPoints) {
          hardPoint.markers.clear();
          hardPoint.weapon.description.clear();
        }
        hardPointsRead = 0;
        break;
      }
      case 5:
        ship.engineMarkers = readMarkers(line, "engine", file, path);
        break;
      case 6:
        ship.shieldMarkers = readMarkers(line, "shield", file, path);
        break;
      case 7:
        ship.powerPlantMarkers = readMarkers(line, "power plant", file, path);
        break;
      default:
        if (hardPointsRead < hardPointsExpected) {
          ship.hardPoints[hardPointsRead].markers = readMarkers(line, "hardpoint", file, path);
          ++hardPointsRead;
        } else {
          ship.description = line;
          descriptionRead = true;
        }
        break;
    }
    if (descriptionRead) break;
    ++lineIndex;
  }

  if (!descriptionRead) {
    reportDataProblem(path, 0, "Ship file: ends after %d of its %d lines; the rest keep their values", lineIndex,
                      9 + hardPointsExpected);
  }

  ship.engine.engineClass = 0;
  ship.powerPlant.powerPlantClass = 0;
  ship.shield.shieldClass = 0;
  ship.shield.shieldMax = 0;
  ship.shield.shieldCurrent = 0;
  ship.armorClass = 0;
  ship.armorMax = 0;
  ship.armorCurrent = 0;
  ship.hullCurrent = 0;
  ship.fuel = 0;
  ship.shipHoldCapacity = holdCapacity(ship.cargoHoldCount);
  ship.shipHoldFree = static_cast<float>(ship.cargoHoldCount) * holdSize;
  ship.shieldsOnline = 0;
  ship.weaponsOnline = 0;
  ship.roverFuel = 0.0f;
  ship.roverHoldFree = roverHoldCapacity;
  ship.shipHold.fill(0.0f);
  ship.roverHold.fill(0.0f);
}

void loadShip(SDL_Surface** images, Ship& ship, const char* stem) {
  logMessagef("Load and cache player object: %s", stem);
  const std::string name(stem);
  loadRotations(images, 0, ".\\Ships\\" + name + ".bmp");
  loadRotations(images, roverImageBase, ".\\Ships\\Rover.bmp");
  const std::string path = ".\\Ships\\" + name + ".txt";
  if (!readShipFile(ship, hostPath(path))) reportDataProblem(path, 0, "Couldn't open the ship file %s", path.c_str());
}
