# Veritrace: the everyday commands. Each one installs what is missing first.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=
PREFIX ?= /usr/local

.PHONY: all deps build run test test-asan install bench fuzz clean

all: build

deps:
	@bash tools/install-deps.sh

build: deps
	cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_FLAGS) >/dev/null
	cmake --build build -j $(JOBS)

run: build
	@if [ -x build/veritrace ]; then \
		build/veritrace $(ARGS); \
	else \
		build/veritrace-cli formulas -k '2x^2+S(x)' -k '~(x+1)' -k '3/4x'; \
	fi

# The whole suite, then again under AddressSanitizer and UndefinedBehaviorSanitizer.
test: build
	QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure
	$(MAKE) --no-print-directory test-asan

test-asan: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DVERITRACE_SANITIZE=ON $(CMAKE_FLAGS) >/dev/null
	cmake --build build-asan -j $(JOBS)
	QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
		ctest --test-dir build-asan --output-on-failure

# Installs the programs and their desktop files under PREFIX (DESTDIR for a staged install).
install: build
	cmake --install build --prefix "$(PREFIX)"

bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DVERITRACE_TESTS=OFF -DVERITRACE_BENCH=ON >/dev/null
	cmake --build build-bench -j $(JOBS) --target veritrace_bench
	QT_QPA_PLATFORM=offscreen build-bench/veritrace_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true $(BENCH_ARGS)

fuzz: deps
	cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ -DVERITRACE_TESTS=OFF -DVERITRACE_FUZZ=ON >/dev/null
	cmake --build build-fuzz -j $(JOBS)

clean:
	rm -rf build build-asan build-bench build-fuzz
