# The day's work in short words; CMakePresets.json has the rest.
PREFIX ?= /usr/local
JOBS ?= $(shell nproc)
EDITS ?= 20
MEMORY ?= 101
INPUTS ?= 10
FUZZ ?= 60
BUILD := build/release

.DEFAULT_GOAL := help
.PHONY: help setup build program libraries python wheel test browser asan edits attack demo bench pages docs format format-check lint abi abi-baseline install clean

help: ## this list
	@awk -F ':.*## ' '/^[a-z-]+:.*## / {printf "make %-13s %s\n", $$1, $$2}' $(MAKEFILE_LIST)

setup: ## install the Debian packages that are missing
	@cmake/setup.sh

program: setup ## the library and the program gattr, in build/release
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS) --target gattr

libraries: setup
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS) --target gattr_session

build: setup ## library, tools, Python module, tests and benchmarks, in build/release
	@cmake/setup.sh python
	@cmake --preset release -DGATTR_PYTHON=ON >/dev/null
	@cmake --build --preset release -j $(JOBS)

python: setup ## the Python module gattr, in build/release/python
	@cmake/setup.sh python
	@cmake --preset release -DGATTR_PYTHON=ON >/dev/null
	@cmake --build --preset release -j $(JOBS) --target python

wheel: python ## the module with its libraries as a wheel, in build/release/wheel; fetches nothing
	@cmake --build --preset release -j $(JOBS) --target wheel

test: build ## build and run all tests
	@ctest --preset release -j $(JOBS)

browser: program ## what `gattr report` writes, in a headless browser
	@cmake/setup.sh browser
	@GATTR_PROGRAM=$(CURDIR)/$(BUILD)/bin/gattr /usr/bin/python3 -B tests/browser/test_report.py

asan: setup ## the same but for the Python module under the address and undefined-behaviour sanitizers
	@cmake/setup.sh python
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan -j $(JOBS)
	@ctest --preset asan -j $(JOBS)

edits: setup ## a million random edits of histories under the sanitizers
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan -j $(JOBS) --target test_module
	@GATTR_EDITS=$(EDITS) build/asan/bin/test_module --gtest_filter='*Histories*' --gtest_brief=1

attack: setup ## files under attack: failing calls, kills, input of any kind, threads (docs/attack.md); takes many minutes
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS) --target test_attack
	@GATTR_ATTACK=1,$(MEMORY) GATTR_INPUTS=$(INPUTS) $(BUILD)/bin/test_attack --gtest_brief=1
	@cmake/setup.sh fuzz
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz -j $(JOBS)
	@cmake/fuzz.sh $(FUZZ)
	@cmake --preset tsan >/dev/null
	@cmake --build --preset tsan -j $(JOBS)
	@build/tsan/bin/test_platform --gtest_brief=1
	@build/tsan/bin/test_attack --gtest_filter='*Threads*' --gtest_brief=1

demo: program ## replay an example, print its histories, leave a model file
	@PATH="$(CURDIR)/$(BUILD)/bin:$$PATH" examples/demo.sh

bench: build ## run the benchmarks; BENCH_ARGS goes to each
	@for program in $(BUILD)/bin/bench_*; do echo "$${program##*/}"; "$$program" $(BENCH_ARGS) || exit 1; done
	@cmake/setup.sh browser
	@echo "a report in a browser"; GATTR_PROGRAM=$(CURDIR)/$(BUILD)/bin/gattr /usr/bin/python3 -B benchmarks/report.py
	@echo "the Python module"; PYTHONPATH=$(BUILD)/python /usr/bin/python3 -P benchmarks/module.py

pages: setup ## write what the library says of itself into the pages of docs/
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS) --target test_report
	@GATTR_WRITE_DOCS=1 $(BUILD)/bin/test_report --gtest_filter='*Pages*' --gtest_brief=1
	@git diff --stat -- docs

docs: ## the public headers as pages, in build/docs; a warning is an error
	@cmake/setup.sh checks
	@mkdir -p build/docs
	@doxygen docs/Doxyfile && echo "docs: build/docs/html/index.html"

format: ## write all sources in the house's format
	@cmake/setup.sh checks
	@cmake/sources.sh | xargs clang-format -i

format-check: ## refuse what `make format` would change
	@cmake/setup.sh checks
	@cmake/sources.sh | xargs clang-format --dry-run -Werror && echo "format: clean"

lint: setup ## clang-tidy, include directions, headers that compile alone
	@cmake/setup.sh checks
	@cmake/setup.sh python
	@cmake/layers.sh
	@cmake --preset release -DGATTR_PYTHON=ON >/dev/null
	@cmake --build --preset release -j $(JOBS) --target all_verify_interface_header_sets
	@JOBS=$(JOBS) cmake/tidy.sh $(BUILD)

abi: libraries ## compare what the libraries export with the baseline in cmake/abi (docs/versions.md)
	@cmake/setup.sh abi
	@cmake/abi.sh check $(BUILD)

abi-baseline: libraries ## write that baseline
	@cmake/setup.sh abi
	@cmake/abi.sh write $(BUILD)

install: program libraries ## install under PREFIX (/usr/local)
	@cmake --install $(BUILD) --prefix $(PREFIX)

clean: ## remove build/
	@rm -rf build
