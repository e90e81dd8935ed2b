# Completes command lines of astdump for fish. What can be completed is asked of the tool itself.

# What an option may be, in the words of the tool on something that it cannot be.
function __astdump_values
    astdump $argv[1] '?' - 2>&1 </dev/null |
        string match --regex --groups-only ' not in {(.*?)}' |
        string split , | string trim
end

# The quantities and fields, behind the head of their table.
function __astdump_names
    astdump --fields 2>/dev/null </dev/null | string replace --regex ' .*' '' | string match --invert Path
end

# The same behind each comma of a list.
function __astdump_list
    set --local begun (commandline --current-token | string match --regex --groups-only '^(?:.*=)?(.*,)')
    for value in $argv
        echo $begun$value
    end
end

function __astdump_interfaces
    path basename /sys/class/net/*
end

# "  --uap NAME   Profile to decode with"
for line in (astdump --help all 2>/dev/null </dev/null)
    set --local parts (string match --regex --groups-only '^  (?:-[a-z],)?--([a-z-]+)(?: (\S+))?.*?  +(.*)' -- $line)
    or continue
    set --local option complete --command astdump --long-option $parts[1] --description $parts[-1]
    test (count $parts) = 3; and set --append option --require-parameter
    switch $parts[1]
        case uap framing color shift names
            set --append option --no-files --arguments "(__astdump_values --$parts[1])"
        case where fields
            set --append option --no-files --arguments '(__astdump_names)'
        case csv
            set --append option --arguments '(__astdump_list (__astdump_names))'
        case columns
            set --append option --no-files --arguments '(__astdump_list common all reports file block record received (__astdump_names))'
        case category
            set --append option --no-files --arguments '(__astdump_list 1 2 4 7 8 9 10 11 15 16 17 18 19 20 21 23 25 32 34 48 62 63 65 150 205 240 247)'
        case convert
            set --append option --no-files --arguments '(__astdump_list 1 2 34 48)'
        case interface
            set --append option --no-files --arguments '(__astdump_interfaces)'
        case html write sites metrics
        case '*'
            # Another value, of which nothing is known: not that it is a file.
            test (count $parts) = 3; and set --append option --no-files
    end
    $option
end
