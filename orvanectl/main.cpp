#include "VLANKit/platform/document/PreferencesLock.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"orvanectl"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
    // A commit waits for another program's lock without a word; a person at the terminal is
    // told why nothing happens. Ctrl-C then ends the wait before anything is written.
    VLANKit::PreferencesLock::setWaitingNotice([] {
        Orvanectl::writeError(u"Waiting for another program to finish changing the network "
                              "configuration\u2026\n"_s);
    });
    return Orvanectl::run(QCoreApplication::arguments().mid(1));
}
