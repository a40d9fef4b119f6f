#include "OrvaneApp/model/ServiceEdit.h"

#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using Field = ServiceEdit::Field;
using Problem = ServiceEdit::Problem;

class Rows : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload();
        ASSERT_FALSE(model->loadError());
    }

    bool hasChange(const ServiceEdit &row, auto isCase)
    {
        const QList<PlannedChange> changes = row.changes();
        return std::any_of(changes.begin(), changes.end(), isCase);
    }

    std::unique_ptr<AppModel> model;
};

TEST_F(Rows, EmptiedNameIsDirtyWithoutChangeAndBlocksSaving)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setName(u"  "_s);
    EXPECT_TRUE(row->isDirty());
    EXPECT_TRUE(row->changes().isEmpty());
    EXPECT_EQ(row->problem(), (Problem{Field::name, u"A VLAN needs a name."_s}));
}

TEST_F(Rows, EmptiedAdapterNameAsksForAnAdapterName)
{
    const AppModel::Row row = adapterRow(*model, u"DONGLE"_s);
    row->setName(QString());
    EXPECT_EQ(row->problem(), (Problem{Field::name, u"An adapter needs a name."_s}));
}

TEST_F(Rows, NameWithSurroundingSpacesIsTouchedNotDirtyAndSurvivesReload)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    const QString spaced = u"  "_s + row->source().name + u"\n"_s;
    row->setName(spaced);
    EXPECT_TRUE(row->isTouched());
    EXPECT_FALSE(row->isDirty());
    EXPECT_TRUE(row->changes().isEmpty());

    model->reload();
    EXPECT_EQ(vlanRow(*model, 1010), row);
    EXPECT_EQ(row->name(), spaced);
}

TEST_F(Rows, UntouchedRowIsReplacedByReload)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    model->reload();
    EXPECT_NE(vlanRow(*model, 1010), row);
    EXPECT_EQ(vlanRow(*model, 1010)->source(), row->source());
}

TEST_F(Rows, EditDiesWhenAnybodyElseChangesTheRowsSettings)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setName(u"Control desk"_s);
    changeElsewhere(
        [](VLANStore &store) { store.setEnabled(false, 1010, vlanTagged(store, 1010).bsdName); });
    model->reload();
    const AppModel::Row fresh = vlanRow(*model, 1010);
    EXPECT_NE(fresh, row);
    EXPECT_EQ(fresh->name(), fresh->source().name);
    EXPECT_FALSE(fresh->enabled());
}

TEST_F(Rows, LettersAsMTUKeepTheSavedMTUAndAskForAWholeNumber)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setMTU(u"abc"_s);
    EXPECT_EQ(row->hardware().mtu, row->source().hardware.mtu);
    EXPECT_TRUE(row->isDirty());
    EXPECT_FALSE(hasChange(*row, [](const PlannedChange &change) {
        return change.as<PlannedChange::SetHardware>() != nullptr;
    }));
    EXPECT_EQ(row->problem(),
              (Problem{Field::mtu, u"MTU is a whole number, or empty for the standard size."_s}));
}

TEST_F(Rows, IPFieldsOfVLANWithoutServiceTouchButDontDirty)
{
    const AppModel::Row row = vlanRow(*model, 1040);
    ASSERT_FALSE(row->source().hasService());
    row->setMode(IPMode::manual);
    row->setAddress(u"10.40.0.5"_s);
    row->setSubnetMask(u"255.255.255.0"_s);
    EXPECT_TRUE(row->isTouched());
    EXPECT_FALSE(row->isDirty());
    EXPECT_TRUE(row->changes().isEmpty());
    EXPECT_EQ(row->liveness(), ServiceEdit::Liveness::notInLocation);
}

TEST_F(Rows, AdapterNameWithBracketsIsRefused)
{
    const AppModel::Row row = adapterRow(*model, u"DONGLE"_s);
    row->setName(u"DONGLE (spare)"_s);
    EXPECT_EQ(row->problem(),
              (Problem{Field::name, u"Brackets clash with the adapter suffix in VLAN names."_s}));
}

TEST_F(Rows, VLANNameWithBracketsIsTaken)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setName(u"1010 - Control (spare)"_s);
    EXPECT_EQ(row->problem(), std::nullopt);
    ASSERT_EQ(row->changes().size(), 1);
    EXPECT_EQ(row->changes().first().as<PlannedChange::Rename>()->to, u"1010 - Control (spare)"_s);
}

TEST_F(Rows, DNSServerWithZonePasses)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setDNSServers(u"fe80::1%en0, 192.168.10.1"_s);
    EXPECT_EQ(row->problem(), std::nullopt);
}

TEST_F(Rows, DNSServerThatIsAWordIsRefused)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setDNSServers(u"example"_s);
    EXPECT_EQ(row->problem(),
              (Problem{Field::dns, u"DNS server \u201cexample\u201d isn't a valid address."_s}));
}

TEST_F(Rows, DNSServerWithThreeOctetsIsRefused)
{
    const AppModel::Row row = vlanRow(*model, 1040);
    row->setDNSServers(u"8.8.8.8 1.2.3"_s);
    EXPECT_EQ(row->problem(),
              (Problem{Field::dns, u"DNS server \u201c1.2.3\u201d isn't a valid address."_s}));
}

TEST_F(Rows, SelfAssignedShowsForDHCP)
{
    const AppModel::Row row = adapterRow(*model, u"Ethernet"_s);
    ASSERT_EQ(row->source().ip.mode, IPMode::dhcp);
    ASSERT_TRUE(row->holds());
    EXPECT_TRUE(row->holds()->address.startsWith(u"169.254."_s));
    EXPECT_EQ(row->liveness(), ServiceEdit::Liveness::selfAssigned);
    EXPECT_EQ(ServiceEdit::label(row->liveness()), u"Self-assigned IP"_s);
}

TEST_F(Rows, ManualRowOnALinkLocalAddressIsConnected)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    ASSERT_EQ(row->source().ip.mode, IPMode::manual);
    row->setHolds(LiveState::Address{u"169.254.1.1"_s});
    EXPECT_EQ(row->liveness(), ServiceEdit::Liveness::connected);
}

TEST_F(Rows, ServiceThatIsOffIsInactive)
{
    EXPECT_EQ(vlanRow(*model, 1030)->liveness(), ServiceEdit::Liveness::inactive);
    EXPECT_EQ(vlanRow(*model, 2010)->liveness(), ServiceEdit::Liveness::notConnected);
}

TEST_F(Rows, ReparentingShowsTheRangeOfTheNewParent)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setParent(u"en6"_s);
    row->setMTU(u"9000"_s);
    EXPECT_EQ(row->problem(),
              (Problem{Field::mtu, u"MTU 9000 is outside what en6 takes (1280\u20134088). "_s
                                   u"Under More\u2026, empty it for the standard size or "_s
                                   u"type one en6 takes."_s}));
}

TEST_F(Rows, ManualServiceWithoutSavedAddressIsNotDirtyUntouched)
{
    // As a hand-edited file can have it: Manual, with neither address nor mask.
    editPreferences([](QVariantMap &preferences) {
        QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
        for (QVariant &service : services) {
            QVariantMap settings = service.toMap();
            QVariantMap ipv4 = settings.value(u"IPv4"_s).toMap();
            if (ipv4.value(u"Addresses"_s).toStringList() != QStringList{u"192.168.12.69"_s})
                continue;
            ipv4.remove(u"Addresses"_s);
            ipv4.remove(u"SubnetMasks"_s);
            settings.insert(u"IPv4"_s, ipv4);
            service = settings;
        }
        preferences.insert(u"NetworkServices"_s, services);
    });
    model->reload();
    const AppModel::Row row = vlanRow(*model, 1012);
    ASSERT_EQ(row->source().ip.mode, IPMode::manual);
    ASSERT_FALSE(row->source().ip.address);
    EXPECT_FALSE(row->isTouched());
    EXPECT_FALSE(row->isDirty());
    EXPECT_TRUE(row->changes().isEmpty());
}

TEST_F(Rows, ChangesComeInTheirFixedOrder)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setEnabled(false);
    row->setAddress(u"192.168.10.70"_s);
    row->setName(u"1010 - Desk"_s);
    row->setDNSServers(u"192.168.10.1"_s);
    const QList<PlannedChange> changes = row->changes();
    ASSERT_EQ(changes.size(), 4);
    EXPECT_TRUE(changes[0].as<PlannedChange::Rename>());
    ASSERT_TRUE(changes[1].as<PlannedChange::Retag>());
    EXPECT_EQ(changes[1].as<PlannedChange::Retag>()->name, row->source().name);
    EXPECT_TRUE(changes[2].as<PlannedChange::SetDNS>());
    EXPECT_TRUE(changes[3].as<PlannedChange::SetEnabled>());
}

TEST_F(Rows, LeavingManualStashesTheAddressAndReturningRestoresIt)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    const QString address = row->address();
    row->setMode(IPMode::dhcp);
    row->modeChanged(IPMode::manual, model->addressPlan());
    EXPECT_TRUE(row->address().isEmpty());
    ASSERT_TRUE(row->stash());
    EXPECT_EQ(row->stash()->address, address);
    EXPECT_TRUE(row->stash()->dns.isEmpty());

    row->setMode(IPMode::linkLocal);
    row->modeChanged(IPMode::dhcp, model->addressPlan());
    row->setMode(IPMode::manual);
    row->modeChanged(IPMode::linkLocal, model->addressPlan());
    EXPECT_EQ(row->address(), address);
    EXPECT_FALSE(row->stash());
}

TEST_F(Rows, LeavingManualWithEmptyFieldsStashesNothing)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setAddress(QString());
    row->setSubnetMask(QString());
    row->setRouter(QString());
    row->setMode(IPMode::dhcp);
    row->modeChanged(IPMode::manual, model->addressPlan());
    EXPECT_FALSE(row->stash());
}

TEST_F(Rows, PlanFillsAnEmptyAddressFromTheRowsTag)
{
    const AppModel::Row row = vlanRow(*model, 1040);
    row->setMode(IPMode::manual);
    AddressPlan plan;
    plan.host = u"69"_s;
    plan.subnetMask = QString();
    row->applyPlan(plan);
    EXPECT_EQ(row->address(), u"192.168.40.69"_s);
    EXPECT_EQ(row->subnetMask(), u"255.255.255.0"_s);
    row->setAddress(u"10.0.0.1"_s);
    row->applyPlan(plan);
    EXPECT_EQ(row->address(), u"10.0.0.1"_s);
}

TEST_F(Rows, SpeedWithoutOfferTakesNoDuplex)
{
    const AppModel::Row row = adapterRow(*model, u"Ethernet"_s);
    ASSERT_TRUE(row->offers());
    row->setSpeed(u"1000baseT"_s);
    row->speedChanged();
    EXPECT_EQ(row->duplex(), QStringList{u"full-duplex"_s});
    row->setSpeed(QString());
    row->speedChanged();
    EXPECT_TRUE(row->duplex().isEmpty());
}

TEST_F(Rows, RevertedRowKeepsWhatTheReloadTold)
{
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setName(u"Other"_s);
    const AppModel::Row reverted = row->reverted();
    EXPECT_EQ(reverted->name(), row->source().name);
    EXPECT_EQ(reverted->offers(), row->offers());
    EXPECT_EQ(reverted->holds(), row->holds());
    EXPECT_EQ(reverted->parentFrameRanges(), row->parentFrameRanges());
}

TEST_F(Rows, OnlyAnAdapterServiceCanLeaveTheLocation)
{
    const AppModel::Row adapter = adapterRow(*model, u"DONGLE"_s);
    const std::optional<PlannedChange> removal = adapter->removeFromLocationChange();
    ASSERT_TRUE(removal);
    EXPECT_EQ(*removal, (PlannedChange::RemoveService{*adapter->source().serviceID, u"DONGLE"_s}));
    EXPECT_FALSE(vlanRow(*model, 1010)->removeFromLocationChange());
}

TEST_F(Rows, MoreSettingsAreDNSSearchDomainsMTUOrSpeed)
{
    const AppModel::Row row = vlanRow(*model, 1012);
    row->setDNSServers(u" , "_s);
    row->setSearchDomains(QString());
    row->setMTU(QString());
    row->setSpeed(QString());
    ASSERT_FALSE(row->hasMoreSettings());
    row->setSearchDomains(u"show.local"_s);
    EXPECT_TRUE(row->hasMoreSettings());
    row->setSearchDomains(QString());
    row->setMTU(u"1400"_s);
    EXPECT_TRUE(row->hasMoreSettings());
}

TEST_F(Rows, ListSplitsAtCommasSpacesTabsAndLineEnds)
{
    EXPECT_EQ(ServiceEdit::list(u"a, b\tc\n\nd,,e"_s),
              (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
}

} // namespace
