// What stands behind a window's handle: one widget of the toolkit, a procedure, and the documented words.
//
// The handle owns the object: DestroyWindow takes it out of the table, and the widget goes when the toolkit
// is back in its loop, so that a window may go down within any of its own events. Whoever sends a message
// while it works with an object holds it by share() and looks at isAlive() afterwards.
#pragma once

#include "corekit/platform/Windows.h"

#include <QMargins>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <map>
#include <memory>
#include <string>
#include <vector>

class QEvent;

namespace corekit::detail {

struct WindowClass;

class Window {
public:
    // Takes the widget over.
    explicit Window(QWidget* widget);
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    // Null for what is no window, and on another thread than the toolkit's.
    static Window* find(HWND window);
    static std::shared_ptr<Window> share(HWND window);
    // The window that the object stands for, or within which it is a part (the viewport of a list belongs to
    // the list); null for widgets that are none of ours. Pop-ups of a control are not part of it.
    static Window* of(const QObject* object);

    QWidget* widget() const { return m_widget; } // null once the toolkit has destroyed it
    HWND handle() const { return m_handle; }
    bool isAlive() const { return m_alive && m_widget; } // false from WM_NCDESTROY on
    DWORD style() const { return m_style; }
    DWORD exStyle() const { return m_exStyle; }
    bool isChild() const { return m_style & WS_CHILD; }
    UINT_PTR id() const { return m_id; }
    HWND parent() const { return m_parent; } // of a child; else the owner
    bool isEnabled() const;                  // it and those above it
    const WindowClass& windowClass() const { return *m_class; }

    // What the class does with a message that nobody took: the last stop of DefWindowProcA. A control answers
    // its own messages here and passes the rest on to this one. For a message made from an event of the
    // toolkit, a control hands that very event to its widget with deliverCurrentEvent().
    virtual LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam);
    // Once, with handle and words in place, before the first message.
    virtual void begin(const CREATESTRUCTA&) {}
    // After a style or extended style has changed.
    virtual void styleChanged(DWORD formerStyle, DWORD formerExStyle);
    virtual QString text() const { return m_text; }
    virtual void setText(const QString& text);
    // What lies between the widget's edge and the client area: border, scroll bars, menu bar.
    virtual QMargins nonClient() const { return {}; }
    // Enabling as the widget shows it; a bare window looks the same either way.
    virtual void showEnabled(bool) {}
    // The standard bar (SB_HORZ, SB_VERT) or, for SB_CTL, the control itself; null if it has none.
    virtual class ScrollBar* scrollBar(int) { return nullptr; }
    // A control paints itself: WM_PAINT reaches it only where its procedure has been replaced.
    virtual bool paintsItself() const { return true; }

    // Hands the event that the message in hand was made from to the widget that it was meant for. False if
    // the message was sent by a program, or the event has been delivered already.
    bool deliverCurrentEvent();
    static const QEvent* currentEvent();

    // WM_COMMAND with code, id and handle to the parent, and WM_NOTIFY; 0 if there is none.
    LRESULT notifyParent(UINT code);
    LRESULT notifyParent(NMHDR& header, UINT code);
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // Client coordinates are the widget's without the margins above.
    QRect client() const;
    QPoint toWidget(POINT client) const;
    POINT toClient(QPoint widget) const;
    // The widget that children stand in, and where client (0, 0) is in it.
    virtual QWidget* childArea() const { return m_widget; }
    virtual QPoint childOrigin() const;

    // Sends WM_MOVE and WM_SIZE where place or size differ from what was told last.
    void tellPlace();

private:
    friend class WindowMaker;
    friend class WindowWords;
    friend class WindowEnd;
    friend class WindowProcedures;

    QPointer<QWidget> m_widget;
    HWND m_handle = nullptr, m_parent = nullptr;
    bool m_alive = false, m_ending = false, m_tells = false;
    DWORD m_style = 0, m_exStyle = 0;
    UINT_PTR m_id = 0;
    HINSTANCE m_instance = nullptr;
    LONG_PTR m_userData = 0;
    WNDPROC m_procedure = nullptr;
    WindowClass* m_class = nullptr;
    std::vector<std::byte> m_extra;
    QString m_text;
    HICON m_icons[2] = {};
    bool m_placeTold = false;
    QPoint m_toldOrigin;
    QSize m_toldSize;
    int m_toldHow = -1;
};

// A control class says how its windows are made: once, when the library is loaded. `parentWidget` is null for
// a top window.
using MakeControl = std::unique_ptr<Window> (*)(const CREATESTRUCTA& create, QWidget* parentWidget);
void registerControlClass(const char* className, MakeControl make);

// Narrow text of the active code page, and back; what the page lacks becomes its default character.
QString fromNarrow(const char* text);
std::string toNarrow(const QString& text);

} // namespace corekit::detail
