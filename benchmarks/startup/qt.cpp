#include "Service.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    QFile log(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/startup-qt.log"));
    if (!log.open(QIODevice::Append)) return 1;
    log.write("started\n");
    log.flush();
    QSettings settings(QStringLiteral("startup"), QStringLiteral("startup"));
    settings.value(QStringLiteral("Interval"));
    std::printf("%ld\n", residentKibibytes());
    return 0;
}
