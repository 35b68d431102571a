// The cargo window and the ship configuration window, through the real game.
#include <SDL.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

// The shipped ship's hold with Iron at `iron` CU.
std::string holdWithIron(const char* iron) {
  std::string h = std::string("[0.00,") + iron + ",0.00,0.00,2.25";
  for (int i = 5; i < 22; ++i) h += i == 17 ? ",0.75" : ",0.00";
  return h + "]";
}

}  // namespace

// In orbit round planet 0 of the home system, where the Captain menu offers Cargo.
TEST(CargoEndToEnd, OpenSelectAndJettisonIron) {
  TempDir tmp;
  const std::string data = dataCopyWithSave(tmp, 2, 100, 100, 140, 2, 0);
  const std::string shot = tmp.path("cargo.bmp");
  // Captain, Cargo; two clicks on Iron's Up arrow; the ship's Jettison.
  const std::string script = clickRow(1, 0) + clickRow(9, 2) + "at 18 state\n" + clickAt(20, 125, 95) +
                             clickAt(29, 125, 95) + "at 37 screenshot " + shot + "\n" + clickAt(38, 200, 550) +
                             "at 46 state\n";
  const RunResult r = runScript(script, "--data '" + data + "' --frames 46");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  EXPECT_EQ(stateNumber(states[0], "mode"), 2);
  EXPECT_EQ(stateNumber(states[0], "cargoOpen"), 1);
  EXPECT_EQ(stateField(states[0], "shipHold"), holdWithIron("4.50"));
  EXPECT_EQ(stateField(states[0], "shipHoldFree"), "192.5");
  // Two of the 4.5 CU of Iron thrown away.
  EXPECT_EQ(stateNumber(states[1], "cargoOpen"), 1);
  EXPECT_EQ(stateField(states[1], "shipHold"), holdWithIron("2.50"));
  EXPECT_EQ(stateField(states[1], "shipHoldFree"), "194.5");

  // The window covers the screen: its green frame, and Iron's text in its row.
  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelRGB(image.get(), 0, 300), 0x00FF00u);
  int lit = 0;
  for (int y = 90; y < 105; ++y)
    for (int x = 150; x < 280; ++x) lit += pixelRGB(image.get(), x, y) != 0;
  EXPECT_GT(lit, 0);
}

TEST(ShipConfigEndToEnd, EOpensTheWindowAClickOnTheEngineSelectsItAndXCloses) {
  TempDir tmp;
  const std::string shot = tmp.path("config.bmp");
  // The Surveyor's port engine marker lies at (215, 470) on the schematic: (225, 520) on screen.
  const std::string script = "at 1 key down e\nat 2 key up e\n" + clickAt(4, 225, 520) +
                             "at 11 state\nat 11 screenshot " + shot + "\n" + clickAt(12, 775, 20) + "at 20 state\n";
  const RunResult r = runScript(script, "--frames 20");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  EXPECT_EQ(stateNumber(states[0], "configOpen"), 1);
  EXPECT_EQ(stateNumber(states[0], "selectedComponent"), 1);
  EXPECT_EQ(stateNumber(states[1], "configOpen"), 0);
  EXPECT_EQ(stateNumber(states[1], "selectedComponent"), 0);

  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelRGB(image.get(), 0, 300), 0x8080FFu);         // the window's frame
  EXPECT_EQ(pixelRGB(image.get(), 540, 60), 0xFF4040u);        // the leader to the panel
  EXPECT_EQ(pixelRGB(image.get(), 225 + 11, 520), 0xFFFFFFu);  // the selected engine's ring
}
