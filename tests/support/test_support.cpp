#include "support/test_support.h"

#include <sys/wait.h>

#include <sstream>

void ensureScreen() {
  if (screen) return;
  if (SDL_Init(SDL_INIT_VIDEO) < 0 || !(screen = SDL_SetVideoMode(800, 600, 32, 0))) {
    std::fprintf(stderr, "test: no headless screen: %s\n", SDL_GetError());
    std::exit(1);
  }
  fillTrigTables();
  buildFonts();
  initLog(&debugLog, &fontTable, screen, 0);
  initMessageWindow(&messageWindow, &fontTable, screen);
}

void GameTest::SetUp() {
  ensureScreen();
  gameState = GameState{};
  initCommandWindow(&fontTable);
  debugLog.visible = 0;
  messageWindow.expanded = 0;
  historyScroll = 0;
  SDL_SetModState(KMOD_NONE);
}

TempDir::TempDir() {
  char pattern[] = "/tmp/prospector-test-XXXXXX";
  const char* made = mkdtemp(pattern);
  dir_ = made ? made : "/tmp";
}

TempDir::~TempDir() {
  if (std::error_code ec; dir_ != "/tmp") std::filesystem::remove_all(dir_, ec);
}

std::string TempDir::path(const std::string& name) const { return dir_ + "/" + name; }

std::string TempDir::write(const std::string& name, const std::string& content) const {
  const std::string p = path(name);
  std::filesystem::create_directories(std::filesystem::path(p).parent_path());
  std::ofstream(p, std::ios::binary) << content;
  return p;
}

Uint32 pixelRGB(SDL_Surface* surface, int x, int y) {
  SDL_LockSurface(surface);
  const Uint8* row = static_cast<const Uint8*>(surface->pixels) + y * surface->pitch;
  Uint32 raw = 0;
  std::memcpy(&raw, row + x * surface->format->BytesPerPixel, surface->format->BytesPerPixel);
  SDL_UnlockSurface(surface);
  Uint8 r, g, b;
  SDL_GetRGB(raw, surface->format, &r, &g, &b);
  return (Uint32(r) << 16) | (Uint32(g) << 8) | b;
}

bool showsText(SDL_Surface* shown, int x, int y, BitmapFont* font, const std::string& text, int width, bool litOnly,
               int rows, int firstRow) {
  const int w = std::min(textWidth(font, text.c_str()), width), h = std::min(fontHeight(font), rows);
  SurfacePtr reference = blankSurface(w + 1, fontHeight(font));
  printString(reference.get(), font, 0, 0, "%s", text.c_str());
  for (int row = firstRow; row < h; ++row)
    for (int col = 0; col < w; ++col)
      if (const Uint32 want = pixelRGB(reference.get(), col, row);
          (want || !litOnly) && pixelRGB(shown, x + col, y + row) != want)
        return false;
  return w > 0;
}

int differingPixels(SDL_Surface* a, SDL_Surface* b, int x1, int y1, int x2, int y2) {
  int differing = 0;
  for (int y = y1; y < y2; ++y)
    for (int x = x1; x < x2; ++x) differing += pixelRGB(a, x, y) != pixelRGB(b, x, y);
  return differing;
}

int litPixels(SDL_Surface* surface, int x1, int y1, int x2, int y2) {
  return differingPixels(surface, blankSurface(x2, y2).get(), x1, y1, x2, y2);
}

SurfacePtr blankSurface(int w, int h) {
  return SurfacePtr(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0));
}

LogWatch::LogWatch() : start_(debugLog.writeIndex) {}

std::vector<std::string> LogWatch::lines() const {
  std::vector<std::string> out;
  for (int i = start_; i != debugLog.writeIndex; i = (i + 1) % logLineCount) out.emplace_back(debugLog.lines[i]);
  return out;
}

bool LogWatch::saw(const char* text) const {
  const std::vector<std::string> seen = lines();
  return std::any_of(seen.begin(), seen.end(), [&](const std::string& line) { return line.find(text) != line.npos; });
}

const char* lastMessage(int back) {
  return messageWindow.lines[(messageWindow.writeIndex + (back + 1) * (logLineCount - 1)) % logLineCount];
}

PlacedObjects::~PlacedObjects() {
  for (auto it = placed_.rbegin(); it != placed_.rend(); ++it) {
    auto [x, y, object, previous] = *it;
    releasePlanetImages(object);
    starMap[x][y].object = previous;
    for (Planet* planet : object->Planets) delete planet;
    delete object;
  }
}

StellarObject* PlacedObjects::place(int x, int y, const char* Class, const char* Eco, int planets) {
  auto* object = new StellarObject;
  object->x = x;
  object->y = y;
  std::snprintf(object->Class, sizeof object->Class, "%s", Class);
  std::snprintf(object->Eco, sizeof object->Eco, "%s", Eco);
  object->NumOfPlanets = planets;
  placed_.push_back({x, y, object, starMap[x][y].object});
  starMap[x][y].object = object;
  return object;
}

std::vector<std::string> stateLines(const std::string& output) {
  std::vector<std::string> lines;
  for (std::size_t pos = 0; (pos = output.find("STATE {", pos)) != std::string::npos; pos = output.find('\n', pos))
    lines.push_back(output.substr(pos, output.find('\n', pos) - pos));
  return lines;
}

std::string stateField(const std::string& state, const std::string& name) {
  const std::regex pattern("\"" + name + "\":(\\[[^\\]]*\\]|\\{[^}]*\\}|\"[^\"]*\"|[^,}]*)");
  std::smatch match;
  return std::regex_search(state, match, pattern) ? match[1].str() : "(missing)";
}

int stateNumber(const std::string& state, const std::string& name) {
  const std::string value = stateField(state, name);
  EXPECT_NE(value, "(missing)") << "no " << name << " in " << state.substr(0, 200);
  return std::atoi(value.c_str());
}

std::string clickAt(int frame, int x, int y) {
  return "at " + std::to_string(frame) + " mouse move " + std::to_string(x) + " " + std::to_string(y) + "\nat " +
         std::to_string(frame + 3) + " mouse down\nat " + std::to_string(frame + 6) + " mouse up\n";
}

std::string clickRow(int frame, int row) { return clickAt(frame, 600, 260 + 30 * row + 10); }

std::string statesAt(int first, int last) {
  std::string script;
  for (int frame = first; frame <= last; ++frame) script += "at " + std::to_string(frame) + " state\n";
  return script;
}

std::vector<float> stateFloats(const std::string& state, const std::string& name) {
  std::istringstream in(std::regex_replace(stateField(state, name), std::regex("[\\[\\],]"), " "));
  std::vector<float> values;
  for (float v; in >> v;) values.push_back(v);
  return values;
}

RunResult runScript(const std::string& script, const std::string& arguments) {
  TempDir tmp;
  return runGame("--unthrottled --script " + tmp.write("script.txt", script) + " " + arguments);
}

std::string dataCopy(const TempDir& tmp) {
  const std::string data = tmp.path("data");
  std::filesystem::copy(PROSPECTOR_DATA_DIR, data, std::filesystem::copy_options::recursive);
  return data;
}

std::string dataCopyWithSave(const TempDir& tmp, int mode, int starX, int starY, int systemX, int systemY, int planet,
                             const std::string& shipHold, const std::string& roverHold) {
  const std::string data = dataCopy(tmp);
  // Its lines without comments: ship, name, star cell, system cell, planet, mode, ..., the two holds.
  std::ifstream shipped(data + "/NewGame.sav");
  std::vector<std::string> lines;
  for (std::string line; std::getline(shipped, line);)
    if (line.empty() || line[0] != '#') lines.push_back(line);
  const int fields[] = {starX, starY, systemX, systemY, planet, mode};
  for (int i = 0; i < 6; ++i) lines[2 + i] = std::to_string(fields[i]);
  if (!shipHold.empty()) lines[lines.size() - 2] = shipHold;
  if (!roverHold.empty()) lines.back() = roverHold;
  std::string save;
  for (const std::string& line : lines) save += line + "\n";
  tmp.write("data/NewGame.sav", save);
  return data;
}

std::string readFile(const std::string& path) {
  std::ostringstream s;
  s << std::ifstream(path, std::ios::binary).rdbuf();
  return s.str();
}

RunResult runGame(const std::string& arguments, const std::string& environment) {
  TempDir tmp;
  RunResult result = runShell(std::string("cd '") + PROSPECTOR_DATA_DIR + "' && SDL_VIDEODRIVER=dummy " + environment +
                              " '" + PROSPECTOR_BINARY + "' " + arguments + " 2>'" + tmp.path("err.txt") + "'");
  result.err = readFile(tmp.path("err.txt"));
  return result;
}

RunResult runShell(const std::string& command) {
  RunResult result;
  std::FILE* pipe = popen(("(" + command + ") 2>&1").c_str(), "r");
  if (!pipe) return result;
  for (char buffer[4096]; const std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe);)
    result.out.append(buffer, n);
  const int raw = pclose(pipe);
  result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return result;
}

int main(int argc, char** argv) {
  setenv("SDL_VIDEODRIVER", "dummy", 0);
  setenv("SDL_AUDIODRIVER", "dummy", 0);
  // No test reads or writes the player's own voyage under ~/.local/share.
  static TempDir dataHome;
  setenv("XDG_DATA_HOME", dataHome.dir().c_str(), 1);
  if (chdir(PROSPECTOR_DATA_DIR) != 0) {
    std::fprintf(stderr, "test: can't enter %s\n", PROSPECTOR_DATA_DIR);
    return 1;
  }
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
