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

# Weather in units of 1 NM, half of it for ranges: a vector to the east from 10 to 20 NM, and a square in the north-west.
# Video in cells of 10 NM, whose second is lit from north to north-east in eight bits, from south to south-west in four.
# And a second position of category 062.
cat >more.json <<'END'
{"category":8,"I010":{"SAC":25,"SIC":7},"I000":254,"I090":43200,"I100":{"F":6,"R":0,"Q":0}}
{"category":8,"I010":{"SAC":25,"SIC":7},"I000":1,"I020":{"ORG":0,"I":3,"S":0},"I034":[{"STR":20,"ENDR":40,"AZ":90}]}
{"category":8,"I010":{"SAC":25,"SIC":7},"I000":3,"I040":{"ORG":0,"I":2,"FSTLST":3,"CSN":1},"I050":[{"X1":-20,"Y1":10},{"X1":-20,"Y1":20},{"X1":-10,"Y1":20},{"X1":-10,"Y1":10}]}
{"category":240,"I010":{"SAC":25,"SIC":9},"I000":2,"I020":1,"I040":{"STARTAZ":0,"ENDAZ":45,"STARTRG":0,"CELLDUR":123552},"I048":{"C":0,"RES":4},"I049":{"NBVB":4,"NBCELLS":4},"I050":["00ff0000"],"I140":43200}
{"category":240,"I010":{"SAC":25,"SIC":9},"I000":2,"I020":2,"I040":{"STARTAZ":180,"ENDAZ":225,"STARTRG":0,"CELLDUR":123552},"I048":{"C":0,"RES":3},"I050":["0f000000"],"I140":43200}
{"category":62,"I010":{"SAC":25,"SIC":10},"I070":43210,"I105":{"LAT":49.75,"LON":15}}
END
"$astdump" --write more.ast more.json

# The recording, these, and one more block, which is damaged.
{ cat "$recording" more.ast && printf '\x30\x00\x06\xc0\x19\x0c'; } >'<i>&.ast'
status=0
"$astdump" --site 25/10=49.55,15.5 --html page.html '<i>&.ast' 2>reports || status=$?
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
sed -n 's#.*<body[^>]*>\(.*\)</body>.*#\1#p' dom
grep -q '<body[^>]*>the page is well</body>' dom
