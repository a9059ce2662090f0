#!/usr/bin/env bash
# Installs from Debian's packages what is missing to build and check the project.
#
#   scripts/bootstrap.sh [group...]      groups: build, check, fuzz, windows, wine, bench; without any: the first three
#
# Does nothing, and needs no rights, when everything is there. Otherwise it must
# run as root on a Debian or a system like it.
set -euo pipefail

# group, package, and what tells that it is there: a command, a header, a file, or clang's fuzzer.
requirements() {
    cat <<'TABLE'
build g++                command:g++
build cmake              command:cmake
build ninja-build        command:ninja
build ccache             command:ccache
build libpugixml-dev     header:pugixml.hpp
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
windows g++-mingw-w64-i686-posix command:i686-w64-mingw32-g++-posix
windows googletest       file:/usr/src/googletest/CMakeLists.txt
windows dpkg-dev         command:dpkg-source
windows python3          command:python3
windows clang            command:clang++
wine debootstrap         command:debootstrap
bench libbenchmark-dev   header:benchmark/benchmark.h
TABLE
}

is_present() {
    case $1 in
        command:*) command -v "${1#command:}" >/dev/null ;;
        file:*) [[ -e ${1#file:} ]] ;;
        fuzzer:) compgen -G '/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a' >/dev/null ;;
        header:*) g++ -E -x c++ -include "${1#header:}" /dev/null >/dev/null 2>&1 ;;
    esac
}

groups=${*:-build check fuzz}
missing=()
while read -r group package probe; do
    if [[ " $groups " == *" $group "* ]] && ! is_present "$probe"; then
        missing+=("$package")
    fi
done < <(requirements)

if ((${#missing[@]} == 0)); then
    exit 0
fi
if ! command -v apt-get >/dev/null; then
    echo "bootstrap: missing: ${missing[*]} (Debian's names); there is no apt-get to install them with" >&2
    exit 1
fi
if ((EUID != 0)); then
    echo "bootstrap: missing: ${missing[*]}; install them, or run scripts/bootstrap.sh as root" >&2
    exit 1
fi

echo "bootstrap: installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { apt-get update && apt-get install --yes --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    echo "bootstrap: could not install ${missing[*]}" >&2
    exit 1
fi
