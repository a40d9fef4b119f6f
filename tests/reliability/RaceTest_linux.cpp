// Two processes commit their own changes to one folder, 200 times each, while the model reloads
// over it: every commit lands or is refused as stale in the framework's words, no landed change
// is lost, and no reload shows half of a commit.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "tests/model/ModelTestSupport.h"

#include <QFile>

#include <csignal>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int commitsPerWriter = 200;
// Reloads of the model at most, whatever the writers do: the test ends in bounded work.
constexpr int mostReloads = 20000;

const QString staleWords =
    VLANError::commitFailed(u"Write attempted on stale version of object (3005)"_s)
        .errorDescription();

struct Writer
{
    QString name;
    /// The VLAN whose name counts this writer's landed commits: "<name> <count>".
    qint64 counterTag = 0;
};

const Writer writerA{u"A"_s, 1010};
const Writer writerB{u"B"_s, 1012};

std::optional<int> countIn(const QString &vlanName, const Writer &writer)
{
    const QString prefix = writer.name + u' ';
    if (!vlanName.startsWith(prefix))
        return 0; // not counted yet: the example machine's own name
    const auto count = parseInteger(vlanName.mid(prefix.size()));
    return count ? std::optional<int>(static_cast<int>(*count)) : std::nullopt;
}

class Race : public ModelTest
{
protected:
    /// A child that makes `commitsPerWriter` commits, each raising its counter by one, and
    /// writes how many landed and how many were refused as stale; any other failure ends it
    /// with status 1.
    pid_t startWriter(const Writer &writer) const
    {
        const pid_t child = ::fork();
        if (child != 0)
            return child;
        int landed = 0;
        int stale = 0;
        for (int commit = 0; commit < commitsPerWriter; ++commit) {
            try {
                const Platform writing = Platform::overFolder(folder);
                NetworkAuthorization authorization(writing);
                authorization.acquire();
                VLANStore store(writing, authorization);
                const VLANRecord own = vlanTagged(store, writer.counterTag);
                const int count = countIn(own.name, writer).value_or(-1);
                store.renameVLAN(own.tag, own.bsdName,
                                 writer.name + u' ' + QString::number(count + 1));
                store.commit();
                ++landed;
            } catch (const VLANError &error) {
                if (error.errorDescription() != staleWords) {
                    std::fprintf(stderr, "%s\n", qPrintable(error.errorDescription()));
                    ::_exit(1);
                }
                ++stale;
            }
        }
        QFile report(folder + u"/writer-"_s + writer.name);
        if (!report.open(QIODevice::WriteOnly))
            ::_exit(1);
        report.write(QByteArray::number(landed) + ' ' + QByteArray::number(stale));
        report.close();
        ::_exit(0);
    }

    std::pair<int, int> reportOf(const Writer &writer) const
    {
        QFile report(folder + u"/writer-"_s + writer.name);
        if (!report.open(QIODevice::ReadOnly))
            return {-1, -1};
        const QStringList parts = QString::fromLatin1(report.readAll()).split(u' ');
        return {static_cast<int>(parseInteger(parts.value(0)).value_or(-1)),
                static_cast<int>(parseInteger(parts.value(1)).value_or(-1))};
    }
};

TEST_F(Race, TwoWritersAndAReloadingModelLoseNothingAndSeeNothingHalfDone)
{
    const auto model = makeModel();
    const pid_t first = startWriter(writerA);
    const pid_t second = startWriter(writerB);
    ASSERT_GT(first, 0);
    ASSERT_GT(second, 0);
    int running = 2;
    int statuses = 0;
    int reloads = 0;
    std::map<QString, int> seen{{writerA.name, 0}, {writerB.name, 0}};
    while (running > 0 && reloads < mostReloads) {
        model->reload();
        ++reloads;
        ASSERT_EQ(model->loadError(), std::nullopt) << "reload " << reloads;
        for (const Writer &writer : {writerA, writerB}) {
            for (const VLANRecord &vlan : model->existing()) {
                if (vlan.tag != writer.counterTag)
                    continue;
                // A commit renames the interface and its service together.
                EXPECT_EQ(vlan.serviceName, vlan.name) << "reload " << reloads;
                const std::optional<int> count = countIn(vlan.name, writer);
                ASSERT_TRUE(count) << vlan.name.toStdString();
                EXPECT_GE(*count, seen[writer.name]) << "a counter went back";
                seen[writer.name] = *count;
            }
        }
        for (const pid_t child : {first, second}) {
            int status = 0;
            if (::waitpid(child, &status, WNOHANG) == child) {
                --running;
                statuses += WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 1 : 0;
            }
        }
    }
    // Bounded: writers still running after the last reload are ended here.
    for (const pid_t child : {first, second}) {
        if (running > 0 && ::waitpid(child, nullptr, WNOHANG) == 0) {
            ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
        }
    }
    ASSERT_EQ(running, 0) << "the writers did not finish within " << mostReloads << " reloads";
    EXPECT_EQ(statuses, 2) << "a commit failed other than as stale";

    const auto store = readStore();
    for (const Writer &writer : {writerA, writerB}) {
        const auto [landed, stale] = reportOf(writer);
        EXPECT_EQ(landed + stale, commitsPerWriter);
        // Every landed commit raised the counter from what the one before it left.
        EXPECT_EQ(countIn(vlanTagged(*store, writer.counterTag).name, writer), landed);
        RecordProperty((writer.name + u"landed"_s).toStdString(), landed);
        std::printf("writer %s: %d landed, %d stale\n", qPrintable(writer.name), landed, stale);
    }
    std::printf("%d reloads\n", reloads);
    RecordProperty("reloads", reloads);
}

} // namespace
