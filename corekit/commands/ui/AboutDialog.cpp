#include "corekit/commands/ui/AboutDialog.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/foundation/ui/BitmapResource.h"
#include "corekit/foundation/VersionData.h"
#include "corekit/framework/ui/DataExchange.h"
#include "corekit/framework/ui/Dialog.h"
#include "corekit/platform/Statics.h"
#include "corekit/resources/dialogs/About.h"

namespace {

constexpr int pictureControl = 1002;

class AboutDialog final : public CDialog {
public:
    AboutDialog(CVersionData& version, UINT bitmapId, UINT captionId, CWnd* parent)
        : CDialog(corekit::detail::dialogs::about.id, parent), m_caption(LoadResourceString(captionId)),
          m_bitmapId(bitmapId)
    {
        version.GetFileDescription(m_texts[0]);
        version.GetFileVersion(m_texts[1]);
        version.GetCopyright(m_texts[2]);
        version.GetSpecialBuild(m_texts[3]);
        version.GetComments(m_texts[4]);
    }
    ~AboutDialog() override
    {
        if (m_bitmap) DeleteObject(m_bitmap);
    }

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        for (int k = 0; k < 5; ++k) DDX_Text(exchange, pictureControl + 1 + k, m_texts[k]);
    }

    BOOL OnInitDialog() override
    {
        SetWindowText(m_caption);
        CWnd* const picture = GetDlgItem(pictureControl);
        if (m_bitmapId == 0 && picture) picture->ShowWindow(SW_HIDE);
        if (m_bitmapId != 0) m_bitmap = AfxLoadBitmap(m_bitmapId);
        if (m_bitmap)
            SendDlgItemMessage(pictureControl, STM_SETIMAGE, IMAGE_BITMAP,
                               reinterpret_cast<LPARAM>(m_bitmap));
        return CDialog::OnInitDialog();
    }

private:
    CString m_caption, m_texts[5];
    UINT m_bitmapId;
    HBITMAP m_bitmap = nullptr;
};

} // namespace

int scShowStandardAboutDialog(HINSTANCE module, UINT bitmapId, UINT captionId, CWnd* parent)
{
    CVersionData version;
    if (!version.Initialise(module)) return 0;
    AboutDialog(version, bitmapId, captionId, parent).DoModal();
    return 1;
}
