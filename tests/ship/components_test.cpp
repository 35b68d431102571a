#include "ship/components.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <string>

#include "shell/debug_log.h"
#include "ship/ship.h"
#include "support/test_support.h"

namespace {

class LogWatch {
 public:
  bool saw(const char* text) const {
    for (int i = start_; i != debugLog.writeIndex; i = (i + 1) % logLineCount) {
      if (std::strstr(debugLog.lines[i], text)) return true;
    }
    return false;
  }

 private:
  int start_ = debugLog.writeIndex;
};

// Component files are read relative to the working directory, like the game's data directory.
class ComponentFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char* cwd = getcwd(nullptr, 0);
    previous_ = cwd;
    std::free(cwd);
    ASSERT_EQ(chdir(dir.dir().c_str()), 0);
  }
  void TearDown() override { ASSERT_EQ(chdir(previous_.c_str()), 0); }

  TempDir dir;
  Ship ship;

 private:
  std::string previous_;
};

}  // namespace

TEST_F(ComponentFileTest, EngineShieldAndPlantReadClassAndDescriptionPastComments) {
  dir.write("Engines/Fast.txt", "# an engine\n# for the tests\n12\nGoes like the wind.\nignored\n");
  dir.write("Shields/Thick.txt", "7\n# comment between\nStops most things.\n");
  dir.write("PowerPlants/Hot.txt", "-3\nRuns backwards.\n");
  std::strcpy(ship.engine.name, "Fast");
  std::strcpy(ship.shield.name, "Thick");
  std::strcpy(ship.powerPlant.name, "Hot");
  ship.shield.shieldMax = 999;
  LogWatch log;
  loadEngine(ship);
  loadShield(ship);
  loadPowerPlant(ship);
  EXPECT_EQ(ship.engine.engineClass, 12);
  EXPECT_EQ(ship.engine.description, "Goes like the wind.");
  EXPECT_EQ(ship.engine.warpCurrent, 0);
  EXPECT_EQ(ship.shield.shieldClass, 7);
  EXPECT_EQ(ship.shield.description, "Stops most things.");
  EXPECT_EQ(ship.shield.shieldMax, 999) << "the shield file does not set the maximum";
  EXPECT_EQ(ship.powerPlant.powerPlantClass, -3);
  EXPECT_EQ(ship.powerPlant.description, "Runs backwards.");
  EXPECT_TRUE(log.saw(".\\Engines\\Fast.txt"));
  EXPECT_TRUE(log.saw(".\\Shields\\Thick.txt"));
  EXPECT_TRUE(log.saw(".\\PowerPlants\\Hot.txt"));
}

TEST_F(ComponentFileTest, ShortOrMissingFilesLeaveTheRecordAsItWas) {
  dir.write("Engines/Stub.txt", "# only a class\n9\n");
  std::strcpy(ship.engine.name, "Stub");
  ship.engine.description = "earlier";
  loadEngine(ship);
  EXPECT_EQ(ship.engine.engineClass, 9);
  EXPECT_EQ(ship.engine.description, "earlier");

  dir.write("Engines/Blank.txt", "");
  std::strcpy(ship.engine.name, "Blank");
  loadEngine(ship);
  EXPECT_EQ(ship.engine.engineClass, 9);

  std::strcpy(ship.shield.name, "Nowhere");
  ship.shield.shieldClass = 4;
  ship.shield.description = "kept";
  LogWatch log;
  loadShield(ship);
  EXPECT_EQ(ship.shield.shieldClass, 4);
  EXPECT_EQ(ship.shield.description, "kept");
  EXPECT_TRUE(log.saw("Couldn't open .\\Shields\\Nowhere.txt"));

  // A non-number class reads as 0, as atoi reads it.
  dir.write("PowerPlants/Odd.txt", "lots\nWho knows.\n");
  std::strcpy(ship.powerPlant.name, "Odd");
  ship.powerPlant.powerPlantClass = 5;
  loadPowerPlant(ship);
  EXPECT_EQ(ship.powerPlant.powerPlantClass, 0);
}

TEST_F(ComponentFileTest, WeaponsAreReadForEachHardpointInUse) {
  dir.write("Weapons/Laser.txt", "# type, output, description\nPulse Laser\n35\nZaps.\n");
  dir.write("Weapons/Gun.txt", "Mass Driver\n# between\n55\nThumps.\nmore\n");
  ship.hardPointCount = 3;
  std::strcpy(ship.hardPoints[0].weaponName, "Laser");
  std::strcpy(ship.hardPoints[2].weaponName, "Gun");
  std::strcpy(ship.hardPoints[3].weaponName, "Laser");  // beyond the count: not read
  LogWatch log;
  loadWeapons(ship);
  EXPECT_STREQ(ship.hardPoints[0].weapon.weaponType, "Pulse Laser");
  EXPECT_EQ(ship.hardPoints[0].weapon.energyOutput, 35);
  EXPECT_EQ(ship.hardPoints[0].weapon.description, "Zaps.");
  EXPECT_STREQ(ship.hardPoints[1].weapon.weaponType, "");
  EXPECT_TRUE(log.saw("Hardpoint 2 has no weapon"));
  EXPECT_STREQ(ship.hardPoints[2].weapon.weaponType, "Mass Driver");
  EXPECT_EQ(ship.hardPoints[2].weapon.energyOutput, 55);
  EXPECT_EQ(ship.hardPoints[2].weapon.description, "Thumps.");
  EXPECT_STREQ(ship.hardPoints[3].weapon.weaponType, "");
}

TEST_F(ComponentFileTest, NoHardpointsReadsNoWeaponFile) {
  dir.write("Weapons/Laser.txt", "Pulse Laser\n35\nZaps.\n");
  std::strcpy(ship.hardPoints[0].weaponName, "Laser");
  ship.hardPointCount = 0;
  LogWatch log;
  loadWeapons(ship);
  EXPECT_FALSE(log.saw("Weapons"));
  EXPECT_STREQ(ship.hardPoints[0].weapon.weaponType, "");
}

TEST_F(ComponentFileTest, LongWeaponTypeIsCut) {
  dir.write("Weapons/Long.txt", std::string(300, 'w') + "\n1\nx\n");
  ship.hardPointCount = 1;
  std::strcpy(ship.hardPoints[0].weaponName, "Long");
  LogWatch log;
  loadWeapons(ship);
  EXPECT_EQ(std::string(ship.hardPoints[0].weapon.weaponType), std::string(99, 'w'));
  EXPECT_TRUE(log.saw("weapon type cut"));
}

TEST(ComponentShields, ChargeUpToTheMaximumAndDrainToZero) {
  Ship ship;
  ship.powerPlant.powerPlantClass = 10;
  ship.shield.shieldMax = 999;
  ship.shieldsOnline = 1;
  for (int frame = 1; frame <= 99; ++frame) {
    chargeShields(ship);
    ASSERT_EQ(ship.shield.shieldCurrent, 10 * frame);
  }
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 999);
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 999);

  ship.shieldsOnline = 0;
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 989);
  for (int i = 0; i < 200; ++i) chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 0);

  // A charge above a lowered maximum is cut back at once.
  ship.shieldsOnline = 1;
  ship.shield.shieldCurrent = 500;
  ship.shield.shieldMax = 100;
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 100);
}

TEST(ComponentShields, ExtremePlantClassesNeitherOverflowNorEscapeTheLimits) {
  Ship ship;
  ship.shield.shieldMax = 999;
  ship.shield.shieldCurrent = 500;
  ship.powerPlant.powerPlantClass = INT_MAX;
  ship.shieldsOnline = 1;
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 999);
  ship.shieldsOnline = 0;
  chargeShields(ship);
  EXPECT_EQ(ship.shield.shieldCurrent, 0);
  ship.powerPlant.powerPlantClass = INT_MIN;
  chargeShields(ship);  // draining by a negative amount charges, without a maximum
  EXPECT_EQ(ship.shield.shieldCurrent, INT_MAX);
}
