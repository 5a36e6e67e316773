# The front door. The work is done by CMake (CMakePresets.json) and scripts/.
.DEFAULT_GOAL := help
JOBS ?= $(shell nproc)
BUILD := out/release

help: ## list the targets
	@grep -hE '^[a-z]+:.*##' $(MAKEFILE_LIST) | sed -E 's/:[^#]*## /\t/' | expand -t 12

setup: ## install the Debian packages of packages.txt that are missing
	@scripts/setup

$(BUILD)/build.ninja: | setup
	cmake --preset release

build: setup $(BUILD)/build.ninja ## build both programs and all tests
	cmake --build --preset release -j $(JOBS)

run: build ## open the example project, or build a copy of it where there is no display
	@scripts/run-example $(BUILD)

test: build ## build and run every test
	ctest --preset release -j $(JOBS) --timeout 600

bench: build ## measure open, walks, edits on generated projects
	@scripts/bench $(BUILD)

screenshots: build ## draw the pictures of the windows in docs/pictures
	@scripts/screenshots $(BUILD)

package: build ## make a Debian package of both programs in out/package
	cpack --config $(BUILD)/CPackConfig.cmake -G DEB -B out/package

lint: setup ## formatting and static analysis; fails on any finding
	@scripts/lint

asan: setup ## tests under the sanitizers, then a minute of each fuzzer
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	ctest --preset asan -j $(JOBS) --timeout 1200
	@scripts/fuzz out/asan 60

clean: ## remove everything that was built
	rm -rf out

.PHONY: help setup build run test bench screenshots package lint asan clean
