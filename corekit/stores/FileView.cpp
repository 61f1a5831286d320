#include "corekit/stores/FileView.h"

#include "corekit/platform/FileMapping.h"

#include <algorithm>

namespace corekit::detail {

const BYTE* FileView::Find(HANDLE file, std::uint64_t fileSize, DWORD offset, DWORD size)
{
    const std::uint64_t end = static_cast<std::uint64_t>(offset) + size;
    if (end > m_size) {
        // A file that grows by small steps is not mapped anew for each of them.
        constexpr std::uint64_t leastStep = 1 << 20;
        if (m_base && fileSize - m_size < std::max(leastStep, m_size / 4)) return nullptr;
        if (!m_refused) Renew(file, fileSize);
        if (end > m_size) return nullptr;
    }
    return m_base + offset;
}

void FileView::ReleaseBeyond(std::uint64_t fileSize)
{
    if (m_size > fileSize) Release();
}

void FileView::Release()
{
    if (m_base) UnmapViewOfFile(m_base);
    m_base = nullptr;
    m_size = 0;
    m_refused = false;
}

void FileView::Renew(HANDLE file, std::uint64_t fileSize)
{
    Release();
    const HANDLE mapping = CreateFileMappingA(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping) {
        m_base = static_cast<const BYTE*>(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, fileSize));
        CloseHandle(mapping);
    }
    m_refused = !m_base;
    m_size = m_base ? fileSize : 0;
}

} // namespace corekit::detail
