#!/usr/bin/env bash
# Set-up, build, run and test on a Debian 12 machine.
#   scripts/dev.sh run  [-- host options]   install what is missing, build, start tolvinpt-host
#   scripts/dev.sh test [--sanitize]        install what is missing, build, run every test
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(g++ cmake ninja-build pkg-config qt6-base-dev libqt6sql6-sqlite libicu-dev libsqlite3-dev
          googletest libgtest-dev libbenchmark-dev fonts-noto-cjk poppler-utils
          postgresql-15 postgresql-common libpq-dev libqt6sql6-psql)

install_missing() {
    local missing=()
    for p in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
}

build() { # build <dir> <cmake options...>
    local dir=$1; shift
    # A ccache on the machine is used; paths relative to the checkout let worktrees share its hits.
    local launcher=()
    if command -v ccache >/dev/null; then
        export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
        launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" "$@" >/dev/null
    cmake --build "$dir" -j2
}

command=${1:-}
shift || true
case "$command" in
run)
    [ "${1:-}" = "--" ] && shift
    install_missing
    build build -DTOLVINPT_TESTS=OFF -DTOLVINPT_BENCH=OFF
    exec build/host/tolvinpt-host "$@"
    ;;
test)
    install_missing
    if [ "${1:-}" = "--sanitize" ]; then
        dir=build-sanitize
        build "$dir" -DTOLVINPT_WERROR=ON -DTOLVINPT_SANITIZE=ON -DTOLVINPT_BENCH=OFF
    else
        dir=build-test
        build "$dir" -DTOLVINPT_WERROR=ON
    fi
    export QT_QPA_PLATFORM=offscreen
    ctest --test-dir "$dir" --output-on-failure -j2 --timeout 300
    ;;
*)
    sed -n '2,4p' "$0" | sed 's/^# \{0,1\}//'
    exit 2
    ;;
esac
