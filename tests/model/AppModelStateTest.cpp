#include "OrvaneApp/model/AppModel.h"
#include "tests/model/ModelTestSupport.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class State : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
    }

    std::unique_ptr<AppModel> model;
};

TEST_F(State, StartsWithOneBlankDraftOnTheCurrentTab)
{
    ASSERT_EQ(model->drafts().size(), 1);
    EXPECT_TRUE(model->drafts().first()->isBlank());
    EXPECT_EQ(model->tab(), AppTab::current);
    EXPECT_EQ(model->nameColumnWidth(), 210);
    EXPECT_EQ(model->newLocationStart(), LocationStart::adaptersOnly());
    EXPECT_FALSE(model->isReloading());
    EXPECT_EQ(model->thisMac().name, u"FOH Show Mac"_s);
    EXPECT_EQ(reads, 0);
}

TEST_F(State, AddressPlanComesFromTheDefaults)
{
    AddressPlan stored;
    stored.host = u"42"_s;
    stored.save(defaults);
    EXPECT_EQ(makeModel()->addressPlan(), stored);
}

TEST_F(State, NewAddressPlanIsSavedAndAppliedToEveryDraft)
{
    const AppModel::DraftRow first = model->drafts().first();
    first->setTag(u"1012"_s);
    first->setMode(IPMode::manual);
    auto second = std::make_shared<Draft>(u"1014"_s);
    second->setMode(IPMode::manual);
    model->setDrafts({first, second});

    AddressPlan plan = model->addressPlan();
    plan.host = u"70"_s;
    QSignalSpy spy(model.get(), &AppModel::addressPlanChanged);
    model->setAddressPlan(plan);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(AddressPlan::load(defaults), plan);
    EXPECT_EQ(first->address(), u"192.168.12.70"_s);
    EXPECT_EQ(second->address(), u"192.168.14.70"_s);
}

TEST_F(State, PictureDoesNotSaveTheAddressPlan)
{
    const auto picture = makeModel(true);
    AddressPlan plan = picture->addressPlan();
    plan.host = u"70"_s;
    picture->setAddressPlan(plan);
    EXPECT_EQ(picture->addressPlan(), plan);
    EXPECT_FALSE(defaults.value(u"Orvane.addressPlan"_s));
}

TEST_F(State, SameValueAnnouncesNothing)
{
    QSignalSpy spy(model.get(), &AppModel::tabChanged);
    model->setTab(AppTab::current);
    EXPECT_EQ(spy.count(), 0);
    model->setTab(AppTab::add);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(State, NewLocationNameClearsItsError)
{
    model->setNewLocationError(u"A Location of that name exists."_s);
    model->setNewLocationName(u"Tour"_s);
    EXPECT_EQ(model->newLocationError(), std::nullopt);
}

TEST_F(State, LocationNewNameClearsItsError)
{
    model->setLocationRenameError(u"A Location of that name exists."_s);
    model->setLocationNewName(u"Tour"_s);
    EXPECT_EQ(model->locationRenameError(), std::nullopt);
}

TEST_F(State, EachResultIsNewSoTheSameTextShowsAgain)
{
    const BuildResult first{QUuid::createUuid(), true, u"Built 1 VLAN on en5."_s};
    const BuildResult again{QUuid::createUuid(), true, first.message};
    EXPECT_NE(first.id, again.id);
    model->setResult(first);
    QSignalSpy spy(model.get(), &AppModel::resultChanged);
    model->setResult(again);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(State, DraftEditsAreForwarded)
{
    QSignalSpy spy(model.get(), &AppModel::draftEdited);
    model->drafts().first()->setTag(u"7"_s);
    auto added = std::make_shared<Draft>();
    model->setDrafts({model->drafts().first(), added});
    added->setName(u"Seven"_s);
    EXPECT_EQ(spy.count(), 2);
}

} // namespace
