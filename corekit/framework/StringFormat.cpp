// CString's printf and message forms.
#include "corekit/framework/InsertText.h"
#include "corekit/framework/String.h"

#include <cstdio>

void CString::FormatV(const char* format, va_list args)
{
    CString result;
    char small[256];
    va_list again;
    va_copy(again, args);
    const int length = format ? std::vsnprintf(small, sizeof small, format, args) : 0;
    if (length > 0 && static_cast<std::size_t>(length) < sizeof small) {
        result = CString(small, length);
    } else if (length > 0) {
        std::vsnprintf(result.GetBuffer(length), static_cast<std::size_t>(length) + 1, format, again);
        result.SetLength(length);
    }
    va_end(again);
    *this = std::move(result);
}

void CString::Format(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::Format(UINT formatId, ...)
{
    CString format;
    format.LoadString(formatId);
    va_list args;
    va_start(args, formatId);
    FormatV(format, args);
    va_end(args);
}
