#!/usr/bin/env bash
# Every check of the house: the house rules, all tests on the build that users run, then all again under the sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${kProgramPackages[@]}" "${kTestPackages[@]}"
jobs=$(nproc)

scripts/lint.sh

for preset in release asan; do
    echo "== $preset"
    build_preset "$preset"
    log=build/$preset/tests.log
    if ! ctest --preset "$preset" -j "$jobs" --no-label-summary >"$log" 2>&1; then
        grep -v ' Passed ' "$log" | grep -v '^ *Start ' >&2
        exit 1
    fi
    tail -n 3 "$log"
done
