// The commands of a program: what each is called, the picture of its button, the keys that reach it.
//
//     CCommandList& list = GetCommandList();
//     list.RegisterCommand(idStart, smallPictures, largePictures, 0, "Prompter!Play", "Start");
//     list.RegisterAcceleratorTable("Main window", mainKeys, fixedKeys);
//     list.LoadAcceleratorTables(&settings);
//     HACCEL* const keys = list.GetAcceleratorTable(mainKeys);
//
// A host registers first, then loads the user's keys, then asks for tables: a table is built when it is first
// asked for, and keys that come later do not change it. What is registered twice stays as it was first. The
// user's keys are kept as differences from the default tables. User-interface thread only.
#pragma once

#include "corekit/commands/CmdItem.h"
#include "corekit/commands/KeyTables.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/framework/Array.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/Accelerators.h"

#include <deque>
#include <vector>

class CFrameWnd;
class CPropertyStore;
class CRect;

class COREKIT_API CCommandList : public CObject, public corekit::detail::ToolBarCommands {
    DECLARE_DYNAMIC(CCommandList)
public:
    using AccelArray = CArray<tagACCEL, tagACCEL&>;
    using CustomTableArray = corekit::detail::CustomAcceleratorTables;

    CCommandList() = default;
    ~CCommandList() override; // destroys the tables that were built

    // ---- Commands
    // A command by its number, the bitmap resources with its small and its large picture (0: none) and the
    // index of the picture in them, and its category, a path with "!" between the parts. Texts are copied.
    void RegisterCommand(UINT command, UINT smallBitmap, UINT largeBitmap, UINT imageIndex,
                         const char* category, const char* name);
    // 1 and a copy of the item, or 0.
    int GetItemByCommand(UINT command, CCmdItem& item) const override;

    // ---- Keys. Tables are resources: one with the default keys, one with keys that nobody can change.
    // Under the name of the place where the keys count. A missing resource has no keys.
    void RegisterAcceleratorTable(const char* name, UINT tableId, UINT fixedTableId);
    // Where the table's handle stands, for good; null for a table that is not registered. The handle is null
    // where there are no keys.
    HACCEL* GetAcceleratorTable(UINT tableId);
    // Replaces the array with the default keys; with nothing where there are none.
    static void GetDefaultAccelTable(int tableId, AccelArray& entries);
    // Replaces the array with a copy of the user's keys, and the user's keys with a copy of the array;
    // tables that were built stay until RebuildAcceleratorTables.
    void GetCustomAccelTableArray(CustomTableArray& tables) const;
    void SetCustomAccelTableArray(const CustomTableArray& tables);
    // 0 for a null store, else 1. Loading adds to what is there, so it is meant to run once.
    int LoadAcceleratorTables(CPropertyStore* store);
    int SaveAcceleratorTables(CPropertyStore* store) const;
    // The tables that were built, anew from the keys as they are now; their handles stay where they stand.
    void RebuildAcceleratorTables();

    // The user's changes: keys, toolbars and, with a macro store, the macro toolbar, whose changed and shown
    // flags are the host's. 1 after OK, when the keys have been stored (a key store may be null) and the
    // tables that were built have been built anew; 0 after Cancel or for a table that is not registered.
    int Configure(CFrameWnd* frame, UINT tableId, CPropertyStore* keyStore, CPropertyStore* macroStore,
                  CPropertyStore* macroListA, CPropertyStore* macroListB, int* changed, int* showToolbar);

    // ---- Toolbars that a user gets at first
    // A bar by its number and name, with commands for its buttons, 0 being a separator. The first
    // registration of a number counts.
    void RegisterDefaultToolbar(UINT id, const char* name, const CUIntArray& buttons);

    int GetDefaultToolbarCount() const { return static_cast<int>(m_defaultToolbars.size()); }
    // 0, and nothing changes, for an index that does not exist.
    int GetDefaultToolbarByIndex(int index, UINT& id, CString& name, CUIntArray& buttons) const;

    // ---- Toolbars of the program, not owned; one whose window goes leaves the list.
    // Nothing happens for a bar, or the id of a bar, that is listed already.
    void AddToolbar(CIntelliToolBar* toolbar);
    void RemoveToolbar(const CIntelliToolBar* toolbar) override;
    int GetToolbarCount() const { return static_cast<int>(m_toolbars.size()); }
    CIntelliToolBar* GetToolbarByIndex(int index) const; // null out of range
    void DestroyAllToolbars();                           // from the last to the first
    // 1 and the first bar with a button of the command, its index and its rectangle on the screen, or 0.
    int FindToolbarButton(UINT command, CIntelliToolBar*& toolbar, int& index, CRect& rect) const;
    // Bars are kept with the layout of their frame; 0 for a null store, else 1.
    int LoadToolBars(CPropertyStore* store) const { return store != nullptr; }
    int SaveToolBars(CPropertyStore* store) const { return store != nullptr; }

private:
    friend class PPage_CustomiseKeyboard;
    friend class DLG_NewToolbar;

    struct KeyTable {
        CString name; // of the place where the keys count
        UINT id, fixedId;
        HACCEL handle; // null until asked for
    };
    struct DefaultToolbar {
        UINT id;
        CString name;
        std::vector<UINT> buttons;
    };

    int GetCommandIndex(UINT command) const; // -1 for none
    int GetRegisteredAccelTableSize() const { return static_cast<int>(m_tables.size()); }
    int FindAccelTableID(const CString& name) const; // of the last table of that name, -1 without one
    void GetDefaultAccelTableByIndex(int index, AccelArray& entries) const;
    int FindCustomAccelTable(UINT tableId) const; // the last of that number, -1 without one
    HACCEL Build(const KeyTable& table) const;    // for the caller; null without keys

    std::vector<CCmdItem> m_commands;
    std::deque<KeyTable> m_tables;            // their places are known outside
    CustomTableArray m_customTables;          // the user's keys
    std::vector<CIntelliToolBar*> m_toolbars; // not owned
    std::vector<DefaultToolbar> m_defaultToolbars;
};

// The program's own, which lives until the process ends.
COREKIT_API CCommandList& GetCommandList();
