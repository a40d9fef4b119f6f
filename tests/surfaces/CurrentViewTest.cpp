// The Current tab over the show machine: what each row, head and verb shows, and the cases at
// the edges of the tab's rules.
#include "OrvaneApp/surfaces/ContentView.h"
#include "OrvaneApp/surfaces/CurrentColumns.h"
#include "OrvaneApp/surfaces/CurrentHeads.h"
#include "OrvaneApp/surfaces/MoreButton.h"
#include "OrvaneApp/surfaces/ServiceOrderStrip.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Popover.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/Pulse.h"
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Switch.h"
#include "tests/support/QtPrinters.h"
#include "tests/surfaces/CurrentTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QString warningText(const QWidget &warning)
{
    const auto *words = warning.findChild<QLabel *>(u"warningWords"_s);
    return words ? words->text() : QString();
}

/// Plugs an adapter in: a table of its own in the machine description.
const QString truckPluggedIn = u"\n[[interface]]\nbsd-name = \"en8\"\n"
                               "display-name = \"USB 10/100/1000 LAN\"\n"
                               "hardware-address = \"00:e0:4c:68:99:01\"\nlink-up = false\n"_s;

class CurrentTab : public CurrentTest
{
protected:
    void SetUp() override
    {
        CurrentTest::SetUp();
        Pulse::freezeAll(true);
    }
    void TearDown() override
    {
        Pulse::freezeAll(false);
        CurrentTest::TearDown();
    }

    void tick(qint64 tag) { model->toggleSelection(vlanRow(*model, tag)); }
};

TEST_F(CurrentTab, TheSectionsCountTheirRowsAndShowTheKey)
{
    openTab();
    EXPECT_EQ(view->adaptersHead()->pill()->text(), u"5"_s);
    EXPECT_EQ(view->vlansHead()->pill()->text(), u"12"_s);
    const QStringList states{u"Connected"_s, u"Self-assigned IP"_s, u"Not connected"_s,
                             u"Inactive"_s, u"Not in this Location"_s};
    QStringList key;
    for (const QLabel *label : view->adaptersHead()->findChildren<QLabel *>()) {
        if (states.contains(label->text()))
            key.append(label->text());
    }
    EXPECT_EQ(key, (QStringList{u"Connected"_s, u"Self-assigned IP"_s, u"Not connected"_s,
                                u"Inactive"_s}));
    EXPECT_FALSE(view->adaptersHead()->loadErrorLine()->isVisibleTo(view->adaptersHead()));
}

TEST_F(CurrentTab, TheColumnHeadsNameTheColumnsAndLineUpWithTheRows)
{
    openTab();
    EXPECT_EQ(view->adapterColumns()->labels(),
              (QStringList{u"DEVICE"_s, u"NAME"_s, u"IPV4"_s, u"ADDRESS"_s, u"SUBNET MASK"_s,
                           u"ROUTER"_s, u"IPV6"_s, u"ON"_s}));
    EXPECT_EQ(view->vlanColumns()->labels(),
              (QStringList{u"TAG"_s, u"NAME"_s, u"PARENT"_s, u"IPV4"_s, u"ADDRESS"_s,
                           u"SUBNET MASK"_s, u"ROUTER"_s, u"IPV6"_s, u"ON"_s}));
    // The address field of an adapter row and of a VLAN row stand at the same place.
    ServiceRowView *adapter = adapterView(u"Ethernet"_s);
    ServiceRowView *vlan = vlanView(100);
    ASSERT_TRUE(adapter && vlan);
    QWidget *viewport = view->rowList()->viewport();
    EXPECT_EQ(adapter->addressField()->mapTo(viewport, QPoint()).x(),
              vlan->addressField()->mapTo(viewport, QPoint()).x());
    EXPECT_EQ(adapter->width(), vlan->width());
    EXPECT_EQ(vlan->width(), CurrentColumns::fixedWidth + int(model->nameColumnWidth()));
}

TEST_F(CurrentTab, ARowFitsTheLeastWindowBesideTheScrollBar)
{
    openTab();
    const int least = ContentView::minimumWindowSize(model->nameColumnWidth()).width();
    view->resize(least, 520);
    EXPECT_EQ(view->rowList()->horizontalScrollBar()->maximum(), 0);
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->mapTo(view.get(), QPoint()).x(), CurrentView::leftMargin);
}

TEST_F(CurrentTab, ARowShowsItsDeviceNameAndLiveness)
{
    openTab();
    ServiceRowView *adapter = adapterView(u"Ethernet"_s);
    ASSERT_TRUE(adapter);
    EXPECT_EQ(adapter->device()->text(), u"en0"_s);
    EXPECT_EQ(adapter->nameField()->text(), u"Ethernet"_s);
    EXPECT_EQ(adapter->dot()->accessibleName(), u"Self-assigned IP"_s);
    EXPECT_FALSE(adapter->parentChoice()->isVisibleTo(adapter));
    ServiceRowView *vlan = vlanView(1010);
    ASSERT_TRUE(vlan);
    EXPECT_EQ(vlan->device()->text(), u"1010"_s);
    EXPECT_EQ(vlan->dot()->accessibleName(), u"Connected"_s);
    EXPECT_EQ(vlan->parentChoice()->currentText(), u"DONGLE"_s);
    EXPECT_EQ(vlan->modeChoice()->currentText(), u"Manual"_s);
    EXPECT_EQ(vlan->addressField()->text(), u"192.168.10.69"_s);
    EXPECT_TRUE(vlan->addressField()->isEnabled());
    EXPECT_EQ(vlan->onSwitch()->toolTip(), u"Turn this VLAN's service on or off"_s);
    EXPECT_EQ(adapter->onSwitch()->toolTip(), u"Turn this adapter's service on or off"_s);
    EXPECT_FALSE(vlan->saveButton()->isVisibleTo(vlan));
    EXPECT_FALSE(vlan->problemMark()->isVisibleTo(vlan));
}

TEST_F(CurrentTab, TheNameHelpSaysHowTheServiceStands)
{
    openTab();
    const QString location = u"Show"_s;
    EXPECT_EQ(ServiceRowView::statusHelp(*vlanRow(*model, 1010), location),
              u"Connected: on, and holding an address"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*adapterRow(*model, u"Ethernet"_s), location),
              u"Self-assigned IP: on, but nothing answered DHCP"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*vlanRow(*model, 2010), location),
              u"Not connected: on, but holding no address"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*vlanRow(*model, 3010), location),
              u"Not connected: its parent adapter isn't attached"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*adapterRow(*model, u"TRUCK"_s), location),
              u"Not connected: the adapter isn't attached"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*vlanRow(*model, 1030), location),
              u"Inactive: switched off"_s);
    EXPECT_EQ(ServiceRowView::statusHelp(*vlanRow(*model, 1040), location), u"Not in Show"_s);
    ServiceRowView *row = vlanView(1030);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->nameField()->toolTip(), u"Inactive: switched off"_s);
}

TEST_F(CurrentTab, ADHCPRowWithNoLiveAddressShowsThreeEmptyDisabledFields)
{
    openTab();
    ServiceRowView *row = vlanView(2012);
    ASSERT_TRUE(row);
    for (const HintField *field : {row->addressField(), row->maskField(), row->routerField()}) {
        EXPECT_FALSE(field->isEnabled());
        EXPECT_TRUE(field->text().isEmpty());
        EXPECT_TRUE(field->placeholderText().isEmpty());
    }
}

TEST_F(CurrentTab, ADHCPRowShowsWhatTheServiceHoldsNowInItsDisabledFields)
{
    openTab();
    ServiceRowView *row = vlanView(1020);
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->addressField()->isEnabled());
    EXPECT_EQ(row->addressField()->text(), u"192.168.20.100"_s);
    EXPECT_EQ(row->maskField()->text(), u"255.255.255.0"_s);
    EXPECT_EQ(row->routerField()->text(), u"192.168.20.1"_s);
    EXPECT_EQ(row->addressField()->toolTip(), u"The address this service holds now"_s);
}

TEST_F(CurrentTab, ALinkLocalRowShowsItsModeAsAThirdEntry)
{
    openTab();
    const QString service = *vlanRow(*model, 1012)->source().serviceID;
    editPreferences([&service](QVariantMap &root) {
        QVariantMap services = root.value(u"NetworkServices"_s).toMap();
        QVariantMap entry = services.value(service).toMap();
        QVariantMap ipv4 = entry.value(u"IPv4"_s).toMap();
        ipv4 = {{u"ConfigMethod"_s, u"LinkLocal"_s}};
        entry.insert(u"IPv4"_s, ipv4);
        services.insert(service, entry);
        root.insert(u"NetworkServices"_s, services);
    });
    view.reset();
    openTab();
    ServiceRowView *row = vlanView(1012);
    ASSERT_TRUE(row);
    QStringList entries;
    for (int index = 0; index < row->modeChoice()->count(); ++index)
        entries.append(row->modeChoice()->itemText(index));
    EXPECT_EQ(entries, (QStringList{u"DHCP"_s, u"Manual"_s, u"Link-local"_s}));
    EXPECT_EQ(row->modeChoice()->currentText(), u"Link-local"_s);
}

TEST_F(CurrentTab, TheIPv6ChoiceOffersTheSettableModes)
{
    openTab();
    ServiceRowView *row = vlanView(1012);
    ASSERT_TRUE(row);
    QStringList entries;
    for (int index = 0; index < row->ipv6Choice()->count(); ++index)
        entries.append(row->ipv6Choice()->itemText(index));
    EXPECT_EQ(entries, (QStringList{u"Automatic"_s, u"Link-local only"_s, u"Off"_s}));
    EXPECT_EQ(row->ipv6Choice()->currentText(), u"Link-local only"_s);
    EXPECT_EQ(row->ipv6Choice()->accessibleName(), u"IPv6, 1012 - Audio (DONGLE)"_s);
}

TEST_F(CurrentTab, AnAbsentParentIsListedSoTheChoiceHasSomethingToShow)
{
    openTab();
    ServiceRowView *row = vlanView(3010);
    ASSERT_TRUE(row);
    // Its name, or where that is too wide for the column, its BSD name.
    EXPECT_TRUE(row->parentChoice()->currentText() == u"TRUCK (absent)"_s
                || row->parentChoice()->currentText() == u"en8 (absent)"_s);
    EXPECT_EQ(row->parentChoice()->currentData().toString(), u"en8"_s);
}

TEST_F(CurrentTab, OneOrphanIsNamedInTheSingular)
{
    openTab();
    EXPECT_TRUE(view->orphanWarning()->isVisibleTo(view->vlansHead()));
    EXPECT_EQ(warningText(*view->orphanWarning()), u"1 parented to absent hardware"_s);
    ASSERT_TRUE(view->reparentButton()->isVisibleTo(view->vlansHead()));
    EXPECT_EQ(view->reparentButton()->text(), u"Re-parent onto Ethernet"_s);
    view->reparentButton()->click();
    EXPECT_TRUE(view->isConfirming(CurrentView::Confirmation::reparent));
    EXPECT_EQ(popoverTitle(), u"Re-parent 1 VLAN onto Ethernet?"_s);
}

TEST_F(CurrentTab, TwoOrphansAreNamedInThePlural)
{
    editMachine([](QString &text) { text.append(truckPluggedIn); });
    unplug(u"en6"_s);
    openTab();
    EXPECT_EQ(warningText(*view->orphanWarning()), u"2 parented to absent hardware"_s);
    view->reparentButton()->click();
    EXPECT_EQ(popoverTitle(), u"Re-parent 2 VLANs onto Ethernet?"_s);
}

TEST_F(CurrentTab, NoAdapterPresentLeavesTheOrphanWarningWithoutAButton)
{
    // Wi-Fi stays: it can carry no VLAN, so it is no adapter to re-parent onto.
    for (const QString &adapter : {u"en0"_s, u"en5"_s, u"en6"_s})
        unplug(adapter);
    openTab();
    ASSERT_FALSE(model->loadError()) << model->loadError()->toStdString();
    EXPECT_TRUE(view->orphanWarning()->isVisibleTo(view->vlansHead()));
    EXPECT_EQ(warningText(*view->orphanWarning()), u"12 parented to absent hardware"_s);
    EXPECT_FALSE(view->reparentButton()->isVisibleTo(view->vlansHead()));
}

TEST_F(CurrentTab, AVLANNotInTheLocationIsOfferedAndItsRowOffersToAddIt)
{
    openTab();
    EXPECT_EQ(warningText(*view->notInLocationWarning()), u"1 VLAN not in Show"_s);
    EXPECT_EQ(view->addAllButton()->text(), u"Add it\u2026"_s);
    ServiceRowView *row = vlanView(1040);
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->addButton()->isVisibleTo(row));
    EXPECT_FALSE(row->addressField()->isVisibleTo(row));
    EXPECT_EQ(row->addButton()->width(), CurrentColumns::addButton);
    EXPECT_EQ(row->addButton()->text(), u"Add to Show to enter its settings\u2026"_s);
    EXPECT_EQ(row->addButton()->toolTip(),
              u"1040 - Backstage (DONGLE) is on this Mac but has no service in Show, so it holds "
              "no address there"_s);
    row->addButton()->click();
    EXPECT_EQ(popoverTitle(), u"Add 1040 - Backstage (DONGLE) to Show?"_s);
}

TEST_F(CurrentTab, TheAdapterMenuIsDisabledWhenEveryAttachedAdapterHasAService)
{
    openTab();
    EXPECT_FALSE(view->addAdapterMenu()->isEnabled());
    EXPECT_EQ(view->addAdapterMenu()->toolTip(),
              u"Every attached adapter already has a service in Show"_s);
}

TEST_F(CurrentTab, TheNameSyncOfferCountsTheNames)
{
    openTab();
    const qsizetype names = model->adapterNameSync().size();
    EXPECT_EQ(view->nameSyncButton()->isVisibleTo(view->vlansHead()), names > 0);
    EXPECT_EQ(view->nameSyncButton()->text(),
              u"Add adapter to "_s + CurrentView::counted(names, u"name"_s) + u"\u2026"_s);
}

TEST_F(CurrentTab, DeletingOneTickedVLANNamesIt)
{
    openTab();
    tick(1010);
    ASSERT_TRUE(view->deleteButton()->isEnabled());
    view->deleteButton()->click();
    EXPECT_EQ(popoverTitle(), u"Delete 1010 - Control (DONGLE)?"_s);
}

TEST_F(CurrentTab, DeletingTwoTickedVLANsCountsThem)
{
    openTab();
    tick(1010);
    tick(1012);
    view->deleteButton()->click();
    EXPECT_EQ(popoverTitle(), u"Delete 2 VLANs?"_s);
}

TEST_F(CurrentTab, TickingOnlyRowsThatAreOnLeavesTurnOnDisabledWithWhy)
{
    openTab();
    tick(1010);
    tick(1012);
    EXPECT_FALSE(view->turnOnButton()->isEnabled());
    EXPECT_EQ(view->turnOnButton()->toolTip(),
              u"Tick one or more rows that are off to turn them on"_s);
    EXPECT_TRUE(view->turnOffButton()->isEnabled());
    EXPECT_EQ(view->turnOffButton()->toolTip(), u"Turn off the ticked rows that are on"_s);
    EXPECT_EQ(view->selectedCount()->text(), u"2 selected"_s);
}

TEST_F(CurrentTab, TheCountOfABulkVerbLeavesOutRowsAlreadyInThatState)
{
    openTab();
    tick(1010);
    tick(1030);
    view->turnOffButton()->click();
    EXPECT_EQ(popoverTitle(), u"Turn off 1 service?"_s);
}

TEST_F(CurrentTab, ClearEmptiesTheSelection)
{
    openTab();
    EXPECT_FALSE(view->clearButton()->isEnabled());
    tick(1010);
    ASSERT_TRUE(view->clearButton()->isEnabled());
    view->clearButton()->click();
    EXPECT_TRUE(model->selectedIDs().isEmpty());
    EXPECT_EQ(view->selectedCount()->text(), u"0 selected"_s);
}

TEST_F(CurrentTab, TickAllSelectsEveryRowOfItsTable)
{
    openTab();
    view->vlanColumns()->tickAll()->click();
    EXPECT_EQ(model->selectedIDs().size(), 12);
    EXPECT_TRUE(view->vlanColumns()->tickAll()->isChecked());
    EXPECT_FALSE(view->adapterColumns()->tickAll()->isChecked());
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->tick()->isChecked());
    view->vlanColumns()->tickAll()->click();
    EXPECT_TRUE(model->selectedIDs().isEmpty());
}

TEST_F(CurrentTab, ADimmedEditedRowKeepsItsSaveAtFullStrength)
{
    openTab();
    ServiceRowView *row = vlanView(1030);
    ASSERT_TRUE(row);
    EXPECT_DOUBLE_EQ(row->shownStrength(), ServiceRowView::dimmed);
    model->rowWithID(row->row()->source().id)->setName(u"1030 - Comms (DONGLE)"_s);
    ASSERT_TRUE(row->saveButton()->isVisibleTo(row));
    EXPECT_DOUBLE_EQ(row->shownStrength(), ServiceRowView::dimmed);
    // The save cell stands outside the dimmed controls, and its pulse is at rest.
    EXPECT_FALSE(row->nameField()->parentWidget()->isAncestorOf(row->saveButton()));
    EXPECT_DOUBLE_EQ(row->savePulse()->opacity(), 1.0);
    EXPECT_TRUE(row->saveButton()->looksProminent());
}

TEST_F(CurrentTab, ARowWithAServiceThatIsOnStandsAtFullStrength)
{
    openTab();
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    EXPECT_DOUBLE_EQ(row->shownStrength(), 1.0);
    row->onSwitch()->click();
    EXPECT_FALSE(row->row()->enabled());
    EXPECT_DOUBLE_EQ(row->shownStrength(), ServiceRowView::dimmed);
    EXPECT_TRUE(row->saveButton()->isVisibleTo(row));
}

TEST_F(CurrentTab, AProblemShowsOnlyWhileTheRowIsEditedAndBlocksItsSave)
{
    openTab();
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    row->addressField()->setText(QString());
    Q_EMIT row->addressField()->textEdited(QString());
    EXPECT_TRUE(row->addressField()->hasProblemOutline());
    EXPECT_FALSE(row->saveButton()->isVisibleTo(row));
    ASSERT_TRUE(row->problemMark()->isVisibleTo(row));
    EXPECT_FALSE(row->problemMark()->toolTip().isEmpty());
    row->problemMark()->click();
    ASSERT_TRUE(shownPopover());
    EXPECT_EQ(popoverTitle(), row->problemMark()->toolTip());
    shownPopover()->dismissQuietly();

    EXPECT_FALSE(view->saveAllButton()->isEnabled());
    EXPECT_EQ(view->saveAllButton()->toolTip(),
              u"Nothing to save, or a row can't be saved as typed"_s);
    EXPECT_FALSE(view->editStatusSymbol()->isHidden());
    model->revertAll();
    row = vlanView(1010);
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->addressField()->hasProblemOutline());
    EXPECT_FALSE(row->problemMark()->isVisibleTo(row));
}

TEST_F(CurrentTab, AProblemBehindMoreOutlinesIt)
{
    openTab();
    AppModel::Row edited = vlanRow(*model, 1014);
    edited->setMTU(u"a lot"_s);
    ServiceRowView *row = vlanView(1014);
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->moreButton()->hasProblemOutline());
    EXPECT_FALSE(row->addressField()->hasProblemOutline());
}

TEST_F(CurrentTab, MoreShowsADotWhenTheServiceHasSettingsOfItsOwn)
{
    openTab();
    for (const AppModel::Row &edited : model->vlanRows()) {
        ServiceRowView *row = viewOf(edited);
        ASSERT_TRUE(row);
        EXPECT_EQ(row->moreButton()->showsDot(), edited->hasMoreSettings());
        EXPECT_EQ(row->moreButton()->toolTip(),
                  edited->hasMoreSettings()
                      ? u"DNS or hardware settings are set on this service"_s
                      : u"DNS servers, search domains, MTU, speed and duplex"_s);
    }
}

TEST_F(CurrentTab, SaveAllIsProminentOnlyWhenItCanSave)
{
    openTab();
    EXPECT_FALSE(view->saveAllButton()->isEnabled());
    EXPECT_FALSE(view->saveAllButton()->looksProminent());
    EXPECT_FALSE(view->revertAllButton()->isVisibleTo(view.get()));
    vlanRow(*model, 1010)->setRouter(u"192.168.10.2"_s);
    vlanRow(*model, 1012)->setRouter(u"192.168.12.2"_s);
    EXPECT_TRUE(view->saveAllButton()->isEnabled());
    EXPECT_TRUE(view->saveAllButton()->looksProminent());
    EXPECT_EQ(view->saveAllButton()->width(), CurrentColumns::saveAll);
    EXPECT_TRUE(view->revertAllButton()->isVisibleTo(view.get()));
    view->saveAllButton()->click();
    EXPECT_EQ(popoverTitle(), u"Save 2 rows in Show?"_s);
}

TEST_F(CurrentTab, RevertAllAsksBeforeItDiscards)
{
    openTab();
    vlanRow(*model, 1010)->setRouter(u"192.168.10.2"_s);
    view->revertAllButton()->click();
    EXPECT_EQ(popoverTitle(), u"Discard the edits to 1 row?"_s);
    button(*shownPopover(), u"Discard"_s)->click();
    EXPECT_TRUE(model->dirtyRows().isEmpty());
    EXPECT_FALSE(view->isConfirming(CurrentView::Confirmation::revertAll));
}

TEST_F(CurrentTab, TheEditStatusGivesWayRatherThanPushingSaveAll)
{
    openTab();
    EXPECT_EQ(view->editStatusLabel()->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    EXPECT_EQ(view->editStatusLabel()->text(), model->editStatus().text);
}

TEST_F(CurrentTab, ABulkConfirmationClosesWhenTheSelectionChanges)
{
    openTab();
    tick(1010);
    view->deleteButton()->click();
    ASSERT_TRUE(view->isConfirming(CurrentView::Confirmation::bulkDelete));
    tick(1012);
    EXPECT_FALSE(view->isConfirming(CurrentView::Confirmation::bulkDelete));
    EXPECT_EQ(shownPopover(), nullptr);
}

TEST_F(CurrentTab, ABulkConfirmationClosesWhenTheEditedRowsChange)
{
    openTab();
    tick(1010);
    view->turnOffButton()->click();
    ASSERT_TRUE(view->isConfirming(CurrentView::Confirmation::turnOff));
    vlanRow(*model, 1012)->setRouter(u"192.168.12.2"_s);
    EXPECT_FALSE(view->isConfirming(CurrentView::Confirmation::turnOff));
}

TEST_F(CurrentTab, TheOrphanConfirmationClosesWhenTheOrphansChange)
{
    openTab();
    view->reparentButton()->click();
    ASSERT_TRUE(view->isConfirming(CurrentView::Confirmation::reparent));
    // Another hand mends the orphan while the question stands.
    model->apply(model->orphanReparentChanges(u"en5"_s));
    settle();
    EXPECT_FALSE(view->isConfirming(CurrentView::Confirmation::reparent));
    EXPECT_FALSE(view->orphanWarning()->isVisibleTo(view->vlansHead()));
}

TEST_F(CurrentTab, NoVLANsShowsTheEmptyNoticeAndTheWayToAddSome)
{
    removeAllVLANs();
    openTab();
    ASSERT_TRUE(view->emptyNotice()->isVisible());
    EXPECT_EQ(view->vlansHead()->pill()->text(), u"0"_s);
    button(*view->emptyNotice(), u"Add VLANs"_s)->click();
    EXPECT_EQ(model->tab(), AppTab::add);
}

TEST_F(CurrentTab, TheStripSaysHowTheOrderStandsAndOffersTheMend)
{
    openTab();
    ServiceOrderStrip *strip = view->strip();
    EXPECT_EQ(strip->badge()->text(), model->rankingLine().text);
    EXPECT_EQ(strip->badge()->warns(), model->rankingLine().warns);
    EXPECT_EQ(strip->recommendedButton()->isVisibleTo(strip), model->orderNeedsFixing());
    strip->orderButton()->click();
    EXPECT_TRUE(model->showingServiceOrder());
}

TEST_F(CurrentTab, TheRecommendedOrderConfirmationClosesWhenNothingIsLeftToFix)
{
    openTab();
    ASSERT_TRUE(model->orderNeedsFixing());
    view->strip()->recommendedButton()->click();
    ASSERT_TRUE(view->strip()->confirmingRecommended());
    model->applyRecommendedOrder();
    model->reload(false);
    ASSERT_FALSE(model->orderNeedsFixing());
    EXPECT_FALSE(view->strip()->confirmingRecommended());
    EXPECT_FALSE(view->strip()->recommendedButton()->isVisibleTo(view->strip()));
}

} // namespace

namespace {

TEST_F(CurrentTab, ALoadErrorStandsInBothHeadsUntilTheNextGoodRead)
{
    openTab();
    const QByteArray good = preferencesBytes();
    temporary.write(u"machine/preferences.plist"_s, "<plist><dict>");
    model->reload(false);
    ASSERT_TRUE(model->loadError());
    for (SectionHead *head : {view->adaptersHead(), view->vlansHead()}) {
        ASSERT_TRUE(head->loadErrorLine()->isVisibleTo(head));
        EXPECT_EQ(warningText(*head->loadErrorLine()), *model->loadError());
    }
    temporary.write(u"machine/preferences.plist"_s, good);
    model->reload(false);
    EXPECT_FALSE(model->loadError());
    EXPECT_FALSE(view->vlansHead()->loadErrorLine()->isVisibleTo(view->vlansHead()));
}

} // namespace
