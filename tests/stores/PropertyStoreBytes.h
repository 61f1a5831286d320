// Property stores as the bytes of their stream form.
#pragma once

#include "tests/support/Thrown.h"

#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"

#include <string>

inline std::string Written(const CPropertyStore& store)
{
    CMemoryStream stream(64, 4096);
    store.WriteStream(stream);
    return {static_cast<const char*>(stream.GetMemoryBufferPointer()), stream.GetSize()};
}

// What was thrown.
inline std::string ReadFrom(CPropertyStore& store, const std::string& bytes)
{
    CMemoryStream stream(bytes.data(), static_cast<int>(bytes.size()));
    return Thrown([&] { store.ReadStream(stream); });
}
