#include "fuzz_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

std::filesystem::path scratch;

void removeScratch() {
  std::error_code ignored;
  std::filesystem::current_path("/", ignored);
  if (!scratch.empty()) std::filesystem::remove_all(scratch, ignored);
}

}  // namespace

void enterScratchDirectory() {
  std::string pattern = (std::filesystem::temp_directory_path() / "prospector-fuzz-XXXXXX").string();
  if (!mkdtemp(pattern.data())) {
    std::perror("mkdtemp");
    std::abort();
  }
  scratch = pattern;
  std::filesystem::current_path(scratch);
  std::atexit(removeScratch);
}

void writeScratchFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path file(path);
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  if (!out) {
    std::fprintf(stderr, "fuzz: cannot write %s\n", path.c_str());
    std::abort();
  }
}

void writeScratchFile(const std::string& path, const std::string& text) {
  writeScratchFile(path, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

void fuzzCheck(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz: broken after loading: %s\n", what);
  std::abort();
}
