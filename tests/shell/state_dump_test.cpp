#include "support/test_support.h"

// Scripted runs read the game back by name: each field set to a value of its own shows that value under its member's
// name. JSON has no NaN or infinity: those numbers show as null; texts are escaped.
TEST(StateDump, EveryFieldUnderItsOwnNameAndNonFiniteNumbersAsNull) {
  GameState& g = gameState;
  Ship& s = playerShip;
#define F(owner, member) std::pair<const char*, int*>(#member, &owner.member)
  // clang-format off
  const std::pair<const char*, int*> fields[] = {
      F(g, posX), F(g, posY), F(g, sectorX), F(g, sectorY), F(g, lastSectorX), F(g, lastSectorY), F(g, sysX),
      F(g, sysY), F(g, speed), F(g, heading), F(g, currentPlanet), F(g, maneuverOn), F(g, scanRunning),
      F(g, descentRunning), F(g, launchRunning), F(g, siteClicked), F(g, showShipStatus), F(g, cargoOpen),
      F(g, navigationOpen), F(g, configOpen), F(g, cargoWasShown), F(g, navigationWasShown), F(g, configWasShown),
      F(g, mouseX), F(g, mouseY), F(g, upHeld), F(g, downHeld), F(g, leftHeld), F(g, rightHeld), F(g, fullScreen),
      F(g, showFrameRate), F(g, scansTaken), F(s.engine, engineClass), F(s.engine, warpCurrent),
      F(s.shield, shieldClass), F(s.shield, shieldMax), F(s.shield, shieldCurrent), F(s.powerPlant, powerPlantClass),
      F(s, armorClass), F(s, armorMax), F(s, armorCurrent), F(s, hullMax), F(s, hullCurrent), F(s, fuel),
      F(s, cargoHoldCount), F(s, shieldsOnline), F(s, weaponsOnline)};
  // clang-format on
#undef F
  int value = 1000;
  for (auto [name, field] : fields) *field = value++;
  g.mode = 3;
  s.hardPointCount = 2;
  std::strcpy(s.hardPoints[1].weaponName, "Zap\"\n");
  const float nan = NAN, inf = INFINITY;
  g.velX = nan, g.velY = -inf, s.shipHoldFree = nan, s.roverHoldFree = -inf, s.shipHoldCapacity = inf;
  s.shipHold[0] = nan, s.shipHold[1] = 4.5f, s.shipHold[3] = inf;
  const std::string json = gameStateJson();
  value = 1000;
  for (auto [name, field] : fields) EXPECT_EQ(stateField(json, name), std::to_string(value++)) << name;
  EXPECT_EQ(json.rfind("{\"mode\":3,", 0), 0u);
  EXPECT_EQ(stateField(json, "weapons"), "[\"\",\"Zap\\\"\\u000a\"]");
  for (const char* name : {"velX", "velY", "shipHoldFree", "roverHoldFree", "shipHoldCapacity"})
    EXPECT_EQ(stateField(json, name), "null") << name;
  EXPECT_EQ(stateField(json, "shipHold").substr(0, 21), "[null,4.50,0.00,null,");
  EXPECT_EQ(json.substr(json.size() - 2), "}}");
  playerShip = Ship{};
  gameState = GameState{};
}
