#include "corekit/stores/NamedItem.h"

#include <stdexcept>

namespace corekit::detail {

NamedItem::NamedItem(std::string_view name, DWORD type, std::string_view data, bool hasContent)
    : m_nameSize(static_cast<std::uint32_t>(name.size()) & mostName), m_hasContent(hasContent),
      m_isInSlab(false), m_type(type), m_dataSize(static_cast<std::uint32_t>(data.size()))
{
    ::new (&m_shares) ShareCount;
    char* to = reinterpret_cast<char*>(this + 1);
    if (!name.empty()) std::memcpy(to, name.data(), name.size());
    to[name.size()] = '\0';
    if (!data.empty()) std::memcpy(to + name.size() + 1, data.data(), data.size());
}

NamedItem::Ref NamedItem::Make(std::string_view name, DWORD type, std::string_view data, bool hasContent)
{
    if (name.size() > mostName || data.size() > UINT32_MAX) throw std::length_error("property store");
    void* room = ::operator new(ItemSlab::SizeOf(name.size(), data.size()));
    return Ref(::new (room) NamedItem(name, type, data, hasContent));
}

NamedItem::Ref NamedItem::Make(std::string_view name, DWORD type, std::string_view data)
{
    return Make(name, type, data, false);
}

NamedItem::Ref NamedItem::Make(std::string_view name, ItemContent::Ref content)
{
    const ItemContent* pointer = content.get();
    Ref item = Make(name, 0, {reinterpret_cast<const char*>(&pointer), sizeof pointer}, true);
    static_cast<void>(content.release());
    return item;
}

ItemContent* NamedItem::Content() const
{
    ItemContent* content;
    std::memcpy(&content, Data().data(), sizeof content);
    return content;
}

void NamedItem::Free()
{
    if (ItemContent* content = m_hasContent ? Content() : nullptr) content->Release();
    ::operator delete(m_isInSlab ? static_cast<void*>(&Shares()) : this);
}

void ItemSlab::Start(std::size_t size)
{
    void* room = ::operator new(sizeof(ShareCount) + size + slack);
    Leave();
    m_shares = ::new (room) ShareCount;
    m_next = reinterpret_cast<char*>(m_shares + 1);
    m_end = m_next + size;
}

void ItemSlab::Leave()
{
    if (m_shares && m_shares->Unshare()) ::operator delete(m_shares);
}

} // namespace corekit::detail
