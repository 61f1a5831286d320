// Choosing files and folders by the keyboard.
#include "corekit/framework/ui/FileDialog.h"
#include "corekit/framework/ui/Wnd.h"

#include "Modal.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <fstream>

namespace {

using namespace corekit::test;

class FileDialogs : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::automatic));
        for (const char* name : {"one.txt", "two.txt", "picture.bmp"})
            std::ofstream(folder.Path() + "/" + name);
        std::filesystem::create_directory(folder.Path() + "/inner");
        ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                   400, 300, nullptr, nullptr));
    }
    std::string In(const char* name) const { return folder.Path() + "/" + name; }
    // Writes into the field that has the focus.
    static Acts::Act Write(const std::string& text)
    {
        return [wide = std::u16string(text.begin(), text.end())] {
            PressKey('A', {VK_CONTROL});
            ComposeText(wide);
        };
    }

    // In the dialog, once a box over it has gone: nobody here gives the focus back as a desktop does.
    static Acts::Act Again(const Acts::Act& act)
    {
        return [act] {
            if (QWidget* const dialog = QApplication::activeModalWidget()) dialog->activateWindow();
            RunWaiting();
            act();
        };
    }

    TempFolder folder;
    CWnd owner;
};

constexpr int escape = 0x1B;
constexpr char filters[] = "Texts|*.txt|All files|*.*||";
constexpr DWORD mustExist = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;

TEST_F(FileDialogs, AFileThatIsThereIsOpened)
{
    CFileDialog dialog(TRUE, "txt", nullptr, mustExist, filters, &owner);
    bool ownerTakesInput = true;
    Acts acts{[&] { ownerTakesInput = owner.IsWindowEnabled(); }, Write(In("two.txt")), PressReturnInField};
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_FALSE(ownerTakesInput);
    EXPECT_TRUE(owner.IsWindowEnabled());
    EXPECT_EQ(std::string(dialog.GetPathName()), In("two.txt"));
    EXPECT_STREQ(dialog.GetFileTitle(), "two");
    EXPECT_STREQ(dialog.GetFileExt(), "txt");
    EXPECT_STREQ(dialog.m_ofn.lpstrFile + dialog.m_ofn.nFileOffset, "two.txt");
}

TEST_F(FileDialogs, OneThatIsNotThereIsRefusedAndEscapeCancels)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, mustExist, filters, &owner);
    Acts acts{Write(In("three.txt")), PressReturnInField, Press(VK_RETURN) /* the box that says so */,
              Again(Press(escape))};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_STREQ(dialog.GetPathName(), "");
}

TEST_F(FileDialogs, SavingAddsTheExtensionAndAsksBeforeItReplaces)
{
    CFileDialog fresh(FALSE, "txt", nullptr, OFN_OVERWRITEPROMPT, filters, &owner);
    {
        Acts acts{Write(In("story")), PressReturnInField};
        EXPECT_EQ(fresh.DoModal(), IDOK);
    }
    EXPECT_EQ(std::string(fresh.GetPathName()), In("story.txt"));
    for (const bool replaces : {false, true}) {
        CFileDialog dialog(FALSE, "txt", nullptr, OFN_OVERWRITEPROMPT, filters, &owner);
        const Acts::Act answer = Press(replaces ? 'Y' : 'N', {VK_MENU}),
                        last = replaces ? answer : Again(Press(escape));
        Acts acts{Write(In("one.txt")), PressReturnInField, answer, last};
        EXPECT_EQ(dialog.DoModal(), replaces ? IDOK : IDCANCEL);
    }
}

TEST_F(FileDialogs, SeveralFilesComeAsPathsOfTheirOwn)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, mustExist | OFN_ALLOWMULTISELECT, nullptr, &owner);
    dialog.m_ofn.lpstrInitialDir = folder.Path().c_str();
    Acts acts{Write("\"one.txt\" \"two.txt\""), PressReturnInField};
    ASSERT_EQ(dialog.DoModal(), IDOK);
    std::vector<std::string> paths;
    for (POSITION at = dialog.GetStartPosition(); at;) paths.emplace_back(dialog.GetNextPathName(at));
    EXPECT_EQ(paths, (std::vector<std::string>{In("one.txt"), In("two.txt")}));
}

TEST_F(FileDialogs, OneFileOfAListIsAPathWhateverTheBufferHeld)
{
    CFileDialog dialog(TRUE, nullptr, nullptr, mustExist | OFN_ALLOWMULTISELECT, nullptr, &owner);
    std::fill_n(dialog.m_ofn.lpstrFile + 1, 500, 'x');
    Acts acts{Write(In("one.txt")), PressReturnInField};
    ASSERT_EQ(dialog.DoModal(), IDOK);
    POSITION at = dialog.GetStartPosition();
    EXPECT_EQ(std::string(dialog.GetNextPathName(at)), In("one.txt"));
    EXPECT_EQ(at, nullptr);
    EXPECT_STREQ(dialog.GetNextPathName(at), "") << "beyond the last";
}

TEST_F(FileDialogs, AFolderIsChosenWithinItsRoot)
{
    _ITEMIDLIST* const root = ILCreateFromPathA(folder.Path().c_str());
    char name[MAX_PATH] = "", path[MAX_PATH] = "";
    BROWSEINFOA ask{owner.m_hWnd, root, name, "Where?", BIF_RETURNONLYFSDIRS, nullptr, 0, 0};
    _ITEMIDLIST* chosen = nullptr;
    {
        // What lies outside is asked for again.
        Acts acts{Write("/"), PressReturnInField, Write(In("inner")), PressReturnInField};
        chosen = SHBrowseForFolderA(&ask);
    }
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(SHGetPathFromIDListA(chosen, path));
    EXPECT_EQ(path, In("inner"));
    EXPECT_STREQ(name, "inner");
    ILFree(chosen);
    {
        Acts acts{Press(escape)};
        EXPECT_EQ(SHBrowseForFolderA(&ask), nullptr);
    }
    ILFree(root);
}

} // namespace
