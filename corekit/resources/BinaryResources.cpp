#include "corekit/resources/BinaryResources.h"

#include "corekit/resources/cursors/Copy.h"
#include "corekit/resources/cursors/CopyBetween.h"
#include "corekit/resources/cursors/DropRefused.h"
#include "corekit/resources/cursors/Move.h"
#include "corekit/resources/cursors/MoveBetween.h"
#include "corekit/resources/cursors/NoDrop.h"
#include "corekit/resources/cursors/Split.h"
#include "corekit/resources/EditKeys.h"
#include "corekit/resources/icons/TurningDots.h"
#include "corekit/resources/TabKeys.h"

namespace corekit::detail {

namespace {

BinaryResource cursor(const char* name, std::string_view xpm)
{
    return {"#1", name, std::as_bytes(std::span(xpm))};
}

BinaryResource turning(const char* name, int step)
{
    return {"#3", name, std::as_bytes(std::span(turningIcon(step)))};
}

} // namespace

std::span<const BinaryResource> binaryResources()
{
    static const BinaryResource resources[] = {
        {"#9", "#4001", tabKeyTable},
        {"#9", "#4002", editKeyTable},
        cursor("#1042", splitCursor),
        cursor("#4006", noDropCursor),
        cursor("#4011", dropRefusedCursor),
        cursor("#4012", movingCursor),
        cursor("#4013", movingBetweenCursor),
        cursor("#4014", copyingCursor),
        cursor("#4015", copyingBetweenCursor),
        cursor("#4007", movingBetweenCursor),
        cursor("#4008", movingCursor),
        cursor("#4009", copyingCursor),
        cursor("#4010", copyingBetweenCursor),
        turning("#4021", 0),
        turning("#4022", 1),
        turning("#4023", 2),
        turning("#4024", 3),
        turning("#4025", 4),
        turning("#4026", 5),
        turning("#4027", 6),
        turning("#4028", 7),
        turning("#4029", 8),
        turning("#4030", 9),
        turning("#4031", 10),
        turning("#4032", 11),
    };
    return resources;
}

} // namespace corekit::detail
