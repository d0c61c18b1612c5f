# Front door of the project. Every target installs what it needs first.
#   make demo           build the orv tool and show the library at work: a sample screen
#                       recording, automatic zoom on it, the project file read back
#   make deps           install the missing Debian packages
#   make test           build and run the unit tests
#   make test-sanitize  the same under AddressSanitizer + UndefinedBehaviorSanitizer,
#                       and the lock tests under ThreadSanitizer
#   make soak           10,000 random command sequences of up to 60 steps under
#                       AddressSanitizer + UndefinedBehaviorSanitizer
#   make bench          build and run the benchmarks, ending with a table of the
#                       ratios at scale (load, save, memory, edits) and their targets
#   make consumer       install into a staging tree and build tests/consumer against it,
#                       once through CMake and once through pkg-config
#   make install        install into PREFIX (default /usr/local)
#   make bench-python   the cost of a call from Python: key frames added from C++
#                       and from the Python module
#   make fuzz           build the libFuzzer harnesses of the project reader and the
#                       screen metadata reader with clang, run each FUZZ_SECONDS (300)

JOBS      ?= $(shell nproc 2>/dev/null || echo 2)
BUILD     ?= build
ASAN_DIR  ?= build-asan
TSAN_DIR  ?= build-tsan
STAGE     ?= $(BUILD)/stage
PREFIX    ?= /usr/local
CMAKE_ARGS ?=

PACKAGES := g++ make cmake pkg-config \
	libboost-dev libboost-filesystem-dev libboost-date-time-dev \
	libexpat1-dev libavformat-dev libavcodec-dev libavutil-dev \
	libgtest-dev libgmock-dev libbenchmark-dev \
	pybind11-dev python3-dev python3-pytest

# Only `make fuzz` needs these.
FUZZ_PACKAGES := clang-14 libclang-rt-14-dev

SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: all deps build demo test test-sanitize test-asan test-tsan soak bench bench-python consumer install fuzz clean

all: build

# Installs those of the packages $(1) that are missing.
define install-missing
	@missing=""; \
	for p in $(1); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq --no-install-recommends $$missing; \
	fi
endef

deps:
	$(call install-missing,$(PACKAGES))

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORVMEDIALIB_WERROR=ON $(CMAKE_ARGS)

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

# The tool alone is built, so the demo needs no test framework; the three
# commands then take a few seconds.
ORV  := $(BUILD)/tools/orv/orv
DEMO := $(BUILD)/demo
demo: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS) --target orv
	rm -rf $(DEMO)
	$(ORV) sample $(DEMO)
	@# The file is summarised even when a check of the zoom failed; the
	@# demo fails with it all the same.
	@status=0; \
	  $(ORV) zoom $(DEMO)/sample.vdpak -o $(DEMO)/sample.orvproj --svg $(DEMO)/zoom.svg || status=$$?; \
	  $(ORV) info $(DEMO)/sample.orvproj || status=$$?; \
	  echo "Open $(DEMO)/zoom.svg in a browser to see the zooms."; \
	  exit $$status

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_DIR) -DCMAKE_BUILD_TYPE=Asan -DORVMEDIALIB_WERROR=ON \
	  -DORVMEDIALIB_BUILD_BENCHMARKS=OFF $(CMAKE_ARGS)
	cmake --build $(ASAN_DIR) -j $(JOBS)
	cd $(ASAN_DIR) && ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# The lock is the only concurrent part of the library: its tests carry the
# label "concurrency" and run under ThreadSanitizer.
test-tsan: deps
	cmake -S . -B $(TSAN_DIR) -DCMAKE_BUILD_TYPE=Tsan -DORVMEDIALIB_WERROR=ON \
	  -DORVMEDIALIB_FOUNDATION_ONLY=ON $(CMAKE_ARGS)
	cmake --build $(TSAN_DIR) -j $(JOBS)
	cd $(TSAN_DIR) && TSAN_OPTIONS=halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS) -R 'Concurrency'

test-sanitize: test-asan test-tsan

SOAK_SEQUENCES ?= 10000
SOAK_LENGTH    ?= 60

soak: deps
	cmake -S . -B $(ASAN_DIR) -DCMAKE_BUILD_TYPE=Asan -DORVMEDIALIB_WERROR=ON \
	  -DORVMEDIALIB_BUILD_BENCHMARKS=OFF $(CMAKE_ARGS)
	cmake --build $(ASAN_DIR) -j $(JOBS) --target project_tests
	ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ORV_MODEL_SEQUENCES=$(SOAK_SEQUENCES) ORV_MODEL_LENGTH=$(SOAK_LENGTH) \
	  $(ASAN_DIR)/tests/project_tests --gtest_filter='ModelRandomTest.*'

bench: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS) --target benchmarks
	@# The program at scale runs last: its table of ratios ends the output.
	@for b in $(BUILD)/bench/*_bench; do \
	  case $$b in */scale_bench) continue;; esac; \
	  echo "== $$b"; $$b --benchmark_min_time=0.2 || exit 1; \
	done
	@echo "== $(BUILD)/bench/scale_bench"; $(BUILD)/bench/scale_bench --benchmark_min_time=0.2

# The Python module is built for the system's interpreter, not the first on PATH.
bench-python: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS) --target orvmedialib_python keyframes_from_cpp_bench
	$(BUILD)/bench/keyframes_from_cpp_bench --benchmark_min_time=0.5
	PYTHONPATH=$(abspath $(BUILD))/python /usr/bin/python3 bench/keyframes_from_python.py

consumer: build
	cmake --install $(BUILD) --prefix $(abspath $(STAGE))
	cmake -S tests/consumer -B $(BUILD)/consumer -DCMAKE_PREFIX_PATH=$(abspath $(STAGE))
	cmake --build $(BUILD)/consumer -j $(JOBS)
	LD_LIBRARY_PATH=$(abspath $(STAGE))/lib $(BUILD)/consumer/consumer
	$(CXX) -o $(BUILD)/consumer/consumer-pc tests/consumer/main.cpp \
	  $$(PKG_CONFIG_PATH=$(abspath $(STAGE))/lib/pkgconfig pkg-config --cflags --libs orvmedialib)
	LD_LIBRARY_PATH=$(abspath $(STAGE))/lib $(BUILD)/consumer/consumer-pc > /dev/null

install: build
	cmake --install $(BUILD) --prefix $(abspath $(PREFIX))

# Each fuzzer runs FUZZ_SECONDS on one core at the lowest priority. Its corpus
# stays in $(FUZZ_DIR)/corpus/<name>, so that runs build on each other; the
# seeds (projects written by the library, metadata files) are written afresh
# each time. An input that fails lands in $(FUZZ_DIR)/artifacts/<name>/.
FUZZ_DIR     ?= build-fuzz
FUZZ_SECONDS ?= 300
FUZZ_ARGS    ?=
FUZZERS      := project_reader screen_metadata
fuzz: deps
	$(call install-missing,$(FUZZ_PACKAGES))
	cmake -S . -B $(FUZZ_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++-14 \
	  -DORVMEDIALIB_FUZZ=ON -DORVMEDIALIB_WERROR=ON -DBUILD_SHARED_LIBS=OFF \
	  -DORVMEDIALIB_BUILD_TESTS=OFF -DORVMEDIALIB_BUILD_BENCHMARKS=OFF -DORVMEDIALIB_INSTALL=OFF \
	  -DORVMEDIALIB_PYTHON=OFF $(CMAKE_ARGS)
	cmake --build $(FUZZ_DIR) -j $(JOBS) --target $(FUZZERS:%=%_fuzzer) fuzz_seeds
	$(FUZZ_DIR)/fuzz/fuzz_seeds tests/data $(FUZZ_DIR)/seeds/project_reader \
	  $(FUZZ_DIR)/seeds/screen_metadata
	@# The library's own messages (a range it drops) are silenced; sanitizer
	@# reports still reach the log. The time limit of an input is wall time: at
	@# the lowest priority on a busy machine an input of 0.5 s CPU can take 10 s.
	@status=0; \
	for f in $(FUZZERS); do \
	  mkdir -p $(FUZZ_DIR)/corpus/$$f $(FUZZ_DIR)/artifacts/$$f; \
	  echo "== $$f: $(FUZZ_SECONDS) s, log in $(FUZZ_DIR)/$$f.log"; \
	  nice -n 19 $(FUZZ_DIR)/fuzz/$${f}_fuzzer -max_total_time=$(FUZZ_SECONDS) -timeout=60 \
	    -report_slow_units=60 -close_fd_mask=3 -dict=fuzz/$$f.dict -print_final_stats=1 \
	    -artifact_prefix=$(FUZZ_DIR)/artifacts/$$f/ $(FUZZ_ARGS) \
	    $(FUZZ_DIR)/corpus/$$f $(FUZZ_DIR)/seeds/$$f > $(FUZZ_DIR)/$$f.log 2>&1 || status=1; \
	  grep -h 'stat::number_of_executed_units' $(FUZZ_DIR)/$$f.log | sed "s/^/   $$f /"; \
	  grep -h -A3 '^==.*ERROR\|^SUMMARY\|Test unit written' $(FUZZ_DIR)/$$f.log || true; \
	done; \
	exit $$status

clean:
	rm -rf $(BUILD) $(ASAN_DIR) $(TSAN_DIR) $(FUZZ_DIR)
