// Two progress bars, such as for a file and for all files.
#pragma once

#include "corekit/logging/ui/ProgressTwinBase.h"

class COREKIT_API DLG_ProgressTwin : public corekit::detail::ProgressTwinBase {
    DECLARE_DYNAMIC(DLG_ProgressTwin)
public:
    explicit DLG_ProgressTwin(unsigned int titleId);
    explicit DLG_ProgressTwin(const char* title);

    using CWnd::Create;
    int Create(CWnd* parent); // 0 on failure
    void EnablePumpMessages(int enable) { m_pumps = enable; }
};
