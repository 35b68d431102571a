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

using StoreLine = std::function<void(int, const std::string&, int)>;

// Hands the first lineCount counted lines of an open component file to store
// with their numbers; a shorter file is reported and the rest keep their values.
void readComponentLines(DataFile& file, const std::string& gamePath, int lineCount, const StoreLine& store) {
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

// Reads the first lineCount counted lines of a component file. A missing file
// is logged and nothing is stored, so the record keeps what it had.
void readComponentFile(const std::string& gamePath, int lineCount, const StoreLine& store) {
  logMessage(gamePath.c_str());
  DataFile file(hostPath(gamePath));
  if (!file.isOpen()) {
    reportDataProblem(gamePath, 0, "Couldn't open %s", gamePath.c_str());
    return;
  }
  readComponentLines(file, gamePath, lineCount, store);
}

std::string componentPath(const char* folder, const char* stem) {
  return std::string(".\\") + folder + "\\" + stem + ".txt";
}

// Class and description: the layout shared by engines, shields and power plants.
StoreLine classLines(int& componentClass, std::string& description) {
  return [&componentClass, &description](int index, const std::string& line, int) {
    if (index == 0) {
      componentClass = parseInt(line);
    } else {
      description = line;
    }
  };
}

StoreLine weaponLines(Weapon& weapon, const std::string& gamePath) {
  return [&weapon, gamePath](int index, const std::string& line, int lineNumber) {
    if (index == 0) {
      if (copyText(weapon.weaponType, line))
        reportDataProblem(gamePath, lineNumber, "weapon type cut to 99 characters");
    } else if (index == 1) {
      bool clamped = false;
      weapon.energyOutput = parseIntClamped(line, clamped);
      if (clamped) {
        reportDataProblem(gamePath, lineNumber, "energy output %.20s is past the int range; read as %d", line.c_str(),
                          weapon.energyOutput);
      }
    } else {
      weapon.description = line;
    }
  };
}

int saturate(long long value) {
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

}  // namespace

void loadEngine(Ship& ship) {
  readComponentFile(componentPath("Engines", ship.engine.name), 2,
                    classLines(ship.engine.engineClass, ship.engine.description));
}

void loadShield(Ship& ship) {
  readComponentFile(componentPath("Shields", ship.shield.name), 2,
                    classLines(ship.shield.shieldClass, ship.shield.description));
}

void loadPowerPlant(Ship& ship) {
  readComponentFile(componentPath("PowerPlants", ship.powerPlant.name), 2,
                    classLines(ship.powerPlant.powerPlantClass, ship.powerPlant.description));
}

void loadWeapons(Ship& ship) {
  for (int i = 0; i != ship.hardPointCount && i < maxHardPoints; ++i) {
    HardPoint& hardPoint = ship.hardPoints[i];
    if (hardPoint.weaponName[0] == '\0') {
      logMessagef("Hardpoint %d has no weapon named; nothing loaded", i + 1);
      continue;
    }
    const std::string path = componentPath("Weapons", hardPoint.weaponName);
    readComponentFile(path, 3, weaponLines(hardPoint.weapon, path));
  }
}

void readEngine(Engine& engine, DataFile& file, const std::string& gamePath) {
  readComponentLines(file, gamePath, 2, classLines(engine.engineClass, engine.description));
}

void readShield(Shield& shield, DataFile& file, const std::string& gamePath) {
  readComponentLines(file, gamePath, 2, classLines(shield.shieldClass, shield.description));
}

void readPowerPlant(PowerPlant& powerPlant, DataFile& file, const std::string& gamePath) {
  readComponentLines(file, gamePath, 2, classLines(powerPlant.powerPlantClass, powerPlant.description));
}

void readWeapon(Weapon& weapon, DataFile& file, const std::string& gamePath) {
  readComponentLines(file, gamePath, 3, weaponLines(weapon, gamePath));
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
