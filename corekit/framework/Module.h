// Modules: the program and the shared libraries in it, and the texts, dialogs and binary resources that each
// brings along.
//
// A library fills one static AFX_EXTENSION_MODULE with its string table when it is loaded, and puts a
// CDynLinkLibrary on the chain, which makes the table visible to all:
//
//     static constexpr ResourceString texts[] = {{301, "Cannot open %1."}, {302, "Ready"}}; // ascending ids
//     static AFX_EXTENSION_MODULE module;
//     [[gnu::constructor]] static void Start()
//     {
//         module.strings = texts;
//         if (AfxInitExtensionModule(module, nullptr)) new CDynLinkLibrary(module);
//     }
//     [[gnu::destructor]] static void Stop() { AfxTermExtensionModule(module); }
//
// A program names its own table with AfxSetResourceStrings. A text is looked for in the program's table
// first and then along the chain, the newest library first. Everything here may be called on any thread.
#pragma once

#include "corekit/framework/BinaryResource.h"
#include "corekit/framework/CmdTarget.h"
#include "corekit/framework/ResourceString.h"
#include "corekit/platform/DialogTemplate.h"

#include <functional>
#include <memory>
#include <span>

class CString;

// What a library brings along. Kept by the library for as long as it is loaded; the tables are referred to,
// not copied.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;                 // set and cleared by the two functions below
    HMODULE hModule = nullptr;                 // names the module; set by AfxInitExtensionModule
    HMODULE hResource = nullptr;               // the same
    std::span<const ResourceString> strings;   // set before AfxInitExtensionModule
    std::span<const BinaryResource> resources; // in any order, as the dialogs
    std::span<const DialogTemplate> dialogs;
};

// A null instance stands for the record itself. 0 if the table's ids do not ascend, in which case the module
// stays out; a second call for the same record changes nothing and gives 1. Called once a library is loaded,
// before its CDynLinkLibrary is made.
COREKIT_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module, HINSTANCE instance);
// Takes every entry of the module off the chain and deletes it. `bAll` is not used.
COREKIT_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module, BOOL bAll = FALSE);

// The program's own table, which must outlive its use; an empty one takes it back. 0, and no change, if its
// ids do not ascend. Linear in the rows, once; a look-up is a bisection.
COREKIT_API BOOL AfxSetResourceStrings(std::span<const ResourceString> strings);

// The same for the program's binary resources. Referred to, not copied: must outlive its use; names are
// compared without regard to case.
COREKIT_API void AfxSetResources(std::span<const BinaryResource> resources);

// Hands the bytes of a resource to `use` while its module is held in place, from the program or else from
// the newest library that has it; whether there was one. A name or a type below 0x10000 is a number. The
// chain is locked while `use` runs: it looks no texts or resources up.
COREKIT_API bool AfxUseResource(const char* name, const char* type,
                                const std::function<void(std::span<const std::byte>)>& use);

// The same for the program's dialogs. Referred to, not copied.
COREKIT_API void AfxSetDialogTemplates(std::span<const DialogTemplate> dialogs);

// The plan of a dialog, from the program's table, else from the newest library that has one, else from the
// binary resources (type RT_DIALOG) in the same order; null if there is none. A name below 0x10000 is a
// number; tables know numbers only. Of a table, items and texts are good as long as the module stays.
COREKIT_API std::shared_ptr<const DialogTemplate> AfxFindDialogTemplate(const char* name);

// An entry of the chain. Made with new; AfxTermExtensionModule deletes it, or the owner does earlier.
class COREKIT_API CDynLinkLibrary : public CCmdTarget {
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    // Puts itself in front of the chain with what the record names now; `bSystem` is kept and not used.
    explicit CDynLinkLibrary(const AFX_EXTENSION_MODULE& module, BOOL bSystem = FALSE);
    // Takes itself off the chain.
    ~CDynLinkLibrary() override;

    // Calls `visit` for each entry, newest first, until it returns true; whether one did. The chain is
    // locked meanwhile: the visitor neither adds nor removes entries nor looks texts up.
    static bool Visit(const std::function<bool(const CDynLinkLibrary&)>& visit);

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem; // as given
    std::span<const ResourceString> m_strings;
    std::span<const BinaryResource> m_resources;
    std::span<const DialogTemplate> m_dialogs;

private:
    CDynLinkLibrary* m_pNextDLL = nullptr;
    friend void AfxTermExtensionModule(AFX_EXTENSION_MODULE&, BOOL);
};

// The number of characters copied, without the terminator; cut to `size` - 1. 0 and an empty text if no
// module has that number. Bytes in the active code page; a character may be cut. `buffer` null or size 0
// gives 0.
COREKIT_API int AfxLoadString(UINT id, char* buffer, UINT size = 256);

// The text of that number with %1 (and %2) replaced; an insert of a number not given becomes "?". A null
// insert counts as empty, and a missing text as an empty one. "%1" of the text becomes `insert1`; the result
// replaces what the string held.
COREKIT_API void AfxFormatString1(CString& result, UINT id, const char* insert1);
COREKIT_API void AfxFormatString2(CString& result, UINT id, const char* insert1, const char* insert2);
