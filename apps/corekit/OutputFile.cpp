#include "OutputFile.h"

#include "corekit/platform/Files.h"
#include "corekit/stores/FileStream.h"

void OutputFile::Open(CFileStream& stream)
{
    if (!stream.Open(m_file.Path().c_str(), GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING, 0))
        FailFor(m_target);
}
