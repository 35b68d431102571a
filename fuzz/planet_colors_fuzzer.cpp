// The planet colour table reader on arbitrary bytes, read from memory.
#include <cstdint>

#include "fuzz_support.h"
#include "platform/data_file.h"
#include "universe/star_map.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  DataFile file(fuzzText(data, size));
  readPlanetColors(file, "PlanetColor.txt");
  // Every table name and shade still gives a colour.
  std::uint32_t mix = 0;
  for (const char* name : colorTableNames) mix ^= planetColor(255, name) ^ planetColor(0, name);
  (void)mix;
  return 0;
}
