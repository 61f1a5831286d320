// Structured storage: named streams in one compound file, in the documented format.
//
// Storages are transacted: a program works on what it opened and changed, and Commit puts all of it in place
// as a new file, whole or not at all. Names are UTF-16, at most 31 units without / \ : !, and compare without
// regard to case. Results are S_OK, or below 0 for a failure. An interface belongs to the thread that opened
// its file; AddRef and Release count its owners. A stream that outlives its storage keeps its bytes, but no
// Commit will take them any more.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/platform/Variant.h"

inline constexpr HRESULT S_FALSE = 1;                                           // no failure: nothing there
inline constexpr HRESULT STG_E_FILENOTFOUND = static_cast<HRESULT>(0x80030002); // file or element
inline constexpr HRESULT STG_E_PATHNOTFOUND = static_cast<HRESULT>(0x80030003); // no such folder
inline constexpr HRESULT STG_E_ACCESSDENIED = static_cast<HRESULT>(0x80030005); // no right, or open already
inline constexpr HRESULT STG_E_INSUFFICIENTMEMORY = static_cast<HRESULT>(0x80030008);
inline constexpr HRESULT STG_E_INVALIDPOINTER = static_cast<HRESULT>(0x80030009);    // null
inline constexpr HRESULT STG_E_SEEKERROR = static_cast<HRESULT>(0x80030019);         // before the start
inline constexpr HRESULT STG_E_WRITEFAULT = static_cast<HRESULT>(0x8003001D);        // not all was taken
inline constexpr HRESULT STG_E_READFAULT = static_cast<HRESULT>(0x8003001E);         // not all was given
inline constexpr HRESULT STG_E_SHAREVIOLATION = static_cast<HRESULT>(0x80030020);    // open elsewhere
inline constexpr HRESULT STG_E_FILEALREADYEXISTS = static_cast<HRESULT>(0x80030050); // file or element
inline constexpr HRESULT STG_E_MEDIUMFULL = static_cast<HRESULT>(0x80030070);        // no room
inline constexpr HRESULT STG_E_INVALIDHEADER = static_cast<HRESULT>(0x800300FB);     // no compound file
inline constexpr HRESULT STG_E_INVALIDNAME = static_cast<HRESULT>(0x800300FC);       // of an element
// A compound file with damage.
inline constexpr HRESULT STG_E_DOCFILECORRUPT = static_cast<HRESULT>(0x80030109);

// How a file is opened, what others may do meanwhile, and what becomes of one that exists.
inline constexpr DWORD STGM_READ = 0;
inline constexpr DWORD STGM_WRITE = 1; // as STGM_READWRITE
inline constexpr DWORD STGM_READWRITE = 2;
inline constexpr DWORD STGM_SHARE_EXCLUSIVE = 0x10;  // nothing
inline constexpr DWORD STGM_SHARE_DENY_WRITE = 0x20; // read
inline constexpr DWORD STGM_SHARE_DENY_READ = 0x30;  // write
inline constexpr DWORD STGM_SHARE_DENY_NONE = 0x40;  // both
inline constexpr DWORD STGM_CREATE = 0x1000;         // takes the place of what exists
inline constexpr DWORD STGM_TRANSACTED = 0x10000;    // accepted: every storage is

inline constexpr DWORD STGTY_STORAGE = 1;
inline constexpr DWORD STGTY_STREAM = 2;
inline constexpr DWORD STATFLAG_NONAME = 1; // of Stat

// From the start, the position, the end.
enum STREAM_SEEK : DWORD { STREAM_SEEK_SET, STREAM_SEEK_CUR, STREAM_SEEK_END };

struct STATSTG {
    WCHAR pwcsName[32]; // empty for a root and with STATFLAG_NONAME
    DWORD type;         // STGTY_
    DWORDLONG cbSize;   // of a stream
    CLSID clsid;        // of a storage
};

// Bytes with a position, 0 at first.
class COREKIT_API IStream {
public:
    virtual DWORD AddRef() = 0;
    virtual DWORD Release() = 0;
    // Fewer bytes than asked for at the end of the stream; *done may be null.
    virtual HRESULT Read(void* buffer, DWORD count, DWORD* done) = 0;
    // Extends the stream as needed; what lies between is 0.
    virtual HRESULT Write(const void* buffer, DWORD count, DWORD* done) = 0;
    // Behind the end is allowed; *position, which may be null, gets the new place.
    virtual HRESULT Seek(LONGLONG distance, DWORD origin, DWORDLONG* position) = 0;
    // What is new is 0; the position stays.
    virtual HRESULT SetSize(DWORDLONG size) = 0;

protected:
    virtual ~IStream() = default;
};

// Elements with names, and a class identifier.
class COREKIT_API IStorage {
public:
    virtual DWORD AddRef() = 0;
    virtual DWORD Release() = 0;
    // A stream is open once at a time; one that is open is refused with STG_E_ACCESSDENIED. In a file opened
    // for reading its writes are refused. Without STGM_CREATE an existing name is refused.
    virtual HRESULT CreateStream(const WCHAR* name, DWORD mode, DWORD, DWORD, IStream** stream) = 0;
    // At its start. Mode and the unnamed arguments are not used.
    virtual HRESULT OpenStream(const WCHAR* name, void*, DWORD mode, DWORD, IStream** stream) = 0;
    virtual HRESULT OpenStorage(const WCHAR* name, DWORD mode, IStorage** storage) = 0;
    // Of the root only: writes everything, also what other storages of the file changed.
    virtual HRESULT Commit(DWORD flags) = 0;
    // Kept at the next Commit.
    virtual HRESULT SetClass(const CLSID& id) = 0;
    // Of the storage itself.
    virtual HRESULT Stat(STATSTG* status, DWORD flags) = 0;
    // The index-th element in the order of the file; S_FALSE at the end.
    virtual HRESULT StatElement(DWORD index, STATSTG* status) = 0;

protected:
    virtual ~IStorage() = default;
};

// Opens a file for STGM_READ or STGM_READWRITE; no share mode counts as exclusive.
COREKIT_API HRESULT StgOpenStorage(const WCHAR* name, DWORD mode, IStorage** storage);
// Makes an empty storage. A file that exists is refused unless mode has STGM_CREATE, and keeps its content
// until Commit.
COREKIT_API HRESULT StgCreateDocfile(const WCHAR* name, DWORD mode, IStorage** storage);
// S_OK if the file begins as a compound file does, S_FALSE if not.
COREKIT_API HRESULT StgIsStorageFile(const WCHAR* name);
