// The text that undo brings back, kept as what it has in the place of a part of the text as it is now: an
// edit costs as much as it changes, however long the text is. One thread at a time.
#pragma once

#include <string>
#include <string_view>

namespace corekit::detail {

class UndoText {
public:
    // From here on it is the text as it is now, of so many characters.
    void Commit(int length)
    {
        m_head = m_tail = length;
        m_kept.clear();
    }
    // The text, as it is still, loses so many characters; others may come in their place.
    void TextChanges(std::u16string_view text, int from, int removed);

    // The part of the text that differs, and what stands in its place.
    struct Difference {
        int from, to;
        std::u16string kept;
    };
    // What the text of that length is to be changed by; undo then brings back what is changed now.
    Difference Exchange(std::u16string_view text);

private:
    int m_head = 0,
        m_tail = 0;        // characters at either end that are the same; all at both where nothing differs
    std::u16string m_kept; // the rest
};

} // namespace corekit::detail
