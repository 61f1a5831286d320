// The folders that users and programs share, by the documented numbers, and names as the user sees them.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Of the user: desktop (two numbers), documents, music, videos, pictures and templates; programs and start
// menu (~/.local/share/applications), what starts by itself (~/.config/autostart), fonts, settings (APPDATA:
// ~/.config), data (LOCAL_APPDATA: ~/.local/share), cache, home (PROFILE).
//
// Of the machine: programs, what starts by itself, settings (/etc/xdg); WINDOWS is /etc, SYSTEM /usr/lib,
// PROGRAM_FILES /opt.
inline constexpr int CSIDL_DESKTOP = 0x00, CSIDL_PROGRAMS = 0x02, CSIDL_PERSONAL = 0x05, CSIDL_STARTUP = 0x07,
                     CSIDL_STARTMENU = 0x0B, CSIDL_MYMUSIC = 0x0D, CSIDL_MYVIDEO = 0x0E,
                     CSIDL_DESKTOPDIRECTORY = 0x10, CSIDL_FONTS = 0x14, CSIDL_TEMPLATES = 0x15,
                     CSIDL_COMMON_PROGRAMS = 0x17, CSIDL_COMMON_STARTUP = 0x18, CSIDL_APPDATA = 0x1A,
                     CSIDL_LOCAL_APPDATA = 0x1C, CSIDL_INTERNET_CACHE = 0x20, CSIDL_COMMON_APPDATA = 0x23,
                     CSIDL_WINDOWS = 0x24, CSIDL_SYSTEM = 0x25, CSIDL_PROGRAM_FILES = 0x26,
                     CSIDL_MYPICTURES = 0x27, CSIDL_PROFILE = 0x28;

// Copies the folder's path into MAX_PATH characters. Desktop, documents, music, pictures, videos and
// templates are the XDG user directories, as environment or user-dirs.dirs name them; the others lie at
// their XDG base directories. The folder need not exist; with `create` it is made. 0 for a number that has
// no folder here, without a home, and for a path that is too long. The window is not used. Last errors: 87,
// 3, 206, or why the folder could not be made.
COREKIT_API BOOL SHGetSpecialFolderPathA(HWND owner, char* path, int folder, BOOL create);

// Only the display name is filled in; the rest is 0.
struct SHFILEINFOA {
    HICON hIcon;
    int iIcon;
    DWORD dwAttributes;
    char szDisplayName[MAX_PATH]; // at most 259 bytes
    char szTypeName[80];
};
inline constexpr UINT SHGFI_DISPLAYNAME = 0x200;
// With SHGFI_DISPLAYNAME alone: the name of what lies at the path, without its folders. 0 if nothing does. A
// link is not followed. `size` is that of the record.
COREKIT_API DWORD_PTR SHGetFileInfoA(const char* path, DWORD attributes, SHFILEINFOA* info, UINT size,
                                     UINT flags);
