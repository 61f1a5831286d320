#include "corekit/stores/NamedItem.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace corekit::detail {

NamedItem::NamedItem(ShareCount& shares, std::string_view name, DWORD type, std::string_view data,
                     bool hasContent)
    : m_offset(static_cast<std::uint32_t>(reinterpret_cast<char*>(this) - reinterpret_cast<char*>(&shares))),
      m_type(type), m_nameSize(static_cast<std::uint32_t>(name.size()) & 0x7FFFFFFF),
      m_hasContent(hasContent), m_dataSize(static_cast<std::uint32_t>(data.size()))
{
    char* to = reinterpret_cast<char*>(this + 1);
    if (name.data() != to && !name.empty()) std::memcpy(to, name.data(), name.size());
    to[name.size()] = '\0';
    if (!data.empty()) std::memcpy(to + name.size() + 1, data.data(), data.size());
}

NamedItem::Ref NamedItem::Make(std::string_view name, DWORD type, std::string_view data, bool hasContent)
{
    if (name.size() > INT32_MAX || data.size() > UINT32_MAX) throw std::length_error("property store");
    void* room = ::operator new(sizeof(ShareCount) + ItemSlab::SizeOf(name.size(), data.size()));
    auto* shares = ::new (room) ShareCount;
    return Ref(::new (shares + 1) NamedItem(*shares, name, type, data, hasContent));
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
    ::operator delete(&Shares());
}

ItemSlab::ItemSlab(std::size_t size)
    : m_shares(::new (::operator new(sizeof(ShareCount) + size)) ShareCount),
      m_next(reinterpret_cast<char*>(m_shares + 1))
{
}

ItemSlab::~ItemSlab()
{
    if (m_shares->Unshare()) ::operator delete(m_shares);
}

NamedItem::Ref ItemSlab::Make(std::string_view name, DWORD type, std::string_view data)
{
    auto* item = ::new (m_next) NamedItem(*m_shares, name, type, data, false);
    m_shares->Share();
    m_next += SizeOf(name.size(), data.size());
    return NamedItem::Ref(item);
}

} // namespace corekit::detail
