#include "corekit/platform/CodePages.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/posix/text/Languages.h"
#include "corekit/platform/Runtime.h"

#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace {

using namespace corekit::detail;

UINT activePage()
{
    if (const char* const wanted = std::getenv("COREKIT_CODEPAGE")) {
        const char* const end = wanted + std::strlen(wanted);
        UINT number = 0;
        const auto parsed = std::from_chars(wanted, end, number);
        if (parsed.ec == std::errc() && parsed.ptr == end && findCodePage(number) != nullptr) return number;
    }
    return processLanguage().ansiPage;
}

UINT pageNumber(UINT codePage)
{
    switch (codePage) {
    case CP_ACP:
    case CP_THREAD_ACP:
        return GetACP();
    case CP_OEMCP:
        return GetOEMCP();
    default:
        return codePage;
    }
}

const CodePage* pageOf(UINT codePage)
{
    static const CodePage* const active = findCodePage(GetACP());
    static const CodePage* const utf8 = findCodePage(CP_UTF8);
    if (codePage == CP_ACP) return active;
    return codePage == CP_UTF8 ? utf8 : findCodePage(pageNumber(codePage));
}

DWORD widenFlags(UINT number)
{
    if (number == CP_UTF7) return 0;
    return number == CP_UTF8 ? MB_ERR_INVALID_CHARS
                             : MB_PRECOMPOSED | MB_USEGLYPHCHARS | MB_ERR_INVALID_CHARS;
}

DWORD narrowFlags(UINT number)
{
    if (number == CP_UTF7) return 0;
    return number == CP_UTF8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
}

// What is wrong with the call whatever the page, or NO_ERROR.
DWORD objection(const void* text, int length, const void* result, int size)
{
    const bool isEmpty = text == nullptr || length == 0 || length < -1;
    const bool hasNoPlace = size < 0 || (size > 0 && result == nullptr) || text == result;
    return isEmpty || hasNoPlace ? ERROR_INVALID_PARAMETER : NO_ERROR;
}

int finish(const Converted& converted, int size)
{
    if (converted.length > INT_MAX) return fail(ERROR_INVALID_PARAMETER, 0);
    if (size > 0 && !converted.isComplete) return fail(ERROR_INSUFFICIENT_BUFFER, 0);
    return static_cast<int>(converted.length);
}

} // namespace

UINT GetACP()
{
    static const UINT page = activePage();
    return page;
}

UINT GetOEMCP() { return processLanguage().oemPage; }

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* text, int length, WCHAR* result, int size)
{
    if (const DWORD no = objection(text, length, result, size); no != NO_ERROR) return fail(no, 0);
    const CodePage* const page = pageOf(codePage);
    if (page == nullptr) return fail(ERROR_INVALID_PARAMETER, 0);
    if (flags != 0 && (flags & ~widenFlags(pageNumber(codePage))) != 0) return fail(ERROR_INVALID_FLAGS, 0);
    const std::size_t count = length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
    const Converted converted = page->widen({text, count}, result, static_cast<std::size_t>(size));
    if (converted.hasUnknown && (flags & MB_ERR_INVALID_CHARS) != 0)
        return fail(ERROR_NO_UNICODE_TRANSLATION, 0);
    return finish(converted, size);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* text, int length, char* result, int size,
                        const char* defaultChar, BOOL* usedDefault)
{
    if (const DWORD no = objection(text, length, result, size); no != NO_ERROR) return fail(no, 0);
    const UINT number = pageNumber(codePage);
    const CodePage* const page = pageOf(codePage);
    if (page == nullptr) return fail(ERROR_INVALID_PARAMETER, 0);
    const bool isUnicode = number == CP_UTF8 || number == CP_UTF7;
    if (isUnicode && (defaultChar != nullptr || usedDefault != nullptr))
        return fail(ERROR_INVALID_PARAMETER, 0);
    if ((flags & ~narrowFlags(number)) != 0) return fail(ERROR_INVALID_FLAGS, 0);
    const std::size_t count = length < 0 ? crt16::wcslen(text) + 1 : static_cast<std::size_t>(length);
    const std::string_view replacement =
        defaultChar != nullptr ? std::string_view(defaultChar) : std::string_view();
    const Converted converted =
        page->narrow({text, count}, result, static_cast<std::size_t>(size), replacement);
    if (usedDefault != nullptr) *usedDefault = converted.hasUnknown;
    if (converted.hasUnknown && (flags & WC_ERR_INVALID_CHARS) != 0)
        return fail(ERROR_NO_UNICODE_TRANSLATION, 0);
    return finish(converted, size);
}

BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte)
{
    const CodePage* const page = pageOf(codePage);
    return page != nullptr && page->isLeadByte(byte);
}

BOOL GetCPInfo(UINT codePage, CPINFO* info)
{
    const CodePage* const page = pageOf(codePage);
    if (page == nullptr || info == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    *info = {static_cast<UINT>(page->longest()), {page->questionMark(), 0}, {}};
    std::size_t next = 0;
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (!page->isLeadByte(static_cast<BYTE>(byte))) continue;
        const bool goesOn = next > 0 && info->LeadByte[next - 1] == byte - 1;
        if (!goesOn && next + 2 > MAX_LEADBYTES - 2) break; // the list ends with a pair of zeros
        if (!goesOn) info->LeadByte[next] = static_cast<BYTE>(byte), next += 2;
        info->LeadByte[next - 1] = static_cast<BYTE>(byte);
    }
    return TRUE;
}

BOOL EnumSystemCodePagesA(CODEPAGE_ENUMPROCA proc, DWORD flags)
{
    if (proc == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (flags != CP_INSTALLED && flags != CP_SUPPORTED) return fail(ERROR_INVALID_FLAGS, FALSE);
    for (const UINT number : codePageNumbers()) {
        char text[12] = {};
        std::to_chars(text, text + sizeof text - 1, number);
        if (!proc(text)) break;
    }
    return TRUE;
}
