# Two commands: `make run` and `make test`. CMake with presets does the work underneath.
SHELL := /bin/sh
.DEFAULT_GOAL := build
.PHONY: build run test bench count count-update lint fuzz arm arm-kernel replay status clean deps test-asan test-valgrind format

JOBS ?= $(shell nproc)

deps:
	@cmake/deps.sh

build: deps
	@cmake --preset default >/dev/null
	@cmake --build build --parallel $(JOBS)

# Provisions the example access node on the model and shows it; on a terminal a prompt follows.
run: build
	@if [ -t 0 ] && [ -t 1 ]; then interactive=--interactive; fi; \
	    build/bin/ldsdk --echo --script examples/scripts/subscriber.ldsdk && \
	    build/bin/ldsdk --echo --script examples/scripts/access-node.ldsdk $$interactive

test: build arm replay
	@cmake/deps.sh kernel
	@cmake/deps.sh valgrind
	@ctest --test-dir build --output-on-failure --parallel $(JOBS)

# The same sources for 32-bit ARM: objects fit for a kernel module, and the unit tests as programs.
arm: deps
	@cmake --preset arm >/dev/null
	@cmake --build build/arm --parallel $(JOBS)

# The fuzzers as replays of their corpora, under sanitizers.
replay: deps
	@cmake --preset replay >/dev/null
	@cmake --build build/replay --parallel $(JOBS)

# The real module, loaded and driven in an emulated ARM machine (docs/kernel-module.md).
arm-kernel: build arm
	@cmake/deps.sh kernel
	@python3 cmake/arm_kernel.py . build build/arm build/kernel

bench: deps
	@cmake --preset bench >/dev/null
	@cmake --build build/bench --parallel $(JOBS)
	@build/bench/bin/ldsdk_bench
	@python3 cmake/text_size.py build/bench

# Instructions of each operation of bench/count.cpp beside those of bench/counts.txt, which
# count-update rewrites.
count count-update: deps
	@cmake/deps.sh valgrind
	@cmake --preset default >/dev/null
	@cmake --preset arm >/dev/null
	@cmake --build build --parallel $(JOBS) --target ldsdk_count
	@cmake --build build/arm --parallel $(JOBS) --target ldsdk_count
	@python3 cmake/count.py $(if $(filter count-update,$@),--update) build build/arm

lint: build
	@cmake/deps.sh lint
	@cmake/lint.sh build

format:
	@cmake/deps.sh lint
	@git ls-files '*.h' '*.cpp' '*.c' | xargs clang-format -i

# Each fuzzer for FUZZ_SECONDS. Inputs that found something new stay in build/fuzz/corpus.
FUZZ_SECONDS ?= 60
FUZZERS ?= $(shell sed -n 's/^set(FUZZERS \(.*\))/\1/p' fuzz/list.cmake)
fuzz:
	@cmake/deps.sh
	@cmake/deps.sh fuzz
	@cmake --preset fuzz >/dev/null
	@cmake --build build/fuzz --parallel $(JOBS)
	@for name in $(FUZZERS); do \
	    mkdir -p build/fuzz/corpus/$$name && \
	    dict=fuzz/$$name.dict; \
	    build/fuzz/bin/fuzz_$$name -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 -verbosity=0 \
	        $$([ -f $$dict ] && echo -dict=$$dict) build/fuzz/corpus/$$name fuzz/corpus/$$name || exit 1; \
	done

# Without the Python example: its interpreter can't host the sanitizers' runtime. The null checks of
# the undefined-behaviour sanitizer are off, since with them gcc takes no address for a constant.
test-asan: deps
	@cmake --preset asan >/dev/null
	@cmake --build build/asan --parallel $(JOBS)
	@build/asan/bin/ldsdk_tests --gtest_brief=1 --gtest_filter=-DoorPage.*
	@build/asan/bin/door_test_c

test-valgrind: build
	@cmake/deps.sh valgrind
	@valgrind -q --error-exitcode=1 --leak-check=full build/bin/ldsdk_tests

# The generated pages of docs/.
status: build
	@build/bin/ldsdk_status > docs/status.md
	@build/bin/ldsdk_commands > docs/commands.md

clean:
	@rm -rf build
