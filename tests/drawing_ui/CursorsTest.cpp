#include "Surface.h"

#include "corekit/framework/Module.h"
#include "corekit/graphics/ui/SysColourMetricCache.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Resources.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/resources/Cursors.h"

#include <QApplication>
#include <QPalette>
#include <string>

namespace {

std::string xpm(const std::string& facts, const std::string& rows = "\"#.\",\n\".#\"")
{
    return "/* XPM */\n\"" + facts + "\",\n\". c None\",\n\"# c #FF0000\",\n" + rows + "\n";
}

// The cursor of a module whose resource has these bytes.
HCURSOR cursorOf(const std::string& bytes)
{
    static const std::string* served = nullptr;
    static int count = 0;
    served = &bytes;
    SetResourceReader(
        [](const char*, const char*, const std::function<void(std::span<const std::byte>)>& use) {
            return use(std::as_bytes(std::span(*served))), true;
        });
    const HCURSOR cursor = LoadCursorA(nullptr, ("cursor " + std::to_string(count++)).c_str());
    SetResourceReader(&AfxUseResource);
    return cursor;
}

TEST(Cursors, APictureIsDrawnWhereItIsNotTransparent)
{
    const HCURSOR cursor = cursorOf(xpm("2 2 2 1 1 0"));
    ASSERT_NE(cursor, nullptr);
    Surface s;
    EXPECT_TRUE(DrawIconEx(s.dc, 4, 5, cursor, 0, 0, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(s.count(0xFFFF0000), 2);
    EXPECT_EQ(s.at(4, 5), 0xFFFF0000);
    EXPECT_EQ(s.at(5, 5), Surface::untouched);
    EXPECT_FALSE(DrawIconEx(s.dc, 4, 5, nullptr, 0, 0, 0, nullptr, DI_NORMAL));
}

TEST(Cursors, OddPicturesAreRefused)
{
    for (const char* const facts :
         {"", "2", "2 2 2", "0 2 2 1", "2 -2 2 1", "99999 99999 2 1", "2 2 2 1 2 0", "2 2 2 1 0 -1",
          "2 2 2 9", "2 2 999999999 1", "2 2 2 1 5", "99999999999999999999 2 2 1"})
        EXPECT_EQ(cursorOf(xpm(facts)), nullptr) << facts;
    EXPECT_EQ(cursorOf(""), nullptr);
    EXPECT_EQ(cursorOf("\""), nullptr);
    EXPECT_EQ(cursorOf(xpm("2 2 2 1", "\"#\"")), nullptr) << "rows too short";
}

TEST(Cursors, TheSystemsAndOurOwnAreThereAndStay)
{
    for (const char* const name : {IDC_ARROW, IDC_IBEAM, IDC_WAIT, IDC_SIZEWE, IDC_HAND}) {
        const HCURSOR cursor = LoadCursorA(nullptr, name);
        EXPECT_NE(cursor, nullptr);
        EXPECT_EQ(cursor, LoadCursorA(nullptr, name));
    }
    for (const UINT id : {IDC_COREKIT_SPLIT, IDC_COREKIT_NODROP, IDC_COREKIT_DROPREFUSED, IDC_COREKIT_MOVE,
                          IDC_COREKIT_MOVEBETWEEN, IDC_COREKIT_COPY, IDC_COREKIT_COPYBETWEEN}) {
        const HCURSOR cursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(static_cast<WORD>(id)));
        Surface s;
        EXPECT_TRUE(DrawIconEx(s.dc, 0, 0, cursor, 0, 0, 0, nullptr, DI_NORMAL)) << id;
        EXPECT_GT(s.count(0xFF000000), 20) << id;
        EXPECT_GT(s.count(0xFFFFFFFF), 20) << id;
    }
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(9)), nullptr);
    EXPECT_NE(LoadIconA(nullptr, IDI_ERROR), nullptr);
}

TEST(SysColours, FollowThePalette)
{
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, QColor(1, 2, 3));
    QApplication::setPalette(dark);
    const HBRUSH darkBrush = GetSysColorBrush(COLOR_WINDOW);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), RGB(1, 2, 3));
    UpdateSysColourMetricCache();
    EXPECT_EQ(SysColourMetricCache().m_window, RGB(1, 2, 3));
    QApplication::setPalette(before);
    EXPECT_EQ(SysColourMetricCache().m_window, RGB(1, 2, 3)) << "until the next update";
    EXPECT_NE(GetSysColorBrush(COLOR_WINDOW), darkBrush);
    UpdateSysColourMetricCache();
    EXPECT_EQ(SysColourMetricCache().m_window, GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(GetSysColor(99), 0u);
    EXPECT_EQ(GetSysColorBrush(-1), nullptr);
}

TEST(SysColours, DropEffectsHaveTheirCursors)
{
    UpdateSysColourMetricCache();
    const CSysColourMetricCache& cache = SysColourMetricCache();
    const auto resource = [](WORD id) { return LoadCursorA(nullptr, MAKEINTRESOURCEA(id)); };
    struct Case {
        DWORD effect;
        WORD id;
    };
    for (const Case& c : {Case{0, 4006},
                          {0x20000, 4011},
                          {0x10000, 4006},
                          {1, 4014},
                          {0x10001, 4015},
                          {2, 4012},
                          {0x10002, 4013},
                          {0x30002, 4013},
                          {4, 4006},
                          {3, 4006},
                          {0x80000001, 4006}})
        EXPECT_EQ(cache.GetCursorForDropEffect(c.effect), resource(c.id)) << std::hex << c.effect;
}

} // namespace
