# Nimbo's front door. `make run` builds and runs Nimbo, `make test` builds and runs the tests,
# `make bench` runs the benchmarks, `make fuzz` fuzzes every reader of outside bytes for FUZZ_RUNS
# executions each. Each installs the Debian packages it needs first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps configure build run test bench fuzz format

FUZZ_RUNS ?= 1000000
# The short round that `make test` runs after the test suite.
FUZZ_SHORT_RUNS ?= 3000

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
	@tools/run-fuzz $(BUILD)-fuzz $(FUZZ_SHORT_RUNS)

bench: build
	@bench/run $(BUILD)

fuzz: deps
	@tools/run-fuzz $(BUILD)-fuzz $(FUZZ_RUNS)

format:
	@find src tests bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i
