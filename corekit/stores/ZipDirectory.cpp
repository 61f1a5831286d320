#include "corekit/stores/ZipDirectory.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <minizip/unzip.h>
#include <string_view>

namespace {
using namespace corekit::detail;

constexpr std::size_t endSize = 22, locatorSize = 20, wideEndSize = 56, rowSize = 46, headerSize = 30;
constexpr std::size_t longestComment = 0xFFFF;
constexpr std::string_view endMark = "PK\5\6", locatorMark = "PK\6\7", wideEndMark = "PK\6\6",
                           rowMark = "PK\1\2", headerMark = "PK\3\4";

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

DWORDLONG numberAt(std::string_view bytes, std::size_t at, std::size_t size)
{
    DWORDLONG number = 0;
    for (std::size_t i = size; i > 0; --i) number = number << 8 | static_cast<BYTE>(bytes[at + i - 1]);
    return number;
}

// The bytes there, or fewer where the file ends.
std::string bytesAt(std::FILE* file, DWORDLONG place, std::size_t size)
{
    std::string bytes(size, '\0');
    const bool isThere = place <= static_cast<DWORDLONG>(std::numeric_limits<off_t>::max()) &&
                         fseeko(file, static_cast<off_t>(place), SEEK_SET) == 0;
    bytes.resize(isThere ? std::fread(bytes.data(), 1, size, file) : 0);
    return bytes;
}

DWORDLONG sizeOf(std::FILE* file)
{
    return fseeko(file, 0, SEEK_END) == 0 ? static_cast<DWORDLONG>(std::max<off_t>(ftello(file), 0)) : 0;
}

// A pipe would be waited for.
File openFile(const std::string& path)
{
    std::error_code gone;
    const bool isPlain = std::filesystem::is_regular_file(path, gone);
    return {isPlain ? std::fopen(path.c_str(), "rbe") : nullptr, &std::fclose};
}

// Where the record at the end begins: the last one whose comment reaches to the end of the file.
std::optional<DWORDLONG> findEnd(std::FILE* file)
{
    const DWORDLONG size = sizeOf(file);
    const DWORDLONG tail = std::min<DWORDLONG>(size, endSize + longestComment);
    const std::string bytes = bytesAt(file, size - tail, static_cast<std::size_t>(tail));
    for (std::size_t at = bytes.rfind(endMark); at != bytes.npos;
         at = at ? bytes.rfind(endMark, at - 1) : bytes.npos)
        if (at + endSize <= bytes.size() && at + endSize + numberAt(bytes, at + 20, 2) == bytes.size())
            return size - tail + at;
    return std::nullopt;
}

struct End {
    DWORDLONG entries, size, offset, place; // place: of the record that says so
};

std::optional<End> readEnd(std::FILE* file)
{
    const auto place = findEnd(file);
    if (!place) return std::nullopt;
    const std::string bytes = bytesAt(file, *place, endSize);
    if (bytes.size() < endSize) return std::nullopt;
    const End end{numberAt(bytes, 10, 2), numberAt(bytes, 12, 4), numberAt(bytes, 16, 4), *place};
    const bool isWide = end.entries == 0xFFFF || end.size == 0xFFFFFFFF || end.offset == 0xFFFFFFFF;
    if (!isWide || *place < locatorSize) return end;
    const std::string locator = bytesAt(file, *place - locatorSize, locatorSize);
    if (!locator.starts_with(locatorMark)) return end;
    const DWORDLONG widePlace = numberAt(locator, 8, 8);
    const std::string wide = bytesAt(file, widePlace, wideEndSize);
    if (wide.size() < wideEndSize || !wide.starts_with(wideEndMark)) return std::nullopt;
    return End{numberAt(wide, 32, 8), numberAt(wide, 40, 8), numberAt(wide, 48, 8), widePlace};
}

// Sizes and places that do not fit 32 bits stand in a field of their own, in this order.
void widen(std::string_view extra, corekit::ZipDirectoryEntry& entry)
{
    while (extra.size() >= 4) {
        const auto size = static_cast<std::size_t>(numberAt(extra, 2, 2));
        if (size > extra.size() - 4) return;
        std::string_view field = extra.substr(4, size);
        for (DWORDLONG* value : {&entry.size, &entry.packed, &entry.local}) {
            if (numberAt(extra, 0, 2) != 1 || *value != 0xFFFFFFFF || field.size() < 8) continue;
            *value = numberAt(field, 0, 8);
            field.remove_prefix(8);
        }
        extra.remove_prefix(4 + size);
    }
}
} // namespace

namespace corekit {

std::optional<ZipDirectory> ZipDirectory::Read(const std::string& path)
{
    const File file = openFile(path);
    const auto end = file ? readEnd(file.get()) : std::nullopt;
    if (!end || end->size > end->place || end->offset > end->place - end->size) return std::nullopt;
    const DWORDLONG before = end->place - end->size - end->offset; // a program that unpacks itself, say
    ZipDirectory directory;
    directory.m_begin = before + end->offset;
    const std::string rows = bytesAt(file.get(), directory.m_begin, static_cast<std::size_t>(end->size));
    std::string_view rest = rows;
    while (rest.size() >= rowSize && rest.starts_with(rowMark)) {
        const auto name = static_cast<std::size_t>(numberAt(rest, 28, 2)),
                   extra = static_cast<std::size_t>(numberAt(rest, 30, 2)),
                   comment = static_cast<std::size_t>(numberAt(rest, 32, 2));
        if (name + extra + comment > rest.size() - rowSize) break;
        ZipDirectoryEntry entry{end->offset + (rows.size() - rest.size()),
                                numberAt(rest, 42, 4),
                                numberAt(rest, 20, 4),
                                numberAt(rest, 24, 4),
                                std::string(rest.substr(rowSize, name)),
                                static_cast<DWORD>(numberAt(rest, 12, 4))};
        widen(rest.substr(rowSize + name, extra), entry);
        entry.local += before;
        directory.m_entries.push_back(std::move(entry));
        rest.remove_prefix(rowSize + name + extra + comment);
    }
    directory.m_isWhole =
        rest.empty() && directory.m_entries.size() == end->entries && rows.size() == end->size;
    return directory;
}

bool ZipDirectory::HasOverlap() const
{
    std::vector<const ZipDirectoryEntry*> order;
    for (const ZipDirectoryEntry& entry : m_entries) order.push_back(&entry);
    std::ranges::sort(order, {}, &ZipDirectoryEntry::local);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const ZipDirectoryEntry& entry = *order[i];
        const DWORDLONG next = i + 1 < order.size() ? order[i + 1]->local : m_begin;
        const DWORDLONG head = headerSize + entry.name.size();
        if (entry.local > next || next - entry.local < head || next - entry.local - head < entry.packed)
            return true;
    }
    return false;
}

DWORDLONG ZipDirectory::UnpackedSize() const
{
    DWORDLONG sum = 0;
    for (const ZipDirectoryEntry& entry : m_entries)
        sum = entry.size > ~sum ? std::numeric_limits<DWORDLONG>::max() : sum + entry.size;
    return sum;
}

namespace detail {

bool isConfirmed(const std::string& path, const ZipDirectoryEntry& entry)
{
    const File file = openFile(path);
    const std::string header = file ? bytesAt(file.get(), entry.local, headerSize + entry.name.size()) : "";
    return header.size() == headerSize + entry.name.size() && header.starts_with(headerMark) &&
           numberAt(header, 10, 4) == entry.dosDate && header.ends_with(entry.name);
}

// --- for minizip

namespace {
struct Source {
    File file;
    DWORDLONG end; // of what is seen
};

Source& sourceOf(voidpf stream) { return *static_cast<Source*>(stream); }

voidpf openSource(voidpf, const void* name, int)
{
    File file = openFile(static_cast<const char*>(name));
    const auto end = file ? findEnd(file.get()) : std::nullopt;
    if (!end) return nullptr;
    std::rewind(file.get());
    return new Source{std::move(file), *end + endSize};
}

uLong readSource(voidpf, voidpf stream, void* buffer, uLong size)
{
    Source& source = sourceOf(stream);
    const auto place = static_cast<DWORDLONG>(std::max<off_t>(ftello(source.file.get()), 0));
    const DWORDLONG there = place < source.end ? source.end - place : 0;
    const std::size_t count =
        std::fread(buffer, 1, static_cast<std::size_t>(std::min<DWORDLONG>(size, there)), source.file.get());
    for (DWORDLONG at = source.end - 2; at < source.end; ++at) // the length of the comment
        if (at >= place && at < place + count) static_cast<char*>(buffer)[at - place] = 0;
    return static_cast<uLong>(count);
}

ZPOS64_T tellSource(voidpf, voidpf stream)
{
    return static_cast<ZPOS64_T>(ftello(sourceOf(stream).file.get()));
}

long seekSource(voidpf, voidpf stream, ZPOS64_T offset, int origin)
{
    Source& source = sourceOf(stream);
    if (origin == ZLIB_FILEFUNC_SEEK_END) {
        offset += source.end;
        origin = ZLIB_FILEFUNC_SEEK_SET;
    }
    const int from = origin == ZLIB_FILEFUNC_SEEK_SET ? SEEK_SET : SEEK_CUR;
    return offset > static_cast<ZPOS64_T>(std::numeric_limits<off_t>::max())
               ? -1
               : fseeko(source.file.get(), static_cast<off_t>(offset), from);
}

int closeSource(voidpf, voidpf stream) { return delete &sourceOf(stream), 0; }
int sourceError(voidpf, voidpf stream) { return std::ferror(sourceOf(stream).file.get()); }
} // namespace

void* openZip(const std::string& path)
{
    zlib_filefunc64_def functions{openSource, readSource,  nullptr,     tellSource,
                                  seekSource, closeSource, sourceError, nullptr};
    return unzOpen2_64(path.c_str(), &functions);
}

} // namespace detail
} // namespace corekit
