// What the rows of the window show, so that only those are painted whose picture has changed.
#pragma once

#include "corekit/unicode/ui/edit/EditModel.h"

#include <string>
#include <vector>

namespace corekit::detail {

// Rows from the top of the window on; equal ends are no rows.
struct RowSpan {
    int first = 0, last = 0; // behind the last

    friend bool operator==(const RowSpan&, const RowSpan&) = default;
};

// One thread at a time.
class COREKIT_API ShownRows {
public:
    // The rows that differ from those of the call before, of the first `count`. A model that shows all rows
    // otherwise (scrolled across, aligned, wider, in another font) differs in all.
    RowSpan Update(EditModel& model, int count);
    // The next call answers all rows: after another font, say.
    void Forget() { m_rows.clear(); }

private:
    // What a row shows: the text in stored order, and what of it is selected.
    struct Row {
        std::u16string text;
        int from = 0, to = 0; // selected
        bool there = false;   // else the text ends above

        friend bool operator==(const Row&, const Row&) = default;
    };
    // What all rows have in common; a change of it changes all.
    struct Frame {
        int width = 0, alignment = 0, offset = 0, height = 0; // of the window and its lines
        TextOrder order = TextOrder::asStored;
        bool border = false;

        friend bool operator==(const Frame&, const Frame&) = default;
    };

    std::vector<Row> m_rows; // as they were shown last
    Frame m_frame;           // likewise
    Row m_now;               // scratch
};

} // namespace corekit::detail
