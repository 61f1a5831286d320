// What the rows of the window show, so that only those are painted whose picture has changed.
#pragma once

#include "corekit/unicode/ui/edit/EditModel.h"

#include <string>
#include <vector>

namespace corekit::detail {

struct RowSpan {
    int first = 0, last = 0; // behind the last

    friend bool operator==(const RowSpan&, const RowSpan&) = default;
};

class COREKIT_API ShownRows {
public:
    // The rows that differ from those of the call before, of the first `count`. A model that shows all rows
    // otherwise (scrolled across, aligned, wider, in another font) differs in all.
    RowSpan Update(EditModel& model, int count);
    void Forget() { m_rows.clear(); }

private:
    struct Row {
        std::u16string text;
        int from = 0, to = 0; // selected
        bool there = false;

        friend bool operator==(const Row&, const Row&) = default;
    };
    struct Frame {
        int width = 0, alignment = 0, offset = 0, height = 0;
        TextOrder order = TextOrder::asStored;
        bool border = false;

        friend bool operator==(const Frame&, const Frame&) = default;
    };

    std::vector<Row> m_rows;
    Frame m_frame;
    Row m_now; // scratch
};

} // namespace corekit::detail
