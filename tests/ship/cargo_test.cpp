// The cargo holds and the cargo window: hold operations, arrow presses, the
// repeat delay, jettison, the close button and the drawn rows.
#include "ship/cargo.h"

#include <SDL_image.h>

#include "support/test_support.h"

namespace {

constexpr int ironRow = 1;

class CargoTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    ship = Ship{};
    ship.shipHoldCapacity = 200.0f;
    ship.shipHoldFree = 200.0f;
    ship.roverHoldFree = 50.0f;
    initCargoWindow(&fontTable, &ship);
    SDL_FillRect(screen, nullptr, 0);
  }
  void holdIron(float amount) {
    ship.shipHold[ironRow] = amount;
    ship.shipHoldFree = ship.shipHoldCapacity - amount;
  }
  // A press and a release over (x, y), each followed by a drawn frame, as the loop runs them.
  void clickAt(int x, int y) {
    cargoMouseMotion(x, y);
    cargoMouseDown();
    drawShipHold(screen);
    cargoMouseUp();
    drawShipHold(screen);
  }
  float shipSelection(int m) const { return cargoWindow.jettisonSelection[ShipsHold][m]; }

  Ship ship;
};

TEST(CargoHold, OperationsKeepFreeSpaceEqualToCapacityLessContents) {
  const struct {
    const char* what;
    float held, free, amount;
    bool store;
    float moved, heldAfter, freeAfter;
  } cases[] = {
      {"store what fits", 1.0f, 10.0f, 4.0f, true, 4.0f, 5.0f, 6.0f},
      {"store beyond the free space", 1.0f, 3.0f, 9.99f, true, 3.0f, 4.0f, 0.0f},
      {"store a negative amount", 1.0f, 5.0f, -2.0f, true, 0.0f, 1.0f, 5.0f},
      {"take more than held", 3.5f, 10.0f, 9.0f, false, 3.5f, 0.0f, 13.5f},
  };
  for (const auto& c : cases) {
    CargoHold hold{};
    hold[ironRow] = c.held;
    float free = c.free;
    const float moved = c.store ? storeCargo(hold, free, ironRow, c.amount) : takeCargo(hold, free, ironRow, c.amount);
    EXPECT_FLOAT_EQ(moved, c.moved) << c.what;
    EXPECT_FLOAT_EQ(hold[ironRow], c.heldAfter) << c.what;
    EXPECT_FLOAT_EQ(free, c.freeAfter) << c.what;
  }
  CargoHold hold{};
  float free = 50.0f;
  for (int bad : {-1, 22, 1000}) {
    EXPECT_EQ(storeCargo(hold, free, bad, 1.0f), 0.0f) << bad;
    EXPECT_EQ(takeCargo(hold, free, bad, 1.0f), 0.0f) << bad;
  }
  EXPECT_EQ(free, 50.0f);
}

// Up and Down on the ship's Iron row, then the ship's and the rover's Jettison:
// each side's buttons touch only its own selection and hold.
TEST_F(CargoTest, ArrowsSelectWholeCuUpToTheAmountHeldAndJettisonThrowsItAway) {
  holdIron(3.5f);
  const float up[] = {1.0f, 2.0f, 3.0f, 3.5f, 3.5f}, down[] = {2.5f, 1.5f, 0.5f, 0.0f, 0.0f};
  for (float e : up) {
    clickAt(125, 95);
    EXPECT_FLOAT_EQ(shipSelection(ironRow), e);
  }
  for (float e : down) {
    clickAt(140, 95);
    EXPECT_FLOAT_EQ(shipSelection(ironRow), e);
  }
  clickAt(125, 95);
  clickAt(125, 95);
  ship.roverHold[ironRow] = 2.0f;
  ship.roverHold[4] = 12.0f;
  cargoWindow.jettisonSelection[RoversHold][4] = 12.0f;
  cargoMouseMotion(325, 95);  // the rover's Up arrow
  cargoMouseDown();
  drawRoverHold(screen);
  cargoMouseUp();
  EXPECT_FLOAT_EQ(cargoWindow.jettisonSelection[RoversHold][ironRow], 1.0f);
  ASSERT_FLOAT_EQ(shipSelection(ironRow), 2.0f);

  clickAt(200, 550);  // the ship's jettison button
  EXPECT_FLOAT_EQ(ship.shipHold[ironRow], 1.5f);
  EXPECT_FLOAT_EQ(ship.shipHoldFree, 198.5f);
  EXPECT_FLOAT_EQ(shipSelection(ironRow), 0.0f);
  EXPECT_FLOAT_EQ(ship.roverHold[4], 12.0f);

  clickAt(125, 95);
  cargoMouseMotion(400, 550);  // the rover's: its free space counts from 50
  cargoMouseDown();
  cargoMouseUp();
  drawShipHold(screen);
  drawRoverHold(screen);
  EXPECT_FLOAT_EQ(ship.shipHold[ironRow], 1.5f);
  EXPECT_FLOAT_EQ(shipSelection(ironRow), 1.0f);
  EXPECT_FLOAT_EQ(ship.roverHold[4], 0.0f);
  EXPECT_FLOAT_EQ(ship.roverHold[ironRow], 1.0f);
  EXPECT_FLOAT_EQ(ship.roverHoldFree, 49.0f);  // 50 less the Iron left
}

TEST_F(CargoTest, AHeldArrowChangesOnTheFirstFrameThenEveryFrameFromTheSeventeenth) {
  holdIron(50.0f);
  cargoMouseMotion(125, 95);
  cargoMouseDown();
  std::string changedOn;
  float before = 0.0f;
  for (int frame = 1; frame <= 20; ++frame) {
    drawShipHold(screen);
    if (shipSelection(ironRow) != before) changedOn += std::to_string(frame) + " ";
    before = shipSelection(ironRow);
  }
  EXPECT_EQ(changedOn, "1 17 18 19 20 ");
  cargoMouseUp();
  EXPECT_EQ(cargoWindow.repeatCounter, 0);
  cargoMouseDown();  // a fresh press changes at once again
  drawShipHold(screen);
  EXPECT_FLOAT_EQ(shipSelection(ironRow), 6.0f);
}

TEST_F(CargoTest, MotionMarksTheOneArrowUnderThePointer) {
  const struct {
    int x, y;
    int column, row;  // -1: no arrow
  } cases[] = {{121, 70, ShipUpArrow, 0},
               {134, 89, ShipUpArrow, 0},
               {136, 509, ShipDownArrow, 21},
               {149, 300, ShipDownArrow, 11},
               {321, 70, RoverUpArrow, 0},
               {349, 130, RoverDownArrow, 3},
               {120, 100, -1, 0},
               {135, 100, -1, 0},
               {150, 100, -1, 0},
               {335, 100, -1, 0},
               {125, 69, -1, 0},
               {125, 510, -1, 0}};
  for (const auto& c : cases) {
    cargoMouseMotion(c.x, c.y);
    int set = 0;
    for (int col = 0; col < arrowColumns; ++col)
      for (int row = 0; row < holdSlots; ++row) set += cargoWindow.arrowHover[col][row];
    EXPECT_EQ(set, c.column < 0 ? 0 : 1) << c.x << "," << c.y;
    if (c.column >= 0) {
      EXPECT_EQ(cargoWindow.arrowHover[c.column][c.row], 1) << c.x << "," << c.y;
    }
  }
}

TEST_F(CargoTest, CloseButtonClearsBothSelectionsAndClosesTheWindow) {
  gameState.cargoOpen = 1;
  cargoWindow.jettisonSelection[ShipsHold][3] = 1.0f;
  cargoWindow.jettisonSelection[RoversHold][7] = 2.0f;
  drawCargoList(screen);
  EXPECT_EQ(gameState.cargoOpen, 1) << "no click yet";
  cargoMouseMotion(775, 20);
  cargoMouseDown();
  cargoMouseUp();
  drawCargoList(screen);
  EXPECT_EQ(gameState.cargoOpen, 0);
  EXPECT_EQ(cargoWindow.jettisonSelection[ShipsHold], CargoHold{});
  EXPECT_EQ(cargoWindow.jettisonSelection[RoversHold], CargoHold{});
}

TEST_F(CargoTest, AmountsAndTotalsAreDrawnInTheirFormats) {
  // Text that starts at x = 203 on the row; the rover's column starts at 320.
  const struct {
    int mineral;
    float amount;
    const char* text;
  } rows[] = {{0, 9.99f, "/  9.99 CU"}, {1, 10.0f, "/ 10.00 CU"}, {2, 100.0f, "/100.00 CU"}};
  for (const auto& r : rows) ship.shipHold[r.mineral] = r.amount;
  cargoWindow.jettisonSelection[ShipsHold][1] = 1.5f;
  cargoWindow.jettisonSelection[ShipsHold][2] = 2.0f;
  BitmapFont* text = fontTable.fonts[2];
  for (float capacity : {999.99f, 50.0f}) {
    ship.shipHoldCapacity = capacity;
    SDL_FillRect(screen, nullptr, 0);
    drawShipHold(screen);
    drawRoverHold(screen);
    for (const auto& r : rows) EXPECT_TRUE(showsText(screen, 203, 70 + 20 * r.mineral, text, r.text)) << r.text;
    EXPECT_TRUE(showsText(screen, 203, 520, text, capacity > 100.0f ? "/999.99 CU" : "/ 50.00 CU")) << capacity;
    EXPECT_TRUE(showsText(screen, 403, 520, text, "/ 50.00 CU")) << "rover";
  }
  // The selection ends at x = 203: "0.00" right-aligned against it.
  EXPECT_TRUE(showsText(screen, 203 - textWidth(text, "0.00"), 70, text, "0.00"));
  EXPECT_TRUE(showsText(screen, 203 - textWidth(text, "3.50"), 520, text, "3.50")) << "the selections' sum";
}

// The green frame is checked through the game; here the arrow under the pointer
// shows its highlight image, its neighbours the normal one.
TEST_F(CargoTest, TheArrowUnderThePointerIsHighlighted) {
  cargoMouseMotion(125, 95);
  drawShipHold(screen);
  drawRoverHold(screen);
  const struct {
    const char* file;
    int x, y;
  } arrows[] = {{".\\Buttons\\Up_highlight.bmp", 120, 90},
                {".\\Buttons\\Up_norm.bmp", 120, 70},
                {".\\Buttons\\Down_norm.bmp", 135, 90},
                {".\\Buttons\\Up_norm.bmp", 320, 90}};
  for (const auto& a : arrows) {
    SurfacePtr image(IMG_Load(hostPath(a.file).c_str()));
    ASSERT_NE(image, nullptr) << a.file;
    SurfacePtr converted(SDL_ConvertSurface(image.get(), screen->format, SDL_SWSURFACE));
    int differ = 0;
    for (int y = 0; y < converted->h; ++y)
      for (int x = 0; x < converted->w; ++x)
        differ += pixelRGB(converted.get(), x, y) != pixelRGB(screen, a.x + x, a.y + y);
    EXPECT_EQ(differ, 0) << a.file << " at " << a.x << "," << a.y;
  }
}

}  // namespace
