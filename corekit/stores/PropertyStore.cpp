#include "corekit/stores/PropertyStore.h"

#include "corekit/foundation/TextConversion.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Threads.h"
#include "corekit/stores/PropertyStoreBody.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

IMPLEMENT_DYNAMIC(CPropertyStore, CCriticalObject)

namespace {

using corekit::detail::Hold;
using corekit::detail::ItemContent;
using corekit::detail::NamedItem;
using corekit::detail::NamedList;
using corekit::detail::NameKey;
using corekit::detail::PropertyStoreBody;

std::string_view viewOfName(const char* name) { return name ? std::string_view(name) : std::string_view(); }

// Runs an operation, and throws for exhausted memory what the framework throws.
template <class Operation>
[[gnu::always_inline]] inline auto withMemoryException(Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    } catch (const std::length_error&) {
        AfxThrowMemoryException();
    }
}

PropertyStoreBody* shared(PropertyStoreBody* body)
{
    if (body) body->Share();
    return body;
}

PropertyStoreBody* sharedOf(const NamedItem* store)
{
    return store ? shared(static_cast<PropertyStoreBody*>(store->Content())) : nullptr;
}

StringA nameOf(const NamedItem* item) { return item ? StringA(item->Name().data()) : StringA(); }

ePSEntryType typeOf(const NamedItem* value)
{
    return value ? static_cast<ePSEntryType>(value->Type()) : ePSNone;
}

void appendNames(const NamedList& list, CArray<StringA, const char*>& names)
{
    list.ForEach([&](const NamedItem& item) { names.Add(item.Name().data()); });
}

// Text of a value, whole units only.
std::u16string_view unitsOf(std::string_view data, std::u16string& aligned)
{
    aligned.resize(data.size() / sizeof(WCHAR));
    std::memcpy(aligned.data(), data.data(), aligned.size() * sizeof(WCHAR));
    return aligned;
}

template <class Text>
void narrow(std::string_view data, Text& value)
{
    std::u16string aligned;
    value = corekit::detail::narrowText(unitsOf(data, aligned)).c_str();
}

} // namespace

template <class Use>
[[gnu::always_inline]] inline auto CPropertyStore::Look(Use use) const
{
    return withMemoryException([&] {
        const Body* body = m_body.load(std::memory_order_acquire); // before the look at who else changes it
        if (m_isMakersOwn.load(std::memory_order_relaxed) && GetCurrentThreadId() == m_maker)
            return use(body);
        const Hold hold(*this);
        DropKept();
        body = m_body.load(std::memory_order_relaxed);
        return use(body);
    });
}

template <class Use>
auto CPropertyStore::Change(Use use)
{
    const Hold hold(*this);
    return withMemoryException(use);
}

template <class Use>
[[gnu::always_inline]] inline int CPropertyStore::WithValue(const char* name, Use use) const
{
    return Look([&](const Body* body) {
        const NamedItem* value = body ? body->Values().Find(name) : nullptr;
        return value ? use(value->Data()) : 0;
    });
}

CPropertyStore::CPropertyStore() : CPropertyStore(nullptr) {}
CPropertyStore::CPropertyStore(const CPropertyStore& source) : CPropertyStore(source.Share()) {}
CPropertyStore::CPropertyStore(Body* share) noexcept : m_body(share), m_maker(GetCurrentThreadId()) {}

CPropertyStore::~CPropertyStore()
{
    if (Body* body = m_body.load(std::memory_order_relaxed)) body->Release();
    if (m_kept) m_kept->Release();
}

CPropertyStore::Body* CPropertyStore::Share() const noexcept
{
    return shared(m_body.load(std::memory_order_acquire));
}

// Before a change. The thread that made the store may be looking into it right now if another one makes the
// change.
void CPropertyStore::KeepForMaker() noexcept
{
    if (!m_isMakersOwn.load(std::memory_order_relaxed)) return DropKept();
    if (GetCurrentThreadId() == m_maker) return;
    m_kept = Share();
    m_isMakersOwn.store(false, std::memory_order_relaxed);
}

void CPropertyStore::DropKept() const noexcept
{
    if (m_kept && GetCurrentThreadId() == m_maker) std::exchange(m_kept, nullptr)->Release();
}

void CPropertyStore::SetBody(Body* share) noexcept
{
    Body* before = m_body.load(std::memory_order_relaxed);
    m_body.store(share, std::memory_order_release);
    if (before) before->Release();
}

CPropertyStore::Body& CPropertyStore::OwnBody()
{
    KeepForMaker();
    const Body* body = m_body.load(std::memory_order_relaxed);
    if (!body)
        SetBody(new Body);
    else if (body->IsShared())
        SetBody(new Body(*body));
    return *m_body.load(std::memory_order_relaxed);
}

CPropertyStore& CPropertyStore::operator=(const CPropertyStore& source)
{
    Empty();
    SetBody(source.Share());
    return *this;
}

void CPropertyStore::Empty()
{
    Change([&] {
        KeepForMaker();
        SetBody(nullptr);
    });
}

// --- reading values

template <class Value>
int CPropertyStore::GetFirstBytes(const char* name, Value& value) const
{
    return WithValue(name, [&](std::string_view data) {
        if (data.size() < sizeof value) {
            value = Value{};
            if (!data.empty()) std::memcpy(&value, data.data(), data.size());
        } else {
            std::memcpy(&value, data.data(), sizeof value);
        }
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, int& value) const { return GetFirstBytes(name, value); }
int CPropertyStore::GetValue(const char* name, unsigned int& value) const
{
    return GetFirstBytes(name, value);
}
int CPropertyStore::GetValue(const char* name, _GUID& value) const { return GetFirstBytes(name, value); }

int CPropertyStore::GetValue(const char* name, long& value) const
{
    int low = 0;
    if (!GetFirstBytes(name, low)) return 0;
    value = low;
    return 1;
}

int CPropertyStore::GetValue(const char* name, unsigned long& value) const
{
    unsigned low = 0;
    if (!GetFirstBytes(name, low)) return 0;
    value = low;
    return 1;
}

int CPropertyStore::GetValue(const char* name, StringW& value) const
{
    return WithValue(name, [&](std::string_view data) {
        const auto units = corekit::detail::countedLength(data.size() / sizeof(WCHAR));
        StringW text;
        if (units > 0) {
            std::memcpy(text.GetBufferSetLength(units), data.data(),
                        static_cast<std::size_t>(units) * sizeof(WCHAR));
        }
        value = text;
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, StringA& value) const
{
    return WithValue(name, [&](std::string_view data) {
        narrow(data, value);
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, CString& value) const
{
    return WithValue(name, [&](std::string_view data) {
        narrow(data, value);
        return 1;
    });
}

int CPropertyStore::GetValue(const char* name, CByteArray& value) const
{
    return WithValue(name, [&](std::string_view data) {
        value.SetSize(corekit::detail::countedLength(data.size()));
        if (!data.empty()) std::memcpy(value.GetData(), data.data(), data.size());
        return 1;
    });
}

int CPropertyStore::GetBinaryValue(const char* name, void* buffer, DWORD size) const
{
    return WithValue(name, [&](std::string_view data) {
        if (data.size() != size) return 0;
        if (size > 0) std::memcpy(buffer, data.data(), size);
        return 1;
    });
}

// --- writing values

void CPropertyStore::SetFirstBytes(const char* name, ePSEntryType type, const void* data, std::size_t size)
{
    Change([&] {
        NamedList& values = OwnBody().ValuesToChange();
        const std::string_view bytes(static_cast<const char*>(data), size);
        const NameKey key(name);
        NamedItem* value = values.Find(key);
        if (!value) return values.Append(NamedItem::Make(key.Name(), type, bytes), key.Hash());
        NamedItem& own = values.Own(*value, key.Hash());
        std::memcpy(own.DataToChange(), data, std::min(size, own.Data().size()));
    });
}

void CPropertyStore::SetBytes(const char* name, ePSEntryType type, const void* data, std::size_t size)
{
    Change([&] {
        NamedList& values = OwnBody().ValuesToChange();
        const std::string_view bytes(static_cast<const char*>(data), data ? size : 0);
        const NameKey key(name);
        NamedItem* value = values.Find(key);
        if (!value) return values.Append(NamedItem::Make(key.Name(), type, bytes), key.Hash());
        values.Replace(*value, key.Hash(), NamedItem::Make(value->Name(), value->Type(), bytes));
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
    SetBytes(name, ePSString, text, text ? corekit::detail::textLength(text) * sizeof(WCHAR) : 0);
}

void CPropertyStore::SetValue(const char* name, const char* text)
{
    const std::u16string wide =
        withMemoryException([&] { return corekit::detail::wideText(viewOfName(text)); });
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
    Change([&] {
        const Body* body = m_body.load(std::memory_order_relaxed);
        if (!body || !body->Values().Find(name)) return;
        NamedList& values = OwnBody().ValuesToChange();
        values.Remove(*values.Find(name));
    });
}

// --- the list of values

int CPropertyStore::GetPropertyStoreValueCount() const
{
    return Look([&](const Body* body) { return body ? body->Values().Count() : 0; });
}

StringA CPropertyStore::GetPropertyStoreValueName(int index) const
{
    return Look([&](const Body* body) { return body ? nameOf(body->Values().At(index)) : StringA(); });
}

ePSEntryType CPropertyStore::GetPropertyStoreValueType(int index) const
{
    return Look([&](const Body* body) { return body ? typeOf(body->Values().At(index)) : ePSNone; });
}

ePSEntryType CPropertyStore::GetPropertyStoreValueType(const char* name) const
{
    return Look([&](const Body* body) { return body ? typeOf(body->Values().Find(name)) : ePSNone; });
}

void CPropertyStore::GetPropertyStoreValueNames(CArray<StringA, const char*>& names) const
{
    Look([&](const Body* body) {
        if (body) appendNames(body->Values(), names);
    });
}

// --- nested stores

void CPropertyStore::SetPropertyStore(const char* name, const CPropertyStore& store)
{
    ItemContent::Ref content(store.Share()); // before the change, for the store may be this one
    Change([&] {
        NamedList& stores = OwnBody().StoresToChange();
        const NameKey key(name);
        NamedItem* there = stores.Find(key);
        if (!there) return stores.Append(NamedItem::Make(key.Name(), std::move(content)), key.Hash());
        stores.Replace(*there, key.Hash(), NamedItem::Make(there->Name(), std::move(content)));
    });
}

CPropertyStore CPropertyStore::GetPropertyStore(const char* name) const
{
    return CPropertyStore(
        Look([&](const Body* body) { return body ? sharedOf(body->Stores().Find(name)) : nullptr; }));
}

CPropertyStore CPropertyStore::GetPropertyStore(int index) const
{
    return CPropertyStore(
        Look([&](const Body* body) { return body ? sharedOf(body->Stores().At(index)) : nullptr; }));
}

int CPropertyStore::PropertyStoreExists(const char* name) const
{
    return Look([&](const Body* body) { return body && body->Stores().Find(name) ? 1 : 0; });
}

int CPropertyStore::GetPropertyStoreCount() const
{
    return Look([&](const Body* body) { return body ? body->Stores().Count() : 0; });
}

StringA CPropertyStore::GetPropertyStoreName(int index) const
{
    return Look([&](const Body* body) { return body ? nameOf(body->Stores().At(index)) : StringA(); });
}

void CPropertyStore::GetPropertyStoreNames(CArray<StringA, const char*>& names) const
{
    Look([&](const Body* body) {
        if (body) appendNames(body->Stores(), names);
    });
}

void CPropertyStore::DeletePropertyStore(const char* name)
{
    Change([&] {
        const Body* body = m_body.load(std::memory_order_relaxed);
        if (!body || !body->Stores().Find(name)) return;
        NamedList& stores = OwnBody().StoresToChange();
        stores.Remove(*stores.Find(name));
    });
}

void CPropertyStore::DeletePropertyStore(int index)
{
    Change([&] {
        const Body* body = m_body.load(std::memory_order_relaxed);
        if (!body || !body->Stores().At(index)) return;
        NamedList& stores = OwnBody().StoresToChange();
        stores.Remove(*stores.At(index));
    });
}
