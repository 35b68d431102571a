// The cargo window through the real game, in orbit round planet 0 of the home system.

#include "support/test_support.h"

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
  // The shipped hold: Iron 4.5 CU, 2.25 in slot 4 and 0.75 in slot 17; two of the Iron thrown away.
  std::vector<float> hold = stateFloats(states[0], "shipHold");
  const std::vector<float> after = stateFloats(states[1], "shipHold");
  ASSERT_EQ(hold.size(), 22u);
  EXPECT_EQ(std::vector<float>(hold.begin(), hold.begin() + 5), (std::vector<float>{0, 4.5f, 0, 0, 2.25f}));
  EXPECT_EQ(hold[17], 0.75f);
  hold[1] = 2.5f;
  EXPECT_EQ(after, hold);
  EXPECT_EQ(std::tuple(stateNumber(states[0], "mode"), stateNumber(states[0], "cargoOpen"),
                       stateNumber(states[1], "cargoOpen")),
            std::tuple(2, 1, 1));
  EXPECT_EQ(stateField(states[0], "shipHoldFree") + " " + stateField(states[1], "shipHoldFree"), "192.5 194.5");
  // The window covers the screen: its green frame, and Iron's text in its row.
  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelRGB(image.get(), 0, 300), 0x00FF00u);
  int lit = 0;
  for (int i = 0; i < 130 * 15; ++i) lit += pixelRGB(image.get(), 150 + i % 130, 90 + i / 130) != 0;
  EXPECT_GT(lit, 0);
}
