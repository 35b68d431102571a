#include "ship/components.h"

#include "ship/ship.h"
// placeholder
void loadEngine(Ship&) {}
void loadShield(Ship&) {}
void loadPowerPlant(Ship&) {}
void loadWeapons(Ship&) {}
void chargeShields(Ship&) {}
