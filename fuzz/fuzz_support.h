#pragma once
// Shared pieces of the fuzz targets. The targets hand the fuzzer's bytes to
// the game's readers from memory: going through files would cost more than
// the reading itself.

#include <cstddef>
#include <cstdint>

#include "platform/data_file.h"

// The fuzzer's bytes as a data file's text.
inline DataFile::Text fuzzText(const std::uint8_t* data, std::size_t size) {
  return DataFile::Text{{reinterpret_cast<const char*>(data), size}};
}

// Stops the run with a message when a property of the loaded state is broken,
// so libFuzzer records the input as a crash.
void fuzzCheck(bool condition, const char* what);
