#include "ship/cargo.h"

#include <SDL_image.h>

#include "support/test_support.h"

namespace {

constexpr int iron = 1;

class CargoTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    ship.shipHoldCapacity = ship.shipHoldFree = 200.0f;
    ship.roverHoldFree = 50.0f;
    initCargoWindow(&fontTable, &ship);
    SDL_FillRect(screen, nullptr, 0);
  }
  // A press and a release over (x, y), each followed by a drawn frame, as the loop runs them.
  void clickAt(int x, int y) {
    cargoMouseMotion(x, y);
    for (void (*step)() : {cargoMouseDown, cargoMouseUp}) {
      step();
      drawShipHold(screen);
      drawRoverHold(screen);
    }
  }
  static float& selected(int hold, int mineral) { return cargoWindow.jettisonSelection[hold][mineral]; }
  Ship ship;
};

// Each side's buttons touch only its own selection and hold.
TEST_F(CargoTest, ArrowsSelectWholeCuUpToTheAmountHeldAndJettisonThrowsItAway) {
  ship.shipHold[iron] = 3.5f;
  std::string seen;
  for (int x : {125, 125, 125, 125, 125, 140, 140, 140, 140, 140, 125, 125}) {
    clickAt(x, 95);
    seen += std::to_string(selected(ShipsHold, iron)).substr(0, 3) + " ";
  }
  EXPECT_EQ(seen, "1.0 2.0 3.0 3.5 3.5 2.5 1.5 0.5 0.0 0.0 1.0 2.0 ");
  ship.roverHold[iron] = 2.0f;
  ship.roverHold[4] = selected(RoversHold, 4) = 12.0f;
  clickAt(325, 95);  // the rover's Up arrow
  EXPECT_EQ(std::pair(selected(RoversHold, iron), selected(ShipsHold, iron)), std::pair(1.0f, 2.0f));
  clickAt(200, 550);  // the ship's Jettison
  EXPECT_EQ((std::vector{ship.shipHold[iron], ship.shipHoldFree, selected(ShipsHold, iron), ship.roverHold[4]}),
            (std::vector{1.5f, 198.5f, 0.0f, 12.0f}));
  clickAt(125, 95);
  clickAt(400, 560);  // the bottom border of the rover's Jettison is outside it
  EXPECT_EQ(ship.roverHold[4], 12.0f);
  clickAt(400, 550);  // the rover's: its free space counts from 50
  EXPECT_EQ((std::vector{ship.shipHold[iron], selected(ShipsHold, iron), ship.roverHold[4], ship.roverHold[iron],
                         ship.roverHoldFree}),
            (std::vector{1.5f, 1.0f, 0.0f, 1.0f, 49.0f}));
  // Held: a change on the first frame, then every frame from the seventeenth.
  ship.shipHold[iron] = 50.0f;
  selected(ShipsHold, iron) = 0.0f;
  cargoMouseMotion(125, 95);
  cargoMouseDown();
  std::string changedOn;
  for (int frame = 1; frame <= 20; ++frame) {
    const float before = selected(ShipsHold, iron);
    drawShipHold(screen);
    if (selected(ShipsHold, iron) != before) changedOn += std::to_string(frame) + " ";
  }
  EXPECT_EQ(changedOn, "1 17 18 19 20 ");
}

TEST_F(CargoTest, AmountsTotalsAndTheArrowUnderThePointerAreDrawnAndCloseClearsTheSelections) {
  // Text that starts at x = 203 on the row; the rover's column starts at 320.
  const std::pair<float, const char*> rows[] = {{9.99f, "/  9.99 CU"}, {10.0f, "/ 10.00 CU"}, {100.0f, "/100.00 CU"}};
  for (int m = 0; m < 3; ++m) ship.shipHold[m] = rows[m].first;
  selected(ShipsHold, 1) = 1.5f;
  selected(ShipsHold, 2) = 2.0f;
  selected(RoversHold, 7) = 2.0f;
  BitmapFont* text = fontTable.fonts[2];
  ship.shipHoldCapacity = 999.99f;
  drawShipHold(screen);
  drawRoverHold(screen);
  for (int m = 0; m < 3; ++m) EXPECT_TRUE(showsText(screen, 203, 70 + 20 * m, text, rows[m].second)) << m;
  EXPECT_TRUE(showsText(screen, 203, 520, text, "/999.99 CU"));
  EXPECT_TRUE(showsText(screen, 403, 520, text, "/ 50.00 CU")) << "rover";
  // The selection ends at x = 203: "0.00" right-aligned against it, and the selections' sum on the total row.
  EXPECT_TRUE(showsText(screen, 203 - textWidth(text, "0.00"), 70, text, "0.00"));
  EXPECT_TRUE(showsText(screen, 203 - textWidth(text, "3.50"), 520, text, "3.50"));
  gameState.cargoOpen = 1;
  drawCargoList(screen);
  EXPECT_EQ(gameState.cargoOpen, 1) << "no click yet";
  cargoMouseMotion(775, 20);
  cargoMouseDown();
  cargoMouseUp();
  drawCargoList(screen);
  EXPECT_EQ(gameState.cargoOpen, 0);
  EXPECT_EQ(holdTotal(cargoWindow.jettisonSelection[ShipsHold]) + holdTotal(cargoWindow.jettisonSelection[RoversHold]),
            0.0f);
  // The arrow under the pointer is marked and drawn highlighted: pointer x and y, the arrow column and row, if any.
  const int up = ShipUpArrow, down = ShipDownArrow, none = -1;
  const int cases[][4] = {
      {134, 89, up, 0},    {136, 509, down, 21}, {321, 70, RoverUpArrow, 0}, {349, 130, RoverDownArrow, 3},
      {135, 100, none, 0}, {150, 100, none, 0},  {125, 69, none, 0},         {125, 510, none, 0}};
  for (const auto& c : cases) {
    cargoMouseMotion(c[0], c[1]);
    int set = 0;
    for (const auto& column : cargoWindow.arrowHover)
      for (int flag : column) set += flag;
    EXPECT_EQ(set, c[2] < 0 ? 0 : 1) << c[0] << "," << c[1];
    EXPECT_TRUE(c[2] < 0 || cargoWindow.arrowHover[c[2]][c[3]] == 1) << c[0] << "," << c[1];
  }
  cargoMouseMotion(125, 95);
  drawShipHold(screen);
  SurfacePtr want = blankSurface(800, 600);
  for (auto [file, x, y] : {std::tuple{"Up_highlight", 120, 90}, {"Up_norm", 120, 70}, {"Down_norm", 135, 90}}) {
    SurfacePtr image(IMG_Load(hostPath(std::string(".\\Buttons\\") + file + ".bmp").c_str()));
    ASSERT_NE(image, nullptr) << file;
    SDL_Rect at{Sint16(x), Sint16(y), 0, 0};
    SDL_BlitSurface(image.get(), nullptr, want.get(), &at);
    EXPECT_EQ(differingPixels(screen, want.get(), x, y, x + image->w, y + image->h), 0) << file;
  }
}

}  // namespace
