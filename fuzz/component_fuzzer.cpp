// One component loader on arbitrary bytes, written to the file the ship names.
// Built once per kind, FUZZ_COMPONENT selecting it: 0 engine, 1 shield,
// 2 power plant, 3 weapon.
#include <cstdint>
#include <cstring>

#include "fuzz_support.h"
#include "ship/components.h"
#include "ship/ship.h"

#ifndef FUZZ_COMPONENT
#error "FUZZ_COMPONENT selects the component kind"
#endif

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  enterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Ship ship;
#if FUZZ_COMPONENT == 0
  writeScratchFile("Engines/Fuzz.txt", data, size);
  std::strcpy(ship.engine.name, "Fuzz");
  loadEngine(ship);
#elif FUZZ_COMPONENT == 1
  writeScratchFile("Shields/Fuzz.txt", data, size);
  std::strcpy(ship.shield.name, "Fuzz");
  loadShield(ship);
#elif FUZZ_COMPONENT == 2
  writeScratchFile("PowerPlants/Fuzz.txt", data, size);
  std::strcpy(ship.powerPlant.name, "Fuzz");
  loadPowerPlant(ship);
#else
  writeScratchFile("Weapons/Fuzz.txt", data, size);
  ship.hardPointCount = 2;
  std::strcpy(ship.hardPoints[0].weaponName, "Fuzz");
  std::strcpy(ship.hardPoints[1].weaponName, "Fuzz");
  loadWeapons(ship);
  for (const HardPoint& h : ship.hardPoints)
    fuzzCheck(h.weapon.weaponType[sizeof h.weapon.weaponType - 1] == '\0', "weapon type not terminated");
#endif
  return 0;
}
