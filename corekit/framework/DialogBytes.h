// The binary form of a dialog template, as modules of other makes carry it: both the plain and the extended
// one.
#pragma once

#include "corekit/platform/DialogTemplate.h"
#include "corekit/platform/Export.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace corekit::detail {

// Owns the texts that its template points to.
class COREKIT_API DialogBytes {
public:
    // Null if the bytes end early, name no class for a control, or are no template. The font of the template
    // is passed over, as dialogs are drawn in the toolkit's.
    static std::shared_ptr<const DialogBytes> read(std::span<const std::byte> bytes, UINT id);

    const DialogTemplate& dialog() const { return m_dialog; }

private:
    friend class DialogBytesReader;

    std::deque<std::string> m_texts;
    std::vector<DialogItem> m_items;
    DialogTemplate m_dialog{};
};

} // namespace corekit::detail
