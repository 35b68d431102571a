#include "shell/voyage.h"

#include <SDL.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "base/data_problems.h"
#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "platform/options.h"
#include "platform/text.h"
#include "shell/saved_game.h"
#include "shell/saved_game_writer.h"
#include "ship/ship.h"

namespace fs = std::filesystem;

namespace {

bool kept = false;          // this run keeps a voyage
bool named = false;         // --voyage named the file
bool freshStart = false;    // --new
bool started = false;       // loaded; from now on every exit writes it
bool writable = true;       // false when a broken voyage could not be set aside
bool failureShown = false;  // the last write failed and the player was told
int intervalMs = 1000;
std::string voyagePath;
std::string lastKey;
bool keyKnown = false;
Uint32 lastWrite = 0;

// Everything the voyage holds except the position, which changes every frame
// of flight; a change here is worth a write.
std::string voyageKey() {
  const Ship& ship = playerShip;
  std::string key = std::to_string(gameState.mode) + ' ' + std::to_string(gameState.currentPlanet) + '\n';
  for (const char* name : {savedShipStem(), ship.shipName, ship.engine.name, ship.shield.name, ship.powerPlant.name}) {
    key += name;
    key += '\n';
  }
  for (int i = 0; i < ship.hardPointCount && i < maxHardPoints; ++i)
    key += std::string(ship.hardPoints[i].weaponName) + '\n';
  key.append(reinterpret_cast<const char*>(ship.shipHold.data()), sizeof ship.shipHold);
  key.append(reinterpret_cast<const char*>(ship.roverHold.data()), sizeof ship.roverHold);
  return key;
}

// The message strip copies every line it shows into the debug log as well.
__attribute__((format(printf, 1, 2))) void say(const char* format, ...) {
  va_list args;
  va_start(args, format);
  const FormattedText line = formatText(format, args);
  va_end(args);
  showMessage(line.text);
}

std::string nameOf(const std::string& path) { return fs::path(path).filename().string(); }

bool exists(const std::string& path) {
  std::error_code ec;
  return fs::exists(path, ec);
}

// Loads a voyage file; false when the saved-game loader found anything wrong
// with the file itself (faults in the data files it names are not its own).
bool loadsCleanly(const std::string& path) {
  collectDataProblems(true);
  const bool opened = loadGame(path.c_str());
  bool clean = opened;
  const std::string name = dataFileName(path);
  for (const DataProblem& problem : collectedDataProblems()) {
    if (problem.file == name) clean = false;
  }
  collectDataProblems(false);
  return clean;
}

// Moves a file that failed to load out of the way, so that no later save
// replaces it; the player or a developer can still look at it.
bool setAside(const std::string& path) {
  const std::string broken = path + ".broken";
  if (std::rename(path.c_str(), broken.c_str()) == 0) return true;
  logMessagef("Couldn't rename %s: %s", path.c_str(), std::strerror(errno));
  say("Couldn't keep %s aside; the voyage will not be saved", nameOf(path).c_str());
  writable = false;
  return false;
}

bool writeAll(int fd, const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

// The atomic write. Returns "" or what went wrong; the voyage file is then as before.
std::string writeVoyageFile(const std::string& text) {
  const fs::path path(voyagePath);
  const fs::path dir = path.has_parent_path() ? path.parent_path() : fs::path(".");
  std::error_code ec;
  fs::create_directories(dir, ec);
  const std::string temp = voyagePath + ".tmp";
  const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return temp + ": " + std::strerror(errno);
  const bool written = writeAll(fd, text) && ::fsync(fd) == 0;
  const int savedErrno = errno;
  if (::close(fd) != 0 || !written) {
    const int why = written ? errno : savedErrno;
    ::unlink(temp.c_str());
    return temp + ": " + std::strerror(why);
  }
  // The backup is a second name for the old voyage, so the voyage itself is
  // never missing, not even for an instant; where links are not allowed the
  // old voyage is renamed instead, and start-up looks for the backup when the
  // voyage is missing.
  const std::string backup = voyagePath + ".bak";
  if (exists(voyagePath)) {
    ::unlink(backup.c_str());
    if (::link(voyagePath.c_str(), backup.c_str()) != 0) std::rename(voyagePath.c_str(), backup.c_str());
  }
  if (std::rename(temp.c_str(), voyagePath.c_str()) != 0) {
    const int why = errno;
    ::unlink(temp.c_str());
    return voyagePath + ": " + std::strerror(why);
  }
  // The rename itself is kept only once the directory is synced.
  const int dirFd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dirFd >= 0) {
    ::fsync(dirFd);
    ::close(dirFd);
  }
  return "";
}

void saveAtExit() { saveVoyage(true); }

std::string defaultVoyagePath() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data && data[0] == '/') return std::string(data) + "/prospector/voyage.sav";
  const char* home = std::getenv("HOME");
  if (home && *home) return std::string(home) + "/.local/share/prospector/voyage.sav";
  return "";
}

}  // namespace

void chooseVoyage(const Options& options) {
  freshStart = options.newVoyage;
  intervalMs = options.autosaveMs;
  named = !options.voyagePath.empty();
  if (named) {
    std::error_code ec;
    const fs::path absolute = fs::absolute(options.voyagePath, ec);
    voyagePath = ec ? options.voyagePath : absolute.string();
  } else if (options.scriptPath.empty() && !options.frames) {
    voyagePath = defaultVoyagePath();
  }
  kept = !voyagePath.empty();
}

std::string voyageToCheck() { return kept && (named || exists(voyagePath)) ? voyagePath : ""; }

void startVoyage(const char* newGamePath) {
  if (!kept) {
    loadGame(newGamePath);
    return;
  }
  started = true;
  std::atexit(saveAtExit);  // registered after SDL_Quit, so it runs before it
  if (freshStart) {
    loadGame(newGamePath);
    say("New voyage");
    return;
  }
  // A failed attempt may have loaded part of its file; the next starts clean.
  const Ship shipBefore = playerShip;
  const GameState stateBefore = gameState;
  // Continues from `path` when it loads cleanly; a file that does not is set
  // aside as .broken and the state goes back to what it was.
  auto continueFrom = [&](const std::string& path) {
    if (loadsCleanly(path)) {
      say("Voyage continued");
      return true;
    }
    if (setAside(path)) say("%s could not be read; kept as %s.broken", nameOf(path).c_str(), nameOf(path).c_str());
    playerShip = shipBefore;
    gameState = stateBefore;
    return false;
  };
  if (exists(voyagePath) && continueFrom(voyagePath)) return;
  const std::string backup = voyagePath + ".bak";
  if (exists(backup)) {
    say("Trying the backup %s", nameOf(backup).c_str());
    if (continueFrom(backup)) return;
  }
  loadGame(newGamePath);
  say("New voyage");
}

bool saveVoyage(bool quiet) {
  if (!started || !writable) return false;
  const std::string error = writeVoyageFile(savedGameText());
  lastWrite = SDL_GetTicks();
  lastKey = voyageKey();
  keyKnown = true;
  if (error.empty()) {
    failureShown = false;
    return true;
  }
  logMessagef("Couldn't save the voyage: %s", error.c_str());
  if (quiet) {
    std::fprintf(stderr, "prospector: couldn't save the voyage: %s\n", error.c_str());
  } else if (!failureShown) {
    showMessage("Couldn't save the voyage; the last saved one is kept");
    failureShown = true;
  }
  return false;
}

void autosaveVoyage() {
  if (!started) return;
  if (!keyKnown) {
    lastKey = voyageKey();
    keyKnown = true;
  }
  if (intervalMs > 0 && (SDL_GetTicks() - lastWrite < static_cast<Uint32>(intervalMs) || voyageKey() == lastKey)) {
    return;
  }
  saveVoyage(false);
}
