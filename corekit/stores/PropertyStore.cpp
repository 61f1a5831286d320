#include "corekit/stores/PropertyStore.h"

#include "corekit/foundation/TextConversion.h"
#include "corekit/framework/Exception.h"
#include "corekit/stores/PropertyStoreBody.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

IMPLEMENT_DYNAMIC(CPropertyStore, CCriticalObject)

namespace {

using corekit::detail::Hold;
using corekit::detail::PropertyStoreBody;
using corekit::detail::PropertyStoreChild;
using corekit::detail::PropertyStoreEntry;
using corekit::detail::PropertyStoreRef;

std::string_view Name(const char* name) { return name ? std::string_view(name) : std::string_view(); }

// Runs an operation and tells exhausted memory as the framework does.
template <class Operation>
auto MemoryTold(Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}

StringA NameOf(const auto* element) { return element ? StringA(element->name.c_str()) : StringA(); }

void AppendNames(const auto& list, int count, CArray<StringA, const char*>& names)
{
    for (int i = 0; i < count; ++i)
        if (const auto* element = list.At(i)) names.Add(element->name.c_str());
}

// Text of a value, whole units only.
std::u16string_view Units(const std::string& data, std::u16string& aligned)
{
    aligned.resize(data.size() / sizeof(WCHAR));
    std::memcpy(aligned.data(), data.data(), aligned.size() * sizeof(WCHAR));
    return aligned;
}

template <class Text>
void Narrow(const std::string& data, Text& value)
{
    std::u16string aligned;
    value = corekit::detail::NarrowText(Units(data, aligned)).c_str();
}

} // namespace

template <class Operation>
auto CPropertyStore::Locked(Operation operation)
{
    if (m_isAlone) return MemoryTold(operation);
    const Hold hold(*this);
    return MemoryTold(operation);
}

template <class Use>
int CPropertyStore::WithValue(const char* name, Use use)
{
    return Locked([&] {
        const PropertyStoreEntry* entry = Body() ? Body()->Values().FindElement(Name(name)) : nullptr;
        return entry ? use(entry->data) : 0;
    });
}

CPropertyStore::CPropertyStore() = default;
CPropertyStore::CPropertyStore(const CPropertyStore& source) : CCriticalObject(), m_body(source.Share()) {}
CPropertyStore::CPropertyStore(const PropertyStoreRef& body) : m_body(body) {}
CPropertyStore::~CPropertyStore() = default;

PropertyStoreRef CPropertyStore::Share() const
{
    return m_inner ? PropertyStoreRef::ShareOf(*m_inner) : m_body;
}

PropertyStoreBody& CPropertyStore::Own()
{
    if (m_inner) {
        m_body = Share();
        m_inner = nullptr;
    }
    return m_body.Own();
}

CPropertyStore& CPropertyStore::operator=(const CPropertyStore& source)
{
    Empty();
    m_body = source.Share();
    return *this;
}

void CPropertyStore::Empty()
{
    Locked([&] {
        m_body = PropertyStoreRef();
        m_inner = nullptr;
    });
}

// --- reading values

template <class Value>
int CPropertyStore::GetFirstBytes(const char* name, Value& value)
{
    return WithValue(name, [&](const std::string& data) {
        Value bytes{};
        std::memcpy(&bytes, data.data(), std::min(sizeof bytes, data.size()));
        value = bytes;
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, int& value) & { return GetFirstBytes(name, value); }
int CPropertyStore::GetValue(const char* name, unsigned int& value) & { return GetFirstBytes(name, value); }
int CPropertyStore::GetValue(const char* name, _GUID& value) & { return GetFirstBytes(name, value); }

int CPropertyStore::GetValue(const char* name, long& value) &
{
    int low = 0;
    if (!GetFirstBytes(name, low)) return 0;
    value = low;
    return 1;
}

int CPropertyStore::GetValue(const char* name, unsigned long& value) &
{
    unsigned low = 0;
    if (!GetFirstBytes(name, low)) return 0;
    value = low;
    return 1;
}

int CPropertyStore::GetValue(const char* name, StringW& value) &
{
    return WithValue(name, [&](const std::string& data) {
        const auto units = corekit::detail::CountedLength(data.size() / sizeof(WCHAR));
        StringW text;
        if (units > 0) {
            std::memcpy(text.GetBufferSetLength(units), data.data(),
                        static_cast<std::size_t>(units) * sizeof(WCHAR));
        }
        value = text;
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, StringA& value) &
{
    return WithValue(name, [&](const std::string& data) {
        Narrow(data, value);
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, CString& value) &
{
    return WithValue(name, [&](const std::string& data) {
        Narrow(data, value);
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, CByteArray& value) &
{
    return WithValue(name, [&](const std::string& data) {
        value.SetSize(corekit::detail::CountedLength(data.size()));
        if (!data.empty()) std::memcpy(value.GetData(), data.data(), data.size());
        return 1;
    });
}

int CPropertyStore::GetBinaryValue(const char* name, void* buffer, DWORD size) &
{
    return WithValue(name, [&](const std::string& data) {
        if (data.size() != size) return 0;
        if (size > 0) std::memcpy(buffer, data.data(), size);
        return 1;
    });
}

// --- writing values

void CPropertyStore::SetFirstBytes(const char* name, ePSEntryType type, const void* data, std::size_t size)
{
    Locked([&] {
        auto& values = Own().Values();
        if (PropertyStoreEntry* entry = values.FindElement(Name(name)))
            std::memcpy(entry->data.data(), data, std::min(size, entry->data.size()));
        else
            values.Append({std::string(Name(name)), type, {static_cast<const char*>(data), size}});
    });
}

void CPropertyStore::SetBytes(const char* name, ePSEntryType type, const void* data, std::size_t size)
{
    Locked([&] {
        const std::string_view bytes(static_cast<const char*>(data), data ? size : 0);
        auto& values = Own().Values();
        if (PropertyStoreEntry* entry = values.FindElement(Name(name)))
            entry->data = bytes;
        else
            values.Append({std::string(Name(name)), type, std::string(bytes)});
    });
}

void CPropertyStore::SetInteger(const char* name, DWORD value)
{
    SetFirstBytes(name, ePSInteger, &value, sizeof value);
}

void CPropertyStore::SetValue(const char* name, const _GUID& value)
{
    SetFirstBytes(name, ePSGuid, &value, sizeof value);
}

void CPropertyStore::SetValue(const char* name, const WCHAR* text)
{
    SetBytes(name, ePSString, text, text ? corekit::detail::TextLength(text) * sizeof(WCHAR) : 0);
}

void CPropertyStore::SetValue(const char* name, const char* text)
{
    const std::u16string wide = MemoryTold([&] { return corekit::detail::WideText(Name(text)); });
    SetBytes(name, ePSString, wide.data(), wide.size() * sizeof(WCHAR));
}

void CPropertyStore::SetBinaryValue(const char* name, const void* data, DWORD size)
{
    SetBytes(name, ePSBinary, data, size);
}

void CPropertyStore::SetValue(const char* name, const CByteArray& value)
{
    SetBytes(name, ePSBinary, value.GetData(), static_cast<std::size_t>(value.GetSize()));
}

void CPropertyStore::DeleteValue(const char* name)
{
    Locked([&] {
        const int index = Body() ? Body()->Values().Find(Name(name)) : -1;
        if (index >= 0) Own().Values().Remove(index);
    });
}

// --- the list of values

int CPropertyStore::GetPropertyStoreValueCount()
{
    return Locked([&] { return Body() ? Body()->Values().Count() : 0; });
}

StringA CPropertyStore::GetPropertyStoreValueName(int index)
{
    return Locked([&] { return Body() ? NameOf(Body()->Values().At(index)) : StringA(); });
}

ePSEntryType CPropertyStore::GetPropertyStoreValueType(int index)
{
    return Locked([&] {
        const PropertyStoreEntry* entry = Body() ? Body()->Values().At(index) : nullptr;
        return entry ? entry->type : ePSNone;
    });
}

ePSEntryType CPropertyStore::GetPropertyStoreValueType(const char* name) &
{
    return Locked([&] {
        const PropertyStoreEntry* entry = Body() ? Body()->Values().FindElement(Name(name)) : nullptr;
        return entry ? entry->type : ePSNone;
    });
}

void CPropertyStore::GetPropertyStoreValueNames(CArray<StringA, const char*>& names)
{
    if (const int count = GetPropertyStoreValueCount(); count > 0)
        MemoryTold([&] { AppendNames(Body()->Values(), count, names); });
}

// --- nested stores

void CPropertyStore::SetPropertyStore(const char* name, const CPropertyStore& store)
{
    PropertyStoreRef content = store.Share(); // a share of its own, for the store may be this one
    Locked([&] {
        auto& stores = Own().Stores();
        if (PropertyStoreChild* child = stores.FindElement(Name(name)))
            child->store = std::move(content);
        else
            stores.Append({std::string(Name(name)), std::move(content)});
    });
}

CPropertyStore CPropertyStore::GetPropertyStore(const char* name) &
{
    return Locked([&] {
        const PropertyStoreChild* child = Body() ? Body()->Stores().FindElement(Name(name)) : nullptr;
        return child ? CPropertyStore(child->store) : CPropertyStore();
    });
}

CPropertyStore CPropertyStore::GetPropertyStore(int index) &
{
    return Locked([&] {
        const PropertyStoreChild* child = Body() ? Body()->Stores().At(index) : nullptr;
        return child ? CPropertyStore(child->store) : CPropertyStore();
    });
}

CPropertyStore CPropertyStore::GetPropertyStore(const char* name) &&
{
    return TakeNested(
        MemoryTold([&] { return Body() ? Body()->Stores().FindElement(Name(name)) : nullptr; }));
}

CPropertyStore CPropertyStore::GetPropertyStore(int index) &&
{
    return TakeNested(MemoryTold([&] { return Body() ? Body()->Stores().At(index) : nullptr; }));
}

CPropertyStore CPropertyStore::TakeNested(const PropertyStoreChild* child)
{
    CPropertyStore nested;
    if (!child || !child->store.Get()) return nested;
    nested.m_inner = child->store.Get();
    nested.m_body = std::move(m_body);
    m_inner = nullptr;
    return nested;
}

int CPropertyStore::PropertyStoreExists(const char* name) &
{
    return Locked([&] { return Body() && Body()->Stores().Find(Name(name)) >= 0 ? 1 : 0; });
}

int CPropertyStore::GetPropertyStoreCount()
{
    return Locked([&] { return Body() ? Body()->Stores().Count() : 0; });
}

StringA CPropertyStore::GetPropertyStoreName(int index)
{
    return Locked([&] { return Body() ? NameOf(Body()->Stores().At(index)) : StringA(); });
}

void CPropertyStore::GetPropertyStoreNames(CArray<StringA, const char*>& names)
{
    if (const int count = GetPropertyStoreCount(); count > 0)
        MemoryTold([&] { AppendNames(Body()->Stores(), count, names); });
}

void CPropertyStore::DeletePropertyStore(const char* name)
{
    Locked([&] {
        const int index = Body() ? Body()->Stores().Find(Name(name)) : -1;
        if (index >= 0) Own().Stores().Remove(index);
    });
}

void CPropertyStore::DeletePropertyStore(int index)
{
    Locked([&] {
        if (Body() && Body()->Stores().At(index)) Own().Stores().Remove(index);
    });
}
