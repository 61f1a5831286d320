// The story in the editor, whose text the editor holds as it is stored and the script as it was read: which
// of its lines an edit changes, and to what. Lines that nobody edited stay as they were read. An edit costs
// as much as it changes, however long the story is.
#pragma once

#include "model/LineStarts.h"
#include "model/Script.h"

#include "corekit/foundation/StringW.h"

#include <optional>

namespace prompter {

StringW StoredOf(std::u16string_view plain);
std::u16string PlainOf(std::u16string_view stored);
std::u16string_view ViewOf(const StringW& text);

class EditedStory {
public:
    std::uint64_t Key() const { return m_key; } // 0 for none
    void Begin(const Story& story, const StringW& stored);
    void End() { m_key = 0; }

    struct Edit {
        LineChange change;
        std::u16string lines; // that come
    };
    // The editor's text is now `stored`; `added` of its units, from `from` on, stand in the place of
    // `removed`. `plain` is the story as it has been so far. Nothing if it stays that.
    std::optional<Edit> Take(std::size_t from, std::size_t removed, std::size_t added,
                             std::u16string_view stored, std::u16string_view plain);

private:
    std::uint64_t m_key = 0;
    LineStarts m_stored, m_plain; // line by line the same
};

} // namespace prompter
