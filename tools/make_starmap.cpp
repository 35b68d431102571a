// Writes the universe the game ships with: data/Starmap.txt.
//
//   make_starmap <output file>
//
// The map is drawn from a fixed seed with the tool's own generator and whole
// numbers only, so running it again writes the same file byte for byte.
//
// Stars gather in clusters joined by lanes of stars, with a thin scatter of
// field stars between them. Each star's planets follow from its class and
// their lane: close lanes are hot (molten and volcanic worlds), the middle
// lanes can hold oceans, the far lanes are frozen or belong to gas giants.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "universe/planet.h"
#include "universe/star_map.h"

namespace {

constexpr int mapSize = 500;

// ---------------------------------------------------------------------------
// Random numbers: splitmix64, fixed seed.

class Generator {
 public:
  explicit Generator(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
  }
  // 0 .. n-1
  int below(int n) { return static_cast<int>(next() % static_cast<std::uint64_t>(n)); }
  // lo .. hi, both included
  int between(int lo, int hi) { return lo + below(hi - lo + 1); }
  // true with a chance of `perMille` out of 1000
  bool chance(int perMille) { return below(1000) < perMille; }
  template <typename T, std::size_t N>
  const T& pick(const std::array<T, N>& items) {
    return items[static_cast<std::size_t>(below(static_cast<int>(N)))];
  }
  // An index drawn with the given weights.
  template <std::size_t N>
  int weighted(const std::array<int, N>& weights) {
    int total = 0;
    for (int w : weights) total += w;
    int r = below(total);
    for (std::size_t i = 0; i < N; ++i) {
      if (r < weights[i]) return static_cast<int>(i);
      r -= weights[i];
    }
    return static_cast<int>(N) - 1;
  }

 private:
  std::uint64_t state_;
};

// ---------------------------------------------------------------------------
// Star classes.

enum StarClass { M, K, G, F, A, B, O, WhiteDwarf, NeutronStar, BlackHole, classCount };

// The game's class texts (starClassNames) come in the same order.
static_assert(classCount == starClassCount);

// How often each class turns up, per thousand stars.
constexpr std::array<int, classCount> oldClusterMix = {600, 160, 95, 50, 28, 10, 3, 45, 6, 3};
constexpr std::array<int, classCount> youngClusterMix = {420, 150, 110, 90, 80, 65, 30, 20, 20, 15};
constexpr std::array<int, classCount> fieldMix = {600, 150, 90, 45, 25, 8, 2, 60, 12, 8};

// Temperature in kelvin of a body on lane 0, by class; further lanes are colder.
constexpr std::array<int, classCount> laneZeroKelvin = {400, 500, 620, 760, 950, 1400, 2000, 300, 160, 120};
// Light falls off with distance; lane n lies 1.45^n times as far out as lane 0,
// so its temperature is lane 0's times 1 / sqrt(1.45^n), here in thousandths.
constexpr std::array<int, 10> laneWarmth = {1000, 830, 690, 573, 476, 395, 328, 272, 226, 188};
// Lanes whose temperature falls in this band (kelvin) are the star's ecosphere.
constexpr int ecoLowKelvin = 240;
constexpr int ecoHighKelvin = 320;

// The most planets a star of each class has.
constexpr std::array<int, classCount> maxPlanetsOf = {6, 8, 10, 9, 7, 5, 3, 4, 2, 2};

int laneKelvin(int starKelvin, int lane) { return starKelvin * laneWarmth[static_cast<std::size_t>(lane)] / 1000; }

std::string ecosphere(int starKelvin) {
  int first = -1, last = -1;
  for (int lane = 0; lane < 10; ++lane) {
    const int k = laneKelvin(starKelvin, lane);
    if (k >= ecoLowKelvin && k <= ecoHighKelvin) {
      if (first < 0) first = lane;
      last = lane;
    }
  }
  if (first < 0) return "None";
  // The star chart leaves 7 characters for the text.
  if (first == last) return "Lane " + std::to_string(first);
  return "Ln " + std::to_string(first) + "-" + std::to_string(last);
}

// ---------------------------------------------------------------------------
// Minerals, with how common each is in a crust.

// Indexed like the game's mineral table.
constexpr std::array<int, 22> commonMinerals = {8, 14, 5, 9, 7, 6, 4, 6, 9, 9, 6, 5, 3, 2, 3, 3, 3, 2, 2, 12, 1, 1};
// Near the violent stars the heavy and strange elements are four times as common.
constexpr std::array<int, 22> exoticMinerals = {8, 14, 5, 9, 7, 6, 4, 6, 9, 9, 6, 5, 3, 8, 3, 12, 6, 8, 8, 12, 4, 4};
constexpr int ironIndex = 1;
constexpr int tinIndex = 7;

// ---------------------------------------------------------------------------
// Planets.

// A planet of the game's own record, with the lane it orbits on.
struct Orbit {
  int lane = 0;
  Planet planet;
};

template <std::size_t N>
void setText(char (&field)[N], const std::string& text) {
  std::snprintf(field, N, "%s", text.c_str());
}
void setTexts(char (&fields)[3][20], const char* a, const char* b, const char* c) {
  setText(fields[0], a);
  setText(fields[1], b);
  setText(fields[2], c);
}
bool is(const char* field, const char* text) { return std::strcmp(field, text) == 0; }
float gravity(int hundredths) { return static_cast<float>(hundredths) / 100.0f; }

// Nothing is colder than the 3 K glow of the sky: the swings of the far, dark
// worlds stop there instead of passing absolute zero.
constexpr int coldestCelsius = -270;
void floorTemperatures(Planet& p) {
  p.MinTemp = std::max(p.MinTemp, coldestCelsius);
  p.MaxTemp = std::max(p.MaxTemp, p.MinTemp);
}

struct Star {
  int x = 0;
  int y = 0;
  StarClass cls = M;
  std::string eco;
  std::vector<Orbit> planets;
};

using Atmosphere = std::array<const char*, 3>;

// Surface gravity in hundredths of a g for a rocky body of mantissa x 10^exponent kg,
// taking its density as Earth's: g grows with the cube root of the mass.
int rockyGravity(int mantissa, int exponent) {
  std::int64_t units = mantissa;  // in 10^22 kg
  for (int e = 22; e < exponent; ++e) units *= 10;
  // The largest g (hundredths) with (g / 100)^3 <= units / 600, Earth being 600 units.
  std::int64_t g = 1;
  while ((g + 1) * (g + 1) * (g + 1) * 600 <= units * 1000000) ++g;
  return static_cast<int>(g);
}

class Universe {
 public:
  explicit Universe(std::uint64_t seed) : rng_(seed) {}

  std::vector<Star> build();

 private:
  bool reserved(int x, int y) const;
  bool place(int x, int y, StarClass cls);
  void makeClusters();
  void makeLanes();
  void makeFieldStars(int count);
  void makeHomeSystem();
  void makePlanets(Star& star);
  Orbit makePlanet(StarClass cls, int starKelvin, int lane);
  void makeGasGiant(Planet& p, StarClass cls, int kelvin);
  void makeRockyWorld(Planet& p, StarClass cls, int kelvin);
  void chooseLithosphere(Planet& p, StarClass cls, int preferred);
  int mineralDensity(int lo, int hi, StarClass cls);
  int distinctSeed();

  struct Cluster {
    int x, y, radius;
    bool young;
  };

  Generator rng_;
  std::vector<std::vector<int>> occupied_ = std::vector<std::vector<int>>(mapSize, std::vector<int>(mapSize, -1));
  std::vector<Star> stars_;
  std::vector<Cluster> clusters_;
  std::set<int> seeds_;
};

// The player starts at cell (100, 96) flying towards higher rows, into the home
// system at (100, 100). The few cells around the start are kept for the
// hand-placed neighbours, and the path into the home system stays clear.
constexpr int homeX = 100, homeY = 100;
constexpr int startX = 100, startY = 96;

bool Universe::reserved(int x, int y) const {
  const bool nearStart = std::abs(x - startX) <= 5 && std::abs(y - startY) <= 5;
  const bool approach = x == homeX && y >= 85 && y <= 110;
  return nearStart || approach;
}

bool Universe::place(int x, int y, StarClass cls) {
  if (x < 0 || x >= mapSize || y < 0 || y >= mapSize) return false;
  if (occupied_[x][y] >= 0 || reserved(x, y)) return false;
  occupied_[x][y] = static_cast<int>(stars_.size());
  stars_.push_back(Star{x, y, cls, {}, {}});
  return true;
}

void Universe::makeClusters() {
  // A cluster next to home, so the first flights find company.
  clusters_.push_back(Cluster{120, 116, 18, false});
  while (clusters_.size() < 26) {
    const Cluster c{rng_.between(20, 479), rng_.between(20, 479), rng_.between(6, 26), rng_.chance(180)};
    bool apart = true;
    for (const Cluster& other : clusters_) {
      const int dx = c.x - other.x, dy = c.y - other.y;
      if (dx * dx + dy * dy < 44 * 44) apart = false;
    }
    if (apart) clusters_.push_back(c);
  }
  for (const Cluster& c : clusters_) {
    // Denser in the middle: the sum of three draws piles up around zero.
    const int count = c.radius * c.radius * rng_.between(22, 44) / 100;
    for (int n = 0; n < count; ++n) {
      const StarClass cls = static_cast<StarClass>(rng_.weighted(c.young ? youngClusterMix : oldClusterMix));
      for (int attempt = 0; attempt < 4; ++attempt) {
        const int r = c.radius;
        const int dx = (rng_.between(-r, r) + rng_.between(-r, r) + rng_.between(-r, r)) / 2;
        const int dy = (rng_.between(-r, r) + rng_.between(-r, r) + rng_.between(-r, r)) / 2;
        if (place(c.x + dx, c.y + dy, cls)) break;
      }
    }
  }
}

void Universe::makeLanes() {
  // Join the clusters like a road network: each cluster to its nearest
  // already joined one (a spanning tree), plus a few shortcuts.
  std::vector<std::pair<int, int>> links;
  std::vector<bool> joined(clusters_.size(), false);
  joined[0] = true;
  for (std::size_t step = 1; step < clusters_.size(); ++step) {
    int bestFrom = -1, bestTo = -1, bestDistance = 0;
    for (std::size_t a = 0; a < clusters_.size(); ++a) {
      if (!joined[a]) continue;
      for (std::size_t b = 0; b < clusters_.size(); ++b) {
        if (joined[b]) continue;
        const int dx = clusters_[a].x - clusters_[b].x, dy = clusters_[a].y - clusters_[b].y;
        const int d = dx * dx + dy * dy;
        if (bestFrom < 0 || d < bestDistance) {
          bestFrom = static_cast<int>(a);
          bestTo = static_cast<int>(b);
          bestDistance = d;
        }
      }
    }
    joined[static_cast<std::size_t>(bestTo)] = true;
    links.emplace_back(bestFrom, bestTo);
  }
  for (int extra = 0; extra < 4; ++extra) {
    links.emplace_back(rng_.below(static_cast<int>(clusters_.size())), rng_.below(static_cast<int>(clusters_.size())));
  }
  for (const auto& [from, to] : links) {
    const Cluster& a = clusters_[static_cast<std::size_t>(from)];
    const Cluster& b = clusters_[static_cast<std::size_t>(to)];
    const int steps = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
    for (int s = 0; s <= steps && steps > 0; ++s) {
      if (!rng_.chance(230)) continue;
      const int x = a.x + (b.x - a.x) * s / steps + rng_.between(-2, 2);
      const int y = a.y + (b.y - a.y) * s / steps + rng_.between(-2, 2);
      place(x, y, static_cast<StarClass>(rng_.weighted(oldClusterMix)));
    }
  }
}

void Universe::makeFieldStars(int count) {
  for (int n = 0; n < count; ++n) {
    place(rng_.below(mapSize), rng_.below(mapSize), static_cast<StarClass>(rng_.weighted(fieldMix)));
  }
}

int Universe::distinctSeed() {
  for (;;) {
    const int seed = rng_.between(1, 2000000000);
    if (seeds_.insert(seed).second) return seed;
  }
}

int Universe::mineralDensity(int lo, int hi, StarClass cls) {
  // Mostly sparse to middling; now and then a rich world, more often near remnants and hot stars.
  const bool violent = cls == O || cls == B || cls == NeutronStar || cls == BlackHole;
  if (rng_.chance(violent ? 150 : 50)) {
    // One rich world in about sixteen is a bonanza, seeded with deposits almost everywhere.
    if (rng_.chance(60)) return rng_.between(1000, 4000);
    return rng_.between(260, 400);
  }
  return (rng_.between(lo, hi) + rng_.between(lo, hi)) / 2;
}

void Universe::chooseLithosphere(Planet& p, StarClass cls, int preferred) {
  const bool exotic = cls == O || cls == B || cls == WhiteDwarf || cls == NeutronStar || cls == BlackHole;
  std::array<int, 3> chosen = {-1, -1, -1};
  for (int i = 0; i < 3; ++i) {
    int m;
    do {
      m = (i == 0 && preferred >= 0 && rng_.chance(700)) ? preferred
                                                         : rng_.weighted(exotic ? exoticMinerals : commonMinerals);
    } while (std::find(chosen.begin(), chosen.end(), m) != chosen.end());
    chosen[static_cast<std::size_t>(i)] = m;
    setText(p.Litho[i], minerals[m].name);
  }
}

void Universe::makeGasGiant(Planet& p, StarClass cls, int kelvin) {
  const int celsius = kelvin - 273;
  if (rng_.chance(600)) {
    setText(p.Hydro, "Metalic Hydrogen");
    p.Mass = static_cast<float>(rng_.between(1, 4));
    p.MassExponent = 27;
    p.Gravity = gravity(180 + static_cast<int>(p.Mass) * 35 + rng_.between(-20, 40));
  } else {
    setText(p.Hydro, "Helium");
    p.Mass = static_cast<float>(rng_.between(2, 9));
    p.MassExponent = 26;
    p.Gravity = gravity(110 + static_cast<int>(p.Mass) * 8 + rng_.between(-10, 20));
  }
  static const std::array<const char*, 4> coldTraces = {"Methane", "Ammonia", "Methane", "Neon"};
  static const std::array<const char*, 3> hotTraces = {"Water Vapor", "Sodium", "Carbon Monoxide"};
  setTexts(p.Atmos, "Hydrogen", "Helium", celsius > 100 ? rng_.pick(hotTraces) : rng_.pick(coldTraces));
  static const std::array<const char*, 8> weathers = {"Storm Bands", "Cyclones",    "Jet Streams", "Gales",
                                                      "Great Storm", "Cloud Belts", "Lightning",   "Hurricanes"};
  setText(p.Weather, rng_.pick(weathers));
  const int spread = rng_.between(15, 40);
  p.MinTemp = celsius - spread;
  p.MaxTemp = celsius + rng_.between(10, 30);
  p.Bio = 0;
  p.MineralDensity = rng_.between(0, 40);
  chooseLithosphere(p, cls, -1);
}

void Universe::makeRockyWorld(Planet& p, StarClass cls, int kelvin) {
  const int celsius = kelvin - 273;
  // Small bodies (moons, dwarf planets) up to bodies a few times Earth's mass.
  const int size = rng_.weighted(std::array<int, 3>{30, 45, 25});
  p.Mass = static_cast<float>(rng_.between(1, 9));
  p.MassExponent = size == 0 ? rng_.between(22, 23) : (size == 1 ? rng_.between(23, 24) : rng_.between(24, 25));
  if (p.MassExponent == 25) p.Mass = static_cast<float>(rng_.between(1, 3));
  p.Gravity =
      gravity(std::max(2, rockyGravity(static_cast<int>(p.Mass), p.MassExponent) * rng_.between(92, 108) / 100));

  const bool airless = celsius < 380 && rng_.chance(size == 0 ? 700 : (size == 1 ? 180 : 60));
  if (airless) {
    setText(p.Hydro, "None");
    setTexts(p.Atmos, "None", "None", "None");
    setText(p.Weather, "None");
    const int swing = rng_.between(60, 150);
    p.MinTemp = celsius - swing - rng_.between(0, 40);
    p.MaxTemp = celsius + swing;
    p.Bio = 0;
    p.MineralDensity = mineralDensity(40, 260, cls);
    chooseLithosphere(p, cls, -1);
    return;
  }

  if (celsius >= 1000) {
    setText(p.Hydro, rng_.chance(700) ? "Molten Iron" : "Lava");
  } else if (celsius >= 650) {
    setText(p.Hydro, rng_.chance(600) ? "Lava" : "Molten Iron");
  } else if (celsius >= 380) {
    setText(p.Hydro, rng_.chance(650) ? "Lava" : "Molten Tin");
  } else if (celsius >= 200) {
    const int r = rng_.below(20);
    setText(p.Hydro, r < 9 ? "Molten Tin" : (r < 14 ? "Lava" : "Carbon Dioxide"));
  } else if (celsius >= 100) {
    setText(p.Hydro, "Carbon Dioxide");
  } else if (celsius >= -20) {
    setText(p.Hydro, rng_.chance(650) ? "Water" : "Carbon Dioxide");
  } else if (celsius >= -90) {
    const int r = rng_.below(20);
    setText(p.Hydro, r < 7 ? "Water" : (r < 16 ? "Carbon Dioxide" : "Methane"));
  } else if (celsius >= -180) {
    const int r = rng_.below(10);
    setText(p.Hydro, r < 5 ? "Methane" : (r < 8 ? "Carbon Dioxide" : "Water"));
  } else {
    setText(p.Hydro, "Methane");
  }

  int swing = 0;
  int preferredMineral = -1;
  if (is(p.Hydro, "Water")) {
    static const std::array<Atmosphere, 3> airs = {{{"Nitrogen", "Oxygen", "Argon"},
                                                    {"Nitrogen", "Carbon Dioxide", "Water Vapor"},
                                                    {"Nitrogen", "Oxygen", "Water Vapor"}}};
    const Atmosphere& a = rng_.pick(airs);
    setTexts(p.Atmos, a[0], a[1], a[2]);
    static const std::array<const char*, 8> mild = {"Clear",      "Light Rain", "Thunderstorms", "Monsoons",
                                                    "Hurricanes", "Overcast",   "Fog",           "Drizzle"};
    static const std::array<const char*, 4> frozen = {"Blizzards", "Snow", "Ice Fog", "Clear"};
    setText(p.Weather, celsius < 0 ? rng_.pick(frozen) : rng_.pick(mild));
    swing = rng_.between(20, 45);
    if (celsius > -10 && celsius < 45) {
      p.Bio = rng_.between(20, 95);
    } else {
      p.Bio = rng_.between(0, 15);
    }
    p.MineralDensity = mineralDensity(20, 200, cls);
  } else if (is(p.Hydro, "Carbon Dioxide")) {
    static const std::array<Atmosphere, 2> airs = {
        {{"Carbon Dioxide", "Nitrogen", "Sulfur Dioxide"}, {"Carbon Dioxide", "Argon", "Nitrogen"}}};
    const Atmosphere& a = rng_.pick(airs);
    setTexts(p.Atmos, a[0], a[1], a[2]);
    static const std::array<const char*, 4> hot = {"Acid Rain", "Heavy Clouds", "Sulfur Haze", "Dense Haze"};
    static const std::array<const char*, 4> cold = {"Dust Storms", "Clear", "Frost", "Thin Haze"};
    // A thick, hot carbon dioxide sky holds the heat evenly; a thin cold one does not.
    if (celsius >= 100) {
      setText(p.Weather, rng_.pick(hot));
      swing = rng_.between(5, 20);
    } else {
      setText(p.Weather, rng_.pick(cold));
      swing = rng_.between(30, 70);
    }
    p.Bio = (celsius > -40 && celsius < 60 && rng_.chance(200)) ? rng_.between(1, 8) : 0;
    p.MineralDensity = mineralDensity(30, 220, cls);
  } else if (is(p.Hydro, "Methane")) {
    static const std::array<Atmosphere, 2> airs = {
        {{"Nitrogen", "Methane", "Argon"}, {"Methane", "Nitrogen", "Ethane"}}};
    const Atmosphere& a = rng_.pick(airs);
    setTexts(p.Atmos, a[0], a[1], a[2]);
    static const std::array<const char*, 4> weathers = {"Methane Rain", "Methane Snow", "Orange Haze", "Still"};
    setText(p.Weather, rng_.pick(weathers));
    swing = rng_.between(10, 30);
    p.Bio = rng_.chance(250) ? rng_.between(1, 5) : 0;
    p.MineralDensity = mineralDensity(20, 160, cls);
  } else {
    // The molten worlds.
    if (is(p.Hydro, "Lava")) {
      static const std::array<Atmosphere, 2> airs = {
          {{"Sulfur Dioxide", "Carbon Dioxide", "Nitrogen"}, {"Carbon Dioxide", "Sulfur Dioxide", "Hydrogen Sulfide"}}};
      const Atmosphere& a = rng_.pick(airs);
      setTexts(p.Atmos, a[0], a[1], a[2]);
      static const std::array<const char*, 4> weathers = {"Ash Clouds", "Magma Storms", "Sulfur Rain", "Volcanic Haze"};
      setText(p.Weather, rng_.pick(weathers));
    } else if (is(p.Hydro, "Molten Iron")) {
      static const std::array<Atmosphere, 2> airs = {
          {{"Silicate Vapor", "Oxygen", "Sodium"}, {"Iron Vapor", "Sodium", "Oxygen"}}};
      const Atmosphere& a = rng_.pick(airs);
      setTexts(p.Atmos, a[0], a[1], a[2]);
      static const std::array<const char*, 3> weathers = {"Iron Rain", "Firestorms", "Glowing Haze"};
      setText(p.Weather, rng_.pick(weathers));
      preferredMineral = ironIndex;
    } else {
      static const std::array<Atmosphere, 2> airs = {
          {{"Carbon Dioxide", "Sulfur Dioxide", "Tin Chloride"}, {"Nitrogen", "Carbon Dioxide", "Sulfur Dioxide"}}};
      const Atmosphere& a = rng_.pick(airs);
      setTexts(p.Atmos, a[0], a[1], a[2]);
      static const std::array<const char*, 3> weathers = {"Ash Clouds", "Heat Haze", "Metal Fog"};
      setText(p.Weather, rng_.pick(weathers));
      preferredMineral = tinIndex;
    }
    swing = rng_.between(40, 100);
    p.Bio = 0;
    p.MineralDensity = mineralDensity(60, 300, cls);
  }
  p.MinTemp = celsius - swing;
  p.MaxTemp = celsius + swing;
  chooseLithosphere(p, cls, preferredMineral);
}

Orbit Universe::makePlanet(StarClass cls, int starKelvin, int lane) {
  Orbit orbit;
  orbit.lane = lane;
  Planet& p = orbit.planet;
  const int kelvin = laneKelvin(starKelvin, lane);
  // Gas giants form further out; a few spiral in close to their star.
  int giantChance = 20 + 55 * lane;
  if (cls == WhiteDwarf || cls == NeutronStar || cls == BlackHole) giantChance = 250;
  if (kelvin - 273 > 600) giantChance = std::min(giantChance, 100);
  if (rng_.chance(giantChance)) {
    makeGasGiant(p, cls, kelvin);
  } else {
    makeRockyWorld(p, cls, kelvin);
  }
  p.Seed = distinctSeed();
  floorTemperatures(p);
  return orbit;
}

void Universe::makePlanets(Star& star) {
  // Each star burns a little hotter or cooler than its class's middle.
  const int kelvin = laneZeroKelvin[star.cls] * rng_.between(95, 105) / 100;
  star.eco = ecosphere(kelvin);
  const int most = maxPlanetsOf[star.cls];
  const int count = (rng_.between(0, most) + rng_.between(0, most) + 1) / 2;
  std::array<int, 10> lanes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  for (int i = 9; i > 0; --i)
    std::swap(lanes[static_cast<std::size_t>(i)], lanes[static_cast<std::size_t>(rng_.below(i + 1))]);
  std::sort(lanes.begin(), lanes.begin() + count);
  for (int i = 0; i < count; ++i)
    star.planets.push_back(makePlanet(star.cls, kelvin, lanes[static_cast<std::size_t>(i)]));
}

// The player's home: a yellow star with a full family of worlds, among them
// two rich mining worlds, an ocean world and a gas giant.
void Universe::makeHomeSystem() {
  Star home{homeX, homeY, G, ecosphere(laneZeroKelvin[G]), {}};
  auto planet = [](int lane, int mass, int exponent, int hundredths, int minTemp, int maxTemp, int bio, int density,
                   Atmosphere atmos, const char* hydro, Atmosphere litho, const char* weather, int seed) {
    Orbit orbit;
    orbit.lane = lane;
    Planet& p = orbit.planet;
    p.Mass = static_cast<float>(mass);
    p.MassExponent = exponent;
    p.Gravity = gravity(hundredths);
    p.MinTemp = minTemp;
    p.MaxTemp = maxTemp;
    p.Bio = bio;
    p.MineralDensity = density;
    setTexts(p.Atmos, atmos[0], atmos[1], atmos[2]);
    setText(p.Hydro, hydro);
    setTexts(p.Litho, litho[0], litho[1], litho[2]);
    setText(p.Weather, weather);
    p.Seed = seed;
    return orbit;
  };
  home.planets = {
      planet(0, 3, 23, 42, 262, 431, 0, 285, {"Sulfur Dioxide", "Carbon Dioxide", "Nitrogen"}, "Lava",
             {"Iron", "Titanium", "Platinum"}, "Ash Clouds", 73415),
      planet(1, 5, 24, 91, 224, 263, 0, 118, {"Carbon Dioxide", "Nitrogen", "Sulfur Dioxide"}, "Carbon Dioxide",
             {"Silicon", "Aluminum", "Lead"}, "Acid Rain", 190422),
      planet(2, 7, 23, 50, -64, 291, 0, 334, {"None", "None", "None"}, "None", {"Nickel", "Cobalt", "Gold"}, "None",
             262144),
      planet(4, 6, 24, 101, -12, 41, 64, 92, {"Nitrogen", "Oxygen", "Argon"}, "Water", {"Silicon", "Iron", "Copper"},
             "Light Rain", 1138),
      planet(5, 6, 23, 38, -96, 17, 0, 152, {"Carbon Dioxide", "Argon", "Nitrogen"}, "Carbon Dioxide",
             {"Iron", "Magnesium", "Silver"}, "Dust Storms", 5550),
      planet(7, 2, 27, 253, -131, -86, 0, 18, {"Hydrogen", "Helium", "Methane"}, "Metalic Hydrogen",
             {"Molybdenum", "Tungsten", "Rodnium"}, "Great Storm", 97001),
      planet(9, 1, 23, 14, -188, -151, 0, 76, {"Nitrogen", "Methane", "Argon"}, "Methane", {"Zinc", "Tin", "Mercury"},
             "Methane Snow", 424242),
  };
  for (const Orbit& o : home.planets) seeds_.insert(o.planet.Seed);
  occupied_[homeX][homeY] = static_cast<int>(stars_.size());
  stars_.push_back(home);

  // The neighbours the viewscreen shows at the start, none in the ship's own column.
  const std::array<Star, 4> neighbours = {
      {{97, 93, M, {}, {}}, {103, 92, K, {}, {}}, {95, 99, F, {}, {}}, {104, 99, M, {}, {}}}};
  for (const Star& s : neighbours) {
    occupied_[s.x][s.y] = static_cast<int>(stars_.size());
    stars_.push_back(s);
  }
}

std::vector<Star> Universe::build() {
  makeHomeSystem();
  makeClusters();
  makeLanes();
  makeFieldStars(240);
  std::sort(stars_.begin(), stars_.end(),
            [](const Star& a, const Star& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  for (Star& star : stars_) {
    const bool isHome = star.x == homeX && star.y == homeY;
    if (!isHome) makePlanets(star);
  }
  return stars_;
}

// ---------------------------------------------------------------------------
// Writing.

const char* const header = R"(# Star Prospector star map
#
# The universe is a grid of 500 x 500 cells; a cell holds one stellar object or
# nothing. Columns (x) and rows (y) run from 0 to 499; rows grow upwards on the
# navigation chart.
#
# Lines starting with '#' are comments and are skipped. Every other line, an
# empty one too, is the next value, in a fixed order with no keys, so a missing
# or extra line shifts the meaning of everything after it. Lines are at most
# 999 characters; numbers are whole numbers unless said otherwise.
#
# One stellar object is five lines:
#   column                 0..499
#   row                    0..499
#   class                  M, K, G, F, A, B, O, White Drawf, Neutron Star or
#                          Black Hole (at most 19 characters)
#   ecosphere              free text, at most 11 characters (here: the lanes
#                          where water can be liquid)
#   number of planets      how many planet entries follow (0 for none)
#
# Each planet entry is seventeen lines:
#   orbital lane           0..9, the star's closest orbit first
#   mass                   whole-number mantissa of the mass in kg ...
#   mass exponent          ... and its power of ten
#   gravity                surface gravity in g (a decimal number)
#   minimum temperature    degrees Celsius
#   maximum temperature    degrees Celsius
#   biological density
#   mineral density        chance of a deposit per 10,000 surface points
#   atmosphere             three lines, one component each (at most 19 characters)
#   hydrosphere            at most 19 characters; Metalic Hydrogen, Helium,
#                          Methane, Carbon Dioxide, Water, Molten Tin,
#                          Molten Iron and Lava have their own surface colours
#   lithosphere            three lines, each a mineral name: Lead, Iron, Cobalt,
#                          Nickel, Copper, Zinc, Molybdenum, Tin, Magnesium,
#                          Aluminum, Titanium, Chromium, Antimony, Promethium,
#                          Mercury, Tungsten, Silver, Gold, Platinum, Silicon,
#                          Rodnium or Shyneum; they weight the deposits found
#   global weather         at most 15 characters
#   seed                   the planet's surface and deposits grow from this number
#
# A second object at a cell already taken replaces the first. This file is
# written by tools/make_starmap; edit the tool and regenerate rather than
# editing by hand, or keep your own copy.
)";

void writeStar(std::FILE* out, const Star& s) {
  std::fprintf(out, "# %s at %d, %d\n", starClassNames[s.cls], s.x, s.y);
  std::fprintf(out, "%d\n%d\n%s\n%s\n%d\n", s.x, s.y, starClassNames[s.cls], s.eco.c_str(),
               static_cast<int>(s.planets.size()));
  for (const Orbit& o : s.planets) {
    const Planet& p = o.planet;
    std::fprintf(out, "%d\n%d\n%d\n%.2f\n%d\n%d\n%d\n%d\n", o.lane, static_cast<int>(p.Mass), p.MassExponent,
                 static_cast<double>(p.Gravity), p.MinTemp, p.MaxTemp, p.Bio, p.MineralDensity);
    for (const char* a : p.Atmos) std::fprintf(out, "%s\n", a);
    std::fprintf(out, "%s\n", p.Hydro);
    for (const char* l : p.Litho) std::fprintf(out, "%s\n", l);
    std::fprintf(out, "%s\n%d\n", p.Weather, p.Seed);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: make_starmap <output file>\n");
    return 2;
  }
  Universe universe(0x5354415250524F53ULL);
  const std::vector<Star> stars = universe.build();
  std::FILE* out = std::fopen(argv[1], "wb");
  if (!out) {
    std::fprintf(stderr, "make_starmap: can't write %s\n", argv[1]);
    return 1;
  }
  std::fputs(header, out);
  for (const Star& s : stars) writeStar(out, s);
  const bool ok = std::fclose(out) == 0;
  if (!ok) std::fprintf(stderr, "make_starmap: error writing %s\n", argv[1]);
  return ok ? 0 : 1;
}
