#include "tests/cli/CliTestSupport.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// Another program in the middle of changing the configuration: it holds the preferences'
/// lock until it is let go.
class HeldLock
{
public:
    explicit HeldLock(const QString &path)
        : m_fd(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644))
    {
        EXPECT_GE(m_fd, 0);
        EXPECT_EQ(::flock(m_fd, LOCK_EX | LOCK_NB), 0);
    }
    ~HeldLock() { letGo(); }
    void letGo()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = -1;
    }

private:
    int m_fd = -1;
};

class LockWait : public CliTest
{
protected:
    static constexpr int patience = 30000;
    static inline const QString notice =
        u"Waiting for another program to finish changing the network configuration\u2026"_s;

    /// Starts `apply` of a one-VLAN project, confirmed, while the test goes on.
    void startApply(QProcess &process) const
    {
        const QString project = writeProject(
            Profile{.name = u"Show"_s,
                    .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true}}});
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, configFolder);
        environment.insert(u"XDG_DATA_HOME"_s, dataFolder);
        process.setProcessEnvironment(environment);
        process.setReadChannel(QProcess::StandardError);
        process.start(QStringLiteral(ORVANECTL_PATH),
                      {u"apply"_s, project, u"--on"_s, u"en5"_s, u"--yes"_s, u"--prefs"_s, folder});
        ASSERT_TRUE(process.waitForStarted());
        process.closeWriteChannel();
    }

    /// Standard error once it holds the notice, or all of it when the program ends first.
    static QString errorUntilNotice(QProcess &process)
    {
        QString err;
        while (!err.contains(notice) && process.state() == QProcess::Running
               && process.waitForReadyRead(patience))
            err += QString::fromUtf8(process.readAll());
        return err;
    }

    QString lockPath() const { return folder + u"/preferences.plist-lock"_s; }
};

TEST_F(LockWait, SaysItWaitsThenGoesOnWhenTheLockIsFreed)
{
    HeldLock other(lockPath());
    QProcess process;
    startApply(process);
    EXPECT_TRUE(errorUntilNotice(process).contains(notice));
    EXPECT_EQ(process.state(), QProcess::Running);
    other.letGo();
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(vlanTagged(*readStore(), 1060).tag, 1060);
}

TEST_F(LockWait, CtrlCWhileWaitingLeavesEverythingAsItWas)
{
    HeldLock other(lockPath());
    const auto before = machineFiles();
    QProcess process;
    startApply(process);
    EXPECT_TRUE(errorUntilNotice(process).contains(notice));
    ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    other.letGo();
    EXPECT_EQ(machineFiles(), before);
}

} // namespace
