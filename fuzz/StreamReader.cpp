// Reads arbitrary bytes as the values of every kind that the first bytes ask for.
#include "corekit/framework/Exception.h"
#include "corekit/stores/MemoryStream.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CMemoryStream stream(static_cast<const void*>(data), static_cast<int>(size));
    StringW wide;
    StringA narrow;
    CString text;
    CByteArray bytes;
    CStringArray texts;
    CArray<StringW, const WCHAR*> wides;
    CArray<StringA, const char*> narrows;
    try {
        for (int step = 0; step < 1000; ++step) { // a skip may go back
            switch (stream.read_uint8() % 9) {
            case 0:
                stream.Read(wide);
                break;
            case 1:
                stream.Read(narrow);
                break;
            case 2:
                stream.Read(text);
                break;
            case 3:
                stream.Read(bytes);
                break;
            case 4:
                stream.Read(texts);
                break;
            case 5:
                stream.Read(wides);
                break;
            case 6:
                stream.Read(narrows);
                break;
            case 7:
                stream.Skip(stream.read_int32());
                break;
            default:
                stream.read_int64();
                break;
            }
        }
    } catch (CException* refused) {
        refused->Delete();
    }
    return 0;
}
