// The system's cursors and the shapes that the toolkit draws for them.
#include "corekit/platform/qt/drawing/CursorShapes.h"

namespace corekit::detail {

namespace {

struct Shape {
    WORD number;
    Qt::CursorShape shape;
};

constexpr Shape shapes[] = {
    {32512, Qt::ArrowCursor},        // IDC_ARROW
    {32513, Qt::IBeamCursor},        // IDC_IBEAM
    {32514, Qt::WaitCursor},         // IDC_WAIT
    {32515, Qt::CrossCursor},        // IDC_CROSS
    {32516, Qt::UpArrowCursor},      // IDC_UPARROW
    {32642, Qt::SizeFDiagCursor},    // IDC_SIZENWSE
    {32643, Qt::SizeBDiagCursor},    // IDC_SIZENESW
    {32644, Qt::SizeHorCursor},      // IDC_SIZEWE
    {32645, Qt::SizeVerCursor},      // IDC_SIZENS
    {32646, Qt::SizeAllCursor},      // IDC_SIZEALL
    {32648, Qt::ForbiddenCursor},    // IDC_NO
    {32649, Qt::PointingHandCursor}, // IDC_HAND
    {32650, Qt::BusyCursor},         // IDC_APPSTARTING
    {32651, Qt::WhatsThisCursor},    // IDC_HELP
};

} // namespace

std::optional<Qt::CursorShape> shapeOfNumber(WORD number)
{
    for (const Shape& known : shapes)
        if (known.number == number) return known.shape;
    return std::nullopt;
}

} // namespace corekit::detail
