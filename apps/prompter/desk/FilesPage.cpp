// Where news come from, how old files are read, and who may control the prompt.
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"

#include "corekit/framework/ui/DataExchange.h"
#include "corekit/platform/CodePages.h"
#include "corekit/platform/FileDialogs.h"
#include "corekit/unicode/codepages/CodePageNames.h"

#include <algorithm>
#include <iterator>

namespace prompter {

IMPLEMENT_DYNAMIC(FilesPage, CAXPropertyPage)

BEGIN_MESSAGE_MAP(FilesPage, CAXPropertyPage)
ON_BN_CLICKED(browseNews, &FilesPage::OnBrowse)
ON_BN_CLICKED(remoteCheck, &FilesPage::OnRemote)
END_MESSAGE_MAP()

namespace {

// What scripts were written in before Unicode.
constexpr int usualPages[] = {1252, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 1258,  874,   932,   936,
                              949,  950,  437,  720,  850,  862,  864,  866,  28591, 28592, 28596, 28598};

} // namespace

FilesPage::FilesPage(Settings& settings) : CAXPropertyPage(dialogs::filesId), m_settings(settings) {}

void FilesPage::DoDataExchange(CDataExchange* exchange)
{
    CAXPropertyPage::DoDataExchange(exchange);
    DDX_Text(exchange, newsField, m_news);
    DDX_CBIndex(exchange, codePageChoice, m_codePage);
    DDX_Check(exchange, remoteCheck, m_hasRemote);
    DDX_Text(exchange, remotePortField, m_remotePort);
    DDV_MinMaxInt(exchange, m_remotePort, 0, 65535);
    DDX_Text(exchange, remoteAddressField, m_address);
    DDX_Text(exchange, remoteWordField, m_word);
}

void FilesPage::LoadPage()
{
    m_news = m_settings.newsFolder.c_str();
    m_hasRemote = m_settings.hasRemote;
    m_remotePort = m_settings.remote.port;
    m_address = m_settings.remote.address.c_str();
    m_word = m_settings.remote.word.c_str();
    FillCodePages();
    UpdateData(FALSE);
    UpdateControls();
}

// Those that the machine can read, and the one that is set.
void FilesPage::FillCodePages()
{
    m_codePages = {0};
    CPINFO info;
    std::ranges::copy_if(usualPages, std::back_inserter(m_codePages),
                         [&](int page) { return GetCPInfo(static_cast<UINT>(page), &info); });
    if (std::ranges::find(m_codePages, m_settings.codePage) == m_codePages.end())
        m_codePages.push_back(m_settings.codePage);
    for (const int page : m_codePages) {
        const CString text = page ? GetCodePageName(static_cast<UINT>(page)) : CString("UTF-8");
        SendDlgItemMessage(codePageChoice, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(text)));
    }
    m_codePage = static_cast<int>(std::ranges::find(m_codePages, m_settings.codePage) - m_codePages.begin());
}

int FilesPage::CommitPage()
{
    m_settings.newsFolder = static_cast<const char*>(m_news);
    m_settings.hasRemote = m_hasRemote != 0;
    m_settings.remote = {static_cast<const char*>(m_address), m_remotePort, static_cast<const char*>(m_word)};
    if (m_codePage >= 0) m_settings.codePage = m_codePages[static_cast<std::size_t>(m_codePage)];
    if (!m_hasRemote || m_settings.remote.IsLoopback() || !m_word.IsEmpty()) return 1;
    StockMessageBox(this, "An address that other machines reach needs a word.", MB_OK | MB_ICONEXCLAMATION);
    return 0;
}

void FilesPage::UpdateControls()
{
    for (const int id : {static_cast<int>(remotePortField), static_cast<int>(remoteAddressField),
                         static_cast<int>(remoteWordField)})
        GetDlgItem(id)->EnableWindow(m_hasRemote != 0);
}

void FilesPage::OnRemote()
{
    m_hasRemote = ::IsDlgButtonChecked(m_hWnd, remoteCheck) != 0;
    UpdateControls();
    SetModified(1);
}

void FilesPage::OnBrowse()
{
    BROWSEINFOA choice{};
    choice.hwndOwner = m_hWnd;
    choice.lpszTitle = "Folder that news come into";
    choice.ulFlags = BIF_RETURNONLYFSDIRS;
    _ITEMIDLIST* const folder = SHBrowseForFolderA(&choice);
    char path[MAX_PATH] = "";
    if (!folder) return;
    if (SHGetPathFromIDListA(folder, path)) SetDlgItemText(newsField, path);
    ILFree(folder);
    SetModified(1);
}

} // namespace prompter
