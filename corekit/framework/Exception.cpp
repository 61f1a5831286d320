#include "corekit/framework/Exception.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)

namespace {
BOOL copyMessage(std::string_view text, char* buffer, UINT size, UINT* helpContext)
{
    if (helpContext) *helpContext = 0;
    if (!buffer || size == 0) return FALSE;
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    return !text.empty();
}

// Never destroyed, so that it can be thrown until the very end of the process.
template <class T>
T* shared()
{
    alignas(T) static unsigned char memory[sizeof(T)];
    static T* const object = new (memory) T(FALSE);
    return object;
}
} // namespace

void CException::Delete()
{
    if (m_bAutoDelete) delete this;
}

BOOL CException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext)
{
    return copyMessage("", buffer, size, helpContext);
}

BOOL CMemoryException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext)
{
    return copyMessage("Out of memory.", buffer, size, helpContext);
}

BOOL CNotSupportedException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext)
{
    return copyMessage("An unsupported operation was attempted.", buffer, size, helpContext);
}

void AfxThrowMemoryException() { throw shared<CMemoryException>(); }
void AfxThrowUserException() { throw shared<CUserException>(); }
void AfxThrowNotSupportedException() { throw shared<CNotSupportedException>(); }
void AfxAbort() { std::abort(); }
