// A report list of names in any script: rows are drawn by CUniRender, each in one of four styles.
//
// A subclass says what stands in each column and hears of keys and clicks. Besides the platform's rows the
// list keeps an entry for each, in the order in which they were added; a row's number is where it is shown.
// Cells are shaped, and shown in stored order. A row without an entry reads as 0 or empty.
//
// The fonts are those of the controls (CUnicodeManager), read when the window is made or subclassed; that
// throws CChainedException if one is missing. User-interface thread only.
//
//     class Stories : public CUnicodeListCtrl {
//         void GetColumnText(StringW& out, long story, int column) override { out = TextOf(story, column); }
//         ... // the four answers to keys and clicks
//     };
//     stories.InsertColumn(0, "Title", LVCFMT_LEFT, 200);
//     stories.AddString(u"Good evening", ulcBold, story);
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

    // Both return a row: the one that it became, or the index given. The text is copied; it is what
    // searches and sorting look at. `data` is the host's number for the row.
    int AddString(const WCHAR* text, eULCItemStyle style, long data);
    int InsertString(int index, const WCHAR* text, eULCItemStyle style, long data);
    void DeleteString(int row);       // removes row and entry; a row that the list lacks changes nothing
    bool DeleteItemByData(long data); // false if there is none
    void ResetContent();              // all rows; columns stay

    int GetCount() const { return static_cast<int>(m_entries.size()); } // entries
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
    // Selects the row of that data and no other; false, and nothing changes, if there is none.
    bool SelectByItemData(long data);

    int FindItemByData(long data) const; // of several the one added last; -1 if there is none

    // What stands in a cell, asked at every paint; `out` is empty, columns count from 0.
    virtual void GetColumnText(StringW& out, long itemData, int column) = 0;

    virtual void OnListKeyDown(UINT key, UINT repeat, UINT flags) = 0; // before the list acts; not for Ctrl+A
    virtual void OnListChar(UINT character, UINT repeat, UINT flags) = 0; // before the list acts
    virtual void OnListLButtonDown(UINT flags, CPoint point) = 0;         // after the list has acted
    virtual void OnListLButtonDblClk(UINT flags, CPoint point) = 0;

    // The list draws its rows itself, whatever style is asked for.
    BOOL PreCreateWindow(CREATESTRUCTA& create) override;

    void PreSubclassWindow() override;                  // makes the fonts
    void DrawItem(DRAWITEMSTRUCT* item) override;       // all cells of a row
    void MeasureItem(MEASUREITEMSTRUCT* item) override; // the height of the tallest style
    virtual int CompareItem(COMPAREITEMSTRUCT* items);  // by the texts, case aside

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    // Ctrl+A selects all rows; other keys go to the host, then to the list.
    void OnKeyDown(UINT key, UINT repeat, UINT flags);

    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    // What is kept of a row.
    struct __entry {
        StringW text;
        StringW glyphs; // of the text, in stored order
        eULCItemStyle style;
        long data;
    };

    int Insert(int index, const WCHAR* text, eULCItemStyle style, long data); // the row that it became
    __entry* EntryOf(int row) const;                                          // null for none
    int RowOf(const __entry* entry) const;                                    // -1 for none
    void DrawColumns(DRAWITEMSTRUCT& item, const __entry& entry, CUniRender& renderer);

    std::vector<std::unique_ptr<__entry>> m_entries;
    int m_itemHeight = 0; // 0: to be measured
    std::array<CUniRender, 4> m_renderers;
    StringW m_cell, m_cellGlyphs; // scratch
};
