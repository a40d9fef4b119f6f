#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

using RowActions = ModelTest;

TEST_F(RowActions, DeletingWithOnlyAdaptersSelectedChangesNothing)
{
    const auto model = makeModel();
    model->reload();
    model->toggleSelection(adapterRow(*model, u"DONGLE"_s));
    model->toggleSelection(adapterRow(*model, u"Ethernet"_s));
    EXPECT_EQ(model->selectedRows().size(), 2);
    EXPECT_TRUE(model->deleteSelectedChanges().isEmpty());
    model->toggleSelection(adapterRow(*model, u"DONGLE"_s));
    EXPECT_EQ(model->selectedRows().size(), 1);
}

TEST_F(RowActions, TwoDirtyRowsWithOneProblemGiveTheTextWithoutACount)
{
    const auto model = makeModel();
    model->reload();
    EXPECT_EQ(model->editStatus(), (EditStatus{u"No unsaved edits"_s, false}));
    vlanRow(*model, 1012)->setName(u"1012 - Sound"_s);
    EXPECT_EQ(model->editStatus(), (EditStatus{u"1 row edited"_s, false}));
    vlanRow(*model, 1010)->setAddress(u"192.168.10"_s);
    ASSERT_EQ(model->dirtyRows().size(), 2);
    ASSERT_EQ(model->rowProblems().size(), 1);
    const EditStatus status = model->editStatus();
    EXPECT_TRUE(status.warns);
    EXPECT_EQ(status.text, u"1010 — "_s + model->rowProblems().first().message);
}

TEST_F(RowActions, SeveralProblemsAreCountedInFront)
{
    const auto model = makeModel();
    model->reload();
    vlanRow(*model, 1010)->setAddress(u"192.168.10"_s);
    vlanRow(*model, 1012)->setAddress(u"192.168.12"_s);
    const EditStatus status = model->editStatus();
    EXPECT_TRUE(status.warns);
    EXPECT_TRUE(status.text.startsWith(u"2 rows can't be saved. 1010 — "_s))
        << status.text.toStdString();
}

TEST_F(RowActions, AnEmptyChangeListAsksNoRightAndWritesNothing)
{
    const auto model = makeCountedModel();
    model->reload();
    const QByteArray before = preferencesBytes();
    model->apply({});
    EXPECT_EQ(counter->calls(u"authorizationCreate"_s), 0);
    EXPECT_EQ(counter->calls(u"authorizationCopyRights"_s), 0);
    EXPECT_EQ(preferencesBytes(), before);
    EXPECT_FALSE(model->result());
}

TEST_F(RowActions, RemovingTheLastVLANsThroughApplyIsBelieved)
{
    const auto model = makeModel();
    model->reload();
    for (const AppModel::Row &row : model->vlanRows())
        model->toggleSelection(row);
    const QList<PlannedChange> removals = model->deleteSelectedChanges();
    ASSERT_EQ(removals.size(), model->existing().size());
    model->apply(removals);
    ASSERT_TRUE(model->result());
    EXPECT_TRUE(model->result()->succeeded);
    clock->advance(700ms);
    EXPECT_TRUE(model->existing().isEmpty());
    EXPECT_TRUE(model->vlanRows().isEmpty());
    EXPECT_FALSE(model->isRetryPending());
}

TEST_F(RowActions, SavingAnEditShowsTheNewTruth)
{
    const auto model = makeModel();
    model->startWatching();
    model->reload();
    const AppModel::Row row = vlanRow(*model, 1012);
    row->setName(u"1012 - Sound"_s);
    const QList<PlannedChange> changes = model->allChanges();
    ASSERT_FALSE(changes.isEmpty());
    model->apply(changes);
    EXPECT_EQ(model->result()->message, AppModel::receipt(changes));
    clock->advance(700ms);
    const AppModel::Row fresh = vlanRow(*model, 1012);
    EXPECT_FALSE(fresh->isDirty());
    EXPECT_TRUE(fresh->source().name.startsWith(u"1012 - Sound"_s));
    EXPECT_EQ(model->editStatus().text, u"No unsaved edits"_s);
}

TEST_F(RowActions, ReceiptsOfSixAndSevenChanges)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedIDs({});
    for (const qint64 tag : {1010, 1012, 1014, 1016, 1020, 1050})
        model->toggleSelection(vlanRow(*model, tag));
    const QList<PlannedChange> six = model->setSelectedEnabledChanges(false);
    ASSERT_EQ(six.size(), 6);
    model->apply(six);
    EXPECT_EQ(model->result()->message.split(u'\n').size(), 6);
    EXPECT_FALSE(model->result()->message.contains(u"changes applied"_s));
    clock->advance(700ms);
    QList<PlannedChange> withOneMore = model->setSelectedEnabledChanges(true);
    ASSERT_EQ(withOneMore.size(), 6);
    vlanRow(*model, 2010)->setName(u"2010 - Wedges"_s);
    withOneMore.append(model->allChanges());
    ASSERT_EQ(withOneMore.size(), 7);
    model->apply(withOneMore);
    ASSERT_TRUE(model->result()->succeeded) << model->result()->message.toStdString();
    EXPECT_TRUE(model->result()->message.startsWith(u"7 changes applied:\n"_s));
    EXPECT_TRUE(model->result()->message.endsWith(u"\n… and 2 more."_s));
}

TEST_F(RowActions, ARefusedRightKeepsTheEditsAndTheFile)
{
    for (const QString &answer : {u"answer = \"deny\""_s, u"answer = \"cancel\""_s,
                                  u"answer = \"fail\"\nstatus = -60008"_s}) {
        answerAdministrator(answer);
        const auto model = makeModel();
        model->reload();
        const AppModel::Row row = vlanRow(*model, 1012);
        row->setName(u"1012 - Sound"_s);
        const QByteArray before = preferencesBytes();
        const int readsBefore = reads;
        model->apply(model->allChanges());
        EXPECT_EQ(preferencesBytes(), before);
        ASSERT_TRUE(model->result());
        EXPECT_FALSE(model->result()->succeeded);
        if (!answer.contains(u"fail"_s)) {
            EXPECT_EQ(model->result()->message,
                      u"Authorization was denied or cancelled — no changes were made."_s);
        }
        EXPECT_EQ(reads, readsBefore + 1);
        EXPECT_EQ(vlanRow(*model, 1012), row);
        EXPECT_EQ(row->name(), u"1012 - Sound"_s);
    }
}

TEST_F(RowActions, BulkListsComposeTheirChanges)
{
    const auto model = makeModel();
    model->reload();
    const QList<PlannedChange> additions = model->addToLocationChanges();
    ASSERT_EQ(additions.size(), 1);
    EXPECT_EQ(additions.first().as<PlannedChange::AddService>()->tag, 1040);
    const QList<PlannedChange> reparents = model->orphanReparentChanges(u"en5"_s);
    for (const PlannedChange &change : reparents) {
        const auto *reparent = change.as<PlannedChange::Reparent>();
        ASSERT_TRUE(reparent);
        EXPECT_FALSE(reparent->record.live);
        EXPECT_EQ(reparent->to, u"en5"_s);
    }
    EXPECT_FALSE(reparents.isEmpty());
    model->toggleSelection(adapterRow(*model, u"Wi-Fi"_s));
    model->toggleSelection(vlanRow(*model, 1030));
    model->toggleSelection(vlanRow(*model, 1010));
    const QList<PlannedChange> off = model->setSelectedEnabledChanges(false);
    ASSERT_EQ(off.size(), 2);
    EXPECT_TRUE(off.at(0).as<PlannedChange::SetServiceEnabled>());
    EXPECT_TRUE(off.at(1).as<PlannedChange::SetEnabled>());
}

TEST_F(RowActions, RevertingDropsTheEdit)
{
    const auto model = makeModel();
    model->reload();
    vlanRow(*model, 1010)->setName(u"A"_s);
    vlanRow(*model, 1012)->setName(u"B"_s);
    model->revert(vlanRow(*model, 1010));
    EXPECT_FALSE(vlanRow(*model, 1010)->isTouched());
    EXPECT_TRUE(vlanRow(*model, 1012)->isTouched());
    model->revertAll();
    EXPECT_TRUE(model->dirtyRows().isEmpty());
}

TEST_F(RowActions, LiveAddressIsTheServicesEntry)
{
    const auto model = makeModel();
    model->reload();
    const auto address = model->liveAddress(vlanRow(*model, 1010));
    ASSERT_TRUE(address);
    EXPECT_EQ(address->address, u"192.168.10.69"_s);
    EXPECT_FALSE(model->liveAddress(vlanRow(*model, 1040)));
}

} // namespace
