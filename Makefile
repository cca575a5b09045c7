# Nimbo's front door. `make run` builds and runs Nimbo, `make test` builds and runs the tests,
# `make bench` runs the benchmarks. The reliability runs: `make sanitize` builds and runs the tests
# under AddressSanitizer and UndefinedBehaviorSanitizer, `make fuzz` fuzzes every reader of
# outside bytes for FUZZ_RUNS executions each, `make soak` shows and hides a running Nimbo
# SOAK_CYCLES times and rescans it SOAK_RESCANS times, `make killtest` kills it KILL_ROUNDS times
# while its files change. Each installs the Debian packages it needs first.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all deps configure build run test sanitize bench fuzz soak killtest format install package

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

# The test suite built with AddressSanitizer and UndefinedBehaviorSanitizer in a folder of its own
# (-O1 keeps it quick to build and to run). Any report stops the test it comes from and fails it.
# An allocation above 2 GB is a report too: no test needs one, and hostile input asks for them.
# LeakSanitizer is off: what it reports are widgets still alive when a test's application object
# goes (a poof mid-animation, top-level views a test keeps), all indirect, not Qt's own leaks that a
# suppressions file could name; turned on, it would fail tests for objects the running app frees.
SANITIZE_BUILD ?= build-sanitize
SANITIZERS = -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
CCACHE = $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
sanitize: deps
	@cmake -S . -B $(SANITIZE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
		-DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g" -DCMAKE_CXX_FLAGS="$(SANITIZERS)" \
		-DCMAKE_EXE_LINKER_FLAGS="$(SANITIZERS)" -DNIMBO_BENCHMARKS=OFF $(CCACHE) >/dev/null
	@cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	@cd $(SANITIZE_BUILD) && \
		ASAN_OPTIONS=detect_leaks=0:check_initialization_order=1:detect_stack_use_after_return=1:max_allocation_size_mb=2048 \
		UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
		ctest --output-on-failure -j $(JOBS)

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
