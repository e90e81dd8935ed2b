#!/bin/sh
# Whether the commands of the cookbook and of the README do what stands below them: a block of sh ends well, and all lines
# of the block of text behind it are in what it shows.
# usage: cookbook_test.sh ASTDUMP TREE
set -eu
tool=$1 tree=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin" "$work/here" "$work/blocks"
ln -s "$tool" "$work/bin/astdump"
ln -s "$tree/samples" "$work/here/samples"
PATH=$work/bin:$PATH
AST_VIEWER=$tree/tests/tool/viewer.html # whether the tool was built with its own or not
export AST_VIEWER
# The scripts of the README take longer.
awk -v to="$work/blocks/" '
    /^```sh$/ { getline; if (!/^scripts/) { file = sprintf("%s%02d.sh", to, ++count); print > file }; next }
    /^```text$/ { file = sprintf("%s%02d.text", to, count); next }
    /^```$/ { file = "" }
    file { print > file }' "$tree/docs/cookbook.md" "$tree/README.md"

tasks=0 failed=0
cd "$work/here"
for command in "$work"/blocks/*.sh; do
    tasks=$((tasks + 1))
    sh -e "$command" >"$work/shown" 2>&1 || { failed=1; echo "failed: $(cat "$command")"; cat "$work/shown"; }
    while read -r line; do
        grep -qF -e "$line" "$work/shown" || { failed=1; echo "no '$line' of: $(cat "$command")"; head "$work/shown"; }
    done <"${command%.sh}.text"
done
[ "$tasks" -eq 13 ] || { echo "$tasks tasks found"; exit 1; }
exit $failed
