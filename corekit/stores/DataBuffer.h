// CDataBuffer: a block of bytes, owned or borrowed.
//
// Owned blocks come from the safe allocation functions and go through safe_free; a shortage of memory throws
// the framework's memory exception and leaves the buffer as it was. Sources may lie in the buffer itself. One
// thread at a time.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CMemoryStream;

class COREKIT_API CDataBuffer : public CObject {
    DECLARE_DYNAMIC(CDataBuffer)

public:
    // A null buffer: no block, size 0.
    CDataBuffer() = default;
    // `size` is in bytes. An owned block is one of the safe allocation functions; a borrowed one must
    // outlive the object.
    CDataBuffer(void* data, DWORD size, bool bOwned) : m_data(data), m_size(size), m_owned(bOwned) {}

    ~CDataBuffer() override { Free(); }

    // Each of these frees what the buffer had. Sizes are in bytes; a size above 2 GiB throws the memory
    // exception. A pointer may be null where its size is 0.
    void Attach(void* data, DWORD size, bool bOwned);
    void AttachCopy(const void* data, DWORD size); // of nothing: a null buffer
    void AttachCopy(const CDataBuffer& other) { AttachCopy(other.m_data, other.m_size); }
    void AttachMerged(const void* a, DWORD sizeA, const void* b, DWORD sizeB);
    void Create(DWORD size);                        // the bytes are not cleared
    void TakeoverFromStream(CMemoryStream& stream); // the stream has lost its own block then
    void TakeoverBuffer(CDataBuffer& other);        // with its ownership; the other one is empty then
    void Free();

    // The block goes to the caller, who frees an owned one with safe_free; the buffer is null then.
    void* Detach();

    void* GetBuffer() const { return m_data; } // null for a null buffer
    DWORD GetSize() const { return m_size; }   // in bytes
    // The byte at an offset; null at and above the size.
    void* GetBufferOffset(DWORD offset) const;

    // Whether sizes and bytes are the same; two buffers without bytes are.
    bool IsEqual(const CDataBuffer& other) const { return IsEqual(other.m_data, other.m_size); }
    bool IsEqual(const void* data, DWORD size) const;

    // New objects with copies of the bytes, for the caller to delete.
    CDataBuffer* AllocateDuplicate() const { return AllocateCopy(m_data, m_size); }
    static CDataBuffer* AllocateCopy(const void* data, DWORD size);
    static CDataBuffer* AllocateMerged(const void* a, DWORD sizeA, const void* b, DWORD sizeB);

    // A moveable, shared, unlocked global block with the bytes, for the caller; null for a null buffer and
    // when there is no memory.
    HGLOBAL AllocateGlobalMemoryCopy() const;

private:
    void* m_data = nullptr;
    DWORD m_size = 0;
    bool m_owned = true; // whether Free frees the block
};
