# Nimbo's front door. `make run` builds and runs Nimbo, `make test` builds and runs the tests,
# `make bench` runs the benchmarks. Each installs the Debian packages it needs first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps configure build run test bench format

all: build

deps:
	@tools/install-deps

configure: deps
	@cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	@tools/run-nimbo $(BUILD)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	@bench/run $(BUILD)

format:
	@find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i
