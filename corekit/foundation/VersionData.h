// CVersionData: reads the version record of a program or library (platform/VersionInfo.h tells what that is).
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/framework/String.h"

#include <memory>

class COREKIT_API CVersionData : public CObject {
    DECLARE_DYNAMIC(CVersionData)

public:
    CVersionData() = default;

    // Loads the record of a module, null being the program, or of a file; 0 if there is none. What was loaded
    // before is dropped.
    int Initialise(HINSTANCE module);
    int Initialise(const char* path);

    // Each 0 before a successful Initialise. A version has its most significant part highest.
    int GetFileVersion(DWORDLONG& version);
    int GetProductVersion(DWORDLONG& version);

    // Each 0, with the text left alone, if the record has no such text.
    int GetSpecialBuild(CString& text) { return GetStringValue("SpecialBuild", text); }
    int GetCopyright(CString& text) { return GetStringValue("LegalCopyright", text); }
    int GetComments(CString& text) { return GetStringValue("Comments", text); }
    int GetFileVersion(CString& text) { return GetStringValue("FileVersion", text); }
    int GetFileDescription(CString& text) { return GetStringValue("FileDescription", text); }

private:
    int GetStringValue(const char* name, CString& text);

    struct Free {
        void operator()(void* block) const;
    };
    std::unique_ptr<void, Free> m_block;
    CString m_key; // language and code page, eight digits
};
