// A progress bar.
//
// The object stands for the control's window, as CWnd says; each operation is the message of its name in
// ProgressBars.h. User-interface thread only.
//
// Positions are numbers of the caller's, held within the range: 0 to 100 at first, with steps of 10. The
// user cannot change it, and nobody is told of changes.
//
//     bar.SetRange(0, static_cast<int>(files.size()));
//     bar.SetStep(1);
//     for (const auto& file : files) {
//         Copy(file);
//         bar.StepIt();
//     }
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ProgressBars.h"

class COREKIT_API CProgressCtrl : public CWnd {
    DECLARE_DYNAMIC(CProgressCtrl)

    // A child of `parent`. PBS_VERTICAL fills upwards, PBS_MARQUEE can run without an end in sight.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
    {
        return CWnd::Create(PROGRESS_CLASSA, nullptr, style, rect, parent, id);
    }
    // Limits in either order; the position is brought within.
    void SetRange(int low, int high) { SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(low), high); }
    void SetRange32(int low, int high) { SetRange(low, high); }
    // The lesser number first.
    void GetRange(int& low, int& high) const
    {
        PBRANGE range{};
        SendMessage(PBM_GETRANGE, 0, reinterpret_cast<LPARAM>(&range));
        low = range.iLow;
        high = range.iHigh;
    }
    // Answers the former position.
    int SetPos(int position)
    {
        return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(position), 0));
    }
    // Below 0 goes back. Answers the former position.
    int OffsetPos(int distance)
    {
        return static_cast<int>(SendMessage(PBM_DELTAPOS, static_cast<WPARAM>(distance), 0));
    }
    // How far StepIt goes. Answers the former.
    int SetStep(int step) { return static_cast<int>(SendMessage(PBM_SETSTEP, static_cast<WPARAM>(step), 0)); }
    // Behind the end it goes on from the beginning. Answers the former position.
    int StepIt() { return static_cast<int>(SendMessage(PBM_STEPIT, 0, 0)); }
    int GetPos() const { return static_cast<int>(SendMessage(PBM_GETPOS, 0, 0)); }
    // Of PBS_MARQUEE: runs until it is switched off. The speed is the toolkit's.
    void SetMarquee(BOOL runs, int = 0) { SendMessage(PBM_SETMARQUEE, static_cast<WPARAM>(runs), 0); }
};
