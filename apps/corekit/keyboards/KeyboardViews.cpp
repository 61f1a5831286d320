#include "KeyboardViews.h"

#include "corekit/platform/Keyboard.h"
#include "corekit/unicode/ui/keyboards/KBT_Devanagari.h"

#include <optional>
#include <utility>

namespace {

// Presses keys after one that brings the keyboard into a state.
class Prober {
public:
    Prober(CKBLayout& keyboard, std::optional<int> first) : m_typist(keyboard), m_first(first) {}

    Typist::Typed Press(const KeyStroke& stroke)
    {
        if (m_first) m_typist.Press({.key = *m_first});
        return m_typist.Press(stroke);
    }

private:
    Typist m_typist;
    std::optional<int> m_first;
};

KeyFace FaceOf(Prober& prober, int key, bool rightAlt)
{
    KeyFace face{prober.Press({.key = key, .rightAlt = rightAlt}),
                 prober.Press({.key = key, .shift = true, .rightAlt = rightAlt}),
                 prober.Press({.key = key, .shift = true, .ctrl = true, .rightAlt = rightAlt})};
    if (face.third.characters == face.shifted.characters) face.third = {};
    return face;
}

} // namespace

std::vector<KeyboardView> ViewsOf(CKBLayout& keyboard, const Board& board)
{
    struct State {
        const char* title;
        std::optional<int> first;
        bool rightAlt;
    };
    std::vector<State> states = {{"", {}, false}, {"With right Alt", {}, true}};
    if (keyboard.IsKindOf(RUNTIME_CLASS(KBT_Devanagari)))
        states = {{"At the start of a word", VK_SPACE, false}, {"After a consonant", 'K', false}};
    std::vector<KeyboardView> views;
    for (const State& state : states) {
        Prober prober(keyboard, state.first);
        KeyboardView view{state.title, {}};
        bool types = false;
        for (const Cap& cap : board.caps) {
            view.faces.push_back(cap.key == 0 ? KeyFace{} : FaceOf(prober, cap.key, state.rightAlt));
            types |= view.faces.back().plain.consumed || view.faces.back().shifted.consumed;
        }
        if (types) views.push_back(std::move(view));
    }
    return views;
}
