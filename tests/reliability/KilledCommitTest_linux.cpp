// A process that commits in a loop, killed with SIGKILL at a moment chosen by counting its system
// calls, a thousand times over: each time the folder holds one whole document, no lock blocks the
// next session, and no temporary file outlives the next commit.
#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/formats/PropertyList.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/KilledChild_linux.h"
#include "tests/support/RefreshReads.h"
#include "tests/support/SyntheticMachine.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int vlanCount = 200;
constexpr int kills = 1000;
// Commits a child makes before it ends on its own, if no kill comes first: one, so that the
// kills fall on the reading of the document and on its writing alike.
constexpr int commitsPerChild = 1;

const QString generationPrefix = u"Generation "_s;

int generationOf(const QString &locationName)
{
    if (!locationName.startsWith(generationPrefix))
        return 0;
    return static_cast<int>(parseInteger(locationName.mid(generationPrefix.size())).value_or(0));
}

// The tag whose VLAN a generation renames after itself.
qint64 ownedTag(int generation)
{
    return generation % vlanCount + 1;
}

// Even generations make one VLAN above the machine's, odd ones remove it again.
constexpr qint64 extraTag = 4000;

std::optional<VLANRecord> vlanWithTag(const VLANStore &store, qint64 tag)
{
    for (const VLANRecord &vlan : store.vlans()) {
        if (vlan.tag == tag)
            return vlan;
    }
    return std::nullopt;
}

// One transaction of the loop: the Location takes the next generation's name, the VLAN that
// generation owns takes it too, a VLAN is made or removed, and that VLAN's service moves to the
// front of the order.
void commitNextGeneration(const QString &folder)
{
    const Platform platform = Platform::overFolder(folder);
    NetworkAuthorization authorization(platform);
    authorization.acquire();
    VLANStore store(platform, authorization);
    const QString location = store.activeLocation()->name;
    const int generation = generationOf(location) + 1;
    store.renameLocation(location, generationPrefix + QString::number(generation));
    const VLANRecord owned = *vlanWithTag(store, ownedTag(generation));
    store.renameVLAN(owned.tag, owned.bsdName, u"g "_s + QString::number(generation));
    if (generation % 2 == 0)
        (void)store.createVLAN(extraTag, u"extra"_s, u"en5"_s, IPConfig::dhcp(), true);
    else if (const auto extra = vlanWithTag(store, extraTag))
        store.removeVLAN(extraTag, extra->bsdName);
    QStringList order{*owned.serviceID};
    for (const ServiceRecord &service : store.services()) {
        if (service.serviceID != owned.serviceID)
            order.append(service.serviceID);
    }
    store.setServiceOrder(order);
    store.commit();
}

class KilledCommit : public StoreTest
{
protected:
    void SetUp() override
    {
        folder = inMemory.filePath(u"machine"_s);
        writeSyntheticMachine(folder, vlanCount);
        platform = Platform::overFolder(folder);
        // A thousand children each read and commit a document of hundreds of VLANs: checking
        // every kept table at each use would make that hours. The fuzz target of a document
        // folder runs the readers with the check on.
        VLANStore::setVerifyingTables(false);
    }

    TemporaryFolder inMemory{TemporaryFolder::Medium::memory};

    QStringList temporaries() const
    {
        return QDir(folder).entryList({u"*.new-*"_s}, QDir::Files | QDir::Hidden);
    }

    /// Whether a session could take the preferences lock now, without waiting.
    bool lockIsFree() const
    {
        const QByteArray lockPath = QFile::encodeName(folder + u"/preferences.plist-lock"_s);
        const int fd = ::open(lockPath.constData(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return true; // no lock file: nobody holds it
        const bool free = ::flock(fd, LOCK_EX | LOCK_NB) == 0;
        ::close(fd);
        return free;
    }

    /// The document must be one generation's, whole: the Location's name and the VLAN that
    /// generation renamed agree, and the extra VLAN stands exactly in even generations.
    int checkWhole() const
    {
        EXPECT_TRUE(parsePropertyList(preferencesBytes()));
        const auto store = readStore();
        const QString location = store->activeLocation()->name;
        const int generation = generationOf(location);
        const Defaults defaults = Defaults::inFile(folder + u"/defaults.plist"_s);
        readAsARefreshDoes(*store, location, defaults);
        if (generation > 0) {
            EXPECT_EQ(vlanTagged(*store, ownedTag(generation)).name,
                      u"g "_s + QString::number(generation));
        }
        const bool extraStands = vlanWithTag(*store, extraTag).has_value();
        EXPECT_EQ(extraStands, generation > 0 && generation % 2 == 0) << generation;
        EXPECT_EQ(store->vlans().size(), vlanCount + (extraStands ? 1 : 0));
        return generation;
    }
};

TEST_F(KilledCommit, EveryKillLeavesOneWholeDocumentAFreeLockAndNoTemporaryAfterTheNextCommit)
{
    const auto work = [this] {
        for (int commit = 0; commit < commitsPerChild; ++commit)
            commitNextGeneration(folder);
    };
    // How many system calls a child makes when nobody kills it: the span the kills are drawn from.
    const KilledChild whole = killAtSyscall(work, std::numeric_limits<int>::max(), true);
    const int span = whole.syscalls;
    ASSERT_GT(span, 100);
    // Half the kills anywhere, half among the calls of the two atomic writes: those are few
    // beside the reading, and they are where a half-written file could come from.
    const std::vector<int> writing = momentsOfWriting(whole.calls, 12);
    ASSERT_FALSE(writing.empty());
    QRandomGenerator random(20261125);
    int killed = 0;
    int killedMidWrite = 0;
    int lastGeneration = checkWhole();
    // A child that happens to finish before its chosen call is not a kill: draw again, within
    // bounds.
    for (int round = 0; killed < kills && round < 2 * kills; ++round) {
        const int moment = round % 2 == 0
                               ? random.bounded(1, span)
                               : writing[random.bounded(static_cast<int>(writing.size()))];
        const KilledChild child = killAtSyscall(work, moment);
        killed += child.killed ? 1 : 0;
        killedMidWrite += temporaries().isEmpty() ? 0 : 1;
        ASSERT_TRUE(lockIsFree()) << "round " << round;
        const int generation = checkWhole();
        EXPECT_GE(generation, lastGeneration);
        commitNextGeneration(folder);
        ASSERT_TRUE(temporaries().isEmpty()) << "round " << round;
        lastGeneration = generationOf(readStore()->activeLocation()->name);
        ASSERT_EQ(lastGeneration, generation + 1);
        if (HasFailure())
            break;
    }
    EXPECT_EQ(killed, kills);
    // The kills must reach the writes too, not only the reading before them.
    EXPECT_GT(killedMidWrite, kills / 10);
    RecordProperty("kills", killed);
    RecordProperty("killsDuringAWrite", killedMidWrite);
    RecordProperty("generations", lastGeneration);
    std::printf("%d kills, %d during a write, %d generations committed\n", killed, killedMidWrite,
                lastGeneration);
}

} // namespace
