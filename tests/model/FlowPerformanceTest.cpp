#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

using namespace VLANKit;

namespace {

// What the flows ask of the platform, counted at the seam.
class FlowPerformance : public ModelTest
{
protected:
    // Verifying recomputes every kept table at each use, which is the cost counted here.
    FlowPerformance() { VLANStore::setVerifyingTables(false); }

    // Seam work per VLAN of deleting every VLAN of a machine of `count` through `apply`.
    double removalWorkPerVLAN(int count)
    {
        openSynthetic(count);
        const auto model = makeCountedModel();
        model->reload();
        for (const AppModel::Row &row : model->vlanRows())
            model->toggleSelection(row);
        const QList<PlannedChange> removals = model->deleteSelectedChanges();
        EXPECT_EQ(removals.size(), count);
        counter->reset();
        model->apply(removals);
        EXPECT_TRUE(model->result() && model->result()->succeeded);
        return double(counter->work()) / count;
    }
};

TEST_F(FlowPerformance, RemovalWorkPerVLANDoesNotGrowWithTheMachine)
{
    const double small = removalWorkPerVLAN(256);
    const double large = removalWorkPerVLAN(2048);
    EXPECT_LE(large, small * 1.1) << "per VLAN: " << small << " at 256, " << large << " at 2,048";
}

} // namespace
