#include "OrvaneApp/OrvaneMain.h"

#include "OrvaneApp/proof/RenderProof.h"
#include "OrvaneApp/proof/RenderRequest.h"
#include "VLANKit/Platform.h"
#include "VLANKit/core/VLANError.h"

#include <QApplication>
#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toUtf8().constData(), stream);
    std::fflush(stream);
}

QStringList processArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

void nameTheApplication()
{
    QCoreApplication::setApplicationName(u"Orvane"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
}

/// The picture maker's life: off screen unless a platform was asked for, one picture, one exit.
int renderPicture(int argc, char **argv, const RenderRequest &request, const QStringList &arguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    nameTheApplication();
    try {
        RenderProof proof(request, VLANKit::choosePlatform(arguments),
                          VLANKit::Defaults::standard());
        return proof.run();
    } catch (const std::exception &failure) {
        print(stdout, u"render: could not read the configuration \u2014 "_s
                          + VLANKit::localizedDescription(failure) + u'\n');
        return 1;
    }
}

} // namespace

int OrvaneMain::main(int argc, char **argv)
{
    const QStringList arguments = processArguments(argc, argv);
    // Drive care comes first of all, unless "--no-care": it is not part of this build yet.

    // A bad "--render" line ends here, before any application object exists.
    const RenderRequest::Parsed render =
        RenderRequest::parse(VLANKit::withoutPlatformArguments(arguments));
    if (std::holds_alternative<RenderRequest::BadLine>(render)) {
        print(stderr, RenderRequest::usage() + u'\n');
        return 1;
    }
    if (const auto *request = std::get_if<RenderRequest>(&render))
        return renderPicture(argc, argv, *request, arguments);

    QCoreApplication application(argc, argv);
    nameTheApplication();
    if (arguments.contains(u"--version"_s)) {
        print(stdout, u"Orvane "_s + QCoreApplication::applicationVersion() + u'\n');
        return 0;
    }
    // The window is not part of this build yet: say so plainly rather than open nothing.
    print(stdout, u"Orvane "_s + QCoreApplication::applicationVersion()
                      + u" \u2014 Bulk VLAN management for macOS.\n"
                        u"The window is not part of this build yet; the command line orvanectl "
                        u"reads and changes the network preferences, and \u201c--render result "
                        u"out.png\u201d draws the result sheet.\n"_s);
    return 0;
}
