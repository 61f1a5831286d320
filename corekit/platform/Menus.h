// Menus: lists of commands, separators and further menus, kept in memory for whoever shows them.
//
// A menu owns the menus that stand in it: they go when it goes, or when their item is deleted. A handle that
// has been destroyed is refused with ERROR_INVALID_MENU_HANDLE. Menus belong to the user-interface thread.
//
// Where a call takes a position or a command, its flags say which: MF_BYPOSITION counts from 0; MF_BYCOMMAND
// looks for the first item with that number, in the menus within as well. An item that is not there gives
// ERROR_MENU_ITEM_NOT_FOUND.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HMENU = struct HMENU__*;

inline constexpr DWORD ERROR_INVALID_MENU_HANDLE = 1401;
inline constexpr DWORD ERROR_MENU_ITEM_NOT_FOUND = 1456;

// Kind and state of an item, or-ed together.
inline constexpr UINT MF_STRING = 0;
inline constexpr UINT MF_ENABLED = 0;
inline constexpr UINT MF_UNCHECKED = 0;
inline constexpr UINT MF_GRAYED = 0x1;
inline constexpr UINT MF_DISABLED = 0x2;
inline constexpr UINT MF_CHECKED = 0x8;
inline constexpr UINT MF_POPUP = 0x10; // opens a menu
inline constexpr UINT MF_MENUBARBREAK = 0x20;
inline constexpr UINT MF_MENUBREAK = 0x40;
inline constexpr UINT MF_SEPARATOR = 0x800;
// How an item is named.
inline constexpr UINT MF_BYCOMMAND = 0;
inline constexpr UINT MF_BYPOSITION = 0x400;

// A menu without items: one for a bar, one to pop up.
COREKIT_API HMENU CreateMenu();
COREKIT_API HMENU CreatePopupMenu();
COREKIT_API BOOL DestroyMenu(HMENU menu);

// Adds an item before the one named, or at the end if there is none such. `item` is its command or, with
// MF_POPUP, the menu that it opens; a separator needs neither text nor number. 0 with error 87 for flags that
// do not stand above, and for a menu that would come to stand within itself.
COREKIT_API BOOL InsertMenuA(HMENU menu, UINT place, UINT flags, UINT_PTR item, const char* text);
COREKIT_API BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR item, const char* text);
// Puts another item in an item's place. A menu that it opened is destroyed, unless it opens that again.
COREKIT_API BOOL ModifyMenuA(HMENU menu, UINT place, UINT flags, UINT_PTR item, const char* text);
COREKIT_API BOOL DeleteMenu(HMENU menu, UINT place, UINT flags);

// -1 on failure.
COREKIT_API int GetMenuItemCount(HMENU menu);
// 0 for a separator; 0xFFFFFFFF for an item that opens a menu, and on failure.
COREKIT_API UINT GetMenuItemID(HMENU menu, int position);
// The menu that the item opens, or null.
COREKIT_API HMENU GetSubMenu(HMENU menu, int position);
// Kind and state; 0xFFFFFFFF on failure. Where the item opens a menu, only the low byte is that, and the next
// one is the number of items in there.
COREKIT_API UINT GetMenuState(HMENU menu, UINT place, UINT flags);
// Copies at most size - 1 characters and a terminator, and returns their number; for a null buffer the whole
// length. 0 for an item without text and on failure.
COREKIT_API int GetMenuStringA(HMENU menu, UINT place, char* buffer, int size, UINT flags);

// Sets MF_GRAYED and MF_DISABLED, or MF_CHECKED, as the flags say; returns what they were, 0xFFFFFFFF on
// failure.
COREKIT_API DWORD EnableMenuItem(HMENU menu, UINT place, UINT flags);
COREKIT_API DWORD CheckMenuItem(HMENU menu, UINT place, UINT flags);
