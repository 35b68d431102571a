// The star map reader on arbitrary bytes, read from memory. Each run empties
// only the cells the run before filled, not the whole 500 x 500 map, so a run
// costs what its input costs.
#include <cstdint>
#include <vector>

#include "fuzz_support.h"
#include "platform/data_file.h"
#include "universe/star_map.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static std::vector<StarMapPosition> placed;
  clearStarMapCells(starMap, placed);
  starMapCounts = StarMapCounts{};
  DataFile file(fuzzText(data, size));
  placed = readStarmap(starMap, file, "Starmap.txt");
  fuzzCheck(starMapCounts.totalStars == static_cast<int>(placed.size()), "star count differs from the cells filled");
  for (const StarMapPosition& p : placed)
    fuzzCheck(p.x >= 0 && p.x < starMapSize && p.y >= 0 && p.y < starMapSize && starMap[p.x][p.y].object,
              "a filled cell off the grid or empty");
  return 0;
}
