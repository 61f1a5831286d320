#include "corekit/foundation/VersionData.h"

#include "corekit/platform/Libraries.h"
#include "corekit/platform/VersionInfo.h"

#include <cstdlib>

IMPLEMENT_DYNAMIC(CVersionData, CObject)

namespace {
constexpr DWORD longestPath = 4096;

const VS_FIXEDFILEINFO* fixedPart(const void* block)
{
    void* fixed = nullptr;
    return block && VerQueryValueA(block, "\\", &fixed, nullptr) ? static_cast<VS_FIXEDFILEINFO*>(fixed)
                                                                 : nullptr;
}

DWORDLONG joined(DWORD high, DWORD low) { return DWORDLONG{high} << 32 | low; }
} // namespace

void CVersionData::Free::operator()(void* block) const { std::free(block); }

int CVersionData::Initialise(HINSTANCE module)
{
    const std::unique_ptr<char[]> path(new char[longestPath]);
    const DWORD length = GetModuleFileNameA(module, path.get(), longestPath);
    m_block.reset();
    return length != 0 && length < longestPath ? Initialise(path.get()) : 0;
}

int CVersionData::Initialise(const char* path)
{
    m_block.reset();
    const DWORD size = GetFileVersionInfoSizeA(path, nullptr);
    if (size == 0) return 0;
    m_block.reset(std::malloc(size));
    void* translation = nullptr;
    if (!m_block || !GetFileVersionInfoA(path, 0, size, m_block.get()) ||
        !VerQueryValueA(m_block.get(), "\\VarFileInfo\\Translation", &translation, nullptr)) {
        m_block.reset();
        return 0;
    }
    const DWORD both = *static_cast<const DWORD*>(translation);
    m_key.Format("%08X", both << 16 | both >> 16);
    return 1;
}

int CVersionData::GetFileVersion(DWORDLONG& version)
{
    const VS_FIXEDFILEINFO* fixed = fixedPart(m_block.get());
    if (fixed) version = joined(fixed->dwFileVersionMS, fixed->dwFileVersionLS);
    return fixed != nullptr;
}

int CVersionData::GetProductVersion(DWORDLONG& version)
{
    const VS_FIXEDFILEINFO* fixed = fixedPart(m_block.get());
    if (fixed) version = joined(fixed->dwProductVersionMS, fixed->dwProductVersionLS);
    return fixed != nullptr;
}

int CVersionData::GetStringValue(const char* name, CString& text)
{
    CString path;
    path.Format("\\StringFileInfo\\%s\\%s", m_key.GetString(), name);
    void* value = nullptr;
    if (!m_block || !VerQueryValueA(m_block.get(), path, &value, nullptr)) return 0;
    text = static_cast<const char*>(value);
    return 1;
}
