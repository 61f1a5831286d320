// Arbitrary archives, to memory and to a folder that nothing may leave.
#include "FuzzFile.h"

#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/MiniUnz.h"

namespace {
class Drain : public CMemoryStream {
    DWORD m_rest = 1 << 20;

protected:
    void InternalWrite(const void*, DWORD count) override
    {
        if (count > m_rest) AfxThrowUserException();
        m_rest -= count;
    }
};

void Unzip(bool toMemory, const std::string& archive, const std::string& folder, int withoutPath)
{
    Drain drain;
    try {
        CMiniUnz().unzip(toMemory, drain, archive.c_str(), nullptr, folder.c_str(), withoutPath, 1,
                         "password");
    } catch (CException* full) {
        full->Delete();
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MessageBoxHandler before =
        SetMessageBoxHandler([](CWnd*, const char*, UINT) { return IDOK; });
    static_cast<void>(before);
    const FuzzFile archive("zip", data, size);
    const std::filesystem::path folder = FuzzFolder() + "/out";
    Unzip(true, archive.Path(), "", 0);
    std::filesystem::create_directory(folder);
    Unzip(false, archive.Path(), folder.string(), size % 2);
    for (const auto& entry : std::filesystem::directory_iterator(FuzzFolder()))
        if (entry.path() != folder && entry.path() != archive.Path()) std::abort();
    return 0;
}
