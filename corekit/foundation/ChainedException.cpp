#include "corekit/foundation/ChainedException.h"

#include "corekit/framework/MessageBox.h"
#include "corekit/framework/Module.h"
#include "corekit/platform/Errors.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

IMPLEMENT_DYNAMIC(CChainedException, CException)

namespace {
constexpr const char* separator = "\n";

struct Free {
    void operator()(CException* e) const { e->Delete(); }
};
using OwnedException = std::unique_ptr<CException, Free>;

CChainedException* make(OwnedException inner, const char* message)
{
    auto* e = new (std::nothrow) CChainedException(message, inner.get());
    if (e) static_cast<void>(inner.release());
    return e;
}

// The text of one level that is not of our own class.
CString foreignText(CException* e)
{
    char text[1024] = "";
    e->GetErrorMessage(text, sizeof text);
    return text;
}

CString textOf(CException* e)
{
    if (!e) return {};
    if (e->IsKindOf(RUNTIME_CLASS(CChainedException)))
        return static_cast<CChainedException*>(e)->BuildMessageString();
    return foreignText(e);
}

int show(CWnd* parent, const CString& prefix, CException* e, UINT type)
{
    if (e && e->IsKindOf(RUNTIME_CLASS(CUserException))) return IDOK;
    return StockMessageBox(parent, prefix + textOf(e), type);
}

CString versionText(DWORD version)
{
    CString text;
    text.Format("%d.%02d", HIBYTE(version), LOBYTE(version));
    return text;
}
} // namespace

CChainedException::CChainedException(const char* message, CException* inner)
    : m_pInner(inner), m_message(message)
{
}

CChainedException::~CChainedException()
{
    if (m_pInner) m_pInner->Delete();
}

CString CChainedException::BuildMessageString()
{
    if (!m_pInner) return m_message;
    if (!m_pInner->IsKindOf(RUNTIME_CLASS(CChainedException)))
        return m_message + separator + foreignText(m_pInner);
    m_message += separator + static_cast<CChainedException*>(m_pInner)->BuildMessageString();
    return m_message;
}

BOOL CChainedException::GetErrorMessage(char* buffer, UINT size, UINT*)
{
    const CString text = BuildMessageString();
    if (!buffer || size == 0) return TRUE;
    const UINT length = std::min(static_cast<UINT>(text.GetLength()), size - 1);
    std::memcpy(buffer, text.GetString(), length);
    buffer[length] = 0;
    return TRUE;
}

int CChainedException::ReportError(CWnd* parent, UINT type, UINT)
{
    return StockMessageBox(parent, BuildMessageString(), type);
}

void ThrowChainedException(CException* inner, const char* message)
{
    throw make(OwnedException(inner), message);
}

void ThrowChainedException(CException* inner, UINT id)
{
    OwnedException owned(inner);
    const CString message = LoadResourceString(id);
    throw make(std::move(owned), message);
}

void ThrowChainedException(CException* inner, UINT id, const char* insert1)
{
    OwnedException owned(inner);
    CString message;
    AfxFormatString1(message, id, insert1);
    throw make(std::move(owned), message);
}

void ThrowChainedException(CException* inner, UINT id, const char* insert1, const char* insert2)
{
    OwnedException owned(inner);
    CString message;
    AfxFormatString2(message, id, insert1, insert2);
    throw make(std::move(owned), message);
}

void ThrowInvalidVersionException(const char* objectName, DWORD versionFound, DWORD maxVersion)
{
    const CString found = versionText(versionFound), highest = versionText(maxVersion);
    CString message;
    message.FormatMessage(message::invalidVersion, objectName, found.GetString(), highest.GetString());
    throw make(nullptr, message);
}

CChainedException* GetLastErrorException() { return GetLastErrorException(GetLastError()); }
CChainedException* GetLastErrorException(DWORD code) { return make(nullptr, GetSystemErrorString(code)); }

CString GetSystemErrorString(DWORD code)
{
    constexpr int room = 4096;
    CString text;
    char* buffer = text.GetBufferSetLength(room);
    buffer[0] = 0;
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, 0, buffer, room, nullptr);
    text.ReleaseBuffer();
    text.FreeExtra();
    return text;
}

CString GetLastErrorString() { return GetSystemErrorString(GetLastError()); }

CString GetExceptionMsg(UINT code)
{
    CString text;
    text.Format("Structured Exception code 0x%08X", code);
    return text;
}

CString GetExceptionMsg(CException* e)
{
    constexpr UINT room = 8192;
    CString text;
    char* buffer = text.GetBufferSetLength(room);
    buffer[0] = 0;
    if (e) e->GetErrorMessage(buffer, room);
    text.ReleaseBuffer();
    text.FreeExtra();
    return text;
}

int ExceptionMessageBox(CWnd* parent, CException* e, UINT type) { return show(parent, CString(), e, type); }

int ExceptionMessageBox(CWnd* parent, UINT prefixId, CException* e, UINT type)
{
    return show(parent, LoadResourceString(prefixId) + separator, e, type);
}

int ExceptionMessageBox(CWnd* parent, UINT prefixId, const char* insert, CException* e, UINT type)
{
    CString prefix;
    AfxFormatString1(prefix, prefixId, insert);
    return show(parent, prefix + separator, e, type);
}

int ExceptionMessageBox(CWnd* parent, const char* prefix, CException* e, UINT type)
{
    return show(parent, CString(prefix) + separator, e, type);
}

CString LoadResourceString(UINT id)
{
    CString text;
    text.LoadString(id);
    return text;
}

StringA LoadResourceStringA(UINT id)
{
    StringA text;
    text.LoadStringA(id);
    return text;
}

StringW LoadResourceStringW(UINT id)
{
    StringW text;
    text.LoadStringA(id);
    return text;
}
