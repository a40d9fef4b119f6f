// The VLAN calls: kernel names, tags, parents and display names, over the reference's files.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class VLANs : public DocumentTest
{
protected:
    void SetUp() override
    {
        openFixture();
        session = writeSession();
    }
    QVariantMap committed() const
    {
        return anyMap(*parsePropertyList(bytesOf(u"preferences.plist"_s))).value_or(QVariantMap());
    }
    InterfaceRef create(qint64 tag, const QString &parent = u"en7"_s)
    {
        return backend->scVLANInterfaceCreate(session, adapterNamed(parent), tag);
    }

    SessionRef session;
};

TEST_F(VLANs, NewVLANsTakeTheFirstFreeNamesAndReuseGaps)
{
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan1"_s)));
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan2"_s)));
    QStringList names;
    for (qint64 tag : {20, 21, 22, 23})
        names.append(backend->scNetworkInterfaceGetBSDName(create(tag)).value_or(QString()));
    EXPECT_EQ(names, (QStringList{u"vlan1"_s, u"vlan2"_s, u"vlan4"_s, u"vlan5"_s}));
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(VLANs, ANewVLANIsStoredWithItsParentAndTagAndNothingElse)
{
    const InterfaceRef vlan = create(1020);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(vlan), kSCNetworkInterfaceTypeVLAN);
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(vlan), u"VLAN (vlan4)"_s);
    EXPECT_EQ(backend->scNetworkServiceCopyAll(session)->size(), 10) << "no service comes with it";
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(committed()
                  .value(u"VirtualNetworkInterfaces"_s)
                  .toMap()
                  .value(u"VLAN"_s)
                  .toMap()
                  .value(u"vlan4"_s)
                  .toMap(),
              (QVariantMap{{u"Interface"_s, u"en7"_s}, {u"Tag"_s, qint64(1020)}}));
}

TEST_F(VLANs, CreateRefusesATagOutOfRangeAndAnAdapterThatCarriesNoVLAN)
{
    for (qint64 tag : {0, 4095, -1}) {
        EXPECT_FALSE(create(tag)) << tag;
        EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    }
    EXPECT_TRUE(create(4094));
    EXPECT_FALSE(create(100, u"en1"_s)) << "Wi-Fi";
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    EXPECT_FALSE(backend->scVLANInterfaceCreate(session, vlanNamed(session, u"vlan0"_s), 100))
        << "a VLAN on a VLAN";
    EXPECT_FALSE(backend->scVLANInterfaceCreate(session, InterfaceRef(), 100));
}

TEST_F(VLANs, OneTagMayStandOnTwoAdapters)
{
    EXPECT_TRUE(create(1010, u"en0"_s));
    EXPECT_FALSE(create(1010, u"en7"_s));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
}

TEST_F(VLANs, RemovingAVLANLeavesItsServices)
{
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan3"_s)));
    EXPECT_EQ(vlanNames(session), (QStringList{u"vlan0"_s, u"vlan1"_s, u"vlan2"_s}));
    EXPECT_EQ(backend->scNetworkServiceCopyAll(session)->size(), 10);
}

TEST_F(VLANs, RemovingTheLastVLANPrunesTheirDictionaries)
{
    for (const QString &name : vlanNames(session))
        ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, name)));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_FALSE(committed().contains(u"VirtualNetworkInterfaces"_s));
}

TEST_F(VLANs, CallsOnARemovedVLANFail)
{
    const InterfaceRef vlan = vlanNamed(session, u"vlan3"_s);
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlan));
    EXPECT_FALSE(backend->scVLANInterfaceRemove(vlan));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
    EXPECT_FALSE(backend->scVLANInterfaceSetLocalizedDisplayName(vlan, u"Back"_s));
    EXPECT_EQ(backend->scError(), kSCStatusFailed);
    EXPECT_FALSE(
        backend->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, adapterNamed(u"en0"_s), 5));
    EXPECT_FALSE(backend->scVLANInterfaceGetTag(vlan));
    EXPECT_FALSE(backend->scVLANInterfaceGetPhysicalInterface(vlan));
}

TEST_F(VLANs, SetPhysicalInterfaceAndTagMovesTheVLAN)
{
    const InterfaceRef vlan = vlanNamed(session, u"vlan0"_s);
    ASSERT_TRUE(
        backend->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, adapterNamed(u"en0"_s), 1012));
    EXPECT_EQ(backend->scVLANInterfaceGetTag(vlan), 1012);
    EXPECT_EQ(
        backend->scNetworkInterfaceGetBSDName(backend->scVLANInterfaceGetPhysicalInterface(vlan)),
        u"en0"_s);
    EXPECT_FALSE(
        backend->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, adapterNamed(u"en7"_s), 1014));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_TRUE(
        backend->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, adapterNamed(u"en0"_s), 1012))
        << "its own place";
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(VLANs, ADisplayNameChangesTheVLANOnly)
{
    const InterfaceRef vlan = vlanNamed(session, u"vlan1"_s);
    ASSERT_TRUE(backend->scVLANInterfaceSetLocalizedDisplayName(vlan, u"1012 - Audio (STAGE)"_s));
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(vlan), u"1012 - Audio (STAGE)"_s);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    const QVariantMap audio = committed()
                                  .value(u"NetworkServices"_s)
                                  .toMap()
                                  .value(u"8D9FAEE9-C2F0-4B9B-86AD-4E5F6A7B8C99"_s)
                                  .toMap();
    EXPECT_EQ(audio.value(u"UserDefinedName"_s), QVariant(u"VLAN (vlan1)"_s));
    EXPECT_EQ(audio.value(u"Interface"_s).toMap().value(u"UserDefinedName"_s),
              QVariant(u"1012 - Audio (DONGLE)"_s));
}

TEST_F(VLANs, AParentThatIsAwayIsFoundByItsName)
{
    QByteArray text = bytesOf(u"preferences.plist"_s);
    write(u"preferences.plist"_s, text.replace("<string>en7</string>", "<string>en9</string>"));
    reopen();
    const InterfaceRef parent =
        backend->scVLANInterfaceGetPhysicalInterface(vlanNamed(readSession(), u"vlan0"_s));
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(parent), u"en9"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(parent), kSCNetworkInterfaceTypeEthernet);
    EXPECT_FALSE(backend->scNetworkInterfaceGetLocalizedDisplayName(parent));
}

TEST_F(VLANs, EntriesWithoutParentOrTagAreNoVLANsYetHoldTheirNames)
{
    QByteArray text = bytesOf(u"preferences.plist"_s);
    text.replace("<key>Tag</key>\n\t\t\t\t<integer>1012</integer>",
                 "<key>Tag</key>\n\t\t\t\t<string>1012</string>");
    text.replace("<key>Tag</key>\n\t\t\t\t<integer>1014</integer>",
                 "<key>Tag</key>\n\t\t\t\t<real>1014.7</real>");
    write(u"preferences.plist"_s, text);
    reopen();
    session = writeSession();
    EXPECT_EQ(vlanNames(session), (QStringList{u"vlan0"_s, u"vlan2"_s, u"vlan3"_s}));
    EXPECT_EQ(backend->scVLANInterfaceGetTag(vlanNamed(session, u"vlan2"_s)), 1014);
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(create(2000)), u"vlan4"_s);
}

} // namespace
