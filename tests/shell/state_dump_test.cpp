#include <limits>

#include "support/test_support.h"

// Every number the scripted runs read back is written under its own name: each
// field set to a value of its own shows that value and no other.
TEST(StateDump, EveryFieldUnderItsOwnNameAndNonFiniteNumbersAsNull) {
  ensureScreen();
  GameState& g = gameState;
  Ship& s = playerShip;
  const std::pair<const char*, int*> fields[] = {{"posX", &g.posX},
                                                 {"posY", &g.posY},
                                                 {"sectorX", &g.sectorX},
                                                 {"sectorY", &g.sectorY},
                                                 {"lastSectorX", &g.lastSectorX},
                                                 {"lastSectorY", &g.lastSectorY},
                                                 {"sysX", &g.sysX},
                                                 {"sysY", &g.sysY},
                                                 {"speed", &g.speed},
                                                 {"heading", &g.heading},
                                                 {"currentPlanet", &g.currentPlanet},
                                                 {"maneuverOn", &g.maneuverOn},
                                                 {"scanRunning", &g.scanRunning},
                                                 {"descentRunning", &g.descentRunning},
                                                 {"launchRunning", &g.launchRunning},
                                                 {"siteClicked", &g.siteClicked},
                                                 {"showShipStatus", &g.showShipStatus},
                                                 {"cargoOpen", &g.cargoOpen},
                                                 {"navigationOpen", &g.navigationOpen},
                                                 {"configOpen", &g.configOpen},
                                                 {"cargoWasShown", &g.cargoWasShown},
                                                 {"navigationWasShown", &g.navigationWasShown},
                                                 {"configWasShown", &g.configWasShown},
                                                 {"mouseX", &g.mouseX},
                                                 {"mouseY", &g.mouseY},
                                                 {"upHeld", &g.upHeld},
                                                 {"downHeld", &g.downHeld},
                                                 {"leftHeld", &g.leftHeld},
                                                 {"rightHeld", &g.rightHeld},
                                                 {"fullScreen", &g.fullScreen},
                                                 {"showFrameRate", &g.showFrameRate},
                                                 {"scansTaken", &g.scansTaken},
                                                 {"engineClass", &s.engine.engineClass},
                                                 {"warpCurrent", &s.engine.warpCurrent},
                                                 {"shieldClass", &s.shield.shieldClass},
                                                 {"shieldMax", &s.shield.shieldMax},
                                                 {"shieldCurrent", &s.shield.shieldCurrent},
                                                 {"powerPlantClass", &s.powerPlant.powerPlantClass},
                                                 {"armorClass", &s.armorClass},
                                                 {"armorMax", &s.armorMax},
                                                 {"armorCurrent", &s.armorCurrent},
                                                 {"hullMax", &s.hullMax},
                                                 {"hullCurrent", &s.hullCurrent},
                                                 {"fuel", &s.fuel},
                                                 {"cargoHoldCount", &s.cargoHoldCount},
                                                 {"shieldsOnline", &s.shieldsOnline},
                                                 {"weaponsOnline", &s.weaponsOnline}};
  int value = 1000;
  for (const auto& [name, field] : fields) *field = value++;
  g.mode = 3;
  s.hardPointCount = 2;
  std::strcpy(s.hardPoints[1].weaponName, "Zap\"\n");
  std::strcpy(s.shipName, "nan inf");
  const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
  g.velX = nan, g.velY = -inf, s.shipHoldFree = nan, s.roverHoldFree = -inf, s.shipHoldCapacity = inf;
  s.shipHold[0] = nan, s.shipHold[1] = 4.5f, s.shipHold[3] = inf, s.roverHold[21] = -inf;
  const std::string json = gameStateJson();
  value = 1000;
  for (const auto& [name, field] : fields) EXPECT_EQ(stateField(json, name), std::to_string(value++)) << name;
  EXPECT_EQ(json.rfind("{\"mode\":3,", 0), 0u);
  EXPECT_EQ(stateField(json, "weapons"), "[\"\",\"Zap\\\"\\u000a\"]");
  for (const char* name : {"velX", "velY", "shipHoldFree", "roverHoldFree", "shipHoldCapacity"})
    EXPECT_EQ(stateField(json, name), "null") << name;
  EXPECT_EQ(stateField(json, "shipHold").substr(0, 21), "[null,4.50,0.00,null,");
  EXPECT_EQ(stateField(json, "roverHold").substr(stateField(json, "roverHold").size() - 6), ",null]");
  EXPECT_EQ(stateField(json, "shipName"), "\"nan inf\"");  // texts are left alone
  EXPECT_EQ(json.substr(json.size() - 2), "}}");
  playerShip = Ship{};
  gameState = GameState{};
}
