#include "shell/game_state.h"

#include <cstdio>
#include <sstream>

#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/flight.h"
#include "shell/main_loop.h"
#include "shell/message_window.h"
#include "ship/cargo.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "surface/rover.h"
#include "surface/surface_map.h"
#include "universe/star_map.h"

GameState gameState;

Planet* currentPlanetRecord() {
  StellarObject* object = gameState.currentObject;
  if (!object || gameState.currentPlanet < 0 || gameState.currentPlanet >= maxPlanets) return nullptr;
  return object->Planets[gameState.currentPlanet];
}

void drawCargoWindow() {
  drawCargoList(screen);
  drawShipHold(screen);
  drawRoverHold(screen);
  gameState.cargoWasShown = 1;
}

void resetAnalysisLines() {
  std::snprintf(gameState.analysisLines[0], sizeof gameState.analysisLines[0], " ");
  std::snprintf(gameState.analysisLines[1], sizeof gameState.analysisLines[1], " ");
  std::snprintf(gameState.analysisLines[2], sizeof gameState.analysisLines[2], " ");
  std::snprintf(gameState.analysisLines[3], sizeof gameState.analysisLines[3], "%s", scansFirstText);
}

namespace {

void fillAnalysisLines(const Planet& p) {
  auto& lines = gameState.analysisLines;
  std::snprintf(lines[0], sizeof lines[0], "Atmosphere: %s, %s, %s", p.Atmos[0], p.Atmos[1], p.Atmos[2]);
  std::snprintf(lines[1], sizeof lines[1], "Hydrosphere: %s", p.Hydro);
  std::snprintf(lines[2], sizeof lines[2], "Lithosphere: %s, %s, %s", p.Litho[0], p.Litho[1], p.Litho[2]);
  std::snprintf(lines[3], sizeof lines[3], "Global Weather: %s", p.Weather);
}

void showAnalysisOnce() {
  if (!isActive(3, 1)) return;
  for (const auto& line : gameState.analysisLines) showMessage(line);
  toggleItemSelected();
}

// Science, Sensors: one frame of the sweep over the globe.
void sensorSweepStep(Planet& planet) {
  if (!isActive(3, 0)) return;
  drawPlanetScan(screen, gameState.currentPlanet, &planet);
  drawSurfaceMap(screen, &planet);
  gameState.scanRunning = 1;
  if (scanProgress() == 0) {
    drawDeposits(screen, gameState.deposits);
    gameState.scansTaken = 1;
    gameState.scanRunning = 0;
    toggleItemSelected();
  }
  fillAnalysisLines(planet);
}

// The cargo window is the only overlay in orbit and on the surface.
bool drawCargoOverlay() {
  if (gameState.cargoOpen) {
    drawCargoWindow();
    return true;
  }
  if (gameState.cargoWasShown) redrawAll();
  gameState.cargoWasShown = 0;
  return false;
}

void drawPlanetPane(Planet& planet) {
  if (gameState.showShipStatus == 0) {
    drawGlobeFrame(screen);
    sensorSweepStep(planet);
  } else {
    drawStatusWindow(screen);
  }
}

}  // namespace

void runOrbitFrame() {
  if (isActive(4, 0)) {
    leaveOrbit();
    gameState.mode = System;
    gameState.speed = 0;
    freeMineralDeposits(gameState.deposits);
  }
  showAnalysisOnce();
  Planet* planet = currentPlanetRecord();
  if (drawCargoOverlay() || !planet) return;
  drawPlanetPane(*planet);
  if (isActive(11, 0)) {
    drawCoordinates(screen);
    if (gameState.siteClicked) {
      drawSurfaceMap(screen, planet);
      gameState.siteClicked = 0;
    }
  }
  if (gameState.descentRunning) {
    drawSurfaceView(screen, planet, 255, 0, 0, 0, gameState.deposits);
    drawLandingSequence(screen, planet, 1, 0, gameState.deposits);
    if (getAltitude() == 0) {
      gameState.descentRunning = 0;
      toggleItemSelected();
      setCurrentMenu(2);
      setCurrentItem(0);
      drawCommandWindow(screen);
      gameState.mode = Surface;
    }
  } else {
    drawSurfaceGlobe(screen, planet->Hydro);
    if (gameState.scansTaken && gameState.mode == Orbit) drawDeposits(screen, gameState.deposits);
  }
}

void runSurfaceFrame() {
  Planet* planet = currentPlanetRecord();
  if (drawCargoOverlay() || !planet) return;
  drawPlanetPane(*planet);
  showAnalysisOnce();
  const int headingIndex = gameState.heading / 5;
  if (gameState.launchRunning) {
    drawSurfaceView(screen, planet, 255, headingIndex, 0, 0, gameState.deposits);
    drawLandingSequence(screen, planet, 0, headingIndex, gameState.deposits);
    if (getAltitude() == 255) {
      transferRoverCargo();
      gameState.launchRunning = 0;
      toggleItemSelected();
      setCurrentMenu(1);
      setCurrentItem(0);
      gameState.mode = Orbit;
      redrawAll();
    }
  } else {
    drawSurfaceView(screen, planet, 255, headingIndex, static_cast<int>(gameState.velX),
                    static_cast<int>(gameState.velY), gameState.deposits);
    drawCoordinates(screen);
    drawSurfaceMap(screen, planet);
    if (gameState.scansTaken) drawDeposits(screen, gameState.deposits);
  }
}

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

void jsonHold(std::ostringstream& out, const CargoHold& hold) {
  out << '[';
  for (std::size_t i = 0; i < hold.size(); ++i) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.2f", hold[i]);
    out << (i ? "," : "") << buf;
  }
  out << ']';
}

}  // namespace

std::string gameStateJson() {
  const GameState& s = gameState;
  std::ostringstream out;
  auto field = [&](const char* name, auto value) { out << ",\"" << name << "\":" << value; };
  out << "{\"mode\":" << s.mode;
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
    out << '}';
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
