# Thin wrapper over CMake: `make play` runs the game, `make test` runs the tests.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=
# Where `make install` puts the game; `sudo make install` for /usr/local.
PREFIX ?= /usr/local

.PHONY: all deps configure build play test format format-check bench clean starmap install uninstall screenshots fuzz fuzz-build soak frametimes

all: build

# `make test` also installs what only the tests use (an X server for the window checks).
DEPS_FLAGS ?=
test: DEPS_FLAGS = --test

deps:
	@./scripts/install-deps $(DEPS_FLAGS)

configure: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

# The game and its data only; the tests and benchmarks wait for `make test`.
play: configure
	@cmake --build $(BUILD) --target prospector -j $(JOBS)
	./$(BUILD)/prospector --data $(BUILD)/data

test: build
	cd $(BUILD) && SDL_VIDEODRIVER=dummy ctest --output-on-failure -j $(JOBS)

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

uninstall:
	cmake --build $(BUILD) --target uninstall

screenshots: build
	./scripts/screenshots $(BUILD)

bench: build
	./$(BUILD)/bench/prospector_bench

# libFuzzer targets in their own clang build; each runs FUZZ_SECONDS.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60

fuzz-build: deps
	@cmake -S . -B $(FUZZ_BUILD) -DCMAKE_CXX_COMPILER=clang++ -DPROSPECTOR_FUZZ=ON \
	  -DPROSPECTOR_BENCHMARKS=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) --target fuzz_targets -j $(JOBS)

fuzz: fuzz-build
	@./scripts/run-fuzzers $(FUZZ_BUILD) $(FUZZ_SECONDS)

# A long run steered through every mode by tools/soak.py; SOAK_FRAMES frames.
SOAK_FRAMES ?= 200000

soak: build
	@python3 tools/soak.py --binary $(BUILD)/prospector --data $(BUILD)/data --frames $(SOAK_FRAMES)

# A scripted first voyage timed frame by frame: dummy driver, then an Xvfb
# window at scale 1 and 2 on display FRAMETIMES_DISPLAY.
FRAMETIMES_DISPLAY ?= 93

frametimes: build
	@python3 tools/frametimes.py --binary $(BUILD)/prospector --data $(BUILD)/data --display $(FRAMETIMES_DISPLAY)

starmap: configure
	@cmake --build $(BUILD) --target starmap

FORMAT_FILES = $(shell git ls-files '*.cpp' '*.h')

format:
	@clang-format -i $(FORMAT_FILES)

format-check:
	@clang-format --dry-run --Werror $(FORMAT_FILES) && echo "format-check: all sources formatted"

clean:
	rm -rf $(BUILD)
