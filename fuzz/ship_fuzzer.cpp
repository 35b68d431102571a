// The ship file reader on arbitrary bytes, read from memory (the images that
// loadShip also loads are not part of the text format).
#include <cmath>
#include <cstdint>

#include "fuzz_support.h"
#include "platform/data_file.h"
#include "ship/ship.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Ship ship;
  DataFile file(fuzzText(data, size));
  readShipFile(ship, file, ".\\Ships\\Fuzz.txt");
  fuzzCheck(ship.hardPointCount >= 0 && ship.hardPointCount <= maxHardPoints, "hardpoint count outside 0 to 10");
  fuzzCheck(std::isfinite(ship.shipHoldCapacity) && ship.shipHoldCapacity <= 999.99f, "hold capacity not capped");
  fuzzCheck(ship.shipClass[sizeof ship.shipClass - 1] == '\0' && ship.shipType[sizeof ship.shipType - 1] == '\0',
            "class or type text not terminated");
  return 0;
}
