// One component reader on arbitrary bytes, read from memory. Built once per
// kind, FUZZ_COMPONENT selecting it: 0 engine, 1 shield, 2 power plant, 3 weapon.
#include <cstdint>

#include "fuzz_support.h"
#include "platform/data_file.h"
#include "ship/components.h"

#ifndef FUZZ_COMPONENT
#error "FUZZ_COMPONENT selects the component kind"
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  DataFile file(fuzzText(data, size));
#if FUZZ_COMPONENT == 0
  Engine engine;
  readEngine(engine, file, ".\\Engines\\Fuzz.txt");
#elif FUZZ_COMPONENT == 1
  Shield shield;
  readShield(shield, file, ".\\Shields\\Fuzz.txt");
#elif FUZZ_COMPONENT == 2
  PowerPlant powerPlant;
  readPowerPlant(powerPlant, file, ".\\PowerPlants\\Fuzz.txt");
#else
  Weapon weapon;
  readWeapon(weapon, file, ".\\Weapons\\Fuzz.txt");
  fuzzCheck(weapon.weaponType[sizeof weapon.weaponType - 1] == '\0', "weapon type not terminated");
#endif
  return 0;
}
