#include "corekit/platform/qt/windows/SelectionData.h"

#include <cstring>

namespace corekit::detail {

bool SelectionData::append(const SelectionData& more)
{
    if (type == XCB_ATOM_NONE && bytes.isEmpty()) {
        type = more.type;
        unitBits = more.unitBits;
    }
    if (more.type != type || more.unitBits != unitBits || more.bytes.size() > most - bytes.size())
        return false;
    bytes.append(more.bytes.constData(), more.bytes.size()); // copied: a piece may lie in a reply
    return true;
}

std::vector<xcb_atom_t> atomsIn(const SelectionData& data, xcb_atom_t asked)
{
    if (data.unitBits != 32 || (data.type != XCB_ATOM_ATOM && data.type != asked)) return {};
    std::vector<xcb_atom_t> all(static_cast<std::size_t>(data.bytes.size()) / sizeof(xcb_atom_t));
    if (!all.empty()) std::memcpy(all.data(), data.bytes.constData(), all.size() * sizeof(xcb_atom_t));
    return all;
}

QString textIn(const SelectionData& data, SelectionEncoding encoding)
{
    const QByteArrayView text = QByteArrayView(data.bytes).chopped(data.bytes.endsWith('\0') ? 1 : 0);
    return encoding == SelectionEncoding::utf8 ? QString::fromUtf8(text) : QString::fromLatin1(text);
}

} // namespace corekit::detail
