#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/CountingBackend.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

// What one reload asks of the platform, counted at the seam.
class ModelPerformance : public ModelTest
{
protected:
    // Verifying recomputes every kept table at each use, which is the cost counted here.
    ModelPerformance() { VLANStore::setVerifyingTables(false); }

    struct CountedModel
    {
        std::shared_ptr<CountingBackend> counter;
        std::unique_ptr<AppModel> model;
    };
    CountedModel countedModel()
    {
        auto counting = std::make_shared<CountingBackend>(platform->sharedBackend());
        auto model = std::make_unique<AppModel>(Platform(counting), defaults, false, clock);
        return {counting, std::move(model)};
    }

    // Seam work per VLAN of the second reload of a machine of `count` VLANs.
    double reloadWorkPerVLAN(int count)
    {
        openSynthetic(count);
        CountedModel counted = countedModel();
        counted.model->reload();
        counted.counter->reset();
        counted.model->reload();
        EXPECT_EQ(counted.model->existing().size(), count);
        return double(counted.counter->work()) / count;
    }
};

TEST_F(ModelPerformance, ReloadOpensOneSessionAndAsksNoRight)
{
    CountedModel counted = countedModel();
    counted.model->reload();
    EXPECT_EQ(counted.counter->calls(u"scPreferencesCreate"_s), 1);
    EXPECT_EQ(counted.counter->calls(u"scPreferencesCreateWithAuthorization"_s), 0);
    EXPECT_EQ(counted.counter->calls(u"authorizationCreate"_s), 0);
    EXPECT_EQ(counted.counter->calls(u"authorizationCopyRights"_s), 0);
    counted.counter->reset();
    counted.model->reload();
    EXPECT_EQ(counted.counter->calls(u"scPreferencesCreate"_s), 1);
}

TEST_F(ModelPerformance, ReloadWorkPerVLANDoesNotGrowWithTheMachine)
{
    const double small = reloadWorkPerVLAN(256);
    const double large = reloadWorkPerVLAN(2048);
    EXPECT_LE(large, small * 1.1) << "per VLAN: " << small << " at 256, " << large << " at 2,048";
}

} // namespace
