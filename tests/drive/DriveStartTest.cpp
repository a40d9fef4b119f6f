#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The program started as a person would, on a copy of the example machine.
class DriveStart : public ::testing::Test
{
protected:
    DriveStart()
        : machine(temporary.copyOf(u"examples/show-mac"_s, u"mac"_s))
    {}

    /// Standard output's lines; the status goes to `status`.
    QStringList orvane(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, temporary.filePath(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, temporary.filePath(u"data"_s));
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(ORVANE_PATH), arguments + QStringList{u"--prefs"_s, machine});
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished();
            ADD_FAILURE() << "orvane did not finish and was killed";
            return {};
        }
        status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }

    TemporaryFolder temporary;
    QString machine;
    int status = -1;
};

} // namespace

TEST_F(DriveStart, TheRenderProofWinsOverTheDriveProof)
{
    const QString picture = temporary.filePath(u"current.png"_s);
    const QStringList lines = orvane({u"--render"_s, u"current"_s, picture, u"--drive-proof"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(QFileInfo::exists(picture));
    EXPECT_EQ(lines.value(0), u"render: "_s + picture);
    EXPECT_TRUE(lines.filter(u"drive-proof:"_s).isEmpty()) << qPrintable(lines.join(u'\n'));
}

TEST_F(DriveStart, NoCareStillMakesThePicture)
{
    const QString picture = temporary.filePath(u"current.png"_s);
    const QStringList lines = orvane({u"--no-care"_s, u"--render"_s, u"current"_s, picture});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(QFileInfo::exists(picture));
    EXPECT_EQ(lines.value(0), u"render: "_s + picture);
}
