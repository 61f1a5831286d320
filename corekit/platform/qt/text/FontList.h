// The faces of the machine by name, read once, and the fonts made from them, shared by all handles.
// User-interface thread only; needs a running toolkit.
#pragma once

#include "corekit/platform/qt/text/SizedFont.h"

#include <list>
#include <map>

namespace corekit::detail {

class FontList {
public:
    static FontList& instance();

    struct Family {
        QString name;
        bool scalable = false;
    };
    // All, sorted by name.
    const std::list<Family>& families() const { return m_families; }
    // By name without regard to case, or by a name cut to 31 bytes; null if there is none.
    const Family* find(std::string_view name) const;

    // Takes in the faces of a font file; the number of those that are new.
    int addFont(const QByteArray& file);

    // The style of a family; null if it cannot be loaded.
    std::shared_ptr<Typeface> typeface(const Family& family, bool bold, bool italic);
    // What a font request gives, the default face where its own is unknown; null if the machine has no fonts.
    std::shared_ptr<SizedFont> font(std::string_view name, bool bold, bool italic, int height, int width,
                                    double scale = 1);

private:
    FontList();
    std::shared_ptr<Typeface> typefaceFor(std::string_view name, bool bold, bool italic);

    struct Made {
        std::shared_ptr<Typeface> face;
        int height, width;
        double scale;
        std::shared_ptr<SizedFont> font;
    };

    void enterNames();

    std::list<Family> m_families;
    std::map<std::string, const Family*, std::less<>> m_byName; // folded, whole and cut
    std::map<std::tuple<const Family*, bool, bool>, std::shared_ptr<Typeface>> m_typefaces;
    std::list<Made> m_made; // last used first
};

// The name as it stands in a LOGFONTA: at most 31 bytes, whole characters.
std::string cutFaceName(std::string_view name);

} // namespace corekit::detail
