// The session's look-up tables: equal to tables built afresh after every change. What building
// and reading thousands of VLANs costs is measured in bench/, not here.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Lookups : public DocumentTest
{
protected:
    void SetUp() override
    {
        openCopyOf(u"examples/show-mac"_s);
        session = writeSession();
    }

    /// Builds VLANs as the store will: a VLAN, its name, a service of that name in the current
    /// Location, with its defaults.
    void build(int count, int firstTag)
    {
        const SetRef show = backend->scNetworkSetCopyCurrent(session);
        const InterfaceRef adapter = adapterNamed(u"en5"_s);
        for (int tag = firstTag; tag < firstTag + count; ++tag) {
            const InterfaceRef vlan = backend->scVLANInterfaceCreate(session, adapter, tag);
            EXPECT_TRUE(vlan) << tag;
            const QString name = u"%1 - Net (DONGLE)"_s.arg(tag);
            backend->scVLANInterfaceSetLocalizedDisplayName(vlan, name);
            const ServiceRef service = backend->scNetworkServiceCreate(session, vlan);
            backend->scNetworkServiceSetName(service, name);
            backend->scNetworkServiceEstablishDefaultConfiguration(service);
            EXPECT_TRUE(backend->scNetworkSetAddService(show, service));
        }
    }

    SessionRef session;
};

TEST_F(Lookups, TablesKeptUpToDateEqualTablesBuiltAfresh)
{
    const SetRef show = backend->scNetworkSetCopyCurrent(session);
    const SetRef rehearsal = setNamed(session, u"Rehearsal"_s);
    std::vector<std::pair<const char *, std::function<bool()>>> steps{
        {"create a VLAN",
         [&] {
             return bool(backend->scVLANInterfaceCreate(session, adapterNamed(u"en5"_s), 2000));
         }},
        {"name it",
         [&] {
             return backend->scVLANInterfaceSetLocalizedDisplayName(vlanNamed(session, u"vlan12"_s),
                                                                    u"2000 - New (DONGLE)"_s);
         }},
        {"make its service",
         [&] {
             return bool(backend->scNetworkServiceCreate(session, vlanNamed(session, u"vlan12"_s)));
         }},
        {"add it to the Show",
         [&] {
             const ServiceRef created = serviceNamed(show, u"2000 - New (DONGLE)"_s);
             for (const ServiceRef &service : all(backend->scNetworkServiceCopyAll(session)))
                 if (!created
                     && backend->scNetworkServiceGetName(service) == u"2000 - New (DONGLE)"_s)
                     return backend->scNetworkSetAddService(show, service);
             return false;
         }},
        {"share it with Rehearsal",
         [&] {
             return backend->scNetworkSetAddService(rehearsal,
                                                    serviceNamed(show, u"2000 - New (DONGLE)"_s));
         }},
        {"rename its service",
         [&] {
             return backend->scNetworkServiceSetName(serviceNamed(show, u"2000 - New (DONGLE)"_s),
                                                     u"Renamed"_s);
         }},
        {"move the VLAN",
         [&] {
             return backend->scVLANInterfaceSetPhysicalInterfaceAndTag(
                 vlanNamed(session, u"vlan12"_s), adapterNamed(u"en6"_s), 2001);
         }},
        {"take it out of the Show",
         [&] {
             return backend->scNetworkSetRemoveService(show, serviceNamed(show, u"Renamed"_s));
         }},
        {"remove a VLAN",
         [&] { return backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan3"_s)); }},
        {"remove a service",
         [&] {
             return backend->scNetworkServiceRemove(serviceNamed(show, u"1014 - Video (DONGLE)"_s));
         }},
        {"remove a Location",
         [&] { return backend->scNetworkSetRemove(setNamed(session, u"Office"_s)); }},
        {"fill the gap",
         [&] {
             return backend->scNetworkInterfaceGetBSDName(
                        backend->scVLANInterfaceCreate(session, adapterNamed(u"en0"_s), 7))
                    == u"vlan3"_s;
         }},
    };
    for (const auto &[what, step] : steps) {
        EXPECT_TRUE(step()) << what;
        EXPECT_TRUE(DocumentBackend::indexAgreesWithDocument(session)) << "after: " << what;
    }
}

TEST_F(Lookups, ServiceNamesAreCheckedThroughTheTables)
{
    build(3, 3000);
    const SetRef show = backend->scNetworkSetCopyCurrent(session);
    const ServiceRef first = serviceNamed(show, u"3000 - Net (DONGLE)"_s);
    ASSERT_TRUE(first);
    EXPECT_FALSE(backend->scNetworkServiceSetName(first, u"3001 - Net (DONGLE)"_s));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_FALSE(backend->scNetworkServiceSetName(first, u"Ethernet"_s));
    EXPECT_TRUE(backend->scNetworkServiceSetName(first, u"Ethernet 2"_s));
}

} // namespace
