#include "EditScript.h"

#include "corekit/unicode/ui/edit/EditModel.h"

#include <algorithm>
#include <memory>
#include <random>

namespace {

using namespace corekit::detail;
using namespace editscript;

constexpr int pitch = 10, lineHeight = 20;

struct FixedRuler final : TextRuler {
    int Width(const WCHAR*, int count) override { return count * pitch; }
};

class NumbersEditor final : public Editor {
public:
    explicit NumbersEditor(const Row& row) : m_rightToLeftKeys(row.setup.rightToLeftKeys)
    {
        const Setup& s = row.setup;
        m_model.SetClientSize(s.columns * pitch + 5 + 18 + pitch / 2, s.rows * lineHeight + 4);
        m_model.SetTextHeight(lineHeight);
        m_model.SetWrapping(s.wrap ? Wrapping::on : Wrapping::off);
        m_model.SetAlignment(s.alignment);
        m_model.SetOrder(s.bidi ? TextOrder::bidirectional : TextOrder::asStored);
        m_model.SetMakeUpper(s.upper);
        m_model.SetLimit(s.limit);
        m_model.SetString(row.text.c_str());
        m_model.UpdateCaret();
    }
    const EditModel& Model() const override { return m_model; }

    void Key(const std::string& name, Held held) override
    {
        const HeldModifiers with{held.shift, held.control};
        if (name == "Left" || name == "Right")
            (name == "Left") != m_rightToLeftKeys ? m_model.MoveCursorLeft(with)
                                                  : m_model.MoveCursorRight(with);
        else if (name == "Home")
            m_model.DoCursorHome(with);
        else if (name == "End")
            m_model.DoCursorEnd(with);
        else if (name == "Up")
            Tell(!m_model.DoCursorUp(with), "up");
        else if (name == "Down")
            Tell(!m_model.DoCursorDown(with), "down");
        else if (name == "Back")
            held.alt ? m_model.UndoChanges() : m_model.DoBackspace();
        else if (name == "Delete")
            held.shift ? Cut() : m_model.DoDelete();
        else if (name == "X")
            Cut();
        else if (name == "C" || (name == "Insert" && held.control))
            m_model.GetSelectedText(m_clip);
        else if (name == "V" || name == "Insert")
            Paste(static_cast<const WCHAR*>(m_clip));
        else if (name == "A")
            m_model.SelectAll();
        else if (name == "Z")
            m_model.UndoChanges();
        else if (name == "Return" && held.shift)
            m_model.OnSoftReturn();
        else if (name == "Return" && held.control)
            m_model.OnHardReturn();
        else if (name == "Return")
            Tell(true, "return");
        else if (name == "Escape")
            Tell(true, "escape");
        else if (name == "Tab")
            Tell(true, held.shift ? "tab1" : "tab0");
        else if (name == "Other")
            DropSelection();
        m_model.UpdateCaret();
    }
    void Type(const std::u16string& text) override
    {
        for (const char16_t c : text) {
            DropSelection();
            m_model.OnChar(c);
            m_model.UpdateCaret();
        }
    }
    void Paste(const std::u16string& text) override
    {
        if (!text.empty()) m_model.PasteText(text.c_str());
        m_model.UpdateCaret();
    }
    void Click(char from, int halves, int row, int times) override
    {
        m_model.PressAt(Point(from, halves, row));
        if (times == 2) m_model.SelectWord();
        m_model.UpdateCaret();
    }
    void Drag(char from, int halves, int row) override { m_model.DragTo(Point(from, halves, row)); }
    void Scroll(const std::string& how) override
    {
        const int top = m_model.TopLine(), last = m_model.ConvertDataToDisplayLines().Count() - 1;
        m_model.ScrollTo(how == "lu"       ? top - 1
                         : how == "ld"     ? top + 1
                         : how == "pu"     ? top - 2
                         : how == "pd"     ? top + 2
                         : how == "top"    ? 0
                         : how == "bottom" ? last
                                           : top);
    }
    void Do(const std::string& what, const std::u16string& text) override
    {
        if (what == "replace")
            m_model.ReplaceSel(text.c_str());
        else if (what == "set")
            m_model.SetString(text.c_str());
        else if (what == "upper")
            m_model.SetMakeUpper(true);
        else if (what == "limit")
            m_model.SetLimit(std::stoi(std::string(text.begin(), text.end())));
        m_model.UpdateCaret();
    }

private:
    void Tell(bool on, const char* what)
    {
        if (on) received += (received.empty() ? "" : " ") + std::string(what);
    }
    void DropSelection()
    {
        if (m_model.HasSelection()) m_model.DoDelete();
    }
    void Cut()
    {
        if (m_model.GetSelectedText(m_clip)) m_model.DoDelete();
    }
    CPoint Point(char from, int halves, int row) const
    {
        const int width = m_model.ClientWidth(), x = halves * (pitch / 2);
        return {from == 'l'   ? 4 + x
                : from == 'c' ? width / 2 + x
                              : width - 8 - x,
                row * lineHeight + lineHeight / 2};
    }

    FixedRuler m_ruler;
    EditModel m_model{m_ruler};
    StringW m_clip;
    bool m_rightToLeftKeys;
};

TEST(EditModel, ActionsChangeTextCursorSelectionAndCaretAsTheTableSays)
{
    for (const Row& row : Rows()) {
        SCOPED_TRACE("edit_actions.tsv:" + std::to_string(row.number));
        NumbersEditor editor(row);
        Expect(row, editor, Measures::ofTheTable);
    }
}

// Beside a model that keeps whole texts.
TEST(EditModel, UndoAndTheChangesToldAreThoseOfTheWholeText)
{
    FixedRuler ruler;
    EditModel model(ruler);
    model.SetClientSize(10 * pitch, 10 * lineHeight);
    std::mt19937 random(7);
    std::u16string text, undo, told;
    const auto below = [&](std::size_t n) { return static_cast<int>(random() % (n + 1)); };
    const auto now = [&] { return std::u16string(static_cast<const WCHAR*>(model.Text())); };
    for (int i = 0; i < 3000; ++i) {
        const std::u16string before = now();
        const int from = below(before.size()),
                  to = std::min(from + below(6), static_cast<int>(before.size()));
        const std::u16string added(static_cast<std::size_t>(below(4)), static_cast<char16_t>(u'a' + i % 26));
        const auto put = [&] {
            return before.substr(0, static_cast<std::size_t>(from)) + added +
                   before.substr(static_cast<std::size_t>(to));
        };
        switch (below(7)) {
        case 0:
            std::swap(text, undo);
            model.UndoChanges();
            break;
        case 1:
            undo = before;
            model.CommitToUndoBuffer();
            break;
        case 2:
            undo = before;
            text = put();
            model.ReplaceRange(from, to, added.c_str());
            break;
        case 3:
            text = i % 100 < 5 ? added : before;
            if (text != before) model.SetString(text.c_str());
            break;
        default:
            text = put();
            model.Respell(from, to, added, from);
        }
        ASSERT_EQ(now(), text) << i;
        TextChange change;
        if (i % 3 == 0 && model.TakeChange(change)) {
            told.replace(
                static_cast<std::size_t>(change.from), static_cast<std::size_t>(change.removed),
                text.substr(static_cast<std::size_t>(change.from), static_cast<std::size_t>(change.added)));
            EXPECT_FALSE(model.TakeChange(change));
        }
        if (i % 3 == 0) {
            ASSERT_EQ(told, text) << i;
        }
    }
}

} // namespace
