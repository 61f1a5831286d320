#include "corekit/platform/qt/windows/ReadableMedia.h"

#include "corekit/platform/qt/windows/SelectionReader.h"

#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace corekit::detail {
namespace {

using X11 = QNativeInterface::QX11Application;

constexpr char textMedia[] = "text/plain";

enum class Encoding { utf8, latin1 };

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

SelectionReader& reader()
{
    static auto* const only = new SelectionReader;
    return *only;
}

xcb_atom_t selectionOf(QClipboard::Mode mode)
{
    return mode == QClipboard::Clipboard ? reader().atom("CLIPBOARD") : xcb_atom_t{XCB_ATOM_PRIMARY};
}

bool isOfThisProgram(const X11& toolkit, xcb_window_t window)
{
    const xcb_setup_t& own = *xcb_get_setup(toolkit.connection());
    return (window & ~own.resource_id_mask) == own.resource_id_base;
}

bool isText(const QString& media) { return media.startsWith(QLatin1String(textMedia)); }

// Fetched as it is asked for.
class OfferedMedia final : public QMimeData {
public:
    explicit OfferedMedia(QClipboard::Mode mode)
        : m_selection(selectionOf(mode)), m_targets(reader().targets(m_selection))
    {
    }
    bool isAnswered() const { return !m_targets.empty() && (!hasText() || !text().isNull()); }
    bool hasFormat(const QString& media) const override
    {
        if (!isText(media)) return isOffered(media.toStdString());
        return std::any_of(textTargets.begin(), textTargets.end(),
                           [&](const TextTarget& target) { return isOffered(target.name); });
    }

protected:
    QVariant retrieveData(const QString& media, QMetaType) const override
    {
        const QString key = isText(media) ? QString::fromLatin1(textMedia) : media;
        const auto [fetched, isNew] = m_fetched.try_emplace(key);
        if (isNew) fetched->second = isText(media) ? textGiven() : bytes(media.toStdString());
        return fetched->second;
    }

private:
    bool isOffered(const std::string& name) const
    {
        return std::find(m_targets.begin(), m_targets.end(), reader().atom(name)) != m_targets.end();
    }
    QVariant bytes(const std::string& name) const
    {
        if (!isOffered(name)) return {};
        const auto data = reader().read(m_selection, reader().atom(name));
        return data && data->unitBits == 8 && data->type == reader().atom(name) ? data->bytes : QVariant();
    }
    QVariant textGiven() const;

    xcb_atom_t m_selection;
    std::vector<xcb_atom_t> m_targets;
    mutable std::map<QString, QVariant> m_fetched; // invalid: asked for in vain
};

QVariant OfferedMedia::textGiven() const
{
    for (const TextTarget& asked : textTargets) {
        if (!isOffered(asked.name)) continue;
        auto data = reader().read(m_selection, reader().atom(asked.name));
        const auto given =
            std::find_if(textTargets.begin(), textTargets.end(), [&](const TextTarget& target) {
                return data && data->unitBits == 8 && data->type == reader().atom(target.name);
            });
        if (given == textTargets.end()) continue;
        if (data->bytes.endsWith('\0')) data->bytes.chop(1); // of those that send their terminator
        return given->encoding == Encoding::utf8 ? QString::fromUtf8(data->bytes)
                                                 : QString::fromLatin1(data->bytes);
    }
    return {};
}

// Asked anew.
const OfferedMedia& mediaElsewhere(QClipboard::Mode mode)
{
    static std::array<std::unique_ptr<OfferedMedia>, 2> offered;
    auto& media = offered[mode == QClipboard::Clipboard ? 0 : 1];
    media = std::make_unique<OfferedMedia>(mode);
    return *media;
}

} // namespace

bool isHeldElsewhere(QClipboard::Mode mode)
{
    const auto* const toolkit = qGuiApp ? qGuiApp->nativeInterface<X11>() : nullptr;
    if (!toolkit) return false;
    const xcb_window_t holder = reader().holderOf(selectionOf(mode));
    return holder != XCB_NONE && !isOfThisProgram(*toolkit, holder);
}

bool isLeftToToolkit(QClipboard::Mode mode)
{
    return !isHeldElsewhere(mode) || mediaElsewhere(mode).isAnswered();
}

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
