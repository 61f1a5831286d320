// A tool bar whose buttons are commands of the command list, and whose buttons can become larger or smaller
// while the program runs.
//
// Objects are made with new and delete themselves with their window. What the class variables say holds for
// the whole program. User-interface thread only.
//
//     auto* const bar = new CIntelliToolBar;
//     if (bar->CreateFromData(&frame, barId, commands, "Editing")) {
//         GetCommandList().AddToolbar(bar);
//         frame.DockControlBar(bar);
//     }
#pragma once

#include "corekit/framework/Array.h"
#include "corekit/framework/ui/ToolBar.h"

class CCmdItem;
class CIntelliToolBar;
using CUIntArray = CArray<UINT, UINT>;

namespace corekit::detail {

// Where tool bars find the commands of their buttons, and say that they go.
class COREKIT_API ToolBarCommands {
public:
    virtual int GetItemByCommand(UINT command, CCmdItem& item) const = 0;
    virtual void RemoveToolbar(const CIntelliToolBar* toolbar) = 0;

protected:
    ~ToolBarCommands() = default;
};
// The program's; null: no command is known. Not owned.
void setToolBarCommands(ToolBarCommands* commands);

} // namespace corekit::detail

class COREKIT_API CIntelliToolBar : public CToolBar {
    DECLARE_DYNAMIC(CIntelliToolBar)
public:
    // A bar of the frame with these commands, 0 being a separator; it may be docked at all sides. With a
    // custom size in pixels large pictures are of that size. 0: no window, which the caller then deletes,
    // or a command that is not registered or whose picture is not to be had; the bar then has the buttons
    // before it.
    int CreateFromData(CFrameWnd* frame, UINT id, const CUIntArray& commands, const char* name,
                       CSize* customSize = nullptr);
    // Puts a button at the end or in front of an index; a command of 0 is a separator. 0 for a command
    // without item or picture.
    int AppendButton(UINT command) { return InsertButton(GetButtonCount(), command); }
    int InsertButton(int index, UINT command);

    void DeleteAllButtons();
    // Replaces the array with the command of each button, 0 for a separator.
    void GetButtonArray(CUIntArray& commands) const;

    // ---- Bitmaps: strips of pictures from the resources. Those that are 15 high hold small pictures of 16
    // by 15, others are as high as the large or custom size. At most `maximumBitmaps`.
    static constexpr std::size_t maximumBitmaps = 256;
    int InstallBitmap(UINT bitmap); // 0 if it cannot be loaded or is of another height
    int IsBitmapInstalled(UINT bitmap) const;
    // The index of the bitmap's first picture among all pictures of the bar; -1 for one that is not
    // installed.
    int GetBitmapImageStart(UINT bitmap) const;

    // What lists and the title of the floating bar show.
    const CString& GetName() const { return m_name; }
    void SetName(const CString& name);
    // Gives the buttons the size that the class variable says; a picture that is not to be had ends the walk.
    void ToggleButtonSize();

    // Size of buttons and freedom of bars, for bars made from now on; those there are follow by
    // ToggleButtonSize. `size` is that of large pictures in pixels, 32 by 30 at first; null keeps it.
    static int UsingLargeButtons() { return m_bLargeButtons; }
    static void EnableLargeButtons(int enable, const CSize* size = nullptr);
    static int UsingFloatableBars() { return m_bEnableFloat; } // 1 at first; else no bar can be dragged
    static void EnableFloatableBars(int enable) { m_bEnableFloat = enable; }

protected:
    // Buttons work in any case; the bar is dragged only while bars may float.
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);

    void PostNcDestroy() override; // leaves the command list and deletes the object
    DECLARE_MESSAGE_MAP()

    static int m_bLargeButtons, m_bEnableFloat;
    static CSize m_szLargeBitmap;

private:
    // A strip that was added, and where its pictures begin.
    struct InstalledBitmap {
        UINT id;
        int firstImage;
    };
    // Of large pictures in this bar.
    CSize LargeSize() const { return m_hasCustomSize ? m_customSize : m_szLargeBitmap; }
    void SetSizesFor(CSize picture); // buttons are 16 pixels larger each way

    std::vector<InstalledBitmap> m_bitmaps;
    CString m_name;
    CSize m_customSize;
    bool m_hasCustomSize = false; // else the class variable counts
};
