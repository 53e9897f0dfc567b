# The front door. Every target installs what it needs (Debian packages) before it builds.
.DEFAULT_GOAL := help
.PHONY: help demo window test fuzz torture test-sanitize test-native test-windows test-dist windows linux install dist test-cluster reproducible bench coverage screenshots help-pictures report-pictures lint format check-format clean
.NOTPARALLEL: # the targets share folders, and each keeps all processors busy by itself

# What builds, natively; and with it what the native tests need: programs that read reports.
build_packages   := g++ make cmake ninja-build googletest libgtest-dev libgmock-dev libcli11-dev nlohmann-json3-dev
browser_packages := chromium chromium-driver python3-selenium fonts-liberation
native_packages  := $(build_packages) $(browser_packages) python3-jsonschema libxml2-utils
windows_packages := $(build_packages) g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
wine_packages    := $(windows_packages) wine wine64 xvfb openbox xdotool imagemagick x11-utils fonts-liberation
linux_packages   := $(build_packages) dpkg-dev file man-db
dist_packages    := $(wine_packages) $(linux_packages) git perl fp-utils nsis zip unzip
cluster_packages := $(build_packages) slurm-wlm munge parallel procps
bench_packages   := $(wine_packages) $(browser_packages) libbenchmark-dev python3 parallel ninja-build findutils
clang_packages   := clang-19 libclang-rt-19-dev
cover_packages   := $(native_packages) gcovr
fuzz_packages    := $(build_packages) $(clang_packages)
lint_packages    := $(windows_packages) libbenchmark-dev clang-format-19 clang-tidy-19

ensure := cmake/ensure-packages
sources = $(shell find src tests demo bench -name '*.cpp' -o -name '*.hpp')

help:
	@echo 'make demo         builds Tarnwick and runs it on the demo records'
	@echo 'make window       opens the window on the demo; with no display, leaves its pictures'
	@echo 'make test         builds everything and passes every test'
	@echo 'make test-native  the quick loop: the tests that need no Windows'
	@echo 'make windows      leaves build/windows/Tarnwick.exe'
	@echo 'make dist          leaves the packages for Windows and for Linux in build/dist/'
	@echo 'make install       installs tarnwick-run on this machine (PREFIX, DESTDIR)'
	@echo 'make bench | fuzz | torture | coverage | screenshots | lint | format | clean'

demo: windows
	@$(ensure) $(wine_packages)
	cmake --preset native
	cmake --build --preset native --target tarnwick-run mp cns
	@demo/run build

# With no display: on a virtual one, and build/screenshots/ shows every window.
window: windows
	@$(ensure) $(wine_packages)
	@if [ -n "$$DISPLAY" ]; then demo/run build window; \
	else tests/window/run.sh build/windows pictures; fi

windows:
	@$(ensure) $(windows_packages)
	cmake --preset windows
	cmake --build --preset windows

# tarnwick-run as it is packed: build/linux/src/app/runner/tarnwick-run.
linux:
	@$(ensure) $(linux_packages)
	cmake --preset linux
	cmake --build --preset linux

PREFIX ?= /usr/local
install: linux
	cmake --install build/linux --strip --prefix '$(PREFIX)'

test: check-format test-sanitize test-windows test-dist

test-sanitize:
	@$(ensure) $(native_packages) $(clang_packages)
	cmake --preset native-sanitize
	cmake --build --preset native-sanitize
	ctest --preset native-sanitize

test-native:
	@$(ensure) $(native_packages)
	cmake --preset native
	cmake --build --preset native
	ctest --preset native

test-windows: windows
	@$(ensure) $(wine_packages)
	cmake/on-virtual-screen ctest --preset windows

dist: windows linux
	@$(ensure) $(dist_packages)
	packaging/make-dist build

test-dist: dist
	cmake/on-virtual-screen tests/product/dist_test.sh build
	tests/product/linux_dist_test.sh build

# Daemons of a cluster on this machine, as root, and therefore no part of `make test`.
as_root := $(if $(filter 0,$(shell id -u)),,sudo)
test-cluster:
	@$(ensure) $(cluster_packages)
	cmake --preset native
	cmake --build --preset native --target tarnwick-run
	$(as_root) tests/cluster/cluster_test.sh build build/native/src/app/runner/tarnwick-run

# Builds everything once more, elsewhere: minutes, and therefore no part of `make test`.
reproducible: dist
	packaging/check-reproducible build

bench:
	@$(ensure) $(bench_packages)
	cmake --preset native -D TARNWICK_BENCHMARKS=ON
	cmake --build --preset native --target engine_bench links_bench tarnwick-run small_tool make_report slow_files
	build/native/bench/engine_bench
	build/native/bench/links_bench
	bench/runner_bench.py build/native/src/app/runner/tarnwick-run build/native/bench/small_tool
	bench/report_bench.py build/native/tests/browser/make_report build/native/src/app/runner/tarnwick-run
	cmake --preset windows -D TARNWICK_BENCHMARKS=ON
	cmake --build --preset windows
	cmake/on-virtual-screen bench/run-windows build

# Every fuzz target for that many seconds: make fuzz SECONDS=600
SECONDS ?= 60
fuzz:
	@$(ensure) $(fuzz_packages)
	cmake --preset fuzz -D TARNWICK_FUZZ_SECONDS=$(SECONDS)
	cmake --build --preset fuzz --target fuzz

# Ends the real program in the middle of its work that many times: make torture ENDINGS=1000
ENDINGS ?= 200
torture: windows
	@$(ensure) $(wine_packages)
	TARNWICK_TORTURE=$(ENDINGS) cmake/on-virtual-screen ctest --preset windows -R 'torture_tests|console_runner_tests' --verbose

# The figure for the logic without windows; below 95 % of lines this fails.
coverage:
	@$(ensure) $(cover_packages)
	cmake --preset native-coverage
	cmake --build --preset native-coverage
	find build/native-coverage -name '*.gcda' -delete
	ctest --preset native-coverage --output-log build/native-coverage/ctest.log >/dev/null
	gcovr --root . --filter 'src/(common|definition|processing|postprocess)/' \
	  --exclude-throw-branches --fail-under-line 95 build/native-coverage

# The pictures of the manual are kept with its pages; this takes them anew.
help-pictures: windows report-pictures
	@$(ensure) $(wine_packages)
	tests/window/run.sh build/windows pictures
	for picture in docs/help/pictures/*.png; do cp build/screenshots/$$(basename $$picture) $$picture || exit 1; done

screenshots: windows report-pictures
	@$(ensure) $(wine_packages)
	tests/window/run.sh build/windows dialogs
	tests/window/run.sh build/windows controls
	tests/window/run.sh build/windows pictures
	tests/window/run.sh build/windows execute

report-pictures:
	@$(ensure) $(native_packages) imagemagick
	cmake --preset native
	cmake --build --preset native --target make_report tarnwick-run mp cns
	demo/run build natively build/report-demo >/dev/null
	/usr/bin/python3 -B tests/browser/pictures.py build/native/tests/browser/make_report build/report-demo/report.html build/screenshots

check-format:
	@$(ensure) clang-format-19
	@clang-format-19 --dry-run --Werror $(sources)

format:
	@$(ensure) clang-format-19
	@clang-format-19 -i $(sources)

lint: check-format
	@$(ensure) $(lint_packages)
	cmake/lint $(SINCE)

clean:
	rm -rf build
