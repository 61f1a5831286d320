// Small helpers for blocks of bytes.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/Array.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

class CTimecode;

// Appends the text without its terminator, null being empty, or `size` bytes. An array that would pass 2
// GiB throws the memory exception and stays as it was. The source must not lie in the array.
COREKIT_API void AppendStringToBuffer(CByteArray& buffer, const char* text);
COREKIT_API void AppendDataToBuffer(CByteArray& buffer, const void* data, unsigned long size);

// Swaps the two bytes of each 16-bit unit in place, which turns big-endian text into little-endian or back;
// `count` is in units.
COREKIT_API void SwapByteOrder(unsigned short* data, int count);
// All units of the string's length.
COREKIT_API void SwapByteOrderInString(StringW& text);

// Appends the low 32 bits as four bytes, little-endian.
COREKIT_API void AddToBLOB(CByteArray& blob, unsigned long value);
// The timecode as one value, its hours in the most significant byte.
COREKIT_API void AddToBLOB(CByteArray& blob, const CTimecode& value);
// Four bytes a value, in order; bytes behind the last whole value are left out.
COREKIT_API void ConvertToBLOB(const CDWordArray& values, CByteArray& blob);
COREKIT_API void ConvertFromBLOB(const CByteArray& blob, CDWordArray& values);

// The Adler-32 checksum of RFC 1950; 1 for a null pointer or no bytes.
COREKIT_API unsigned long Adler32Checksum(unsigned char* data, unsigned int size);
