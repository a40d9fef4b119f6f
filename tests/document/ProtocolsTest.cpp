// The protocol calls: look-ups, settings and the on and off mark.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString controlID = u"7C8E9DD8-B1EF-4A8A-B59C-3D4E5F6A7B88"_s;
const QString dongleID = u"6B7D8CC7-A0DE-4F79-A48B-2C3D4E5F6A77"_s;

class Protocols : public DocumentTest
{
protected:
    void SetUp() override
    {
        openFixture();
        session = writeSession();
    }
    ProtocolRef protocol(const QString &serviceID, const QString &type)
    {
        return backend->scNetworkServiceCopyProtocol(
            backend->scNetworkServiceCopy(session, serviceID), type);
    }

    SessionRef session;
};

TEST_F(Protocols, CopyProtocolFindsAPresentProtocol)
{
    const ProtocolRef ipv4 = protocol(controlID, kSCNetworkProtocolTypeIPv4);
    ASSERT_TRUE(ipv4);
    EXPECT_EQ(backend->scNetworkProtocolGetProtocolType(ipv4), kSCNetworkProtocolTypeIPv4);
    EXPECT_TRUE(backend->scNetworkProtocolGetEnabled(ipv4));
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(ipv4),
              (QVariantMap{{u"Addresses"_s, QVariantList{u"192.168.10.69"_s}},
                           {u"ConfigMethod"_s, u"Manual"_s},
                           {u"Router"_s, u"192.168.10.1"_s},
                           {u"SubnetMasks"_s, QVariantList{u"255.255.255.0"_s}}}));
}

TEST_F(Protocols, CopyProtocolOfAnAbsentProtocolIsNothing)
{
    EXPECT_FALSE(protocol(controlID, u"com.example.nothing"_s));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
}

TEST_F(Protocols, TheInterfacesDictionariesAreNoProtocols)
{
    for (const QString &word : {u"Interface"_s, u"Ethernet"_s, u"PPP"_s}) {
        EXPECT_FALSE(protocol(controlID, word)) << word.toStdString();
        EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    }
}

TEST_F(Protocols, CopyProtocolsListsEveryProtocolOfTheService)
{
    QStringList types;
    for (const ProtocolRef &each : all(backend->scNetworkServiceCopyProtocols(
             backend->scNetworkServiceCopy(session, controlID))))
        types.append(backend->scNetworkProtocolGetProtocolType(each).value_or(QString()));
    EXPECT_EQ(types, (QStringList{u"DNS"_s, u"IPv4"_s, u"IPv6"_s, u"Proxies"_s, u"SMB"_s}));
}

TEST_F(Protocols, AnEmptyProtocolHasNoConfiguration)
{
    EXPECT_FALSE(backend->scNetworkProtocolGetConfiguration(protocol(dongleID, u"DNS"_s)));
    EXPECT_FALSE(backend->scNetworkProtocolGetConfiguration(protocol(dongleID, u"SMB"_s)));
}

TEST_F(Protocols, AProtocolThatIsOffShowsItsMarkInItsConfiguration)
{
    const ProtocolRef ipv4 = protocol(dongleID, kSCNetworkProtocolTypeIPv4);
    EXPECT_FALSE(backend->scNetworkProtocolGetEnabled(ipv4));
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(ipv4),
              (QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s}, {u"__INACTIVE__"_s, true}}));
}

TEST_F(Protocols, SetConfigurationKeepsWhetherTheProtocolIsOn)
{
    const ProtocolRef ipv4 = protocol(dongleID, kSCNetworkProtocolTypeIPv4);
    ASSERT_TRUE(backend->scNetworkProtocolSetConfiguration(
        ipv4, QVariantMap{{u"ConfigMethod"_s, u"LinkLocal"_s}}));
    EXPECT_FALSE(backend->scNetworkProtocolGetEnabled(ipv4));
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(ipv4),
              (QVariantMap{{u"ConfigMethod"_s, u"LinkLocal"_s}, {u"__INACTIVE__"_s, true}}));
    ASSERT_TRUE(backend->scNetworkProtocolSetConfiguration(ipv4, std::nullopt));
    EXPECT_FALSE(backend->scNetworkProtocolGetConfiguration(ipv4));
    EXPECT_FALSE(backend->scNetworkProtocolGetEnabled(ipv4));

    const ProtocolRef control = protocol(controlID, kSCNetworkProtocolTypeIPv4);
    ASSERT_TRUE(backend->scNetworkProtocolSetConfiguration(
        control, QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s}, {u"__INACTIVE__"_s, true}}));
    EXPECT_TRUE(backend->scNetworkProtocolGetEnabled(control)) << "the mark given is not taken";
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(control),
              (QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s}}));
}

TEST_F(Protocols, SetEnabledOffOnAMissingProtocolLeavesOnlyTheMark)
{
    const ServiceRef service = backend->scNetworkServiceCreate(session, adapterNamed(u"en0"_s));
    const ProtocolRef ipv6 = backend->scNetworkServiceCopyProtocol(service, u"IPv6"_s);
    ASSERT_FALSE(ipv6);
    ASSERT_TRUE(backend->scNetworkServiceAddProtocolType(service, u"IPv6"_s));
    const ProtocolRef added = backend->scNetworkServiceCopyProtocol(service, u"IPv6"_s);
    ASSERT_TRUE(backend->scNetworkProtocolSetEnabled(added, false));
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(added),
              (QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}, {u"__INACTIVE__"_s, true}}));
    ASSERT_TRUE(backend->scNetworkProtocolSetEnabled(added, true));
    EXPECT_EQ(backend->scNetworkProtocolGetConfiguration(added),
              (QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}}));
}

TEST_F(Protocols, AddProtocolTypeTakesKnownAndVendorTypesOnce)
{
    const ServiceRef control = backend->scNetworkServiceCopy(session, controlID);
    EXPECT_FALSE(backend->scNetworkServiceAddProtocolType(control, u"IPv4"_s));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_FALSE(backend->scNetworkServiceAddProtocolType(control, u"Telepathy"_s));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    EXPECT_TRUE(backend->scNetworkServiceAddProtocolType(control, u"com.example.filter"_s));
    EXPECT_TRUE(backend->scNetworkServiceCopyProtocol(control, u"com.example.filter"_s));
}

TEST_F(Protocols, CallsOnNoProtocolFail)
{
    const ProtocolRef none;
    EXPECT_FALSE(backend->scNetworkProtocolGetConfiguration(none));
    EXPECT_FALSE(backend->scNetworkProtocolGetEnabled(none));
    EXPECT_FALSE(backend->scNetworkProtocolGetProtocolType(none));
    EXPECT_FALSE(backend->scNetworkProtocolSetEnabled(none, true));
    EXPECT_FALSE(backend->scNetworkProtocolSetConfiguration(none, QVariantMap()));
}

} // namespace
