#include "UploadItems.h"

#include <corekit/foundation/ChainedException.h>
#include <corekit/framework/MessageBox.h>
#include <corekit/framework/Module.h>
#include <corekit/hosts/NTServiceControlMgr.h>

void CStatusItem::OnDoubleClick(CWnd*)
{
    CNTServiceControlMgr manager;
    SERVICE_STATUS status{};
    if (!manager.OpenLocal(SC_MANAGER_CONNECT) || !manager.QueryServiceStatus("Script Upload", status)) {
        AfxMessageBox(GetLastErrorString(), MB_ICONEXCLAMATION);
        return;
    }
    const char* const word = status.dwCurrentState == SERVICE_RUNNING   ? "running"
                             : status.dwCurrentState == SERVICE_STOPPED ? "stopped"
                                                                        : "on its way";
    CString text;
    AfxFormatString1(text, applet::stateIs, word);
    AfxMessageBox(text, MB_ICONINFORMATION);
}
