#include <limits>

#include "support/test_support.h"

// Every number the scripted runs read back is written under its own name: each
// field set to a value of its own shows that value and no other.
TEST(StateDump, EveryFieldUnderItsOwnNameAndNonFiniteNumbersAsNull) {
  ensureScreen();
  GameState& g = gameState;
  Ship& s = playerShip;
  const std::string names =
      "posX posY sectorX sectorY lastSectorX lastSectorY sysX sysY speed heading currentPlanet maneuverOn scanRunning "
      "descentRunning launchRunning siteClicked showShipStatus cargoOpen navigationOpen configOpen cargoWasShown "
      "navigationWasShown configWasShown mouseX mouseY upHeld downHeld leftHeld rightHeld fullScreen showFrameRate "
      "scansTaken engineClass warpCurrent shieldClass shieldMax shieldCurrent powerPlantClass armorClass armorMax "
      "armorCurrent hullMax hullCurrent fuel cargoHoldCount shieldsOnline weaponsOnline";
  // clang-format off
  int* const fields[] = {
      &g.posX, &g.posY, &g.sectorX, &g.sectorY, &g.lastSectorX, &g.lastSectorY, &g.sysX, &g.sysY, &g.speed,
      &g.heading, &g.currentPlanet, &g.maneuverOn, &g.scanRunning, &g.descentRunning, &g.launchRunning,
      &g.siteClicked, &g.showShipStatus, &g.cargoOpen, &g.navigationOpen, &g.configOpen, &g.cargoWasShown,
      &g.navigationWasShown, &g.configWasShown, &g.mouseX, &g.mouseY, &g.upHeld, &g.downHeld, &g.leftHeld,
      &g.rightHeld, &g.fullScreen, &g.showFrameRate, &g.scansTaken, &s.engine.engineClass, &s.engine.warpCurrent,
      &s.shield.shieldClass, &s.shield.shieldMax, &s.shield.shieldCurrent, &s.powerPlant.powerPlantClass,
      &s.armorClass, &s.armorMax, &s.armorCurrent, &s.hullMax, &s.hullCurrent, &s.fuel, &s.cargoHoldCount,
      &s.shieldsOnline, &s.weaponsOnline};
  // clang-format on
  int value = 1000;
  for (int* field : fields) *field = value++;
  g.mode = 3;
  s.hardPointCount = 2;
  std::strcpy(s.hardPoints[1].weaponName, "Zap\"\n");
  std::strcpy(s.shipName, "nan inf");
  const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
  g.velX = nan, g.velY = -inf, s.shipHoldFree = nan, s.roverHoldFree = -inf, s.shipHoldCapacity = inf;
  s.shipHold[0] = nan, s.shipHold[1] = 4.5f, s.shipHold[3] = inf, s.roverHold[21] = -inf;
  const std::string json = gameStateJson();
  std::istringstream in(names);
  value = 1000;
  for (std::string name; in >> name;) EXPECT_EQ(stateField(json, name), std::to_string(value++)) << name;
  EXPECT_EQ(value, 1000 + int(std::size(fields)));
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
