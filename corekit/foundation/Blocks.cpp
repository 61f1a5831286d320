#include "corekit/foundation/Blocks.h"

#include "corekit/foundation/Timecode.h"

#include <libdeflate.h>

#include <bit>
#include <climits>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "blocks hold the machine's own integers");

void AppendStringToBuffer(CByteArray& buffer, const char* text)
{
    if (text) AppendDataToBuffer(buffer, text, std::strlen(text));
}

void AppendDataToBuffer(CByteArray& buffer, const void* data, unsigned long size)
{
    if (size == 0) return;
    const int before = buffer.GetSize();
    if (size > static_cast<unsigned long>(INT_MAX - before)) AfxThrowMemoryException();
    buffer.SetSize(before + static_cast<int>(size));
    std::memcpy(buffer.GetData() + before, data, size);
}

void SwapByteOrder(unsigned short* data, int count)
{
    for (int i = 0; i < count; ++i) data[i] = static_cast<unsigned short>(data[i] << 8 | data[i] >> 8);
}

void SwapByteOrderInString(StringW& text)
{
    const int length = text.GetLength();
    WCHAR* units = text.GetBuffer(length);
    for (int i = 0; i < length; ++i) units[i] = static_cast<WCHAR>(units[i] << 8 | units[i] >> 8);
    text.ReleaseBuffer(length);
}

void AddToBLOB(CByteArray& blob, unsigned long value)
{
    const auto bytes = static_cast<DWORD>(value);
    AppendDataToBuffer(blob, &bytes, sizeof bytes);
}

void AddToBLOB(CByteArray& blob, const CTimecode& value) { CTimecode::AddToBLOB(blob, value); }

void ConvertToBLOB(const CDWordArray& values, CByteArray& blob)
{
    blob.RemoveAll();
    AppendDataToBuffer(blob, values.GetData(), static_cast<unsigned long>(values.GetSize()) * sizeof(DWORD));
}

void ConvertFromBLOB(const CByteArray& blob, CDWordArray& values)
{
    values.SetSize(blob.GetSize() / static_cast<int>(sizeof(DWORD)));
    if (values.GetSize() > 0)
        std::memcpy(values.GetData(), blob.GetData(),
                    static_cast<std::size_t>(values.GetSize()) * sizeof(DWORD));
}

unsigned long Adler32Checksum(unsigned char* data, unsigned int size)
{
    return data ? libdeflate_adler32(1, data, size) : 1;
}
