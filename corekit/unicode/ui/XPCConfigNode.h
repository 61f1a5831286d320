// The small part of an outside configuration tree that a font choice is read from and written to.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/platform/Types.h"

// A node of named values, implemented and owned by the caller. A read returns true and sets `value` if the
// key is present with a fitting type; otherwise it returns false and leaves `value` alone.
class IXPCConfigNode {
public:
    // Font descriptors never delete a node.
    virtual ~IXPCConfigNode() = default;

    // Integers of 32 bits, with a sign and without.
    virtual bool ReadInteger(const char* key, int& value) = 0;
    virtual bool ReadInteger(const char* key, unsigned& value) = 0;

    virtual bool ReadString(const char* key, CString& value) = 0;
    // Texts and integers are written to the key, whatever it held.
    virtual void WriteString(const char* key, const char* value) = 0;
    // A 64-bit integer in two halves.
    virtual void WriteInteger(const char* key, DWORD low, DWORD high) = 0;
};
