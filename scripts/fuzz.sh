#!/usr/bin/env bash
# Fuzz campaigns with libFuzzer: builds build-fuzz with clang (every library instrumented, with ASan and
# UBSan) and runs each target on its corpus; the inputs that reach new code join fuzz/corpus/NAME,
# which the test command replays.
#   scripts/fuzz.sh [RUNS [TARGET...]]   RUNS per target, default 10000000; targets default to all
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-10000000}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(text numbers date like stored_values)

cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang \
    -DCMAKE_CXX_COMPILER=clang++ -DTOLVINPT_FUZZ=ON -DTOLVINPT_TESTS=OFF -DTOLVINPT_BENCH=OFF >/dev/null
cmake --build build-fuzz -j2 --target "${targets[@]/#/fuzz-}"

for target in "${targets[@]}"; do
    found=$(mktemp -d)
    echo "== $target: $runs runs"
    QT_QPA_PLATFORM=offscreen "build-fuzz/fuzz/fuzz-$target" -runs="$runs" -max_len=1024 -timeout=10 \
        -print_final_stats=1 "$found" "fuzz/corpus/$target" 2>&1 | grep -E '^(stat::number_of_executed_units|#[0-9]+ *DONE|==|SUMMARY|broken)' || true
    # Only what reaches new code is kept.
    "build-fuzz/fuzz/fuzz-$target" -merge=1 "fuzz/corpus/$target" "$found" 2>&1 | grep -E 'MERGE-OUTER: [0-9]+ new files' || true
    rm -rf "$found"
done
