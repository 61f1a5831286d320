// Choosing a folder.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/FileDialogs.h"

class CWnd;

// Runs a modal dialog over `parent`, which may be null, and gives the full path of the folder chosen; empty
// after a cancel. `flags` are BIF_; the folder lies below `root`, null being anywhere, which stays the
// caller's. The title is the dialog's caption; its id is one of the string table. User-interface thread.
COREKIT_API CString ShellBrowserDialog(CWnd* parent, const char* title, unsigned int flags,
                                       _ITEMIDLIST* root);
COREKIT_API CString ShellBrowserDialog(CWnd* parent, unsigned int titleId, unsigned int flags,
                                       _ITEMIDLIST* root);
