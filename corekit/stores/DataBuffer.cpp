#include "corekit/stores/DataBuffer.h"

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/framework/Exception.h"
#include "corekit/platform/Memory.h"
#include "corekit/stores/MemoryStream.h"

#include <climits>
#include <cstring>
#include <memory>

IMPLEMENT_DYNAMIC(CDataBuffer, CObject)

namespace {

void* newBlock(std::uint64_t size)
{
    if (size > INT_MAX) AfxThrowMemoryException();
    return __safe_malloc(static_cast<int>(size), __FILE__, __LINE__);
}

void put(void* target, DWORD at, const void* source, DWORD size)
{
    if (size) std::memcpy(static_cast<BYTE*>(target) + at, source, size);
}

} // namespace

void CDataBuffer::Attach(void* data, DWORD size, bool bOwned)
{
    if (data != m_data) Free();
    m_data = data;
    m_size = size;
    m_owned = bOwned;
}

void CDataBuffer::AttachCopy(const void* data, DWORD size)
{
    if (!data || size == 0) return Free();
    void* const block = newBlock(size);
    put(block, 0, data, size);
    Attach(block, size, true);
}

void CDataBuffer::AttachMerged(const void* a, DWORD sizeA, const void* b, DWORD sizeB)
{
    void* const block = newBlock(std::uint64_t{sizeA} + sizeB);
    put(block, 0, a, sizeA);
    put(block, sizeA, b, sizeB);
    Attach(block, sizeA + sizeB, true);
}

void CDataBuffer::Create(DWORD size) { Attach(newBlock(size), size, true); }

void CDataBuffer::TakeoverFromStream(CMemoryStream& stream)
{
    const DWORD size = stream.GetSize();
    Attach(stream.Detach(), size, true);
}

void CDataBuffer::TakeoverBuffer(CDataBuffer& other)
{
    if (this == &other) return;
    Attach(other.m_data, other.m_size, other.m_owned);
    other.m_data = nullptr;
    other.m_size = 0;
}

void CDataBuffer::Free()
{
    if (m_owned) safe_free(m_data);
    m_data = nullptr;
    m_size = 0;
    m_owned = true;
}

void* CDataBuffer::Detach()
{
    void* const block = m_data;
    m_data = nullptr;
    m_size = 0;
    return block;
}

void* CDataBuffer::GetBufferOffset(DWORD offset) const
{
    return offset < m_size ? static_cast<BYTE*>(m_data) + offset : nullptr;
}

bool CDataBuffer::IsEqual(const void* data, DWORD size) const
{
    return size == m_size &&
           (size == 0 || data == m_data || (data && m_data && std::memcmp(data, m_data, size) == 0));
}

CDataBuffer* CDataBuffer::AllocateCopy(const void* data, DWORD size)
{
    auto copy = std::make_unique<CDataBuffer>();
    copy->AttachCopy(data, size);
    return copy.release();
}

CDataBuffer* CDataBuffer::AllocateMerged(const void* a, DWORD sizeA, const void* b, DWORD sizeB)
{
    auto merged = std::make_unique<CDataBuffer>();
    merged->AttachMerged(a, sizeA, b, sizeB);
    return merged.release();
}

HGLOBAL CDataBuffer::AllocateGlobalMemoryCopy() const
{
    if (!m_data) return nullptr;
    const HGLOBAL block = GlobalAlloc(GMEM_SHARE | GHND, m_size);
    if (!block) return nullptr;
    if (void* const bytes = GlobalLock(block)) {
        put(bytes, 0, m_data, m_size);
        GlobalUnlock(block);
    }
    return block;
}
