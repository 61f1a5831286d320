// What a multi-view list box knows of an item: its number, and its texts and picture once they were asked
// for.
#pragma once

#include "corekit/foundation/SafeAlloc.h"
#include "corekit/graphics/Dib.h"

#include <array>
#include <memory>

// Owned by the list, one for each entry. Not copied, because texts are owned too. User-interface thread.
struct MVLBItem {
    static constexpr int textCount = 32; // columns of data that an item may have

    // Texts are from the safe allocation functions.
    struct FreeText {
        void operator()(WCHAR* text) const { safe_free(text); }
    };

    // Nothing is known but the number, which is the owner's.
    explicit MVLBItem(int number) : id(number) {}
    // Everything but the number will be asked for anew.
    void Forget()
    {
        for (auto& text : texts) text.reset();
        picture.reset();
    }

    int id;                                                        // as the owner numbers its items
    std::array<std::unique_ptr<WCHAR, FreeText>, textCount> texts; // null until asked for
    std::unique_ptr<CDib> picture;                                 // likewise
};
