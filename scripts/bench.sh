#!/usr/bin/env bash
# Measures the library beside floors measured in the same run and ends with the
# table of targets; a few minutes. Arguments go to the benchmark program:
#
#   scripts/bench.sh --benchmark_filter='^Lookup/'
#
# The generated projects (some 500 MB) are deleted afterwards.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

bash scripts/bootstrap.sh build bench
mkdir -p build/logs
if ! { cmake --preset release -DSYMBKDS_BENCH=ON &&
    cmake --build --preset release --parallel "$(nproc)" --target symbkds_bench; } >build/logs/bench-build.log 2>&1; then
    tail -n 30 build/logs/bench-build.log
    exit 1
fi

TMPDIR=$(mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
timeout 900 build/release/bin/symbkds_bench "$@"
