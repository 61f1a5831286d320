#include "corekit/resources/ui/DialogTable.h"

#include "corekit/resources/dialogs/About.h"
#include "corekit/resources/dialogs/CodePage.h"
#include "corekit/resources/dialogs/CustomisePages.h"
#include "corekit/resources/dialogs/CustomMessages.h"
#include "corekit/resources/dialogs/Fonts.h"
#include "corekit/resources/dialogs/LoggingDetails.h"
#include "corekit/resources/dialogs/OptionsPages.h"
#include "corekit/resources/dialogs/Progress.h"
#include "corekit/resources/dialogs/SerialPortPage.h"
#include "corekit/resources/dialogs/ServiceStatus.h"
#include "corekit/resources/dialogs/UnicodePages.h"

std::span<const DialogTemplate> corekit::detail::dialogTable()
{
    using namespace corekit::detail::dialogs;
    static constexpr DialogTemplate all[] = {
        about,
        addFont,
        codePage,
        customMessage2,
        customMessage3,
        customMessage3Wide,
        customMessage4,
        customMessage5,
        customiseKeyboard,
        customiseToolbars,
        loggingDetails,
        macroToolbar,
        miscellaneous,
        newButton,
        newToolbar,
        optionsBlank,
        progress,
        progressTwin,
        progressTwinCancel,
        progressWithCancel,
        selectFont,
        selectFonts,
        serialPort,
        serviceStatus,
        status,
        unicodeGeneral,
        unicodeLanguages,
    };
    return all;
}
