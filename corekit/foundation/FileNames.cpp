#include "corekit/foundation/FileNames.h"

#include "corekit/platform/ShellFolders.h"

CString File_GetNameAndExt(const char* path)
{
    const CString text(path);
    return text.Mid(text.ReverseFind('\\') + 1);
}

CString File_GetNameOnly(const char* path)
{
    const CString name = File_GetNameAndExt(path);
    const int dot = name.ReverseFind('.');
    return dot > 0 ? name.Left(dot) : name;
}

CString File_GetExtension(const char* path)
{
    const CString text(path);
    const int dot = text.ReverseFind('.');
    return dot > 0 ? text.Mid(dot + 1) : text;
}

CString File_GetDirectory(const char* path)
{
    const CString text(path);
    const int separator = text.ReverseFind('\\');
    return separator > 0 ? text.Left(separator) : text;
}

CString File_GetDisplayName(const char* path)
{
    SHFILEINFOA info;
    return SHGetFileInfoA(path, 0, &info, sizeof info, SHGFI_DISPLAYNAME) ? CString(info.szDisplayName)
                                                                          : CString(path);
}
