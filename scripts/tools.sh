# shellcheck shell=bash
# Sourced by the other scripts: `need PACKAGE...` installs with apt-get those of the Debian
# packages that are missing. Where nothing is missing it costs nothing and asks nobody.

# What shows that a package is there: a program on the path, or a file.
declare -A proofOf=(
    [chromium]=chromium
    [clang]=clang++
    [clang-format]=clang-format
    [clang-tidy]=clang-tidy
    [cmake]=cmake
    [doxygen]=doxygen
    [firefox-esr]=firefox-esr
    [fonts-dejavu-core]=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
    [g++]=g++
    [g++-mingw-w64-x86-64-posix]=x86_64-w64-mingw32-g++-posix
    [gcovr]=gcovr
    [googletest]=/usr/src/googletest/CMakeLists.txt
    [librsvg2-bin]=rsvg-convert
    [icoutils]=icotool
    [libxml2-utils]=xmllint
    [locales]=/usr/share/i18n/locales/de_DE
    [make]=make
    [libbenchmark-dev]=/usr/include/benchmark/benchmark.h
    [mono-mcs]=mcs
    [mono-runtime]=mono
    [ninja-build]=ninja
    [nodejs]=node
    [npm]=npm
    [optipng]=optipng
    [python3]=python3
    [shellcheck]=shellcheck
    [wine64]=/usr/lib/wine/wine64
    [dpkg-dev]=dpkg-scanpackages
    [faketime]=faketime
    [msitools]=msibuild
    [wixl]=wixl
    [xz-utils]=xz
    [zip]=zip
    [binutils]=objcopy
    [lintian]=lintian
    [osslsigncode]=osslsigncode
    [xvfb]=Xvfb
)

# isThere PACKAGE
isThere()
{
    local proof=${proofOf[$1]:-}
    case $proof in
        "") dpkg -s "$1" 2>/dev/null | grep -q '^Status: install ok installed' ;;
        /*) [ -e "$proof" ] ;;
        *) command -v "$proof" >/dev/null ;;
    esac
}

# asRoot COMMAND...
asRoot()
{
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "To install what is missing, run this as root or install sudo: $*" >&2
        return 1
    fi
}

# need PACKAGE...
need()
{
    local package missing=()
    for package in "$@"; do
        isThere "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    echo "Installing: ${missing[*]}"
    # The lists on a new machine are often older than the packages that they name.
    asRoot apt-get update -q || return 1
    asRoot env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}" || return 1
    for package in "${missing[@]}"; do
        if ! isThere "$package"; then
            echo "Package $package was installed, but ${proofOf[$package]:-it} is not there." >&2
            return 1
        fi
    done
}
