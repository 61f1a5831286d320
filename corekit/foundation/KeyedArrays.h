// Short tables that tie a name or a number to a number or a class identifier.
//
// Adding costs no search and refuses no duplicate: searches run from the last pair to the first, so a later
// pair shadows an earlier one. Searches are linear, which suits the dozens of rows these tables are for.
// Names compare letter by letter, case included. A search answers 1 and writes the other half of the pair, or
// 0 and leaves the output alone; an index outside the table reads as an empty pair. One thread at a time.
//
//     CStringIntArray rates;
//     rates.Add("PAL", 25);
//     rates.Add("NTSC", 30);
//     int rate = 0;
//     if (rates.FindString("NTSC", rate)) ... // rate is 30
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

namespace corekit::detail {

// The pairs behind every table of this file, in the order in which they were added. Values are found by ==.
template <class First, class Second>
class PairList {
public:
    // One row; an empty pair holds two values of their default.
    struct Pair {
        First first{};   // the key, for the most part
        Second second{}; // what it stands for
    };

    // Number of pairs, duplicates included.
    int GetSize() const { return m_pairs.GetSize(); }
    // The reference lives until the table next changes.
    const Pair& At(int index) const { return m_pairs[index]; }
    // Behind the last pair, so that it is found first. Both halves are copied.
    void Add(const First& first, const Second& second) { m_pairs.Add({first, second}); }
    // The pairs behind it move up. An index outside the table changes nothing.
    void RemoveAt(int index) { m_pairs.RemoveAt(index); }
    // Drops all pairs.
    void Empty() { m_pairs.RemoveAll(); }

    // The second half of the last pair whose first half is the key, 1 if there is one; and the other way
    // round. Keys are compared by == as they are given, so a text is looked for without a copy of it.
    template <class Key>
    int FindFirst(const Key& key, Second& found) const
    {
        return Find([&](const Pair& pair) { return pair.first == key; },
                    [&](const Pair& pair) { found = pair.second; });
    }
    int FindSecond(const Second& key, First& found) const
    {
        return Find([&](const Pair& pair) { return pair.second == key; },
                    [&](const Pair& pair) { found = pair.first; });
    }

private:
    // Looks from the end to the front and hands the first match to `take`.
    template <class Matches, class Take>
    int Find(Matches matches, Take take) const
    {
        for (int i = m_pairs.GetUpperBound(); i >= 0; --i) {
            if (!matches(m_pairs[i])) continue;
            take(m_pairs[i]);
            return 1;
        }
        return 0;
    }

    CArray<Pair, const Pair&> m_pairs; // grows by itself
};

// A table from a text to a class identifier. The table keeps copies of the texts. `Text` is the string
// class of the texts, `Ch` its character.
template <class Text, class Ch>
class TextClassArray : public CObject {
public:
    // Number of pairs.
    int GetSize() const { return m_pairs.GetSize(); }
    // The identifier of a name, which is zero-terminated and not null. 1 if there is one.
    int FindString(const Ch* key, _GUID& value) const { return m_pairs.FindFirst(key, value); }
    // The name of an identifier. 1 if there is one.
    int FindClassID(const _GUID& key, Text& value) const { return m_pairs.FindSecond(key, value); }
    // The halves of one pair, counted from 0.
    Text GetString(int index) const { return m_pairs.At(index).first; } // empty outside the table
    // The null identifier outside the table.
    _GUID GetClassID(int index) const { return m_pairs.At(index).second; }
    // Adds a pair at the end. Null for the text counts as the empty one.
    void Add(const Ch* key, const _GUID& value) { m_pairs.Add(key, value); }
    // Removes all pairs.
    void Empty() { m_pairs.Empty(); }

protected:
    PairList<Text, _GUID> m_pairs; // in the order of adding
};

// A table from a text to a number. The table keeps copies of the texts. `Text` is the string class of the
// texts, `Ch` its character.
template <class Text, class Ch>
class TextIntArray : public CObject {
public:
    // Number of pairs.
    int GetSize() const { return m_pairs.GetSize(); }
    // The number of a name, which is zero-terminated and not null. 1 if there is one.
    int FindString(const Ch* key, int& value) const { return m_pairs.FindFirst(key, value); }
    // The name of a number. 1 if there is one.
    int FindInteger(int key, Text& value) const { return m_pairs.FindSecond(key, value); }
    // The halves of one pair, counted from 0.
    Text GetString(int index) const { return m_pairs.At(index).first; }
    int GetInteger(int index) const { return m_pairs.At(index).second; } // 0 outside the table
    // Adds a pair at the end. Null for the text counts as the empty one.
    void Add(const Ch* key, int value) { m_pairs.Add(key, value); }
    // Removes all pairs.
    void Empty() { m_pairs.Empty(); }

protected:
    PairList<Text, int> m_pairs; // in the order of adding
};

} // namespace corekit::detail

// From a narrow name to a class identifier; the only one of which single pairs can be removed. For classes
// that are known by name in settings and scripts.
class COREKIT_API CStringCLSIDArray : public corekit::detail::TextClassArray<CString, char> {
    DECLARE_DYNAMIC(CStringCLSIDArray)
public:
    // The pairs behind it move up by one index.
    void RemoveAt(int index) { m_pairs.RemoveAt(index); }
};

// From a wide name, UTF-16, to a class identifier.
class COREKIT_API StringWCLSIDArray : public corekit::detail::TextClassArray<StringW, WCHAR> {
    DECLARE_DYNAMIC(StringWCLSIDArray)
};

// From a narrow name to a class identifier, with texts as StringA.
class COREKIT_API StringACLSIDArray : public corekit::detail::TextClassArray<StringA, char> {
    DECLARE_DYNAMIC(StringACLSIDArray)
};

// From a wide name, UTF-16, to a number, such as a language by its name.
class COREKIT_API StringWIntArray : public corekit::detail::TextIntArray<StringW, WCHAR> {
    DECLARE_DYNAMIC(StringWIntArray)
};

// From a narrow name to a number, such as a locale by the name that a list shows.
class COREKIT_API CStringIntArray : public corekit::detail::TextIntArray<CString, char> {
    DECLARE_DYNAMIC(CStringIntArray)
};

// From a number to a class identifier, read by index only: there is no search.
class COREKIT_API CIntCLSIDArray : public CObject {
    DECLARE_DYNAMIC(CIntCLSIDArray)
public:
    // Number of pairs.
    int GetSize() const { return m_pairs.GetSize(); }
    // The halves of one pair, counted from 0.
    int GetInteger(int index) const { return m_pairs.At(index).first; }    // 0 outside the table
    _GUID GetClassID(int index) const { return m_pairs.At(index).second; } // the null identifier there
    // Both halves at once.
    void GetData(int index, int& key, _GUID& value) const
    {
        key = m_pairs.At(index).first;
        value = m_pairs.At(index).second;
    }
    // Adds a pair at the end.
    void Add(int key, const _GUID& value) { m_pairs.Add(key, value); }
    // Removes all pairs.
    void Empty() { m_pairs.Empty(); }

private:
    corekit::detail::PairList<int, _GUID> m_pairs; // in the order of adding
};
