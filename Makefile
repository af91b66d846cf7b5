# Two entry points for a fresh Debian 12 machine:
#   make run   installs what is missing, builds in Release and starts velorin
#   make test  installs what is missing, builds and runs every test
# (plus the sanitizer build of the core tests, through the portable loops of
# the compiled formulas). And the Debian package:
#   make paquet  builds $(BUILD_PAQUET)/velorin_<version>_<arch>.deb with
#                Debian's compile and link flags, and checks it with lintian

BUILD      ?= build
BUILD_SAN  ?= build-san
BUILD_PAQUET ?= build-paquet
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

# The package is built apart, with the flags dpkg-buildflags gives a Debian
# package (hardening included: fortified functions, stack protector,
# immediate binding), without the tests, for the prefix /usr as Debian
# builds its packages (the window's module then goes to the private folder
# /usr/lib/<multiarch triplet>/velorin, which is none of ldconfig's). lintian
# then fails on any error or warning; the lines it keeps are explained in
# paquet/velorin.lintian-overrides.
paquet: PAQUETS += lintian
paquet: deps
	export DEB_BUILD_MAINT_OPTIONS=hardening=+all; \
	CXXFLAGS="$$(dpkg-buildflags --get CPPFLAGS) $$(dpkg-buildflags --get CXXFLAGS)" \
	LDFLAGS="$$(dpkg-buildflags --get LDFLAGS)" \
	cmake -S . -B $(BUILD_PAQUET) -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF -DCMAKE_INSTALL_PREFIX=/usr
	cmake --build $(BUILD_PAQUET) -j $(JOBS)
	rm -f $(BUILD_PAQUET)/velorin_*.deb
	cd $(BUILD_PAQUET) && cpack -G DEB
	lintian --info --fail-on error,warning $(BUILD_PAQUET)/velorin_*.deb

bench: PAQUETS += $(PAQUETS_BANC)
bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DVELORIN_BENCH=ON
	cmake --build build-bench -j $(JOBS)

# Screenshots of the window on a virtual screen, in captures/.
capture: PAQUETS += $(PAQUETS_CAPTURE)
capture: build
	bash scripts/capture_ecran.sh $(BUILD)/velorin captures

clean:
	rm -rf $(BUILD) $(BUILD_SAN) $(BUILD_PAQUET) build-bench
