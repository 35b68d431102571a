#include "base/game_state.h"

#include <cstdio>

GameState gameState;

void resetAnalysisLines() {
  std::snprintf(gameState.analysisLines[0], sizeof gameState.analysisLines[0], " ");
  std::snprintf(gameState.analysisLines[1], sizeof gameState.analysisLines[1], " ");
  std::snprintf(gameState.analysisLines[2], sizeof gameState.analysisLines[2], " ");
  std::snprintf(gameState.analysisLines[3], sizeof gameState.analysisLines[3], "%s", scansFirstText);
}
