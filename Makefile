# Two entry points for a fresh Debian 12 machine:
#   make run   installs what is missing, builds in Release and starts velorin
#   make test  installs what is missing, builds and runs every test
# (plus the sanitizer build of the core tests, through the portable loops of
# the compiled formulas). And the Debian package:
#   make paquet  builds $(BUILD)/velorin_<version>_<arch>.deb

BUILD      ?= build
BUILD_SAN  ?= build-san
JOBS       ?= $(shell nproc)
SUDO       := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

PAQUETS := cmake g++ make pkg-config qt6-base-dev qt6-svg-dev qt6-translations-l10n \
           libgtest-dev libgmock-dev libgif-dev desktop-file-utils appstream dpkg-dev
# Only the benchmarks (bench/) and the screenshot script need these.
PAQUETS_BANC    := libbenchmark-dev libmuparser-dev
PAQUETS_CAPTURE := xvfb xauth xdotool imagemagick
# The tests compile the TikZ pictures and read their text back.
PAQUETS_ESSAI   := texlive-latex-base texlive-pictures poppler-utils
# A package is missing when dpkg does not report it installed.
MANQUANTS = $(shell for p in $(PAQUETS); do dpkg-query -W -f='$${Status}\n' $$p 2>/dev/null | grep -q 'install ok installed' || echo $$p; done)

.PHONY: deps build run test paquet bench capture clean

deps:
	@m="$(MANQUANTS)"; if [ -n "$$m" ]; then \
	  echo "Installation de : $$m"; \
	  $(SUDO) apt-get update && DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y $$m; \
	fi

build: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  $(BUILD)/velorin; \
	else \
	  echo "Pas d'écran (ni DISPLAY ni WAYLAND_DISPLAY) : travail sans fenêtre."; \
	  $(BUILD)/velorin sansfenetre; \
	fi

test: PAQUETS += $(PAQUETS_ESSAI)
test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)
	cmake -S . -B $(BUILD_SAN) -DCMAKE_BUILD_TYPE=Debug -DVELORIN_SANITIZE=ON -DVELORIN_PORTABLE=ON
	cmake --build $(BUILD_SAN) -j $(JOBS) --target core_tests
	cd $(BUILD_SAN) && ctest --output-on-failure -j $(JOBS)

paquet: build
	cd $(BUILD) && cpack -G DEB

bench: PAQUETS += $(PAQUETS_BANC)
bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DVELORIN_BENCH=ON
	cmake --build build-bench -j $(JOBS)

# Screenshots of the window on a virtual screen, in captures/.
capture: PAQUETS += $(PAQUETS_CAPTURE)
capture: build
	bash scripts/capture_ecran.sh $(BUILD)/velorin captures

clean:
	rm -rf $(BUILD) $(BUILD_SAN) build-bench
