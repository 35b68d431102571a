#include "universe/planet.h"
// placeholder
const Mineral minerals[mineralCount] = {};
const char* mineralName(std::uint8_t) { return "Unknown"; }
int mineralNumber(const char*) { return 0; }
Uint32 mineralColor(std::uint8_t, Uint8) { return 0xFFFFFFFFu; }
int generateMineralDeposits(MineralDepositList&, const Planet*) { return 0; }
void freeMineralDeposits(MineralDepositList& d) { d.clear(); }
