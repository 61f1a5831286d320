#include "corekit/framework/MessageBox.h"

#include "corekit/framework/String.h"
#include "corekit/platform/HarmlessText.h"

#include <atomic>
#include <cstdio>

namespace {
constinit std::atomic<MessageBoxHandler> current = nullptr;

int cautiousAnswer(UINT flags)
{
    switch (flags & MB_TYPEMASK) {
    case MB_OKCANCEL:
    case MB_YESNOCANCEL:
    case MB_RETRYCANCEL:
        return IDCANCEL;
    case MB_ABORTRETRYIGNORE:
        return IDABORT;
    case MB_YESNO:
        return IDNO;
    default:
        return IDOK;
    }
}

CString tableText(UINT id)
{
    CString text;
    text.LoadString(id);
    return text;
}
} // namespace

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) { return current.exchange(handler); }

int StockMessageBox(CWnd* parent, const char* text, UINT flags)
{
    if (!text) text = "";
    if (const MessageBoxHandler handler = current.load())
        if (const int answer = handler(parent, text, flags)) return answer;
    std::fprintf(stderr, "%s\n", corekit::HarmlessText(text, corekit::LineEnds::kept).c_str());
    return cautiousAnswer(flags);
}

int StockMessageBox(CWnd* parent, UINT textId, UINT flags)
{
    return StockMessageBox(parent, tableText(textId), flags);
}
int AfxMessageBox(const char* text, UINT flags, UINT) { return StockMessageBox(nullptr, text, flags); }
int AfxMessageBox(UINT textId, UINT flags, UINT)
{
    return StockMessageBox(nullptr, tableText(textId), flags);
}
