#include "corekit/unicode/codepages/CodePageConversion.h"

#include "corekit/framework/Exception.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/TextScan.h"
#include "corekit/platform/Utf8Text.h"
#include "corekit/unicode/codepages/IsciiUnits.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace corekit::detail;

constexpr int shortText = 256;

constexpr int firstOwnPage = 0x10000; // and below it the machine's

struct OwnPage {
    int number;
    const char* name;
};

constexpr OwnPage ownPages[] = {
    {CP_ISCII89, "ISCII-89 (Indian Scripts)"},
    {CP_OWN_UTF8, "UTF-8 (UCS Translation Format - 8)"},
};

const OwnPage* ownPageAt(int index)
{
    return index >= 0 && index < cconvGetCPCount() ? &ownPages[index] : nullptr;
}

// Takes what `convert` writes, which is given a place and its size and returns the length of the result or 0.
// The room is what is likely enough; where it is not, the length is asked for. Most texts are short: these
// are written aside, so that the string gets no more than it needs.
template <class Char, class String, class Convert>
void convertInto(String& out, LONGLONG room, Convert convert)
{
    const auto isShort = [](int written) {
        return written == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER;
    };
    int written = 0;
    if (room <= shortText) {
        Char aside[shortText];
        written = convert(aside, shortText);
        if (!isShort(written)) return out.AssignCopy(written, aside);
    } else if (room <= INT_MAX) {
        written = convert(out.GetBuffer(static_cast<int>(room)), static_cast<int>(room));
        out.ReleaseBuffer(written);
        if (!isShort(written)) return;
    }
    const int needed = convert(nullptr, 0);
    if (needed > 0) out.ReleaseBuffer(convert(out.GetBuffer(needed), needed));
}

// A short text of UTF-8, written aside; whether all of it was plain.
bool widenShort(Utf8Forms forms, std::string_view text, StringW& out)
{
    WCHAR aside[shortText];
    const auto end = widenUtf8(forms, text, aside, shortText);
    out.AssignCopy(static_cast<int>(end.to - aside), aside);
    return end.from == text.data() + text.size();
}

bool narrowShort(Utf8Forms forms, std::u16string_view text, StringA& out)
{
    char aside[3 * shortText];
    const auto end = narrowUtf8(forms, text, aside, sizeof aside);
    out.AssignCopy(static_cast<int>(end.to - aside), aside);
    return end.from == text.data() + text.size();
}

bool isShortUtf8(UINT page, int length) { return page == CP_UTF8 && length <= shortText; }

void narrowByMachine(UINT page, StringA& out, const WCHAR* text, int length)
{
    out.Empty();
    if (length == 0) return;
    const std::u16string_view all(text, static_cast<std::size_t>(length));
    if (isShortUtf8(page, length) && narrowShort(Utf8Forms::proper, all, out)) return;
    LONGLONG room = length;
    if (length > shortText / 4) { // what is shorter fits aside, in nearly every page
        CPINFO info;
        if (!GetCPInfo(page, &info)) return;
        room *= info.MaxCharSize;
    }
    convertInto<char>(out, room, [&](char* to, int size) {
        return WideCharToMultiByte(page, 0, text, length, to, size, nullptr, nullptr);
    });
}

void widenByMachine(UINT page, StringW& out, const char* text, int length)
{
    out.Empty();
    if (length == 0) return;
    const std::string_view all(text, static_cast<std::size_t>(length));
    if (isShortUtf8(page, length) && widenShort(Utf8Forms::proper, all, out)) return;
    convertInto<WCHAR>(out, length, [&](WCHAR* to, int size) {
        return MultiByteToWideChar(page, 0, text, length, to, size);
    });
}

void widenIscii(StringW& out, const char* text, int length)
{
    out.Empty();
    std::transform(text, text + length, out.GetBufferSetLength(length), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x80 ? WCHAR{byte} : isciiUpperUnits[byte - 0x80u];
    });
}

template <class Char>
int lengthOf(const Char* text, int length)
{
    if (text == nullptr) return 0;
    return length < 0 ? countedLength(textLength(text)) : length;
}

} // namespace

int cconvGetCPCount() { return static_cast<int>(std::size(ownPages)); }

int cconvGetCodePage(int index)
{
    const OwnPage* const page = ownPageAt(index);
    return page != nullptr ? page->number : 0;
}

CString cconvGetCPName(int index)
{
    const OwnPage* const page = ownPageAt(index);
    return page != nullptr ? CString(page->name) : CString();
}

void UnicodeToAnsi(int codePage, StringA& out, const WCHAR* text, int length)
{
    if (codePage == CP_ISCII89) return; // a page to read from only
    if (codePage == CP_OWN_UTF8) return UnicodeToUTF8(text, length, out);
    if (codePage >= firstOwnPage) AfxThrowNotSupportedException();
    narrowByMachine(static_cast<UINT>(codePage), out, text, lengthOf(text, length));
}

void AnsiToUnicode(int codePage, StringW& out, const char* text, int length)
{
    length = lengthOf(text, length);
    if (codePage == CP_ISCII89) return widenIscii(out, text, length);
    if (codePage == CP_OWN_UTF8) return void(UTF8toUnicode(text, length, out));
    if (codePage >= firstOwnPage) AfxThrowNotSupportedException();
    widenByMachine(static_cast<UINT>(codePage), out, text, length);
}

// Most texts are short: these are converted aside, which is faster than to find their length first.
void UnicodeToUTF8(const WCHAR* text, int length, StringA& out)
{
    const std::u16string_view all(text, static_cast<std::size_t>(lengthOf(text, length)));
    out.Empty();
    if (all.size() <= shortText) return void(narrowShort(Utf8Forms::any, all, out));
    const int bytes = countedLength(utf8Length(all));
    narrowUtf8(Utf8Forms::any, all, out.GetBuffer(bytes), static_cast<std::size_t>(bytes));
    out.ReleaseBuffer(bytes);
}

BOOL UTF8toUnicode(const char* text, int length, StringW& out)
{
    const std::string_view all(text, static_cast<std::size_t>(lengthOf(text, length)));
    out.Empty();
    if (all.size() <= shortText) return widenShort(Utf8Forms::any, all, out);
    const int room = countedLength(utf16Length(all));
    WCHAR* const to = out.GetBuffer(room);
    const auto end = widenUtf8(Utf8Forms::any, all, to, static_cast<std::size_t>(room));
    out.ReleaseBuffer(static_cast<int>(end.to - to));
    return end.from == text + all.size();
}
