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
#include <cstring>
#include <memory>
#include <new>
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
    bool IsShared() { return Shares().IsShared(); }

    std::string_view Name() const { return {Bytes(), m_nameSize}; } // with a zero behind it
    bool Has(const NameKey& name) const { return name.IsNameOf(Bytes(), m_nameSize); }
    std::uint32_t Hash() const { return NameKey(Bytes(), m_nameSize).Hash(); }
    DWORD Type() const { return m_type; }
    std::string_view Data() const { return {Bytes() + m_nameSize + 1, m_dataSize}; }
    char* DataToChange() { return const_cast<char*>(Data().data()); }
    ItemContent* Content() const; // null for none

private:
    friend class ItemSlab;

    NamedItem(std::string_view name, DWORD type, std::string_view data, bool hasContent);
    NamedItem(const ShareCount& slab, std::size_t nameSize, DWORD type, std::uint32_t dataSize)
        : m_nameSize(static_cast<std::uint32_t>(nameSize) & mostName), m_hasContent(false), m_isInSlab(true),
          m_type(type), m_dataSize(dataSize)
    {
        const auto* here = reinterpret_cast<const char*>(this);
        m_slabOffset = static_cast<std::uint32_t>(here - reinterpret_cast<const char*>(&slab));
    }
    static Ref Make(std::string_view name, DWORD type, std::string_view data, bool hasContent);
    static constexpr std::uint32_t mostName = (1u << 30) - 1;
    ShareCount& Shares()
    {
        if (!m_isInSlab) return m_shares;
        return *reinterpret_cast<ShareCount*>(reinterpret_cast<char*>(this) - m_slabOffset);
    }
    const char* Bytes() const { return reinterpret_cast<const char*>(this + 1); }
    void Free();

    union {
        ShareCount m_shares;
        std::uint32_t m_slabOffset; // back to the count of a slab
    };
    std::uint32_t m_nameSize : 30, m_hasContent : 1, m_isInSlab : 1;
    DWORD m_type;
    std::uint32_t m_dataSize;
};

// Makes small values together in one piece of memory, which ends with the last of them.
class ItemSlab {
public:
    static constexpr std::size_t SizeOf(std::size_t nameSize, std::size_t dataSize)
    {
        constexpr std::size_t step = alignof(NamedItem);
        const std::size_t bytes = std::max(nameSize + 1 + dataSize, NameKey::readable);
        return (sizeof(NamedItem) + bytes + step - 1) / step * step;
    }

    ItemSlab() = default;
    ~ItemSlab() { Leave(); }
    ItemSlab(const ItemSlab&) = delete;
    ItemSlab& operator=(const ItemSlab&) = delete;

    // Begins another piece for items of so many bytes in all.
    void Start(std::size_t size);
    std::size_t Left() const { return static_cast<std::size_t>(m_end - m_next); }
    // Where the next item will have its name: it is written there beforehand. Up to `slack` bytes behind an
    // item may be overwritten until the next one is made.
    char* NameRoom() { return m_next + sizeof(NamedItem); }
    static constexpr std::size_t slack = 16;
    // Reads the data by whole blocks, up to `slack` bytes more.
    NamedItem::Ref Make(std::size_t nameSize, DWORD type, const void* data, std::uint32_t size)
    {
        auto* item = ::new (m_next) NamedItem(*m_shares, nameSize, type, size);
        char* to = NameRoom() + nameSize;
        *to++ = '\0';
        for (std::size_t at = 0; at < size; at += sizeof(Bytes16)) {
            const Bytes16 block = loadBytes(static_cast<const char*>(data) + at);
            std::memcpy(to + at, &block, sizeof block);
        }
        m_shares->Share();
        m_next += SizeOf(nameSize, size);
        return NamedItem::Ref(item);
    }

private:
    void Leave();

    ShareCount* m_shares = nullptr;
    char* m_next = nullptr;
    char* m_end = nullptr;
};

} // namespace corekit::detail
