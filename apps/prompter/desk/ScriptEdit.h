// The editor of a story. Return begins a line, and a selection may reach over lines. What the platform
// composes and what is pasted stands as it is stored from the moment it comes.
#pragma once

#include "corekit/unicode/ui/edit/MultilineUnicodeEditCtl.h"

namespace prompter {

class ScriptEdit : public CMultilineUnicodeEditCtl {
    DECLARE_DYNAMIC(ScriptEdit)
public:
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    bool TakeKey(UINT key);
    void MoveByPage(UINT key);
    bool RemoveSelection(); // whether there was one
    bool CopySelection();
    void RemoveBefore();
    void Paste();
    void SelectWord(int index);
    void Store(int from, int to);

    int m_pressed = 0;             // index at which the mouse was pressed last
    int m_wheel = 0;               // part of a notch that is left over
    bool m_isFromPlatform = false; // the character that comes, and from no keyboard of ours
};

} // namespace prompter
