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

const OwnPage* OwnPageAt(int index)
{
    return index >= 0 && index < cconvGetCPCount() ? &ownPages[index] : nullptr;
}

// Takes what `convert` writes, which is given a place and its size and returns the length of the result or 0.
// The room is what is likely enough; where it is not, the length is asked for. Most texts are short: these
// are written aside, so that the string gets no more than it needs.
template <class Char, class String, class Convert>
void Fill(String& out, LONGLONG room, Convert convert)
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
bool WidenShort(Utf8Forms forms, std::string_view text, StringW& out)
{
    WCHAR aside[shortText];
    const auto end = WidenUtf8(forms, text, aside, shortText);
    out.AssignCopy(static_cast<int>(end.to - aside), aside);
    return end.from == text.data() + text.size();
}

bool NarrowShort(Utf8Forms forms, std::u16string_view text, StringA& out)
{
    char aside[3 * shortText];
    const auto end = NarrowUtf8(forms, text, aside, sizeof aside);
    out.AssignCopy(static_cast<int>(end.to - aside), aside);
    return end.from == text.data() + text.size();
}

bool IsShortUtf8(UINT page, int length) { return page == CP_UTF8 && length <= shortText; }

void NarrowByMachine(UINT page, StringA& out, const WCHAR* text, int length)
{
    out.Empty();
    if (length == 0) return;
    const std::u16string_view all(text, static_cast<std::size_t>(length));
    if (IsShortUtf8(page, length) && NarrowShort(Utf8Forms::proper, all, out)) return;
    LONGLONG room = length;
    if (length > shortText / 4) { // what is shorter fits aside, in nearly every page
        CPINFO info;
        if (!GetCPInfo(page, &info)) return;
        room *= info.MaxCharSize;
    }
    Fill<char>(out, room, [&](char* to, int size) {
        return WideCharToMultiByte(page, 0, text, length, to, size, nullptr, nullptr);
    });
}

void WidenByMachine(UINT page, StringW& out, const char* text, int length)
{
    out.Empty();
    if (length == 0) return;
    const std::string_view all(text, static_cast<std::size_t>(length));
    if (IsShortUtf8(page, length) && WidenShort(Utf8Forms::proper, all, out)) return;
    Fill<WCHAR>(out, length,
                [&](WCHAR* to, int size) { return MultiByteToWideChar(page, 0, text, length, to, size); });
}

void WidenIscii(StringW& out, const char* text, int length)
{
    out.Empty();
    std::transform(text, text + length, out.GetBufferSetLength(length), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x80 ? WCHAR{byte} : isciiUpperUnits[byte - 0x80u];
    });
}

template <class Char>
int LengthOf(const Char* text, int length)
{
    if (text == nullptr) return 0;
    return length < 0 ? CountedLength(TextLength(text)) : length;
}

} // namespace

int cconvGetCPCount() { return static_cast<int>(std::size(ownPages)); }

int cconvGetCodePage(int index)
{
    const OwnPage* const page = OwnPageAt(index);
    return page != nullptr ? page->number : 0;
}

CString cconvGetCPName(int index)
{
    const OwnPage* const page = OwnPageAt(index);
    return page != nullptr ? CString(page->name) : CString();
}

void UnicodeToAnsi(int codePage, StringA& out, const WCHAR* text, int length)
{
    if (codePage == CP_ISCII89) return; // a page to read from only
    if (codePage == CP_OWN_UTF8) return UnicodeToUTF8(text, length, out);
    if (codePage >= firstOwnPage) AfxThrowNotSupportedException();
    NarrowByMachine(static_cast<UINT>(codePage), out, text, LengthOf(text, length));
}

void AnsiToUnicode(int codePage, StringW& out, const char* text, int length)
{
    length = LengthOf(text, length);
    if (codePage == CP_ISCII89) return WidenIscii(out, text, length);
    if (codePage == CP_OWN_UTF8) return void(UTF8toUnicode(text, length, out));
    if (codePage >= firstOwnPage) AfxThrowNotSupportedException();
    WidenByMachine(static_cast<UINT>(codePage), out, text, length);
}

// Most texts are short: these are converted aside, which is faster than to find their length first.
void UnicodeToUTF8(const WCHAR* text, int length, StringA& out)
{
    const std::u16string_view all(text, static_cast<std::size_t>(LengthOf(text, length)));
    out.Empty();
    if (all.size() <= shortText) return void(NarrowShort(Utf8Forms::any, all, out));
    const int bytes = CountedLength(Utf8Length(all));
    NarrowUtf8(Utf8Forms::any, all, out.GetBuffer(bytes), static_cast<std::size_t>(bytes));
    out.ReleaseBuffer(bytes);
}

BOOL UTF8toUnicode(const char* text, int length, StringW& out)
{
    const std::string_view all(text, static_cast<std::size_t>(LengthOf(text, length)));
    out.Empty();
    if (all.size() <= shortText) return WidenShort(Utf8Forms::any, all, out);
    const int room = CountedLength(Utf16Length(all));
    WCHAR* const to = out.GetBuffer(room);
    const auto end = WidenUtf8(Utf8Forms::any, all, to, static_cast<std::size_t>(room));
    out.ReleaseBuffer(static_cast<int>(end.to - to));
    return end.from == text + all.size();
}
