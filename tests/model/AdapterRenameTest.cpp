#include "OrvaneApp/model/AppModel.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

using AdapterRename = ModelTest;

TEST_F(AdapterRename, BracketsInTheNewNameKeepTheSaveDisabled)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    model->beginRenamingAdapter();
    EXPECT_TRUE(model->canRenameAdapter());
    model->setAdapterNewName(u" Trunk (A) "_s);
    EXPECT_EQ(model->adapterNameIssue(),
              u"Brackets clash with the adapter suffix in VLAN names."_s);
    EXPECT_FALSE(model->canRenameAdapter());
    model->setAdapterNewName(u" \n"_s);
    EXPECT_FALSE(model->adapterNameIssue());
    EXPECT_FALSE(model->canRenameAdapter());
}

TEST_F(AdapterRename, AnAdapterWithoutANameOfTheUsersOpensTheSheetEmpty)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en6"_s);
    model->setAdapterNewName(u"left over"_s);
    model->beginRenamingAdapter();
    EXPECT_EQ(model->renamingAdapter(), u"en6"_s);
    EXPECT_EQ(model->adapterNewName(), QString());
    model->setSelectedAdapter(u"en5"_s);
    model->beginRenamingAdapter();
    EXPECT_EQ(model->adapterNewName(), u"DONGLE"_s);
}

TEST_F(AdapterRename, AnAdapterPulledOutWhileTheSheetIsOpenStillSaves)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    model->beginRenamingAdapter();
    model->setAdapterNewName(u"TRUNK"_s);
    QList<AdapterRecord> remaining = model->adapters();
    remaining.removeIf([](const AdapterRecord &adapter) { return adapter.bsdName == u"en5"_s; });
    model->setAdapters(remaining);
    model->commitAdapterRename();
    EXPECT_FALSE(model->renamingAdapter());
    ASSERT_TRUE(model->result());
    EXPECT_TRUE(model->result()->succeeded) << model->result()->message.toStdString();
    EXPECT_EQ(
        model->result()->message,
        PlannedChange(PlannedChange::RenameAdapter{u"en5"_s, u"en5"_s, u"TRUNK"_s}).completed());
}

TEST_F(AdapterRename, AfterARenameTheVLANNamesAreInLine)
{
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    model->beginRenamingAdapter();
    model->setAdapterNewName(u"  TRUNK "_s);
    model->commitAdapterRename();
    EXPECT_EQ(
        model->result()->message,
        PlannedChange(PlannedChange::RenameAdapter{u"en5"_s, u"DONGLE"_s, u"TRUNK"_s}).completed());
    clock->advance(700ms);
    EXPECT_EQ(vlanRow(*model, 1010)->source().name, u"1010 - Control (TRUNK)"_s);
    EXPECT_TRUE(model->adapterNameSync().isEmpty());
    EXPECT_EQ(model->adapterNewName(), u"  TRUNK "_s);
}

TEST_F(AdapterRename, AFailedRenameShowsInTheResultWithTheSheetClosed)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const auto model = makeModel();
    model->reload();
    model->setSelectedAdapter(u"en5"_s);
    model->beginRenamingAdapter();
    model->setAdapterNewName(u"TRUNK"_s);
    const QByteArray before = preferencesBytes();
    model->commitAdapterRename();
    EXPECT_FALSE(model->renamingAdapter());
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_EQ(preferencesBytes(), before);
}

} // namespace
