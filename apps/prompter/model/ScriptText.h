// The text of a script file and how the file writes it: bytes to UTF-16 and back without a loss.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace prompter {

enum class Encoding { utf8, utf8WithMark, utf16Little, utf16Big, codePage };

struct TextForm {
    Encoding encoding = Encoding::utf8;
    unsigned codePage = 0;        // of Encoding::codePage
    bool carriageReturns = false; // lines end with CR LF, every one of them
};

struct ScriptText {
    std::u16string text; // lines end with LF; a CR that stands elsewhere, or in some lines only, is kept
    TextForm form;
    // Writing the text in this form gives the bytes that were read. Where it does not, the file has bytes
    // that stand for nothing (U+FFFD here), and a save would change lines that nobody edited.
    bool isExact = true;
};

// A byte order mark decides; without one the bytes are UTF-8 unless `codePage` names another page.
ScriptText DecodeScript(std::string_view bytes, unsigned codePage = 0);

// Nothing if the form cannot hold a character of the text: 8-bit pages hold few. The text is never changed to
// fit.
std::optional<std::string> EncodeScript(std::u16string_view text, const TextForm& form);

} // namespace prompter
