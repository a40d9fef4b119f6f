#include "OrvaneApp/OrvaneMain.h"

#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/DriveProof.h"
#include "OrvaneApp/drive/ProofSignal.h"
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/proof/RenderProof.h"
#include "OrvaneApp/proof/RenderRequest.h"
#include "OrvaneApp/surfaces/ContentView.h"
#include "OrvaneApp/surfaces/MainWindow.h"
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

/// One picture, with the application object already made.
int drawPicture(const RenderRequest &request, const QStringList &arguments)
{
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

/// The lives without a window are off screen unless a platform was asked for.
void offScreenUnlessAsked()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// The picture maker's life: one picture, one exit.
int renderPicture(int argc, char **argv, const RenderRequest &request, const QStringList &arguments)
{
    offScreenUnlessAsked();
    QApplication application(argc, argv);
    nameTheApplication();
    return drawPicture(request, arguments);
}

/// The drive proof's life: its lines, then a picture on each SIGUSR1 until the drive goes.
int proveTheDrive(int argc, char **argv, const DriveProof &proof, const QStringList &arguments)
{
    offScreenUnlessAsked();
    QApplication application(argc, argv);
    nameTheApplication();
    return proof.run(
        [&arguments](const RenderRequest &request) { return drawPicture(request, arguments); });
}

/// The window application: one model for the whole process, one main window.
int openTheWindow(int argc, char **argv, const QStringList &arguments)
{
    QApplication application(argc, argv);
    nameTheApplication();
    QApplication::setFont(Theme::base());
    std::optional<VLANKit::Platform> platform;
    try {
        platform = VLANKit::choosePlatform(arguments);
    } catch (const std::exception &failure) {
        print(stderr, VLANKit::localizedDescription(failure) + u'\n');
        return 1;
    }
    const VLANKit::Defaults defaults = VLANKit::Defaults::standard();
    AppModel model(*platform, defaults, false);
    MainWindow window(model, new ContentView(model, defaults, false));
    window.show();
    return QApplication::exec();
}

} // namespace

int OrvaneMain::main(int argc, char **argv)
{
    const QStringList arguments = processArguments(argc, argv);
    // SIGUSR1 belongs to the drive proof: blocked before drive care starts its thread, so
    // that no thread but the proof's reader ever takes it.
    ProofSignal::block();
    if (!arguments.contains(u"--no-care"_s))
        DriveCare::beginForThisApp();

    // A bad "--render" line ends here, before any application object exists.
    const RenderRequest::Parsed render =
        RenderRequest::parse(VLANKit::withoutPlatformArguments(arguments));
    if (std::holds_alternative<RenderRequest::BadLine>(render)) {
        print(stderr, RenderRequest::usage() + u'\n');
        return 1;
    }
    if (const auto *request = std::get_if<RenderRequest>(&render)) {
        ProofSignal::unblock();
        return renderPicture(argc, argv, *request, arguments);
    }
    if (const std::optional<DriveProof> proof = DriveProof::parse(arguments))
        return proveTheDrive(argc, argv, *proof, arguments);
    ProofSignal::unblock();

    if (arguments.contains(u"--version"_s)) {
        QCoreApplication application(argc, argv);
        nameTheApplication();
        print(stdout, u"Orvane "_s + QCoreApplication::applicationVersion() + u'\n');
        return 0;
    }
    return openTheWindow(argc, argv, arguments);
}
