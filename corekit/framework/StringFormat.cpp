// CString's printf forms.
#include "corekit/framework/String.h"
#include "corekit/framework/TextFormat.h"

using namespace corekit::detail;

void CString::FormatFrom(const char* format, const FormatSource& source)
{
    char small[256];
    if (!format) format = "";
    const int length = writeFormat({small, small + sizeof small}, format, source).length;
    if (length <= static_cast<int>(sizeof small)) {
        *this = CString(small, length);
        return;
    }
    CString result; // the arguments may lie in this one
    char* const text = result.GetBufferSetLength(length);
    writeFormat({text, text + length}, format, source);
    *this = std::move(result);
}

void CString::FormatV(const char* format, va_list args) { FormatFrom(format, FormatSource(args)); }

void CString::FormatList(const char* format, FormatArguments args) { FormatFrom(format, FormatSource(args)); }
