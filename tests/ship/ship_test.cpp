#include "ship/ship.h"

#include <SDL.h>
#include <SDL_gfxPrimitives.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "shell/debug_log.h"
#include "support/test_support.h"

namespace {

// Runs a test inside a directory of its own data files, as the game runs in its data directory.
class InDirectory {
 public:
  explicit InDirectory(const std::string& dir) {
    char* cwd = getcwd(nullptr, 0);
    previous_ = cwd ? cwd : ".";
    std::free(cwd);
    EXPECT_EQ(chdir(dir.c_str()), 0) << dir;
  }
  ~InDirectory() { EXPECT_EQ(chdir(previous_.c_str()), 0); }

 private:
  std::string previous_;
};

// The log lines written since the watch was made.
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

bool sameMarkers(const MarkerList& list, std::initializer_list<MarkerPoint> points) {
  if (list.size() != points.size()) return false;
  std::size_t i = 0;
  for (const MarkerPoint& p : points) {
    if (list[i].x != p.x || list[i].y != p.y) return false;
    ++i;
  }
  return true;
}

class ShipFileTest : public ::testing::Test {
 protected:
  Ship ship;
  TempDir dir;
  bool read(const std::string& content) { return readShipFile(ship, dir.write("Ships/Test.txt", content)); }
};

}  // namespace

TEST_F(ShipFileTest, CommentLinesAreNotCountedAnywhere) {
  ASSERT_TRUE(
      read("# a ship for the tests\n"
           "#\n"
           "Corvette\n"
           "Escort\n"
           "# hull\n"
           "120\n"
           "4\n"
           "2\n"
           "10,20 30,40\n"
           "50,60\n"
           "# the power plant is next\n"
           "70,80\n"
           "100,110\n"
           "# between the hardpoints\n"
           "120,130 140,150\n"
           "A small, quick escort.\n"
           "This line is past the description and changes nothing\n"));
  EXPECT_STREQ(ship.shipClass, "Corvette");
  EXPECT_STREQ(ship.shipType, "Escort");
  EXPECT_EQ(ship.hullMax, 120);
  EXPECT_EQ(ship.cargoHoldCount, 4);
  EXPECT_EQ(ship.hardPointCount, 2);
  EXPECT_TRUE(sameMarkers(ship.engineMarkers, {{10, 20}, {30, 40}}));
  EXPECT_TRUE(sameMarkers(ship.shieldMarkers, {{50, 60}}));
  EXPECT_TRUE(sameMarkers(ship.powerPlantMarkers, {{70, 80}}));
  EXPECT_TRUE(sameMarkers(ship.hardPoints[0].markers, {{100, 110}}));
  EXPECT_TRUE(sameMarkers(ship.hardPoints[1].markers, {{120, 130}, {140, 150}}));
  EXPECT_TRUE(ship.hardPoints[2].markers.empty());
  EXPECT_EQ(ship.description, "A small, quick escort.");
}

TEST_F(ShipFileTest, WithoutHardpointsLineEightIsTheDescription) {
  ASSERT_TRUE(read("Scout\nProbe\n40\n1\n0\n1,2\n3,4\n5,6\nJust a probe.\n7,8\n"));
  EXPECT_EQ(ship.hardPointCount, 0);
  EXPECT_EQ(ship.description, "Just a probe.");
  for (const HardPoint& hp : ship.hardPoints) EXPECT_TRUE(hp.markers.empty());
}

TEST_F(ShipFileTest, EmptyLinesCountAsFields) {
  ASSERT_TRUE(read("\nNo class above\n10\n1\n0\n\n\n\n\n"));
  EXPECT_STREQ(ship.shipClass, "");
  EXPECT_STREQ(ship.shipType, "No class above");
  EXPECT_TRUE(ship.engineMarkers.empty());
  EXPECT_EQ(ship.description, "");
}

TEST(ShipMarkers, SeparatorsMixFreelyAndAnUnpairedCoordinateIsDropped) {
  bool dropped = true;
  MarkerList list = parseMarkerList("120, 40 130,40", &dropped);
  EXPECT_TRUE(sameMarkers(list, {{120, 40}, {130, 40}}));
  EXPECT_FALSE(dropped);

  list = parseMarkerList("\t1 ,, 2\t\t3,4  ", &dropped);
  EXPECT_TRUE(sameMarkers(list, {{1, 2}, {3, 4}}));
  EXPECT_FALSE(dropped);

  list = parseMarkerList("5 6 7", &dropped);
  EXPECT_TRUE(sameMarkers(list, {{5, 6}}));
  EXPECT_TRUE(dropped);

  list = parseMarkerList("", &dropped);
  EXPECT_TRUE(list.empty());
  EXPECT_FALSE(dropped);

  // Coordinates are read as atoi reads them.
  list = parseMarkerList("-12 x9 +7 3abc");
  EXPECT_TRUE(sameMarkers(list, {{-12, 0}, {7, 3}}));
}

TEST_F(ShipFileTest, OddMarkerLineIsLogged) {
  LogWatch log;
  ASSERT_TRUE(read("A\nB\n1\n1\n1\n1,2,3\n\n\n9\nDesc\n"));
  EXPECT_TRUE(sameMarkers(ship.engineMarkers, {{1, 2}}));
  EXPECT_TRUE(ship.hardPoints[0].markers.empty()) << "a single 9 makes no point";
  EXPECT_TRUE(log.saw("engine markers"));
  EXPECT_TRUE(log.saw("hardpoint markers"));
}

TEST_F(ShipFileTest, HoldCountSetsCapacityWithTheCap) {
  ASSERT_TRUE(read("A\nB\n1\n4\n0\n\n\n\nD\n"));
  EXPECT_FLOAT_EQ(ship.shipHoldCapacity, 200.0f);
  EXPECT_FLOAT_EQ(ship.shipHoldFree, 200.0f);

  ASSERT_TRUE(read("A\nB\n1\n25\n0\n\n\n\nD\n"));
  EXPECT_FLOAT_EQ(ship.shipHoldCapacity, 999.99f);
  EXPECT_FLOAT_EQ(ship.shipHoldFree, 1250.0f);

  EXPECT_FLOAT_EQ(holdCapacity(19), 950.0f);
  EXPECT_FLOAT_EQ(holdCapacity(20), 999.99f);
  EXPECT_FLOAT_EQ(holdCapacity(0), 0.0f);
}

TEST_F(ShipFileTest, HardpointCountIsClampedWithALogLine) {
  std::string file = "A\nB\n1\n1\n14\n\n\n\n";
  for (int i = 0; i < 10; ++i) file += std::to_string(i) + "," + std::to_string(i) + "\n";
  file += "Ten mounts at most.\n";
  LogWatch log;
  ASSERT_TRUE(read(file));
  EXPECT_EQ(ship.hardPointCount, 10);
  EXPECT_TRUE(sameMarkers(ship.hardPoints[9].markers, {{9, 9}}));
  EXPECT_EQ(ship.description, "Ten mounts at most.");
  EXPECT_TRUE(log.saw("14 hardpoints"));

  ASSERT_TRUE(read("A\nB\n1\n1\n-3\n\n\n\nNo mounts.\n"));
  EXPECT_EQ(ship.hardPointCount, 0);
  EXPECT_EQ(ship.description, "No mounts.");
}

TEST_F(ShipFileTest, StateValuesAreClearedAfterTheLastLine) {
  ship.engine.engineClass = ship.shield.shieldClass = ship.powerPlant.powerPlantClass = 7;
  ship.shield.shieldMax = ship.shield.shieldCurrent = 7;
  ship.armorClass = ship.armorMax = ship.armorCurrent = ship.hullCurrent = ship.fuel = 7;
  ship.shieldsOnline = ship.weaponsOnline = 1;
  ship.roverFuel = 7.0f;
  ship.roverHoldFree = 3.0f;
  ship.shipHold.fill(2.0f);
  ship.roverHold.fill(2.0f);
  ship.hardPoints[4].markers = {{1, 1}};
  ship.hardPoints[4].weapon.description = "old";
  ASSERT_TRUE(read("A\nB\n1\n2\n1\n\n\n\n3,3\nD\n"));
  EXPECT_EQ(ship.engine.engineClass + ship.shield.shieldClass + ship.powerPlant.powerPlantClass, 0);
  EXPECT_EQ(ship.shield.shieldMax + ship.shield.shieldCurrent, 0);
  EXPECT_EQ(ship.armorClass + ship.armorMax + ship.armorCurrent + ship.hullCurrent + ship.fuel, 0);
  EXPECT_EQ(ship.shieldsOnline + ship.weaponsOnline, 0);
  EXPECT_EQ(ship.roverFuel, 0.0f);
  EXPECT_EQ(ship.roverHoldFree, 50.0f);
  for (int m = 0; m < 22; ++m) {
    EXPECT_EQ(ship.shipHold[m], 0.0f);
    EXPECT_EQ(ship.roverHold[m], 0.0f);
  }
  // The hardpoint line clears every mount, the ones beyond the count too.
  EXPECT_TRUE(ship.hardPoints[4].markers.empty());
  EXPECT_TRUE(ship.hardPoints[4].weapon.description.empty());
}

TEST_F(ShipFileTest, ShortFileKeepsTheFieldsItDoesNotReach) {
  ship.cargoHoldCount = 3;
  ship.description = "earlier";
  ship.engineMarkers = {{1, 2}};
  ASSERT_TRUE(read("Stub\nHalf written\n55\n"));
  EXPECT_STREQ(ship.shipClass, "Stub");
  EXPECT_EQ(ship.hullMax, 55);
  EXPECT_EQ(ship.cargoHoldCount, 3);
  EXPECT_EQ(ship.description, "earlier");
  EXPECT_TRUE(sameMarkers(ship.engineMarkers, {{1, 2}}));
  EXPECT_FLOAT_EQ(ship.shipHoldCapacity, 150.0f);
}

TEST_F(ShipFileTest, LongTextsAreCutToTheirFields) {
  const std::string longName(150, 'k');
  const std::string longDescription(900, 'd');
  LogWatch log;
  ASSERT_TRUE(read(longName + "\n" + longName + "\n1\n1\n0\n\n\n\n" + longDescription + "\n"));
  EXPECT_EQ(std::string(ship.shipClass), std::string(99, 'k'));
  EXPECT_EQ(std::string(ship.shipType), std::string(99, 'k'));
  EXPECT_EQ(ship.description, longDescription) << "the description has no fixed size";
  EXPECT_TRUE(log.saw("class longer than 99"));
}

TEST_F(ShipFileTest, MissingFilesAreLoggedAndChangeNothing) {
  std::strcpy(ship.shipClass, "Kept");
  ship.cargoHoldCount = 6;
  ship.shipHoldFree = 12.5f;
  SDL_Surface* images[shipImageCount] = {};
  LogWatch log;
  {
    InDirectory in(dir.dir());
    loadShip(images, ship, "NoSuchShip");
  }
  EXPECT_STREQ(ship.shipClass, "Kept");
  EXPECT_EQ(ship.cargoHoldCount, 6);
  EXPECT_EQ(ship.shipHoldFree, 12.5f);
  for (SDL_Surface* image : images) EXPECT_EQ(image, nullptr);
  EXPECT_TRUE(log.saw("Load and cache player object: NoSuchShip"));
  EXPECT_TRUE(log.saw(".\\Ships\\NoSuchShip.txt"));
  EXPECT_TRUE(log.saw(".\\Ships\\NoSuchShip.bmp"));
  EXPECT_TRUE(log.saw(".\\Ships\\Rover.bmp"));
}

namespace {

// A 20 x 30 test ship: a red nose block at the top centre on a grey body, on black.
SDL_Surface* makeTestShip() {
  SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 20, 30, 24, 0xFF0000, 0x00FF00, 0x0000FF, 0);
  boxRGBA(s, 6, 6, 13, 27, 120, 120, 120, 255);
  boxRGBA(s, 8, 0, 11, 5, 255, 0, 0, 255);
  return s;
}

// The centre of the red pixels of an image.
bool redCentre(SDL_Surface* image, double& cx, double& cy) {
  double sx = 0, sy = 0;
  int n = 0;
  for (int y = 0; y < image->h; ++y) {
    for (int x = 0; x < image->w; ++x) {
      if (pixelRGB(image, x, y) == 0xFF0000) {
        sx += x;
        sy += y;
        ++n;
      }
    }
  }
  if (n == 0) return false;
  cx = sx / n;
  cy = sy / n;
  return true;
}

void freeImages(SDL_Surface** images) {
  for (int i = 0; i < shipImageCount; ++i) {
    if (images[i]) SDL_FreeSurface(images[i]);
    images[i] = nullptr;
  }
}

}  // namespace

TEST_F(ShipFileTest, ImagesAreCachedAtEveryFiveDegrees) {
  ensureScreen();
  dir.write("Ships/Test.txt", "A\nB\n1\n1\n0\n\n\n\nD\n");
  SDL_Surface* source = makeTestShip();
  ASSERT_EQ(SDL_SaveBMP(source, dir.path("Ships/Test.bmp").c_str()), 0);
  SDL_Surface* rover = SDL_CreateRGBSurface(SDL_SWSURFACE, 10, 12, 24, 0xFF0000, 0x00FF00, 0x0000FF, 0);
  SDL_FillRect(rover, nullptr, SDL_MapRGB(rover->format, 0, 200, 0));
  ASSERT_EQ(SDL_SaveBMP(rover, dir.path("Ships/Rover.bmp").c_str()), 0);

  SDL_Surface* images[shipImageCount] = {};
  {
    InDirectory in(dir.dir());
    loadShip(images, ship, "Test");
    loadShip(images, ship, "Test");  // a second load replaces the first without leaking it
  }
  for (int i = 0; i < shipImageCount; ++i) {
    ASSERT_NE(images[i], nullptr) << i;
    EXPECT_TRUE(images[i]->flags & SDL_SRCCOLORKEY) << i;
    EXPECT_EQ(images[i]->format->colorkey, 0u) << i;
  }
  // Entry 0 is the picture itself.
  ASSERT_EQ(images[0]->w, 20);
  ASSERT_EQ(images[0]->h, 30);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 20; ++x) ASSERT_EQ(pixelRGB(images[0], x, y), pixelRGB(source, x, y)) << x << "," << y;
  }
  // Entry 18 is turned by 90 degrees counter-clockwise: the nose points left.
  EXPECT_NEAR(images[18]->w, 30, 2);
  EXPECT_NEAR(images[18]->h, 20, 2);
  double cx = 0, cy = 0;
  ASSERT_TRUE(redCentre(images[18], cx, cy));
  EXPECT_LT(cx, images[18]->w / 4.0);
  EXPECT_NEAR(cy, images[18]->h / 2.0, 2.0);
  // Entry 36 points down.
  ASSERT_TRUE(redCentre(images[36], cx, cy));
  EXPECT_GT(cy, images[36]->h * 0.75);
  // Entry 72 is the unturned rover.
  EXPECT_EQ(images[72]->w, 10);
  EXPECT_EQ(images[72]->h, 12);
  EXPECT_EQ(pixelRGB(images[72], 5, 6), 0x00C800u);
  EXPECT_NE(images[72 + 18]->w, 0);

  freeImages(images);
  SDL_FreeSurface(source);
  SDL_FreeSurface(rover);
}
