// The star map loader on arbitrary bytes, written to Starmap.txt.
#include <cstdint>

#include "fuzz_support.h"
#include "universe/star_map.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  enterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeScratchFile("Starmap.txt", data, size);
  // The loader empties the map before reading, so each run starts afresh; the
  // grid is not scanned here, which would cost more than the load itself.
  loadStarmapFile(starMap, "Starmap.txt");
  fuzzCheck(starMapCounts.totalStars >= 0 && starMapCounts.totalStars <= starMapSize * starMapSize,
            "star count outside the grid");
  return 0;
}
