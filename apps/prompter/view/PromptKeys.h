// What the keys of the prompt view do.
#pragma once

#include "model/PromptAction.h"

#include "corekit/platform/Types.h"

#include <span>
#include <string_view>

namespace prompter {

enum class Held { nothing, shift };

struct PromptKey {
    int key; // virtual key
    Held held;
    PromptAction action;
    int value;
    std::string_view meaning; // for the help of the program
};

std::span<const PromptKey> PromptKeys();
// Null for a key that does nothing.
const PromptKey* FindPromptKey(int key, Held held);

} // namespace prompter
