#include "view/PromptWnd.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Keyboard.h"

#include <algorithm>
#include <chrono>

namespace prompter {

IMPLEMENT_DYNAMIC(PromptWnd, CWnd)

BEGIN_MESSAGE_MAP(PromptWnd, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_MOUSEWHEEL()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

namespace {

constexpr int notch = 120;
constexpr int mostStories = 100000;

} // namespace

std::int64_t PromptWnd::Now()
{
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

BOOL PromptWnd::CreatePane(CWnd* parent, UINT id, const RECT& rect)
{
    return Create(AfxRegisterWndClass(CS_DBLCLKS), "Prompt", WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, parent,
                  id);
}

BOOL PromptWnd::CreateOutput(CWnd* owner, const RECT& display)
{
    return CreateEx(WS_EX_TOPMOST, AfxRegisterWndClass(CS_DBLCLKS), "Prompt", WS_POPUP | WS_VISIBLE, display,
                    owner, 0);
}

void PromptWnd::SetForm(FrameForm form)
{
    m_form = form;
    Invalidate(FALSE);
}

void PromptWnd::OnPaint()
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(&paint);
    const FrameBuffer* frame = &m_session.Frame();
    CRect client;
    GetClientRect(&client);
    if (!m_form.IsPlain()) {
        const SIZE size = frame->Size();
        if (frame->Context() && m_turned.Resize(m_form.SwapsSides() ? SIZE{size.cy, size.cx} : size)) {
            TransformFrame(frame->Pixels(), size.cx, size.cy, m_form, m_turned.Pixels());
            frame = &m_turned;
        }
    }
    const SIZE size = frame->Size();
    if (!frame->Context())
        PatBlt(dc, 0, 0, client.Width(), client.Height(), BLACKNESS);
    else if (size.cx == client.Width() && size.cy == client.Height())
        BitBlt(dc, 0, 0, size.cx, size.cy, frame->Context(), 0, 0, SRCCOPY);
    else
        StretchBlt(dc, 0, 0, client.Width(), client.Height(), frame->Context(), 0, 0, size.cx, size.cy,
                   SRCCOPY);
    EndPaint(&paint);
}

// The keys of the view are what the user made them; those of the desk count after them.
BOOL PromptWnd::PreTranslateMessage(MSG* message)
{
    if (message->hwnd != m_hWnd) return CWnd::PreTranslateMessage(message);
    if (message->message == WM_KEYDOWN && m_storyDigits >= 0 && TakeStoryDigit(message->wParam)) return TRUE;
    const HACCEL keys = KeyTable(viewKeys);
    return (keys && TranslateAcceleratorA(m_hWnd, keys, message)) || CWnd::PreTranslateMessage(message);
}

BOOL PromptWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const PromptCommand* const command = lParam ? nullptr : FindPromptCommand(LOWORD(wParam));
    if (!command) return CWnd::OnCommand(wParam, lParam);
    Perform(*command);
    return TRUE;
}

// Whether the key belongs to the number of a story; any other ends it.
bool PromptWnd::TakeStoryDigit(WPARAM key)
{
    const WPARAM digit =
        key >= static_cast<WPARAM>(VK_NUMPAD0) ? key - static_cast<WPARAM>(VK_NUMPAD0) : key - '0';
    if (digit <= 9) {
        m_storyDigits = std::min(m_storyDigits * 10 + static_cast<int>(digit), mostStories);
        return true;
    }
    const int number = std::exchange(m_storyDigits, -1);
    if (key != static_cast<WPARAM>(VK_RETURN)) return false;
    m_session.GoToStoryNumber(number, Now());
    return true;
}

void PromptWnd::Perform(const PromptCommand& command)
{
    if (m_session.Perform(command.action, command.value, Now())) return;
    if (command.action == PromptAction::askForStory) m_storyDigits = 0;
    if (command.action == PromptAction::leave && onLeave) onLeave();
}

BOOL PromptWnd::OnMouseWheel(UINT, short delta, CPoint)
{
    m_wheel += delta;
    m_session.SetSpeed(m_session.Speed() + m_wheel / notch, Now());
    m_wheel %= notch;
    return TRUE;
}

void PromptWnd::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    SetCapture();
    m_dragging = true;
    m_lastPoint = point;
}

void PromptWnd::OnMouseMove(UINT, CPoint point)
{
    if (!m_dragging) return;
    m_session.DragBy(FramePixels(point.y - m_lastPoint.y), Now());
    m_lastPoint = point;
}

void PromptWnd::OnLButtonUp(UINT, CPoint)
{
    m_dragging = false;
    ReleaseCapture();
}

double PromptWnd::FramePixels(int windowPixels) const
{
    CRect client;
    GetClientRect(&client);
    const double height = std::max(client.Height(), 1);
    const double pixels = windowPixels * static_cast<double>(m_session.Settings().frame.cy) / height;
    return m_form.mirrorTopBottom ? -pixels : pixels;
}

} // namespace prompter
