# A front door to CMake. On a bare Debian 12, `make demo` and `make test` install what they need.
.DEFAULT_GOAL := build

# The font is for names in Chinese, as pictures of screens show them.
PACKAGES := g++ cmake ninja-build pkg-config qtbase5-dev librapidxml-dev libgtest-dev libgmock-dev fonts-droid-fallback
BENCH_PACKAGES := libbenchmark-dev rapidjson-dev libsimdjson-dev nlohmann-json3-dev libxcvt-dev
CHECK_PACKAGES := clang clang-tidy clang-format libclang-rt-14-dev edid-decode libxml2-utils qttools5-dev-tools
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
JOBS ?= $(shell nproc)
export QT_QPA_PLATFORM ?= offscreen

# install(packages): only what is missing, so that a machine without a network works once it is set up.
define install
@missing=$$(for p in $(1); do dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || echo $$p; done); \
if [ -n "$$missing" ]; then $(SUDO) apt-get update -qq && \
	$(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; fi
endef

.PHONY: build demo test bench check tidy deps bench-deps check-deps clean

deps:
	$(call install,$(PACKAGES))
bench-deps: deps
	$(call install,$(BENCH_PACKAGES))
check-deps: bench-deps
	$(call install,$(CHECK_PACKAGES))

build: deps
	cmake --preset default
	cmake --build --preset default -j $(JOBS)

demo: build
	build/default/bin/quorixctl demo -o build/wall.png

test: build
	ctest --preset default -j $(JOBS)

bench: bench-deps
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	@for b in build/release/bin/bench_*; do echo "== $$b"; $$b; done

check: check-deps
	cmake/check.sh

tidy: check-deps
	TIDY_BASE=all TIDY_DEEP=1 cmake/tidy.sh

clean:
	rm -rf build
