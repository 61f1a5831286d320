#!/usr/bin/env bash
# comments_for_doxygen.sh HEADER: the header with its comments as Doxygen takes them. The first one tells of the file; one
# above a group of declarations, up to the next blank line or comment, tells of each of them; one at a line's end of that
# line.
awk '
    function plain(line) { gsub(/\*\//, "* /", line); gsub(/[\\@<>#]/, "\\\\&", line); sub(/^\.$/, "", line); return line }
    isContinued || /^#define/ { isContinued = /\\$/; print; next }
    NR == 1 && /^\/\// { inFile = 1; print "/** @file"; }
    inFile && /^\/\// { sub(/^\/\/ ?/, ""); print plain($0); next }
    inFile { print "*/"; inFile = 0 }
    /^[ \t]*\/\// {
        if (!isOpen) { isOpen = 1; text = "" }
        line = $0; sub(/^[ \t]*\/\/ ?/, "", line); text = text plain(line) "\n"; next
    }
    isOpen { isOpen = 0; comment = text; isStart = 1 }
    /^[ \t]*$/ || /^[ \t]*(public|protected|private):/ || /^[ \t]*[{}]/ { comment = ""; isStart = 1; print; next }
    {
        if (comment != "" && isStart) printf "/** %s */\n", comment
        isStart = $0 ~ /([;{}:>]|DECLARE_[A-Z]+\(.*\))[ \t]*(\/\/.*)?$/ || /^#/ # else it goes on in the next line
        if (match($0, /[;,][ \t]*\/\/ /)) # tells of what stands before it
            $0 = substr($0, 1, RSTART) " ///< " plain(substr($0, RSTART + RLENGTH))
        print
    }
' "$1"
