// What all controls have in common: a widget of the toolkit that draws itself and takes input, behind a
// window that answers the documented messages.
//
// A control sends notifications from within the toolkit's own events, and whoever gets one may destroy the
// control. The object outlives the message in hand, its widget the event; `tell` says whether to go on.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/qt/windows/Window.h"

namespace corekit::detail {

class Control : public Window {
public:
    using Window::Window;

    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void showEnabled(bool enabled) override;

protected:
    // DLGC_ values: which keys the control takes from a dialog.
    virtual UINT dialogCode() const { return 0; }
    // What an input message does: its event goes to the toolkit's control.
    virtual LRESULT input(UINT message, WPARAM wParam, LPARAM lParam);
    // A character that no key press of the toolkit stands for: a keyboard of ours, an input method, a
    // program.
    virtual void character(char16_t) {}
    virtual void focusChanged(bool) {}
    virtual void fontChanged() {}
    virtual void ending() {} // at WM_DESTROY

    // Both tell the parent and say whether this control is still there.
    bool tell(UINT code);
    bool tell(NMHDR& header, UINT code, LRESULT& answer);
    // WM_NOTIFY with nothing but its header.
    bool tellPlain(UINT code);

    // The text of the message in hand, and its way out: wide if the message is (SendMessageW). A buffer
    // without a size is long enough by contract.
    QString textIn(LPARAM text) const;
    LRESULT copyOut(const QString& text, LPARAM buffer) const;
    LRESULT lengthOf(const QString& text, LPARAM lParam) const;

    // What the control hears from the toolkit ends with the control, not with the widget: connect to this.
    const QObject* life() const { return &m_life; }

    template <typename Face>
    Face* as() const
    {
        return static_cast<Face*>(widget());
    }

private:
    QObject m_life;
    HFONT m_font = nullptr;
};

// The characters that & marks are underlined on the screen, and not read out.
QString withoutMnemonic(const QString& text);

inline QString textFrom(const char* text) { return fromNarrow(text); }
inline QString textFrom(const WCHAR* text) { return text ? QString::fromUtf16(text) : QString(); }
// Copies at most size - 1 units and a terminator; returns how many. Characters are not cut in two.
int copyText(const QString& text, char* buffer, int size);
int copyText(const QString& text, WCHAR* buffer, int size);
// Into a buffer that is long enough by contract.
int copyWholeText(const QString& text, char* buffer);

inline QRect toolkitRect(const RECT& r) { return {r.left, r.top, r.right - r.left, r.bottom - r.top}; }
inline RECT documentedRect(const QRect& r) { return {r.x(), r.y(), r.x() + r.width(), r.y() + r.height()}; }
// A point in the words of a message.
inline POINT pointIn(LPARAM words)
{
    return {static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(words))),
            static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(words)))};
}
inline LRESULT inWords(int low, int high)
{
    return static_cast<LRESULT>(MAKELONG(static_cast<WORD>(low), static_cast<WORD>(high)));
}

// While it lives, what the toolkit reports is a program's doing, not the user's.
class ByProgram {
public:
    explicit ByProgram(int& depth) : m_depth(depth) { ++m_depth; }
    ~ByProgram() { --m_depth; }
    ByProgram(const ByProgram&) = delete;
    ByProgram& operator=(const ByProgram&) = delete;

private:
    int& m_depth;
};

} // namespace corekit::detail
