#include "corekit/platform/qt/windows/ReadableMedia.h"

#include "corekit/platform/qt/windows/OfferedMedia.h"

#include <QGuiApplication>

#include <array>
#include <memory>

namespace corekit::detail {
namespace {

const char* nameOf(QClipboard::Mode mode) { return mode == QClipboard::Clipboard ? "CLIPBOARD" : "PRIMARY"; }

// Asked anew.
const OfferedMedia& mediaElsewhere(QClipboard::Mode mode)
{
    static std::array<std::unique_ptr<OfferedMedia>, 2> offered;
    const xcb_atom_t selection = selectionReader().atom(nameOf(mode));
    auto& media = offered[mode == QClipboard::Clipboard ? 0 : 1];
    media = std::make_unique<OfferedMedia>(selection, selectionReader().targets(selection));
    return *media;
}

} // namespace

bool isHeldElsewhere(QClipboard::Mode mode) { return isHeldByAnotherProgram(nameOf(mode)); }

const QMimeData* readableMedia(QClipboard::Mode mode)
{
    return isHeldElsewhere(mode) ? &mediaElsewhere(mode) : QGuiApplication::clipboard()->mimeData(mode);
}

QString readableText(QClipboard::Mode mode)
{
    const QMimeData* const media = readableMedia(mode);
    return media ? media->text() : QString();
}

const QMimeData* readable(const QMimeData* media)
{
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    for (const auto mode : {QClipboard::Clipboard, QClipboard::Selection})
        if (media == clipboard.mimeData(mode)) return readableMedia(mode);
    return media;
}

} // namespace corekit::detail
