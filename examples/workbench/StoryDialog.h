// What is known of a story beside its text, and the dialog in which it is changed.
#pragma once

#include "corekit/foundation/StringW.h"
#include "corekit/foundation/Timecode.h"
#include "corekit/framework/ui/Dialog.h"

struct StoryFacts {
    StringW title;
    CTimecode begin{10, 0, 0, 0};
    COLORREF text = RGB(0, 0, 0), ground = RGB(255, 255, 255);
    UINT channel = 0x1F40;
};

class StoryDialog : public CDialog {
public:
    StoryDialog(const StoryFacts& facts, CWnd* parent);
    StoryFacts m_facts;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
};
