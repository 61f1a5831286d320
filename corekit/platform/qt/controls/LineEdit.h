// The toolkit's line of text under the rules of an edit control's styles.
#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <QValidator>

#include <cstdint>

namespace corekit::detail {

struct EntryRules {
    bool digitsOnly = false, upperCase = false, lowerCase = false;

    // What goes in of a text: folded, and nothing if it breaks a rule.
    QString admitted(const QString& text) const;
};

class LineFace final : public QLineEdit {
public:
    explicit LineFace(QWidget* parent);

    void setRules(const EntryRules& rules);
    void setLimit(int units); // of what the user enters
    int limit() const { return m_limit; }
    // As a program sets it: whole, without rules, and nothing to undo.
    void setWholeText(const QString& text);
    void replaceSelection(const QString& text); // by a program, too
    // As the user enters it.
    void enter(const QString& text);
    void pasteFrom(QClipboard::Mode mode);
    void forgetUndo();
    QRect placeOf(int position);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    class Validator;
    void setAgain(int greatest);
    void endStep();

    int m_limit;
    Validator* m_validator;
};

// EM_GETSEL and EM_SETSEL of a line.
std::intptr_t lineSelection(const QLineEdit& line, std::uintptr_t start, std::intptr_t end);
void selectInLine(QLineEdit& line, int start, int end);

// One character that came by key press or input method; Backspace, Enter and their like come as keys.
bool isEntry(char16_t character);

} // namespace corekit::detail
