# The two commands of a fresh machine: `make run` and `make test`.
BUILD_DIR ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all bootstrap configure build run test test-asan coverage fuzz bench clean

all: build

bootstrap:
	@scripts/bootstrap

$(BUILD_DIR)/build.ninja:
	cmake -S . -B $(BUILD_DIR) $(CMAKE_FLAGS)

configure: bootstrap $(BUILD_DIR)/build.ninja

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

# Only the program and what it links: tests and benchmarks wait for `make test`.
run: configure
	cmake --build $(BUILD_DIR) -j $(JOBS) --target ferrolith
	$(BUILD_DIR)/src/app/ferrolith

test: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer, in its
# own build folder. Any undefined behaviour stops the test that hit it. Leak
# checking is off: Qt's platform plugins keep allocations alive to exit.
ASAN_DIR ?= build-asan
ASAN_FLAGS = -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
test-asan: bootstrap
	cmake -S . -B $(ASAN_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFERROLITH_BUILD_BENCH=OFF \
		-DCMAKE_CXX_FLAGS="$(ASAN_FLAGS)" -DCMAKE_EXE_LINKER_FLAGS="$(ASAN_FLAGS)"
	cmake --build $(ASAN_DIR) -j $(JOBS)
	cd $(ASAN_DIR) && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 \
		UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --output-on-failure -j $(JOBS)

# Line coverage of the core library by the whole core suite (no windows),
# with gcov and lcov, in its own build folder. Prints the summary and
# leaves the per-file report in $(COV_DIR)/core.info.
COV_DIR ?= build-cov
coverage: bootstrap
	@command -v lcov >/dev/null || scripts/bootstrap --with lcov
	cmake -S . -B $(COV_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFERROLITH_BUILD_GUI=OFF \
		-DFERROLITH_BUILD_BENCH=OFF -DCMAKE_CXX_FLAGS="--coverage" -DCMAKE_EXE_LINKER_FLAGS="--coverage"
	cmake --build $(COV_DIR) -j $(JOBS)
	lcov -q --zerocounters -d $(COV_DIR)
	cd $(COV_DIR) && ctest -j $(JOBS) --output-on-failure
	lcov -q -c -d $(COV_DIR)/src/CMakeFiles/ferrolith_core.dir -o $(COV_DIR)/raw.info
	lcov -q --extract $(COV_DIR)/raw.info '*/src/*' -o $(COV_DIR)/core.info
	lcov --summary $(COV_DIR)/core.info

# libFuzzer on each file reader for FUZZ_SECONDS each (needs clang and
# libclang-rt-dev; the ordinary build replays the committed seeds instead).
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_TARGETS = fuzz_wld fuzz_bolt_data fuzz_calc_mem fuzz_sdf_input fuzz_dxf
fuzz:
	cmake -S . -B $(FUZZ_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
		-DFERROLITH_FUZZ=ON -DFERROLITH_BUILD_GUI=OFF \
		-DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined"
	cmake --build $(FUZZ_DIR) -j $(JOBS)
	for t in $(FUZZ_TARGETS); do \
		mkdir -p $(FUZZ_DIR)/corpus/$$t && \
		$(FUZZ_DIR)/tests/fuzz/$$t -max_total_time=$(FUZZ_SECONDS) -max_len=65536 \
			$(FUZZ_DIR)/corpus/$$t tests/fuzz/corpus/$$t || exit 1; \
	done

bench: build
	cmake --build $(BUILD_DIR) --target run_bench

clean:
	rm -rf $(BUILD_DIR) $(ASAN_DIR) $(COV_DIR) $(FUZZ_DIR)
