// The set calls, with their answers for present and absent things.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString kvrtID = u"3F7B9A12-6C4D-4B8E-A5F0-1D2E3C4B5A69"_s;
const QString automaticID = u"8C1E6D4B-2F5A-4E3B-9D61-7A0C5B2E91F4"_s;

class Sets : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }

    /// The preferences as committed, for what the calls leave in the file.
    QVariantMap committed() const
    {
        return anyMap(*parsePropertyList(bytesOf(u"preferences.plist"_s))).value_or(QVariantMap());
    }
    /// Edits the fixture's text before the backend reads it.
    void editFixture(const QByteArray &from, const QByteArray &to)
    {
        QByteArray text = bytesOf(u"preferences.plist"_s);
        ASSERT_TRUE(text.contains(from));
        write(u"preferences.plist"_s, text.replace(from, to));
    }
    QStringList orderOf(const SetRef &set) const
    {
        return anyStringsOf(backend->scNetworkSetGetServiceOrder(set).value_or(QVariantList()));
    }
    QString idOf(const ServiceRef &service) const
    {
        return backend->scNetworkServiceGetServiceID(service).value_or(QString());
    }
};

TEST_F(Sets, CopyAllListsEverySetInTheDocumentsOrder)
{
    EXPECT_EQ(setNames(readSession()), (QStringList{u"KVRT Shows 2"_s, u"Automatic"_s}));
}

TEST_F(Sets, ACurrentSetThatIsGoneIsNoCurrentSet)
{
    editFixture("<string>/Sets/3F7B9A12", "<string>/Sets/0F7B9A12");
    EXPECT_FALSE(backend->scNetworkSetCopyCurrent(readSession()));
}

TEST_F(Sets, ACurrentSetOfAnotherFormIsNoCurrentSet)
{
    editFixture("<string>/Sets/3F7B9A12", "<string>Sets/3F7B9A12");
    EXPECT_FALSE(backend->scNetworkSetCopyCurrent(readSession()));
}

TEST_F(Sets, CopyByIdentifierFindsWhatAWalkFinds)
{
    const SessionRef session = readSession();
    const auto sets = backend->scNetworkSetCopyAll(session);
    ASSERT_TRUE(sets);
    for (const SetRef &walked : *sets) {
        const QString setID = backend->scNetworkSetGetSetID(walked).value_or(QString());
        const SetRef looked = backend->scNetworkSetCopy(session, setID);
        ASSERT_TRUE(looked);
        EXPECT_EQ(backend->scNetworkSetGetName(looked), backend->scNetworkSetGetName(walked));
        EXPECT_EQ(serviceNames(looked), serviceNames(walked));
        EXPECT_EQ(backend->scNetworkSetGetServiceOrder(looked),
                  backend->scNetworkSetGetServiceOrder(walked));
    }
    EXPECT_FALSE(backend->scNetworkSetCopy(session, u"00000000-0000-0000-0000-000000000000"_s));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
}

TEST_F(Sets, CopyServicesPassesOverLinksThatLeadNowhere)
{
    editFixture("<string>/NetworkServices/4F5B6AA5-8EBC-4D57-8269-0A1B2C3D4E55</string>",
                "<string>/NetworkServices/4F5B6AA5-0000-0000-0000-000000000000</string>");
    const SetRef kvrt = backend->scNetworkSetCopy(readSession(), kvrtID);
    EXPECT_EQ(backend->scNetworkSetCopyServices(kvrt)->size(), 5);
    EXPECT_FALSE(serviceNames(kvrt).contains(u"Ethernet"_s));
}

TEST_F(Sets, TheServiceOrderIsHandedOverAsStored)
{
    editFixture("<string>7C8E9DD8-B1EF-4A8A-B59C-3D4E5F6A7B88</string>\n\t\t\t\t\t\t\t<string>8D9F",
                "<integer>7</integer>\n\t\t\t\t\t\t\t<string>8D9F");
    const auto order =
        backend->scNetworkSetGetServiceOrder(backend->scNetworkSetCopy(readSession(), kvrtID));
    ASSERT_TRUE(order);
    EXPECT_EQ(order->size(), 6);
    EXPECT_EQ(order->first(), QVariant(qint64(7)));
}

TEST_F(Sets, SetServiceOrderDropsRepeatsAndAnEmptyOrderIsRemoved)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    ASSERT_TRUE(backend->scNetworkSetSetServiceOrder(kvrt, {u"B"_s, u"A"_s, u"B"_s}));
    EXPECT_EQ(orderOf(kvrt), (QStringList{u"B"_s, u"A"_s}));
    ASSERT_TRUE(backend->scNetworkSetSetServiceOrder(kvrt, {}));
    EXPECT_FALSE(backend->scNetworkSetGetServiceOrder(kvrt));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_FALSE(committed()
                     .value(u"Sets"_s)
                     .toMap()
                     .value(kvrtID)
                     .toMap()
                     .value(u"Network"_s)
                     .toMap()
                     .contains(u"Global"_s))
        << "the dictionaries it left empty are pruned";
}

TEST_F(Sets, ANewSetIsEmptyNamelessAndNotCurrent)
{
    const SessionRef session = writeSession();
    const SetRef created = backend->scNetworkSetCreate(session);
    ASSERT_TRUE(created);
    const QString setID = backend->scNetworkSetGetSetID(created).value_or(QString());
    EXPECT_EQ(setID.size(), 36);
    EXPECT_EQ(setID, setID.toUpper());
    EXPECT_FALSE(backend->scNetworkSetGetName(created));
    EXPECT_TRUE(backend->scNetworkSetCopyServices(created)->isEmpty());
    EXPECT_FALSE(backend->scNetworkSetGetServiceOrder(created));
    EXPECT_EQ(backend->scNetworkSetGetSetID(backend->scNetworkSetCopyCurrent(session)), kvrtID);
}

TEST_F(Sets, SetNameRefusesTheNameOfAnotherSet)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    EXPECT_FALSE(backend->scNetworkSetSetName(kvrt, u"Automatic"_s));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_TRUE(backend->scNetworkSetSetName(kvrt, u"KVRT Shows 2"_s));
    EXPECT_TRUE(backend->scNetworkSetSetName(kvrt, u"automatic"_s)) << "names compare exactly";
}

TEST_F(Sets, RemovingASetLeavesItsServicesInThePreferences)
{
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkSetRemove(backend->scNetworkSetCopy(session, automaticID)));
    EXPECT_EQ(setNames(session), QStringList{u"KVRT Shows 2"_s});
    EXPECT_EQ(backend->scNetworkServiceCopyAll(session)->size(), 10);
    EXPECT_FALSE(backend->scNetworkSetRemove(backend->scNetworkSetCopy(session, automaticID)));
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(Sets, SetCurrentMovesTheMachineToTheSet)
{
    const SessionRef session = writeSession();
    const SetRef automatic = backend->scNetworkSetCopy(session, automaticID);
    ASSERT_TRUE(backend->scNetworkSetSetCurrent(automatic));
    EXPECT_EQ(backend->scNetworkSetGetSetID(backend->scNetworkSetCopyCurrent(session)),
              automaticID);
    ASSERT_TRUE(backend->scNetworkSetRemove(backend->scNetworkSetCopy(session, kvrtID)));
    EXPECT_FALSE(backend->scNetworkSetSetCurrent(backend->scNetworkSetCopy(session, kvrtID)));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(committed().value(u"CurrentSet"_s), QVariant(u"/Sets/"_s + automaticID));
}

TEST_F(Sets, AddServiceLinksItAndRanksItByItsInterface)
{
    const SessionRef session = writeSession();
    const SetRef created = backend->scNetworkSetCreate(session);
    const ServiceRef wifi = backend->scNetworkServiceCreate(session, adapterNamed(u"en1"_s));
    const ServiceRef vlan =
        backend->scNetworkServiceCreate(session, vlanNamed(session, u"vlan0"_s));
    const ServiceRef usb = backend->scNetworkServiceCreate(session, adapterNamed(u"en7"_s));
    const ServiceRef ethernet = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    for (const ServiceRef &service : {wifi, vlan, usb, ethernet})
        ASSERT_TRUE(backend->scNetworkSetAddService(created, service));
    // Built-in Ethernet, then the USB adapter, then VLANs, and Wi-Fi last.
    EXPECT_EQ(orderOf(created), (QStringList{idOf(ethernet), idOf(usb), idOf(vlan), idOf(wifi)}));
    EXPECT_EQ(backend->scNetworkSetCopyServices(created)->size(), 4);
    EXPECT_TRUE(backend->scNetworkSetAddService(created, vlan)) << "a member already";
    EXPECT_EQ(backend->scNetworkSetCopyServices(created)->size(), 4);
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(Sets, AddServiceCountsUpANameThatTheSetShowsAlready)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    const ServiceRef second = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    EXPECT_EQ(backend->scNetworkServiceGetName(second), u"Ethernet"_s);
    ASSERT_TRUE(backend->scNetworkSetAddService(kvrt, second));
    EXPECT_EQ(backend->scNetworkServiceGetName(second), u"Ethernet 2"_s);
    const ServiceRef third = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    ASSERT_TRUE(backend->scNetworkSetAddService(kvrt, third));
    EXPECT_EQ(backend->scNetworkServiceGetName(third), u"Ethernet 3"_s);
}

TEST_F(Sets, AddServiceBringsTheWiFiSettingsOnceIntoASetWithoutThem)
{
    const SessionRef session = writeSession();
    const SetRef created = backend->scNetworkSetCreate(session);
    ASSERT_TRUE(backend->scNetworkSetSetName(created, u"New"_s));
    const ServiceRef wifi = backend->scNetworkServiceCreate(session, adapterNamed(u"en1"_s));
    ASSERT_TRUE(backend->scNetworkSetAddService(created, wifi));
    EXPECT_EQ(
        backend->scNetworkInterfaceGetConfiguration(backend->scNetworkServiceGetInterface(wifi)),
        (QVariantMap{{u"JoinMode"_s, u"Automatic"_s}}));
}

TEST_F(Sets, RemoveServiceTakesItsOrderEntryAndTheSetsSettingsOfItsInterface)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    const ServiceRef video = serviceNamed(kvrt, u"1014 - Video (DONGLE)"_s);
    const QString videoID = idOf(video);
    ASSERT_TRUE(backend->scNetworkSetRemoveService(kvrt, video));
    EXPECT_FALSE(orderOf(kvrt).contains(videoID));
    EXPECT_EQ(backend->scNetworkSetCopyServices(kvrt)->size(), 5);
    EXPECT_TRUE(backend->scNetworkServiceCopy(session, videoID)) << "it lives on outside the set";
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    const QVariantMap interfaces = committed()
                                       .value(u"Sets"_s)
                                       .toMap()
                                       .value(kvrtID)
                                       .toMap()
                                       .value(u"Network"_s)
                                       .toMap()
                                       .value(u"Interface"_s)
                                       .toMap();
    EXPECT_FALSE(interfaces.contains(u"vlan2"_s));
    EXPECT_TRUE(interfaces.contains(u"en1"_s));
}

TEST_F(Sets, RemoveServiceKeepsSettingsThatAnotherServiceOfTheSetUses)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    const ServiceRef twin =
        backend->scNetworkServiceCreate(session, vlanNamed(session, u"vlan2"_s));
    ASSERT_TRUE(backend->scNetworkSetAddService(kvrt, twin));
    ASSERT_TRUE(backend->scNetworkSetRemoveService(kvrt, twin));
    EXPECT_EQ(backend->scNetworkInterfaceGetConfiguration(backend->scNetworkServiceGetInterface(
                  serviceNamed(kvrt, u"1014 - Video (DONGLE)"_s))),
              (QVariantMap{{u"MTU"_s, qint64(9000)}}));
}

TEST_F(Sets, RemovingTheLastServiceOfANamelessSetPrunesTheSet)
{
    const SessionRef session = writeSession();
    const SetRef created = backend->scNetworkSetCreate(session);
    const ServiceRef service = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    ASSERT_TRUE(backend->scNetworkSetAddService(created, service));
    ASSERT_TRUE(backend->scNetworkSetRemoveService(created, service));
    EXPECT_EQ(setNames(session).size(), 2) << "the set had nothing else, so it went too";
}

TEST_F(Sets, CallsOnASetThatIsGoneFail)
{
    const SessionRef session = writeSession();
    const SetRef automatic = backend->scNetworkSetCopy(session, automaticID);
    const ServiceRef ethernet = serviceNamed(automatic, u"Ethernet"_s);
    ASSERT_TRUE(backend->scNetworkSetRemove(automatic));
    EXPECT_FALSE(backend->scNetworkSetCopyServices(automatic));
    EXPECT_FALSE(backend->scNetworkSetGetName(automatic));
    EXPECT_FALSE(backend->scNetworkSetAddService(automatic, ethernet));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    EXPECT_FALSE(backend->scNetworkSetRemoveService(automatic, ethernet));
    EXPECT_FALSE(backend->scNetworkSetSetName(automatic, u"Back"_s));
    EXPECT_FALSE(backend->scNetworkSetSetServiceOrder(automatic, {u"A"_s}));
}

} // namespace
