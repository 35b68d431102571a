#pragma once
// Shared set-up for the fuzz targets: every target runs in a scratch directory
// of its own, because the game's loaders open their files relative to the
// working directory, and writes the fuzzer's bytes into the file a loader reads.

#include <cstddef>
#include <cstdint>
#include <string>

// Creates a fresh scratch directory, makes it the working directory and
// removes it when the process ends. Call once, from LLVMFuzzerInitialize.
void enterScratchDirectory();

// Writes `size` bytes to `path` (relative to the scratch directory), creating
// the folders on the way. Aborts when the file cannot be written, since a
// target that silently reads nothing would fuzz nothing.
void writeScratchFile(const std::string& path, const std::uint8_t* data, std::size_t size);
void writeScratchFile(const std::string& path, const std::string& text);

// Stops the run with a message when a property of the loaded state is broken,
// so libFuzzer records the input as a crash.
void fuzzCheck(bool condition, const char* what);
