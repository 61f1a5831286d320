#include "corekit/platform/qt/windows/OfferedMedia.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <utility>

namespace corekit::detail {
namespace {

constexpr char textMedia[] = "text/plain";

using Encoding = SelectionEncoding;

// Names of text among programs of X, best first; the holder may answer one with another's type.
struct TextTarget {
    const char* name;
    Encoding encoding;
};
constexpr std::array<TextTarget, 4> textTargets = {{
    {"UTF8_STRING", Encoding::utf8},
    {"text/plain;charset=utf-8", Encoding::utf8},
    {"STRING", Encoding::latin1},
    {"text/plain", Encoding::utf8},
}};

bool isText(const QString& media) { return media.startsWith(QLatin1String(textMedia)); }

} // namespace

bool isHeldByAnotherProgram(const char* selection)
{
    const auto* const toolkit =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!toolkit || !toolkit->connection()) return false; // none where windows stay in memory
    const xcb_window_t holder = selectionReader().holderOf(selectionReader().atom(selection));
    const xcb_setup_t& own = *xcb_get_setup(toolkit->connection());
    return holder != XCB_NONE && (holder & ~own.resource_id_mask) != own.resource_id_base;
}

OfferedMedia::OfferedMedia(xcb_atom_t selection, std::vector<xcb_atom_t> targets)
    : m_selection(selection), m_targets(std::move(targets))
{
}

bool OfferedMedia::hasFormat(const QString& media) const
{
    if (!isText(media)) return isOffered(media.toStdString());
    return std::any_of(textTargets.begin(), textTargets.end(),
                       [&](const TextTarget& target) { return isOffered(target.name); });
}

QVariant OfferedMedia::retrieveData(const QString& media, QMetaType) const
{
    const QString key = isText(media) ? QString::fromLatin1(textMedia) : media;
    const auto [fetched, isNew] = m_fetched.try_emplace(key);
    if (isNew) fetched->second = isText(media) ? textGiven() : bytes(media.toStdString());
    return fetched->second;
}

bool OfferedMedia::isOffered(const std::string& name) const
{
    return std::find(m_targets.begin(), m_targets.end(), selectionReader().atom(name)) != m_targets.end();
}

QVariant OfferedMedia::bytes(const std::string& name) const
{
    if (!isOffered(name)) return {};
    const xcb_atom_t target = selectionReader().atom(name);
    const auto data = selectionReader().read(m_selection, target, m_time);
    return data && data->unitBits == 8 && data->type == target ? data->bytes : QVariant();
}

QVariant OfferedMedia::textGiven() const
{
    for (const TextTarget& asked : textTargets) {
        if (!isOffered(asked.name)) continue;
        const auto data = selectionReader().read(m_selection, selectionReader().atom(asked.name), m_time);
        const auto given =
            std::find_if(textTargets.begin(), textTargets.end(), [&](const TextTarget& target) {
                return data && data->unitBits == 8 && data->type == selectionReader().atom(target.name);
            });
        if (given != textTargets.end()) return textIn(*data, given->encoding);
    }
    return {};
}

} // namespace corekit::detail
