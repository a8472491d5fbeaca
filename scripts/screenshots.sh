#!/usr/bin/env bash
# Retakes the pictures in docs/screenshots under a virtual display with a window manager: the host on a
# fresh demo database, a demo record in the entry form, the typical correction (a ship date after the
# delivery date, "進む", the question, the list after the save), a package breakdown and a split by keys,
# a new record by hand and from an order search, and the hard copy page of a demo record. Needs xvfb,
# openbox, xdotool, imagemagick and poppler-utils; build first with the tests (scripts/dev.sh test
# builds into build-test; BUILD=build-test scripts/screenshots.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD:-build}
shots=docs/screenshots
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat > "$work/take.sh" <<INNER
#!/usr/bin/env bash
set -euo pipefail
openbox >/dev/null 2>&1 & sleep 1
# Writes the screen under the given windows (their bounding box) to a file: crop FILE WINDOW...
crop() {
    local file=\$1; shift
    local box=\$(for w in "\$@"; do xwininfo -id \$w; done | awk '
        /Absolute upper-left X/ {x = \$4} /Absolute upper-left Y/ {y = \$4} /Width:/ {w = \$2}
        /Height:/ {h = \$2
            if (!n++ || x < x0) x0 = x; if (n == 1 || y < y0) y0 = y
            if (n == 1 || x + w > x1) x1 = x + w; if (n == 1 || y + h > y1) y1 = y + h}
        END {print x1 - x0 "x" y1 - y0 "+" x0 "+" y0}')
    import -window root -crop \$box +repage "\$file"
}
$build/host/tolvinpt-host --database "$work/demo.sqlite" & pid=\$!
list=\$(xdotool search --sync --name '納品データ一覧')
xdotool windowmove --sync \$list 0 0; sleep 2
import -window \$list $shots/host.png
# The first three records, opened with Enter.
xdotool mousemove --window \$list 420 118 click 1 keydown shift mousemove --window \$list 420 172 click 1 keyup shift
xdotool key Return
form=\$(xdotool search --sync --name '納品ﾃﾞｰﾀの入力')
xdotool windowmove --sync \$form 380 160; sleep 1
import -window \$form $shots/form-browse.png
# A ship date after the delivery date: the date rule corrects the delivery date and says so.
xdotool mousemove --window \$form 531 142 click 1 type --delay 60 061220
xdotool key Tab; sleep 1; xdotool key Return; sleep 0.5
# "次へ" from the menu: the question before the changed record is left.
xdotool key alt+d; sleep 0.3; xdotool key Down Down Down Return; sleep 1
# The form with the question in front of it: the screen where the form stands.
crop $shots/correction-question.png \$form
xdotool key Return; sleep 1.5
xdotool key alt+d; sleep 0.3; xdotool key x; sleep 1.5
import -window \$list $shots/correction-saved.png
# The first record alone, broken into packages by keys: from "受注者品名ｺｰﾄﾞ" nine Tabs to the package
# options, Down twice to "個別指定", Tab to "個別入力", Space; three quantities, each with Enter.
xdotool mousemove --window \$list 420 118 click 1; xdotool key Return
form=\$(xdotool search --sync --name '納品ﾃﾞｰﾀの入力')
xdotool windowmove --sync \$form 380 160; sleep 1
xdotool mousemove --window \$form 200 290 click 1; sleep 0.3
xdotool key --delay 100 Tab Tab Tab Tab Tab Tab Tab Tab Tab Down Down Tab space; sleep 1.5
xdotool type --delay 60 10; xdotool key Return; xdotool type --delay 60 7; xdotool key Return
xdotool type --delay 60 5; xdotool key Return; sleep 0.5
crop $shots/quantity-editor.png \$form \$(xdotool search --name '個別 入数情報')
# Escape, keep the quantities (Enter), save them (Ctrl+S).
xdotool key Escape; sleep 1; xdotool key Return; sleep 1; xdotool key ctrl+s; sleep 1
# The split: Alt+D, "分割", a new key over the proposed one, Tab, the quantity; Enter stores it.
xdotool key alt+d; sleep 0.3; xdotool key Down Down Down Down Return; sleep 1
xdotool key ctrl+a; xdotool type --delay 60 4500012001-02; xdotool key Tab; xdotool type --delay 60 7; sleep 0.5
crop $shots/split-dialog.png \$form
xdotool key Return; sleep 1
xdotool key alt+d; sleep 0.3; xdotool key x; sleep 1.5
# A new record by hand: Ctrl+N in the list, the order number, Tab twice, the delivery key number.
xdotool key ctrl+n
form=\$(xdotool search --sync --onlyvisible --name '納品ﾃﾞｰﾀの入力')
xdotool windowmove --sync \$form 380 160; sleep 1
xdotool key Tab Tab; xdotool type --delay 60 4500099001; xdotool key Tab Tab
xdotool type --delay 60 4500099001-01; xdotool key Tab; sleep 0.5
crop $shots/new-record.png \$form
xdotool key ctrl+e; sleep 1.5
# A new record from an order search: the order number, Tab to "参照", Space.
xdotool key ctrl+n
form=\$(xdotool search --sync --onlyvisible --name '納品ﾃﾞｰﾀの入力')
xdotool windowmove --sync \$form 380 160; sleep 1
xdotool key Tab Tab; xdotool type --delay 60 4500012001; xdotool key Tab space; sleep 1
crop $shots/order-search.png \$form
xdotool key ctrl+e; sleep 1
kill \$pid
INNER
chmod +x "$work/take.sh"
xvfb-run -s "-screen 0 1440x900x24" "$work/take.sh"
"$build/tools/form_screenshot" $shots/form-new.png 2>/dev/null ||
    xvfb-run "$build/tools/form_screenshot" $shots/form-new.png
pdf=$(QT_QPA_PLATFORM=offscreen "$build/tools/form_screenshot" "$work" hardcopy 2>/dev/null)
pdftoppm -r 72 -png -singlefile "$pdf" $shots/hard-copy
