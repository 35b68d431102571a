# Thin wrapper over CMake: `make play` runs the game, `make test` runs the tests.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=
# Where `make install` puts the game; `sudo make install` for /usr/local.
PREFIX ?= /usr/local

.PHONY: all deps configure build play test format format-check bench clean starmap install uninstall screenshots

all: build

deps:
	@./scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

play: build
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

starmap: configure
	@cmake --build $(BUILD) --target starmap

FORMAT_FILES = $(shell git ls-files '*.cpp' '*.h')

format:
	@clang-format -i $(FORMAT_FILES)

format-check:
	@clang-format --dry-run --Werror $(FORMAT_FILES) && echo "format-check: all sources formatted"

clean:
	rm -rf $(BUILD)
