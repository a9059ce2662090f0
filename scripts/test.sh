#!/usr/bin/env bash
# Checks and tests everything, from the format of the sources to the threads of
# the library, and ends with the line "N passed, N failed". Logs: build/logs/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

bash scripts/bootstrap.sh
mkdir -p build/logs

jobs=$(nproc)
passed=0
failed=0 # tests that failed, and every other step that did

# Runs a step with its output in a log; shows the log's end when the step fails.
step() {
    local name=$1 log=build/logs/${1// /-}.log start=$SECONDS
    shift
    if "$@" >"$log" 2>&1; then
        echo "ok      $name ($((SECONDS - start)) s)"
        return 0
    fi
    echo "FAILED  $name ($((SECONDS - start)) s), from $log:"
    tail -n 60 "$log" | sed 's/^/    /'
    failed=$((failed + 1))
    return 1
}

sources() {
    find . \( -path ./build -o -path ./.cache -o -path ./.git \) -prune -o \
        -type f \( -name '*.h' -o -name '*.cpp' \) -print0
}

check_format() {
    sources | xargs -0 clang-format --dry-run -Werror
}

# build PRESET [TARGET...]: configures and builds; warnings are errors in every preset.
build() {
    local preset=$1
    shift
    cmake --preset "$preset" -DSYMBKDS_TESTS=ON &&
        cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"}
}

# Adds up a run's report: tests passed, tests failed (or found without their program), all tests.
count_results() {
    python3 - "$1" <<'PYTHON'
import sys
import xml.etree.ElementTree as xml

cases = list(xml.parse(sys.argv[1]).getroot().iter("testcase"))
passed = failed = 0
for case in cases:
    skipped = case.find("skipped")
    if case.get("status") == "run":
        passed += 1
    elif case.get("status") == "disabled" or (skipped is not None and skipped.get("message", "").startswith("SKIP_")):
        print("        skipped:", case.get("name"), file=sys.stderr)
    else:
        failed += 1
print(passed, failed, len(cases))
PYTHON
}

# run_tests PRESET [ctest options]: a run that reports no test counts as a failure.
run_tests() {
    local preset=$1 report=$PWD/build/logs/$1-tests.xml start=$SECONDS counts good bad all
    shift
    rm -f "$report"
    ctest --preset "$preset" --output-junit "$report" "$@" >"build/logs/$preset-tests.log" 2>&1 || true
    if ! counts=$(count_results "$report") || ! read -r good bad all <<<"$counts" || ((all == 0)); then
        echo "FAILED  $preset tests: the run reported no test"
        tail -n 20 "build/logs/$preset-tests.log" | sed 's/^/    /'
        failed=$((failed + 1))
        return
    fi
    passed=$((passed + good))
    failed=$((failed + bad))
    if ((bad)); then
        echo "FAILED  $preset tests: $bad of $all ($((SECONDS - start)) s), from build/logs/$preset-tests.log:"
        grep -vE '^ *[0-9]+/[0-9]+ Test .* Passed |^ +Start ' "build/logs/$preset-tests.log" | tail -n 80 | sed 's/^/    /'
    else
        echo "ok      $preset tests: $good of $all passed ($((SECONDS - start)) s)"
    fi
}

# run_script SCRIPT: a script that counts its tests in its last line.
run_script() {
    local name log start=$SECONDS status=0
    name=$(basename "$1" .sh)
    log=build/logs/$name.log
    bash "$1" >"$log" 2>&1 || status=$?
    if [[ $(tail -n 1 "$log") =~ ([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]] && ((status == 0 || BASH_REMATCH[2] > 0)); then
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
    else
        status=1
        failed=$((failed + 1))
    fi
    if ((status == 0)); then
        echo "ok      $name: ${BASH_REMATCH[1]} passed ($((SECONDS - start)) s)"
    else
        echo "FAILED  $name ($((SECONDS - start)) s), from $log:"
        tail -n 60 "$log" | sed 's/^/    /'
    fi
}

# The project's own sources; the tests are held to the compiler's warnings alone, some of which clang does not know.
check_tidy() {
    run-clang-tidy -quiet -j "$jobs" -p build/release -extra-arg=-Wno-unknown-warning-option \
        "^$PWD/(platform|symbtables|korvaproservices|symbhost)/.*"
}

step "format" check_format || true
step "includes" python3 scripts/check-includes.py || true

if step "asan build" build asan; then
    run_tests asan
fi
if step "tsan build" build tsan; then
    run_tests tsan --tests-regex Threads
fi
# Allocations that fail, and a run of a minute: without the sanitizers, which have an allocator of their own.
if step "dev build" build dev faults_tests; then
    SYMBKDS_LONG_RUN=60 run_tests dev --tests-regex Faults
fi
if step "release build" build release symbkds symbhost; then
    run_tests release --tests-regex ExportTable
    step "clang-tidy" check_tidy || true
fi
run_script scripts/test-install.sh

# The inputs kept for the fuzzers, and a minute of random ones for each.
step "fuzzers" bash scripts/fuzz.sh 60 || true

echo "$passed passed, $failed failed"
((failed == 0))
