// What another program of an X display offers, on its clipboard or in a drag.
#pragma once

#include "corekit/platform/qt/windows/SelectionReader.h"

#include <QMimeData>

namespace corekit::detail {

bool isHeldByAnotherProgram(const char* selection);

// Each kind of data is fetched as it is asked for, once; it is not there if the program does not give it
// (SelectionReader.h has the limits).
class OfferedMedia final : public QMimeData {
public:
    OfferedMedia(xcb_atom_t selection, std::vector<xcb_atom_t> targets);

    void askAtTime(xcb_timestamp_t time) { m_time = time; }
    bool hasFormat(const QString& media) const override;

protected:
    QVariant retrieveData(const QString& media, QMetaType type) const override;

private:
    bool isOffered(const std::string& name) const;
    QVariant bytes(const std::string& name) const;
    QVariant textGiven() const;

    xcb_atom_t m_selection;
    std::vector<xcb_atom_t> m_targets;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    mutable std::map<QString, QVariant> m_fetched; // invalid: asked for in vain
};

} // namespace corekit::detail
