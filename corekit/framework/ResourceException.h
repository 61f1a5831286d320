// Something that a window is made of is not to be had: the window itself, a picture, a template.
//
// Constructors of windows and dialogs throw it where they have no other way to fail. As every exception it
// is caught by pointer and freed with Delete.
//
//     if (!Create(nullptr, "Script", WS_OVERLAPPEDWINDOW)) AfxThrowResourceException();
#pragma once

#include "corekit/framework/Exception.h"

// Says nothing of which resource it was.
class COREKIT_API CResourceException : public CException {
    DECLARE_DYNAMIC(CResourceException)
public:
    // With bAutoDelete 0, Delete leaves the object alone.
    explicit CResourceException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    // "A required resource was unavailable.", cut to `size` - 1 bytes; 0 for a null buffer or size 0.
    BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) override;
};

// A new object for the catcher to Delete; needs memory, unlike those of Exception.h.
[[noreturn]] COREKIT_API void AfxThrowResourceException();
