// Arbitrary bytes as a program that carries a version record.
#include "FuzzFile.h"

#include "corekit/foundation/VersionData.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzFile file("module", data, size);
    CVersionData version;
    if (!version.Initialise(file.Path().c_str())) return 0;
    DWORDLONG number = 0;
    CString text;
    if (!version.GetFileVersion(number) || !version.GetProductVersion(number)) std::abort();
    version.GetSpecialBuild(text);
    version.GetCopyright(text);
    version.GetComments(text);
    version.GetFileVersion(text);
    version.GetFileDescription(text);
    return 0;
}
