#include "shell/main_loop.h"

#include <SDL_framerate.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/ship_config.h"
#include "displays/status_window.h"
#include "platform/data_path.h"
#include "platform/display_loss.h"
#include "platform/input_script.h"
#include "platform/live_script.h"
#include "platform/options.h"
#include "platform/random.h"
#include "platform/window_identity.h"
#include "shell/command_window.h"
#include "shell/data_check.h"
#include "shell/event_queue.h"
#include "shell/flight.h"
#include "shell/frame_work.h"
#include "shell/input.h"
#include "shell/mode_frames.h"
#include "shell/saved_game.h"
#include "shell/screen_layout.h"
#include "shell/state_dump.h"
#include "shell/voyage.h"
#include "ship/cargo.h"
#include "ship/components.h"
#include "ship/ship.h"
#include "ui/font_builder.h"
#include "universe/navigation.h"
#include "universe/star_map.h"
#include "universe/viewing_tree.h"
#include "universe/viewscreen.h"

namespace {

FPSmanager frameRateManager;
bool frameDelay = true;

// Scripted input and the frame count that drives it.
std::vector<ScriptCommand> script;
std::size_t nextCommand = 0;
long frameNumber = 0;
std::unique_ptr<LiveScript> liveScript;  // --script -
long frameLimit = -1;
int scriptMouseX = 0, scriptMouseY = 0;
// Scripted key events carry this device number so their modifiers are applied
// to SDL's modifier state just before the handler reads it.
constexpr Uint8 scriptedKeyboard = 0xEE;

const char* const savedGamePath = "NewGame.sav";

void present() {
  if (gameState.fullScreen == 1) {
    SDL_Flip(screen);
  } else {
    SDL_UpdateRect(screen, 0, 0, 0, 0);
  }
}

void pushScriptedInput(const ScriptCommand& cmd) {
  SDL_Event event;
  std::memset(&event, 0, sizeof event);
  using Kind = ScriptCommand::Kind;
  switch (cmd.kind) {
    case Kind::KeyDown:
    case Kind::KeyUp:
      event.type = cmd.kind == Kind::KeyDown ? SDL_KEYDOWN : SDL_KEYUP;
      event.key.which = scriptedKeyboard;
      event.key.state = cmd.kind == Kind::KeyDown ? SDL_PRESSED : SDL_RELEASED;
      event.key.keysym.sym = static_cast<SDLKey>(cmd.key);
      event.key.keysym.mod = static_cast<SDLMod>(cmd.modifiers);
      break;
    case Kind::MouseMove:
      event.type = SDL_MOUSEMOTION;
      event.motion.x = static_cast<Uint16>(cmd.x);
      event.motion.y = static_cast<Uint16>(cmd.y);
      event.motion.xrel = static_cast<Sint16>(cmd.x - scriptMouseX);
      event.motion.yrel = static_cast<Sint16>(cmd.y - scriptMouseY);
      scriptMouseX = cmd.x;
      scriptMouseY = cmd.y;
      break;
    case Kind::MouseDown:
    case Kind::MouseUp:
      event.type = cmd.kind == Kind::MouseDown ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
      event.button.button = SDL_BUTTON_LEFT;
      event.button.state = cmd.kind == Kind::MouseDown ? SDL_PRESSED : SDL_RELEASED;
      event.button.x = static_cast<Uint16>(scriptMouseX);
      event.button.y = static_cast<Uint16>(scriptMouseY);
      break;
    case Kind::Quit:
      event.type = SDL_QUIT;
      break;
    default:
      return;
  }
  queueEvent(event);
}

void runScriptInput() {
  for (std::size_t i = nextCommand; i < script.size() && script[i].frame <= frameNumber; ++i) {
    if (script[i].kind != ScriptCommand::Kind::State && script[i].kind != ScriptCommand::Kind::Screenshot) {
      pushScriptedInput(script[i]);
    }
  }
}

void runScriptOutput() {
  for (; nextCommand < script.size() && script[nextCommand].frame <= frameNumber; ++nextCommand) {
    const ScriptCommand& cmd = script[nextCommand];
    if (cmd.kind == ScriptCommand::Kind::State) {
      std::printf("STATE %s\n", gameStateJson(frameNumber).c_str());
      std::fflush(stdout);
    } else if (cmd.kind == ScriptCommand::Kind::Screenshot) {
      if (SDL_SaveBMP(screen, cmd.file.c_str()) != 0) {
        std::fprintf(stderr, "script line %d: couldn't write the screenshot %s: %s\n", cmd.line, cmd.file.c_str(),
                     SDL_GetError());
      }
    }
  }
}

void checkFonts() {
  for (int i = 0; i < fontCount; ++i) {
    if (!fontTable.fonts[i]) {
      std::fprintf(stderr,
                   "The game font ATX_A.ttf is missing from the data directory: run scripts/install-deps "
                   "(it installs Oxygen Mono from fonts-oxygen), then rebuild.\n");
      std::exit(1);
    }
  }
}

void checkSavedGame() {
  std::FILE* file = std::fopen(savedGamePath, "r");
  if (!file) {
    std::fprintf(stderr, "Couldn't open the saved game %s: %s\n", savedGamePath, std::strerror(errno));
    std::exit(1);
  }
  std::fclose(file);
}

}  // namespace

void setFrameDelay(bool enabled) { frameDelay = enabled; }

void startUp(const Options& options) {
  if (SDL_Init(SDL_INIT_VIDEO) < 0) {
    std::fprintf(stderr, "Couldn't initialize SDL: %s\n", SDL_GetError());
    std::exit(1);
  }
  std::atexit(SDL_Quit);
  nameWindow("Icon.xpm");
  screen = SDL_SetVideoMode(800, 600, 32, 0);
  if (!screen) {
    std::fprintf(stderr, "Couldn't set %dx%dx%d video mode: %s\n", 800, 600, 32, SDL_GetError());
    std::exit(1);
  }
  guardDisplayLoss([] {
    hideLog();  // a visible log would present each line it takes
    saveVoyage(true);
  });
  buildFonts();
  checkFonts();
  setLogEcho(options.logToStdout);
  initLog(&debugLog, &fontTable, screen, gameState.fullScreen);
  initMessageWindow(&messageWindow, &fontTable, screen);
  debugLog.visible = 1;
  SDL_EnableUNICODE(1);
  SDL_initFramerate(&frameRateManager);
  logMessage("Generating sin/cos table");
  fillTrigTables();
  initGameWindow(shipImages, &fontTable, &playerShip);
  initStatusWindow(shipImages, &fontTable, &playerShip);
  initCommandWindow(&fontTable);
  loadStarmap(starMap);
  buildViewingTree(starMap);
  initNavigationWindow(&fontTable);
  initCargoWindow(&fontTable, &playerShip);
  initShipConfig(&fontTable);
  gameState.frameRateStart = SDL_GetTicks();
  gameState.lastSectorX = gameState.lastSectorY = 0;
  gameState.showShipStatus = 0;
  checkSavedGame();
  startVoyage(savedGamePath);
  loadEngine(playerShip);
  loadShield(playerShip);
  loadPowerPlant(playerShip);
  loadWeapons(playerShip);
  gameState.sectorX = (gameState.posX - 300) / 50;
  gameState.sectorY = (gameState.posY - 300) / 50;
  debugLog.visible = 0;
  messageWindow.expanded = 0;
  gameState.scanRunning = 0;
  restoreSavedMode();
  loadLargeShipImage(&playerShip);
  redrawAll();
  logMessage("Entering mainloop");
}

void runFrame() {
  ++frameNumber;
  beginFrameWork();
  collectSdlEvents();
  if (liveScript) liveScript->poll(script, nextCommand, frameNumber);
  runScriptInput();

  SDL_Event event;
  if (takeEvent(event)) {
    if ((event.type == SDL_KEYDOWN || event.type == SDL_KEYUP) && event.key.which == scriptedKeyboard) {
      SDL_SetModState(event.key.keysym.mod);
    }
    dispatchEvent(event);
  }

  gameState.velX = gameState.speed * sinTable[gameState.heading];
  gameState.velY = gameState.speed * cosTable[gameState.heading];
  gameState.sectorX = (gameState.posX - 300) / 50;
  gameState.sectorY = (gameState.posY - 300) / 50;
  playerShip.engine.warpCurrent = gameState.speed / speedStep;
  chargeShields(playerShip);

  switch (gameState.mode) {
    case Space:
      runSpaceFrame();
      break;
    case System:
      runSystemFrame();
      break;
    case Orbit:
      runOrbitFrame();
      break;
    case Surface:
      runSurfaceFrame();
      break;
    default:
      break;
  }

  if (gameState.showFrameRate == 1) drawFrameRate();

  if (debugLog.visible) {
    if (gameState.upHeld) scrollHistoryBack();
    if (gameState.downHeld) scrollHistoryForward();
    drawLog();
  } else if (messageWindow.expanded) {
    if (gameState.upHeld) scrollHistoryBack();
    if (gameState.downHeld) scrollHistoryForward();
    drawMessageWindow();
  } else if (gameState.maneuverOn == 1) {
    applyFlightControls();
  }

  present();
  endFrameWork(frameNumber);
  autosaveVoyage();
  gameState.framesCounted += 1;

  runScriptOutput();
  if (frameLimit >= 0 && frameNumber >= frameLimit) std::exit(0);
  if (frameDelay) SDL_framerateDelay(&frameRateManager);
}

int gameMain(int argc, char** argv) {
  Options options;
  std::string error;
  if (!parseOptions(argc, argv, options, error)) {
    std::fprintf(stderr, "prospector: %s\n%s", error.c_str(), usageText());
    return 2;
  }
  if (options.help) {
    std::fputs(usageText(), stdout);
    return 0;
  }
  if (options.scriptPath == "-") {
    char* cwd = getcwd(nullptr, 0);
    liveScript = std::make_unique<LiveScript>(STDIN_FILENO, cwd ? cwd : "");
    std::free(cwd);
  } else if (!options.scriptPath.empty() && !loadScript(options.scriptPath, script, error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 2;
  }
  if (!options.frameTimesPath.empty() && !recordFrameTimes(options.frameTimesPath, error)) {
    std::fprintf(stderr, "prospector: %s\n", error.c_str());
    return 2;
  }
  // Screenshots land where the player ran the game from, not in the data directory.
  if (char* cwd = getcwd(nullptr, 0)) {
    for (ScriptCommand& cmd : script) {
      if (cmd.kind == ScriptCommand::Kind::Screenshot && !cmd.file.empty() && cmd.file[0] != '/') {
        cmd.file = std::string(cwd) + "/" + cmd.file;
      }
    }
    std::free(cwd);
  }
  std::string dataDir = options.dataDir;
  if (dataDir.empty()) {
    char* cwd = getcwd(nullptr, 0);
    std::string looked;
    dataDir = findDataDir(executablePath(), cwd ? cwd : ".", looked);
    std::free(cwd);
    if (dataDir.empty()) {
      std::fprintf(stderr, "prospector: no game data (NewGame.sav) in %s; name the data directory with --data DIR\n",
                   looked.c_str());
      return 1;
    }
  }
  chooseVoyage(options);
  if (chdir(dataDir.c_str()) != 0) {
    std::fprintf(stderr, "prospector: can't use the data directory %s: %s\n", dataDir.c_str(), std::strerror(errno));
    return 2;
  }
  if (options.check) return checkData(dataDir.c_str(), stdout);
  // sdl12-compat reads its window scaling when the video mode is set; the game
  // keeps drawing 800 x 600 and the layer hands back mouse positions in game pixels.
  if (options.scale > 1) {
    setenv("SDL12COMPAT_WINDOW_SCALING", std::to_string(options.scale).c_str(), 1);
    setenv("SDL12COMPAT_SCALE_METHOD", "nearest", 0);
  }
  if (options.seed) setTimeSeedOverride(*options.seed);
  if (options.frames) frameLimit = *options.frames;
  setFrameDelay(!options.unthrottled);

  startUp(options);
  frameNumber = 0;
  runScriptOutput();  // `at 0` lines see the game as start-up left it
  if (frameLimit == 0) std::exit(0);
  for (;;) runFrame();
}
