#include "corekit/commands/ui/DLG_NewButton.h"

#include "corekit/commands/ui/ButtonBitmap.h"
#include "corekit/framework/ui/ComboBox.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <utility>

using namespace corekit::detail;

IMPLEMENT_DYNAMIC(DLG_NewButton, CDialog)

namespace {
constexpr int commandControl = 1003, nameControl = 1004, selectControl = 1042, removeControl = 1043,
              descriptionControl = 1059;
}

BEGIN_MESSAGE_MAP(DLG_NewButton, CDialog)
ON_BN_CLICKED(selectControl, &DLG_NewButton::OnSelectBitmap)
ON_BN_CLICKED(removeControl, &DLG_NewButton::OnRemoveBitmap)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

DLG_NewButton::DLG_NewButton(std::vector<CString> names, std::vector<CString> commands, CWnd* parent)
    : CDialog(dialogs::newButton.id, parent), m_names(std::move(names)), m_commands(std::move(commands))
{
    for (CString& name : m_names) name.MakeUpper();
}

DLG_NewButton::~DLG_NewButton() = default;

BOOL DLG_NewButton::OnInitDialog()
{
    for (const CString& command : m_commands)
        SendDlgItemMessage(commandControl, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(static_cast<const char*>(command)));
    ShowBitmap();
    return CDialog::OnInitDialog();
}

void DLG_NewButton::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, nameControl, m_name);
    DDX_Text(exchange, descriptionControl, m_description);
    DDX_CBIndex(exchange, commandControl, m_command);
}

void DLG_NewButton::OnOK()
{
    CString name;
    GetDlgItemText(nameControl, name);
    name.MakeUpper();
    if (std::ranges::find(m_names, name) == m_names.end()) return CDialog::OnOK();
    StockMessageBox(this, message::buttonNameTaken, MB_OK | MB_ICONEXCLAMATION);
    if (CWnd* const field = GetDlgItem(nameControl)) GotoDlgCtrl(field);
}

void DLG_NewButton::OnSelectBitmap()
{
    chooseButtonBitmap(*this, m_bitmap);
    ShowBitmap();
}

void DLG_NewButton::OnRemoveBitmap()
{
    m_bitmap.reset();
    ShowBitmap();
}

void DLG_NewButton::ShowBitmap()
{
    showPreview(*this, m_bitmap.get());
    if (CWnd* const remove = GetDlgItem(removeControl)) remove->EnableWindow(m_bitmap != nullptr);
}

void DLG_NewButton::OnDrawItem(int id, DRAWITEMSTRUCT* item)
{
    if (id == previewControl)
        drawPreview(*item, m_bitmap.get());
    else
        CDialog::OnDrawItem(id, item);
}
