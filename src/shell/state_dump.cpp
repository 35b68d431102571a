#include "shell/state_dump.h"

#include <cmath>
#include <cstdio>
#include <sstream>
#include <type_traits>

#include "base/game_state.h"
#include "displays/ship_config.h"
#include "shell/command_window.h"
#include "shell/flight.h"
#include "ship/ship.h"
#include "surface/surface_map.h"
#include "universe/star_map.h"

namespace {

void jsonString(std::ostringstream& out, const char* text) {
  out << '"';
  for (const char* p = text; *p; ++p) {
    const unsigned char c = static_cast<unsigned char>(*p);
    if (c == '"' || c == '\\') {
      out << '\\' << *p;
    } else if (c < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", c);
      out << buf;
    } else {
      out << *p;
    }
  }
  out << '"';
}

// JSON has no NaN or infinity; a non-finite number is written as null so the
// line stays readable for whatever parses it.
template <typename T>
void jsonNumber(std::ostringstream& out, T value) {
  if constexpr (std::is_floating_point_v<T>) {
    if (!std::isfinite(value)) {
      out << "null";
      return;
    }
  }
  out << value;
}

void jsonHold(std::ostringstream& out, const CargoHold& hold) {
  out << '[';
  for (std::size_t i = 0; i < hold.size(); ++i) {
    out << (i ? "," : "");
    if (!std::isfinite(hold[i])) {
      out << "null";
      continue;
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.2f", hold[i]);
    out << buf;
  }
  out << ']';
}

// The deposit not yet emptied nearest the landing site, once a sweep has shown them.
const MineralDeposit* nearestVisibleDeposit() {
  if (!gameState.scansTaken) return nullptr;
  const MineralDeposit* nearest = nullptr;
  long best = 0;
  for (const MineralDeposit& d : gameState.deposits) {
    if (!(d.amount > 0.0f)) continue;
    const long dx = d.x - landingSite.x, dy = d.y - landingSite.y;
    if (!nearest || dx * dx + dy * dy < best) {
      nearest = &d;
      best = dx * dx + dy * dy;
    }
  }
  return nearest;
}

}  // namespace

std::string gameStateJson(long frame) {
  const GameState& s = gameState;
  std::ostringstream out;
  auto field = [&](const char* name, auto value) {
    out << ",\"" << name << "\":";
    jsonNumber(out, value);
  };
  out << '{';
  if (frame >= 0) out << "\"frame\":" << frame << ',';
  out << "\"mode\":" << s.mode;
  field("posX", s.posX);
  field("posY", s.posY);
  field("sectorX", s.sectorX);
  field("sectorY", s.sectorY);
  field("lastSectorX", s.lastSectorX);
  field("lastSectorY", s.lastSectorY);
  field("sysX", s.sysX);
  field("sysY", s.sysY);
  field("speed", s.speed);
  field("heading", s.heading);
  field("velX", s.velX);
  field("velY", s.velY);
  if (s.currentObject) {
    out << ",\"currentObject\":{\"x\":" << s.currentObject->x << ",\"y\":" << s.currentObject->y << ",\"Class\":";
    jsonString(out, s.currentObject->Class);
    // Each lane's orbit angle, -1 for an empty lane.
    out << ",\"OrbitAngles\":[";
    for (int i = 0; i < maxPlanets; ++i) {
      const Planet* p = s.currentObject->Planets[i];
      out << (i ? "," : "") << (p ? p->OrbitAngle : -1);
    }
    // Each lane's cell on the system plan, null for an empty lane.
    out << "],\"PlanetCells\":[";
    for (int i = 0; i < maxPlanets; ++i) {
      const Planet* p = s.currentObject->Planets[i];
      int px = 0, py = 0;
      if (p) planetCell(i, p->OrbitAngle, px, py);
      out << (i ? "," : "");
      if (p) {
        out << '[' << px << ',' << py << ']';
      } else {
        out << "null";
      }
    }
    out << "]}";
  } else {
    out << ",\"currentObject\":null";
  }
  field("currentPlanet", s.currentPlanet);
  field("maneuverOn", s.maneuverOn);
  field("scanRunning", s.scanRunning);
  field("descentRunning", s.descentRunning);
  field("launchRunning", s.launchRunning);
  field("siteClicked", s.siteClicked);
  field("showShipStatus", s.showShipStatus);
  field("cargoOpen", s.cargoOpen);
  field("navigationOpen", s.navigationOpen);
  field("configOpen", s.configOpen);
  field("cargoWasShown", s.cargoWasShown);
  field("navigationWasShown", s.navigationWasShown);
  field("configWasShown", s.configWasShown);
  field("selectedComponent", shipConfig.selectedComponent);
  field("mouseX", s.mouseX);
  field("mouseY", s.mouseY);
  field("upHeld", s.upHeld);
  field("downHeld", s.downHeld);
  field("leftHeld", s.leftHeld);
  field("rightHeld", s.rightHeld);
  field("fullScreen", s.fullScreen);
  field("showFrameRate", s.showFrameRate);
  field("framesCounted", s.framesCounted);
  field("frameRateStart", s.frameRateStart);
  field("scansTaken", s.scansTaken);
  out << ",\"analysisLines\":[";
  for (int i = 0; i < 4; ++i) {
    if (i) out << ',';
    jsonString(out, s.analysisLines[i]);
  }
  out << ']';
  field("deposits", s.deposits.size());
  out << ",\"site\":[" << landingSite.x << ',' << landingSite.y << "],\"rover\":[" << roverPosition.x << ','
      << roverPosition.y << "],\"nearestDeposit\":";
  if (const MineralDeposit* d = nearestVisibleDeposit()) {
    out << '[' << d->x << ',' << d->y << ',' << static_cast<int>(d->kind) << ',';
    jsonNumber(out, d->amount);
    out << ']';
  } else {
    out << "null";
  }
  field("currentMenu", getCurrentMenu());
  field("currentItem", getCurrentItem());
  field("itemSelected", isItemSelected());

  const Ship& ship = playerShip;
  out << ",\"ship\":{\"shipClass\":";
  jsonString(out, ship.shipClass);
  out << ",\"shipType\":";
  jsonString(out, ship.shipType);
  out << ",\"shipName\":";
  jsonString(out, ship.shipName);
  out << ",\"engine\":";
  jsonString(out, ship.engine.name);
  field("engineClass", ship.engine.engineClass);
  field("warpCurrent", ship.engine.warpCurrent);
  out << ",\"shield\":";
  jsonString(out, ship.shield.name);
  field("shieldClass", ship.shield.shieldClass);
  field("shieldMax", ship.shield.shieldMax);
  field("shieldCurrent", ship.shield.shieldCurrent);
  out << ",\"powerPlant\":";
  jsonString(out, ship.powerPlant.name);
  field("powerPlantClass", ship.powerPlant.powerPlantClass);
  field("armorClass", ship.armorClass);
  field("armorMax", ship.armorMax);
  field("armorCurrent", ship.armorCurrent);
  field("hullMax", ship.hullMax);
  field("hullCurrent", ship.hullCurrent);
  field("fuel", ship.fuel);
  field("cargoHoldCount", ship.cargoHoldCount);
  field("hardPointCount", ship.hardPointCount);
  out << ",\"weapons\":[";
  for (int i = 0; i < ship.hardPointCount && i < maxHardPoints; ++i) {
    if (i) out << ',';
    jsonString(out, ship.hardPoints[i].weaponName);
  }
  out << ']';
  field("shieldsOnline", ship.shieldsOnline);
  field("weaponsOnline", ship.weaponsOnline);
  field("roverFuel", ship.roverFuel);
  field("roverHoldFree", ship.roverHoldFree);
  field("shipHoldCapacity", ship.shipHoldCapacity);
  field("shipHoldFree", ship.shipHoldFree);
  out << ",\"shipHold\":";
  jsonHold(out, ship.shipHold);
  out << ",\"roverHold\":";
  jsonHold(out, ship.roverHold);
  out << "}}";
  return out.str();
}
