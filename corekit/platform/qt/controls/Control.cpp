#include "corekit/platform/qt/controls/Control.h"

#include "corekit/platform/qt/controls/ToolkitFont.h"
#include "corekit/platform/qt/windows/AccessibleName.h"
#include "corekit/platform/qt/windows/EventInHand.h"
#include "corekit/platform/qt/windows/WideText.h"

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

bool isInput(UINT message)
{
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

} // namespace

LRESULT Control::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto self = share(handle());
    switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        const LRESULT answer = Window::defaultProcedure(message, wParam, lParam);
        if (isAlive()) focusChanged(message == WM_SETFOCUS);
        return answer;
    }
    case WM_CREATE:
        if (!(dialogCode() & (DLGC_STATIC | DLGC_BUTTON)))
            takeNameFrom(GetWindow(handle(), GW_HWNDPREV), *widget());
        return Window::defaultProcedure(message, wParam, lParam);
    case WM_SETFONT:
        m_font = reinterpret_cast<HFONT>(wParam);
        widget()->setFont(toolkitFont(m_font, widget()));
        fontChanged();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(m_font);
    case WM_GETDLGCODE:
        return dialogCode();
    case WM_SETREDRAW:
        widget()->setUpdatesEnabled(wParam != 0);
        return 0;
    case WM_DESTROY:
        ending();
        return Window::defaultProcedure(message, wParam, lParam);
    default:
        if (isInput(message)) return input(message, wParam, lParam);
        return Window::defaultProcedure(message, wParam, lParam);
    }
}

void Control::showEnabled(bool enabled)
{
    if (widget()) widget()->setEnabled(enabled);
}

LRESULT Control::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_CHAR) return Window::defaultProcedure(message, wParam, lParam);
    if (!EventInHand::hasCharacters() || !deliverCurrentEvent())
        character(static_cast<char16_t>(LOWORD(wParam)));
    return 0;
}

bool Control::tell(UINT code)
{
    notifyParent(code);
    return isAlive();
}

bool Control::tell(NMHDR& header, UINT code, LRESULT& answer)
{
    answer = notifyParent(header, code);
    return isAlive();
}

bool Control::tellPlain(UINT code)
{
    NMHDR header{};
    notifyParent(header, code);
    return isAlive();
}

QString Control::textIn(LPARAM text) const
{
    return carriesWideText(handle(), text) ? textFrom(reinterpret_cast<const WCHAR*>(text))
                                           : textFrom(reinterpret_cast<const char*>(text));
}

LRESULT Control::copyOut(const QString& text, LPARAM buffer) const
{
    if (carriesWideText(handle(), buffer))
        return copyText(text, reinterpret_cast<WCHAR*>(buffer), static_cast<int>(text.size()) + 1);
    return copyWholeText(text, reinterpret_cast<char*>(buffer));
}

LRESULT Control::lengthOf(const QString& text, LPARAM lParam) const
{
    return carriesWideText(handle(), lParam) ? text.size() : static_cast<LRESULT>(toNarrow(text).size());
}

QString withoutMnemonic(const QString& text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size()) break;
        plain += text[i];
    }
    return plain;
}

int copyText(const QString& text, char* buffer, int size)
{
    if (!buffer || size <= 0) return 0;
    std::string narrow = toNarrow(text);
    for (qsizetype units = std::min<qsizetype>(text.size(), size); static_cast<int>(narrow.size()) >= size;
         --units)
        narrow = toNarrow(text.left(units));
    std::memcpy(buffer, narrow.c_str(), narrow.size() + 1);
    return static_cast<int>(narrow.size());
}

int copyText(const QString& text, WCHAR* buffer, int size)
{
    if (!buffer || size <= 0) return 0;
    const auto length = std::min<qsizetype>(text.size(), size - 1);
    std::copy_n(reinterpret_cast<const char16_t*>(text.utf16()), length, buffer);
    buffer[length] = 0;
    return static_cast<int>(length);
}

int copyWholeText(const QString& text, char* buffer)
{
    if (!buffer) return 0;
    const std::string narrow = toNarrow(text);
    std::memcpy(buffer, narrow.c_str(), narrow.size() + 1);
    return static_cast<int>(narrow.size());
}

} // namespace corekit::detail
