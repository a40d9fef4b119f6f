#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

using namespace Qt::StringLiterals;
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

    // Rows worked out per row for the Current tab's derived values, with every row edited and
    // ticked; none of them reads the platform.
    double derivationsPerRow(int count)
    {
        openSynthetic(count);
        const auto model = makeCountedModel();
        model->reload();
        QSet<QString> everyRow;
        for (const AppModel::Row &row : model->rows()) {
            row->setName(row->source().name + u" edited"_s);
            everyRow.insert(row->source().id);
        }
        model->setSelectedIDs(everyRow);
        counter->reset();
        const quint64 before = ServiceEdit::derivations();
        EXPECT_TRUE(model->rowProblems().isEmpty());
        EXPECT_EQ(model->editStatus().text, u"%1 rows edited"_s.arg(model->rows().size()));
        EXPECT_EQ(model->allChanges().size(), model->rows().size());
        EXPECT_EQ(model->deleteSelectedChanges().size(), count);
        (void)model->setSelectedEnabledChanges(false);
        (void)model->addToLocationChanges();
        EXPECT_EQ(counter->work(), 0);
        return double(ServiceEdit::derivations() - before) / double(model->rows().size());
    }
};

TEST_F(FlowPerformance, DerivedValuesWalkTheRowsOnce)
{
    const double small = derivationsPerRow(256);
    const double large = derivationsPerRow(2048);
    EXPECT_LE(large, small * 1.1) << "per row: " << small << " at 256, " << large << " at 2,048";
}

TEST_F(FlowPerformance, RemovalWorkPerVLANDoesNotGrowWithTheMachine)
{
    const double small = removalWorkPerVLAN(256);
    const double large = removalWorkPerVLAN(2048);
    EXPECT_LE(large, small * 1.1) << "per VLAN: " << small << " at 256, " << large << " at 2,048";
}

} // namespace
