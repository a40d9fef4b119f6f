// The Current tab at show scale: every tag there is on one trunk. The list holds row widgets
// for what can be seen, and a scroll from top to bottom makes none.
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "tests/surfaces/CurrentTestSupport.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class CurrentAtScale : public CurrentTest
{
protected:
    CurrentAtScale() { VLANKit::VLANStore::setVerifyingTables(false); }
    void SetUp() override { openSynthetic(4094); }

    /// The row widgets alive: no more than the rows the viewport shows whole, and two.
    void expectPoolInProportion() const
    {
        const RowList *list = view->rowList();
        const int whole = list->viewport()->height() / list->rowHeight();
        EXPECT_LE(list->rowWidgetCount(), whole + 2);
        EXPECT_LE(list->visibleRowIDs().size(), list->rowWidgetCount());
    }
};

TEST_F(CurrentAtScale, TheTabHoldsRowWidgetsForTheVisibleRowsOnly)
{
    openTab({1340, 640});
    ASSERT_EQ(model->vlanRows().size(), 4094);
    const RowList *list = view->rowList();
    EXPECT_GT(list->visibleRowIDs().size(), 5);
    expectPoolInProportion();
    EXPECT_EQ(list->rowWidgetsMade(), list->rowWidgetCount());
}

TEST_F(CurrentAtScale, AScrollFromTopToBottomMakesNoRowWidget)
{
    openTab({1340, 640});
    RowList *list = view->rowList();
    const qsizetype made = list->rowWidgetsMade();
    QScrollBar *bar = list->verticalScrollBar();
    for (int value = 0; value <= bar->maximum(); value += bar->singleStep() * 7)
        bar->setValue(value);
    bar->setValue(bar->maximum());
    EXPECT_EQ(list->rowWidgetsMade(), made);
    expectPoolInProportion();
    EXPECT_EQ(list->visibleRowIDs().last(), model->rows().last()->source().id);
}

TEST_F(CurrentAtScale, AReloadRebindsOnlyTheRowsOnShow)
{
    openTab({1340, 640});
    RowList *list = view->rowList();
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum() / 2);
    const QStringList shown = list->visibleRowIDs();
    const qsizetype made = list->rowWidgetsMade();
    const quint64 before = ServiceEdit::derivations();
    model->reload(false);
    EXPECT_EQ(list->visibleRowIDs(), shown);
    EXPECT_EQ(list->rowWidgetsMade(), made);
    // The model's own reads are linear; the rows on show add a few each, not one per row.
    const quint64 perRow = (ServiceEdit::derivations() - before) / 4094;
    EXPECT_LE(perRow, 8U);
}

TEST_F(CurrentAtScale, AShorterWindowGivesBackItsSpareRows)
{
    openTab({1340, 900});
    view->resize(1340, 400);
    expectPoolInProportion();
}

} // namespace
