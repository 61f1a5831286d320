// Choosing a file to open, or to save to.
#pragma once

#include "corekit/framework/String.h"
#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/FileDialogs.h"

#include <vector>

class COREKIT_API CFileDialog : public CDialog {
    DECLARE_DYNAMIC(CFileDialog)
public:
    // `filter` is pairs of a name and its patterns, each followed by a bar, with a further one at the end:
    // "Texts|*.txt;*.log|All files|*.*||". Any text may be null.
    explicit CFileDialog(BOOL open, const char* defaultExtension = nullptr, const char* fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const char* filter = nullptr,
                         CWnd* parent = nullptr);
    ~CFileDialog() override;

    INT_PTR DoModal() override; // IDOK or IDCANCEL

    CString GetPathName() const; // of the first file where there are several
    CString GetFileName() const;
    CString GetFileExt() const;   // without the dot
    CString GetFileTitle() const; // the name without it
    // All that were chosen, with OFN_ALLOWMULTISELECT: null when there are no more.
    POSITION GetStartPosition() const;
    CString GetNextPathName(POSITION& position) const;

    OPENFILENAMEA m_ofn{}; // may be changed before DoModal

private:
    BOOL m_isOpen;
    CWnd* m_parent;
    CString m_extension;
    std::vector<char> m_filter, m_files;
};
