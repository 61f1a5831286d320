// The list view. Its messages are answered in three sources: items and their states in ListView.cpp, columns
// in ListViewColumns.cpp, places on the screen in ListViewPlaces.cpp.
//
// Which rows are selected is kept with the rows; the toolkit's selection follows when it is needed, as
// changing it row by row would take time by the square of their number.
#pragma once

#include "corekit/platform/ListViewNotifications.h"
#include "corekit/platform/qt/controls/LabelDelegate.h"
#include "corekit/platform/qt/controls/ListFaces.h"
#include "corekit/platform/qt/controls/ListModel.h"
#include "corekit/platform/qt/controls/ViewControl.h"

class QItemSelection;

namespace corekit::detail {

class ListView final : public ViewControl {
public:
    ListView(DWORD style, QWidget* parent);
    ~ListView() override { letGo(); }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD former, DWORD formerEx) override
    {
        Control::styleChanged(former, formerEx);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT clicked(Click click, POINT point) override;
    void keyPressed(WORD key) override;
    void activated(Click click) override;
    void character(char16_t c) override;
    void ending() override { tellAllGone(); }

private:
    ReportFace* report() const { return dynamic_cast<ReportFace*>(view()); }
    bool isVirtual() const { return m_model.isVirtual; }
    void followStyle();
    void connectFace();
    void connectLabels();
    void connectSelection();
    void letGo();

    // ListView.cpp
    LRESULT items(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT rows(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT states(UINT message, WPARAM wParam, LPARAM lParam);
    template <typename Char>
    LRESULT insert(const ListViewItem<Char>* item);
    template <typename Char>
    LRESULT set(const ListViewItem<Char>* item);
    template <typename Char>
    LRESULT get(ListViewItem<Char>* item);
    template <typename Char>
    LRESULT setText(int row, const ListViewItem<Char>* item);
    template <typename Char>
    LRESULT getText(int row, ListViewItem<Char>* item) const;
    template <typename Char>
    LRESULT find(int after, const ListViewFind<Char>* what) const;
    LRESULT remove(int row);
    LRESULT removeAll();
    void tellAllGone();
    LRESULT sort(PFNLVCOMPARE compare, LPARAM parameter, bool byRow);
    int sortedPlace(const QString& text) const;
    LRESULT nextItem(int after, LPARAM which) const;
    UINT stateOf(int row) const;
    void setState(int row, UINT state, UINT mask);
    void countSelected(WORD before, WORD after)
    {
        m_selected += ((after & LVIS_SELECTED) != 0) - ((before & LVIS_SELECTED) != 0);
    }
    LRESULT tellItem(UINT code, int row, UINT before = 0, UINT after = 0, POINT point = {}, int column = 0);
    void syncLater();
    void sync();
    void selectionByUser(const QItemSelection& selected, const QItemSelection& deselected);
    void focusByUser(int row);
    void takeSelection(const QItemSelection& rows, bool isSelected);
    ListViewItem<char> ask(UINT mask, int row, int column, char* room);
    QString askText(int row, int column);
    int imageOf(int row, int column);
    QVariant iconOf(int row, int column);
    void drawRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index);

    // ListViewColumns.cpp
    LRESULT columns(UINT message, WPARAM wParam, LPARAM lParam);
    template <typename Char>
    LRESULT insertColumn(int column, const ListViewColumn<Char>* what);
    template <typename Char>
    LRESULT setColumn(int column, const ListViewColumn<Char>* what);
    template <typename Char>
    LRESULT getColumn(int column, ListViewColumn<Char>* what) const;
    LRESULT setWidth(int column, int width);
    LRESULT order(WPARAM count, int* columns, bool sets);
    HWND header();

    // ListViewPlaces.cpp
    LRESULT places(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT scrolling(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT looks(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT colours(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT itemRect(int row, int column, RECT& rect) const;
    LRESULT hitTest(LVHITTESTINFO& info, bool withColumn) const;
    WPARAM rowImages() const { return (style() & LVS_TYPEMASK) == LVS_ICON ? LVSIL_NORMAL : LVSIL_SMALL; }
    HIMAGELIST setImageList(WPARAM which, HIMAGELIST list);
    QIcon stateIcon(int row) const;
    LRESULT setExtendedStyle(DWORD mask, DWORD style);
    LRESULT setColour(QPalette::ColorRole role, COLORREF& kept, LPARAM colour);
    QRect rectOf(QStyle::SubElement part, const QModelIndex& index) const;

    ListModel& m_model; // the widget's, as the next
    LabelDelegate& m_labels;
    HIMAGELIST m_images[3] = {}; // by LVSIL_
    HWND m_header = nullptr;
    DWORD m_extended = 0;
    int m_focus = -1, m_mark = -1, m_selected = 0;
    bool m_isStale = false, m_syncing = false;
    COLORREF m_back = CLR_DEFAULT, m_text = CLR_DEFAULT, m_textBack = CLR_DEFAULT;
};

} // namespace corekit::detail
