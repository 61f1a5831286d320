// Any bytes as what another program gives of a selection, in pieces: a list of targets, and text that goes
// into the blocks that programs ask for.
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/qt/windows/MediaData.h"
#include "corekit/platform/qt/windows/SelectionData.h"

#include "FtpReads.h"
#include <cstdlib>
#include <cstring>
#include <QMimeData>

using namespace corekit::detail;

namespace {

void TakeText(const QString& text)
{
    QMimeData media;
    media.setText(text);
    const HGLOBAL wide = blockOfMedia(media, CF_UNICODETEXT), narrow = blockOfMedia(media, CF_TEXT);
    const std::size_t bytes = static_cast<std::size_t>(text.size()) * 2;
    if (text.isNull() ? wide || narrow : !wide || !narrow || GlobalSize(wide) < bytes + 2) std::abort();
    if (wide && std::memcmp(GlobalLock(wide), text.utf16(), bytes + 2) != 0) std::abort();
    if (narrow && !std::memchr(GlobalLock(narrow), 0, GlobalSize(narrow))) std::abort();
    for (const HGLOBAL block : {wide, narrow})
        if (block) GlobalFree(block);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    const xcb_atom_t type = data[0] & 7, asked = data[0] >> 3 & 7;
    const int unitBits = 8 << (data[0] >> 6);
    SelectionData whole;
    EachRead(data + 1, size - 1, [&](std::string_view bytes) {
        const auto length = static_cast<qsizetype>(bytes.size());
        if (!whole.append({type, unitBits, QByteArray::fromRawData(bytes.data(), length)})) std::abort();
        if (whole.append({type + 1, unitBits, "x"})) std::abort();
    });
    const auto atoms = atomsIn(whole, asked);
    if (atoms.size() * sizeof(xcb_atom_t) > size) std::abort();
    TakeText(textIn(whole, SelectionEncoding::utf8));
    TakeText(textIn(whole, SelectionEncoding::latin1));
    return 0;
}
