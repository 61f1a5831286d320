// What a property store lists: a value or a nested store with its name, in one piece of memory.
//
// Items are shared by all the stores that hold the same one, and change only while one store alone does.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/stores/NameKey.h"
#include "corekit/stores/ShareCount.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace corekit::detail {

// What an item may hold in the place of bytes: a nested store.
class ItemContent {
public:
    ItemContent() = default;
    ItemContent(const ItemContent&) = delete;
    ItemContent& operator=(const ItemContent&) = delete;

    void Share() { m_shares.Share(); }
    void Release()
    {
        if (m_shares.Unshare()) End();
    }
    bool IsShared() const { return m_shares.IsShared(); }

    struct Releaser {
        void operator()(ItemContent* content) const { content->Release(); }
    };
    using Ref = std::unique_ptr<ItemContent, Releaser>;

protected:
    ~ItemContent() = default;

private:
    virtual void End() noexcept = 0; // after the last share

    ShareCount m_shares;
};

class NamedItem {
public:
    struct Releaser {
        void operator()(NamedItem* item) const { item->Release(); }
    };
    using Ref = std::unique_ptr<NamedItem, Releaser>;

    static Ref Make(std::string_view name, DWORD type, std::string_view data);
    static Ref Make(std::string_view name, ItemContent::Ref content); // or none

    void Share() { Shares().Share(); }
    void Release()
    {
        if (Shares().Unshare()) Free();
    }
    bool IsShared() const { return Shares().IsShared(); }

    std::string_view Name() const { return {Bytes(), m_nameSize}; } // with a zero behind it
    bool Has(const NameKey& name) const { return name.IsNameOf(Bytes(), m_nameSize); }
    std::uint32_t Hash() const { return NameKey(Bytes(), m_nameSize).Hash(); }
    DWORD Type() const { return m_type; }
    std::string_view Data() const { return {Bytes() + m_nameSize + 1, m_dataSize}; }
    char* DataToChange() { return const_cast<char*>(Data().data()); }
    ItemContent* Content() const; // null for none

private:
    friend class ItemSlab;

    NamedItem(ShareCount& shares, std::string_view name, DWORD type, std::string_view data, bool hasContent);
    static Ref Make(std::string_view name, DWORD type, std::string_view data, bool hasContent);
    // The count stands at the front of the memory that the item is in, alone or with others.
    ShareCount& Shares() const
    {
        auto* bytes = const_cast<char*>(reinterpret_cast<const char*>(this));
        return *reinterpret_cast<ShareCount*>(bytes - m_offset);
    }
    const char* Bytes() const { return reinterpret_cast<const char*>(this + 1); }
    void Free();

    std::uint32_t m_offset;
    DWORD m_type;
    std::uint32_t m_nameSize : 31, m_hasContent : 1;
    std::uint32_t m_dataSize;
};

// Makes small values together in one piece of memory, which ends with the last of them.
class ItemSlab {
public:
    static std::size_t SizeOf(std::size_t nameSize, std::size_t dataSize)
    {
        constexpr std::size_t step = alignof(NamedItem);
        const std::size_t bytes = std::max(nameSize + 1 + dataSize, NameKey::readable);
        return (sizeof(NamedItem) + bytes + step - 1) / step * step;
    }

    explicit ItemSlab(std::size_t size); // of all its items
    ~ItemSlab();
    ItemSlab(const ItemSlab&) = delete;
    ItemSlab& operator=(const ItemSlab&) = delete;

    // Where the next item will have its name; who writes it there before saves a copy.
    char* NameRoom() { return m_next + sizeof(NamedItem); }
    NamedItem::Ref Make(std::string_view name, DWORD type, std::string_view data);

private:
    ShareCount* m_shares;
    char* m_next;
};

} // namespace corekit::detail
