#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

class OrderWriting : public ModelTest
{
protected:
    static QStringList idsOf(const QList<ServiceRecord> &services)
    {
        QStringList ids;
        for (const ServiceRecord &service : services)
            ids.append(service.serviceID);
        return ids;
    }
    [[nodiscard]] QStringList storedOrder() const { return idsOf(readStore()->services()); }
};

TEST_F(OrderWriting, AMoveIsShownAndWritten)
{
    const auto model = makeModel();
    model->reload();
    const QStringList before = idsOf(model->serviceOrder());
    model->setOrderError(u"An older failure"_s);
    model->moveServices({0, 2}, 5);
    QStringList expected = before;
    expected.removeAt(2);
    expected.removeAt(0);
    expected.insert(3, before.at(0));
    expected.insert(4, before.at(2));
    EXPECT_EQ(idsOf(model->serviceOrder()), expected);
    EXPECT_EQ(storedOrder(), expected);
    EXPECT_FALSE(model->orderError());
    clock->advance(700ms);
    EXPECT_EQ(idsOf(model->serviceOrder()), expected);
}

TEST_F(OrderWriting, AFailedMoveWithTheSheetOpenShowsTheTextInTheSheet)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const auto model = makeModel();
    model->reload();
    model->setShowingServiceOrder(true);
    const QStringList before = idsOf(model->serviceOrder());
    const QByteArray file = preferencesBytes();
    model->moveServices({3}, 0);
    EXPECT_EQ(model->orderError(),
              u"Authorization was denied or cancelled — no changes were made."_s);
    EXPECT_FALSE(model->result());
    EXPECT_EQ(idsOf(model->serviceOrder()), before);
    EXPECT_EQ(preferencesBytes(), file);
}

TEST_F(OrderWriting, AFailedMoveWithTheSheetClosedShowsTheTextInTheResult)
{
    answerAdministrator(u"answer = \"cancel\""_s);
    const auto model = makeModel();
    model->reload();
    const QStringList before = idsOf(model->serviceOrder());
    model->moveServices({3}, 0);
    EXPECT_FALSE(model->orderError());
    ASSERT_TRUE(model->result());
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_EQ(model->result()->message,
              u"Authorization was denied or cancelled — no changes were made."_s);
    EXPECT_EQ(idsOf(model->serviceOrder()), before);
}

TEST_F(OrderWriting, TheRecommendedOrderIsReadAnew)
{
    const auto model = makeModel();
    model->reload();
    ASSERT_TRUE(model->orderNeedsFixing());
    changeElsewhere([](VLANStore &store) {
        store.selectLocation(u"Show"_s);
        store.createVLAN(1099, u"1099 - Late (DONGLE)"_s, u"en5"_s, IPConfig{}, true);
    });
    const QStringList stale = idsOf(model->recommendedOrder());
    const std::unique_ptr<VLANStore> fresh = readStore();
    fresh->selectLocation(u"Show"_s);
    const QStringList anew = idsOf(fresh->recommendedOrder(model->internetServiceIDs()));
    ASSERT_NE(anew, stale);
    model->applyRecommendedOrder();
    EXPECT_EQ(storedOrder(), anew);
    clock->advance(700ms);
    EXPECT_FALSE(model->orderNeedsFixing());
}

} // namespace
