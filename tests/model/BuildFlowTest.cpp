#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

using BuildFlow = ModelTest;

VLANRecord madeUpVLAN(qint64 tag)
{
    VLANRecord vlan;
    vlan.tag = tag;
    vlan.bsdName = u"vlan"_s + QString::number(tag);
    return vlan;
}

QList<PlannedChange> enabledChanges(int count)
{
    QList<PlannedChange> changes;
    for (int index = 0; index < count; ++index)
        changes.append(PlannedChange::SetEnabled{100 + index, u"vlan"_s + QString::number(index),
                                                 u"Row"_s, true});
    return changes;
}

TEST_F(BuildFlow, TwoRowsWithTheSameTagBothShowDuplicate)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"20"_s, u"A"_s}, {u"20"_s, u"B"_s}, {u"20"_s, u"C"_s}}));
    const QHash<QUuid, QString> issues = model->issues();
    ASSERT_EQ(issues.size(), 3);
    for (const AppModel::DraftRow &draft : model->drafts())
        EXPECT_EQ(issues.value(draft->id()), u"Duplicate of another row."_s);
    EXPECT_FALSE(model->canBuild());
}

TEST_F(BuildFlow, TagOfAVLANOnlyInAnotherLocationNamesTheShownLocation)
{
    const auto model = makeModel();
    model->reload();
    model->setDrafts(draftsOf({{u"1040"_s, QString()}, {u"1010"_s, QString()}}));
    const QHash<QUuid, QString> issues = model->issues();
    EXPECT_EQ(issues.value(model->drafts().at(0)->id()),
              u"VLAN 1040 is on this Mac but not in Show. Add it on the Current tab."_s);
    EXPECT_EQ(issues.value(model->drafts().at(1)->id()),
              u"VLAN 1010 already exists on this Mac."_s);
}

TEST_F(BuildFlow, IssuesCheckTagRangeAndTypedAddresses)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"x"_s, QString()},
                               {u"4095"_s, QString()},
                               {u"30"_s, QString()},
                               {u"31"_s, QString()},
                               {u"32"_s, QString()}}));
    const QList<AppModel::DraftRow> &drafts = model->drafts();
    drafts.at(2)->setMode(IPMode::manual);
    drafts.at(2)->setAddress(u"10.0.0"_s);
    drafts.at(3)->setMode(IPMode::manual);
    drafts.at(3)->setAddress(u"10.0.0.1"_s);
    drafts.at(3)->setSubnetMask(u"255.255"_s);
    drafts.at(4)->setMode(IPMode::manual);
    drafts.at(4)->setAddress(u"10.0.0.1"_s);
    drafts.at(4)->setSubnetMask(u"1.2.3.4"_s);
    drafts.at(4)->setRouter(u"gateway"_s);
    const QHash<QUuid, QString> issues = model->issues();
    EXPECT_EQ(issues.value(drafts.at(0)->id()), u"Tag must be a number."_s);
    EXPECT_EQ(issues.value(drafts.at(1)->id()), u"Tag must be between 1 and 4094."_s);
    EXPECT_EQ(issues.value(drafts.at(2)->id()), u"IP address isn't a valid IPv4 address."_s);
    EXPECT_EQ(issues.value(drafts.at(3)->id()), u"Subnet mask isn't valid."_s);
    EXPECT_EQ(issues.value(drafts.at(4)->id()), u"Router isn't a valid IPv4 address."_s);
}

TEST_F(BuildFlow, SuggestionFollowsTheLastRowNotTheLowestGap)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"10"_s, QString()}, {u"30"_s, QString()}, {u"20"_s, QString()}}));
    EXPECT_EQ(model->suggestedNextTag(), u"21"_s);
    model->addRow();
    EXPECT_EQ(model->drafts().last()->tag(), u"21"_s);
    EXPECT_EQ(model->drafts().last()->name(), QString());
}

TEST_F(BuildFlow, SuggestionAfterTheHighestTagIsEmpty)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"4094"_s, QString()}}));
    EXPECT_EQ(model->suggestedNextTag(), QString());
}

TEST_F(BuildFlow, SuggestionWithNoVLANsAndOnlyBlankRowsIsEmpty)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{QString(), QString()}, {QString(), QString()}}));
    EXPECT_EQ(model->suggestedNextTag(), QString());
}

TEST_F(BuildFlow, SuggestionSkipsATagThatExists)
{
    const auto model = makeModel();
    model->setExisting({madeUpVLAN(11)});
    model->setDrafts(draftsOf({{u"10"_s, QString()}}));
    EXPECT_EQ(model->suggestedNextTag(), u"12"_s);
}

TEST_F(BuildFlow, RemovingTheLastRowLeavesOneBlankRow)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"10"_s, u"A"_s}}));
    model->removeRow(model->drafts().first());
    ASSERT_EQ(model->drafts().size(), 1);
    EXPECT_TRUE(model->drafts().first()->isBlank());
}

TEST_F(BuildFlow, SevenChangesGiveAHeadLineAndFiveLines)
{
    const QList<PlannedChange> changes = enabledChanges(7);
    QStringList expected{u"7 changes applied:"_s};
    for (int index = 0; index < 5; ++index)
        expected.append(changes.at(index).completed());
    expected.append(u"… and 2 more."_s);
    EXPECT_EQ(AppModel::receipt(changes), expected.join(u'\n'));
    EXPECT_EQ(AppModel::receipt(changes).split(u'\n').size(), 7);
}

TEST_F(BuildFlow, SixChangesGiveSixPlainLines)
{
    const QList<PlannedChange> changes = enabledChanges(6);
    QStringList expected;
    for (const PlannedChange &change : changes)
        expected.append(change.completed());
    EXPECT_EQ(AppModel::receipt(changes), expected.join(u'\n'));
}

TEST_F(BuildFlow, OneCreationAndTwoOtherChangesReportThreeVLANsBuilt)
{
    const auto model = makeModel();
    model->reload();
    const VLANRecord control = vlanRow(*model, 1010)->source().vlan.value();
    const VLANRecord audio = vlanRow(*model, 1012)->source().vlan.value();
    model->setPendingPlan(PendingPlan{
        QUuid::createUuid(),
        Plan{u"en5"_s,
             {PlannedChange::CreateVLAN{1090, u"1090 - Spare"_s, IPConfig{}, true},
              PlannedChange::SetEnabled{control.tag, control.bsdName, control.name, false},
              PlannedChange::SetEnabled{audio.tag, audio.bsdName, audio.name, false}}}});
    model->commitPendingPlan();
    ASSERT_TRUE(model->result());
    EXPECT_TRUE(model->result()->succeeded);
    EXPECT_EQ(model->result()->message, u"Built 3 VLANs on en5."_s);
}

TEST_F(BuildFlow, PlanWithoutCreationReportsChangesApplied)
{
    const auto model = makeModel();
    model->reload();
    model->setTab(AppTab::add);
    const VLANRecord control = vlanRow(*model, 1010)->source().vlan.value();
    model->setPendingPlan(PendingPlan{
        QUuid::createUuid(),
        Plan{u"en5"_s,
             {PlannedChange::SetEnabled{control.tag, control.bsdName, control.name, false}}}});
    model->commitPendingPlan();
    EXPECT_EQ(model->result()->message, u"Applied 1 change."_s);
    EXPECT_EQ(model->tab(), AppTab::add);
}

TEST_F(BuildFlow, PreparingAsksNoRightAndCommittingBuildsTheRows)
{
    const auto model = makeCountedModel();
    model->startWatching();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    model->setTab(AppTab::add);
    model->setDrafts(draftsOf({{u"1060"_s, u"Stage Right"_s}, {u"1070"_s, u"Spare"_s}}));
    model->drafts().first()->setMode(IPMode::manual);
    model->drafts().first()->setAddress(u"192.168.60.69"_s);
    model->drafts().first()->setSubnetMask(u"255.255.255.0"_s);
    ASSERT_TRUE(model->canBuild()) << model->issues().values().join(u' ').toStdString();
    model->preparePlan();
    ASSERT_TRUE(model->pendingPlan());
    EXPECT_EQ(model->pendingPlan()->plan.adapterBSD, u"en5"_s);
    EXPECT_EQ(counter->calls(u"authorizationCopyRights"_s), 0);
    const QByteArray before = preferencesBytes();
    model->commitPendingPlan();
    EXPECT_EQ(counter->calls(u"authorizationCopyRights"_s), 1);
    EXPECT_NE(preferencesBytes(), before);
    EXPECT_FALSE(model->pendingPlan());
    EXPECT_EQ(model->result()->message, u"Built 2 VLANs on en5."_s);
    ASSERT_EQ(model->drafts().size(), 1);
    EXPECT_TRUE(model->drafts().first()->isBlank());
    EXPECT_EQ(model->tab(), AppTab::current);
    // The watcher tells of the commit as well: a debounced read comes before the settling one.
    // One round hears the file, the next runs the notification queued to the model.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_TRUE(model->isRefreshPending());
    const int readsBefore = reads;
    clock->advance(700ms);
    EXPECT_EQ(reads, readsBefore + 2);
    const AppModel::Row stageRight = vlanRow(*model, 1060);
    EXPECT_EQ(stageRight->source().name, u"1060 - Stage Right (DONGLE)"_s);
    EXPECT_EQ(stageRight->liveness(), ServiceEdit::Liveness::connected);
    EXPECT_TRUE(vlanRow(*model, 1070)->source().hasService());
}

TEST_F(BuildFlow, RefusedRightKeepsDraftsAndWritesNothing)
{
    for (const QString &answer : {u"answer = \"deny\""_s, u"answer = \"cancel\""_s,
                                  u"answer = \"fail\"\nstatus = -60008"_s}) {
        answerAdministrator(answer);
        const auto model = makeModel();
        model->reload();
        model->setSelectedAdapter(u"en5"_s);
        model->setTab(AppTab::add);
        model->setDrafts(draftsOf({{u"1060"_s, u"Stage Right"_s}}));
        model->preparePlan();
        const QByteArray before = preferencesBytes();
        const int readsBefore = reads;
        model->commitPendingPlan();
        EXPECT_EQ(preferencesBytes(), before);
        EXPECT_FALSE(model->pendingPlan());
        ASSERT_TRUE(model->result());
        EXPECT_FALSE(model->result()->succeeded);
        if (!answer.contains(u"fail"_s)) {
            EXPECT_EQ(model->result()->message,
                      u"Authorization was denied or cancelled — no changes were made."_s);
        }
        EXPECT_EQ(model->drafts().first()->tag(), u"1060"_s);
        EXPECT_EQ(model->tab(), AppTab::add);
        clock->advance(700ms);
        EXPECT_EQ(reads, readsBefore);
    }
}

TEST_F(BuildFlow, PrepareThatCannotReadGivesAFailedResult)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedLocation(u"Nowhere"_s);
    model->preparePlan();
    EXPECT_FALSE(model->pendingPlan());
    ASSERT_TRUE(model->result());
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_FALSE(model->result()->message.isEmpty());
}

TEST_F(BuildFlow, ChoicesListTheAdaptersAndAnAbsentChoiceLast)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en8"_s);
    const QList<AdapterChoice> choices = model->buildAdapterChoices();
    ASSERT_EQ(choices.size(), 4);
    EXPECT_EQ(choices.at(1), (AdapterChoice{u"en5"_s, u"en5 — DONGLE"_s}));
    EXPECT_EQ(choices.last().bsdName, u"en8"_s);
    EXPECT_TRUE(choices.last().label.endsWith(u" (absent)"_s));
    EXPECT_EQ(model->buildAdapterProblem(),
              u"en8 isn't attached. Plug it in, or choose another adapter under Build on,"_s);
    EXPECT_FALSE(model->selectedAdapterNeedsName());
    EXPECT_FALSE(model->selectedAdapterNameHint());
}

TEST_F(BuildFlow, AdapterNamesTellWhatTheAdapterNeeds)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    EXPECT_FALSE(model->selectedAdapterNeedsName());
    EXPECT_EQ(model->selectedAdapterNameHint(), u"Shorten this name"_s);
    EXPECT_FALSE(model->buildAdapterProblem());
    model->setSelectedAdapter(u"en6"_s);
    EXPECT_TRUE(model->selectedAdapterNeedsName());
    EXPECT_EQ(model->selectedAdapterNameHint(), u"Name this adapter"_s);
    model->setSelectedAdapter(QString());
    EXPECT_EQ(model->buildAdapterProblem(), u"No VLAN-capable adapter is attached. Plug one in"_s);
}

TEST_F(BuildFlow, ExistingVLANsListEveryVLANAsDisplayed)
{
    const auto model = makeModel();
    model->reload();
    const QList<ExistingVLAN> listed = model->existingVLANs();
    ASSERT_EQ(listed.size(), model->existing().size());
    const auto tagged = [&](const QString &tag) {
        return *std::find_if(listed.begin(), listed.end(),
                             [&](const ExistingVLAN &entry) { return entry.tag == tag; });
    };
    const ExistingVLAN control = tagged(u"1010"_s);
    EXPECT_EQ(control.mode, u"Manual"_s);
    EXPECT_TRUE(control.isManual);
    EXPECT_EQ(control.address, u"192.168.10.69"_s);
    const ExistingVLAN backstage = tagged(u"1040"_s);
    EXPECT_FALSE(backstage.inLocation);
    EXPECT_FALSE(backstage.isOn);
    EXPECT_EQ(backstage.mode, QString());
    EXPECT_EQ(tagged(u"1020"_s).mode, u"DHCP"_s);
}

} // namespace
