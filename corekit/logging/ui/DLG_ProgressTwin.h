// Two progress bars, such as for a file and for all files, each with a line of text and a sink of its own.
// The operation runs on the user-interface thread; each report lets the windows work for a moment.
//
//     DLG_ProgressTwin progress(IDS_COPYING);
//     if (progress.Create(this)) CopyAll(progress.GetProgressSink1(), progress.GetProgressSink2());
//     progress.DestroyWindow();
#pragma once

#include "corekit/logging/ui/ProgressTwinBase.h"

class COREKIT_API DLG_ProgressTwin : public corekit::detail::ProgressTwinBase {
    DECLARE_DYNAMIC(DLG_ProgressTwin)
public:
    // The title by its number in the string table, or as a text, which is copied.
    explicit DLG_ProgressTwin(unsigned int titleId);
    explicit DLG_ProgressTwin(const char* title); // not null

    using CWnd::Create;
    // Over the parent's top window, which takes no input until DestroyWindow.
    int Create(CWnd* parent); // 0 on failure
    // With 0 the windows stand still while the operation reports.
    void EnablePumpMessages(int enable) { m_pumps = enable; }
};
