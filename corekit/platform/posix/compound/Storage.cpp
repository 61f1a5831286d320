#include "corekit/platform/Storage.h"

#include "corekit/platform/CodePages.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/posix/compound/CompoundTree.h"
#include "corekit/platform/posix/compound/CompoundWriter.h"
#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/ReplacedFile.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>
#include <unicode/utf16.h>
#include <unistd.h>

namespace {
using corekit::ReplacedFile;
using corekit::detail::CompoundNode;
using corekit::detail::CompoundReader;
using corekit::detail::CompoundState;
using corekit::detail::Descriptor;

constexpr std::size_t longestName = 31;
constexpr DWORD accessBits = 3, shareBits = 0x70;

HRESULT resultOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return STG_E_FILENOTFOUND;
    case ERROR_PATH_NOT_FOUND:
        return STG_E_PATHNOTFOUND;
    case ERROR_SHARING_VIOLATION:
        return STG_E_SHAREVIOLATION;
    case ERROR_FILE_EXISTS:
        return STG_E_FILEALREADYEXISTS;
    case ERROR_DISK_FULL:
        return STG_E_MEDIUMFULL;
    default:
        return STG_E_ACCESSDENIED;
    }
}

HRESULT resultOfWrite(DWORD error)
{
    switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
        return STG_E_MEDIUMFULL;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return STG_E_ACCESSDENIED;
    case ERROR_INVALID_DATA:
        return STG_E_READFAULT;
    default:
        return STG_E_WRITEFAULT;
    }
}

// Failures of memory become results at the interfaces' border.
template <class Operation>
HRESULT guarded(Operation operation) noexcept
{
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return STG_E_INSUFFICIENTMEMORY;
    } catch (const std::length_error&) {
        return STG_E_MEDIUMFULL;
    }
}

std::string pathOf(const WCHAR* name)
{
    const int length = WideCharToMultiByte(CP_ACP, 0, name, -1, nullptr, 0, nullptr, nullptr);
    std::string path(static_cast<std::size_t>(std::max(length, 1)), '\0');
    WideCharToMultiByte(CP_ACP, 0, name, -1, path.data(), length, nullptr, nullptr);
    return path.c_str();
}

enum class NameUse { find, make };

// Whether half a pair of units stands alone.
bool isBroken(std::u16string_view name)
{
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (!U16_IS_SURROGATE(name[i])) continue;
        if (!U16_IS_SURROGATE_LEAD(name[i]) || i + 1 == name.size() || !U16_IS_TRAIL(name[i + 1]))
            return true;
        ++i;
    }
    return false;
}

// A file of others may hold names that nobody may make.
bool isElementName(std::u16string_view name, NameUse use = NameUse::find)
{
    if (name.empty() || name.size() > longestName) return false;
    return use == NameUse::find || (name.find_first_of(u"/\\:!") == name.npos && !isBroken(name));
}

// What the storages of one open file share.
struct CompoundDocument {
    std::string path;
    DWORD access = 0, share = 0; // of the claim
    HANDLE claim = INVALID_HANDLE_VALUE;
    bool mayWrite = false;
    std::shared_ptr<CompoundNode> root;

    CompoundDocument() = default;
    CompoundDocument(const CompoundDocument&) = delete;
    CompoundDocument& operator=(const CompoundDocument&) = delete;
    ~CompoundDocument() { Claim(INVALID_HANDLE_VALUE); }

    void Claim(HANDLE handle)
    {
        if (claim != INVALID_HANDLE_VALUE) CloseHandle(claim);
        claim = handle;
    }
    HANDLE OpenClaim(const char* name) const
    {
        return CreateFileA(name, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
    }

    HRESULT Save()
    {
        ReplacedFile file(path);
        std::vector<CompoundNode*> nodes;
        if (!file || !corekit::detail::writeCompoundFile(*root, file.OpenDescriptor(), nodes))
            return resultOfWrite(GetLastError());
        CompoundState state;
        auto saved =
            CompoundReader::Open(Descriptor(::open(file.Path().c_str(), O_RDONLY | O_CLOEXEC)), state);
        if (!saved) return STG_E_READFAULT;
        const std::string beside = file.Path();
        const HANDLE next = OpenClaim(beside.c_str());
        const HRESULT result = file.Commit() ? S_OK : resultOfWrite(GetLastError());
        if (result != S_OK && file.Path() == beside) {
            if (next != INVALID_HANDLE_VALUE) CloseHandle(next);
            return result;
        }
        // In its place, also if a loss of power may undo that.
        Claim(next);
        for (std::size_t entry = 0; entry < nodes.size(); ++entry)
            nodes[entry]->Rebase(saved, static_cast<std::uint32_t>(entry));
        return result;
    }
};

template <class Interface>
class Counted : public Interface {
public:
    DWORD AddRef() override { return ++m_count; }
    DWORD Release() override
    {
        const DWORD left = --m_count;
        if (left == 0) delete this;
        return left;
    }

private:
    std::atomic<DWORD> m_count = 1;
};

class Stream final : public Counted<IStream> {
public:
    Stream(std::shared_ptr<CompoundNode> node, bool mayWrite) : m_node(std::move(node)), m_mayWrite(mayWrite)
    {
        m_node->isOpen = true;
    }
    ~Stream() override
    {
        m_node->isOpen = false;
        m_node->Forget();
    }

    HRESULT Read(void* buffer, DWORD count, DWORD* done) override
    {
        const std::uint64_t size = m_node->Size();
        const auto part =
            static_cast<DWORD>(std::min<std::uint64_t>(count, m_position < size ? size - m_position : 0));
        if (done) *done = 0;
        if (!m_node->Read(m_position, buffer, part)) return STG_E_READFAULT;
        m_position += part;
        if (done) *done = part;
        return S_OK;
    }

    HRESULT Write(const void* buffer, DWORD count, DWORD* done) override
    {
        return guarded([&] {
            if (done) *done = 0;
            if (!m_mayWrite) return STG_E_ACCESSDENIED;
            std::string* bytes = m_node->Change();
            if (!bytes) return STG_E_READFAULT;
            if (bytes->size() < m_position + count) bytes->resize(m_position + count);
            std::copy_n(static_cast<const char*>(buffer), count, bytes->data() + m_position);
            m_position += count;
            if (done) *done = count;
            return S_OK;
        });
    }

    HRESULT Seek(LONGLONG distance, DWORD origin, DWORDLONG* position) override
    {
        const std::uint64_t size = m_node->Size();
        const std::uint64_t from = origin == STREAM_SEEK_SET   ? 0
                                   : origin == STREAM_SEEK_CUR ? m_position
                                                               : size;
        const auto back = static_cast<std::uint64_t>(-(distance + 1)) + 1;
        if (origin > STREAM_SEEK_END || (distance < 0 && back > from)) return STG_E_SEEKERROR;
        m_position = distance < 0 ? from - back : from + static_cast<std::uint64_t>(distance);
        if (position) *position = m_position;
        return S_OK;
    }

    HRESULT SetSize(DWORDLONG size) override
    {
        return guarded([&] {
            if (!m_mayWrite) return STG_E_ACCESSDENIED;
            std::string* bytes = m_node->Change();
            if (!bytes) return STG_E_READFAULT;
            bytes->resize(size);
            return S_OK;
        });
    }

private:
    const std::shared_ptr<CompoundNode> m_node;
    const bool m_mayWrite;
    std::uint64_t m_position = 0;
};

class Storage final : public Counted<IStorage> {
public:
    Storage(std::shared_ptr<CompoundDocument> document, std::shared_ptr<CompoundNode> node)
        : m_document(std::move(document)), m_node(std::move(node))
    {
    }

    HRESULT CreateStream(const WCHAR* name, DWORD mode, DWORD, DWORD, IStream** stream) override
    {
        return guarded([&] {
            if (!isElementName(name, NameUse::make)) return STG_E_INVALIDNAME;
            if (!m_document->mayWrite) return STG_E_ACCESSDENIED;
            auto node = m_node->Find(name);
            if (node && (mode & STGM_CREATE) == 0) return STG_E_FILEALREADYEXISTS;
            if (node && (node->isOpen || node->IsStorage())) return STG_E_ACCESSDENIED;
            if (!node) {
                node = std::make_shared<CompoundNode>(name, false);
                m_node->Add(node);
            }
            node->Empty();
            *stream = new Stream(node, true);
            return S_OK;
        });
    }

    HRESULT OpenStream(const WCHAR* name, void*, DWORD, DWORD, IStream** stream) override
    {
        return guarded([&] {
            if (!isElementName(name)) return STG_E_INVALIDNAME;
            const auto node = m_node->Find(name);
            if (!node || node->IsStorage()) return STG_E_FILENOTFOUND;
            if (!node->IsSound()) return STG_E_DOCFILECORRUPT;
            if (node->isOpen) return STG_E_ACCESSDENIED;
            *stream = new Stream(node, m_document->mayWrite);
            return S_OK;
        });
    }

    HRESULT OpenStorage(const WCHAR* name, DWORD, IStorage** storage) override
    {
        return guarded([&] {
            if (!isElementName(name)) return STG_E_INVALIDNAME;
            const auto node = m_node->Find(name);
            if (!node || !node->IsStorage()) return STG_E_FILENOTFOUND;
            *storage = new Storage(m_document, node);
            return S_OK;
        });
    }

    HRESULT Commit(DWORD) override
    {
        return guarded([&] { return m_document->mayWrite ? m_document->Save() : STG_E_ACCESSDENIED; });
    }

    HRESULT SetClass(const CLSID& id) override
    {
        if (!m_document->mayWrite) return STG_E_ACCESSDENIED;
        m_node->classId = id;
        return S_OK;
    }

    HRESULT Stat(STATSTG* status, DWORD flags) override
    {
        if (!status) return STG_E_INVALIDPOINTER;
        return guarded([&] {
            Describe(*m_node, status);
            if (flags & STATFLAG_NONAME) status->pwcsName[0] = 0;
            return S_OK;
        });
    }

    HRESULT StatElement(DWORD index, STATSTG* status) override
    {
        return guarded([&] {
            const auto& children = m_node->Children();
            if (index >= children.size()) return S_FALSE;
            Describe(*children[index], status);
            return children[index]->IsSound() ? S_OK : STG_E_DOCFILECORRUPT;
        });
    }

private:
    static void Describe(CompoundNode& node, STATSTG* status)
    {
        *status = STATSTG();
        node.Name().copy(status->pwcsName, longestName);
        status->type = node.IsStorage() ? STGTY_STORAGE : STGTY_STREAM;
        if (node.IsStorage())
            status->clsid = node.classId;
        else
            status->cbSize = node.Size();
    }

    const std::shared_ptr<CompoundDocument> m_document;
    const std::shared_ptr<CompoundNode> m_node;
};

DWORD shareOf(DWORD mode)
{
    switch (mode & shareBits) {
    case STGM_SHARE_DENY_WRITE:
        return FILE_SHARE_READ;
    case STGM_SHARE_DENY_READ:
        return FILE_SHARE_WRITE;
    case STGM_SHARE_DENY_NONE:
        return FILE_SHARE_READ | FILE_SHARE_WRITE;
    default:
        return 0;
    }
}

std::shared_ptr<CompoundDocument> newDocument(const WCHAR* name, DWORD mode)
{
    auto document = std::make_shared<CompoundDocument>();
    document->path = corekit::detail::nativePath(pathOf(name).c_str());
    document->mayWrite = (mode & accessBits) != STGM_READ;
    document->access = GENERIC_READ | (document->mayWrite ? GENERIC_WRITE : 0);
    document->share = shareOf(mode);
    return document;
}

HRESULT openDocument(const std::shared_ptr<CompoundDocument>& document)
{
    document->Claim(document->OpenClaim(document->path.c_str()));
    if (document->claim == INVALID_HANDLE_VALUE) return resultOf(GetLastError());
    CompoundState state;
    const auto file = CompoundReader::Open(
        Descriptor(::open(document->path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)), state);
    if (file) document->root = std::make_shared<CompoundNode>(file, 0);
    switch (state) {
    case CompoundState::sound:
        return S_OK;
    case CompoundState::damaged:
        return STG_E_DOCFILECORRUPT;
    case CompoundState::other:
        return STG_E_INVALIDHEADER;
    case CompoundState::unreadable:
        break;
    }
    return STG_E_ACCESSDENIED;
}
} // namespace

HRESULT StgOpenStorage(const WCHAR* name, DWORD mode, IStorage** storage)
{
    if (!name || !storage) return STG_E_INVALIDPOINTER;
    return guarded([&] {
        const auto document = newDocument(name, mode);
        if (const HRESULT result = openDocument(document); result != S_OK) return result;
        *storage = new Storage(document, document->root);
        return S_OK;
    });
}

HRESULT StgCreateDocfile(const WCHAR* name, DWORD mode, IStorage** storage)
{
    if (!name || !storage) return STG_E_INVALIDPOINTER;
    return guarded([&] {
        const auto document = newDocument(name, mode);
        document->mayWrite = true;
        document->access = GENERIC_READ | GENERIC_WRITE;
        const bool mayReplace = (mode & STGM_CREATE) != 0;
        document->Claim(CreateFileA(document->path.c_str(), document->access, document->share, nullptr,
                                    mayReplace ? OPEN_ALWAYS : CREATE_NEW, 0, nullptr));
        if (document->claim == INVALID_HANDLE_VALUE) return resultOf(GetLastError());
        const bool existed = mayReplace && GetLastError() == ERROR_ALREADY_EXISTS;
        document->root = std::make_shared<CompoundNode>(u"", true);
        if (!existed) {
            if (const HRESULT result = document->Save(); result != S_OK) {
                document->Claim(INVALID_HANDLE_VALUE);
                DeleteFileA(document->path.c_str()); // nobody could open it
                return result;
            }
        }
        *storage = new Storage(document, document->root);
        return S_OK;
    });
}

HRESULT StgIsStorageFile(const WCHAR* name)
{
    return guarded([&] {
        const std::string path = corekit::detail::nativePath(pathOf(name).c_str());
        const corekit::detail::Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!file) return errno == ENOENT ? STG_E_FILENOTFOUND : STG_E_ACCESSDENIED;
        return corekit::detail::hasCompoundHeader(file.get()) ? S_OK : S_FALSE;
    });
}
