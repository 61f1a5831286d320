// How text of all scripts is handled: the font of controls, the handling of complex scripts, and how a
// selection shows. The page works on CUnicodeManager, which must be initialised. User-interface thread.
#pragma once

#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/unicode/ui/FontDescriptor.h"

class COREKIT_API PPage_Unicode_General : public CAXPropertyPage {
    DECLARE_DYNAMIC(PPage_Unicode_General)
public:
    // Made with new for a sheet that deletes its pages.
    PPage_Unicode_General();

    void LoadPage() override; // from the manager
    // Gives everything to the manager, which writes it to the registry; always 1. Throws what its setters
    // throw.
    int CommitPage() override;

    void UpdateControls() override {}

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnChooseFont(); // asks for one font or several
    // One of the three ways is picked; the platform's is asked back about. Underlining follows.
    void OnHandling();

    void OnUnderlineSelect();                    // asks before it is turned off
    void OnExtraLineHeight() { SetModified(1); } // nothing depends on it
    DECLARE_MESSAGE_MAP()

private:
    CFontDescriptor m_font; // of controls
    int m_handling = 0;     // 0 standard, 1 bidirectional, 2 the platform's
    int m_underlineSelect = 0, m_extraLineHeight = 0;
};
