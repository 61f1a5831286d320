// The window of the example: names, each in a style of its own, beside the script that it is written in.
#pragma once

#include "Names.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/unicode/ui/list/UnicodeListCtrl.h"

#include <vector>

// A row's data is its place in the names.
class NameList : public CUnicodeListCtrl {
public:
    explicit NameList(const std::vector<Name>& names) : m_names(names) {}

    void GetColumnText(StringW& out, long itemData, int column) override;
    void OnListKeyDown(UINT key, UINT repeat, UINT flags) override; // Delete takes the selected row away
    void OnListChar(UINT, UINT, UINT) override {}
    void OnListLButtonDown(UINT, CPoint) override {}
    void OnListLButtonDblClk(UINT, CPoint) override {}

private:
    const std::vector<Name>& m_names;
};

class ListWindow : public CWnd {
public:
    explicit ListWindow(std::vector<Name> names) : m_names(std::move(names)), m_list(m_names) {}

    bool Open();
    NameList& List() { return m_list; }

protected:
    void OnSize(UINT how, int width, int height);
    void OnSetFocus(CWnd* before);
    void OnSysColorChange();
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void Fill();

    const std::vector<Name> m_names;
    NameList m_list;
};
