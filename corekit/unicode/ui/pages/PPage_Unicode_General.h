// How text of all scripts is handled: the font of controls, the handling of complex scripts, and how a
// selection shows.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class COREKIT_API PPage_Unicode_General : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Unicode_General)
public:
    PPage_Unicode_General();

    void LoadPage() override;
    int CommitPage() override;
    void UpdateControls() override {}

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnChooseFont();
    void OnHandling();
    void OnUnderlineSelect();
    void OnExtraLineHeight() { SetModified(1); }
    DECLARE_MESSAGE_MAP()

private:
    CFontDescriptor m_font;
    int m_handling = 0; // 0 standard, 1 bidirectional, 2 the platform's
    int m_underlineSelect = 0, m_extraLineHeight = 0;
};
