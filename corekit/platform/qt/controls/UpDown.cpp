#include "corekit/platform/UpDowns.h"

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/ScrollBars.h"

#include <QBoxLayout>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLocale>
#include <QPointer>
#include <QToolButton>

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int widthInBuddy = 18;

// What stands between thousands. Some languages have a sign that the active code page lacks.
QString separator()
{
    QString own = QLocale().groupSeparator();
    if (textFrom(toNarrow(own).c_str()) == own) return own;
    return own.front().isSpace() ? QStringLiteral(" ") : QStringLiteral(",");
}

class UpDownFace final : public QWidget {
public:
    explicit UpDownFace(QWidget* parent) : QWidget(parent)
    {
        auto* const box = new QBoxLayout(QBoxLayout::TopToBottom, this);
        box->setContentsMargins(0, 0, 0, 0);
        box->setSpacing(0);
        for (QToolButton* const arrow : {&up(), &down()}) {
            arrow->setAutoRepeat(true);
            arrow->setFocusPolicy(Qt::NoFocus);
            arrow->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
            box->addWidget(arrow, 1);
        }
        setFocusPolicy(Qt::NoFocus);
        up().setAccessibleName(QStringLiteral("More"));
        down().setAccessibleName(QStringLiteral("Less"));
    }
    QToolButton& up() { return *m_up; }
    QToolButton& down() { return *m_down; }
    void lay(bool horizontal)
    {
        // Less lies left, more lies right or above.
        static_cast<QBoxLayout*>(layout())->setDirection(horizontal ? QBoxLayout::RightToLeft
                                                                    : QBoxLayout::TopToBottom);
        m_up->setArrowType(horizontal ? Qt::RightArrow : Qt::UpArrow);
        m_down->setArrowType(horizontal ? Qt::LeftArrow : Qt::DownArrow);
    }

private:
    QToolButton* m_up = new QToolButton(this);
    QToolButton* m_down = new QToolButton(this);
};

class UpDown final : public Control {
public:
    explicit UpDown(QWidget* parent) : Control(new UpDownFace(parent))
    {
        listenTo(face()->up(), 1);
        listenTo(face()->down(), -1);
    }
    ~UpDown() override { watchBuddy(nullptr); }
    void begin(const CREATESTRUCTA&) override { face()->lay(style() & UDS_HORZ); }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT steps(UINT message, WPARAM wParam, LPARAM lParam);

private:
    // The arrow keys of the buddy.
    class Keys final : public QObject {
    public:
        explicit Keys(UpDown& owner) : m_owner(owner) {}
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() != QEvent::KeyPress || !(m_owner.style() & UDS_ARROWKEYS)) return false;
            const int key = static_cast<const QKeyEvent*>(event)->key();
            if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
            m_owner.step(key == Qt::Key_Up ? 1 : -1);
            return true;
        }

    private:
        UpDown& m_owner;
    };

    UpDownFace* face() const { return as<UpDownFace>(); }
    void listenTo(QToolButton& arrow, int way);
    HWND setBuddy(HWND buddy);
    void watchBuddy(QWidget* buddy);
    void layInBuddy();
    void step(int way);
    int increment() const;
    int moveTo(long long position);
    void tellScroll(int code);
    int position(bool& isRight) const;
    QString textOf(int position) const;
    LRESULT range(UINT message, WPARAM wParam, LPARAM lParam);

    int m_low = 100, m_high = 0, m_position = 100, m_base = 10;
    std::vector<UDACCEL> m_speeds{{0, 1}, {2, 5}, {5, 20}};
    QElapsedTimer m_held;
    HWND m_buddy = nullptr;
    QPointer<QWidget> m_watched;
    Keys m_keys{*this};
};

void UpDown::listenTo(QToolButton& arrow, int way)
{
    QObject::connect(&arrow, &QToolButton::pressed, life(), [this, way] {
        if (!m_held.isValid()) m_held.start();
        step(way);
    });
    QObject::connect(&arrow, &QToolButton::released, life(), [this, &arrow] {
        // The toolkit lets go and presses again for each repetition.
        if (arrow.isDown()) return;
        m_held.invalidate();
        tellScroll(SB_ENDSCROLL);
    });
}

int UpDown::increment() const
{
    const qint64 seconds = m_held.isValid() ? m_held.elapsed() / 1000 : 0;
    UINT by = 1;
    for (const UDACCEL& speed : m_speeds)
        if (seconds >= static_cast<qint64>(speed.nSec)) by = speed.nInc;
    return static_cast<int>(std::min(by, 0x7FFFFFFFu));
}

void UpDown::step(int way)
{
    const auto self = share(handle());
    bool isRight = false;
    const int from = position(isRight);
    const int by = m_high >= m_low ? way * increment() : -way * increment();
    NMUPDOWN told{{}, from, by};
    LRESULT refused = 0;
    if (!tell(told.hdr, UDN_DELTAPOS, refused) || refused) return;
    moveTo(static_cast<long long>(from) + told.iDelta);
    tellScroll(SB_THUMBPOSITION);
}

void UpDown::tellScroll(int code)
{
    if (!isAlive() || !parent()) return;
    SendMessageA(parent(), style() & UDS_HORZ ? WM_HSCROLL : WM_VSCROLL,
                 MAKELONG(static_cast<WORD>(code), static_cast<WORD>(m_position)),
                 reinterpret_cast<LPARAM>(handle()));
}

int UpDown::moveTo(long long wanted)
{
    const auto [low, high] = std::minmax(m_low, m_high);
    if (wanted < low)
        wanted = style() & UDS_WRAP ? high : low;
    else if (wanted > high)
        wanted = style() & UDS_WRAP ? low : high;
    const int former = std::exchange(m_position, static_cast<int>(wanted));
    if (style() & UDS_SETBUDDYINT && IsWindow(m_buddy)) {
        const std::string text = toNarrow(textOf(m_position));
        char shown[32] = {};
        GetWindowTextA(m_buddy, shown, sizeof shown);
        if (text != shown) SetWindowTextA(m_buddy, text.c_str());
    }
    return former;
}

QString UpDown::textOf(int position) const
{
    if (m_base == 16)
        return QStringLiteral("0x%1")
            .arg(static_cast<uint>(position), 4, 16, QChar(u'0'))
            .toUpper()
            .replace(u'X', u'x');
    if (style() & UDS_NOTHOUSANDS) return QString::number(position);
    QLocale european = QLocale::c(); // its digits, in every language: programs read them
    european.setNumberOptions(QLocale().numberOptions());
    return european.toString(position).replace(u',', separator());
}

int UpDown::position(bool& isRight) const
{
    isRight = true;
    if (!(style() & UDS_SETBUDDYINT) || !IsWindow(m_buddy)) return m_position;
    char text[32] = {};
    GetWindowTextA(m_buddy, text, sizeof text);
    QString digits = textFrom(text);
    bool isNumber = false;
    const int value = m_base == 16 ? static_cast<int>(digits.toUInt(&isNumber, 16))
                                   : digits.remove(separator()).toInt(&isNumber);
    const auto [low, high] = std::minmax(m_low, m_high);
    isRight = isNumber && value >= low && value <= high;
    return isRight ? value : m_position;
}

LRESULT UpDown::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    switch (message) {
    case WM_CREATE: {
        const LRESULT answer = Control::defaultProcedure(message, wParam, lParam);
        if (isAlive() && style() & UDS_AUTOBUDDY) setBuddy(GetWindow(handle(), GW_HWNDPREV));
        return answer;
    }
    case UDM_SETBUDDY:
        return reinterpret_cast<LRESULT>(setBuddy(reinterpret_cast<HWND>(wParam)));
    case UDM_GETBUDDY:
        return reinterpret_cast<LRESULT>(IsWindow(m_buddy) ? m_buddy : nullptr);
    case UDM_SETPOS:
        return moveTo(static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam))));
    case UDM_SETPOS32:
        return moveTo(static_cast<int>(lParam));
    case UDM_GETPOS:
    case UDM_GETPOS32: {
        bool isRight = false;
        m_position = position(isRight);
        if (message == UDM_GETPOS) return inWords(m_position, isRight ? 0 : 1);
        if (auto* const isWrong = reinterpret_cast<BOOL*>(lParam)) *isWrong = !isRight;
        return m_position;
    }
    default:
        return steps(message, wParam, lParam);
    }
}

LRESULT UpDown::steps(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UDM_SETBASE:
        if (wParam != 10 && wParam != 16) return 0;
        return std::exchange(m_base, static_cast<int>(wParam));
    case UDM_GETBASE:
        return m_base;
    case UDM_SETACCEL: {
        const auto* const speeds = reinterpret_cast<const UDACCEL*>(lParam);
        if (!speeds || wParam == 0 || wParam > 64) return 0;
        m_speeds.assign(speeds, speeds + wParam);
        return 1;
    }
    case UDM_GETACCEL: {
        const std::size_t count = std::min(static_cast<std::size_t>(wParam), m_speeds.size());
        if (auto* const out = reinterpret_cast<UDACCEL*>(lParam)) std::copy_n(m_speeds.begin(), count, out);
        return static_cast<LRESULT>(m_speeds.size());
    }
    default:
        return range(message, wParam, lParam);
    }
}

LRESULT UpDown::range(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case UDM_SETRANGE: {
        const POINT limits = pointIn(lParam);
        m_high = limits.x;
        m_low = limits.y;
        return 0;
    }
    case UDM_GETRANGE:
        return inWords(m_high, m_low);
    case UDM_SETRANGE32:
        m_low = static_cast<int>(wParam);
        m_high = static_cast<int>(lParam);
        return 0;
    case UDM_GETRANGE32:
        if (auto* const low = reinterpret_cast<int*>(wParam)) *low = m_low;
        if (auto* const high = reinterpret_cast<int*>(lParam)) *high = m_high;
        return 0;
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

void UpDown::watchBuddy(QWidget* buddy)
{
    if (m_watched) m_watched->removeEventFilter(&m_keys);
    m_watched = buddy;
    if (m_watched) m_watched->installEventFilter(&m_keys);
}

HWND UpDown::setBuddy(HWND buddy)
{
    const HWND former = std::exchange(m_buddy, buddy);
    const Window* const window = find(buddy);
    watchBuddy(window ? window->widget() : nullptr);
    layInBuddy();
    return former;
}

void UpDown::layInBuddy()
{
    RECT place;
    if (!(style() & (UDS_ALIGNLEFT | UDS_ALIGNRIGHT)) || !GetWindowRect(m_buddy, &place)) return;
    MapWindowPoints(nullptr, parent(), reinterpret_cast<POINT*>(&place), 2);
    const int width = std::min(widthInBuddy, static_cast<int>(place.right - place.left));
    const bool atRight = style() & UDS_ALIGNRIGHT;
    const int left = atRight ? place.right - width : place.left;
    MoveWindow(handle(), left, place.top, width, place.bottom - place.top, TRUE);
    MoveWindow(m_buddy, atRight ? place.left : place.left + width, place.top,
               place.right - place.left - width, place.bottom - place.top, TRUE);
}

} // namespace

std::unique_ptr<Window> makeUpDown(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<UpDown>(parent);
}

} // namespace corekit::detail
