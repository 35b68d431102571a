// The cargo window and the ship configuration window, through the real game.
#include <SDL.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

// A copy of the data whose saved game starts in orbit round planet 0 of the
// home system at (100, 100), so the Captain menu offers Cargo.
std::string dataInOrbit(const TempDir& tmp) {
  namespace fs = std::filesystem;
  const fs::path data = tmp.path("data");
  fs::copy(PROSPECTOR_DATA_DIR, data, fs::copy_options::recursive);
  std::ifstream in(data / "NewGame.sav");
  std::stringstream text;
  text << in.rdbuf();
  std::string save = text.str();
  const std::string from = "100\n96\n140\n2\n0\n0\n", to = "100\n100\n140\n2\n0\n2\n";
  const std::size_t at = save.find(from);
  if (at == std::string::npos) return "";
  save.replace(at, from.size(), to);
  std::ofstream(data / "NewGame.sav") << save;
  return data.string();
}

std::string hold(const std::vector<const char*>& firstFive) {
  std::string h = "[";
  for (int i = 0; i < 22; ++i) {
    if (i) h += ',';
    h += i < static_cast<int>(firstFive.size()) ? firstFive[i] : i == 17 ? "0.75" : "0.00";
  }
  return h + "]";
}

TEST(CargoEndToEnd, OpenSelectAndJettisonIron) {
  TempDir tmp;
  const std::string data = dataInOrbit(tmp);
  ASSERT_FALSE(data.empty()) << "the saved game's position lines moved";
  const std::string shot = tmp.path("cargo.bmp");
  // Captain, Cargo; two clicks on Iron's Up arrow; the ship's Jettison.
  const std::string script = clickRow(1, 0) + clickRow(9, 2) +
                             "at 18 state\n"
                             "at 20 mouse move 125 95\nat 22 mouse down\nat 24 mouse up\n"
                             "at 26 mouse down\nat 28 mouse up\n"
                             "at 30 screenshot " +
                             shot +
                             "\n"
                             "at 32 mouse move 200 550\nat 34 mouse down\nat 36 mouse up\n"
                             "at 40 state\n";
  const RunResult r = runGame("--data '" + data + "' --unthrottled --frames 40 --script " + tmp.write("s.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  EXPECT_EQ(stateNumber(states[0], "mode"), 2);
  EXPECT_EQ(stateNumber(states[0], "cargoOpen"), 1);
  EXPECT_EQ(stateField(states[0], "shipHold"), hold({"0.00", "4.50", "0.00", "0.00", "2.25"}));
  EXPECT_EQ(stateField(states[0], "shipHoldFree"), "192.5");
  // Two of the 4.5 CU of Iron thrown away.
  EXPECT_EQ(stateNumber(states[1], "cargoOpen"), 1);
  EXPECT_EQ(stateField(states[1], "shipHold"), hold({"0.00", "2.50", "0.00", "0.00", "2.25"}));
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
  const std::string script =
      "at 1 key down e\nat 2 key up e\n"
      "at 4 mouse move 225 520\nat 6 mouse down\nat 8 mouse up\n"
      "at 10 state\nat 10 screenshot " +
      shot +
      "\n"
      "at 12 mouse move 775 20\nat 14 mouse down\nat 16 mouse up\n"
      "at 20 state\n";
  const RunResult r = runGame("--unthrottled --frames 20 --script " + tmp.write("s.txt", script));
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

}  // namespace
