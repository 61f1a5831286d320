// The rows of the Bengali step as a trie that the compiler builds.
//
// Every node holds the row that applies if the text does not go on along one of its branches. All branches
// lie in one array of cells: those of a node at its place plus the character's, each with the node's place as
// its mark, in between those of other nodes.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/unicode/shaping/BengaliConjunctRows.h"
#include "corekit/unicode/shaping/BengaliLetterRows.h"
#include "corekit/unicode/shaping/BengaliMarkRows.h"

#include <cstdint>
#include <iterator>
#include <span>

namespace corekit::detail {

inline constexpr WCHAR bengaliStart = 0x0980;
inline constexpr int bengaliSize = 0x80;
inline constexpr WCHAR bengaliVirama = 0x09CD;

struct BengaliLeaf {
    static constexpr int most = 7;
    WCHAR glyphs[most];
    std::uint8_t count, advance;
};

struct BengaliCell {
    std::uint16_t owner;    // the place of the node that the branch leaves; 0 for the first and where free
    std::uint16_t branches; // the place of the node that it comes to, 0 if no branches leave that
    std::uint16_t leaf;     // the row there
};

struct BengaliTrie {
    static constexpr int mostLeaves = 768, mostCells = 1280;
    BengaliLeaf leaves[mostLeaves];
    BengaliCell cells[mostCells];
};

class BengaliTrieBuilder {
public:
    constexpr BengaliTrieBuilder()
    {
        for (int c = 0; c < bengaliSize; ++c)
            if (bengaliStart + c != secondNa) Child(0, static_cast<WCHAR>(bengaliStart + c));
        m_trie.leaves[m_leafCount++].advance = 1; // what has no row vanishes
        m_nodes[0].leaf = 0;
    }

    constexpr void Add(std::span<const BengaliRow> rows)
    {
        for (const BengaliRow& row : rows) {
            int node = 0;
            for (std::string_view codes = row.codes; !codes.empty();) node = Child(node, TakeNumber(codes));
            m_nodes[node].leaf = AddLeaf(row);
        }
    }

    // To be called behind the last row.
    constexpr BengaliTrie Build()
    {
        AddMarks();
        AddSecondLetters();
        for (int node = 1; node < m_nodeCount; ++node) // a node comes behind the one that it hangs on
            if (m_nodes[node].leaf == none) m_nodes[node].leaf = m_nodes[m_nodes[node].parent].leaf;
        for (int node = 0; node < m_nodeCount; ++node) m_nodes[node].place = PlaceFor(node);
        for (int node = 0; node < m_nodeCount; ++node) WriteCells(node);
        return m_trie;
    }

private:
    static constexpr int none = -1, mostNodes = 1280, mostBranches = 1280;
    static constexpr WCHAR secondNa = 0x09A9;

    struct Node {
        WCHAR code = 0; // the last one on the way
        int parent = none, firstBranch = none, leaf = none, place = 0;
    };
    struct Branch {
        WCHAR code;
        int node, next;
    };

    static constexpr WCHAR TakeNumber(std::string_view& numbers)
    {
        int value = 0;
        std::size_t i = 0;
        for (; i < numbers.size() && numbers[i] != ' '; ++i)
            value = value * 16 + (numbers[i] <= '9' ? numbers[i] - '0' : numbers[i] - 'A' + 10);
        numbers.remove_prefix(i < numbers.size() ? i + 1 : i);
        return static_cast<WCHAR>(value);
    }

    constexpr int AddLeaf(const BengaliRow& row)
    {
        BengaliLeaf& leaf = m_trie.leaves[m_leafCount];
        leaf.advance = static_cast<std::uint8_t>(row.advance);
        for (std::string_view glyphs = row.glyphs; !glyphs.empty();)
            leaf.glyphs[leaf.count++] = TakeNumber(glyphs);
        return m_leafCount++;
    }

    constexpr int Find(int node, WCHAR code) const
    {
        for (int b = m_nodes[node].firstBranch; b != none; b = m_branches[b].next)
            if (m_branches[b].code == code) return m_branches[b].node;
        return none;
    }
    constexpr void Join(int node, WCHAR code, int to)
    {
        m_branches[m_branchCount] = {code, to, m_nodes[node].firstBranch};
        m_nodes[node].firstBranch = m_branchCount++;
    }
    constexpr int Child(int node, WCHAR code)
    {
        if (const int known = Find(node, code); known != none) return known;
        m_nodes[m_nodeCount].code = code;
        m_nodes[m_nodeCount].parent = node;
        Join(node, code, m_nodeCount);
        return m_nodeCount++;
    }

    // Behind a conjunct the marks are what virama and their letter are, one character shorter.
    constexpr void AddMarks()
    {
        constexpr WCHAR marks[][2] = {{0x09B0, 0x09FD}, {0x09AF, 0x09FE}, {0x09AC, 0x09D3}};
        for (int node = 1, end = m_nodeCount; node < end; ++node) {
            const int virama = m_nodes[node].parent, conjunct = virama > 0 ? m_nodes[virama].parent : 0;
            if (m_nodes[node].leaf == none || conjunct == 0 || m_nodes[virama].code != bengaliVirama)
                continue;
            if (m_nodes[m_nodes[conjunct].parent].code != bengaliVirama) continue;
            for (const auto& [letter, mark] : marks) {
                if (m_nodes[node].code != letter || Find(conjunct, mark) != none) continue;
                BengaliLeaf& leaf = m_trie.leaves[m_leafCount];
                leaf = m_trie.leaves[m_nodes[node].leaf];
                --leaf.advance;
                m_nodes[Child(conjunct, mark)].leaf = m_leafCount++;
            }
        }
    }

    // Letters that go the way of another where they have none of their own: the second na everywhere, ba as a
    // lower member and Assamese ra behind a virama.
    constexpr void AddSecondLetters()
    {
        const auto second = [this](int node, WCHAR letter, WCHAR other) {
            const int there = Find(node, letter);
            if (there != none && Find(node, other) == none) Join(node, other, there);
        };
        for (int node = 0; node < m_nodeCount; ++node) {
            second(node, 0x09A8, secondNa);
            if (m_nodes[node].code != bengaliVirama) continue;
            second(node, 0x09AC, 0x09D3);
            second(node, 0x09B0, 0x09F0);
        }
    }

    // The first place where all branches of a node meet free cells, and no other node has its place.
    constexpr int PlaceFor(int node)
    {
        if (m_nodes[node].firstBranch == none) return 0;
        int place = node == 0 ? 0 : 1;
        while (!Fits(node, place)) ++place;
        m_taken[place] = true;
        for (int b = m_nodes[node].firstBranch; b != none; b = m_branches[b].next)
            m_used[place + m_branches[b].code - bengaliStart] = true;
        return place;
    }
    constexpr bool Fits(int node, int place) const
    {
        if (m_taken[place]) return false;
        for (int b = m_nodes[node].firstBranch; b != none; b = m_branches[b].next)
            if (m_used[place + m_branches[b].code - bengaliStart]) return false;
        return true;
    }
    constexpr void WriteCells(int node)
    {
        for (int b = m_nodes[node].firstBranch; b != none; b = m_branches[b].next) {
            const Node& to = m_nodes[m_branches[b].node];
            m_trie.cells[m_nodes[node].place + m_branches[b].code - bengaliStart] = {
                static_cast<std::uint16_t>(m_nodes[node].place), static_cast<std::uint16_t>(to.place),
                static_cast<std::uint16_t>(to.leaf)};
        }
    }

    BengaliTrie m_trie{};
    Node m_nodes[mostNodes];
    Branch m_branches[mostBranches] = {};
    bool m_taken[BengaliTrie::mostCells] = {}, m_used[BengaliTrie::mostCells] = {};
    int m_nodeCount = 1, m_branchCount = 0, m_leafCount = 0;
};

} // namespace corekit::detail
