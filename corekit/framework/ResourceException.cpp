#include "corekit/framework/ResourceException.h"

#include <string_view>

IMPLEMENT_DYNAMIC(CResourceException, CException)

BOOL CResourceException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext)
{
    constexpr std::string_view text = "A required resource was unavailable.";
    if (helpContext) *helpContext = 0;
    if (!buffer || size == 0) return FALSE;
    buffer[text.copy(buffer, size - 1)] = 0;
    return TRUE;
}

void AfxThrowResourceException() { throw new CResourceException; }
