#include "corekit/windows/ui/MultiViewListBox.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/InputTest.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <gtest/gtest.h>

using namespace corekit::test;

namespace {

class CClips : public CMultiViewListBox {
public:
    std::string log;
    int texts = 0, pictures = 0;
    bool goesInDrag = false;

protected:
    // Column 0: d, c, b, a ... by falling id; column 1 the other way.
    void GetItemText(StringW& out, int id, int column) override
    {
        ++texts;
        out = StringW(static_cast<WCHAR>(u'a' + (column ? id : 9 - id)), 2);
    }
    int GetItemPicture(int id, CDib& out) override
    {
        ++pictures;
        if (id % 2) return 0;
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 80, 80, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        std::vector<BYTE> pixels(80 * 80 * 4, 0x50);
        out.LoadGlimmerViewBitmap(&info, pixels.data());
        return 1;
    }
    void OnSelectionChange() override { log += "s"; }
    void OnItemDoubleClick(int id) override { log += "d" + std::to_string(id); }
    void OnListSetFocus() override {}
    void OnColumnWidthChange(int column, int width) override
    {
        log += "w" + std::to_string(column) + ":" + std::to_string(width);
    }
    DWORD GetDragEffect(int, int) override
    {
        if (goesInDrag) DestroyWindow();
        return 1;
    }
    int CanDrag(CArray<int, int>& ids) override
    {
        log += "can" + std::to_string(ids.GetSize());
        return 1;
    }
    void OnDragCancel() override { log += "cancel"; }
    void OnDrop(int, int, CArray<int, int>& ids, int rightButton) override
    {
        log += (rightButton ? "right" : "left") + std::to_string(ids.GetSize());
    }
    void MakeDragImage(CImageList* images) override
    {
        if (GetCapture() != GetDlgItem(0x1001)) log += "loose";
        images->Create(16, 16, ILC_COLOR32, 1, 1);
    }
};

class MultiView : public testing::Test {
protected:
    void Open(eMVLBMode mode, DWORD style = 0)
    {
        CFontDescriptor font;
        font.SetSize(16);
        font.AddFont("DejaVu Sans Mono");
        CUnicodeManager::Initialise(1)->OverrideControlsFont(font);
        parent.CreateEx(0, AfxRegisterWndClass(0), "clips", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr,
                        nullptr);
        ASSERT_TRUE(clips.Create(&parent, 1, WS_CHILD | WS_VISIBLE | style, CRect(0, 0, 420, 300), mode));
        clips.AppendColumn(eMVLBAlign_Left, 0, 100, "Name");
        clips.AppendColumn(eMVLBAlign_Right, 1, 80, "Other");
        parent.ShowWindow(SW_SHOW);
        for (int id = 0; id < 4; ++id) clips.AppendItem(id);
        RunWaiting();
        clips.log.clear();
    }
    void TearDown() override { parent.DestroyWindow(); }

    HWND List() { return *clips.GetDlgItem(0x1001); }
    CPoint MiddleOf(int index)
    {
        CRect place;
        clips.GetItemRect(index, &place);
        return {place.left + 20, place.CenterPoint().y};
    }
    std::string Order() const
    {
        CArray<int, int> ids;
        clips.GetItemIDList(ids);
        std::string text;
        for (int i = 0; i < ids.GetSize(); ++i) text += std::to_string(ids[i]);
        return text;
    }

    CWnd parent;
    CClips clips;
};

} // namespace

TEST_F(MultiView, SortsByAColumnAndBack)
{
    Open(eMVLBMode_Details, MVLBS_SORT);
    EXPECT_EQ(Order(), "3210");
    const char* const orders[] = {"0123", "3210", "0123"};
    for (const char* const order : orders) {
        clips.SetSortColumn(1);
        EXPECT_EQ(Order(), order);
    }
    Click(*clips.GetDlgItem(0x1002), {30, 10});
    EXPECT_EQ(Order(), "3210"); // by column 0
}

TEST_F(MultiView, AsksOnceForTextsAndPictures)
{
    Open(eMVLBMode_Grid);
    RunWaiting();
    clips.GetDlgItem(0x1001)->Invalidate();
    RunWaiting();
    EXPECT_EQ(clips.texts, 4);
    EXPECT_EQ(clips.pictures, 4) << "of two that there are";
    clips.SetViewMode(eMVLBMode_List);
    RunWaiting();
    EXPECT_EQ(clips.texts, 4);
    clips.ItemModified(2);
    clips.ItemModified(77);
    RunWaiting();
    EXPECT_EQ(clips.texts, 5);
    clips.SetNewSelect(1);
    clips.SetViewMode(eMVLBMode_Details); // begins anew
    RunWaiting();
    EXPECT_EQ(clips.texts, 5 + 8);
    EXPECT_EQ(clips.GetSelItemID(), 1);
    CRect header, list;
    clips.GetDlgItem(0x1002)->GetWindowRect(&header);
    clips.GetDlgItem(0x1001)->GetWindowRect(&list);
    EXPECT_EQ(header.Height(), 20);
    EXPECT_EQ(list.top, header.bottom);
}

TEST_F(MultiView, DrawsThePictureAtTheTopOfItsCell)
{
    Open(eMVLBMode_Grid);
    CRect cell;
    clips.GetItemRect(0, &cell);
    EXPECT_EQ(cell.Size(), CSize(100, 100));
    const HBITMAP picture = PictureOf(List());
    BITMAP facts{};
    ASSERT_TRUE(GetObjectA(picture, sizeof facts, &facts));
    const auto pixel = [&](int x, int y) {
        return static_cast<const DWORD*>(facts.bmBits)[y * facts.bmWidth + x] & 0xFFFFFF;
    };
    EXPECT_EQ(pixel(cell.left + 10, cell.top), 0x505050u);
    EXPECT_EQ(pixel(cell.left + 89, cell.top + 79), 0x505050u);
    EXPECT_NE(pixel(cell.left + 9, cell.top), 0x505050u);
    EXPECT_NE(pixel(cell.left + 50, cell.top + 80), 0x505050u);
    DeleteObject(picture);
}

TEST_F(MultiView, KeepsASelectionOfSeveralForADrag)
{
    Open(eMVLBMode_Details, MVLBS_MULTISELECT);
    clips.EnableDragging(1);
    Click(List(), MiddleOf(0));
    Click(List(), MiddleOf(2), Button::left, Clicks::one, {VK_CONTROL});
    EXPECT_EQ(clips.GetSelCount(), 2);
    EXPECT_EQ(clips.GetSelItemID(), -1);
    clips.log.clear();
    Drag(List(), MiddleOf(0), {200, 150});
    EXPECT_EQ(clips.log, "can2left2");
    clips.log.clear();
    Drag(List(), MiddleOf(2), {200, 150}, Button::right);
    EXPECT_EQ(clips.log, "can2right2");
    EXPECT_EQ(clips.GetSelCount(), 2);

    clips.log.clear();
    MouseDown(List(), MiddleOf(0));
    MoveMouse(List(), {100, 150});
    MouseDown(List(), {200, 200}, Button::right);
    EXPECT_EQ(clips.log, "can2cancel");
    MouseUp(List(), {200, 200}, Button::right);
    MouseUp(List(), {200, 200});
}

TEST_F(MultiView, ADragEndsWithItsList)
{
    Open(eMVLBMode_Details);
    clips.EnableDragging(1);
    Click(List(), MiddleOf(0));
    clips.goesInDrag = true;
    const HWND list = List();
    Drag(list, MiddleOf(0), {200, 150});
    EXPECT_FALSE(IsWindow(list));
    EXPECT_EQ(clips.log.find("left"), std::string::npos) << clips.log;
}

TEST_F(MultiView, ReportsDoubleClicksAndWidths)
{
    Open(eMVLBMode_Details);
    Click(List(), MiddleOf(1), Button::left, Clicks::two);
    EXPECT_NE(clips.log.find("d1"), std::string::npos) << clips.log;
    clips.log.clear();
    clips.SetColumnWidth(1, 90);
    clips.SetColumnWidth(5, 90);
    EXPECT_EQ(clips.log, "w1:90w1:90");
    Drag(*clips.GetDlgItem(0x1002), {99, 10}, {129, 10});
    EXPECT_EQ(clips.GetColumnWidth(0), 130);
    EXPECT_EQ(clips.GetTotalColumnWidth(), 220);
    clips.DeleteItem(2);
    EXPECT_EQ(clips.GetItemNumber(2), 3);
    EXPECT_EQ(clips.GetItemNumber(3), -1);
    clips.ResetContent();
    EXPECT_EQ(clips.GetCount(), 0);
}
