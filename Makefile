# The front door: `make run` to use the editor, `make test` to check it.
PACKAGES := qt6-base-dev qt6-svg-dev libzip-dev libdeflate-dev pkg-config cmake g++ make \
            xvfb xauth fonts-dejavu-core zip \
            clang libclang-rt-14-dev
JOBS     ?= $(shell nproc 2>/dev/null || echo 2)
SUDO     := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

RELEASE_DIR := build/release
DEBUG_DIR   := build/debug
BENCH_DIR   := build/bench
FUZZ_DIR    := build/fuzz
# Seconds of fuzzing per target; FUZZ_TARGETS names some (as in fuzz/corpus/), empty for all.
FUZZ_SECONDS ?= 60
FUZZ_TARGETS ?=

.PHONY: all deps build run test bench fuzz clean

all: build

# Installs only what is missing, so a second call is quick and quiet.
deps:
	@missing=""; \
	for p in $(PACKAGES); do \
	    dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	    echo "Installing:$$missing"; \
	    $(SUDO) apt-get update -qq && \
	    $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
	fi

build: deps
	cmake -S . -B $(RELEASE_DIR) -DCMAKE_BUILD_TYPE=Release -DTINTOREL_TESTS=OFF
	cmake --build $(RELEASE_DIR) -j $(JOBS)

run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	    echo "No display found. Start the editor in a virtual one with:"; \
	    echo "    xvfb-run -a $(RELEASE_DIR)/src/tintorel"; \
	else \
	    $(RELEASE_DIR)/src/tintorel; \
	fi

test: deps
	cmake -S . -B $(DEBUG_DIR) -DCMAKE_BUILD_TYPE=Debug -DTINTOREL_SANITIZE=ON -DTINTOREL_TESTS=ON \
	    -DTINTOREL_UPDATE_FEED=
	cmake --build $(DEBUG_DIR) -j $(JOBS)
	cd $(DEBUG_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BENCH_DIR) -DCMAKE_BUILD_TYPE=Release -DTINTOREL_TESTS=OFF -DTINTOREL_BENCH=ON
	cmake --build $(BENCH_DIR) -j $(JOBS)
	$(BENCH_DIR)/bench/tintorel_bench

# clang with libFuzzer, ASan and UBSan; Debug keeps Qt's own bounds checks.
fuzz: deps
	cmake -S . -B $(FUZZ_DIR) -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
	    -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" -DTINTOREL_FUZZ=ON
	cmake --build $(FUZZ_DIR) -j $(JOBS)
	FUZZ_SECONDS=$(FUZZ_SECONDS) fuzz/run $(FUZZ_DIR) $(FUZZ_TARGETS)

clean:
	rm -rf build
