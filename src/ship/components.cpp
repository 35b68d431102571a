#include "ship/components.h"

#include <climits>
#include <functional>
#include <string>

#include "base/data_problems.h"
#include "base/debug_log.h"
#include "platform/data_file.h"
#include "platform/data_path.h"
#include "platform/text.h"
#include "ship/ship.h"

namespace {

// Reads the first lineCount counted lines of a component file, handing each to
// store with its number. A missing file is logged and nothing is stored, so
// the record keeps what it had.
void readComponentFile(const std::string& gamePath, int lineCount,
                       const std::function<void(int, const std::string&, int)>& store) {
  logMessage(gamePath.c_str());
  DataFile file(hostPath(gamePath));
  if (!file.isOpen()) {
    reportDataProblem(gamePath, 0, "Couldn't open %s", gamePath.c_str());
    return;
  }
  std::string line;
  int index = 0;
  for (; index < lineCount && file.nextField(line); ++index) {
    if (file.lastLineCut()) reportDataProblem(gamePath, file.lineNumber(), "line longer than 999 characters, cut");
    store(index, line, file.lineNumber());
  }
  if (index < lineCount) {
    reportDataProblem(gamePath, 0, "ends after %d of its %d lines; the rest keep their values", index, lineCount);
  }
}

std::string componentPath(const char* folder, const char* stem) {
  return std::string(".\\") + folder + "\\" + stem + ".txt";
}

// Class and description: the layout shared by engines, shields and power plants.
void readClassFile(const char* folder, const char* stem, int& componentClass, std::string& description) {
  readComponentFile(componentPath(folder, stem), 2, [&](int index, const std::string& line, int) {
    if (index == 0) {
      componentClass = parseInt(line);
    } else {
      description = line;
    }
  });
}

int saturate(long long value) {
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

}  // namespace

void loadEngine(Ship& ship) {
  readClassFile("Engines", ship.engine.name, ship.engine.engineClass, ship.engine.description);
}

void loadShield(Ship& ship) {
  readClassFile("Shields", ship.shield.name, ship.shield.shieldClass, ship.shield.description);
}

void loadPowerPlant(Ship& ship) {
  readClassFile("PowerPlants", ship.powerPlant.name, ship.powerPlant.powerPlantClass, ship.powerPlant.description);
}

void loadWeapons(Ship& ship) {
  for (int i = 0; i != ship.hardPointCount && i < maxHardPoints; ++i) {
    HardPoint& hardPoint = ship.hardPoints[i];
    if (hardPoint.weaponName[0] == '\0') {
      logMessagef("Hardpoint %d has no weapon named; nothing loaded", i + 1);
      continue;
    }
    const std::string path = componentPath("Weapons", hardPoint.weaponName);
    Weapon& weapon = hardPoint.weapon;
    readComponentFile(path, 3, [&](int index, const std::string& line, int lineNumber) {
      if (index == 0) {
        if (copyText(weapon.weaponType, line)) reportDataProblem(path, lineNumber, "weapon type cut to 99 characters");
      } else if (index == 1) {
        bool clamped = false;
        weapon.energyOutput = parseIntClamped(line, clamped);
        if (clamped) {
          reportDataProblem(path, lineNumber, "energy output %.20s is past the int range; read as %d", line.c_str(),
                            weapon.energyOutput);
        }
      } else {
        weapon.description = line;
      }
    });
  }
}

void chargeShields(Ship& ship) {
  Shield& shield = ship.shield;
  const long long step = ship.powerPlant.powerPlantClass;
  if (ship.shieldsOnline == 1) {
    shield.shieldCurrent = saturate(shield.shieldCurrent + step);
    if (shield.shieldCurrent > shield.shieldMax) shield.shieldCurrent = shield.shieldMax;
  } else {
    shield.shieldCurrent = saturate(shield.shieldCurrent - step);
    if (shield.shieldCurrent < 0) shield.shieldCurrent = 0;
  }
}
