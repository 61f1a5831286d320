#include "OptionsTree.h"

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/CustomMessageBox.h"
#include "corekit/framework/Exception.h"
#include "corekit/framework/Module.h"
#include "corekit/unicode/codepages/ui/PPage_CodePage.h"
#include "corekit/unicode/ui/UnicodeManager.h"

namespace {

constexpr ResourceString texts[] = {
    {optionsText, "Options"},
    {scriptsText, "Scripts"},
    {textText, "Fonts and keyboards"},
    {readText, "Texts from outside"},
    {logText, "Logging"},
    {lineText, "Hand control"},
    {titleText, "Options of a prompter"},
};

} // namespace

void SetTexts() { AfxSetResourceStrings(texts); }

PagesCategory::PagesCategory(UINT titleId, ProgramSettings& settings, AddPages addPages)
    : m_settings(&settings), m_addPages(std::move(addPages))
{
    m_title.LoadString(titleId);
}

int PagesCategory::SavePageData(CWnd* parent)
{
    try {
        m_settings->Save();
        return 1;
    } catch (CException* e) {
        char text[512] = "";
        e->GetErrorMessage(text, sizeof text);
        e->Delete();
        StockMessageBox(parent, text, MB_OK | MB_ICONEXCLAMATION);
        return 0;
    }
}

std::unique_ptr<COptionsCategory> MakeOptionsTree(ProgramSettings& settings)
{
    const auto category = [&settings](UINT title, PagesCategory::AddPages pages) {
        return new PagesCategory(title, settings, std::move(pages));
    };
    auto root = std::make_unique<CSimpleOptionsCategory>(optionsText, 1);
    auto* const scripts = new CSimpleOptionsCategory(scriptsText, 0);
    root->AddChild(scripts);
    scripts->AddChild(category(
        textText, [](CAXPropertySheet& sheet) { CUnicodeManager::GetObjectA()->AddPropertyPages(sheet); }));
    scripts->AddChild(category(readText, [&settings](CAXPropertySheet& sheet) {
        AddCodePagePropertyPage(sheet, &settings.codePage, 0);
    }));
    root->AddChild(category(logText, [&settings](CAXPropertySheet& sheet) {
        CLogTarget::AddPropertyPage(sheet, 0, &settings.logEnabled, &settings.logMask, &settings.logDays);
    }));
    root->AddChild(category(lineText, [&settings](CAXPropertySheet& sheet) {
        settings.handControl.AddPropertyPages(sheet, 0, 0);
    }));
    return root;
}
