# SPDX-License-Identifier: MIT
# Sets a Debian machine up and builds. Sourced by the scripts run and test, which set `root`.

# Who needs it, Debian package, why.
packages='
all   g++               the compiler
all   cmake             configures the build
all   ninja-build       runs it
all   ccache            makes a second clean build short
all   qtbase5-dev       Qt: headers, libraries, the meta-object compiler, xcb and offscreen platforms
all   libqt5svg5        the plug-ins with which Qt reads SVG icons
all   libboost-dev      Signals2 behind the signal service, headers only
all   fonts-dejavu-core a font with the degree, micro and superscript signs
run   qtwayland5        windows on a Wayland display that offers no X server
test  xvfb              the display of the window tests
test  openbox           the window manager of the window tests, for focus and activation
test  xdotool           the hands of the window tests
test  pkg-config        the package test builds an outside project with it
'

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "This step needs root or sudo: $*" >&2
        return 1
    fi
}

# Prints the packages that one of the given users ("all", "run", "test") needs, one a line.
packages_of() {
    local user package why
    while read -r user package why; do
        case " $* " in *" $user "*) echo "$package" ;; esac
    done <<<"$packages"
}

# Prints those of the packages read from the input that are not installed.
missing_packages() {
    local package
    while read -r package; do
        case " $(dpkg-query -W -f '${db:Status-Status} ' "$package" 2>/dev/null)" in
        *" installed "*) ;;
        *) echo "$package" ;;
        esac
    done
}

# Installs what the given users need and the machine lacks. Touches no network when nothing is missing.
install_packages() {
    local missing
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian machine; taking these as installed:" $(packages_of "$@") >&2
        return 0
    fi
    missing=$(packages_of "$@" | missing_packages)
    [ -z "$missing" ] && return 0
    echo "Installing:" $missing
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 update &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
            --no-install-recommends install $missing
}

# Configures the preset "release" and builds the given targets, or all.
build_release() {
    (
        cd "$root" && cmake --preset release --log-level=WARNING &&
            cmake --build --preset release ${1:+--target "$@"}
    )
}
