#include "shell/data_check.h"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <string>

#include "base/data_problems.h"
#include "base/game_state.h"
#include "platform/data_path.h"
#include "shell/saved_game.h"
#include "shell/voyage.h"
#include "ship/components.h"
#include "ship/ship.h"
#include "universe/star_map.h"

namespace {

// Images that the game loads in the windows drawn later (the configuration
// blueprint and the cargo arrows): a load test each, reported like the rest.
void checkImage(const std::string& gamePath) {
  SDL_Surface* image = IMG_Load(hostPath(gamePath).c_str());
  if (!image) {
    reportDataProblem(gamePath, 0, "Couldn't load %s", gamePath.c_str());
    return;
  }
  SDL_FreeSurface(image);
}

void checkFont() {
  if (TTF_WasInit() == 0 && TTF_Init() != 0) {
    reportDataProblem("ATX_A.ttf", 0, "Couldn't start the font library: %s", TTF_GetError());
    return;
  }
  TTF_Font* font = TTF_OpenFont("ATX_A.ttf", 12);
  if (!font) {
    reportDataProblem("ATX_A.ttf", 0, "Couldn't open the game font: %s", TTF_GetError());
    return;
  }
  TTF_CloseFont(font);
}

}  // namespace

int checkData(const char* dataDir, std::FILE* out) {
  // No video subsystem: surfaces and image files need none, and no window opens.
  SDL_Init(0);
  collectDataProblems(true);

  loadStarmap(starMap);
  loadGame("NewGame.sav");
  loadEngine(playerShip);
  loadShield(playerShip);
  loadPowerPlant(playerShip);
  loadWeapons(playerShip);
  checkSavedPlace();
  // The player's voyage goes through the same loaders, and the parts it names too.
  const std::string voyage = voyageToCheck();
  if (!voyage.empty()) {
    loadGame(voyage.c_str());
    loadEngine(playerShip);
    loadShield(playerShip);
    loadPowerPlant(playerShip);
    loadWeapons(playerShip);
    checkSavedPlace();
  }
  if (playerShip.shipClass[0] != '\0') checkImage(std::string(".\\Ships\\") + playerShip.shipClass + "_large.bmp");
  for (const char* arrow : {"Up", "Down"}) {
    for (const char* look : {"norm", "highlight", "select"}) {
      checkImage(std::string(".\\Buttons\\") + arrow + "_" + look + ".bmp");
    }
  }
  checkFont();

  const std::vector<DataProblem>& problems = collectedDataProblems();
  for (const DataProblem& p : problems) {
    if (p.line > 0) {
      std::fprintf(out, "%s:%d: %s\n", p.file.c_str(), p.line, p.what.c_str());
    } else {
      std::fprintf(out, "%s: %s\n", p.file.c_str(), p.what.c_str());
    }
  }
  if (problems.empty()) {
    std::fprintf(out, "%s: data clean: %d stellar objects, %d planets, ship %s\n", dataDir, starMapCounts.totalStars,
                 starMapCounts.totalPlanets, playerShip.shipClass);
  } else {
    std::fprintf(out, "%s: %zu problem%s found\n", dataDir, problems.size(), problems.size() == 1 ? "" : "s");
  }
  collectDataProblems(false);
  return problems.empty() ? 0 : 1;
}
