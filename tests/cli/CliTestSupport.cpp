#include "tests/cli/CliTestSupport.h"

#include "VLANKit/project/ProfileIO.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace VLANKit;

QStringList CliRun::lines() const
{
    QString text = out;
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text.split(u'\n');
}

QString CliRun::lastErrorLine() const
{
    QString text = err;
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text.section(u'\n', -1);
}

QJsonObject CliRun::json() const
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError)
        << "standard output is no JSON: " << out.toStdString();
    EXPECT_TRUE(document.isObject()) << "standard output holds no JSON object";
    return document.object();
}

CliTest::CliTest()
    : configFolder(temporary.filePath(u"config"_s))
    , dataFolder(temporary.filePath(u"data"_s))
{
    openCopyOf();
}

CliRun CliTest::orvanectl(const QStringList &arguments, const QByteArray &input) const
{
    return orvanectlAlone(arguments + QStringList{u"--prefs"_s, folder}, input);
}

CliRun CliTest::orvanectlAlone(const QStringList &arguments, const QByteArray &input) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, configFolder);
    environment.insert(u"XDG_DATA_HOME"_s, dataFolder);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVANECTL_PATH), arguments);
    CliRun run;
    if (!process.waitForStarted()) {
        ADD_FAILURE() << "orvanectl did not start";
        return run;
    }
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) {
        ADD_FAILURE() << "orvanectl did not finish";
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

QString CliTest::writeProject(const Profile &profile, const QString &name) const
{
    const QString path = temporary.filePath(name);
    ProfileIO::write(profile, path);
    return path;
}

QMap<QString, QByteArray> CliTest::machineFiles() const
{
    QMap<QString, QByteArray> files;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        files.insert(name, bytesOf(dir.filePath(name)));
    return files;
}

QByteArray CliTest::bytesOf(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString CliTest::defaultsPath() const
{
    return configFolder + u"/com.quillfence.orvane.plist"_s;
}

IPConfig manualIP(const QString &address, const QString &mask)
{
    return IPConfig{IPMode::manual, address, mask, std::nullopt, {}};
}

QStringList cellsOf(const QString &line)
{
    static const QRegularExpression gap(u" {2,}"_s);
    return line.split(gap);
}
