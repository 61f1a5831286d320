// COleFile: a compound file, the format that holds named streams in one file.
//
//     COleFile file;
//     file.Create("show.cmp", 1);
//     std::unique_ptr<COleStream> stream(file.CreateStream(u"Script"));
//     stream->Write(u"Good evening");
//     stream->Flush();
//     stream.reset();
//     file.Commit(); // until here nothing of this is in the file
//
// Names are UTF-16, at most 31 units, and compare without regard to case. A stream is open once at a time and
// must be flushed before Commit. One thread, that which opened the file.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

class COleStream;
class IStorage;
class IStream;

class COREKIT_API COleFile : public CObject {
    DECLARE_DYNAMIC(COleFile)

public:
    COleFile() = default;
    ~COleFile() override; // what was not committed is lost

    // `flags` are those of the framework's file modes: 0 read, 1 write, 2 both; 0x10 exclusive, 0x20 deny
    // write, 0x30 deny read, 0x40 deny none. 0 on failure; the last error then holds the storage's result.
    int Open(const char* name, UINT flags);
    // An empty file of this name for this object alone. Without bOverwrite an existing file throws message
    // message::oleFileCreateFailed; with it, it keeps its content until Commit.
    void Create(const char* name, int bOverwrite);
    void Close();
    bool IsOpen() const { return m_pStorage != nullptr; }
    const CString& GetFilename() const { return m_name; }

    // New objects for the caller to delete; message::oleFileOpenStreamFailed and
    // message::oleFileCreateStreamFailed. A stream of that name is emptied by the latter.
    COleStream* OpenStream(const WCHAR* name);
    COleStream* CreateStream(const WCHAR* name);

    int GetClassID(_GUID& id) const;
    void SetClassID(const _GUID& id); // message::oleFileSetClassFailed
    // Puts all that was flushed in place as a whole; message::oleFileCommitFailed.
    void Commit();
    // The storage itself, which stays this object's; null when closed.
    IStorage* GetStorage() const { return m_pStorage; }

    static bool IsOleFile(const char* name);

private:
    static DWORD ParseFlags(UINT flags);
    static COleStream* Attached(IStream* stream);
    void Replace(IStorage* storage);

    IStorage* m_pStorage = nullptr;
    CString m_name;
};
