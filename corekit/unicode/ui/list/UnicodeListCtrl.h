// A report list of names in any script: rows are drawn by CUniRender, each in one of four styles.
//
// A subclass says what stands in each column and hears of keys and clicks. Besides the platform's rows the
// list keeps an entry for each, in the order in which they were added; a row's number is where it is shown.
// Cells are shaped, and shown in stored order. A row without an entry reads as 0 or empty.
//
// The fonts are those of the controls (CUnicodeManager), read when the window is made or subclassed; that
// throws CChainedException if one is missing. User-interface thread only.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/framework/ui/ListCtrl.h"
#include "corekit/unicode/ui/UniRender.h"

#include <array>
#include <memory>
#include <vector>

// The look of a row. Of any other value the absolute value counts, up to 3; what a style means is the host's.
enum eULCItemStyle : int { ulcPlain = 0, ulcBold = 1, ulcItalic = 2, ulcBoldItalic = 3 };

class COREKIT_API CUnicodeListCtrl : public CListCtrl {
    DECLARE_DYNAMIC(CUnicodeListCtrl)
public:
    CUnicodeListCtrl();
    ~CUnicodeListCtrl() override;

    // Both return a row: the one that it became, or the index given.
    int AddString(const WCHAR* text, eULCItemStyle style, long data);
    int InsertString(int index, const WCHAR* text, eULCItemStyle style, long data);
    void DeleteString(int row);
    bool DeleteItemByData(long data);
    void ResetContent();

    int GetCount() const { return static_cast<int>(m_entries.size()); }
    StringW GetText(int row) const;
    void GetText(int row, StringW& text) const;
    eULCItemStyle GetItemStyle(int row) const;
    long GetItemData(int row) const;
    // Does nothing: rows keep the data that they were added with.
    void SetItemData(int row, long data);

    // The selected row, its text, its data; -1, empty and 0 if none or more than one is selected.
    int GetCurSel() const;
    StringW GetSelection() const;
    long GetSelectedItemData() const;
    void SetCurSel(int row); // and no other; -1: none
    // Selects the first entry, in the order of adding, that matches the pattern (MatchWildCardString);
    // without one nothing is selected, and the answer is false.
    bool SelectString(const WCHAR* pattern);
    bool SelectByItemData(long data);
    int FindItemByData(long data) const; // of several the one added last; -1 if there is none

    virtual void GetColumnText(StringW& out, long itemData, int column) = 0;
    virtual void OnListKeyDown(UINT key, UINT repeat, UINT flags) = 0; // before the list acts; not for Ctrl+A
    virtual void OnListChar(UINT character, UINT repeat, UINT flags) = 0;
    virtual void OnListLButtonDown(UINT flags, CPoint point) = 0; // after the list has acted
    virtual void OnListLButtonDblClk(UINT flags, CPoint point) = 0;

    BOOL PreCreateWindow(CREATESTRUCTA& create) override;
    void PreSubclassWindow() override;
    void DrawItem(DRAWITEMSTRUCT* item) override;
    virtual void MeasureItem(MEASUREITEMSTRUCT* item);
    virtual int CompareItem(COMPAREITEMSTRUCT* items);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    struct __entry {
        StringW text;
        StringW glyphs;
        eULCItemStyle style;
        long data;
    };

    int Insert(int index, const WCHAR* text, eULCItemStyle style, long data);
    __entry* EntryOf(int row) const;
    int RowOf(const __entry* entry) const;
    void DrawColumns(DRAWITEMSTRUCT& item, const __entry& entry, CUniRender& renderer);

    std::vector<std::unique_ptr<__entry>> m_entries;
    int m_itemHeight = 0; // 0: to be measured
    std::array<CUniRender, 4> m_renderers;
    StringW m_cell, m_cellGlyphs; // scratch
};
