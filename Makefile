# Pendrino: the commands for building, running and testing.
#
#   make run     release build, then Pendrino in this terminal
#   make test    sanitizer build and every test, then the Windows cross-build
#                and its unit tests under wine; ends with a summary that lists
#                every skipped test with its reason
#   make test-lungo  the long tests (a hundred games killed and taken up again)
#   make mutate  small deliberate bugs, one at a time: do the unit tests fail?
#   make bench   benchmarks
#   make soak    only the soak run of the game record (10,000 random games)
#   make fuzz    every fuzzer (clang), FUZZ_SECONDI=60 each
#   make format  clang-format on every source file (format-check: only list)
#   make clean   removes build/
#
# Every target first installs what it is missing (scripts/installa_dipendenze.sh).

SHELL := /bin/bash
.SHELLFLAGS := -eo pipefail -c
MAKEFLAGS += --no-print-directory
JOBS ?= 2
INSTALLA := scripts/installa_dipendenze.sh
SORGENTI := src tests tools bench fuzz
TROVA_SORGENTI := find $(wildcard $(SORGENTI)) \( -name '*.cpp' -o -name '*.h' \) -print0

# Homebrew keeps ncurses out of the default search paths.
ifeq ($(shell uname -s),Darwin)
  export PKG_CONFIG_PATH := $(shell brew --prefix ncurses 2>/dev/null)/lib/pkgconfig:$(PKG_CONFIG_PATH)
endif

export ASAN_OPTIONS := detect_leaks=1
export UBSAN_OPTIONS := print_stacktrace=1:halt_on_error=1
WINE_AMBIENTE := WINEPREFIX=$(CURDIR)/build/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="

.PHONY: help run test test-native test-windows test-lungo mutate bench soak fuzz format format-check clean

help:
	@sed -n '3,14s/^# //p' Makefile

# ctest's JUnit files feed the summary that ends every test target: runs,
# failures, and each skipped test with its reason (scripts/riassunto_test.py).
PYTHON_SISTEMA := $(firstword $(wildcard /usr/bin/python3) python3)
RIASSUNTO := $(PYTHON_SISTEMA) scripts/riassunto_test.py
JUNIT_NATIVO := $(CURDIR)/build/test/ctest-junit.xml
JUNIT_WINDOWS := $(CURDIR)/build/windows/ctest-junit.xml
# The Windows test programs that wine had to start twice (scripts/wine_riprova.sh).
RIPROVE_WINDOWS := $(JUNIT_WINDOWS).riprove

run:
	@$(INSTALLA) run
	cmake -S . -B build/release -DCMAKE_BUILD_TYPE=Release -DPENDRINO_TESTS=OFF
	cmake --build build/release -j$(JOBS) --target pendrino
	./build/release/pendrino

# The Windows build runs only after the native one passed; the summary comes
# last either way.
test:
	@$(INSTALLA) test
	@rm -f $(JUNIT_NATIVO) $(JUNIT_WINDOWS) $(JUNIT_WINDOWS).saltato $(RIPROVE_WINDOWS)
	@stato=0; \
	$(MAKE) test-native RIASSUNTO_FINALE= || stato=$$?; \
	if [ $$stato -eq 0 ]; then $(MAKE) test-windows RIASSUNTO_FINALE= || stato=$$?; fi; \
	$(RIASSUNTO) build/test=$(JUNIT_NATIVO) build/windows=$(JUNIT_WINDOWS); \
	exit $$stato

# Set empty by `make test`, which prints one summary for both builds.
RIASSUNTO_FINALE = 1

test-native:
	@$(INSTALLA) test
	cmake -S . -B build/test -DCMAKE_BUILD_TYPE=Debug -DPENDRINO_SANITIZE=ON -DPENDRINO_WERROR=ON
	cmake --build build/test -j$(JOBS)
	@rm -f $(JUNIT_NATIVO) $(JUNIT_NATIVO).saltato
	@stato=0; \
	ctest --test-dir build/test --output-on-failure --timeout 600 -LE lungo \
	  --output-junit $(JUNIT_NATIVO) || stato=$$?; \
	if [ -n "$(RIASSUNTO_FINALE)" ]; then $(RIASSUNTO) build/test=$(JUNIT_NATIVO); fi; \
	exit $$stato

# Only the unit-test programs run under wine: a console program cannot be
# driven through a pipe there. One persistent wineserver serves every test;
# wineboot starts wine's own services with their output away from ctest,
# which would otherwise wait for them to close its pipes.
test-windows:
	@$(INSTALLA) test
	@rm -f $(JUNIT_WINDOWS) $(JUNIT_WINDOWS).saltato $(RIPROVE_WINDOWS)
	@if [ "$$(uname -s)" = Darwin ] && ! command -v wine >/dev/null; then \
	  echo "wine is not installed: Windows cross-build skipped"; \
	  mkdir -p build/windows; \
	  echo "wine is not installed: Windows cross-build skipped" > $(JUNIT_WINDOWS).saltato; \
	  exit 0; fi; \
	set -x; \
	cmake -S . -B build/windows --toolchain cmake/mingw-w64.cmake \
	  -DCMAKE_BUILD_TYPE=Release -DPENDRINO_WERROR=ON; \
	cmake --build build/windows -j$(JOBS); \
	mkdir -p build/wine; \
	$(WINE_AMBIENTE) wineserver -k 2>/dev/null || true; \
	$(WINE_AMBIENTE) wineserver -p; \
	$(WINE_AMBIENTE) wineboot --init </dev/null >build/wine/wineboot.log 2>&1; \
	stato=0; \
	$(WINE_AMBIENTE) PENDRINO_RIPROVE=$(RIPROVE_WINDOWS) \
	  ctest --test-dir build/windows --output-on-failure --timeout 600 \
	  --output-junit $(JUNIT_WINDOWS) || stato=$$?; \
	$(WINE_AMBIENTE) wineserver -k || true; \
	{ set +x; } 2>/dev/null; \
	if [ -n "$(RIASSUNTO_FINALE)" ]; then $(RIASSUNTO) build/windows=$(JUNIT_WINDOWS); fi; \
	exit $$stato

# Not part of `make test`: the tests labelled lungo, on the sanitizer build.
test-lungo:
	@$(INSTALLA) test
	cmake -S . -B build/test -DCMAKE_BUILD_TYPE=Debug -DPENDRINO_SANITIZE=ON -DPENDRINO_WERROR=ON
	cmake --build build/test -j$(JOBS)
	ctest --test-dir build/test --output-on-failure -L lungo

# Not part of `make test`: a few minutes. Builds its own copy of the tree in
# build/mutazioni (without sanitizers) and reuses it from one run to the next.
mutate:
	@$(INSTALLA) test
	$(PYTHON_SISTEMA) scripts/mutazioni.py --jobs $(JOBS)

bench:
	@$(INSTALLA) bench
	cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DPENDRINO_BENCH=ON -DPENDRINO_TESTS=OFF
	cmake --build build/bench -j$(JOBS) --target run_bench

# The soak run alone; `make bench` runs it too.
soak:
	@$(INSTALLA) bench
	cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DPENDRINO_BENCH=ON -DPENDRINO_TESTS=OFF
	cmake --build build/bench -j$(JOBS) --target bench_rodaggio

# The fuzzers have their own build with clang; `make test` does not need it
# (the tests replay their corpora). FUZZ_SECONDI sets the length of each run.
FUZZ_SECONDI ?= 60
fuzz:
	@$(INSTALLA) fuzz
	cmake -S fuzz -B build/fuzz -DCMAKE_CXX_COMPILER=clang++-14 -DDURATA_FUZZ=$(FUZZ_SECONDI)
	cmake --build build/fuzz -j$(JOBS) --target fuzz_tutti

format:
	@$(INSTALLA) format
	$(TROVA_SORGENTI) | xargs -0 -r clang-format -i

format-check:
	@$(INSTALLA) format
	$(TROVA_SORGENTI) | xargs -0 -r clang-format --dry-run --Werror

clean:
	rm -rf build
