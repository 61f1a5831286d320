// Choosing a file to open, or to save to.
//
// The desktop's own dialog is shown where the toolkit has one; the window object of the base class is never
// made. User-interface thread. Elsewhere, and where nobody can see windows, the answer is IDCANCEL.
//
//     CFileDialog dialog(TRUE, "txt", nullptr, OFN_FILEMUSTEXIST, "Texts|*.txt|All files|*.*||", this);
//     if (dialog.DoModal() == IDOK) Load(dialog.GetPathName());
//
//     // With OFN_ALLOWMULTISELECT:
//     for (POSITION at = dialog.GetStartPosition(); at;) Load(dialog.GetNextPathName(at));
#pragma once

#include "corekit/framework/String.h"
#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/FileDialogs.h"

#include <vector>

class COREKIT_API CFileDialog : public CDialog {
    DECLARE_DYNAMIC(CFileDialog)
public:
    // `filter` is pairs of a name and its patterns, each followed by a bar, with a further one at the end:
    // "Texts|*.txt;*.log|All files|*.*||". Any text may be null. `open` chooses a file that exists, else one
    // to be written, where an existing one is asked about. `defaultExtension` is added to a name without a
    // dot. `fileName` is what the dialog begins with.
    explicit CFileDialog(BOOL open, const char* defaultExtension = nullptr, const char* fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const char* filter = nullptr,
                         CWnd* parent = nullptr);
    ~CFileDialog() override; // forgets what was chosen

    INT_PTR DoModal() override; // IDOK or IDCANCEL; blocks until the user answers

    CString GetPathName() const;  // of the first file where there are several; empty before a choice
    CString GetFileName() const;  // without its folders
    CString GetFileExt() const;   // without the dot
    CString GetFileTitle() const; // the name without it
    // All that were chosen, with OFN_ALLOWMULTISELECT: null when there are no more. A position is good until
    // the next DoModal.
    POSITION GetStartPosition() const;
    // With its folder. `position` must not be null.
    CString GetNextPathName(POSITION& position) const;

    OPENFILENAMEA m_ofn{}; // may be changed before DoModal: title, folder, flags; its texts outlive it

private:
    BOOL m_isOpen;
    CWnd* m_parent;
    CString m_extension;
    std::vector<char> m_filter, m_files; // pairs with zeros between them; 64 KiB for the names that arrive
};
