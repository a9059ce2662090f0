#!/usr/bin/env bash
# Installs from Debian's packages what is missing to build and check the project.
#
#   scripts/bootstrap.sh [group...]      groups: build, check, fuzz, package, windows, wine, bench; without any: the first three
#
# Does nothing, and needs no rights, when everything is there. Otherwise it must
# run as root on a Debian or a system like it. The group "build" also fetches
# Debian's sources of pugixml into .cache/pugixml/, which needs no rights; where
# that fails the build takes the installed library.
set -euo pipefail

# group, package, and what tells that it is there: a command (where packages are Debian's only), a header, a file, or
# clang's fuzzer.
requirements() {
    cat <<'TABLE'
build g++                command:g++
build cmake              command:cmake
build ninja-build        command:ninja
build ccache             command:ccache
build libpugixml-dev     header:pugixml.hpp
build dpkg-dev           debian:dpkg-source
build libcli11-dev       header:CLI/CLI.hpp
build nlohmann-json3-dev header:nlohmann/json.hpp
build libgtest-dev       header:gtest/gtest.h
build libgmock-dev       header:gmock/gmock.h
check binutils           command:nm
check python3            command:python3
check clang-format       command:clang-format
check clang-tidy         command:run-clang-tidy
fuzz clang               command:clang++
fuzz libclang-rt-14-dev  fuzzer:
package dpkg-dev         command:dpkg-shlibdeps
package file             command:file
package help2man         command:help2man
package pkg-config       command:pkg-config
windows g++-mingw-w64-i686-posix command:i686-w64-mingw32-g++-posix
windows googletest       file:/usr/src/googletest/CMakeLists.txt
windows python3          command:python3
windows clang            command:clang++
wine debootstrap         command:debootstrap
bench libbenchmark-dev   header:benchmark/benchmark.h
TABLE
}

is_present() {
    case $1 in
        command:*) command -v "${1#command:}" >/dev/null ;;
        debian:*) ! command -v apt-get >/dev/null || command -v "${1#debian:}" >/dev/null ;;
        file:*) [[ -e ${1#file:} ]] ;;
        fuzzer:) compgen -G '/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a' >/dev/null ;;
        header:*) g++ -E -x c++ -include "${1#header:}" /dev/null >/dev/null 2>&1 ;;
    esac
}

install_packages() {
    if ! command -v apt-get >/dev/null; then
        echo "bootstrap: missing: $* (Debian's names); there is no apt-get to install them with" >&2
        return 1
    fi
    if ((EUID != 0)); then
        echo "bootstrap: missing: $*; install them, or run scripts/bootstrap.sh as root" >&2
        return 1
    fi
    echo "bootstrap: installing $*"
    export DEBIAN_FRONTEND=noninteractive
    if ! { apt-get update && apt-get install --yes --no-install-recommends "$@"; } >"$log" 2>&1; then
        tail -n 30 "$log" >&2
        echo "bootstrap: could not install $*" >&2
        return 1
    fi
}

# fetch_pugixml FOLDER: by apt, which checks sums and signature, with package lists of its own.
fetch_pugixml() (
    set -e
    mkdir -p "$(dirname "$1")"
    work=$(mktemp -d "$1.XXXXXX")
    trap 'rm -rf "$work"' EXIT
    chmod 755 "$work" # apt reads as a user of its own
    mkdir -p "$work/lists/partial" "$work/cache"
    mirror=$(bash "$here/debian-archive.sh")
    echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror bookworm main" >"$work/sources.list"
    apt=(timeout 120 apt-get -o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=/dev/null
        -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work/cache"
        -o APT::Update::Error-Mode=any -o Acquire::Retries=2 -o Acquire::http::Timeout=15
        -o Acquire::https::Timeout=15)
    "${apt[@]}" update
    cd "$work"
    "${apt[@]}" source pugixml
    [[ -e $1/src/pugixml.cpp ]] || mv -T "$work"/pugixml-*/ "$1" # another run may have been faster
)

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
log=$(mktemp)
trap 'rm -f "$log"' EXIT
groups=${*:-build check fuzz}
missing=()
while read -r group package probe; do
    if [[ " $groups " == *" $group "* ]] && ! is_present "$probe"; then
        missing+=("$package")
    fi
done < <(requirements)
((${#missing[@]} == 0)) || install_packages "${missing[@]}"

pugixml=$(dirname "$here")/.cache/pugixml
if [[ " $groups " == *" build "* && ! -e $pugixml/src/pugixml.cpp ]]; then
    set +e # errors end a function only outside of any condition
    fetch_pugixml "$pugixml" >"$log" 2>&1
    status=$?
    set -e
    ((status == 0)) || echo "bootstrap: could not fetch the sources of pugixml: $(grep -m 1 '^E: ' "$log" || tail -n 1 "$log")
bootstrap: going on with the installed library, with which a load takes twice the memory" >&2
fi
