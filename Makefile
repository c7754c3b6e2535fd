# Veritrace: the everyday commands. Each one installs what is missing first.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=
PREFIX ?= /usr/local

.PHONY: all deps build run test test-asan install bench fuzz fuzz-smoke clean

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

# The libFuzzer targets (fuzz/*.cpp), with the core built for them; see fuzz/README.md.
FUZZ_TARGETS = $(basename $(notdir $(wildcard fuzz/*.cpp)))
FUZZ_SECONDS ?= 60

fuzz: deps
	cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ -DVERITRACE_TESTS=OFF -DVERITRACE_FUZZ=ON >/dev/null
	cmake --build build-fuzz -j $(JOBS)

# Each target for FUZZ_SECONDS from its seed corpus, with the options in fuzz/<target>.flags; any crash, leak, hang or sanitizer report
# fails. New inputs go to a scratch folder, so the corpus in the tree stays as committed.
fuzz-smoke: fuzz
	@set -e; for t in $(FUZZ_TARGETS); do \
		work=build-fuzz/smoke/$$t; rm -rf $$work; mkdir -p $$work/corpus $$work/artifacts; \
		dict=; if [ -f fuzz/$$t.dict ]; then dict=-dict=fuzz/$$t.dict; fi; \
		flags=; if [ -f fuzz/$$t.flags ]; then flags=$$(cat fuzz/$$t.flags); fi; \
		echo "fuzz-smoke: $$t for $(FUZZ_SECONDS) s"; \
		if ! build-fuzz/fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -timeout=10 -rss_limit_mb=2048 \
			-print_final_stats=1 -artifact_prefix=$$work/artifacts/ $$dict $$flags \
			$$work/corpus fuzz/corpus/$$t >$$work/log 2>&1; then \
			tail -n 60 $$work/log; echo "fuzz-smoke: $$t FAILED (input in $$work/artifacts)"; exit 1; \
		fi; \
		grep -E '^stat::number_of_executed_units|^#[0-9]+.*DONE' $$work/log | tail -n 2; \
	done; echo "fuzz-smoke: all targets clean"

clean:
	rm -rf build build-asan build-bench build-fuzz
