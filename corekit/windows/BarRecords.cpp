#include "corekit/windows/BarRecords.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/stores/PropertyStore.h"

#include <algorithm>

namespace corekit::detail {
namespace {

// The frame's place for messages: it is there always, and no layout moves it.
constexpr UINT statusBarId = 59393;
constexpr CPoint noPosition{-1, -1};
constexpr int mostBars = 0x10000; // as many as there are ids

CString numbered(const char* format, int number)
{
    CString name;
    name.Format(format, number);
    return name;
}

// Points of one screen on another.
class Scaling {
public:
    Scaling(CSize from, CSize to) : m_from(from), m_to(to) {}

    CPoint operator()(CPoint p) const
    {
        if (p == noPosition) return p;
        return {Scaled(p.x, m_from.cx, m_to.cx), Scaled(p.y, m_from.cy, m_to.cy)};
    }
    CRect operator()(const CRect& r) const { return {(*this)(r.TopLeft()), (*this)(r.BottomRight())}; }

private:
    static int Scaled(LONG value, LONG from, LONG to)
    {
        if (from <= 0 || to <= 0 || from == to) return value;
        const LONGLONG scaled = static_cast<LONGLONG>(value) * to / from;
        return static_cast<int>(std::clamp<LONGLONG>(scaled, -0x7FFFFFFF, 0x7FFFFFFF));
    }

    CSize m_from, m_to;
};

void setFlag(CPropertyStore& store, const char* name, bool flag) { store.SetValue(name, flag ? 1 : 0); }

bool flagOf(CPropertyStore& store, const char* name, bool missing)
{
    int flag = missing;
    store.GetValue(name, flag);
    return flag != 0;
}

CPropertyStore storeOf(const BarRecord& bar)
{
    CPropertyStore store;
    store.SetValue("ID", bar.id);
    setFlag(store, "Visible", bar.visible);
    if (bar.floating) {
        setFlag(store, "Horizontal", bar.horizontal);
        setFlag(store, "Floating", bar.floating);
    }
    store.SetValue("Position", static_cast<POINT>(bar.position));
    store.SetValue("MRU Width", bar.mruWidth);
    if (bar.hasDocking) {
        setFlag(store, "Docking", true);
        store.SetValue("MRU Dock ID", bar.docking.dockBarId);
        store.SetValue("MRU Dock Rect", static_cast<RECT>(bar.docking.rect));
        store.SetValue("MRU Float Style", bar.docking.floatStyle);
        store.SetValue("MRU Float Pos", static_cast<POINT>(bar.docking.floatPosition));
    }
    const int count = static_cast<int>(bar.children.size());
    if (count > 1) {
        store.SetValue("Bar Count", count);
        for (int i = 0; i < count; ++i)
            store.SetValue(numbered("Bar ID %d", i), bar.children[static_cast<std::size_t>(i)]);
    }
    return store;
}

void loadDocking(CPropertyStore& store, const Scaling& scaled, BarRecord::Docking& docking)
{
    store.GetValue("MRU Dock ID", docking.dockBarId);
    RECT rect = docking.rect;
    store.GetValue("MRU Dock Rect", rect);
    docking.rect = scaled(CRect(rect));
    store.GetValue("MRU Float Style", docking.floatStyle);
    POINT floated = docking.floatPosition;
    store.GetValue("MRU Float Pos", floated);
    docking.floatPosition = scaled(CPoint(floated));
}

void loadChildren(CPropertyStore& store, std::vector<int>& children)
{
    int count = 0;
    store.GetValue("Bar Count", count);
    count = std::min(count, store.GetPropertyStoreValueCount()); // each has a value of its own
    for (int i = 0; i < count; ++i) {
        int id = 0;
        store.GetValue(numbered("Bar ID %d", i), id);
        children.push_back(id);
    }
}

bool loadBar(CPropertyStore& store, const Scaling& scaled, BarRecord& bar)
{
    if (!store.GetValue("ID", bar.id)) return false;
    bar.visible = flagOf(store, "Visible", true);
    bar.horizontal = flagOf(store, "Horizontal", true);
    bar.floating = flagOf(store, "Floating", false);
    POINT position = bar.position;
    store.GetValue("Position", position);
    bar.position = scaled(CPoint(position));
    store.GetValue("MRU Width", bar.mruWidth);
    bar.hasDocking = flagOf(store, "Docking", false);
    if (bar.hasDocking) loadDocking(store, scaled, bar.docking);
    loadChildren(store, bar.children);
    bar.isDockBar = !bar.children.empty();
    return true;
}

} // namespace

bool BarRecord::IsWorthKeeping() const
{
    return !(isDockBar && visible && !floating && position == noPosition && children.size() < 2);
}

void saveBarLayout(CPropertyStore& store, const BarLayout& layout)
{
    store.Empty();
    int count = 0;
    for (const BarRecord& bar : layout.bars)
        if (bar.IsWorthKeeping()) store.SetPropertyStore(numbered("Bar %d", count++), storeOf(bar));
    store.SetValue("Count", count);
    store.SetValue("Screen Size", static_cast<SIZE>(layout.screen));
}

bool loadBarLayout(CPropertyStore& store, CSize present, const std::function<bool(UINT)>& isKnown,
                   BarLayout& layout)
{
    int count = 0;
    SIZE screen = {};
    if (!store.GetValue("Count", count) || !store.GetValue("Screen Size", screen)) return false;
    layout = {present, {}};
    count = std::min(count, mostBars);
    int left = store.GetPropertyStoreCount();
    const Scaling scaled(screen, present);
    try {
        for (int i = 0; i < count && left > 0; ++i) {
            const CString name = numbered("Bar %d", i);
            if (!store.PropertyStoreExists(name)) continue;
            --left;
            CPropertyStore one = store.GetPropertyStore(name);
            BarRecord bar;
            if (loadBar(one, scaled, bar) && bar.id != statusBarId && isKnown(bar.id))
                layout.bars.push_back(bar);
        }
    } catch (CException* e) {
        e->Delete(); // what was read until then stands
    }
    return true;
}

} // namespace corekit::detail
