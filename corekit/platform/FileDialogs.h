// Choosing files and folders. User-interface thread; elsewhere, and where nobody can see windows, as if the
// user had cancelled.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// In effect: asking before an existing file is written over, several files at once, only files that exist.
// The others are accepted.
inline constexpr DWORD OFN_READONLY = 0x1, OFN_OVERWRITEPROMPT = 0x2, OFN_HIDEREADONLY = 0x4,
                       OFN_NOCHANGEDIR = 0x8, OFN_ALLOWMULTISELECT = 0x200, OFN_PATHMUSTEXIST = 0x800,
                       OFN_FILEMUSTEXIST = 0x1000, OFN_CREATEPROMPT = 0x2000, OFN_EXPLORER = 0x80000;

struct OPENFILENAMEA {
    DWORD lStructSize;       // not looked at
    HWND hwndOwner;          // whose top window takes no input; may be null
    HINSTANCE hInstance;     // not used
    const char* lpstrFilter; // pairs "Texts\0*.txt;*.log\0", a further zero at the end; may be null
    char* lpstrCustomFilter; // not used
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;          // of the pair in use, from 1; comes back
    char* lpstrFile;             // in: a name to begin with, or empty; out: the path
    DWORD nMaxFile;              // bytes of lpstrFile
    char* lpstrFileTitle;        // out: the name without its folders; may be null
    DWORD nMaxFileTitle;         // bytes of it
    const char* lpstrInitialDir; // folder to begin in; may be null
    const char* lpstrTitle;      // caption; may be null
    DWORD Flags;                 // OFN_
    WORD nFileOffset;            // out: where in lpstrFile the name begins,
    WORD nFileExtension;         // and what follows its last dot; 0 without one
    const char* lpstrDefExt;     // added to a name without a dot
    LPARAM lCustData;            // not used
};
// FALSE after a cancel, or if the path does not fit. With OFN_ALLOWMULTISELECT and more than one file the
// folder and the names follow each other, each ended by a zero, and a further zero ends the list.
COREKIT_API BOOL GetOpenFileNameA(OPENFILENAMEA* choice);
COREKIT_API BOOL GetSaveFileNameA(OPENFILENAMEA* choice);

// A place in the shell's tree; here always a folder. To be freed with ILFree.
struct _ITEMIDLIST;
COREKIT_API _ITEMIDLIST* ILCreateFromPathA(const char* path); // null for an empty or overlong path
COREKIT_API void ILFree(_ITEMIDLIST* list);
// MAX_PATH bytes at most; 0 for null.
COREKIT_API BOOL SHGetPathFromIDListA(const _ITEMIDLIST* list, char* path);

// The last one lets the user make no new folder; the others go without saying.
inline constexpr UINT BIF_RETURNONLYFSDIRS = 0x1, BIF_EDITBOX = 0x10, BIF_NEWDIALOGSTYLE = 0x40,
                      BIF_NONEWFOLDERBUTTON = 0x200;
struct BROWSEINFOA {
    HWND hwndOwner;
    const _ITEMIDLIST* pidlRoot; // what is chosen lies in there; null: anywhere
    char* pszDisplayName;        // out: the folder's own name, MAX_PATH bytes; may be null
    const char* lpszTitle;
    UINT ulFlags;
    void* lpfn; // not used, like the next
    LPARAM lParam;
    int iImage;
};
// Null after a cancel.
COREKIT_API _ITEMIDLIST* SHBrowseForFolderA(BROWSEINFOA* choice);
