#!/bin/sh
# Whether every source includes only what stands below it, and whether no modules include one another, by whatever
# detour. A module is a header and the source of the same name.
# usage: layering_test.sh ROOT TREE...
set -eu

# A tree, behind ">" those that it stands upon, and its rooms, the lowest first. A room includes itself and all rooms
# below it, or of these only the ones in parentheses. What stands in no room stands above them. A tree without rooms is
# only looked through for circles and for includes of trees that it does not stand upon. What does not exist is passed
# over.
floors='
src: core codec view schema(core) query items cat reader
recording: system base framing datagram capture block source ask write columns api
tools/astdump > recording: show compare report page run
viewer > recording tools/astdump: runtime module
tools/simulate > recording: common radar(common) adsb(common) tracker(common)
examples:
python/src:
fuzz > recording tools/astdump:
bench:
tests/support:
'

# findings ROOT FLOORS TREE...: prints what is wrong in these trees. Includes are looked for beside the file, from the
# root of its tree, and from the roots of those that it stands upon.
findings() (
    cd "$1"
    export FLOORS="$2"
    shift 2
    export TREES="$*"
    every=$(echo "$FLOORS" | sed -n 's/[ :].*//p' | while read -r tree; do [ ! -d "$tree" ] || echo "$tree"; done)
    [ -n "$every" ] || every=/dev/null
    {
        # shellcheck disable=SC2086 # a word for each tree
        find $every -name '*.[ch]' -o -name '*.[ch]pp'
        # shellcheck disable=SC2086
        find $every \( -name '*.[ch]' -o -name '*.[ch]pp' \) -exec grep -E '^#include [<"]' /dev/null {} +
    } | awk '
        function complain(text) { print text; wrong = 1 }

        function trees_in(text, set,    names, i) {
            for (i = split(text, names, " "); i > 0; --i) set[names[i]] = 1
        }

        # A room, and the rooms that it may include.
        function add_room(tree, text, rooms_below,    only, allowed, i, n) {
            only = text
            if (sub(/\(/, " ", only)) sub(/\)/, "", only)
            n = split(only, allowed, /[ ,]/)
            may[tree, allowed[1], allowed[1]] = 1
            may[tree, "", allowed[1]] = 1
            is_room[tree, allowed[1]] = 1
            for (i = 2; i <= n; ++i) may[tree, allowed[1], allowed[i]] = 1
            if (n == 1)
                for (i = split(rooms_below, allowed, " "); i > 0; --i) may[tree, only, allowed[i]] = 1
            sub(/ .*/, "", only)
            return only
        }

        function add_tree(line,    sides, head, rooms, i, n, below) {
            split(line, sides, ":")
            n = split(sides[1], head, " ")
            trees[++tree_count] = head[1]
            is_tree[head[1]] = 1
            below_count[head[1]] = 0
            for (i = 3; i <= n; ++i) upon[head[1], ++below_count[head[1]]] = head[i]
            may[head[1], "", ""] = 1
            n = split(sides[2], rooms, " ")
            has_rooms[head[1]] = n > 0
            for (i = 1; i <= n; ++i) below = below " " add_room(head[1], rooms[i], below)
        }

        function tree_of(path,    i) {
            for (i = 1; i <= tree_count; ++i) if (index(path, trees[i] "/") == 1) return trees[i]
            return ""
        }

        # "" for what stands in no room.
        function room_of(path, tree,    rest) {
            rest = substr(path, length(tree) + 2)
            return index(rest, "/") ? substr(rest, 1, index(rest, "/") - 1) : ""
        }

        function module_of(path) { sub(/\.[a-z]+$/, "", path); return path }

        function without_dots(path) {
            while (sub(/[^\/]+\/\.\.\//, "", path)) {}
            return path
        }

        function resolve(from, tree, name,    i, path) {
            path = from
            sub(/[^\/]*$/, "", path)
            path = without_dots(path name)
            if (path in is_file) return path
            if ((tree "/" name) in is_file) return tree "/" name
            for (i = 1; i <= below_count[tree]; ++i)
                if ((upon[tree, i] "/" name) in is_file) return upon[tree, i] "/" name
            for (i = 1; i <= tree_count; ++i) if ((trees[i] "/" name) in is_file) return trees[i] "/" name
            return ""
        }

        function stands_upon(tree, other,    i) {
            for (i = 1; i <= below_count[tree]; ++i) if (upon[tree, i] == other) return 1
            return 0
        }

        function look_at(from, tree, to,    other, is_allowed) {
            other = tree_of(to)
            if (other != tree) is_allowed = stands_upon(tree, other)
            else is_allowed = !has_rooms[tree] || (tree, room_of(from, tree), room_of(to, tree)) in may
            if (!is_allowed) complain(from " includes " to ", which does not stand below it")
            if (module_of(from) != module_of(to)) includes[module_of(from), module_of(to)] = 1
        }

        # What includes nothing that is left, or is included by nothing that is left, is in no circle.
        function show_circle(    pair, ends, out, into, changed, met, on, least, next_one, text) {
            do {
                changed = 0
                split("", out)
                split("", into)
                for (pair in includes) { split(pair, ends, SUBSEP); out[ends[1]] = ends[2]; into[ends[2]] = 1 }
                for (pair in includes) {
                    split(pair, ends, SUBSEP)
                    if ((ends[2] in out) && (ends[1] in into)) continue
                    delete includes[pair]
                    changed = 1
                }
            } while (changed)
            for (on in out) break
            if (on == "") return
            for (; !(on in met); on = out[on]) met[on] = 1
            least = on
            for (next_one = out[on]; next_one != on; next_one = out[next_one]) if (next_one < least) least = next_one
            text = least
            for (next_one = out[least]; next_one != least; next_one = out[next_one]) text = text " -> " next_one
            complain("a circle: " text " -> " least)
        }

        BEGIN {
            n = split(ENVIRON["FLOORS"], lines, "\n")
            for (i = 1; i <= n; ++i) if (lines[i] != "") add_tree(lines[i])
            trees_in(ENVIRON["TREES"], is_asked)
            for (tree in is_asked) if (!(tree in is_tree)) complain(tree " has no floors")
        }

        !/:#include/ {
            is_file[$0] = 1
            tree = tree_of($0)
            room = room_of($0, tree)
            if (tree in is_asked) ++sources
            if ((tree in is_asked) && has_rooms[tree] && room != "" && !((tree, room) in is_room) && !told[tree, room]++)
                complain(tree "/" room " stands on no floor")
            next
        }

        {
            from = substr($0, 1, index($0, ":") - 1)
            tree = tree_of(from)
            if (!(tree in is_asked)) next
            split($0, parts, /[<">]/)
            to = resolve(from, tree, parts[2])
            if (to != "") look_at(from, tree, to)
        }

        END {
            show_circle()
            if (!sources) complain("there are no sources")
            exit wrong
        }'
)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# expect FINDING FILE=INCLUDE...: this is found in a tree of these files, or nothing where it is empty.
expect() {
    finding=$1
    shift
    rm -rf "$scratch/root"
    for file in "$@"; do
        mkdir -p "$scratch/root/$(dirname "${file%%=*}")"
        echo "#include \"${file#*=}\"" >>"$scratch/root/${file%%=*}"
    done
    found=$(findings "$scratch/root" 'house: low beside high(low)
face > house:
other:' house face) || true
    [ "$found" = "$finding" ] || { printf 'Of %s\nexpected: %s\nfound:    %s\n' "$*" "$finding" "$found"; exit 1; }
}

expect '' house/low/a.hpp=b.hpp house/low/b.hpp=vector house/beside/c.cpp=low/a.hpp house/high/in/d.cpp=../../low/b.hpp \
    house/main.cpp=high/e.hpp house/high/e.hpp=ast.h face/f.cpp=high/e.hpp face/f.hpp=f.hpp other/z.hpp=other/z.hpp
expect 'house/low/a.cpp includes house/high/b.hpp, which does not stand below it' \
    house/low/a.cpp=high/b.hpp house/high/b.hpp=vector
expect 'house/low/a.cpp includes house/high/b.hpp, which does not stand below it' \
    house/low/a.cpp=../high/b.hpp house/high/b.hpp=vector
expect 'house/high/a.cpp includes house/beside/b.hpp, which does not stand below it' \
    house/high/a.cpp=beside/b.hpp house/beside/b.hpp=vector
expect 'house/low/a.cpp includes house/b.hpp, which does not stand below it' house/low/a.cpp=b.hpp house/b.hpp=vector
expect 'house/high/a.cpp includes face/f.hpp, which does not stand below it' house/high/a.cpp=f.hpp face/f.hpp=vector
expect 'face/f.cpp includes other/z.hpp, which does not stand below it' face/f.cpp=z.hpp other/z.hpp=vector
expect 'house/attic stands on no floor' house/attic/a.cpp=vector
expect 'there are no sources' elsewhere/a.cpp=vector
expect 'a circle: house/low/a -> house/low/b -> house/low/c -> house/low/a' house/low/a.hpp=b.hpp house/low/b.hpp=c.hpp \
    house/low/c.cpp=a.hpp house/low/c.hpp=d.hpp house/low/d.hpp=vector house/main.cpp=low/a.hpp
expect 'a circle: house/low/a -> house/low/b -> house/low/a' house/low/a.hpp=b.hpp house/low/b.cpp=a.hpp house/low/b.hpp=vector

root=$1
shift
findings "$root" "$floors" "$@"
