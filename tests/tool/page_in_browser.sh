#!/usr/bin/env bash
# page_in_browser.sh ASTDUMP CHROMIUM RECORDING: writes a page, and looks at it in a browser, where nothing may be
# reported on the console.
set -euo pipefail

readonly astdump=$1 chromium=$2 recording=$3
here=$(cd "$(dirname "$0")" && pwd)
readonly here
directory=$(mktemp -d)
readonly directory
trap 'rm -rf "$directory"' EXIT
cd "$directory"

# The recording, and one more block, which is damaged.
{ cat "$recording" && printf '\x30\x00\x06\xc0\x19\x0c'; } >'<i>&.ast'
status=0
"$astdump" --html page.html '<i>&.ast' 2>reports || status=$?
if [[ $status -ne 1 ]]; then
    echo "astdump: exit status $status"
    cat reports
    exit 1
fi

# The policy of the page keeps the checks from running unless it is told of them.
sed -i "s/script-src /script-src file: /; s#<title>#<script src='check.js'></script>&#" page.html
cp "$here/page_in_browser.js" check.js
"$chromium" --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking \
    --disable-component-update --disable-sync --user-data-dir="$directory/profile" --enable-logging=stderr --v=0 \
    --virtual-time-budget=10000 --dump-dom "file://$directory/page.html" >dom 2>log

if grep CONSOLE log; then exit 1; fi
sed -n 's#.*<body>\(.*\)</body>.*#\1#p' dom
grep -q '<body>the page is well</body>' dom
