#include "corekit/platform/qt/text/TextClasses.h"

#include <array>
#include <QChar>

namespace corekit::detail {

namespace {

// Scripts whose letters, without marks, are drawn one after the other.
bool scriptIsSimple(char32_t c)
{
    switch (QChar::script(c)) {
    case QChar::Script_Unknown:
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Armenian:
    case QChar::Script_Hebrew:
    case QChar::Script_Georgian:
    case QChar::Script_Ethiopic:
    case QChar::Script_Cherokee:
    case QChar::Script_Runic:
    case QChar::Script_Ogham:
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
    case QChar::Script_Yi:
        return true;
    case QChar::Script_Hangul:
        return (c >= 0x3131 && c <= 0x318E) || (c >= 0xAC00 && c <= 0xD7A3);
    case QChar::Script_Arabic:
        return c >= 0xFB50 && c <= 0xFEFC;
    default:
        return false;
    }
}

std::uint8_t directionOf(char32_t c)
{
    switch (QChar::direction(c)) {
    case QChar::DirL:
        return textLeft;
    case QChar::DirR:
    case QChar::DirAL:
        return textRight;
    case QChar::DirEN:
        return textDigit;
    case QChar::DirES:
    case QChar::DirET:
    case QChar::DirCS:
    case QChar::DirWS:
    case QChar::DirON:
        return textNeutral;
    default:
        return textComplex; // Arabic digits, marks, separators, embeddings
    }
}

// Marks of the scripts above, and signs without a shape, which change no letter but their own.
bool isMarkOfSimple(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
        return (c >= 0x0300 && c <= 0x036F) || (c >= 0x0483 && c <= 0x0489) || (c >= 0x0591 && c <= 0x05C7) ||
               (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x1DC0 && c <= 0x1DFF) || (c >= 0x20D0 && c <= 0x20FF) ||
               c == 0xFB1E || (c >= 0xFE20 && c <= 0xFE2F);
    case QChar::Other_Format:
        return (c >= 0x200B && c <= 0x200D) || (c >= 0x2060 && c <= 0x2064) || c == 0xFEFF;
    default:
        return false;
    }
}

std::uint8_t classOf(char32_t c)
{
    if (isMarkOfSimple(c)) return textMark;
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return textComplex;
    default:
        break;
    }
    if (!scriptIsSimple(c) || QChar::joiningType(c) != QChar::Joining_None) return textComplex | textJoins;
    std::uint8_t classes = directionOf(c);
    if (QChar::hasMirrored(c)) classes |= textMirrored;
    if (QChar::script(c) == QChar::Script_Arabic || QChar::category(c) == QChar::Other_PrivateUse)
        classes |= textJoins;
    return classes;
}

} // namespace

const std::uint8_t* textClasses()
{
    static const auto table = [] {
        std::array<std::uint8_t, 0x10000> classes;
        for (char32_t c = 0; c < classes.size(); ++c) classes[c] = classOf(c);
        return classes;
    }();
    return table.data();
}

} // namespace corekit::detail
