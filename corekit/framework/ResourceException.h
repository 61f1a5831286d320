// Something that a window is made of is not to be had: the window itself, a picture, a template.
#pragma once

#include "corekit/framework/Exception.h"

class COREKIT_API CResourceException : public CException {
    DECLARE_DYNAMIC(CResourceException)
public:
    explicit CResourceException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

[[noreturn]] COREKIT_API void AfxThrowResourceException();
