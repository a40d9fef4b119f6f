#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/internet/InternetMemory.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class OrderState : public ModelTest
{
protected:
    static ServiceRecord serviceNamed(const AppModel &model, const QString &name)
    {
        for (const ServiceRecord &service : model.serviceOrder()) {
            if (service.name == name)
                return service;
        }
        ADD_FAILURE() << "no service " << name.toStdString();
        return {};
    }
};

TEST_F(OrderState, ReadingFindsTheVLANAboveTheInternet)
{
    const auto model = makeModel();
    model->reload();
    ASSERT_EQ(model->riskyVLANs().size(), 1);
    EXPECT_EQ(model->riskyVLANs().first().name, u"1010 - Control (DONGLE)"_s);
    EXPECT_EQ(model->riskyVLANIDs(), QSet<QString>{model->riskyVLANs().first().serviceID});
    EXPECT_TRUE(model->orderNeedsFixing());
    EXPECT_EQ(model->rankingLine(),
              (RankingLine{u"1 VLAN is ranked above your internet connection"_s, true}));
}

TEST_F(OrderState, TickWithoutAShownLocationChangesTheSetAndWritesNothing)
{
    const auto model = makeModel();
    ServiceRecord service;
    service.serviceID = u"ABC"_s;
    model->toggleInternet(service);
    EXPECT_EQ(model->internetServiceIDs(), QSet<QString>{u"ABC"_s});
    EXPECT_FALSE(defaults.value(InternetMemory::marksKey(QString())));
    EXPECT_EQ(reads, 0);
}

TEST_F(OrderState, TickIsRememberedAndTheOrderStateFollows)
{
    const auto model = makeModel();
    model->reload();
    model->toggleInternet(serviceNamed(*model, u"1010 - Control (DONGLE)"_s));
    EXPECT_TRUE(model->riskyVLANs().isEmpty());
    EXPECT_EQ(model->rankingLine(),
              (RankingLine{u"No VLAN is ranked above your internet connection"_s, false}));
    EXPECT_EQ(reads, 2);
    EXPECT_TRUE(InternetMemory::holds(model->internetMarks(), u"Show"_s, defaults));
}

TEST_F(OrderState, PictureTicksChangeTheRiskyVLANsButNoDefault)
{
    const auto model = makeModel(true);
    model->reload();
    ASSERT_EQ(model->riskyVLANs().size(), 1);
    model->toggleInternet(serviceNamed(*model, u"1020 - Internet (DONGLE)"_s));
    EXPECT_EQ(model->riskyVLANs().size(), 2);
    EXPECT_EQ(model->rankingLine(),
              (RankingLine{u"2 VLANs are ranked above your internet connection"_s, true}));
    EXPECT_FALSE(defaults.value(InternetMemory::marksKey(u"Show"_s)));
    EXPECT_FALSE(defaults.value(InternetMemory::ticksKey(u"Show"_s)));
}

TEST_F(OrderState, WasIsNoneForAKeptRankAndForAServiceNotInTheOrder)
{
    const auto model = makeModel();
    model->reload();
    QList<ServiceRecord> order = model->serviceOrder();
    const ServiceRecord last = order.takeLast();
    model->setServiceOrder(order);
    const QList<OrderLine> lines = model->recommendedOrderLines();
    ASSERT_EQ(lines.size(), model->recommendedOrder().size());
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const ServiceRecord &service = model->recommendedOrder()[index];
        const OrderLine &line = lines[index];
        EXPECT_EQ(line.rank, index + 1);
        EXPECT_EQ(line.name, service.name);
        const qsizetype old = order.indexOf(service);
        if (service.serviceID == last.serviceID || old + 1 == line.rank) {
            EXPECT_EQ(line.was, std::nullopt) << line.name.toStdString();
        } else {
            EXPECT_EQ(line.was, old + 1) << line.name.toStdString();
        }
    }
    const auto moved = std::count_if(lines.begin(), lines.end(),
                                     [](const OrderLine &line) { return line.was.has_value(); });
    EXPECT_GT(moved, 0);
    EXPECT_LT(moved, lines.size());
}

} // namespace
