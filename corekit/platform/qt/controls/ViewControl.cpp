#include "corekit/platform/qt/controls/ViewControl.h"

#include "corekit/platform/Keyboard.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace corekit::detail {

QMargins ViewControl::nonClient() const
{
    if (!view()) return {};
    const QRect inner = view()->viewport()->geometry();
    return {inner.left(), inner.top(), view()->width() - inner.right() - 1,
            view()->height() - inner.bottom() - 1};
}

LRESULT ViewControl::input(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto self = share(handle());
    if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN) {
        keyPressed(static_cast<WORD>(wParam));
        if (!isAlive()) return 0;
        if (wParam == VK_RETURN) {
            if (!clicked(Click::enter, {}) && isAlive()) activated(Click::enter);
            return 0;
        }
    }
    const int program = std::exchange(m_program, 0);
    m_byMouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    LRESULT answer = Control::input(message, wParam, lParam);
    m_program = program;
    if (!isAlive()) return answer;
    switch (message) {
    case WM_LBUTTONUP:
        answer = clicked(Click::left, pointIn(lParam));
        break;
    case WM_RBUTTONUP:
        answer = clicked(Click::right, pointIn(lParam));
        break;
    case WM_LBUTTONDBLCLK:
        if (!clicked(Click::doubleLeft, pointIn(lParam)) && isAlive()) activated(Click::doubleLeft);
        break;
    case WM_RBUTTONDBLCLK:
        answer = clicked(Click::doubleRight, pointIn(lParam));
        break;
    default:
        break;
    }
    return answer;
}

LRESULT ViewControl::clicked(Click click, POINT)
{
    constexpr UINT codes[] = {NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK, NM_RETURN};
    NMHDR header{};
    return notifyParent(header, codes[static_cast<int>(click)]);
}

std::vector<int> sortedOrder(int count, const std::function<bool(int, int)>& isBefore)
{
    // Merged by hand: the algorithms of the language may run away with a callback that contradicts itself.
    std::vector<int> order(static_cast<std::size_t>(count)), merged(order.size());
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t width = 1; width < order.size(); width *= 2) {
        for (std::size_t begin = 0; begin < order.size(); begin += 2 * width) {
            const std::size_t middle = std::min(begin + width, order.size());
            const std::size_t end = std::min(begin + 2 * width, order.size());
            std::size_t left = begin, right = middle;
            for (std::size_t out = begin; out < end; ++out) {
                const bool takesRight =
                    left == middle || (right < end && isBefore(order[right], order[left]));
                merged[out] = takesRight ? order[right++] : order[left++];
            }
        }
        order.swap(merged);
    }
    return order;
}

} // namespace corekit::detail
