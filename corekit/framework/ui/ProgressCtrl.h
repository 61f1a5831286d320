// A progress bar.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ProgressBars.h. User-interface thread only.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ProgressBars.h"

class COREKIT_API CProgressCtrl : public CWnd {
    DECLARE_DYNAMIC(CProgressCtrl)

    // A child of `parent`.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(PROGRESS_CLASSA, nullptr, style, rect, parent, id);
    }
    void SetRange(int low, int high) { SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(low), high); }
    void SetRange32(int low, int high) { SetRange(low, high); }
    void GetRange(int& low, int& high) const
    {
        PBRANGE range{};
        SendMessage(PBM_GETRANGE, 0, reinterpret_cast<LPARAM>(&range));
        low = range.iLow;
        high = range.iHigh;
    }
    int SetPos(int position)
    {
        return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(position), 0));
    }
    int OffsetPos(int distance)
    {
        return static_cast<int>(SendMessage(PBM_DELTAPOS, static_cast<WPARAM>(distance), 0));
    }
    int SetStep(int step) { return static_cast<int>(SendMessage(PBM_SETSTEP, static_cast<WPARAM>(step), 0)); }
    int StepIt() { return static_cast<int>(SendMessage(PBM_STEPIT, 0, 0)); }
    int GetPos() const { return static_cast<int>(SendMessage(PBM_GETPOS, 0, 0)); }
    void SetMarquee(BOOL runs, int = 0) { SendMessage(PBM_SETMARQUEE, static_cast<WPARAM>(runs), 0); }
};
