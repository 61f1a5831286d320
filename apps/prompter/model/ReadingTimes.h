// How long each story takes to read. A text is counted once, and of an edit what it changes.
#pragma once

#include "model/ReadRate.h"
#include "model/Script.h"

#include <unordered_map>

namespace prompter {

class ReadingTimes {
public:
    double SecondsFor(const Story& story, const ReadRate& rate);
    // The story has changed by its last change, in which these lines went.
    void StoryChanged(const Story& story, std::u16string_view gone, const ReadRate& rate);

private:
    struct Known {
        std::uint64_t version;
        int charactersPerLine;
        long long lines;
    };
    std::unordered_map<std::uint64_t, Known> m_known; // by the story's key
};

} // namespace prompter
