// Any bytes as a script: its stories put together are its text, it is saved as it was read, and after edits
// the prompt view is laid out as the new text would be.
#include "model/PromptLayout.h"
#include "model/ScriptText.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

using namespace prompter;

namespace {

void Must(bool holds)
{
    if (!holds) std::abort();
}

class TenPixels : public TextRuler {
public:
    int Width(std::u16string_view text) override { return static_cast<int>(text.size()) * 10; }
};

struct View {
    std::vector<std::u16string> Lines(const Script& script)
    {
        TenPixels ruler;
        layout.SetForm(150, 20);
        layout.Update(script, ruler, {&held, 1});
        std::vector<std::u16string> lines;
        layout.VisitLines(0, 1e9, [&](std::u16string_view text, const PromptLine& line, double) {
            lines.emplace_back(text) += line.rightToLeft ? u'<' : u'>';
        });
        return lines;
    }
    PromptLayout layout;
    Anchor held;
};

void Edit(Script& script, View& view, const std::uint8_t* by, std::size_t count)
{
    for (std::size_t i = 0; i + 3 < std::min<std::size_t>(count, 64); i += 4) {
        const int story = by[i] % script.Count(), other = by[i + 1] % script.Count();
        std::u16string text = script.At(story).text;
        text.replace(std::min<std::size_t>(by[i + 2], text.size()), by[i + 3] & 7,
                     std::u16string(by[i + 3] >> 5, by[i] & 8 ? u'\n' : u'x'));
        script.SetStoryText(story, text);
        script.At(other).Title();
        if (by[i] & 16) script.Move(story, other);
        if (by[i] & 32) script.SetSkipped(other, (by[i] & 64) != 0);
        Must(view.Lines(script) == View().Lines(script));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr unsigned pages[] = {0, 1252, 932, 1255};
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const ScriptText read = DecodeScript(bytes, pages[data[0] % std::size(pages)]);
    if (read.isExact) Must(EncodeScript(read.text, read.form) == bytes);
    Script script;
    script.SetText(read.text);
    Must(script.Text() == read.text);
    View view;
    view.Lines(script);
    Edit(script, view, data, size);
    return 0;
}
