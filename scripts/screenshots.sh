#!/usr/bin/env bash
# Retakes the pictures in docs/screenshots under a virtual display: the host on a fresh demo database,
# a demo record in the entry form, its hard copy page. Needs xvfb, xdotool, imagemagick and poppler-utils;
# build first with the tests (scripts/dev.sh test builds into build-test; BUILD=build-test
# scripts/screenshots.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat > "$work/take.sh" <<INNER
#!/usr/bin/env bash
$build/host/tolvinpt-host --database "$work/demo.sqlite" & pid=\$!
sleep 4
import -window root -crop 1440x760+0+0 docs/screenshots/host.png
xdotool mousemove 420 145 click --repeat 2 --delay 80 1
sleep 3
import -window "\$(xdotool search --name '納品ﾃﾞｰﾀの入力' | tail -1)" docs/screenshots/form-browse.png
kill \$pid
INNER
chmod +x "$work/take.sh"
xvfb-run -s "-screen 0 1440x900x24" "$work/take.sh"
"$build/tools/form_screenshot" docs/screenshots/form-new.png 2>/dev/null ||
    xvfb-run "$build/tools/form_screenshot" docs/screenshots/form-new.png
QT_QPA_PLATFORM=offscreen "$build/tools/dialog_screenshot" docs/screenshots
pdf=$(QT_QPA_PLATFORM=offscreen "$build/tools/form_screenshot" "$work" hardcopy 2>/dev/null)
pdftoppm -r 72 -png -singlefile "$pdf" docs/screenshots/hard-copy
