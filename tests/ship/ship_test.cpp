#include <SDL_gfxPrimitives.h>

#include <climits>

#include "base/data_problems.h"
#include "support/test_support.h"

namespace {

std::string text(const MarkerList& list) {
  std::string out;
  for (const MarkerPoint& p : list) out += (out.empty() ? "" : " ") + std::to_string(p.x) + "," + std::to_string(p.y);
  return out;
}

// class|type|hull|holds|hardpoints|engine|shield|plant markers|mount:markers;...|description|capacity/free
std::string summary(const Ship& s) {
  char holds[40];
  std::snprintf(holds, sizeof holds, "|%.2f/%.2f", s.shipHoldCapacity, s.shipHoldFree);
  std::string out = std::string(s.shipClass) + "|" + s.shipType + "|" + std::to_string(s.hullMax) + "|" +
                    std::to_string(s.cargoHoldCount) + "|" + std::to_string(s.hardPointCount) + "|" +
                    text(s.engineMarkers) + "|" + text(s.shieldMarkers) + "|" + text(s.powerPlantMarkers) + "|";
  for (int i = 0; i < maxHardPoints; ++i)
    if (!s.hardPoints[i].markers.empty()) out += std::to_string(i) + ":" + text(s.hardPoints[i].markers) + ";";
  return out + "|" + s.description + holds;
}

// Fits the named parts and reads their files: "class description" of engine, shield and plant.
std::string fit(Ship& ship, const char* engine, const char* shield, const char* plant) {
  std::strcpy(ship.engine.name, engine);
  std::strcpy(ship.shield.name, shield);
  std::strcpy(ship.powerPlant.name, plant);
  loadEngine(ship);
  loadShield(ship);
  loadPowerPlant(ship);
  return std::to_string(ship.engine.engineClass) + " " + ship.engine.description + "|" +
         std::to_string(ship.shield.shieldClass) + " " + ship.shield.description + "|" +
         std::to_string(ship.powerPlant.powerPlantClass) + " " + ship.powerPlant.description;
}

class ShipFileTest : public ::testing::Test {
 protected:
  void SetUp() override { std::filesystem::current_path(dir.dir()); }
  void TearDown() override { std::filesystem::current_path(home_); }
  bool read(const std::string& content) { return readShipFile(ship, dir.write("Ships/Test.txt", content)); }
  Ship ship;
  TempDir dir;
  LogWatch log;

 private:
  std::filesystem::path home_ = std::filesystem::current_path();
};

}  // namespace

TEST_F(ShipFileTest, FieldsGoByLineWithCommentsSkippedOddLinesLoggedAndTheStateClear) {
  const std::pair<std::string, std::string> cases[] = {
      {"# a ship for the tests\n#\nCorvette\nEscort\n# hull\n120\n4\n2\n10,20 30,40\n50,60\n# the plant next\n70,80\n"
       "100,110\n# between the hardpoints\n120,130 140,150\nA small, quick escort.\nPast the description\n",
       "Corvette|Escort|120|4|2|10,20 30,40|50,60|70,80|0:100,110;1:120,130 140,150;|A small, quick "
       "escort.|200.00/200.00"},
      {"A\nB\n1\n1\n1\n1,2,3\n\n\n9\nDesc\n", "A|B|1|1|1|1,2||||Desc|50.00/50.00"},  // unpaired coordinates dropped
      // Fourteen hardpoints are cut to ten; names to their fields; 25 holds' capacity is capped, not their space.
      {"A\nB\n1\n1\n14\n\n\n\n" + std::string(9, '\n') + "9,9\nTen.\n", "A|B|1|1|10||||9:9,9;|Ten.|50.00/50.00"},
      {std::string(150, 'k') + "\nB\n1\n1\n0\n\n\n\n" + std::string(900, 'd') + "\n",
       std::string(99, 'k') + "|B|1|1|0|||||" + std::string(900, 'd') + "|50.00/50.00"},
      {"A\nB\n1\n25\n0\n\n\n\nD\n", "A|B|1|25|0|||||D|999.99/1250.00"},
      // A negative number of holds would give a negative capacity: none instead.
      {"A\nB\n1\n-4\n0\n\n\n\nD\n", "A|B|1|0|0|||||D|0.00/0.00"},
  };
  for (const auto& [file, summarised] : cases) {
    ASSERT_TRUE(read(file));
    EXPECT_EQ(summary(ship), summarised);
  }
  EXPECT_TRUE(log.saw("engine markers") && log.saw("hardpoint markers") && log.saw("class longer than 99") &&
              log.saw("14 hardpoints") && log.saw("-4 cargo holds is below 0"));
  // Reading again clears what play changed and a saved game does not set: the switches, the holds, every mount.
  ship.shieldsOnline = ship.weaponsOnline = 1;
  ship.roverHold.fill(2.0f);
  ship.hardPoints[4].markers = {{1, 1}};
  ASSERT_TRUE(read("A\nB\n1\n25\n1\n\n\n\n3,3\nD\n"));
  EXPECT_TRUE(!ship.shieldsOnline && !ship.weaponsOnline && ship.roverHold == CargoHold{} &&
              ship.roverHoldFree == 50.0f && ship.hardPoints[4].markers.empty());
  ASSERT_TRUE(read("Stub\nHalf written\n55\n"));  // a short file keeps the fields it does not reach
  EXPECT_EQ(summary(ship), "Stub|Half written|55|25|1||||0:3,3;|D|999.99/1250.00");
}

// Entry 0 is the picture itself, 18 turned a quarter counter-clockwise; the rover's from 72; all keyed on black.
TEST_F(ShipFileTest, MissingFilesChangeNothingAndImagesAreCachedAtEveryFiveDegrees) {
  ensureScreen();
  ship.cargoHoldCount = 6;
  SDL_Surface* images[shipImageCount] = {};
  loadShip(images, ship, "NoSuchShip");
  EXPECT_EQ(summary(ship), "||0|6|0||||||0.00/0.00");
  EXPECT_EQ(std::count(std::begin(images), std::end(images), nullptr), shipImageCount);
  dir.write("Ships/Test.txt", "A\nB\n1\n1\n0\n\n\n\nD\n");
  SurfacePtr source = blankSurface(20, 30);
  boxRGBA(source.get(), 8, 0, 11, 5, 255, 0, 0, 255);  // a red nose at the top centre; the rover the same
  for (const char* file : {"Ships/Test.bmp", "Ships/Rover.bmp"})
    ASSERT_EQ(SDL_SaveBMP(source.get(), dir.path(file).c_str()), 0);
  loadShip(images, ship, "Test");
  loadShip(images, ship, "Test");  // a second load replaces the first without leaking it
  for (SDL_Surface* image : images) ASSERT_TRUE(image && (image->flags & SDL_SRCCOLORKEY) && !image->format->colorkey);
  ASSERT_TRUE(images[0]->w == 20 && images[0]->h == 30 && images[72]->w == 20 && images[90]->h < 30);
  EXPECT_EQ(std::tuple(pixelRGB(images[0], 9, 2), pixelRGB(images[0], 9, 8), pixelRGB(images[72], 9, 2),
                       pixelRGB(images[18], 2, images[18]->h / 2), pixelRGB(images[90], 2, images[90]->h / 2)),
            std::tuple(0xFF0000u, 0u, 0xFF0000u, 0xFF0000u, 0xFF0000u));  // turned, the noses point left
  for (SDL_Surface*& image : images) SDL_FreeSurface(image);
}

// An energy output past the int range is held at its end and reported with its file and line.
TEST_F(ShipFileTest, PartsAreReadPastCommentsForEachHardpointInUseAndShieldsChargeWithinBounds) {
  dir.write("Engines/Fast.txt", "# an engine\n# for the tests\n12\nGoes like the wind.\nignored\n");
  dir.write("Shields/Thick.txt", "7\n# comment between\nStops most things.\n");
  dir.write("PowerPlants/Hot.txt", "-3\nRuns backwards.\n");
  dir.write("Engines/Stub.txt", "# only a class\n9\n");
  EXPECT_EQ(fit(ship, "Fast", "Thick", "Hot"), "12 Goes like the wind.|7 Stops most things.|-3 Runs backwards.");
  EXPECT_EQ(fit(ship, "Stub", "Nowhere", "Hot"), "9 Goes like the wind.|7 Stops most things.|-3 Runs backwards.");
  EXPECT_TRUE(log.saw("Couldn't open .\\Shields\\Nowhere.txt"));
  dir.write("Weapons/Laser.txt", "# type, output, description\nPulse Laser\n35\nZaps.\n");
  dir.write("Weapons/Gun.txt", "Mass Driver\n# between\n99999999999\nThumps.\nmore\n");
  dir.write("Weapons/Long.txt", std::string(300, 'w') + "\n-2147483649\nx\n");
  const char* names[] = {"Laser", "", "Gun", "Long", "Laser"};
  for (int i = 0; i < 5; ++i) std::strcpy(ship.hardPoints[i].weaponName, names[i]);
  ship.hardPointCount = 4;  // the last Laser is beyond the count
  collectDataProblems(true);
  loadWeapons(ship);
  std::string weapons, reported;
  for (const HardPoint& h : ship.hardPoints)
    weapons += std::string(h.weapon.weaponType, 0, 12) + " " + std::to_string(h.weapon.energyOutput) + " " +
               h.weapon.description + "|";
  for (const DataProblem& p : collectedDataProblems()) reported += p.file + ":" + std::to_string(p.line) + " ";
  collectDataProblems(false);
  EXPECT_EQ(
      weapons,
      "Pulse Laser 35 Zaps.| 0 |Mass Driver 2147483647 Thumps.|wwwwwwwwwwww -2147483648 x| 0 | 0 | 0 | 0 | 0 | 0 |");
  EXPECT_EQ(reported, "Weapons/Gun.txt:3 Weapons/Long.txt:1 Weapons/Long.txt:2 ");
  EXPECT_TRUE(log.saw("Hardpoint 2 has no weapon"));

  // Shields online, plant class, maximum, frames, and the charge after them; huge classes do not overflow.
  const int steps[][5] = {{1, 10, 95, 10, 95},     {0, 10, 95, 10, 0}, {1, INT_MAX, 999, 1, 999},
                          {0, INT_MAX, 999, 1, 0}, {1, 3, 95, 2, 6},   {0, INT_MIN, 999, 1, INT_MAX}};
  for (const auto& s : steps) {
    ship.shieldsOnline = s[0], ship.powerPlant.powerPlantClass = s[1], ship.shield.shieldMax = s[2];
    for (int i = 0; i < s[3]; ++i) chargeShields(ship);
    EXPECT_EQ(ship.shield.shieldCurrent, s[4]) << &s - steps;
  }
}

// The pictures drawn at build time for the game's own ship.
TEST(ShipImagesGame, BlueprintPartsSitUnderTheirMarkersAndSpritesAndArrowsLookRight) {
  ensureScreen();
  Ship ship;
  ASSERT_TRUE(readShipFile(ship, "Ships/Surveyor.txt") && !ship.engineMarkers.empty() &&
              !ship.hardPoints[0].markers.empty());
  SurfacePtr b(SDL_LoadBMP(("Ships/" + std::string(ship.shipClass) + "_large.bmp").c_str()));
  ASSERT_TRUE(b && b->w <= 530 && b->h <= 530);
  // On the dark blue paper every part is bright on its marker, a turret's twin barrels a little ahead of it.
  auto bright = [&](int x, int y) {  // the highest channel
    const Uint32 c = x >= 0 && y >= 0 && x < b->w && y < b->h ? pixelRGB(b.get(), x, y) : 0;
    return std::max({c >> 16, (c >> 8) & 0xFF, c & 0xFF});
  };
  for (const MarkerList* list : {&ship.engineMarkers, &ship.shieldMarkers, &ship.powerPlantMarkers})
    for (const MarkerPoint& m : *list) EXPECT_GE(bright(m.x, m.y), 150u) << m.x << "," << m.y;
  for (int i = 0; i < ship.hardPointCount; ++i)
    for (const MarkerPoint& m : ship.hardPoints[i].markers) EXPECT_GE(bright(m.x - 2, m.y - 12), 200u) << i;
  EXPECT_LT(bright(30, 480), 150u);  // away from the ship, the paper
  // Sprites on black, which the colour key makes transparent; the rover 20 x 26, turned about the pixel (10, 13).
  for (auto [path, minSize, maxSize, taller] :
       {std::tuple{"Ships/Surveyor.bmp", 30, 48, 0}, {"Ships/Rover.bmp", 20, 20, 6}}) {
    SurfacePtr image(SDL_LoadBMP(path));
    ASSERT_TRUE(image && image->h == image->w + taller && image->w >= minSize && image->w <= maxSize) << path;
    EXPECT_TRUE(pixelRGB(image.get(), 0, 0) == 0 && pixelRGB(image.get(), image->w / 2, image->h / 2) != 0) << path;
  }
}
