#include "corekit/foundation/DelimitedText.h"

#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

// Calls `add` for each item in front of a delimiter; gives what follows the last one.
template <class Ch, class Add>
std::basic_string_view<Ch> split(std::basic_string_view<Ch> text, Ch delimiter, Add add)
{
    for (std::size_t end; (end = text.find(delimiter)) != text.npos; text.remove_prefix(end + 1))
        add(text.substr(0, end));
    return text;
}

// What an array holds goes only when the new items are in it: the text may be one of the old ones.
template <class Array>
class OldItems {
public:
    explicit OldItems(Array& items) : m_items(items), m_count(items.GetSize()) {}
    ~OldItems() { m_items.RemoveAt(0, m_count); }
    OldItems(const OldItems&) = delete;
    OldItems& operator=(const OldItems&) = delete;

private:
    Array& m_items;
    const int m_count;
};

int lengthOf(std::size_t units) { return static_cast<int>(units); }

CString lowBytes(std::u16string_view units)
{
    CString item;
    char* to = item.GetBuffer(lengthOf(units.size()));
    std::transform(units.begin(), units.end(), to, [](WCHAR c) { return static_cast<char>(c); });
    item.ReleaseBuffer(lengthOf(units.size()));
    return item;
}

template <class Text, class Ch>
void splitInto(CArray<Text, const Ch*>& items, const Ch* text, std::size_t length, Ch delimiter, Ch stand)
{
    const OldItems old(items);
    const auto add = [&](std::basic_string_view<Ch> item) {
        const int index = items.GetSize();
        items.SetSize(index + 1);
        Text& added = items[index];
        added = Text(item.data(), lengthOf(item.size()));
        if (stand == delimiter) return;
        for (std::size_t i = item.find(stand); i != item.npos; i = item.find(stand, i + 1))
            added.SetAt(lengthOf(i), delimiter);
    };
    const auto rest = split(std::basic_string_view<Ch>(text, length), delimiter, add);
    if (!rest.empty()) add(rest);
}

template <class Add>
void splitLines(std::string_view text, bool skipEmpty, Add add)
{
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        const std::string_view line = text.substr(0, end);
        if (!line.empty() || (!skipEmpty && end != text.npos)) add(line);
        if (end == text.npos) return;
        text.remove_prefix(end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1));
    }
}

} // namespace

void ConvertDelimitedStringToArray(const char* text, CStringArray& items, char delimiter)
{
    const OldItems old(items);
    const auto add = [&](std::string_view item) { items.Add(CString(item.data(), lengthOf(item.size()))); };
    add(split(std::string_view(text), delimiter, add));
}

void ConvertDelimitedStringToArray(const WCHAR* text, CStringArray& items, WCHAR delimiter)
{
    const OldItems old(items);
    const auto add = [&](std::u16string_view item) { items.Add(lowBytes(item)); };
    add(split(std::u16string_view(text, crt16::wcslen(text)), delimiter, add));
}

void ConvertDelimitedStringToArray(const char* text, CArray<StringA, const char*>& items, char delimiter)
{
    splitInto(items, text, std::strlen(text), delimiter, delimiter);
}

void ConvertDelimitedStringToArray(const WCHAR* text, CArray<StringW, const WCHAR*>& items, WCHAR delimiter)
{
    splitInto(items, text, crt16::wcslen(text), delimiter, delimiter);
}

void ConvertDelimitedStringToArray(const WCHAR* text, CArray<StringW, const WCHAR*>& items, WCHAR delimiter,
                                   WCHAR stand)
{
    splitInto(items, text, crt16::wcslen(text), delimiter, stand);
}

void ConvertBufferIntoLines(const char* text, CStringArray& lines, int skipEmpty)
{
    const OldItems old(lines);
    splitLines(text, skipEmpty != 0,
               [&](std::string_view line) { lines.Add(CString(line.data(), lengthOf(line.size()))); });
}

void ConvertBufferIntoLines(const char* text, CArray<StringA, const char*>& lines, int skipEmpty)
{
    const OldItems old(lines);
    splitLines(text, skipEmpty != 0, [&](std::string_view line) {
        lines.SetSize(lines.GetSize() + 1);
        lines[lines.GetUpperBound()] = StringA(line.data(), lengthOf(line.size()));
    });
}
