// What stands behind a list of pictures.
#pragma once

#include "corekit/platform/ImageLists.h"
#include "corekit/platform/posix/user/UserObjects.h"

#include <QIcon>
#include <QImage>

#include <vector>

namespace corekit::detail {

struct ImageList {
    int width = 0, height = 0;
    COLORREF background = CLR_NONE;
    std::vector<QImage> pictures; // of that size, with alpha

    bool has(int index) const { return index >= 0 && static_cast<std::size_t>(index) < pictures.size(); }
};

using ImageLists = UserTable<HIMAGELIST, ImageList, HandleKind::imageList>;
using ImageListUser = ImageLists::User;

// Null where there is no such picture.
QIcon iconFrom(HIMAGELIST handle, int index);
QSize iconSizeOf(HIMAGELIST handle);

} // namespace corekit::detail
