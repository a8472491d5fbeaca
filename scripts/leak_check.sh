#!/usr/bin/env bash
# LeakSanitizer on a long working session: builds build-asan (AddressSanitizer and UBSan, gcc) and runs
# the long session with leak detection. Leaks that belong to Qt's or fontconfig's own caches are
# suppressed by campaigns/lsan.supp, each with its reason; anything else fails the run.
#   scripts/leak_check.sh [CALLS [WARM_UP]]   default 300 calls after 30 warm-up calls
set -euo pipefail
cd "$(dirname "$0")/.."
calls=${1:-300}
warm_up=${2:-30}

launcher=()
if command -v ccache >/dev/null; then
    export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" \
    -DTOLVINPT_SANITIZE=ON -DTOLVINPT_BENCH=OFF >/dev/null
cmake --build build-asan -j2 --target tolvinpt-long-session

# Memory growth means nothing under AddressSanitizer's quarantine: the plain build measures it.
QT_QPA_PLATFORM=offscreen \
    ASAN_OPTIONS=detect_leaks=1 \
    LSAN_OPTIONS="suppressions=$PWD/campaigns/lsan.supp:print_suppressions=1" \
    build-asan/campaigns/tolvinpt-long-session "$calls" "$warm_up"
