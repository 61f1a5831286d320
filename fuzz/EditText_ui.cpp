// Any text pasted into an edit control, and edits at any place: the lines are those that the text would have
// if it were new.
#include "corekit/unicode/ui/edit/EditModel.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace corekit::detail;

namespace {

void Must(bool holds)
{
    if (!holds) std::abort();
}

class UnequalLetters final : public TextRuler {
public:
    int Width(const WCHAR* text, int count) override
    {
        int width = 0;
        for (int i = 0; i < count; ++i) width += text[i] < 32 ? 0 : 3 + (text[i] & 7);
        return width;
    }
};

void SetUp(EditModel& model, int form)
{
    model.SetTextHeight(10);
    model.SetClientSize(20 + (form & 0x70), 35);
    model.SetWrapping(form & 1 ? Wrapping::off : Wrapping::on);
    model.SetAlignment(form >> 1 & 1 ? EditModel::right : EditModel::left);
    model.SetOrder(form & 4 ? TextOrder::asStored : TextOrder::bidirectional);
}

void Compare(EditModel& model, int form)
{
    UnequalLetters ruler;
    EditModel anew(ruler);
    SetUp(anew, form);
    anew.SetString(model.Text());
    DisplayLines &lines = model.ConvertDataToDisplayLines(), &wanted = anew.ConvertDataToDisplayLines();
    Must(lines.Count() == wanted.Count());
    for (int i = 0; i < lines.Count(); ++i)
        Must(lines.StartOf(i) == wanted.StartOf(i) && lines.LengthOf(i) == wanted.LengthOf(i));
    EditRow row;
    for (int i = 0; i < std::min(lines.Count(), 8); ++i) model.GetRow(i, row);
    model.UpdateCaret();
    Must(model.Cursor() >= 0); // it may stand behind the text, where it is cut
}

void Act(EditModel& model, int act, int at, const StringW& text)
{
    const HeldModifiers held{(at & 1) != 0, (at & 2) != 0};
    switch (act) {
    case 0:
        return model.PasteText(text);
    case 1:
        return model.ReplaceRange(at, at + 3, text);
    case 2:
        return model.DoBackspace();
    case 3:
        return model.DoDelete();
    case 4:
        return model.Select(at, at / 2);
    case 5:
        return model.UndoChanges();
    case 6:
        return model.OnHardReturn();
    case 7:
        return model.DragTo(CPoint(at - 20, at / 3));
    case 8:
        return model.PressAt(CPoint(at, at / 4));
    case 9:
        return model.MoveCursorLeft(held);
    case 10:
        return model.MoveCursorRight(held);
    case 11:
        return static_cast<void>(model.DoCursorDown(held));
    case 12:
        return model.SelectWord();
    case 13:
        return model.ScrollTo(at);
    case 14:
        return model.DoCursorEnd(held);
    default:
        return model.OnChar(static_cast<WORD>(at));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t acts = 32;
    if (size < 1 + acts) return 0;
    StringW text;
    const std::size_t units = (size - 1 - acts) / sizeof(WCHAR);
    if (units)
        std::memcpy(text.GetBufferSetLength(static_cast<int>(units)), data + 1 + acts, units * sizeof(WCHAR));
    UnequalLetters ruler;
    EditModel model(ruler);
    SetUp(model, data[0]);
    model.PasteText(text);
    const StringW some = text.Left(20);
    for (std::size_t i = 1; i <= acts; i += 2) {
        Act(model, data[i] & 15, data[i + 1], some);
        if (data[i] & 16)
            model.UpdateCaret(); // makes as many lines as it takes
        else
            Compare(model, data[0]);
    }
    Compare(model, data[0]);
    return 0;
}
