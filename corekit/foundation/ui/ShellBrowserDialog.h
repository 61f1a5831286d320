// Choosing a folder.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/FileDialogs.h"

class CWnd;

// The path of the folder chosen; empty after a cancel. `flags` are BIF_; the folder lies below `root`, null
// being anywhere. User-interface thread.
COREKIT_API CString ShellBrowserDialog(CWnd* parent, const char* title, unsigned int flags,
                                       _ITEMIDLIST* root);
COREKIT_API CString ShellBrowserDialog(CWnd* parent, unsigned int titleId, unsigned int flags,
                                       _ITEMIDLIST* root);
