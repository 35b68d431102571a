#pragma once
#include "base/mineral_deposit.h"

struct StellarObject;

enum GameMode { Space = 0, System = 1, Orbit = 2, Surface = 3 };

// The per-frame speed change in Space and the divisor of the warp read-out.
constexpr int speedStep = 2;

constexpr const char* scansFirstText = "Scans must be taken first before it can be analyze";

struct GameState {
  int mode = Space;
  int posX = 0, posY = 0;
  int sectorX = 0, sectorY = 0;
  int lastSectorX = 0, lastSectorY = 0;
  int sysX = 0, sysY = 0;
  int speed = 0;
  int heading = 0;
  double velX = 0.0, velY = 0.0;
  StellarObject* currentObject = nullptr;
  int currentPlanet = 0;
  int maneuverOn = 0;
  int scanRunning = 0;
  int descentRunning = 0;
  int launchRunning = 0;
  int siteClicked = 0;
  int showShipStatus = 0;
  int cargoOpen = 0, navigationOpen = 0, configOpen = 0;
  int cargoWasShown = 0, navigationWasShown = 0, configWasShown = 0;
  int mouseX = 0, mouseY = 0;
  int upHeld = 0, downHeld = 0, leftHeld = 0, rightHeld = 0;
  int fullScreen = 0;
  int showFrameRate = 1;
  unsigned int framesCounted = 0;
  unsigned int frameRateStart = 0;
  int scansTaken = 0;
  char analysisLines[4][100] = {};
  // The mineral deposits of the planet in orbit or landed on.
  MineralDepositList deposits;
};

extern GameState gameState;

// analysisLines as they are when orbit is entered or restored.
void resetAnalysisLines();
