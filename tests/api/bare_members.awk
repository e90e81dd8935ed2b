# Prints each member of a struct that no comment covers: none on its line, none above it in the same paragraph, and none
# on a line before it that speaks "as the next" of one or more, or "as all below". base.h tells what members of some
# names mean in all structs; these need no comment.

function is_told_in_base(name, stem) {
    if (name ~ /^(valid|present|subfields|reserved(_[0-9])?)$/) return 1
    for (stem in raw_stems) if (index(name, stem "_") == 1) return 1 # x_nm beside x_raw
    return 0
}

function members_spoken_for(line) {
    if (line ~ /as all below/) return 1000
    return line ~ /as the next three/ ? 3 : line ~ /as the next two/ ? 2 : line ~ /as the next/ ? 1 : 0
}

FNR == 1 { depth = in_comment = 0 }
{
    code = line = $0
    if (in_comment && !sub(/^.*\*\//, "", code)) next
    gsub(/\/\*([^*]|\*[^\/])*\*\//, "", code)
    was_in_comment = in_comment
    in_comment = sub(/\/\*.*/, "", code)
    gsub(/^ +| +$/, "", code)
    if (was_in_comment && code == "") next
}
code ~ /^(typedef )?(struct|union)( [a-z_]+)? \{$/ {
    opened_in[++depth] = is_family_told
    is_family_told = spoken_for[depth] = 0
    split("", raw_stems)
    next
}
depth == 0 { next }
line == "" { is_family_told = 0 }
code == "" && line != "" { is_family_told = 1 }
code ~ /^}/ { is_family_told = opened_in[depth--] }
depth > 0 && code ~ /;$/ {
    ++members
    name = code
    sub(/\)\(.*/, "", name) # of the parameters of a function
    gsub(/\[[^]]*\]|;/, "", name)
    sub(/.*[ *(}]/, "", name)
    is_covered = line ~ /\/\*/ || is_family_told || spoken_for[depth] > 0
    if (spoken_for[depth] > 0) --spoken_for[depth]
    if (is_covered && members_spoken_for(line) > 0) spoken_for[depth] = members_spoken_for(line)
    if (is_covered && sub(/_raw$/, "", name)) raw_stems[name] = 1
    if (!is_covered && !is_told_in_base(name)) {
        print FILENAME ":" FNR ": " code
        ++bare
    }
}
END {
    if (members == 0) print "found no members"
    exit bare > 0 || members == 0
}
