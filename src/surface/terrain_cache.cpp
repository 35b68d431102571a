#include "surface/terrain_cache.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>

#include "platform/random.h"
#include "surface/terrain.h"

namespace {

// Enough for the systems around the ship and the one just left, so
// re-entering costs nothing: 65 KB each.
constexpr std::size_t keptTerrains = 64;

struct Made {
  std::unique_ptr<Terrain> map;
  unsigned int randomAfter = 0;
};

Made make(std::int32_t seed) {
  Made m{std::make_unique<Terrain>(), 0};
  RandomSequence random(0);
  generateTerrain(*m.map, seed, random);
  smoothTerrain(*m.map);
  m.randomAfter = random.state();
  return m;
}

class TerrainWorks {
 public:
  ~TerrainWorks() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      stopping_ = true;
    }
    wake_.notify_all();
    if (worker_.joinable()) worker_.join();
  }

  void prepare(const std::vector<std::int32_t>& seeds) {
    std::lock_guard<std::mutex> lock(mutex_);
    // The first seeds are wanted soonest: they count as the most recently asked
    // for, and go to the head of the queue, ahead of what nearer stars asked before.
    clock_ += seeds.size();
    std::uint64_t stamp = clock_;
    std::deque<std::int32_t> ahead;
    for (std::int32_t seed : seeds) {
      auto it = entries_.try_emplace(seed).first;
      it->second.lastUse = std::max(it->second.lastUse, stamp--);
      if (it->second.state != State::Queued || std::find(ahead.begin(), ahead.end(), seed) != ahead.end()) continue;
      if (const auto queued = std::find(queue_.begin(), queue_.end(), seed); queued != queue_.end())
        queue_.erase(queued);
      ahead.push_back(seed);
    }
    queue_.insert(queue_.begin(), ahead.begin(), ahead.end());
    trim();
    if (!queue_.empty() && !worker_.joinable()) worker_ = std::thread([this] { run(); });
    wake_.notify_all();
  }

  void fetch(Terrain& out, std::int32_t seed) {
    std::unique_lock<std::mutex> lock(mutex_);
    // A terrain nobody asked for before is made right here.
    bool mine = entries_.try_emplace(seed, Entry{State::Making, {}, 0, 0}).second;
    for (;;) {
      Entry& e = entries_[seed];
      if (e.state == State::Ready) {
        out = *e.map;
        setRandomState(e.randomAfter);
        e.lastUse = ++clock_;
        trim();
        return;
      }
      std::int32_t job = seed;
      if (mine) {
        mine = false;
      } else if (e.state == State::Queued) {
        queue_.erase(std::find(queue_.begin(), queue_.end(), seed));
        e.state = State::Making;
      } else if (!queue_.empty()) {
        job = queue_.back();  // the worker has ours in hand: take one from the other end
        queue_.pop_back();
        entries_[job].state = State::Making;
      } else {
        done_.wait(lock);
        continue;
      }
      lock.unlock();
      Made m = make(job);
      lock.lock();
      store(job, std::move(m));
    }
  }

  void waitIdle() {
    std::unique_lock<std::mutex> lock(mutex_);
    done_.wait(lock, [this] { return queue_.empty() && working_ == 0; });
  }

  void forget() {
    std::lock_guard<std::mutex> lock(mutex_);
    std::erase_if(entries_, [](const auto& kv) { return kv.second.state == State::Ready; });
  }

 private:
  enum class State { Queued, Making, Ready };
  struct Entry {
    State state = State::Queued;
    std::unique_ptr<Terrain> map;
    unsigned int randomAfter = 0;
    std::uint64_t lastUse = 0;
  };

  void store(std::int32_t seed, Made m) {
    Entry& e = entries_[seed];
    e.state = State::Ready;
    e.map = std::move(m.map);
    e.randomAfter = m.randomAfter;
    done_.notify_all();
  }

  // Drops the least recently asked-for made terrains beyond the number kept.
  void trim() {
    while (entries_.size() > keptTerrains) {
      auto oldest = entries_.end();
      for (auto it = entries_.begin(); it != entries_.end(); ++it)
        if (it->second.state == State::Ready &&
            (oldest == entries_.end() || it->second.lastUse < oldest->second.lastUse))
          oldest = it;
      if (oldest == entries_.end()) return;
      entries_.erase(oldest);
    }
  }

  void run() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
      wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
      if (stopping_) return;
      const std::int32_t seed = queue_.front();
      queue_.pop_front();
      entries_[seed].state = State::Making;
      ++working_;
      lock.unlock();
      Made m = make(seed);
      lock.lock();
      --working_;
      store(seed, std::move(m));
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_, done_;
  std::unordered_map<std::int32_t, Entry> entries_;
  std::deque<std::int32_t> queue_;
  int working_ = 0;
  std::uint64_t clock_ = 0;
  bool stopping_ = false;
  std::thread worker_;
};

TerrainWorks& works() {
  static TerrainWorks w;
  return w;
}

}  // namespace

void prepareTerrains(const std::vector<std::int32_t>& seeds) { works().prepare(seeds); }
void smoothedTerrain(Terrain& map, std::int32_t seed) { works().fetch(map, seed); }
void waitForTerrains() { works().waitIdle(); }
void forgetTerrains() { works().forget(); }
