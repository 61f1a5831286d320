#include "corekit/platform/StatusBars.h"

#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/OwnerDraw.h"
#include "corekit/platform/qt/controls/Picture.h"
#include "corekit/platform/Statics.h"

#include <QLabel>
#include <QStatusBar>

#include <algorithm>
#include <array>
#include <functional>

namespace corekit::detail {

namespace {

constexpr int gap = 2; // between parts

// A part, which reads out its text.
class PartFace final : public QLabel {
public:
    explicit PartFace(QWidget* parent) : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    std::function<void(QPainter&)> draw;
    QImage icon;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QFrame::paintEvent(event);
        QPainter painter(this);
        const QRect inside = contentsRect();
        if (draw) return draw(painter);
        painter.setClipRect(inside);
        QRect rest = inside.adjusted(gap, 0, -gap, 0);
        if (!icon.isNull()) {
            const QSize size = icon.deviceIndependentSize().toSize();
            painter.drawImage(QRect({rest.left(), inside.center().y() - size.height() / 2}, size), icon);
            rest.setLeft(rest.left() + size.width() + gap);
        }
        // Behind one tab text is centred, behind two it stands at the right.
        constexpr Qt::Alignment places[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
        const QStringList pieces = text().split(u'\t');
        for (qsizetype i = 0; i < std::min<qsizetype>(pieces.size(), 3); ++i)
            style()->drawItemText(&painter, rest, static_cast<int>(places[i] | Qt::AlignVCenter), palette(),
                                  isEnabled(), pieces[i], QPalette::WindowText);
    }
};

class StatusBar final : public Control {
public:
    explicit StatusBar(QWidget* parent) : Control(new QStatusBar(parent))
    {
        widget()->setAutoFillBackground(true); // the window behind it may have another colour
        setParts(1, nullptr);
        m_simple = makePart();
        m_simple.face->hide();
    }
    ~StatusBar() override
    {
        if (widget())
            for (Part& part : m_parts) part.face->draw = nullptr;
    }
    void begin(const CREATESTRUCTA&) override { face()->setSizeGripEnabled(style() & SBARS_SIZEGRIP); }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT look(UINT message, WPARAM wParam, LPARAM lParam);
    QString text() const override { return m_parts.empty() ? QString() : m_parts[0].text; }
    void setText(const QString& text) override
    {
        if (face()) setPartText(0, 0, text);
    }

private:
    struct Part {
        PartFace* face = nullptr; // the bar's child
        int right = -1;
        QString text, tip;
        WPARAM how = 0;
        LPARAM data = 0;
        HICON icon = nullptr;
    };

    QStatusBar* face() const { return as<QStatusBar>(); }
    Part makePart() const
    {
        Part part;
        part.face = new PartFace(face());
        part.face->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        part.face->show();
        return part;
    }
    Part* at(WPARAM index) { return (index & 0xFF) < m_parts.size() ? &m_parts[index & 0xFF] : nullptr; }
    Part* orSimple(WPARAM index) { return (index & 0xFF) == SB_SIMPLEID ? &m_simple : at(index); }
    LRESULT setParts(int count, const int* rights);
    LRESULT setPartText(WPARAM index, WPARAM how, const QString& text);
    LRESULT texts(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT signs(UINT message, WPARAM wParam, LPARAM lParam);
    void layParts();
    QRect placeOf(std::size_t index) const;
    int height() const { return std::max(face()->fontMetrics().height() + 6, m_least + 2 * gap); }
    void placeBar();
    void drawPart(QPainter& painter, std::size_t index);

    std::vector<Part> m_parts;
    Part m_simple;
    bool m_isSimple = false;
    int m_least = 0;
};

LRESULT StatusBar::setParts(int count, const int* rights)
{
    if (count < 1 || count > maximumStatusBarParts) return 0;
    const auto wanted = static_cast<std::size_t>(count);
    while (m_parts.size() > wanted) {
        delete m_parts.back().face;
        m_parts.pop_back();
    }
    while (m_parts.size() < wanted) m_parts.push_back(makePart());
    for (std::size_t i = 0; rights && i < wanted; ++i) m_parts[i].right = rights[i];
    layParts();
    return 1;
}

QRect StatusBar::placeOf(std::size_t index) const
{
    const int grip = face()->isSizeGripEnabled() ? 16 : 0;
    const auto edge = [&](int right) { return right < 0 ? face()->width() - grip : right; };
    const int left = index == 0 ? 0 : edge(m_parts[index - 1].right) + gap;
    return {left, gap, std::max(0, edge(m_parts[index].right) - left), std::max(0, face()->height() - gap)};
}

void StatusBar::layParts()
{
    if (!face()) return;
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_parts[i].face->setGeometry(placeOf(i));
        m_parts[i].face->setVisible(!m_isSimple);
    }
    if (!m_simple.face) return;
    m_simple.face->setGeometry(face()->rect().adjusted(0, gap, 0, 0));
    m_simple.face->setVisible(m_isSimple);
}

void StatusBar::placeBar()
{
    RECT around;
    if (style() & CCS_NOPARENTALIGN || !GetClientRect(parent(), &around)) return layParts();
    const int top = (style() & CCS_BOTTOM) == CCS_TOP ? 0 : around.bottom - height();
    SetWindowPos(handle(), nullptr, 0, top, around.right, height(), SWP_NOZORDER | SWP_NOACTIVATE);
    if (isAlive()) layParts();
}

LRESULT StatusBar::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    switch (message) {
    case WM_CREATE:
    case WM_SIZE: {
        const auto self = share(handle());
        const LRESULT answer = Control::defaultProcedure(message, wParam, lParam);
        if (isAlive()) placeBar();
        return answer;
    }
    case SB_SETPARTS:
        return setParts(static_cast<int>(wParam), reinterpret_cast<const int*>(lParam));
    case SB_GETPARTS: {
        auto* const rights = reinterpret_cast<int*>(lParam);
        for (std::size_t i = 0; rights && i < std::min<std::size_t>(wParam, m_parts.size()); ++i)
            rights[i] = m_parts[i].right;
        return static_cast<LRESULT>(m_parts.size());
    }
    case SB_GETRECT:
        if (!at(wParam) || wParam > 0xFF || !lParam) return 0;
        *reinterpret_cast<RECT*>(lParam) = documentedRect(placeOf(wParam));
        return 1;
    case SB_GETBORDERS:
        if (!lParam) return 0;
        std::ranges::copy(std::array{0, gap, gap}, reinterpret_cast<int*>(lParam));
        return 1;
    default:
        return look(message, wParam, lParam);
    }
}

LRESULT StatusBar::look(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case SB_SETMINHEIGHT:
        m_least = static_cast<int>(std::min<WPARAM>(wParam, 0x7FFF));
        placeBar();
        return 0;
    case SB_SIMPLE:
        m_isSimple = wParam != 0;
        layParts();
        return 1;
    case SB_ISSIMPLE:
        return m_isSimple;
    default:
        return texts(message, wParam, lParam);
    }
}

LRESULT StatusBar::setPartText(WPARAM index, WPARAM how, const QString& text)
{
    Part* const part = orSimple(index);
    if (!part) return 0;
    part->text = text;
    part->how = how;
    part->face->setText(text);
    part->face->draw = nullptr;
    part->face->setFrameStyle(how & SBT_NOBORDERS ? QFrame::NoFrame
                              : how & SBT_POPOUT  ? QFrame::Panel | QFrame::Raised
                                                  : QFrame::Panel | QFrame::Sunken);
    part->face->update();
    return 1;
}

LRESULT StatusBar::texts(UINT message, WPARAM wParam, LPARAM lParam)
{
    Part* const part = orSimple(wParam);
    const WPARAM how = wParam & 0xFF00;
    switch (message) {
    case SB_SETTEXTA: {
        if (!(how & SBT_OWNERDRAW))
            return setPartText(wParam, how, textFrom(reinterpret_cast<const char*>(lParam)));
        if (!part || !setPartText(wParam, how, {})) return 0;
        part->data = lParam;
        part->face->draw = [this, index = wParam & 0xFF](QPainter& painter) { drawPart(painter, index); };
        return 1;
    }
    case SB_SETTEXTW:
        return setPartText(wParam, how, textFrom(reinterpret_cast<const WCHAR*>(lParam)));
    case SB_GETTEXTA:
        return part ? MAKELONG(static_cast<WORD>(copyWholeText(part->text, reinterpret_cast<char*>(lParam))),
                               static_cast<WORD>(part->how))
                    : 0;
    case SB_GETTEXTW: {
        if (!part) return 0;
        const int length =
            copyText(part->text, reinterpret_cast<WCHAR*>(lParam), static_cast<int>(part->text.size()) + 1);
        return MAKELONG(static_cast<WORD>(length), static_cast<WORD>(part->how));
    }
    case SB_GETTEXTLENGTHA:
        return part ? MAKELONG(static_cast<WORD>(toNarrow(part->text).size()), static_cast<WORD>(part->how))
                    : 0;
    case SB_GETTEXTLENGTHW:
        return part ? MAKELONG(static_cast<WORD>(part->text.size()), static_cast<WORD>(part->how)) : 0;
    default:
        return signs(message, wParam, lParam);
    }
}

// Icons and tips of the parts.
LRESULT StatusBar::signs(UINT message, WPARAM wParam, LPARAM lParam)
{
    Part* const part = orSimple(wParam);
    switch (message) {
    case SB_SETICON:
        if (!part) return 0;
        part->icon = reinterpret_cast<HICON>(lParam);
        part->face->icon = pictureOf(IMAGE_ICON, part->icon);
        part->face->update();
        return 1;
    case SB_GETICON:
        return part ? reinterpret_cast<LRESULT>(part->icon) : 0;
    case SB_SETTIPTEXTA:
        if (!part) return 0;
        part->tip = textFrom(reinterpret_cast<const char*>(lParam));
        part->face->setToolTip(part->tip.toHtmlEscaped());
        part->face->setAttribute(Qt::WA_TransparentForMouseEvents, part->tip.isEmpty());
        return 0;
    case SB_GETTIPTEXTA: {
        const Part* const asked = at(LOWORD(wParam));
        if (asked) copyText(asked->tip, reinterpret_cast<char*>(lParam), HIWORD(wParam));
        return 0;
    }
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

void StatusBar::drawPart(QPainter& painter, std::size_t index)
{
    const Part* const part = orSimple(index);
    if (!part) return;
    DRAWITEMSTRUCT parts{};
    parts.itemID = static_cast<UINT>(index);
    parts.itemAction = ODA_DRAWENTIRE;
    parts.itemData = static_cast<UINT_PTR>(part->data);
    sendDrawItem(*this, painter, part->face->contentsRect(), parts);
}

} // namespace

std::unique_ptr<Window> makeStatusBar(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<StatusBar>(parent);
}

} // namespace corekit::detail
