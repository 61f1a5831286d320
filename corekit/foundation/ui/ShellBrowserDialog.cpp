#include "corekit/foundation/ui/ShellBrowserDialog.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/ui/Wnd.h"

#include <memory>

CString ShellBrowserDialog(CWnd* parent, const char* title, unsigned int flags, _ITEMIDLIST* root)
{
    char name[MAX_PATH] = "", path[MAX_PATH] = "";
    BROWSEINFOA choice{};
    choice.hwndOwner = parent ? parent->GetSafeHwnd() : nullptr;
    choice.pidlRoot = root;
    choice.pszDisplayName = name;
    choice.lpszTitle = title;
    choice.ulFlags = flags;
    const std::unique_ptr<_ITEMIDLIST, decltype(&ILFree)> chosen(SHBrowseForFolderA(&choice), &ILFree);
    SHGetPathFromIDListA(chosen.get(), path);
    return path;
}

CString ShellBrowserDialog(CWnd* parent, unsigned int titleId, unsigned int flags, _ITEMIDLIST* root)
{
    return ShellBrowserDialog(parent, LoadResourceString(titleId), flags, root);
}
