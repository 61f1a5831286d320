// The list of stories on the desk: number, title and reading time of each, in every script.
#pragma once

#include "desk/StoryTexts.h"

#include "corekit/unicode/ui/list/UnicodeListCtrl.h"

#include <functional>

namespace prompter {

class StoryList : public CUnicodeListCtrl {
    DECLARE_DYNAMIC(StoryList)
public:
    StoryList(const Script& script, const ReadRate& rate) : m_script(script), m_rate(rate) {}

    BOOL CreatePane(CWnd* parent, UINT id);
    // Rows follow the script: texts always, their number where it differs.
    void Refresh();
    void Choose(int index);
    // Before Refresh, where the change of a story and the lines that went in it are known.
    void StoryChanged(const Story& story, std::u16string_view gone)
    {
        m_times.StoryChanged(story, gone, m_rate);
    }

    std::function<void(int index)> onChoose;
    std::function<void(int from, int to)> onMove; // a row was dragged

protected:
    void GetColumnText(StringW& out, long itemData, int column) override;
    void OnListKeyDown(UINT, UINT, UINT) override {}
    void OnListChar(UINT, UINT, UINT) override {}
    void OnListLButtonDown(UINT flags, CPoint point) override;
    void OnListLButtonDblClk(UINT, CPoint) override {}
    void OnSize(UINT how, int width, int height);
    void OnItemChanged(NMHDR* header, LRESULT* result);
    void OnBeginDrag(NMHDR* header, LRESULT* result);
    void OnLButtonUp(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    const Script& m_script;
    const ReadRate& m_rate;
    ReadingTimes m_times;
    int m_dragged = -1;
    bool m_isRefreshing = false;
};

} // namespace prompter
