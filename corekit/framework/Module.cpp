#include "corekit/framework/Module.h"

#include "corekit/framework/DialogBytes.h"
#include "corekit/framework/InsertText.h"
#include "corekit/framework/ResourceTypes.h"
#include "corekit/framework/String.h"
#include "corekit/platform/Runtime.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <string>
#include <utility>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {
// All ready before any code runs and never destroyed.
constinit std::mutex chainLock;
constinit CDynLinkLibrary* chainHead = nullptr;
constinit std::span<const ResourceString> programStrings;
constinit std::span<const BinaryResource> programResources;
constinit std::span<const DialogTemplate> programDialogs;

bool ascending(std::span<const ResourceString> strings)
{
    return std::ranges::adjacent_find(strings, std::ranges::greater_equal{}, &ResourceString::id) ==
           strings.end();
}

const char* findIn(std::span<const ResourceString> strings, UINT id)
{
    const auto row = std::ranges::lower_bound(strings, id, {}, &ResourceString::id);
    return row != strings.end() && row->id == id ? row->text : nullptr;
}

// A name as a module writes it; a pointer that is no pointer is a number.
std::string resourceName(const char* name)
{
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    return number < 0x10000 ? "#" + std::to_string(number) : name;
}

// Hands the text over while its module is held in place.
template <class Use>
bool useText(UINT id, Use use)
{
    const auto found = [&](std::span<const ResourceString> strings) {
        const char* text = findIn(strings, id);
        if (text) use(text);
        return text != nullptr;
    };
    {
        const std::lock_guard guard(chainLock);
        if (found(programStrings)) return true;
    }
    return CDynLinkLibrary::Visit([&](const CDynLinkLibrary& library) { return found(library.m_strings); });
}

void insert(CString& result, UINT id, std::initializer_list<const char*> inserts)
{
    CString format;
    format.LoadString(id);
    result = corekit::detail::replaceInserts(format, inserts);
}
} // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module, HINSTANCE instance)
{
    if (module.bInitialized) return TRUE;
    if (!ascending(module.strings)) return FALSE;
    module.hModule = module.hResource = instance ? instance : reinterpret_cast<HINSTANCE>(&module);
    module.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module, BOOL)
{
    CDynLinkLibrary* removed = nullptr;
    {
        const std::lock_guard guard(chainLock);
        for (CDynLinkLibrary** link = &chainHead; *link;) {
            CDynLinkLibrary* library = *link;
            if (library->m_hModule != module.hModule) {
                link = &library->m_pNextDLL;
                continue;
            }
            *link = library->m_pNextDLL;
            library->m_pNextDLL = removed;
            removed = library;
        }
    }
    while (removed) delete std::exchange(removed, removed->m_pNextDLL);
    module.bInitialized = FALSE;
}

BOOL AfxSetResourceStrings(std::span<const ResourceString> strings)
{
    if (!ascending(strings)) return FALSE;
    const std::lock_guard guard(chainLock);
    programStrings = strings;
    return TRUE;
}

void AfxSetResources(std::span<const BinaryResource> resources)
{
    const std::lock_guard guard(chainLock);
    programResources = resources;
}

bool AfxUseResource(const char* name, const char* type,
                    const std::function<void(std::span<const std::byte>)>& use)
{
    const std::string wantedName = resourceName(name), wantedType = resourceName(type);
    const auto found = [&](std::span<const BinaryResource> resources) {
        const auto row = std::ranges::find_if(resources, [&](const BinaryResource& resource) {
            return _stricmp(resource.name, wantedName.c_str()) == 0 &&
                   _stricmp(resource.type, wantedType.c_str()) == 0;
        });
        if (row != resources.end()) use(row->data);
        return row != resources.end();
    };
    {
        const std::lock_guard guard(chainLock);
        if (found(programResources)) return true;
    }
    return CDynLinkLibrary::Visit([&](const CDynLinkLibrary& library) { return found(library.m_resources); });
}

void AfxSetDialogTemplates(std::span<const DialogTemplate> dialogs)
{
    const std::lock_guard guard(chainLock);
    programDialogs = dialogs;
}

std::shared_ptr<const DialogTemplate> AfxFindDialogTemplate(const char* name)
{
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    const UINT id = number < 0x10000 ? static_cast<UINT>(number) : 0;
    std::shared_ptr<const DialogTemplate> result;
    const auto found = [&](std::span<const DialogTemplate> dialogs) {
        const auto row = std::ranges::find(dialogs, id, &DialogTemplate::id);
        if (row != dialogs.end()) result = std::make_shared<const DialogTemplate>(*row);
        return result != nullptr;
    };
    if (id) {
        {
            const std::lock_guard guard(chainLock);
            if (found(programDialogs)) return result;
        }
        if (CDynLinkLibrary::Visit([&](const CDynLinkLibrary& library) { return found(library.m_dialogs); }))
            return result;
    }
    AfxUseResource(name, MAKEINTRESOURCEA(RT_DIALOG), [&](std::span<const std::byte> bytes) {
        const auto read = corekit::detail::DialogBytes::read(bytes, id);
        if (read) result = {read, &read->dialog()};
    });
    return result;
}

CDynLinkLibrary::CDynLinkLibrary(const AFX_EXTENSION_MODULE& module, BOOL bSystem)
    : m_hModule(module.hModule), m_hResource(module.hResource), m_bSystem(bSystem), m_strings(module.strings),
      m_resources(module.resources), m_dialogs(module.dialogs)
{
    const std::lock_guard guard(chainLock);
    m_pNextDLL = chainHead;
    chainHead = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    const std::lock_guard guard(chainLock);
    for (CDynLinkLibrary** link = &chainHead; *link; link = &(*link)->m_pNextDLL) {
        if (*link != this) continue;
        *link = m_pNextDLL;
        return;
    }
}

bool CDynLinkLibrary::Visit(const std::function<bool(const CDynLinkLibrary&)>& visit)
{
    const std::lock_guard guard(chainLock);
    for (const CDynLinkLibrary* library = chainHead; library; library = library->m_pNextDLL)
        if (visit(*library)) return true;
    return false;
}

int AfxLoadString(UINT id, char* buffer, UINT size)
{
    if (!buffer || size == 0) return 0;
    std::size_t length = 0;
    useText(id, [&](const char* text) {
        length = strnlen(text, size - 1);
        std::memcpy(buffer, text, length);
    });
    buffer[length] = 0;
    return static_cast<int>(length);
}

bool CString::LoadString(UINT id)
{
    Empty();
    return useText(id, [this](const char* text) { *this = text; });
}

void AfxFormatString1(CString& result, UINT id, const char* insert1) { insert(result, id, {insert1}); }
void AfxFormatString2(CString& result, UINT id, const char* insert1, const char* insert2)
{
    insert(result, id, {insert1, insert2});
}
