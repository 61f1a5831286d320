// Text that is dragged here from another program goes in at the cursor; a file takes the place of all.
#pragma once

#include "corekit/framework/ui/OleDropTarget.h"

#include <string>

class CMultilineUnicodeEditCtl;

class TextDrop : public COleDropTarget {
public:
    explicit TextDrop(CMultilineUnicodeEditCtl& text) : m_text(text) {}

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject* data, DWORD, CPoint) override { return EffectOf(*data); }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD, CPoint) override { return EffectOf(*data); }
    BOOL OnDrop(CWnd*, COleDataObject* data, DROPEFFECT, CPoint) override;

private:
    static DROPEFFECT EffectOf(const COleDataObject& data);
    bool Show(HDROP files);
    void Insert(const std::u16string& text);

    CMultilineUnicodeEditCtl& m_text;
};
