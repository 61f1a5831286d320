// What a multi-view list box knows of an item: its number, and its texts and picture once they were asked
// for.
#pragma once

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/graphics/Dib.h"

#include <array>
#include <memory>

struct MVLBItem {
    static constexpr int textCount = 32; // columns of data that an item may have

    struct FreeText {
        void operator()(WCHAR* text) const { safe_free(text); }
    };

    explicit MVLBItem(int number) : id(number) {}
    void Forget()
    {
        for (auto& text : texts) text.reset();
        picture.reset();
    }

    int id;
    std::array<std::unique_ptr<WCHAR, FreeText>, textCount> texts; // null until asked for
    std::unique_ptr<CDib> picture;                                 // likewise
};
