# Pendrino: the commands for building, running and testing.
#
#   make run     release build, then Pendrino in this terminal
#   make test    sanitizer build and every test, then the Windows cross-build
#                and its unit tests under wine
#   make bench   benchmarks
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

.PHONY: help run test test-native test-windows bench fuzz format format-check clean

help:
	@sed -n '3,9s/^# //p' Makefile

run:
	@$(INSTALLA) run
	cmake -S . -B build/release -DCMAKE_BUILD_TYPE=Release -DPENDRINO_TESTS=OFF
	cmake --build build/release -j$(JOBS) --target pendrino
	./build/release/pendrino

test:
	@$(INSTALLA) test
	@$(MAKE) test-native
	@$(MAKE) test-windows

test-native:
	@$(INSTALLA) test
	cmake -S . -B build/test -DCMAKE_BUILD_TYPE=Debug -DPENDRINO_SANITIZE=ON -DPENDRINO_WERROR=ON
	cmake --build build/test -j$(JOBS)
	ctest --test-dir build/test --output-on-failure --timeout 600

# Only the unit-test programs run under wine: a console program cannot be
# driven through a pipe there. One persistent wineserver serves every test;
# wineboot starts wine's own services with their output away from ctest,
# which would otherwise wait for them to close its pipes.
test-windows:
	@$(INSTALLA) test
	@if [ "$$(uname -s)" = Darwin ] && ! command -v wine >/dev/null; then \
	  echo "wine is not installed: Windows cross-build skipped"; exit 0; fi; \
	set -x; \
	cmake -S . -B build/windows --toolchain cmake/mingw-w64.cmake \
	  -DCMAKE_BUILD_TYPE=Release -DPENDRINO_WERROR=ON; \
	cmake --build build/windows -j$(JOBS); \
	mkdir -p build/wine; \
	$(WINE_AMBIENTE) wineserver -k 2>/dev/null || true; \
	$(WINE_AMBIENTE) wineserver -p; \
	$(WINE_AMBIENTE) wineboot --init </dev/null >build/wine/wineboot.log 2>&1; \
	stato=0; \
	$(WINE_AMBIENTE) ctest --test-dir build/windows --output-on-failure --timeout 600 || stato=$$?; \
	$(WINE_AMBIENTE) wineserver -k || true; \
	exit $$stato

bench:
	@$(INSTALLA) bench
	cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DPENDRINO_BENCH=ON -DPENDRINO_TESTS=OFF
	cmake --build build/bench -j$(JOBS) --target run_bench

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
