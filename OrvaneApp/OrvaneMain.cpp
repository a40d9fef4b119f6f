#include "OrvaneApp/OrvaneMain.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

} // namespace

int OrvaneMain::main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"Orvane"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains(u"--version"_s)) {
        print(u"Orvane "_s + QCoreApplication::applicationVersion() + u'\n');
        return 0;
    }
    // The window is not part of this build yet: say so plainly rather than open nothing.
    print(u"Orvane "_s + QCoreApplication::applicationVersion()
          + u" \u2014 Bulk VLAN management for macOS.\n"
            u"The window is not part of this build yet; the command line orvanectl reads and "
            u"changes the network preferences.\n"_s);
    return 0;
}
