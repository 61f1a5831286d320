#include "corekit/stores/OleFile.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Storage.h"
#include "corekit/resources/Messages.h"
#include "corekit/stores/OleStream.h"

#include <memory>

IMPLEMENT_DYNAMIC(COleFile, CObject)

namespace {

constexpr DWORD fileExists = 80;

CException* cause(HRESULT result) { return GetLastErrorException(static_cast<DWORD>(result)); }

bool exists(const char* name)
{
    const HANDLE file = CreateFileA(name, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() != ERROR_FILE_NOT_FOUND && GetLastError() != ERROR_PATH_NOT_FOUND;
    CloseHandle(file);
    return true;
}

template <class Open>
IStream* streamFrom(IStorage* storage, const WCHAR* name, UINT message, Open open)
{
    IStream* stream = nullptr;
    const HRESULT result = storage && name ? open(&stream) : STG_E_INVALIDPOINTER;
    if (result < 0) ThrowChainedException(cause(result), message, StringA(name ? name : u""));
    return stream;
}
} // namespace

COleFile::~COleFile() { Replace(nullptr); }

void COleFile::Replace(IStorage* storage)
{
    if (m_pStorage) m_pStorage->Release();
    m_pStorage = storage;
}

DWORD COleFile::ParseFlags(UINT flags)
{
    DWORD mode = STGM_TRANSACTED;
    if (const UINT access = flags & 3; access != 3) mode |= access;
    if (const UINT share = flags & 0x70; share >= STGM_SHARE_EXCLUSIVE && share <= STGM_SHARE_DENY_NONE)
        mode |= share;
    return mode;
}

int COleFile::Open(const char* name, UINT flags)
{
    m_name = name; // which may have been this object's own
    IStorage* storage = nullptr;
    const HRESULT result = StgOpenStorage(StringW(m_name), ParseFlags(flags), &storage);
    if (result < 0) {
        SetLastError(static_cast<DWORD>(result));
        return 0;
    }
    Replace(storage);
    return 1;
}

void COleFile::Create(const char* name, int bOverwrite)
{
    if (!bOverwrite && exists(name))
        ThrowChainedException(GetLastErrorException(fileExists), message::oleFileCreateFailed, name);
    m_name = name;
    IStorage* storage = nullptr;
    const DWORD mode = STGM_CREATE | STGM_TRANSACTED | STGM_SHARE_EXCLUSIVE | STGM_READWRITE;
    const HRESULT result = StgCreateDocfile(StringW(m_name), mode, &storage);
    if (result < 0) ThrowChainedException(cause(result), message::oleFileCreateFailed, m_name);
    Replace(storage);
}

void COleFile::Close() { Replace(nullptr); }

COleStream* COleFile::OpenStream(const WCHAR* name)
{
    IStream* stream = streamFrom(m_pStorage, name, message::oleFileOpenStreamFailed, [&](IStream** result) {
        return m_pStorage->OpenStream(name, nullptr, STGM_SHARE_EXCLUSIVE | STGM_READWRITE, 0, result);
    });
    return Attached(stream);
}

COleStream* COleFile::CreateStream(const WCHAR* name)
{
    IStream* stream = streamFrom(m_pStorage, name, message::oleFileCreateStreamFailed, [&](IStream** result) {
        const DWORD mode = STGM_CREATE | STGM_SHARE_EXCLUSIVE | STGM_READWRITE;
        return m_pStorage->CreateStream(name, mode, 0, 0, result);
    });
    return Attached(stream);
}

COleStream* COleFile::Attached(IStream* stream)
{
    try {
        std::unique_ptr<COleStream> result(new COleStream);
        result->AttachStream(stream);
        return result.release();
    } catch (...) {
        stream->Release();
        throw;
    }
}

int COleFile::GetClassID(_GUID& id) const
{
    STATSTG status;
    if (!m_pStorage || m_pStorage->Stat(&status, STATFLAG_NONAME) < 0) return 0;
    id = status.clsid;
    return 1;
}

void COleFile::SetClassID(const _GUID& id)
{
    const HRESULT result = m_pStorage ? m_pStorage->SetClass(id) : STG_E_INVALIDPOINTER;
    if (result < 0) ThrowChainedException(cause(result), message::oleFileSetClassFailed);
}

void COleFile::Commit()
{
    const HRESULT result = m_pStorage ? m_pStorage->Commit(0) : STG_E_INVALIDPOINTER;
    if (result < 0) ThrowChainedException(cause(result), message::oleFileCommitFailed);
}

bool COleFile::IsOleFile(const char* name) { return StgIsStorageFile(StringW(name)) == S_OK; }
