// CVersionData: reads the version record of a program or library (platform/VersionInfo.h tells what that is).
//
//     CVersionData data;
//     DWORDLONG version = 0;
//     if (data.Initialise(static_cast<HINSTANCE>(nullptr)) && data.GetFileVersion(version))
//         ... // the program's own version
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

#include <memory>

// Owns a copy of the record, so the file may go afterwards. One thread at a time.
class COREKIT_API CVersionData : public CObject {
    DECLARE_DYNAMIC(CVersionData)

public:
    CVersionData() = default;

    // Loads the record of a module, null being the program, or of a file, which is opened and read for it;
    // 0 if there is none. What was loaded before is dropped either way.
    int Initialise(HINSTANCE module);
    int Initialise(const char* path);

    // Each 0 before a successful Initialise, with the output left alone. A version is four 16-bit numbers
    // with the most significant part highest: 1.2.3.4 is 0x0001000200030004.
    int GetFileVersion(DWORDLONG& version);
    int GetProductVersion(DWORDLONG& version); // of what the file is a part of

    // Each 0, with the text left alone, if the record has no such text: what sets this build apart, the line
    // of rights, free text, the version in the maker's own words, one line for the user.
    int GetSpecialBuild(CString& text) { return GetStringValue("SpecialBuild", text); }
    int GetCopyright(CString& text) { return GetStringValue("LegalCopyright", text); }
    int GetComments(CString& text) { return GetStringValue("Comments", text); }
    int GetFileVersion(CString& text) { return GetStringValue("FileVersion", text); }
    int GetFileDescription(CString& text) { return GetStringValue("FileDescription", text); }

private:
    // The text of that name in the record's first language.
    int GetStringValue(const char* name, CString& text);

    struct Free {
        void operator()(void* block) const;
    };
    std::unique_ptr<void, Free> m_block; // the whole record; null before a successful Initialise
    CString m_key;                       // language and code page, eight digits
};
