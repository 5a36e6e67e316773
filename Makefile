# The front door. The work is done by CMake (CMakePresets.json) and scripts/.
.DEFAULT_GOAL := help
JOBS ?= $(shell nproc)
BUILD := out/release

help: ## list the targets
	@grep -hE '^[a-z]+:.*##' $(MAKEFILE_LIST) | sed -E 's/:[^#]*## /\t/' | expand -t 12

setup: ## install every Debian package that the other targets take
	@scripts/setup packages.txt packages-test.txt packages-dev.txt

# The programs are built without looking for what only the tests take. A build folder that has the tests keeps them.
build: ## build both programs
	@scripts/setup packages.txt
	@test -f $(BUILD)/build.ninja || cmake --preset release -D ZB_TESTS=OFF
	cmake --build --preset release --target zbc zeltobench -j $(JOBS)

run: build ## open the example project, or build a copy of it where there is no display
	@scripts/run-example $(BUILD)

all: ## build both programs, all tests and the benchmarks
	@scripts/setup packages.txt packages-test.txt
	cmake --preset release
	cmake --build --preset release -j $(JOBS)

test: all ## build and run every test
	ctest --preset release -j $(JOBS) --timeout 600

display: all ## run every scenario by mouse, keyboard and clipboard on a display of its own
	ctest --preset release -R '^display\.' -j $(JOBS) --timeout 600

bench: all ## measure open, walks, edits on generated projects
	@scripts/bench $(BUILD)

attack: all ## attack zbc by kills, faults, hostile texts and sizes, in the long form
	@scripts/attack $(BUILD)

screenshots: all ## draw the pictures of the windows in docs/pictures
	@scripts/screenshots $(BUILD)

package: all ## make a Debian package of both programs in out/package
	cpack --config $(BUILD)/CPackConfig.cmake -G DEB -B out/package

lint: setup ## formatting and static analysis; fails on any finding
	@scripts/lint

asan: setup ## tests under the sanitizers, then a minute of each fuzzer
	cmake --preset asan
	cmake --build --preset asan -j $(JOBS)
	ZB_UNDO_SEQUENCES=10000 ctest --preset asan -j $(JOBS)
	@scripts/fuzz out/asan 60

clean: ## remove everything that was built
	rm -rf out

.PHONY: help setup build run all test display bench attack screenshots package lint asan clean
