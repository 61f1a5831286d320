// The list of faces in the font dialogs.
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/String.h"

class CWnd;

namespace corekit::detail {

inline constexpr int facesControl = 1006;

class FontFaceList {
public:
    explicit FontFaceList(const CWnd& dialog) : m_dialog(dialog) {}

    // All faces of the machine that are not in `without`, names compared without regard to case.
    void fillWithAll(const CStringArray& without = {});
    void add(const CString& face);
    void remove(int row);
    int count() const;
    int selected() const; // -1: none
    CString face(int row) const;
    void select(const char* face); // none if it is not in the list
    void select(int row);

private:
    const CWnd& m_dialog;
};

} // namespace corekit::detail
