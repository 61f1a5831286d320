#include "corekit/platform/qt/text/FontList.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/qt/windows/NeverDestroyed.h"

#include <algorithm>
#include <QFontDatabase>

namespace corekit::detail {

namespace {

constexpr std::size_t keptFonts = 128; // sizes without a handle that stay ready
constexpr const char* defaultFaces[] = {"Noto Sans", "DejaVu Sans"};
// Names that the toolkit adds to the machine's; each stands for another face and cannot be loaded.
constexpr const char* genericNames[] = {"Monospace", "Sans Serif", "Serif"};

std::string folded(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).toCaseFolded().toStdString();
}

bool isGeneric(const QString& name)
{
    return std::ranges::any_of(genericNames, [&](const char* g) { return name == QLatin1String(g); });
}

} // namespace

std::string cutFaceName(std::string_view name)
{
    std::size_t length = std::min<std::size_t>(name.size(), LF_FACESIZE - 1);
    if (length < name.size())
        while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) --length;
    return std::string(name.substr(0, length));
}

FontList& FontList::instance()
{
    static NeverDestroyed<FontList> list{FontList()};
    return list.get();
}

FontList::FontList()
{
    for (const QString& name : QFontDatabase::families()) {
        if (QFontDatabase::isPrivateFamily(name) || isGeneric(name)) continue;
        m_families.push_back({name, QFontDatabase::isSmoothlyScalable(name)});
    }
    enterNames();
}

void FontList::enterNames()
{
    for (const Family& f : m_families) m_byName.emplace(folded(f.name.toStdString()), &f);
    for (const Family& f : m_families) {
        const std::string name = f.name.toStdString();
        if (const std::string cut = cutFaceName(name); cut.size() < name.size())
            m_byName.emplace(folded(cut), &f);
    }
}

int FontList::addFont(const QByteArray& file)
{
    int added = 0;
    const int font = QFontDatabase::addApplicationFontFromData(file);
    for (const QString& name : QFontDatabase::applicationFontFamilies(font)) {
        const auto place = std::find_if(m_families.begin(), m_families.end(),
                                        [&](const Family& f) { return f.name.compare(name) >= 0; });
        if (place != m_families.end() && place->name == name) continue;
        m_families.insert(place, {name, QFontDatabase::isSmoothlyScalable(name)});
        ++added;
    }
    enterNames();
    return added;
}

const FontList::Family* FontList::find(std::string_view name) const
{
    const auto found = m_byName.find(folded(name));
    return found == m_byName.end() ? nullptr : found->second;
}

std::shared_ptr<Typeface> FontList::typeface(const Family& family, bool bold, bool italic)
{
    std::shared_ptr<Typeface>& face = m_typefaces[{&family, bold, italic}];
    if (!face) face = Typeface::load(family.name, bold, italic);
    return face;
}

std::shared_ptr<Typeface> FontList::typefaceFor(std::string_view name, bool bold, bool italic)
{
    const auto load = [&](std::string_view wanted) -> std::shared_ptr<Typeface> {
        const Family* const family = find(wanted);
        return family && family->scalable ? typeface(*family, bold, italic) : nullptr;
    };
    if (auto face = load(name)) return face;
    for (const char* const fallback : defaultFaces)
        if (auto face = load(fallback)) return face;
    for (const Family& family : m_families)
        if (auto face = load(family.name.toStdString())) return face;
    return nullptr;
}

std::shared_ptr<SizedFont> FontList::font(std::string_view name, bool bold, bool italic, int height,
                                          int width, double scale)
{
    const std::shared_ptr<Typeface> face = typefaceFor(name, bold, italic);
    if (!face) return nullptr;
    const auto same = [&](const Made& m) {
        return m.face == face && m.height == height && m.width == width && m.scale == scale;
    };
    if (const auto found = std::find_if(m_made.begin(), m_made.end(), same); found != m_made.end()) {
        m_made.splice(m_made.begin(), m_made, found);
        return found->font;
    }
    m_made.push_front({face, height, width, scale, std::make_shared<SizedFont>(face, height, width, scale)});
    std::size_t unheld = 0;
    m_made.remove_if([&](const Made& m) { return m.font.use_count() == 1 && ++unheld > keptFonts; });
    return m_made.front().font;
}

} // namespace corekit::detail
