// Faces, sizes and colours of the prompt view.
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/platform/Gdi.h"

#include "model/ColourNames.h"

#include <algorithm>
#include <set>

namespace prompter {

IMPLEMENT_DYNAMIC(LookPage, CAXPropertyPage)

namespace {

constexpr const char* usualFaces = "(the usual ones)";

std::string FacesText(const std::vector<std::string>& faces)
{
    std::string text;
    for (const std::string& face : faces) text += (text.empty() ? "" : "; ") + face;
    return text.empty() ? usualFaces : text;
}

std::vector<std::string> FacesOf(const std::string& text)
{
    std::vector<std::string> faces;
    if (text == usualFaces) return faces;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(';', at), text.size());
        const std::size_t first = text.find_first_not_of(' ', at);
        std::string face = first < end ? text.substr(first, end - first) : "";
        while (face.ends_with(' ')) face.pop_back();
        if (!face.empty()) faces.push_back(face);
        at = end + 1;
    }
    return faces;
}

int AddFace(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM data)
{
    reinterpret_cast<std::set<std::string>*>(data)->insert(font->lfFaceName);
    return 1;
}

void ExchangeColour(CDataExchange* exchange, int id, CString& text)
{
    DDX_CBString(exchange, id, text);
    if (!exchange->m_bSaveAndValidate || ParseColour(static_cast<const char*>(text))) return;
    StockMessageBox(exchange->m_pDlgWnd, "A colour is one of the list, or #RRGGBB.",
                    MB_OK | MB_ICONEXCLAMATION);
    exchange->Fail();
}

} // namespace

LookPage::LookPage(Settings& settings) : CAXPropertyPage(dialogs::lookId), m_settings(settings) {}

void LookPage::DoDataExchange(CDataExchange* exchange)
{
    constexpr int leastSize = 8, mostSize = 400, mostGap = 300, mostMargin = 2000;
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_CBString(exchange, faceChoice, m_faces);
    DDX_Text(exchange, sizeField, m_size);
    DDV_MinMaxInt(exchange, m_size, leastSize, mostSize);
    DDX_Text(exchange, gapField, m_gap);
    DDV_MinMaxInt(exchange, m_gap, 0, mostGap);
    DDX_Text(exchange, marginField, m_margin);
    DDV_MinMaxInt(exchange, m_margin, 0, mostMargin);
    DDX_Text(exchange, markField, m_mark);
    DDV_MinMaxInt(exchange, m_mark, 0, 100);
    ExchangeColour(exchange, textColourChoice, m_text);
    ExchangeColour(exchange, backColourChoice, m_back);
    ExchangeColour(exchange, markColourChoice, m_markColour);
    DDX_Check(exchange, bracketsCheck, m_brackets);
}

void LookPage::FillChoices()
{
    const auto add = [this](int id, const std::string& text) {
        SendDlgItemMessage(id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    };
    std::set<std::string> faces;
    EnumFontsA(nullptr, nullptr, &AddFace, reinterpret_cast<LPARAM>(&faces));
    add(faceChoice, usualFaces);
    for (const std::string& face : faces) add(faceChoice, face);
    for (const int id : {static_cast<int>(textColourChoice), static_cast<int>(backColourChoice),
                         static_cast<int>(markColourChoice)})
        for (const NamedColour& named : NamedColours()) add(id, named.name);
}

void LookPage::LoadPage()
{
    const PromptStyle& style = m_settings.session.style;
    m_faces = FacesText(style.faces).c_str();
    m_size = style.size;
    m_gap = style.lineGap;
    m_margin = style.margin;
    m_mark = style.readingMark;
    m_text = ColourText(style.text).c_str();
    m_back = ColourText(style.back).c_str();
    m_markColour = ColourText(style.mark).c_str();
    m_brackets = style.brackets == Brackets::mirrored;
    FillChoices();
    UpdateData(FALSE);
    SetDlgItemText(faceChoice, m_faces);
    SetDlgItemText(textColourChoice, m_text);
    SetDlgItemText(backColourChoice, m_back);
    SetDlgItemText(markColourChoice, m_markColour);
}

int LookPage::CommitPage()
{
    PromptStyle& style = m_settings.session.style;
    style.faces = FacesOf(static_cast<const char*>(m_faces));
    style.size = m_size;
    style.lineGap = m_gap;
    style.margin = m_margin;
    style.readingMark = m_mark;
    style.text = ParseColour(static_cast<const char*>(m_text)).value_or(style.text);
    style.back = ParseColour(static_cast<const char*>(m_back)).value_or(style.back);
    style.mark = ParseColour(static_cast<const char*>(m_markColour)).value_or(style.mark);
    style.brackets = m_brackets ? Brackets::mirrored : Brackets::asTyped;
    return 1;
}

} // namespace prompter
