// Parts of clusters with the glyph codes that are kept for them, found by either.
#pragma once

#include "corekit/platform/Types.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corekit::detail {

struct Piece {
    std::u16string text, codes;
    WCHAR tail = 0;     // of a Devanagari letter: its stem, what completes its headline, or 0
    bool isOwn = false; // the shaping does not write it by these codes
};

// Of pieces with the same text the last counts, of those with the same codes the first.
class PieceList {
public:
    void Add(Piece piece)
    {
        const auto kept = std::make_shared<const Piece>(std::move(piece));
        m_byCodes.try_emplace(kept->codes, kept);
        m_byText.insert_or_assign(kept->text, kept);
    }
    // Null where there is none.
    const Piece* OfText(std::u16string_view text) const { return Find(m_byText, text); }
    // The longest one that the text or the codes begin with.
    const Piece* AtText(std::u16string_view text) const { return Longest(m_byText, text); }
    const Piece* AtCodes(std::u16string_view codes) const { return Longest(m_byCodes, codes); }

private:
    using Map = std::map<std::u16string, std::shared_ptr<const Piece>, std::less<>>;
    static constexpr std::size_t longest = 8;

    static const Piece* Find(const Map& map, std::u16string_view key)
    {
        const auto found = map.find(key);
        return found == map.end() ? nullptr : found->second.get();
    }
    static const Piece* Longest(const Map& map, std::u16string_view key)
    {
        for (std::size_t length = std::min(longest, key.size()); length > 0; --length)
            if (const Piece* const piece = Find(map, key.substr(0, length))) return piece;
        return nullptr;
    }

    Map m_byText, m_byCodes;
};

} // namespace corekit::detail
