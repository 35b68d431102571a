// The planet colour table loader on arbitrary bytes, written to PlanetColor.txt.
#include <cstdint>
#include <cstring>

#include "fuzz_support.h"
#include "universe/star_map.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  enterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeScratchFile("PlanetColor.txt", data, size);
  std::memset(planetColorTables, 0, sizeof planetColorTables);
  loadPlanetColors("PlanetColor.txt");
  // Every table name and shade still gives a colour.
  std::uint32_t mix = 0;
  for (const char* name : colorTableNames) mix ^= planetColor(255, name) ^ planetColor(0, name);
  (void)mix;
  return 0;
}
