#pragma once
// The program's one random-number generator: the ISO C sample generator, so a
// planet's terrain and deposits come out the same on every platform.
// No code calls std::rand or std::srand.

constexpr int randomMax = 32767;

// One sequence of the same generator, apart from the program-wide one: work
// done on another thread draws from its own sequence and never touches the
// shared state, yet sees exactly the numbers seedRandom/nextRandom would give.
class RandomSequence {
 public:
  explicit RandomSequence(unsigned int seed) : state_(seed) {}
  int next() {
    state_ = state_ * 1103515245u + 12345u;  // modulo 2^32 by unsigned wrap-around
    return static_cast<int>((state_ / 65536u) % 32768u);
  }
  unsigned int state() const { return state_; }

 private:
  unsigned int state_;
};

// srand: restart the sequence at a seed.
void seedRandom(unsigned int seed);
// rand: the next value, 0 to randomMax.
int nextRandom();
// Where the program-wide sequence stands, and putting it where a RandomSequence
// left off, so work done on the side leaves the generator as doing it here would.
unsigned int randomState();
void setRandomState(unsigned int state);

// The seed for the places that seed with the time; `--seed` fixes it so a run repeats.
unsigned int timeSeed();
void setTimeSeedOverride(unsigned int seed);
