// "More…" on a row: DNS, the hardware settings and the removal, over the show machine.
#include "OrvaneApp/surfaces/MoreSettings.h"

#include "OrvaneApp/surfaces/MoreButton.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "tests/support/QtPrinters.h"
#include "tests/surfaces/CurrentTestSupport.h"

#include <QComboBox>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class More : public CurrentTest
{
protected:
    /// Opens "More…" on the row and answers the popover.
    MoreSettings *openMore(const AppModel::Row &row)
    {
        ServiceRowView *rowView = viewOf(row);
        if (!rowView) {
            ADD_FAILURE() << "the row is not on show";
            return nullptr;
        }
        rowView->moreButton()->click();
        return shownPopover<MoreSettings>();
    }

    static bool shows(const MoreSettings &more, const QWidget *control)
    {
        return control->isVisibleTo(&more);
    }
};

TEST_F(More, AWiFiAdapterHasNoSpeedOrDuplexRows)
{
    openTab();
    MoreSettings *more = openMore(adapterRow(*model, u"Wi-Fi"_s));
    ASSERT_TRUE(more);
    EXPECT_TRUE(shows(*more, more->mtuField()));
    EXPECT_FALSE(shows(*more, more->speedChoice()));
    EXPECT_FALSE(shows(*more, more->duplexChoice()));
}

TEST_F(More, AnEthernetAdapterOffersItsSpeedsAndTheirDuplexes)
{
    openTab();
    const AppModel::Row row = adapterRow(*model, u"Ethernet"_s);
    MoreSettings *more = openMore(row);
    ASSERT_TRUE(more);
    ASSERT_TRUE(shows(*more, more->speedChoice()));
    QStringList speeds;
    for (int index = 0; index < more->speedChoice()->count(); ++index)
        speeds.append(more->speedChoice()->itemText(index));
    EXPECT_EQ(speeds,
              (QStringList{u"Automatic"_s, u"10baseT/UTP"_s, u"100baseTX"_s, u"1000baseT"_s}));
    more->speedChoice()->setCurrentIndex(3);
    Q_EMIT more->speedChoice()->activated(3);
    EXPECT_EQ(row->speed(), u"1000baseT"_s);
    QStringList duplexes;
    for (int index = 0; index < more->duplexChoice()->count(); ++index)
        duplexes.append(more->duplexChoice()->itemText(index));
    EXPECT_EQ(duplexes, (QStringList{u"full-duplex"_s, u"full-duplex, flow-control"_s}));
    EXPECT_EQ(MoreSettings::frameSizeNote(*row), u"1280\u20139000 on this adapter"_s);
}

TEST_F(More, AnUnattachedAdapterWithASpeedSetEndsItsNoteWithChooseAutomatic)
{
    openTab();
    const AppModel::Row truck = adapterRow(*model, u"TRUCK"_s);
    EXPECT_EQ(MoreSettings::hardwareNote(*truck),
              u"Not attached. What is set here can be put back to automatic: empty the MTU."_s);
    truck->setSpeed(u"100baseTX"_s);
    EXPECT_EQ(MoreSettings::hardwareNote(*truck),
              u"Not attached. What is set here can be put back to automatic: empty the MTU and "
              "choose Automatic."_s);
    MoreSettings *more = openMore(truck);
    ASSERT_TRUE(more);
    EXPECT_EQ(more->hardwareNoteLabel()->text(), MoreSettings::hardwareNote(*truck));
    // The speed set stays choosable although no driver offers it now.
    EXPECT_TRUE(shows(*more, more->speedChoice()));
    EXPECT_EQ(more->speedChoice()->currentText(), u"100baseTX"_s);
}

TEST_F(More, AVLANWithNoServiceHasItsFieldsDisabledAndSaysHowToGetOne)
{
    openTab();
    MoreSettings *more = openMore(vlanRow(*model, 1040));
    ASSERT_TRUE(more);
    EXPECT_FALSE(more->dnsField()->isEnabled());
    EXPECT_FALSE(more->searchField()->isEnabled());
    EXPECT_EQ(more->dnsNoteLabel()->text(), u"Add this VLAN to Show to set these."_s);
    EXPECT_FALSE(shows(*more, more->mtuField()));
}

TEST_F(More, NothingOfferedAndNothingSetShowsNoHardwareRows)
{
    openTab();
    const AppModel::Row row = vlanRow(*model, 1014);
    row->setOffers(std::nullopt);
    ASSERT_TRUE(row->hardware().isAutomatic());
    EXPECT_FALSE(MoreSettings::showsHardware(*row));
    MoreSettings *more = openMore(row);
    ASSERT_TRUE(more);
    EXPECT_FALSE(shows(*more, more->mtuField()));
    EXPECT_FALSE(shows(*more, more->hardwareNoteLabel()));
    EXPECT_EQ(more->dnsNoteLabel()->text(), u"Leave empty to use what DHCP supplies."_s);
}

TEST_F(More, AnAttachedVLANSaysWhatItsLinkDoes)
{
    openTab();
    const AppModel::Row row = vlanRow(*model, 1014);
    HardwareCapabilities offers;
    row->setOffers(offers);
    EXPECT_EQ(MoreSettings::hardwareNote(*row), u"Not connected."_s);
    offers.activeSpeed = u"1000baseT"_s;
    offers.activeDuplex = {u"full-duplex"_s};
    offers.activeMTU = 1500;
    row->setOffers(offers);
    // A VLAN says nothing of the MTU; an adapter does.
    EXPECT_EQ(MoreSettings::hardwareNote(*row), u"Running at 1000baseT full-duplex."_s);
    offers.activeSpeed = u"autoselect"_s;
    row->setOffers(offers);
    EXPECT_EQ(MoreSettings::hardwareNote(*row), u"Not connected."_s);
    const AppModel::Row ethernet = adapterRow(*model, u"Ethernet"_s);
    ethernet->setOffers(offers);
    EXPECT_EQ(MoreSettings::hardwareNote(*ethernet), u"Running at MTU 1500."_s);
}

TEST_F(More, TheDuplexChoiceKeepsTheRowsOwnWhenNoneOffersIt)
{
    openTab();
    const AppModel::Row row = adapterRow(*model, u"Ethernet"_s);
    row->setSpeed(u"1000baseT"_s);
    row->setDuplex({u"half-duplex"_s});
    const QList<QStringList> choices = MoreSettings::duplexChoices(*row);
    EXPECT_EQ(choices.last(), QStringList{u"half-duplex"_s});
    EXPECT_EQ(choices.size(), 3);
    EXPECT_EQ(MoreSettings::duplexLabel({u"full-duplex"_s, u"flow-control"_s}),
              u"full-duplex, flow-control"_s);
}

TEST_F(More, TheValueColumnIsMeasuredAndAtLeast300)
{
    openTab();
    MoreSettings *more = openMore(adapterRow(*model, u"TRUCK"_s));
    ASSERT_TRUE(more);
    const QFontMetrics notes(more->hardwareNoteLabel()->font());
    EXPECT_GE(more->valueWidth(), MoreSettings::leastValueWidth);
    EXPECT_GE(more->valueWidth(), notes.horizontalAdvance(more->hardwareNoteLabel()->text()));
    EXPECT_GE(more->hardwareNoteLabel()->width(),
              notes.horizontalAdvance(more->hardwareNoteLabel()->text()));
}

TEST_F(More, TypingEditsTheRowFoundByItsIdentity)
{
    openTab();
    const QString id = vlanRow(*model, 1014)->source().id;
    MoreSettings *more = openMore(vlanRow(*model, 1014));
    ASSERT_TRUE(more);
    more->dnsField()->setText(u"10.0.0.53"_s);
    Q_EMIT more->dnsField()->textEdited(u"10.0.0.53"_s);
    EXPECT_EQ(model->rowWithID(id)->dnsServers(), u"10.0.0.53"_s);
    ServiceRowView *row = vlanView(1014);
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->saveButton()->isVisibleTo(row));
    more->mtuField()->setText(u"big"_s);
    Q_EMIT more->mtuField()->textEdited(u"big"_s);
    EXPECT_TRUE(more->mtuField()->hasProblemOutline());
    EXPECT_TRUE(row->moreButton()->hasProblemOutline());
}

TEST_F(More, AVLANIsDeletedAfterItsOwnQuestion)
{
    openTab();
    MoreSettings *more = openMore(vlanRow(*model, 1050));
    ASSERT_TRUE(more);
    EXPECT_EQ(more->deleteButton()->text(), u"Delete VLAN\u2026"_s);
    more->deleteButton()->click();
    ASSERT_TRUE(more->confirmingDelete());
    EXPECT_TRUE(button(*more, u"Cancel"_s));
    EXPECT_EQ(more->confirmDeleteButton()->text(), u"Delete"_s);
    QLabel *question = nullptr;
    for (QLabel *label : more->findChildren<QLabel *>()) {
        if (label->text().startsWith(u"Delete "_s))
            question = label;
    }
    ASSERT_TRUE(question);
    EXPECT_EQ(question->text(), u"Delete 1050 - Stage Left (DONGLE) and its network service?"_s);
    more->confirmDeleteButton()->click();
    EXPECT_EQ(shownPopover<MoreSettings>(), nullptr);
    settle();
    for (const VLANRecord &vlan : readStore()->vlans())
        EXPECT_NE(vlan.tag, 1050);
    EXPECT_EQ(model->vlanRows().size(), 11);
}

TEST_F(More, AnAdapterIsTakenOutOfTheLocationButStays)
{
    openTab();
    MoreSettings *more = openMore(adapterRow(*model, u"TRUCK"_s));
    ASSERT_TRUE(more);
    EXPECT_EQ(more->deleteButton()->text(), u"Remove from Show\u2026"_s);
    more->deleteButton()->click();
    EXPECT_EQ(more->confirmDeleteButton()->text(), u"Remove"_s);
    button(*more, u"Cancel"_s)->click();
    EXPECT_FALSE(more->confirmingDelete());
    EXPECT_TRUE(more->deleteButton()->isVisibleTo(more));
}

TEST_F(More, DoneClosesAndTheEditsStayOnTheRow)
{
    openTab();
    const AppModel::Row row = vlanRow(*model, 1014);
    MoreSettings *more = openMore(row);
    ASSERT_TRUE(more);
    more->searchField()->setText(u"show.local"_s);
    Q_EMIT more->searchField()->textEdited(u"show.local"_s);
    button(*more, u"Done"_s)->click();
    EXPECT_EQ(shownPopover<MoreSettings>(), nullptr);
    EXPECT_EQ(row->searchDomains(), u"show.local"_s);
}

} // namespace
