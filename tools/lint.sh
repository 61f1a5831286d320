#!/usr/bin/env bash
# The house rules that a machine can see. Prints each breach with its place; exit code 1 when there is one.
set -u
cd "$(dirname "$0")/.."
breaches=0

# complain TITLE ROWS: a group of breaches, if there are any.
complain() {
    [ -n "$2" ] || return 0
    printf '%s\n%s\n\n' "$1" "$2"
    breaches=1
}

sources() { find corekit apps tests benchmarks fuzz -name '*.h' -o -name '*.cpp' | sort; }

complain "Headers of the machine or the toolkit outside corekit/platform:" "$(
    grep -nE '#include *<(Q[A-Z]|Qt|xcb|sqlite3|unicode/|systemd/|sys/|unistd|fcntl|poll|termios|pthread|iconv|dlfcn)' -r corekit apps |
        grep -v '^corekit/platform/\(posix\|qt\)/')"
complain "Toolkit module headers (include the class's own):" "$(grep -rnE '#include *<Qt[A-Z][A-Za-z]*>' corekit apps)"

complain "Core includes a header of the window library:" "$(
    grep -rnE '#include *"corekit/([a-z/]*/ui/|platform/qt/|CoreKitUI)' corekit --include='*.h' --include='*.cpp' |
        grep -vE '^corekit/([a-z/]*/)?(ui|qt)/|^corekit/CoreKitUI.h')"

layers="platform framework foundation stores unicode logging net hosts devices graphics commands windows"
complain "Includes that point upward:" "$(
    grep -rnE '#include *"corekit/[a-z]+/' corekit | awk -v layers="$layers" '
        BEGIN { n = split(layers, name, " "); for (i = 1; i <= n; ++i) rank[name[i]] = i }
        {
            split($0, part, ":"); split(part[1], from, "/")
            match($0, /"corekit\/[^"]*"/); to_path = substr($0, RSTART + 1, RLENGTH - 2); split(to_path, to, "/")
            if (to_path ~ /^corekit\/unicode\/tables\// || part[1] ~ /\/ui\//) next
            if (from[2] in rank && to[2] in rank && rank[to[2]] > rank[from[2]]) print part[1] " -> " to_path
        }')"
# A folder ui/ or qt/ is a room of its own, as are the tables of characters, which stand on StringW alone, and the names
# of messages, on which all stand.
complain "Rooms that include each other in a circle:" "$(
    grep -rE '^ *#include *"corekit/[a-z]+/' corekit/*/ --include='*.h' --include='*.cpp' | awk '
        function room(path, part) {
            if (path ~ /^corekit\/unicode\/tables\//) return "tables"
            if (path ~ /^corekit\/resources\/[Mm]essages\./) return "messages"
            split(path, part, "/")
            return part[2] (path ~ /\/(ui|qt)\// ? "/ui" : "")
        }
        {
            from = room($0); sub(/^[^"]*"/, ""); to = room($0)
            if (from != to && !(from == "tables" && /foundation\/StringW/)) print from, to
        }' | sort -u | tsort 2>&1 >/dev/null)"
complain "Units that include each other in a circle:" "$(tools/unit_cycles.py)"
complain "The tables of characters include more than StringW.h and basic types:" "$(
    grep -nE '#include *"corekit/' -r corekit/unicode/tables | grep -vE '"corekit/(unicode/tables/|foundation/StringW.h|platform/(Types|Export)\.h)')"
complain "Platform conditionals outside corekit/platform:" "$(
    grep -nE '^ *#(if|ifdef|ifndef) .*(__linux__|_WIN32|__unix__|__x86_64__|__SSE|__AVX)' -r corekit apps | grep -v '^corekit/platform/')"
# 4095 and 4096 are also sizes, so those two count only where a message is meant.
numbers=$(sed -n 's/^MESSAGE([A-Za-z0-9]*, \([0-9]*\),.*/\1/p' corekit/resources/messages.inc | grep -vxE '4095|4096' | paste -sd'|')
complain "Messages by bare number (corekit/resources/Messages.h has their names):" "$(
    grep -rnE "(^|[^[:alnum:]_.#])($numbers)u?\b|(Throw\w+|Failed|Complain|Tell|Load\w*String\w*|Format\w*|MessageBox)\(([^()]|\([^()]*\))*\b409[56]u?\b" \
        --include='*.h' --include='*.cpp' corekit apps | grep -vE '^corekit/(unicode/tables|resources)/')"
complain "Constants with a prefix (write them in lowerCamel):" "$(grep -rnE '(^|[^:[:alnum:]_])k[A-Z][a-z]\w*' --include='*.h' --include='*.cpp' corekit apps examples tests benchmarks fuzz)"
complain "Letter case by the user's locale, where a Turkish i has no capital I (corekit/platform/Runtime.h has it without):" "$(
    grep -rnE '\b(strn?casecmp|to(upper|lower))\(' --include='*.h' --include='*.cpp' corekit apps)"
complain "Error texts in the user's language, whose bytes are not in the active code page (strerrordesc_np has them without):" "$(
    grep -rnE '\bstrerror(_r)?\(|(generic|system)_category' --include='*.h' --include='*.cpp' corekit)"
complain "Unfinished marks:" "$(grep -nE '\b(TODO|FIXME|XXX|not implemented|placeholder)\b' -r corekit apps)"
complain "Words that sound as if the code followed a text (say what the system does and why):" "$(
    grep -nEi '\b(as (it is )?told|the told|by rule|as specified|published|left out on purpose|[a-z]*(AsTold|TheTold)[a-z]*|namespace told)\b' \
        -r corekit apps tests benchmarks fuzz examples docs --include='*.h' --include='*.cpp' --include='*.md')"
complain "Tests that are switched off or cannot fail:" "$(grep -nE 'DISABLED_|GTEST_SKIP|EXPECT_TRUE\(true\)|SUCCEED\(\)' -r tests)"
complain "Public headers over 250 lines:" "$(find corekit -name '*.h' -not -name '*Impl.h' -exec wc -l {} + | awk '$2 != "total" && $1 > 250')"
complain "Sources over 700 lines:" "$(sources | xargs wc -l | awk '$2 != "total" && $1 > 700')"
complain "Umbrella headers:" "$(tools/make_umbrella.sh --check)"
complain "Headers without #pragma once:" "$(find corekit -name '*.h' | xargs grep -L '^#pragma once')"

[ "$breaches" -eq 0 ] && echo "The house is in order."
exit "$breaches"
