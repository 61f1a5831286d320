#include "corekit/platform/VersionInfo.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/processor/VersionRecord.h"
#include "corekit/platform/Runtime.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {
using namespace corekit::detail;

// What a caller's block holds; the texts follow.
struct Block {
    DWORD textBytes;
    DWORD translation;
    VS_FIXEDFILEINFO fixed;
};

Block blockOf(const VersionRecord& record)
{
    constexpr DWORD signature = 0xFEEF04BD, structureVersion = 0x10000;
    Block block{};
    block.textBytes = static_cast<DWORD>(record.texts.size());
    block.translation = record.translation;
    block.fixed.dwSignature = signature;
    block.fixed.dwStrucVersion = structureVersion;
    block.fixed.dwFileVersionMS = record.fileVersion[0];
    block.fixed.dwFileVersionLS = record.fileVersion[1];
    block.fixed.dwProductVersionMS = record.productVersion[0];
    block.fixed.dwProductVersionLS = record.productVersion[1];
    return block;
}

BOOL give(const void* from, std::size_t count, void** value, UINT* length)
{
    *value = const_cast<void*>(from);
    if (length) *length = static_cast<UINT>(count);
    return TRUE;
}

// The value of the name among the pairs.
std::string_view textNamed(std::string_view texts, const char* name)
{
    while (!texts.empty()) {
        const std::size_t nameEnd = texts.find('\0'), valueEnd = texts.find('\0', nameEnd + 1);
        if (_stricmp(texts.data(), name) == 0) return texts.substr(nameEnd + 1, valueEnd - nameEnd);
        texts.remove_prefix(valueEnd + 1);
    }
    return {};
}
} // namespace

DWORD GetFileVersionInfoSizeA(const char* path, DWORD* handle)
{
    if (handle) *handle = 0;
    if (!path || !*path) return fail<DWORD>(ERROR_PATH_NOT_FOUND, 0);
    const auto record = readVersionRecord(path);
    return record ? static_cast<DWORD>(sizeof(Block) + record->texts.size()) : 0;
}

BOOL GetFileVersionInfoA(const char* path, DWORD, DWORD size, void* data)
{
    if (!path || !*path || !data) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const auto record = readVersionRecord(path);
    if (!record) return FALSE;
    if (size < sizeof(Block) + record->texts.size()) return fail(ERROR_INSUFFICIENT_BUFFER, FALSE);
    const Block block = blockOf(*record);
    std::memcpy(data, &block, sizeof block);
    std::memcpy(static_cast<char*>(data) + sizeof block, record->texts.data(), record->texts.size());
    return TRUE;
}

BOOL VerQueryValueA(const void* data, const char* name, void** value, UINT* length)
{
    if (!data || !name || !value) return FALSE;
    const Block& block = *static_cast<const Block*>(data);
    if (std::strcmp(name, "\\") == 0) return give(&block.fixed, sizeof block.fixed, value, length);
    if (_stricmp(name, "\\VarFileInfo\\Translation") == 0)
        return give(&block.translation, sizeof block.translation, value, length);
    char place[32];
    std::snprintf(place, sizeof place, "\\StringFileInfo\\%04X%04X\\", LOWORD(block.translation),
                  HIWORD(block.translation));
    const std::size_t placeLength = std::strlen(place);
    if (std::string(name).substr(0, placeLength).size() < placeLength ||
        _stricmp(std::string(name, placeLength).c_str(), place) != 0)
        return FALSE;
    const std::string_view text =
        textNamed({reinterpret_cast<const char*>(&block + 1), block.textBytes}, name + placeLength);
    return text.data() ? give(text.data(), text.size(), value, length) : FALSE;
}
