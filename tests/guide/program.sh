#!/usr/bin/env bash
# program.sh CHAPTER.md: the chapter's program, as it stands there.
awk '/^```cpp$/ { on = 1; next } /^```$/ { on = 0 } on' "$1"
