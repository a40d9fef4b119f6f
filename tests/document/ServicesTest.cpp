// The service calls: look-ups, creation, names as the system's own file gives them, removal.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString kvrtID = u"3F7B9A12-6C4D-4B8E-A5F0-1D2E3C4B5A69"_s;
const QString automaticID = u"8C1E6D4B-2F5A-4E3B-9D61-7A0C5B2E91F4"_s;
const QString controlID = u"7C8E9DD8-B1EF-4A8A-B59C-3D4E5F6A7B88"_s;
const QString spareID = u"3E4A5F94-7DAB-4C46-B158-F90A1B2C3D44"_s;

class Services : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }

    QVariantMap committedService(const QString &serviceID) const
    {
        const QVariantMap root =
            anyMap(*parsePropertyList(bytesOf(u"preferences.plist"_s))).value_or(QVariantMap());
        return root.value(u"NetworkServices"_s).toMap().value(serviceID).toMap();
    }
    QVariantMap storedService(const SessionRef &session, const QString &serviceID)
    {
        EXPECT_TRUE(backend->scPreferencesCommitChanges(session));
        return committedService(serviceID);
    }
};

TEST_F(Services, CopyByIdentifierFindsWhatAWalkFinds)
{
    const SessionRef session = readSession();
    const auto services = backend->scNetworkServiceCopyAll(session);
    ASSERT_TRUE(services);
    for (const ServiceRef &walked : *services) {
        const ServiceRef looked = backend->scNetworkServiceCopy(
            session, backend->scNetworkServiceGetServiceID(walked).value_or(QString()));
        ASSERT_TRUE(looked);
        EXPECT_EQ(backend->scNetworkServiceGetName(looked),
                  backend->scNetworkServiceGetName(walked));
        EXPECT_EQ(backend->scNetworkServiceGetEnabled(looked),
                  backend->scNetworkServiceGetEnabled(walked));
        EXPECT_EQ(
            backend->scNetworkInterfaceGetBSDName(backend->scNetworkServiceGetInterface(looked)),
            backend->scNetworkInterfaceGetBSDName(backend->scNetworkServiceGetInterface(walked)));
    }
    EXPECT_FALSE(backend->scNetworkServiceCopy(session, u"NOT-A-SERVICE"_s));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
}

TEST_F(Services, AServiceWithoutAnInterfaceDictionaryIsInvisible)
{
    QByteArray text = bytesOf(u"preferences.plist"_s);
    const qsizetype at = text.indexOf("<key>Interface</key>", text.indexOf(controlID.toLatin1()));
    text.replace(at, QByteArray("<key>Interface</key>").size(), "<key>Interfaxe</key>");
    write(u"preferences.plist"_s, text);
    reopen();
    const SessionRef session = readSession();
    EXPECT_FALSE(backend->scNetworkServiceCopy(session, controlID));
    EXPECT_EQ(backend->scNetworkServiceCopyAll(session)->size(), 9);
    // A set's link still leads to it, and it has no interface.
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    EXPECT_EQ(backend->scNetworkSetCopyServices(kvrt)->size(), 6);
    const ServiceRef control = serviceNamed(kvrt, u"VLAN (vlan0)"_s);
    ASSERT_TRUE(control);
    EXPECT_FALSE(backend->scNetworkServiceGetInterface(control));
}

TEST_F(Services, ANewServiceStoresItsInterfaceAndNameAndBelongsToNoSet)
{
    const SessionRef session = writeSession();
    const ServiceRef created = backend->scNetworkServiceCreate(session, adapterNamed(u"en7"_s));
    ASSERT_TRUE(created);
    const QString serviceID = backend->scNetworkServiceGetServiceID(created).value_or(QString());
    EXPECT_EQ(serviceID, serviceID.toUpper());
    EXPECT_EQ(backend->scNetworkServiceGetName(created), u"USB 10/100/1000 LAN"_s);
    EXPECT_TRUE(backend->scNetworkServiceGetEnabled(created));
    EXPECT_TRUE(backend->scNetworkServiceCopyProtocols(created)->isEmpty());
    const QVariantMap stored = storedService(session, serviceID);
    EXPECT_EQ(stored.value(u"Interface"_s).toMap(),
              (QVariantMap{{u"DeviceName"_s, u"en7"_s},
                           {u"Hardware"_s, u"Ethernet"_s},
                           {u"Type"_s, u"Ethernet"_s},
                           {u"UserDefinedName"_s, u"USB 10/100/1000 LAN"_s}}));
    EXPECT_EQ(stored.value(u"UserDefinedName"_s), QVariant(u"USB 10/100/1000 LAN"_s));
    for (const SetRef &set : all(backend->scNetworkSetCopyAll(session)))
        EXPECT_FALSE(serviceNames(set).contains(u"USB 10/100/1000 LAN"_s));
}

TEST_F(Services, ANewVLANServiceStoresTheSystemsWordAndShowsTheVLANsName)
{
    const SessionRef session = writeSession();
    const ServiceRef created =
        backend->scNetworkServiceCreate(session, vlanNamed(session, u"vlan3"_s));
    EXPECT_EQ(backend->scNetworkServiceGetName(created), u"1099 - Spare (DONGLE)"_s);
    const QVariantMap stored =
        storedService(session, backend->scNetworkServiceGetServiceID(created).value_or(QString()));
    EXPECT_EQ(stored.value(u"UserDefinedName"_s), QVariant(u"VLAN (vlan3)"_s));
    EXPECT_EQ(stored.value(u"Interface"_s).toMap().value(u"UserDefinedName"_s),
              QVariant(u"1099 - Spare (DONGLE)"_s));
}

TEST_F(Services, AServiceNamedAsItsVLANStoresTheSystemsWordAndFollowsTheVLAN)
{
    const SessionRef session = writeSession();
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    ASSERT_TRUE(backend->scNetworkServiceSetName(control, u"Control"_s));
    ASSERT_TRUE(backend->scNetworkServiceSetName(control, u"1010 - Control (DONGLE)"_s));
    ASSERT_TRUE(backend->scVLANInterfaceSetLocalizedDisplayName(vlanNamed(session, u"vlan0"_s),
                                                                u"1010 - Control (STAGE)"_s));
    EXPECT_EQ(backend->scNetworkServiceGetName(control), u"1010 - Control (STAGE)"_s);
    EXPECT_EQ(storedService(session, controlID).value(u"UserDefinedName"_s),
              QVariant(u"VLAN (vlan0)"_s));
}

TEST_F(Services, AServiceNamedOtherwiseKeepsItsName)
{
    const SessionRef session = writeSession();
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    ASSERT_TRUE(backend->scNetworkServiceSetName(control, u"Control desk"_s));
    ASSERT_TRUE(backend->scVLANInterfaceSetLocalizedDisplayName(vlanNamed(session, u"vlan0"_s),
                                                                u"Elsewhere"_s));
    EXPECT_EQ(backend->scNetworkServiceGetName(control), u"Control desk"_s);
    EXPECT_EQ(storedService(session, controlID).value(u"UserDefinedName"_s),
              QVariant(u"Control desk"_s));
}

TEST_F(Services, TheSystemsWordWithANumberShowsTheVLANsNameWithTheNumber)
{
    QByteArray text = bytesOf(u"preferences.plist"_s);
    write(u"preferences.plist"_s,
          text.replace("<string>VLAN (vlan0)</string>", "<string>VLAN (vlan0) 2</string>"));
    reopen();
    EXPECT_EQ(
        backend->scNetworkServiceGetName(backend->scNetworkServiceCopy(readSession(), controlID)),
        u"1010 - Control (DONGLE) 2"_s);
}

TEST_F(Services, SetNameRefusesANameThatAnotherServiceOfItsSetShows)
{
    const SessionRef session = writeSession();
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    EXPECT_FALSE(backend->scNetworkServiceSetName(control, u"1012 - Audio (DONGLE)"_s));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_FALSE(backend->scNetworkServiceSetName(control, u"DONGLE"_s));
    // A name shown in another set only is free here.
    EXPECT_TRUE(backend->scNetworkServiceSetName(control, u"1099 - Spare (DONGLE)"_s));
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(Services, SetEnabledMarksTheServiceOffAndOn)
{
    const SessionRef session = writeSession();
    EXPECT_FALSE(
        backend->scNetworkServiceGetEnabled(backend->scNetworkServiceCopy(session, spareID)));
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    ASSERT_TRUE(backend->scNetworkServiceSetEnabled(control, false));
    EXPECT_FALSE(backend->scNetworkServiceGetEnabled(control));
    EXPECT_EQ(storedService(session, controlID).value(u"__INACTIVE__"_s), QVariant(true));
    ASSERT_TRUE(backend->scNetworkServiceSetEnabled(control, true));
    EXPECT_FALSE(storedService(session, controlID).contains(u"__INACTIVE__"_s));
}

TEST_F(Services, EstablishDefaultConfigurationAddsWhatAWiredInterfaceTakes)
{
    const SessionRef session = writeSession();
    const ServiceRef created = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    ASSERT_TRUE(backend->scNetworkServiceEstablishDefaultConfiguration(created));
    QStringList types;
    for (const ProtocolRef &protocol : all(backend->scNetworkServiceCopyProtocols(created)))
        types.append(backend->scNetworkProtocolGetProtocolType(protocol).value_or(QString()));
    EXPECT_EQ(types, (QStringList{u"DNS"_s, u"IPv4"_s, u"IPv6"_s, u"Proxies"_s, u"SMB"_s}));
    const QVariantMap stored =
        storedService(session, backend->scNetworkServiceGetServiceID(created).value_or(QString()));
    EXPECT_EQ(stored.value(u"IPv4"_s).toMap(), (QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s}}));
    EXPECT_EQ(stored.value(u"IPv6"_s).toMap(), (QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}}));
    EXPECT_EQ(stored.value(u"DNS"_s).toMap(), QVariantMap());
    EXPECT_EQ(stored.value(u"Proxies"_s).toMap().value(u"FTPPassive"_s), QVariant(qint64(1)));
}

TEST_F(Services, EstablishDefaultConfigurationLeavesProtocolsThatAreThere)
{
    const SessionRef session = writeSession();
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    const QVariantMap before = storedService(session, controlID);
    ASSERT_TRUE(backend->scNetworkServiceEstablishDefaultConfiguration(control));
    EXPECT_EQ(storedService(session, controlID), before);
}

TEST_F(Services, RemoveTakesTheServiceOutOfEverySetAndThePreferences)
{
    const SessionRef session = writeSession();
    const SetRef kvrt = backend->scNetworkSetCopy(session, kvrtID);
    const SetRef automatic = backend->scNetworkSetCopy(session, automaticID);
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    ASSERT_TRUE(backend->scNetworkSetAddService(automatic, control));
    ASSERT_TRUE(backend->scNetworkServiceRemove(control));
    EXPECT_FALSE(backend->scNetworkServiceCopy(session, controlID));
    EXPECT_EQ(backend->scNetworkSetCopyServices(kvrt)->size(), 5);
    EXPECT_EQ(backend->scNetworkSetCopyServices(automatic)->size(), 4);
    EXPECT_FALSE(anyStringsOf(*backend->scNetworkSetGetServiceOrder(kvrt)).contains(controlID));
    EXPECT_FALSE(backend->scNetworkServiceRemove(control));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
    EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session));
}

TEST_F(Services, AServiceOnAVLANThatIsGoneShowsAPlainEthernetInterface)
{
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan0"_s)));
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    const InterfaceRef interface = backend->scNetworkServiceGetInterface(control);
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(interface), u"vlan0"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(interface),
              kSCNetworkInterfaceTypeEthernet);
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(interface),
              u"1010 - Control (DONGLE)"_s);
    EXPECT_EQ(backend->scNetworkServiceGetName(control), u"VLAN (vlan0)"_s);
}

TEST_F(Services, CallsOnNoServiceFail)
{
    const ServiceRef none;
    EXPECT_FALSE(backend->scNetworkServiceGetServiceID(none));
    EXPECT_FALSE(backend->scNetworkServiceGetName(none));
    EXPECT_FALSE(backend->scNetworkServiceGetEnabled(none));
    EXPECT_FALSE(backend->scNetworkServiceGetInterface(none));
    EXPECT_FALSE(backend->scNetworkServiceSetName(none, u"x"_s));
    EXPECT_FALSE(backend->scNetworkServiceSetEnabled(none, true));
    EXPECT_FALSE(backend->scNetworkServiceRemove(none));
    EXPECT_FALSE(backend->scNetworkServiceEstablishDefaultConfiguration(none));
    EXPECT_FALSE(backend->scNetworkServiceCreate(readSession(), InterfaceRef()));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
}

} // namespace
