#include "corekit/platform/Clipboard.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/posix/user/RegisteredNames.h"
#include "corekit/platform/qt/windows/MediaData.h"
#include "corekit/platform/qt/windows/ReadableMedia.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Windows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <cstring>
#include <memory>

namespace corekit::detail {
namespace {

using Blocks = std::map<UINT, HGLOBAL>;

void freeAll(Blocks& blocks)
{
    for (const auto& [format, block] : blocks) GlobalFree(block);
    blocks.clear();
}

HGLOBAL blockOf(const void* bytes, std::size_t size)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, std::max<std::size_t>(size, 1));
    if (void* const to = block ? GlobalLock(block) : nullptr) {
        std::memcpy(to, bytes, size);
        GlobalUnlock(block);
    }
    return block;
}

QByteArray bytesOf(HGLOBAL block)
{
    const auto size = static_cast<qsizetype>(GlobalSize(block));
    const auto* const from = static_cast<const char*>(GlobalLock(block));
    QByteArray bytes = from ? QByteArray(from, size) : QByteArray();
    GlobalUnlock(block);
    return bytes;
}

// Up to the terminator, or to the end of the block where it lacks one.
QString wideTextOf(HGLOBAL block)
{
    const QByteArray bytes = bytesOf(block);
    QString text(bytes.size() / 2, QChar());
    std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * 2);
    const auto end = text.indexOf(QChar(0));
    if (end >= 0) text.truncate(end);
    return text;
}

// The name of a private format among all programs of the display; one that is a media type already stays.
QString mediaTypeOf(UINT format)
{
    const QByteArray name = QByteArray::fromStdString(registeredName(format));
    if (name.isEmpty() || name.contains('/')) return QString::fromLatin1(name);
    return QLatin1String("application/x-corekit-") + QString::fromLatin1(name.toLower().toPercentEncoding());
}

bool isText(UINT format) { return format == CF_TEXT || format == CF_UNICODETEXT; }

HGLOBAL textBlock(UINT format, const QString& text)
{
    if (format == CF_UNICODETEXT)
        return blockOf(text.utf16(), (static_cast<std::size_t>(text.size()) + 1) * 2);
    const std::string narrow = toNarrow(text);
    return blockOf(narrow.c_str(), narrow.size() + 1);
}

} // namespace

bool mediaHas(const QMimeData& data, UINT format)
{
    return isText(format) ? data.hasText() : data.hasFormat(mediaTypeOf(format));
}

HGLOBAL blockOfMedia(const QMimeData& data, UINT format)
{
    if (!mediaHas(data, format)) return nullptr;
    if (isText(format)) {
        const QString text = data.text();
        return text.isNull() ? nullptr : textBlock(format, text);
    }
    const QByteArray bytes = data.data(mediaTypeOf(format));
    return blockOf(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

namespace {

class Clipboard {
public:
    static Clipboard& instance()
    {
        static auto* const only = new Clipboard;
        return *only;
    }

    bool open(HWND window)
    {
        if (m_isOpen && (!m_window || IsWindow(m_window) || !window)) return false;
        m_isOpen = true;
        m_window = window;
        return true;
    }

    void close()
    {
        if (m_isEmptied) publish();
        freeAll(m_set);
        freeAll(m_got);
        m_isOpen = m_isEmptied = false;
        m_window = nullptr;
    }

    void empty()
    {
        freeAll(m_set);
        m_isEmptied = true;
        const HWND former = std::exchange(m_owner, m_window);
        if (former && former != m_window && IsWindow(former)) SendMessageA(former, WM_DESTROYCLIPBOARD, 0, 0);
    }

    void set(UINT format, HGLOBAL block)
    {
        if (const auto former = m_set.find(format); former != m_set.end()) GlobalFree(former->second);
        m_set[format] = block;
        m_isEmptied = true;
    }

    HGLOBAL get(UINT format)
    {
        if (const auto own = m_set.find(format); own != m_set.end()) return own->second;
        if (const auto got = m_got.find(format); got != m_got.end()) return got->second;
        const HGLOBAL block = m_isEmptied ? converted(format) : fetched(format);
        if (block) m_got[format] = block;
        return block;
    }

    bool has(UINT format) const
    {
        if (m_isEmptied)
            return m_set.contains(format) ||
                   (isText(format) && (m_set.contains(CF_TEXT) || m_set.contains(CF_UNICODETEXT)));
        const QMimeData* const data = readableMedia();
        return data && mediaHas(*data, format);
    }

    bool isOpen() const { return m_isOpen; }

private:
    QString textThatWasSet() const
    {
        if (const auto wide = m_set.find(CF_UNICODETEXT); wide != m_set.end())
            return wideTextOf(wide->second);
        const auto narrow = m_set.find(CF_TEXT);
        return narrow == m_set.end() ? QString() : fromNarrow(bytesOf(narrow->second).constData());
    }

    HGLOBAL converted(UINT format) const
    {
        return isText(format) && has(format) ? textBlock(format, textThatWasSet()) : nullptr;
    }

    static HGLOBAL fetched(UINT format)
    {
        const QMimeData* const data = readableMedia();
        return data ? blockOfMedia(*data, format) : nullptr;
    }

    void publish()
    {
        if (m_set.empty()) {
            QGuiApplication::clipboard()->clear();
            return;
        }
        auto data = std::make_unique<QMimeData>();
        if (m_set.contains(CF_UNICODETEXT) || m_set.contains(CF_TEXT)) data->setText(textThatWasSet());
        for (const auto& [format, block] : m_set)
            if (const QString type = mediaTypeOf(format); !isText(format) && !type.isEmpty())
                data->setData(type, bytesOf(block));
        QGuiApplication::clipboard()->setMimeData(data.release());
    }

    bool m_isOpen = false, m_isEmptied = false;
    HWND m_window = nullptr, m_owner = nullptr;
    Blocks m_set, m_got; // ours until the clipboard is closed
};

// Open, on the toolkit's thread.
bool requireOpen()
{
    if (!onToolkitThread()) return false;
    if (Clipboard::instance().isOpen()) return true;
    SetLastError(1418); // not open
    return false;
}

bool hasToolkit()
{
    return onToolkitThread() && qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

} // namespace
} // namespace corekit::detail

using namespace corekit::detail;

BOOL OpenClipboard(HWND window)
{
    if (!hasToolkit() || (window && !requireWindow(window))) return FALSE;
    if (Clipboard::instance().open(window)) return TRUE;
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

BOOL CloseClipboard()
{
    if (!requireOpen()) return FALSE;
    Clipboard::instance().close();
    return TRUE;
}

BOOL EmptyClipboard()
{
    if (!requireOpen()) return FALSE;
    Clipboard::instance().empty();
    return TRUE;
}

HGLOBAL SetClipboardData(UINT format, HGLOBAL block)
{
    if (!block || !requireOpen()) return nullptr;
    Clipboard::instance().set(format, block);
    return block;
}

HGLOBAL GetClipboardData(UINT format) { return requireOpen() ? Clipboard::instance().get(format) : nullptr; }

BOOL IsClipboardFormatAvailable(UINT format) { return hasToolkit() && Clipboard::instance().has(format); }

BOOL SetSelectionText(const WCHAR* text, int count)
{
    if (!text || count < 0 || !hasToolkit() || !QGuiApplication::clipboard()->supportsSelection())
        return FALSE;
    QGuiApplication::clipboard()->setText(QString(reinterpret_cast<const QChar*>(text), count),
                                          QClipboard::Selection);
    return TRUE;
}
