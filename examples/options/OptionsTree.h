// The tree of categories, each with pages of the library.
#pragma once

#include "ProgramSettings.h"

#include "corekit/commands/ui/OptionsCategory.h"

#include <functional>
#include <memory>

// Texts of this program; the first is the title that message boxes bear.
inline constexpr UINT titleText = 57344, optionsText = 100, scriptsText = 101, textText = 102, readText = 103,
                      logText = 104, lineText = 105;

// Makes them known to the library.
void SetTexts();

// A title, and what adds its pages; what they change is the program's settings.
class PagesCategory : public COptionsCategory {
public:
    using AddPages = std::function<void(CAXPropertySheet&)>;

    PagesCategory(UINT titleId, ProgramSettings& settings, AddPages addPages);

    CString GetTitle() override { return m_title; }
    int CheckSelectOK(CWnd*) override { return 1; }
    void PreparePages(CWnd*, CAXPropertySheet& sheet) override { m_addPages(sheet); }
    int SavePageData(CWnd* parent) override;
    void Cancel(CWnd*) override { m_settings->Load(); }
    int HideIfRootCategory() override { return 0; }

private:
    CString m_title;
    ProgramSettings* m_settings;
    AddPages m_addPages;
};

// The root, which the tree does not show. The settings outlive it.
std::unique_ptr<COptionsCategory> MakeOptionsTree(ProgramSettings& settings);
