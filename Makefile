# The two commands of a fresh machine: `make run` and `make test`.
BUILD_DIR ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all bootstrap configure build run test bench clean

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

bench: build
	cmake --build $(BUILD_DIR) --target run_bench

clean:
	rm -rf $(BUILD_DIR)
