// Ten thousand names in seven scripts.
#pragma once

#include <string>
#include <vector>

struct Name {
    std::u16string text;
    const char* script;
};

// In no order: the scripts take turns.
std::vector<Name> MakeNames(int count);
