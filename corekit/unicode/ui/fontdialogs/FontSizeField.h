// The field for a size in the font dialogs: a combo box that takes digits, with sizes round the present one
// in its list, and two arrows beside it.
#pragma once

#include "corekit/platform/Types.h"

#include <vector>

class CWnd;

namespace corekit::detail {

inline constexpr int sizeControl = 1003, sizeArrowsControl = 1004;

// Seven sizes, the given one in the middle; from 1 to 7 where that would begin below 1.
std::vector<int> sizesAround(int size);

class FontSizeField {
public:
    explicit FontSizeField(const CWnd& dialog) : m_dialog(dialog) {}

    void begin(int size);
    void enable(bool isEnabled);
    int size() const; // 1 for an empty field
    // After the user has typed or pasted: drops what is no digit, and digits beyond the third.
    void edited();
    // After a row of the list has been picked, whose text is not in the field yet.
    void picked();
    void arrowPressed();
    void fillList(); // round the present size, before it opens

private:
    void show(int size);
    HWND control(int id) const;

    const CWnd& m_dialog;
};

} // namespace corekit::detail
