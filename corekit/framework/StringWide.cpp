// CString from 16-bit text, through the active code page.
#include "corekit/framework/Exception.h"
#include "corekit/framework/String.h"
#include "corekit/platform/CodePages.h"

#include <climits>
#include <string>

CString::CString(const WCHAR* text, int length) : CString()
{
    if (!text || length <= 0) return;
    const int bytes = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    if (bytes <= 0) return;
    WideCharToMultiByte(CP_ACP, 0, text, length, GetBufferSetLength(bytes), bytes, nullptr, nullptr);
}

CString::CString(const WCHAR* text) : CString()
{
    const std::size_t length = text ? std::char_traits<WCHAR>::length(text) : 0;
    if (length > INT_MAX) AfxThrowMemoryException();
    *this = CString(text, static_cast<int>(length));
}

CString& CString::operator=(const WCHAR* text) { return *this = CString(text); }
