#include "universe/star_map.h"

#include <SDL_image.h>
#include <SDL_rotozoom.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/data_problems.h"
#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "platform/data_file.h"
#include "platform/data_path.h"
#include "platform/text.h"
#include "universe/viewing_tree.h"

StarMap starMap;
const char* const starClassNames[starClassCount] = {
    "M", "K", "G", "F", "A", "B", "O", "White Drawf", "Neutron Star", "Black Hole"};
std::uint32_t planetColorTables[colorTableCount][256];
const char* const colorTableNames[colorTableCount] = {
    "Metalic Hydrogen", "Helium", "Methane", "Carbon Dioxide", "Water", "Molten Tin", "Molten Iron", "Lava"};
StarMapCounts starMapCounts;

namespace {

constexpr int blackHoleIndex = 9;

// Image files, indexed like starClassNames.
const char* const starImageFiles[starClassCount] = {
    ".\\Stars\\M.bmp",           ".\\Stars\\K.bmp",        ".\\Stars\\G.bmp", ".\\Stars\\F.bmp",
    ".\\Stars\\A.bmp",           ".\\Stars\\B.bmp",        ".\\Stars\\O.bmp", ".\\Stars\\WhiteDrawf.bmp",
    ".\\Stars\\NeutronStar.bmp", ".\\Stars\\BlackHole.bmp"};
// The images are loaded hottest-first among the main sequence: M, O, K, G, F, B, A, then the remnants.
constexpr int imageLoadOrder[starClassCount] = {0, 6, 1, 2, 3, 5, 4, 7, 8, 9};

SDL_Surface* fullImages[starClassCount] = {};
SDL_Surface* halfImages[starClassCount] = {};

void freePlanet(Planet* planet) {
  if (!planet) return;
  if (planet->ViewImage) SDL_FreeSurface(planet->ViewImage);
  if (planet->OrbitImage) SDL_FreeSurface(planet->OrbitImage);
  delete planet;
}

void freeObject(StellarObject* object) {
  if (!object) return;
  for (Planet*& planet : object->Planets) {
    freePlanet(planet);
    planet = nullptr;
  }
  delete object;
}

// Log lines hold 99 characters: name the file without its directory.
std::string fileName(const char* path) {
  const std::string_view p(path);
  const std::size_t slash = p.find_last_of("/\\");
  return std::string(slash == std::string_view::npos ? p : p.substr(slash + 1));
}

bool knownClass(const char* text) {
  for (const char* name : starClassNames) {
    if (std::strcmp(text, name) == 0) return true;
  }
  return false;
}

bool colorTableNamed(const char* text) {
  for (const char* name : colorTableNames) {
    if (std::strcmp(text, name) == 0) return true;
  }
  return false;
}

bool isMineralName(const std::string& text) {
  for (const Mineral& mineral : minerals) {
    if (text == mineral.name) return true;
  }
  return false;
}

bool onMap(int column, int row) { return column >= 0 && column < starMapSize && row >= 0 && row < starMapSize; }

// The fields of one record, in the order the file gives them.
enum class Field {
  Column,
  Row,
  Class,
  Eco,
  PlanetCount,
  Lane,
  Mass,
  MassExponent,
  Gravity,
  MinTemp,
  MaxTemp,
  Bio,
  MineralDensity,
  Atmos0,
  Atmos1,
  Atmos2,
  Hydro,
  Litho0,
  Litho1,
  Litho2,
  Weather,
  Seed,
};

// Walks the star map file one field at a time. Records that cannot be stored
// (off the map, or a planet on a lane the object does not have) are still read
// field by field into a scratch record and thrown away, so every later line
// keeps the meaning its place gives it.
class StarmapReader {
 public:
  StarmapReader(StarMap& map, std::string name) : map_(map), name_(std::move(name)) {}

  void read(const std::string& line, int lineNumber) {
    lineNumber_ = lineNumber;
    switch (field_) {
      case Field::Column:
        column_ = parseInt(line);
        field_ = Field::Row;
        break;
      case Field::Row:
        startObject(parseInt(line));
        field_ = Field::Class;
        break;
      case Field::Class:
        copyField(object_->Class, line);
        if (!skippingObject_) countClass();
        if (!knownClass(object_->Class))
          note("class '%s' is none of the ten known; drawn as a black hole", object_->Class);
        field_ = Field::Eco;
        break;
      case Field::Eco:
        copyField(object_->Eco, line);
        planetsRead_ = 0;
        field_ = Field::PlanetCount;
        break;
      case Field::PlanetCount: {
        int count = parseInt(line);
        if (count < 0) {
          note("negative number of planets %d read as 0", count);
          count = 0;
        }
        if (count > maxPlanets) note("%d planets on %d lanes; some lane is given twice", count, maxPlanets);
        object_->NumOfPlanets = count;
        field_ = count == 0 ? Field::Column : Field::Lane;
        break;
      }
      case Field::Lane:
        startPlanet(parseInt(line));
        field_ = Field::Mass;
        break;
      case Field::Mass:
        planet_->Mass = static_cast<float>(parseInt(line));
        field_ = Field::MassExponent;
        break;
      case Field::MassExponent:
        planet_->MassExponent = parseInt(line);
        field_ = Field::Gravity;
        break;
      case Field::Gravity:
        planet_->Gravity = static_cast<float>(parseReal(line));
        field_ = Field::MinTemp;
        break;
      case Field::MinTemp:
        planet_->MinTemp = parseInt(line);
        field_ = Field::MaxTemp;
        break;
      case Field::MaxTemp:
        planet_->MaxTemp = parseInt(line);
        field_ = Field::Bio;
        break;
      case Field::Bio:
        planet_->Bio = parseInt(line);
        field_ = Field::MineralDensity;
        break;
      case Field::MineralDensity:
        planet_->MineralDensity = parseInt(line);
        field_ = Field::Atmos0;
        break;
      case Field::Atmos0:
      case Field::Atmos1:
      case Field::Atmos2:
        copyField(planet_->Atmos[static_cast<int>(field_) - static_cast<int>(Field::Atmos0)], line);
        field_ = static_cast<Field>(static_cast<int>(field_) + 1);
        break;
      case Field::Hydro:
        copyField(planet_->Hydro, line);
        if (std::strcmp(planet_->Hydro, "None") != 0 && !colorTableNamed(planet_->Hydro)) {
          note("hydrosphere '%s' has no colour table; its surface is drawn grey", planet_->Hydro);
        }
        field_ = Field::Litho0;
        break;
      case Field::Litho0:
      case Field::Litho1:
      case Field::Litho2:
        copyField(planet_->Litho[static_cast<int>(field_) - static_cast<int>(Field::Litho0)], line);
        if (!isMineralName(line)) note("lithosphere '%s' is none of the 22 minerals; read as Lead", line.c_str());
        field_ = static_cast<Field>(static_cast<int>(field_) + 1);
        break;
      case Field::Weather:
        copyField(planet_->Weather, line);
        field_ = Field::Seed;
        break;
      case Field::Seed:
        planet_->Seed = parseInt(line);
        planetsRead_ += 1;
        field_ = planetsRead_ == object_->NumOfPlanets ? Field::Column : Field::Lane;
        break;
    }
  }

  void noteCutLine(int lineNumber) {
    lineNumber_ = lineNumber;
    note("line longer than %d characters cut", static_cast<int>(DataFile::maxLineLength));
  }

  const std::vector<StarMapPosition>& placed() const { return placed_; }

  // A file that stops inside a record leaves that record partly read.
  void finish() {
    if (field_ == Field::Column) return;
    lineNumber_ = 0;
    note("the file ends inside the object at %d, %d; its last fields stay empty", object_ ? object_->x : column_,
         object_ ? object_->y : 0);
  }

 private:
  __attribute__((format(printf, 2, 3))) void note(const char* format, ...) {
    va_list args;
    va_start(args, format);
    reportDataProblemV(name_, lineNumber_, format, args);
    va_end(args);
  }

  template <std::size_t N>
  void copyField(char (&field)[N], const std::string& line) {
    if (copyText(field, line)) note("text cut to %d characters", static_cast<int>(N - 1));
  }

  void startObject(int row) {
    scratchObject_.reset();
    scratchPlanet_.reset();
    planet_ = nullptr;
    skippingObject_ = !onMap(column_, row);
    if (skippingObject_) {
      note("position %d, %d is off the map; object skipped", column_, row);
      scratchObject_ = std::make_unique<StellarObject>();
      object_ = scratchObject_.get();
    } else {
      StarMapCell& cell = map_[column_][row];
      if (cell.object) {
        logMessagef("Stellar object already exists at %d, %d", column_, row);
        note("a second object at %d, %d replaces the first", column_, row);
        freeObject(cell.object);
        cell.object = nullptr;
      } else {
        starMapCounts.totalStars += 1;
        placed_.push_back({column_, row});
      }
      cell.object = new StellarObject;
      object_ = cell.object;
    }
    object_->x = column_;
    object_->y = row;
  }

  void countClass() {
    for (int i = 0; i < starClassCount; ++i) {
      if (std::strcmp(object_->Class, starClassNames[i]) == 0) {
        starMapCounts.classCounts[i] += 1;
        return;
      }
    }
  }

  void startPlanet(int lane) {
    scratchPlanet_.reset();
    if (skippingObject_ || lane < 0 || lane >= maxPlanets) {
      if (!skippingObject_) note("planet lane %d is outside 0..%d; planet skipped", lane, maxPlanets - 1);
      scratchPlanet_ = std::make_unique<Planet>();
      planet_ = scratchPlanet_.get();
      return;
    }
    starMapCounts.totalPlanets += 1;
    // A repeated lane replaces the planet already there.
    if (object_->Planets[lane]) note("lane %d is given twice; the second planet replaces the first", lane);
    freePlanet(object_->Planets[lane]);
    object_->Planets[lane] = new Planet;
    planet_ = object_->Planets[lane];
  }

  StarMap& map_;
  std::string name_;
  int lineNumber_ = 0;
  Field field_ = Field::Column;
  int column_ = 0;
  int planetsRead_ = 0;
  bool skippingObject_ = false;
  StellarObject* object_ = nullptr;
  Planet* planet_ = nullptr;
  std::unique_ptr<StellarObject> scratchObject_;
  std::unique_ptr<Planet> scratchPlanet_;
  std::vector<StarMapPosition> placed_;
};

// Reads an image in whatever depth the file has into plain 32-bit XRGB with the
// unused byte cleared, so black is exactly the pixel value 0 that the colour
// key names, in the full image and in its zoomed copy alike.
SDL_Surface* toPlainRGB(SDL_Surface* source) {
  SDL_Surface* plain =
      SDL_CreateRGBSurface(SDL_SWSURFACE, source->w, source->h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0);
  if (!plain) return nullptr;
  SDL_SetAlpha(source, 0, 255);
  SDL_SetColorKey(source, 0, 0);
  SDL_BlitSurface(source, nullptr, plain, nullptr);
  return plain;
}

void clearUnusedByte(SDL_Surface* surface) {
  SDL_LockSurface(surface);
  for (int y = 0; y < surface->h; ++y) {
    auto* row = reinterpret_cast<Uint32*>(static_cast<Uint8*>(surface->pixels) + y * surface->pitch);
    for (int x = 0; x < surface->w; ++x) row[x] &= 0x00FFFFFF;
  }
  SDL_UnlockSurface(surface);
}

SDL_Surface* loadStarBitmap(const char* gamePath) {
  const std::string path = hostPath(gamePath);
  SDL_Surface* loaded = IMG_Load(path.c_str());
  if (!loaded) {
    reportDataProblem(path, 0, "Can't load star image %s", path.c_str());
    return nullptr;
  }
  SDL_Surface* plain = toPlainRGB(loaded);
  SDL_FreeSurface(loaded);
  if (!plain) {
    logMessagef("Can't convert star image %s", path.c_str());
    return nullptr;
  }
  clearUnusedByte(plain);
  SDL_SetColorKey(plain, SDL_SRCCOLORKEY, 0);
  return plain;
}

SDL_Surface* halfSize(SDL_Surface* full) {
  if (!full) return nullptr;
  SDL_Surface* half = zoomSurface(full, 0.5, 0.5, SMOOTHING_ON);
  if (!half) return nullptr;
  // The zoom turns on surface alpha; these images rely on the colour key alone.
  SDL_SetAlpha(half, 0, 255);
  clearUnusedByte(half);
  SDL_SetColorKey(half, SDL_SRCCOLORKEY, 0);
  return half;
}

int starClassIndex(const char* classText) {
  // The nine named images; anything else, a black hole included, is drawn as a black hole.
  for (int i = 0; i < blackHoleIndex; ++i) {
    if (std::strcmp(classText, starClassNames[i]) == 0) return i;
  }
  return blackHoleIndex;
}

SDL_Surface* lookUpStarImage(SDL_Surface* const (&images)[starClassCount], const char* classText) {
  if (!classText) {
    showMessage("starclass is NULL");
    return images[0];
  }
  return images[starClassIndex(classText)];
}

// Fills the colour tables from the entry, sign and range lines of the colour file.
class ColorTableReader {
 public:
  explicit ColorTableReader(std::string name) : name_(std::move(name)) {}

  void read(std::string_view line, int lineNumber) {
    lineNumber_ = lineNumber;
    const std::vector<std::string_view> tokens = splitTokens(line);
    if (tokens.empty()) return;
    if (expectRange_) {
      expectRange_ = false;
      readRange(tokens);
    } else if (tokens[0][0] == '.') {
      readSigns(tokens);
    } else {
      readEntry(tokens);
    }
  }

  void noteCutLine(int lineNumber) {
    lineNumber_ = lineNumber;
    note("line longer than %d characters cut", static_cast<int>(DataFile::maxLineLength));
  }

  // Tables the file never completed keep black in their unfilled slots.
  void finish() {
    if (table_ >= colorTableCount) return;
    lineNumber_ = 0;
    note("only %d of the %d colour tables complete; '%s' is short of %d colours", table_, colorTableCount,
         colorTableNames[table_], 256 - stored_);
  }

 private:
  __attribute__((format(printf, 2, 3))) void note(const char* format, ...) {
    va_list args;
    va_start(args, format);
    reportDataProblemV(name_, lineNumber_, format, args);
    va_end(args);
  }

  void readEntry(const std::vector<std::string_view>& tokens) {
    if (tokens.size() < 4) {
      note("colour entry needs an index and three channels; line skipped");
      return;
    }
    const int index = parseInt(tokens[0]);
    if (index < 0 || index > 255) {
      note("colour index %d is outside 0..255; line skipped", index);
      return;
    }
    latestEntry_ = index;
    for (int c = 0; c < 3; ++c) color_[c] = parseInt(tokens[c + 1]);
    store(index);
  }

  void readSigns(const std::vector<std::string_view>& tokens) {
    // An absent sign counts as a falling channel, as any sign but '+' does.
    if (tokens.size() < 4) note("sign line needs three signs; missing ones read as '-'");
    for (int c = 0; c < 3; ++c) {
      const std::size_t t = static_cast<std::size_t>(c) + 1;
      rising_[c] = t < tokens.size() && tokens[t][0] == '+';
    }
    expectRange_ = true;
  }

  // One step of a running channel. Huge steps saturate far outside 0..255
  // instead of overflowing: the stored colour is held to 0..255 anyway.
  static int stepChannel(int value, int step, bool rising) {
    const long long next = static_cast<long long>(value) + (rising ? step : -static_cast<long long>(step));
    return static_cast<int>(std::clamp<long long>(next, -(1LL << 30), 1LL << 30));
  }

  void readRange(const std::vector<std::string_view>& tokens) {
    if (tokens.size() < 4) {
      note("colour range needs an end index and three steps; range skipped");
      return;
    }
    if (latestEntry_ < 0) {
      note("colour range before any entry line; range skipped");
      return;
    }
    int end = parseInt(tokens[0]);
    if (end > 255) {
      note("range end %d is past slot 255; range stops at 255", end);
      end = 255;
    }
    int steps[3];
    for (int c = 0; c < 3; ++c) steps[c] = parseInt(tokens[c + 1]);
    for (int slot = latestEntry_ + 1; slot <= end; ++slot) {
      for (int c = 0; c < 3; ++c) color_[c] = stepChannel(color_[c], steps[c], rising_[c]);
      store(slot);
    }
  }

  void store(int slot) {
    if (table_ >= colorTableCount) {
      if (!overflowNoted_) note("more than %d colours; the rest are ignored", colorTableCount * 256);
      overflowNoted_ = true;
      return;
    }
    int channel[3];
    bool clamped = false;
    for (int c = 0; c < 3; ++c) {
      channel[c] = color_[c] < 0 ? 0 : (color_[c] > 255 ? 255 : color_[c]);
      clamped = clamped || channel[c] != color_[c];
    }
    if (clamped && lineNumber_ != clampNotedLine_) {
      note("colour channel outside 0..255 held at the limit");
      clampNotedLine_ = lineNumber_;
    }
    planetColorTables[table_][slot] =
        0xFF000000u | (std::uint32_t(channel[0]) << 16) | (std::uint32_t(channel[1]) << 8) | std::uint32_t(channel[2]);
    // Every 256 colours complete a table; the next colour starts the next one.
    if (++stored_ == 256) {
      stored_ = 0;
      table_ += 1;
    }
  }

  std::string name_;
  int lineNumber_ = 0;
  int table_ = 0;
  int stored_ = 0;
  int latestEntry_ = -1;
  int color_[3] = {};
  bool rising_[3] = {};
  bool expectRange_ = false;
  bool overflowNoted_ = false;
  int clampNotedLine_ = -1;
};

}  // namespace

void clearStarMap(StarMap& map) {
  releaseViewingTree(map);
  for (auto& column : map) {
    for (StarMapCell& cell : column) {
      freeObject(cell.object);
      cell.object = nullptr;
      cell.viewList = nullptr;
    }
  }
}

std::vector<StarMapPosition> readStarmap(StarMap& map, DataFile& file, const std::string& name) {
  StarmapReader reader(map, name);
  std::string line;
  while (file.nextField(line)) {
    if (file.lastLineCut()) reader.noteCutLine(file.lineNumber());
    reader.read(line, file.lineNumber());
  }
  reader.finish();
  return reader.placed();
}

void clearStarMapCells(StarMap& map, const std::vector<StarMapPosition>& cells) {
  for (const StarMapPosition& p : cells) {
    StarMapCell& cell = map[p.x][p.y];
    freeObject(cell.object);
    cell.object = nullptr;
  }
}

void loadStarmapFile(StarMap& map, const char* path) {
  logMessage("Loading Starmap");
  clearStarMap(map);
  starMapCounts = StarMapCounts{};
  DataFile file(path);
  if (!file.isOpen()) {
    reportDataProblem(fileName(path), 0, "Can't open %s; the star map stays empty", path);
  } else {
    readStarmap(map, file, fileName(path));
  }
  const int* c = starMapCounts.classCounts;
  logMessagef("Total stars: %d, Total planets: %d", starMapCounts.totalStars, starMapCounts.totalPlanets);
  logMessagef("M:%d, K:%d, G:%d, F:%d, A:%d, B:%d, O:%d", c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  logMessagef("White Drawf:%d, Neutron Star:%d, Black Hole:%d", c[7], c[8], c[9]);
}

void loadStarImages() {
  for (int i : imageLoadOrder) {
    if (fullImages[i]) SDL_FreeSurface(fullImages[i]);
    fullImages[i] = loadStarBitmap(starImageFiles[i]);
  }
  for (int i : imageLoadOrder) {
    if (halfImages[i]) SDL_FreeSurface(halfImages[i]);
    halfImages[i] = halfSize(fullImages[i]);
  }
}

void readPlanetColors(DataFile& file, const std::string& name) {
  std::memset(planetColorTables, 0, sizeof planetColorTables);
  ColorTableReader reader(name);
  std::string line;
  while (file.nextField(line)) {
    if (file.lastLineCut()) reader.noteCutLine(file.lineNumber());
    reader.read(line, file.lineNumber());
  }
  reader.finish();
}

void loadPlanetColors(const char* path) {
  std::memset(planetColorTables, 0, sizeof planetColorTables);
  DataFile file(path);
  logMessage("Loading Planet Color");
  if (!file.isOpen()) {
    reportDataProblem(fileName(path), 0, "Can't open %s; the planet colour tables stay empty", path);
    return;
  }
  readPlanetColors(file, fileName(path));
}

void loadStarmap(StarMap& map) {
  loadStarmapFile(map, hostPath("Starmap.txt").c_str());
  loadStarImages();
  loadPlanetColors(hostPath("PlanetColor.txt").c_str());
}

SDL_Surface* starImage(const char* classText) { return lookUpStarImage(fullImages, classText); }

SDL_Surface* smallStarImage(const char* classText) { return lookUpStarImage(halfImages, classText); }

std::uint32_t planetColor(std::uint8_t shade, const char* name) {
  if (name) {
    if (std::strcmp(name, "Green") == 0) return 0xFF000000u + shade * 256u;
    for (int t = 0; t < colorTableCount; ++t) {
      if (std::strcmp(name, colorTableNames[t]) == 0) return planetColorTables[t][shade];
    }
  }
  return 0xFF000000u + shade * 65536u + shade * 256u + shade;
}

Planet* currentPlanetRecord() {
  StellarObject* object = gameState.currentObject;
  if (!object || gameState.currentPlanet < 0 || gameState.currentPlanet >= maxPlanets) return nullptr;
  return object->Planets[gameState.currentPlanet];
}
