# `make demo`, `make test`, `make bench`: each installs what is missing, configures its build tree
# once and then builds incrementally.
.PHONY: demo test bench fuzz deps

deps:
	@scripts/install-deps

build/dev/build.ninja: | deps
	cmake --preset dev

build/release/build.ninja: | deps
	cmake --preset release

# The whole flows run once more under the sellers' locale, whose decimal separator is ",".
test: deps build/dev/build.ninja
	cmake --build build/dev
	ctest --preset dev
	LANG=es_ES.UTF-8 LC_ALL=es_ES.UTF-8 ctest --preset dev -L e2e
	scripts/run-fuzz short

demo: deps build/release/build.ninja
	cmake --build build/release
	scripts/demo build/release

bench: deps build/release/build.ninja
	cmake --build build/release
	scripts/run-benchmarks build/release

# The .deb of the release tree's programs, written beside them in build/release.
.PHONY: package
package: deps build/release/build.ninja
	cmake --build build/release --target package

# Every reader of an outside party's XML under libFuzzer, FUZZ_SECONDS per target.
FUZZ_SECONDS ?= 300
fuzz: deps
	FUZZ_SECONDS=$(FUZZ_SECONDS) scripts/run-fuzz long
