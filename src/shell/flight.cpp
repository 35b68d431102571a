#include "shell/flight.h"

#include "base/game_state.h"
#include "base/screen.h"
#include "ship/ship.h"
namespace {

constexpr int systemTopSpeed = 40;
constexpr int systemSpeedStep = 5;

int angleIndex(int degrees) { return ((degrees % 360) + 360) % 360; }

}  // namespace

void applyFlightControls() {
  GameState& g = gameState;
  switch (g.mode) {
    case Space:
      if (g.upHeld) {
        g.speed += speedStep;
        const int topSpeed = playerShip.engine.engineClass * speedStep;
        if (g.speed > topSpeed) g.speed = topSpeed;
      } else {
        g.speed -= speedStep;
      }
      break;
    case System:
      if (g.upHeld) {
        g.speed += systemSpeedStep;
        if (g.speed > systemTopSpeed) g.speed = systemTopSpeed;
      } else {
        g.speed -= systemSpeedStep;
      }
      break;
    case Surface:
      g.speed = g.upHeld ? 4 : 0;
      break;
    default:
      break;
  }
  if (g.speed < 0) g.speed = 0;
  if (g.rightHeld) {
    g.heading -= 5;
    if (g.heading < 0) g.heading = 355;
  }
  if (g.leftHeld) {
    g.heading += 5;
    if (g.heading > 355) g.heading = 0;
  }
}

void systemEntryCell(int heading, int& ex, int& ey) {
  // a is the direction of travel turned round: 5 to 360.
  const int a = 360 - angleIndex(heading);
  struct Entry {
    int below, x, y;
  };
  static constexpr Entry table[] = {
      {15, 140, 2},    {45, 70, 2},     {75, 2, 60},     {105, 2, 122},   {135, 2, 182},  {165, 70, 243},
      {195, 140, 243}, {225, 210, 243}, {255, 278, 182}, {285, 278, 122}, {315, 278, 60}, {345, 210, 2},
  };
  ex = 140;
  ey = 2;  // 345 and above faces the same edge as below 15
  for (const Entry& e : table) {
    if (a < e.below) {
      ex = e.x;
      ey = e.y;
      return;
    }
  }
}

void planetCell(int lane, int orbitAngle, int& px, int& py) {
  const int a = angleIndex(orbitAngle);
  const double s = sinTable[a], c = cosTable[a];
  px = static_cast<int>((10 * lane * s + 140) + 20 * s);
  py = static_cast<int>((122 - 10 * lane * c) - 20 * c);
}
