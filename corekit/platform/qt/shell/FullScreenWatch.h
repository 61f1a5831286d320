// Windows of any program that cover the whole screen of an X11 desktop. Toolkit's thread.
#pragma once

#include "corekit/platform/qt/shell/XStruts.h"

#include <functional>
#include <QAbstractNativeEventFilter>

namespace corekit::detail {

// Tells when the first of them comes and the last one goes, for as long as it lives.
class FullScreenWatch final : public QAbstractNativeEventFilter {
public:
    explicit FullScreenWatch(std::function<void(bool)> tell);
    ~FullScreenWatch() override;

    bool isOpen() const { return m_isOpen; }
    bool nativeEventFilter(const QByteArray& kind, void* event, qintptr* result) override;

private:
    void look();

    XStruts m_desktop;
    std::function<void(bool)> m_tell;
    std::uint32_t m_state, m_clients;
    std::vector<std::uint32_t> m_watched;
    bool m_isOpen = false;
};

} // namespace corekit::detail
