#include "corekit/platform/Toolkit.h"

#include "corekit/platform/qt/windows/NeverDestroyed.h"

#include <clocale>
#include <QApplication>

namespace {

// The toolkit keeps references to both for as long as the application object lives.
int argumentCount = 1;
char programName[] = "corekit";
char* arguments[] = {programName, nullptr};

// A platform that cannot be opened ends the process, so a working one always stands last.
QByteArray platformFor(ToolkitDisplay display)
{
    if (display == ToolkitDisplay::offscreen) return "offscreen";
    const bool wayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool x11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    return QByteArray(wayland ? "wayland;" : "") + (x11 ? "xcb;" : "") + "offscreen";
}

// Outside of a session the toolkit complains that there is no folder for run-time files, which nothing here
// uses. Its other messages go where they always go.
QtMessageHandler elsewhere = nullptr;

void passOnMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("QStandardPaths: "))) elsewhere(type, context, message);
}

// The toolkit takes over the user's locale; numbers that the runtime writes and reads keep their point, so
// that what one user has stored another can read.
void keepDecimalPoint() { std::setlocale(LC_NUMERIC, "C"); }
Q_COREAPP_STARTUP_FUNCTION(keepDecimalPoint)

// Whether it was this library's choice to draw into memory.
bool isUnseen = false;

} // namespace

bool ToolkitIsRunning() { return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr; }

bool StartToolkit(ToolkitDisplay display)
{
    if (QCoreApplication::instance()) return ToolkitIsRunning();
    const QByteArray wish = qgetenv("QT_QPA_PLATFORM");
    if (display == ToolkitDisplay::offscreen || wish.isEmpty())
        qputenv("QT_QPA_PLATFORM", platformFor(display));
    isUnseen = wish != "offscreen";
    elsewhere = qInstallMessageHandler(passOnMessage);
    static corekit::detail::NeverDestroyed<QApplication> application(argumentCount, arguments);
    qInstallMessageHandler(elsewhere);
    return ToolkitIsRunning();
}

bool ToolkitHasDisplay()
{
    return ToolkitIsRunning() && !(isUnseen && QGuiApplication::platformName() == QLatin1String("offscreen"));
}
