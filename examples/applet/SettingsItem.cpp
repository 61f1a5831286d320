#include "UploadItems.h"

#include <corekit/foundation/ChainedException.h>
#include <corekit/framework/ui/DataExchange.h>
#include <corekit/framework/ui/Dialog.h>
#include <corekit/stores/RegistryKey.h>

namespace {

class CSettingsDialog : public CDialog {
public:
    explicit CSettingsDialog(CWnd* parent) : CDialog(applet::settingsDialog, parent) {}

    void Load()
    {
        CRegistryKey key;
        if (!key.Open(HKEY_LOCAL_MACHINE, keyName, KEY_READ)) return;
        for (const auto& [name, id, text] : m_fields) key.GetValue(name, *text);
    }
    void Save()
    {
        CRegistryKey key;
        key.Create(HKEY_LOCAL_MACHINE, keyName);
        for (const auto& [name, id, text] : m_fields) key.SetValue(name, *text);
    }

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        for (const auto& [name, id, text] : m_fields) DDX_Text(exchange, id, *text);
    }

private:
    static constexpr char keyName[] = "Software\\Corvane\\Script Upload";
    struct Field {
        const char* name;
        int id;
        CString* text;
    };

    CString m_folder, m_pattern = "*.txt", m_server, m_user = "anonymous";
    const Field m_fields[4] = {{"Folder", applet::folderField, &m_folder},
                               {"Pattern", applet::patternField, &m_pattern},
                               {"Server", applet::serverField, &m_server},
                               {"User", applet::userField, &m_user}};
};

} // namespace

void CSettingsItem::OnDoubleClick(CWnd* parent)
try {
    CSettingsDialog dialog(parent);
    dialog.Load();
    if (dialog.DoModal() == IDOK) dialog.Save();
} catch (CException* e) {
    ExceptionMessageBox(parent, e, MB_ICONSTOP);
    e->Delete();
}
