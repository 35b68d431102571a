#include "fuzz_support.h"

#include <cstdio>
#include <cstdlib>

void fuzzCheck(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz: broken after loading: %s\n", what);
  std::abort();
}
