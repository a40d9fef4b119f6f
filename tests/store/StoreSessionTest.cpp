#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/CountingBackend.h"

#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class StoreSession : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    // The failure that `acquire` throws, or none.
    std::optional<VLANError> acquireFailure()
    {
        NetworkAuthorization authorization(*platform);
        try {
            authorization.acquire();
        } catch (const VLANError &error) {
            EXPECT_FALSE(authorization.ref());
            return error;
        }
        EXPECT_TRUE(authorization.ref());
        return std::nullopt;
    }
};

TEST_F(StoreSession, PlainOpenerIsReadOnly)
{
    EXPECT_FALSE(readStore()->isWritable());
    EXPECT_TRUE(writeStore()->isWritable());
}

TEST_F(StoreSession, RightNameIsTheNetworkPreferences)
{
    EXPECT_EQ(NetworkAuthorization::rightName(), u"system.preferences.network"_s);
}

TEST_F(StoreSession, TargetSetIsTheCurrentOneByDefault)
{
    const auto store = readStore();
    EXPECT_EQ(store->selectedSetID(), std::nullopt);
    EXPECT_EQ(store->platform().scNetworkSetGetName(store->targetSet()), u"Show"_s);
}

TEST_F(StoreSession, SelectedSetIsTheTarget)
{
    const auto store = readStore();
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s);
    EXPECT_EQ(store->platform().scNetworkSetGetName(store->targetSet()), u"Office"_s);
    EXPECT_EQ(store->services().size(), 2);
}

TEST_F(StoreSession, VanishedSelectionReadsEmptyAndRefusesWrites)
{
    const auto store = readStore();
    store->setSelectedSetID(u"NO-SUCH-SET"_s);
    EXPECT_FALSE(store->targetSet());
    EXPECT_TRUE(store->services().isEmpty());
    EXPECT_TRUE(store->serviceIndex().isEmpty());
    EXPECT_TRUE(store->adaptersWithoutService().isEmpty());
    // The VLANs belong to the machine; only their services are the Location's.
    const VLANRecord control = vlanTagged(*store, 1010);
    EXPECT_FALSE(control.hasService());
    try {
        (void)store->requireService(control.bsdName, u"Control"_s);
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::noCurrentSet);
    }
}

TEST_F(StoreSession, MachineWithoutCurrentSetBehavesAlike)
{
    editPreferences([](QVariantMap &preferences) { preferences.remove(u"CurrentSet"_s); });
    const auto store = readStore();
    EXPECT_FALSE(store->targetSet());
    EXPECT_TRUE(store->services().isEmpty());
    EXPECT_THROW((void)store->requireService(u"X"_s, u"X"_s), VLANError);
}

TEST_F(StoreSession, CommitOnReadOnlyStoreFailsEvenWithNothingStaged)
{
    const auto store = readStore();
    try {
        store->commit();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(), u"This session is read-only."_s);
    }
}

TEST_F(StoreSession, CommitOfAStaleSnapshotFailsWithTheSystemsWords)
{
    const auto first = writeStore();
    const auto second = writeStore();
    (void)first->vlans();
    (void)second->vlans();
    first->renameVLAN(1010, u"vlan0"_s, u"Control A"_s);
    first->commit();
    const QByteArray committed = preferencesBytes();
    second->renameVLAN(1012, u"vlan1"_s, u"Audio B"_s);
    try {
        second->commit();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::commitFailed);
        EXPECT_EQ(error.errorDescription(),
                  u"Committing the configuration failed: Write attempted on stale version of "
                  u"object (3005)"_s);
    }
    EXPECT_EQ(preferencesBytes(), committed);
}

// A commit that the file system refuses (here a file-size limit, as a full disk would) says so in
// the system's words and code, and the old file stays whole.
TEST_F(StoreSession, CommitRefusedByTheFileSystemGivesItsWordsAndKeepsTheFile)
{
    const QByteArray before = preferencesBytes();
    int channel[2];
    ASSERT_EQ(::pipe(channel), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::close(channel[0]);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        QByteArray said = "(no failure)";
        try {
            const auto store = writeStore();
            (void)store->createVLAN(1060, u"Press"_s, u"en5"_s, IPConfig::dhcp(), true);
            store->commit();
        } catch (const VLANError &error) {
            said = error.errorDescription().toUtf8();
        }
        (void)!::write(channel[1], said.constData(), static_cast<size_t>(said.size()));
        ::_exit(0);
    }
    ::close(channel[1]);
    QByteArray said;
    char buffer[512];
    for (ssize_t got; (got = ::read(channel[0], buffer, sizeof buffer)) > 0;)
        said.append(buffer, got);
    ::close(channel[0]);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(QString::fromUtf8(said), u"Committing the configuration failed: "_s
                                           + QString::fromLocal8Bit(std::strerror(EFBIG))
                                           + u" (%1)"_s.arg(EFBIG));
    EXPECT_EQ(preferencesBytes(), before);
}

TEST_F(StoreSession, StagedChangesAreInvisibleToAnotherStoreUntilCommit)
{
    const auto writer = writeStore();
    writer->renameVLAN(1010, u"vlan0"_s, u"Control A"_s);
    EXPECT_EQ(vlanTagged(*writer, 1010).name, u"Control A"_s);
    EXPECT_EQ(vlanTagged(*readStore(), 1010).name, u"1010 - Control (DONGLE)"_s);
    writer->commit();
    EXPECT_EQ(vlanTagged(*readStore(), 1010).name, u"Control A"_s);
}

TEST_F(StoreSession, DroppedStoreLeavesTheFileAsItWas)
{
    const QByteArray before = preferencesBytes();
    {
        const auto writer = writeStore();
        writer->removeVLAN(1010, u"vlan0"_s);
    }
    EXPECT_EQ(preferencesBytes(), before);
    EXPECT_EQ(readStore()->vlans().size(), 12);
}

TEST_F(StoreSession, DeniedRightIsAuthorizationDenied)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const auto failure = acquireFailure();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::authorizationDenied);
}

TEST_F(StoreSession, CancelledDialogIsAuthorizationDeniedNotFailed)
{
    answerAdministrator(u"answer = \"cancel\""_s);
    const auto failure = acquireFailure();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::authorizationDenied);
    EXPECT_EQ(failure->errorDescription(),
              u"Authorization was denied or cancelled \u2014 no changes were made."_s);
}

TEST_F(StoreSession, OtherStatusIsAuthorizationFailedWithIt)
{
    answerAdministrator(u"answer = \"fail\"\nstatus = -60008"_s);
    const auto failure = acquireFailure();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::authorizationFailed);
    EXPECT_EQ(failure->status(), -60008);
}

TEST_F(StoreSession, SuccessWithoutHandleIsAuthorizationFailedWithZero)
{
    answerAdministrator(u"answer = \"no-handle\""_s);
    const auto failure = acquireFailure();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::authorizationFailed);
    EXPECT_EQ(failure->errorDescription(), u"Authorization could not be created (OSStatus 0)."_s);
}

TEST_F(StoreSession, AllowedRightIsHeld)
{
    EXPECT_EQ(acquireFailure(), std::nullopt);
}

TEST_F(StoreSession, CanHostServiceLeavesNoServiceBehind)
{
    const auto store = readStore();
    const QByteArray before = preferencesBytes();
    const auto countAll = [&] {
        return store->platform()
            .scNetworkServiceCopyAll(store->prefs())
            .value_or(QList<ServiceRef>())
            .size();
    };
    const qsizetype services = countAll();
    const QList<ServiceRecord> listed = store->services();
    for (const InterfaceRef &interface : store->attachedInterfaces())
        (void)store->canHostService(interface);
    EXPECT_EQ(countAll(), services);
    EXPECT_EQ(store->services(), listed);
    EXPECT_EQ(preferencesBytes(), before);
}

TEST_F(StoreSession, CanHostServiceCanBeStoodIn)
{
    const auto store = readStore();
    store->setCanHostService([](const InterfaceRef &) { return false; });
    editPreferences([](QVariantMap &) {});
    EXPECT_FALSE(store->canHostService({}));
}

TEST_F(StoreSession, SelfTestNeedsAnAuthorizedSession)
{
    try {
        (void)readStore()->selfTestWrite();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(), u"Self test needs an authorized session."_s);
    }
}

TEST_F(StoreSession, SelfTestWritesTheFirstVLANsNameBackAndCommits)
{
    const auto store = writeStore();
    const QString name = store->selfTestWrite();
    EXPECT_FALSE(name.isEmpty());
    QStringList names;
    for (const VLANRecord &vlan : readStore()->vlans())
        names.append(vlan.name);
    EXPECT_TRUE(names.contains(name));
}

TEST_F(StoreSession, SelfTestWithoutVLANsFailsAndChangesNothing)
{
    openSynthetic(0);
    const QByteArray before = preferencesBytes();
    try {
        (void)writeStore()->selfTestWrite();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(), u"No VLAN available to test against."_s);
    }
    EXPECT_EQ(preferencesBytes(), before);
}

// The document backend always names a VLAN; this one answers nothing for VLANs, as a system
// might for an interface it has no words for.
class UnnamedVLANs : public CountingBackend
{
public:
    using CountingBackend::CountingBackend;
    std::optional<QString>
    scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface) override
    {
        if (scNetworkInterfaceGetInterfaceType(interface) == u"VLAN"_s)
            return std::nullopt;
        return CountingBackend::scNetworkInterfaceGetLocalizedDisplayName(interface);
    }
};

TEST_F(StoreSession, SelfTestOnAVLANWithoutNameWritesTheWordVLAN)
{
    openSynthetic(1);
    const Platform unnamed(std::make_shared<UnnamedVLANs>(platform->sharedBackend()));
    NetworkAuthorization authorization(unnamed);
    authorization.acquire();
    VLANStore store(unnamed, authorization);
    EXPECT_EQ(store.selfTestWrite(), u"VLAN"_s);
    EXPECT_EQ(vlanTagged(*readStore(), 1).name, u"VLAN"_s);
}

TEST_F(StoreSession, UnreadablePreferencesAreRefusedAndKept)
{
    temporary.write(u"machine/preferences.plist"_s, "<plist><dict><key>broken");
    try {
        platform = Platform::overFolder(folder);
        (void)readStore();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_TRUE(error.errorDescription().contains(u"preferences.plist"_s))
            << error.errorDescription().toStdString();
    }
    EXPECT_EQ(preferencesBytes(), QByteArray("<plist><dict><key>broken"));
}

} // namespace
