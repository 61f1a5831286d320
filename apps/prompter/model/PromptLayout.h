// The script as lines of a prompt view: broken to a width, story below story, with an anchor that stays on
// the line being read while the text around it changes.
//
// Texts are the stored form (corekit/unicode/storage/) of the stories; offsets count its UTF-16 units,
// heights pixels. Only lines that have changed are laid out anew. Skipped stories take no room.
#pragma once

#include "model/LineStarts.h"
#include "model/Script.h"

#include <functional>
#include <span>
#include <unordered_map>

namespace prompter {

// Measures stored text in the face of the view, in pixels. Words are measured one by one.
class TextRuler {
public:
    virtual ~TextRuler() = default;
    virtual int Width(std::u16string_view stored) = 0;
};

struct PromptLine {
    std::size_t start, length; // in the story's stored text, without the blanks at its end
    int width;
    bool rightToLeft; // as its paragraph is
};

// A place in the script that survives edits.
struct Anchor {
    std::uint64_t story = 0; // key
    std::size_t offset = 0;  // of the line's first unit in the stored text
    double below = 0;        // pixels from the line's top
};

class PromptLayout {
public:
    // Everything is laid out anew at the next Update. `lineHeight` from 1.
    void SetForm(int width, int lineHeight);
    // Brings the lines up to date. Anchors keep their places in the text; the one of a story that is gone
    // goes to the beginning of the story that stands there now.
    void Update(const Script& script, TextRuler& ruler, std::span<Anchor> held);

    double Height() const { return static_cast<double>(m_lineCount) * m_lineHeight; }
    int LineHeight() const { return m_lineHeight; }
    Anchor AnchorAt(double y) const;
    double YOf(const Anchor& anchor) const;
    double YOfStory(std::uint64_t key) const; // its first line; 0 for one that is not there
    std::uint64_t StoryAt(double y) const;    // key, 0 without a story
    // Where the cursor at this offset of the story's stored text stands.
    double YOfOffset(std::uint64_t key, std::size_t offset) const { return YOf({key, offset, 0}); }

    // Calls back for each line that shows between two heights, from the top; `y` is the line's top.
    using Visit = std::function<void(std::u16string_view text, const PromptLine& line, double y)>;
    void VisitLines(double top, double bottom, const Visit& visit) const;

private:
    struct LaidStory {
        std::uint64_t version = 0; // of the story's text
        std::u16string stored;
        LineStarts paragraphs; // of the stored text, as many as the plain one has
        std::vector<PromptLine> lines;
    };
    struct Place { // of a story in the view
        std::uint64_t key;
        const LaidStory* story;
        std::size_t firstLine; // counted through all stories
    };
    void LayOut(LaidStory& laid, TextRuler& ruler) const;
    void LayOutChange(LaidStory& laid, const Story& story, TextRuler& ruler, std::span<Anchor> held) const;
    void LayOutText(LaidStory& laid, const Story& story, TextRuler& ruler, std::span<Anchor> held) const;
    using Lines = std::vector<PromptLine>;
    void LayOutParagraphs(std::u16string_view text, std::size_t start, std::size_t end, TextRuler& ruler,
                          Lines& lines) const;
    void LayOutParagraph(std::u16string_view text, std::size_t start, std::size_t end, TextRuler& ruler,
                         Lines& lines) const;
    std::vector<std::size_t> PlaceIndexes(std::span<const Anchor> anchors) const;
    const Place* PlaceAt(std::size_t line) const;
    const Place* PlaceOf(std::uint64_t key) const;
    std::size_t LineAt(double y) const;

    int m_width = 1, m_lineHeight = 1;
    bool m_isStale = true;
    std::unordered_map<std::uint64_t, LaidStory> m_stories;
    std::vector<Place> m_places;
    std::size_t m_lineCount = 0;
};

} // namespace prompter
