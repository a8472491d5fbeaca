#!/usr/bin/env bash
# The packages as a site gets them: built from this build tree, checked by lintian and unpacked into a
# scratch root; there the example host is built with find_package and with pkg-config and run, the
# host answers --version, and --help, the manual page and the README name the same options.
#   installed_test.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
arch=$(gcc -print-multiarch)
export LD_LIBRARY_PATH=$root/usr/lib/$arch QT_QPA_PLATFORM=offscreen

cpack --config "$build/CPackConfig.cmake" -B "$work/debs" >"$work/cpack.log" || { cat "$work/cpack.log"; exit 1; }
lintian --fail-on error "$work"/debs/*.deb 2>/dev/null
for deb in "$work"/debs/*.deb; do dpkg-deb -x "$deb" "$root"; done

expect_version() { # expect_version WHAT OUTPUT
    [ "$2" = "$3" ] || { echo "$1: '$2', expected '$3'" >&2; exit 1; }
}
cmake -S "$source/docs/examples" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$root/usr" >/dev/null
cmake --build "$work/cmake" >/dev/null
expect_version "example host (find_package)" "$("$work/cmake/minimal_host")" "TOLVINPT 50.0.1"

# The file moved with the scratch root: its prefix there (--define-variable would move Qt's too).
mkdir "$work/pc"
sed "s|^prefix=.*|prefix=$root/usr|" "$root/usr/lib/$arch/pkgconfig/tolvinpt.pc" >"$work/pc/tolvinpt.pc"
flags=$(PKG_CONFIG_PATH=$work/pc pkg-config --cflags --libs tolvinpt)
# shellcheck disable=SC2086 # the flags are words
g++ -std=c++20 -fPIC "$source/docs/examples/minimal_host.cpp" $flags -o "$work/pc_host"
expect_version "example host (pkg-config)" "$("$work/pc_host")" "TOLVINPT 50.0.1"

expect_version "tolvinpt-host --version" "$("$root/usr/bin/tolvinpt-host" --version 2>/dev/null)" "50.0.1"
options=$("$root/usr/bin/tolvinpt-host" --help 2>/dev/null | grep -o -- '--[a-z][a-z-]*' | sort -u)
manual=$(zcat "$root/usr/share/man/man1/tolvinpt-host.1.gz" | sed 's/\\-/-/g')
for option in $options; do
    grep -q -- "$option" <<<"$manual" || { echo "the manual page does not explain $option" >&2; exit 1; }
    grep -q -- "$option" "$source/README.md" || { echo "the README does not mention $option" >&2; exit 1; }
done
for option in $(grep -o -- '--[a-z][a-z-]*' <<<"$manual" | sort -u); do
    grep -qx -- "$option" <<<"$options" || { echo "the manual page explains $option, which --help lacks" >&2; exit 1; }
done
echo "packages, example hosts and tolvinpt-host as installed: all right"
