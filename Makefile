# Nimbo's front door. `make run` builds and runs Nimbo, `make test` builds and runs the tests,
# `make bench` runs the benchmarks. The reliability runs: `make fuzz` fuzzes every reader of
# outside bytes for FUZZ_RUNS executions each, `make soak` shows and hides a running Nimbo
# SOAK_CYCLES times and rescans it SOAK_RESCANS times, `make killtest` kills it KILL_ROUNDS times
# while its files change. Each installs the Debian packages it needs first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps configure build run test bench fuzz soak killtest format install package

FUZZ_RUNS ?= 1000000
# The short round that `make test` runs after the test suite.
FUZZ_SHORT_RUNS ?= 3000
SOAK_CYCLES ?= 10000
SOAK_RESCANS ?= 1000
KILL_ROUNDS ?= 1000
# A virtual desktop for the runs that need a running Nimbo: X server, window manager, session bus.
ON_DESKTOP = dbus-run-session -- xvfb-run --auto-servernum --server-args="-screen 0 1600x1000x24" \
	sh -c 'openbox >/dev/null 2>&1 & sleep 0.5; exec "$$0" "$$@"'

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

# PREFIX=/usr/local by default; DESTDIR works as usual.
PREFIX ?= /usr/local
install: build
	@cmake --install $(BUILD) --prefix $(PREFIX)

# A Debian package of the installed tree, in $(BUILD).
package: build
	@cmake --build $(BUILD) --target package

bench: build
	@bench/run $(BUILD)

fuzz: deps
	@tools/run-fuzz $(BUILD)-fuzz $(FUZZ_RUNS)

soak: build
	@$(ON_DESKTOP) tools/soak $(BUILD) $(SOAK_CYCLES) $(SOAK_RESCANS)

killtest: build
	@$(ON_DESKTOP) tools/killtest $(BUILD) $(KILL_ROUNDS)

format:
	@find src tests bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i
