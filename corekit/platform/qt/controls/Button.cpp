#include "corekit/platform/Buttons.h"

#include "corekit/platform/qt/controls/ButtonFaces.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/Picture.h"
#include "corekit/platform/Statics.h"

#include <QIcon>
#include <QPixmap>

namespace corekit::detail {

namespace {

enum class Family { push, check, radio };

Family familyOf(DWORD style)
{
    switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return Family::check;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return Family::radio;
    default:
        return Family::push;
    }
}

int alignmentOf(DWORD style)
{
    int alignment = 0;
    switch (style & BS_CENTER) {
    case BS_LEFT:
        alignment |= Qt::AlignLeft;
        break;
    case BS_RIGHT:
        alignment |= Qt::AlignRight;
        break;
    case BS_CENTER:
        alignment |= Qt::AlignHCenter;
        break;
    default:
        break;
    }
    switch (style & BS_VCENTER) {
    case BS_TOP:
        return alignment | Qt::AlignTop;
    case BS_BOTTOM:
        return alignment | Qt::AlignBottom;
    case BS_VCENTER:
        return alignment | Qt::AlignVCenter;
    default:
        return alignment;
    }
}

QAbstractButton* makeFace(DWORD style, QWidget* parent)
{
    if (style & BS_PUSHLIKE || familyOf(style) == Family::push) return new PushFace(parent);
    if (familyOf(style) == Family::check) return new CheckFace(parent);
    return new RadioFace(parent);
}

class Button final : public Control {
public:
    Button(DWORD style, QWidget* parent) : Control(makeFace(style, parent))
    {
        QObject::connect(face(), &QAbstractButton::clicked, life(), [this] { clicked(); });
    }
    ~Button() override
    {
        if (auto* const push = dynamic_cast<PushFace*>(face())) push->draw = [](QPainter&) {};
    }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD style, DWORD exStyle) override
    {
        Control::styleChanged(style, exStyle);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_text; }
    void setText(const QString& text) override;

protected:
    UINT dialogCode() const override;
    LRESULT input(UINT message, WPARAM wParam, LPARAM lParam) override;
    void focusChanged(bool gained) override
    {
        if (style() & BS_NOTIFY) tell(gained ? BN_SETFOCUS : BN_KILLFOCUS);
    }

private:
    QAbstractButton* face() const { return as<QAbstractButton>(); }
    DWORD kind() const { return style() & BS_TYPEMASK; }
    bool hasThreeStates() const { return kind() == BS_3STATE || kind() == BS_AUTO3STATE; }
    void followStyle();
    void describeText(ButtonText& how) const;
    void draw(QPainter& painter);
    void clicked();
    void setCheck(UINT state);
    void clearGroup();
    LRESULT setPicture(UINT type, HANDLE handle);

    QString m_text;
    UINT m_check = BST_UNCHECKED;
    HANDLE m_picture = nullptr;
};

void Button::describeText(ButtonText& how) const
{
    how.wraps = style() & BS_MULTILINE;
    how.alignment = alignmentOf(style());
}

void Button::followStyle()
{
    if (!face()) return;
    if (auto* const push = dynamic_cast<PushFace*>(face())) {
        describeText(push->how);
        push->setDefault(kind() == BS_DEFPUSHBUTTON);
        push->setFlat(style() & BS_FLAT);
        push->draw = nullptr;
        if (kind() == BS_OWNERDRAW) push->draw = [this](QPainter& painter) { draw(painter); };
    } else if (auto* const check = dynamic_cast<CheckFace*>(face())) {
        describeText(check->how);
        check->setTristate(hasThreeStates());
    } else if (auto* const radio = dynamic_cast<RadioFace*>(face())) {
        describeText(radio->how);
    }
    face()->setCheckable(familyOf(style()) != Family::push);
    const bool mirrored = style() & BS_LEFTTEXT && familyOf(style()) != Family::push;
    const QWidget* const above = face()->parentWidget();
    if (mirrored)
        face()->setLayoutDirection(above && above->isRightToLeft() ? Qt::LeftToRight : Qt::RightToLeft);
    else
        face()->unsetLayoutDirection();
    face()->update();
}

void Button::setText(const QString& text)
{
    m_text = text;
    if (!face()) return;
    face()->setText(text);
    face()->setShortcut({}); // mnemonics go by the messages of the dialog
}

UINT Button::dialogCode() const
{
    switch (kind()) {
    case BS_DEFPUSHBUTTON:
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_PUSHBUTTON:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
    default:
        return DLGC_BUTTON;
    }
}

LRESULT Button::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    switch (message) {
    case BM_GETCHECK:
        return m_check;
    case BM_SETCHECK:
        setCheck(static_cast<UINT>(wParam));
        return 0;
    case BM_GETSTATE:
        return m_check | (face()->isDown() ? BST_PUSHED : 0) | (face()->hasFocus() ? BST_FOCUS : 0);
    case BM_SETSTATE:
        face()->setDown(wParam != 0);
        return 0;
    case BM_SETSTYLE:
        if (familyOf(static_cast<DWORD>(wParam)) == familyOf(style()))
            SetWindowLongPtrA(handle(), GWL_STYLE,
                              (style() & 0xFFFF0000) | static_cast<DWORD>(LOWORD(wParam)));
        return 0;
    case BM_CLICK:
        face()->click();
        return 0;
    case BM_GETIMAGE:
        return m_picture && (style() & BS_ICON ? IMAGE_ICON : IMAGE_BITMAP) == wParam
                   ? reinterpret_cast<LRESULT>(m_picture)
                   : 0;
    case BM_SETIMAGE:
        return setPicture(static_cast<UINT>(wParam), reinterpret_cast<HANDLE>(lParam));
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

LRESULT Button::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool tellsDouble =
        style() & BS_NOTIFY || familyOf(style()) == Family::radio || kind() == BS_OWNERDRAW;
    if (message == WM_LBUTTONDBLCLK && tellsDouble) {
        tell(BN_DOUBLECLICKED);
        return 0;
    }
    return Control::input(message, wParam, lParam);
}

void Button::clicked()
{
    const auto self = share(handle());
    switch (kind()) {
    case BS_AUTOCHECKBOX:
        setCheck(m_check == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
        break;
    case BS_AUTO3STATE:
        setCheck((m_check + 1) % 3);
        break;
    case BS_AUTORADIOBUTTON:
        setCheck(BST_CHECKED);
        clearGroup();
        break;
    default:
        break;
    }
    tell(BN_CLICKED);
}

void Button::setCheck(UINT state)
{
    if (familyOf(style()) == Family::push) return;
    m_check = std::min(state, hasThreeStates() ? BST_INDETERMINATE : BST_CHECKED);
    if (auto* const check = dynamic_cast<CheckFace*>(face()))
        check->setCheckState(m_check == BST_INDETERMINATE ? Qt::PartiallyChecked
                             : m_check == BST_CHECKED     ? Qt::Checked
                                                          : Qt::Unchecked);
    else
        face()->setChecked(m_check != BST_UNCHECKED);
}

void Button::clearGroup()
{
    const auto inGroup = [](HWND other) {
        return other && !(GetWindowLongPtrA(other, GWL_STYLE) & WS_GROUP);
    };
    const auto clear = [](HWND other) {
        auto* const button = dynamic_cast<Button*>(find(other));
        if (button && button->kind() == BS_AUTORADIOBUTTON) button->setCheck(BST_UNCHECKED);
    };
    for (HWND next = GetWindow(handle(), GW_HWNDNEXT); inGroup(next); next = GetWindow(next, GW_HWNDNEXT))
        clear(next);
    if (style() & WS_GROUP) return;
    for (HWND before = GetWindow(handle(), GW_HWNDPREV); before; before = GetWindow(before, GW_HWNDPREV)) {
        clear(before);
        if (!inGroup(before)) return;
    }
}

LRESULT Button::setPicture(UINT type, HANDLE handle)
{
    if (!(style() & (type == IMAGE_ICON ? BS_ICON : BS_BITMAP))) return 0;
    const HANDLE former = std::exchange(m_picture, handle);
    const QImage picture = pictureOf(type, handle);
    face()->setIcon(picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture)));
    if (!picture.isNull()) face()->setIconSize(pictureSize(type, handle));
    // Seen is the picture, read out the text.
    face()->setText(picture.isNull() ? m_text : QString());
    face()->setAccessibleName(picture.isNull() ? QString() : withoutMnemonic(m_text));
    return reinterpret_cast<LRESULT>(former);
}

void Button::draw(QPainter& painter)
{
    DRAWITEMSTRUCT parts{};
    parts.CtlType = ODT_BUTTON;
    parts.itemAction = ODA_DRAWENTIRE;
    if (face()->isDown()) parts.itemState |= ODS_SELECTED;
    if (face()->hasFocus()) parts.itemState |= ODS_FOCUS;
    if (!face()->isEnabled()) parts.itemState |= ODS_DISABLED;
    sendDrawItem(*this, painter, face()->rect(), parts);
}

class GroupBox final : public Control {
public:
    explicit GroupBox(QWidget* parent) : Control(new QGroupBox(parent))
    {
        widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
        widget()->setFocusPolicy(Qt::NoFocus);
    }
    QString text() const override { return m_text; }
    void setText(const QString& text) override
    {
        m_text = text;
        if (widget()) as<QGroupBox>()->setTitle(text);
    }

protected:
    UINT dialogCode() const override { return DLGC_STATIC; }

private:
    QString m_text;
};

} // namespace

std::unique_ptr<Window> makeButton(const CREATESTRUCTA& create, QWidget* parent)
{
    const auto style = static_cast<DWORD>(create.style);
    if ((style & BS_TYPEMASK) == BS_GROUPBOX) return std::make_unique<GroupBox>(parent);
    return std::make_unique<Button>(style, parent);
}

} // namespace corekit::detail
