// The ship loader on arbitrary bytes, written to Ships/Fuzz.txt. The scratch
// directory has no images, so loadShip logs their absence and reads the text.
#include <SDL.h>

#include <cmath>
#include <cstdint>

#include "fuzz_support.h"
#include "ship/ship.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  enterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeScratchFile("Ships/Fuzz.txt", data, size);
  static SDL_Surface* images[shipImageCount] = {};
  Ship ship;
  loadShip(images, ship, "Fuzz");
  fuzzCheck(ship.hardPointCount >= 0 && ship.hardPointCount <= maxHardPoints, "hardpoint count outside 0 to 10");
  fuzzCheck(std::isfinite(ship.shipHoldCapacity) && ship.shipHoldCapacity <= 999.99f, "hold capacity not capped");
  fuzzCheck(ship.shipClass[sizeof ship.shipClass - 1] == '\0' && ship.shipType[sizeof ship.shipType - 1] == '\0',
            "class or type text not terminated");
  return 0;
}
