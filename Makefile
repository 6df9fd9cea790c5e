# Front door: make run | make test | make sanitize | make tsan | make bench
BUILD      ?= build
SAN_BUILD  ?= build-sanitize
TSAN_BUILD ?= build-tsan
JOBS       ?= $(shell nproc)
CMAKE_GEN  := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")

FUZZ_BUILD ?= build-fuzz
# Seconds each fuzz harness runs in make fuzz; FUZZ=<name> runs that harness alone.
FUZZ_SECONDS ?= 60

.PHONY: all deps build run test sanitize tsan bench fuzz format clean

all: build

deps:
	@./scripts/install-deps.sh

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -n "$$DISPLAY" ]; then \
		$(BUILD)/app/lumivar; \
	else \
		echo "No display (DISPLAY is not set): the window cannot open here."; \
		echo "Without a display use the command-line tool, for example:"; \
		echo "  $(BUILD)/cli/lumivar-cli calc examples/white_led.txt"; \
		echo; \
		$(BUILD)/cli/lumivar-cli calc examples/white_led.txt; \
	fi

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

sanitize: deps
	cmake -S . -B $(SAN_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DLUMIVAR_SANITIZE=ON
	cmake --build $(SAN_BUILD) -j $(JOBS)
	cd $(SAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
		ctest --output-on-failure -j $(JOBS)

# The thread sanitizer over the whole suite (engines, evaluators and workers on several threads).
tsan: deps
	cmake -S . -B $(TSAN_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DLUMIVAR_TSAN=ON
	cmake --build $(TSAN_BUILD) -j $(JOBS)
	cd $(TSAN_BUILD) && TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 \
		ctest --output-on-failure -j $(JOBS)

# The plot benchmarks draw into X images: without a display they run under a private one.
bench: build
	@for b in $(BUILD)/bench/bench_*; do echo "== $$b"; \
		if [ -z "$$DISPLAY" ]; then xvfb-run -a $$b --benchmark_min_time=0.5; \
		else $$b --benchmark_min_time=0.5; fi; done

# Every harness of fuzz/ under libFuzzer with the sanitizers, FUZZ_SECONDS each. The corpus grows
# in $(FUZZ_BUILD)/corpus/<name>, seeded from tests/data and the kept inputs; a crash is written
# to $(FUZZ_BUILD)/crash-<name>-*. Keep the inputs that found faults under tests/data/fuzz/<name>/.
fuzz:
	@./scripts/install-deps.sh fuzz
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLUMIVAR_FUZZ=ON
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzzers
	@for f in $(FUZZ_BUILD)/fuzz/fuzz_$(or $(FUZZ),*); do n=$${f##*/fuzz_}; mkdir -p $(FUZZ_BUILD)/corpus/$$n; \
		echo "== fuzz_$$n for $(FUZZ_SECONDS) s"; \
		$$f -max_total_time=$(FUZZ_SECONDS) -max_len=65536 -timeout=10 -rss_limit_mb=4096 \
			-artifact_prefix=$(FUZZ_BUILD)/crash-$$n- -print_final_stats=1 \
			$(FUZZ_BUILD)/corpus/$$n tests/data/fuzz/$$n || exit 1; done

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h' | grep -v '/data/')

clean:
	rm -rf $(BUILD) $(SAN_BUILD) $(TSAN_BUILD) $(FUZZ_BUILD)
