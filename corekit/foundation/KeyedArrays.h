// Short tables that tie a name or a number to a number or a class identifier.
//
// Adding costs no search and refuses no duplicate: searches run from the last pair to the first, so a later
// pair shadows an earlier one. Searches are linear, which suits the dozens of rows these tables are for.
// Names compare letter by letter, case included. A search answers 1 and writes the other half of the pair, or
// 0 and leaves the output alone; an index outside the table reads as an empty pair. One thread at a time.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Export.h"

namespace corekit::detail {

// The pairs behind every table of this file. Values are found by ==.
template <class First, class Second>
class PairList {
public:
    struct Pair {
        First first{};
        Second second{};
    };

    int GetSize() const { return m_pairs.GetSize(); }
    const Pair& At(int index) const { return m_pairs[index]; }
    void Add(const First& first, const Second& second) { m_pairs.Add({first, second}); }
    void RemoveAt(int index) { m_pairs.RemoveAt(index); }
    void Empty() { m_pairs.RemoveAll(); }

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

    CArray<Pair, const Pair&> m_pairs;
};

// A table from a text to a class identifier.
template <class Text, class Ch>
class TextClassArray : public CObject {
public:
    int GetSize() const { return m_pairs.GetSize(); }
    int FindString(const Ch* key, _GUID& value) const { return m_pairs.FindFirst(key, value); }
    int FindClassID(const _GUID& key, Text& value) const { return m_pairs.FindSecond(key, value); }
    Text GetString(int index) const { return m_pairs.At(index).first; }
    _GUID GetClassID(int index) const { return m_pairs.At(index).second; }
    void Add(const Ch* key, const _GUID& value) { m_pairs.Add(key, value); }
    void Empty() { m_pairs.Empty(); }

protected:
    PairList<Text, _GUID> m_pairs;
};

// A table from a text to a number.
template <class Text, class Ch>
class TextIntArray : public CObject {
public:
    int GetSize() const { return m_pairs.GetSize(); }
    int FindString(const Ch* key, int& value) const { return m_pairs.FindFirst(key, value); }
    int FindInteger(int key, Text& value) const { return m_pairs.FindSecond(key, value); }
    Text GetString(int index) const { return m_pairs.At(index).first; }
    int GetInteger(int index) const { return m_pairs.At(index).second; }
    void Add(const Ch* key, int value) { m_pairs.Add(key, value); }
    void Empty() { m_pairs.Empty(); }

protected:
    PairList<Text, int> m_pairs;
};

} // namespace corekit::detail

class COREKIT_API CStringCLSIDArray : public corekit::detail::TextClassArray<CString, char> {
    DECLARE_DYNAMIC(CStringCLSIDArray)
public:
    void RemoveAt(int index) { m_pairs.RemoveAt(index); }
};

class COREKIT_API StringWCLSIDArray : public corekit::detail::TextClassArray<StringW, WCHAR> {
    DECLARE_DYNAMIC(StringWCLSIDArray)
};

class COREKIT_API StringACLSIDArray : public corekit::detail::TextClassArray<StringA, char> {
    DECLARE_DYNAMIC(StringACLSIDArray)
};

class COREKIT_API StringWIntArray : public corekit::detail::TextIntArray<StringW, WCHAR> {
    DECLARE_DYNAMIC(StringWIntArray)
};

class COREKIT_API CStringIntArray : public corekit::detail::TextIntArray<CString, char> {
    DECLARE_DYNAMIC(CStringIntArray)
};

// From a number to a class identifier, read by index only.
class COREKIT_API CIntCLSIDArray : public CObject {
    DECLARE_DYNAMIC(CIntCLSIDArray)
public:
    int GetSize() const { return m_pairs.GetSize(); }
    int GetInteger(int index) const { return m_pairs.At(index).first; }
    _GUID GetClassID(int index) const { return m_pairs.At(index).second; }
    void GetData(int index, int& key, _GUID& value) const
    {
        key = m_pairs.At(index).first;
        value = m_pairs.At(index).second;
    }
    void Add(int key, const _GUID& value) { m_pairs.Add(key, value); }
    void Empty() { m_pairs.Empty(); }

private:
    corekit::detail::PairList<int, _GUID> m_pairs;
};
