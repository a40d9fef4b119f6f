// What a person does on the Current tab, through to the folder and back: typing across
// reloads, saving a row, the bulk verbs, and walking the rows with Tab.
#include "OrvaneApp/surfaces/MoreButton.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "tests/support/QtPrinters.h"
#include "tests/surfaces/CurrentTestSupport.h"

#include <QCheckBox>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class CurrentFlow : public CurrentTest
{
protected:
    void openActive()
    {
        openTab();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    /// Confirms the popover on show with its button of that label.
    void confirm(const QString &label)
    {
        Popover *popover = shownPopover();
        ASSERT_TRUE(popover);
        QPushButton *confirming = button(*popover, label);
        ASSERT_TRUE(confirming);
        confirming->click();
        EXPECT_EQ(shownPopover(), nullptr);
    }
};

TEST_F(CurrentFlow, TypingSurvivesAReloadThatFindsTheSystemUnchanged)
{
    openActive();
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    HintField *name = row->nameField();
    name->setFocus();
    name->setCursorPosition(4);
    QTest::keyClicks(name, u" Main"_s);
    ASSERT_EQ(name->text(), u"1010 Main - Control (DONGLE)"_s);
    const int cursor = name->cursorPosition();

    model->reload(false);
    EXPECT_EQ(view->rowView(vlanRow(*model, 1010)->source().id), row);
    EXPECT_EQ(name->text(), u"1010 Main - Control (DONGLE)"_s);
    EXPECT_TRUE(name->hasFocus());
    EXPECT_EQ(name->cursorPosition(), cursor);
    EXPECT_EQ(vlanRow(*model, 1010)->name(), u"1010 Main - Control (DONGLE)"_s);
}

TEST_F(CurrentFlow, AReloadThatChangesTheRowDropsTheEditAndClosesItsPopover)
{
    openActive();
    vlanRow(*model, 1010)->setRouter(u"192.168.10.2"_s);
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    row->moreButton()->click();
    ASSERT_TRUE(shownPopover());

    // Another program renames the VLAN under the open popover.
    changeElsewhere([](VLANStore &store) {
        const VLANRecord vlan = vlanTagged(store, 1010);
        store.execute(Plan{
            notReported(),
            {PlannedChange::Rename{1010, vlan.bsdName, vlan.name, u"1010 - Comms (DONGLE)"_s}}});
    });
    model->reload(false);
    EXPECT_EQ(shownPopover(), nullptr);
    ServiceRowView *shown = vlanView(1010);
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->nameField()->text(), u"1010 - Comms (DONGLE)"_s);
    EXPECT_EQ(shown->routerField()->text(), u"192.168.10.1"_s);
    EXPECT_FALSE(shown->saveButton()->isVisibleTo(shown));
}

TEST_F(CurrentFlow, ARowSaveLandsAndShowsAfterTheSettlingReload)
{
    openActive();
    ServiceRowView *row = vlanView(1012);
    ASSERT_TRUE(row);
    row->routerField()->setText(u"192.168.12.1"_s);
    Q_EMIT row->routerField()->textEdited(u"192.168.12.1"_s);
    ASSERT_TRUE(row->saveButton()->isVisibleTo(row));
    row->saveButton()->click();
    EXPECT_EQ(popoverTitle(), u"Apply to 1012 - Audio (DONGLE)?"_s);
    confirm(u"Apply"_s);

    EXPECT_EQ(serviceNamed(*readStore(), u"1012 - Audio (DONGLE)"_s).ip.router, u"192.168.12.1"_s);
    settle();
    ServiceRowView *shown = vlanView(1012);
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->row()->source().ip.router, u"192.168.12.1"_s);
    EXPECT_EQ(shown->routerField()->text(), u"192.168.12.1"_s);
    EXPECT_FALSE(shown->saveButton()->isVisibleTo(shown));
}

TEST_F(CurrentFlow, TheSaveQuestionCanPutTheRowBack)
{
    openActive();
    ServiceRowView *row = vlanView(1012);
    ASSERT_TRUE(row);
    vlanRow(*model, 1012)->setRouter(u"192.168.12.1"_s);
    row->saveButton()->click();
    confirm(u"Revert"_s);
    EXPECT_TRUE(model->dirtyRows().isEmpty());
    EXPECT_FALSE(vlanView(1012)->saveButton()->isVisibleTo(vlanView(1012)));
}

TEST_F(CurrentFlow, ABulkTurnOffLandsAndShows)
{
    openActive();
    model->toggleSelection(vlanRow(*model, 1010));
    model->toggleSelection(vlanRow(*model, 1012));
    view->turnOffButton()->click();
    EXPECT_EQ(popoverTitle(), u"Turn off 2 services?"_s);
    confirm(u"Turn off"_s);
    EXPECT_FALSE(view->isConfirming(CurrentView::Confirmation::turnOff));

    const auto store = readStore();
    EXPECT_FALSE(serviceNamed(*store, u"1010 - Control (DONGLE)"_s).enabled);
    EXPECT_FALSE(serviceNamed(*store, u"1012 - Audio (DONGLE)"_s).enabled);
    settle();
    ServiceRowView *row = vlanView(1010);
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->row()->source().enabled);
    EXPECT_DOUBLE_EQ(row->shownStrength(), ServiceRowView::dimmed);
}

TEST_F(CurrentFlow, ADeleteLandsAndShows)
{
    openActive();
    model->toggleSelection(vlanRow(*model, 1050));
    view->deleteButton()->click();
    confirm(u"Delete"_s);
    for (const VLANRecord &vlan : readStore()->vlans())
        EXPECT_NE(vlan.tag, 1050);
    settle();
    EXPECT_EQ(model->vlanRows().size(), 11);
    for (const RowList::Item &item : view->rowList()->items()) {
        if (item.isRow()) {
            EXPECT_NE(model->rowWithID(item.id)->source().tag, 1050);
        }
    }
}

TEST_F(CurrentFlow, SaveAllAppliesEveryEditedRowTogether)
{
    openActive();
    vlanRow(*model, 1010)->setRouter(u"192.168.10.2"_s);
    vlanRow(*model, 1014)->setRouter(u"192.168.14.1"_s);
    view->saveAllButton()->click();
    confirm(u"Save"_s);
    const auto store = readStore();
    EXPECT_EQ(serviceNamed(*store, u"1010 - Control (DONGLE)"_s).ip.router, u"192.168.10.2"_s);
    EXPECT_EQ(serviceNamed(*store, u"1014 - Video (DONGLE)"_s).ip.router, u"192.168.14.1"_s);
    settle();
    EXPECT_TRUE(model->dirtyRows().isEmpty());
}

TEST_F(CurrentFlow, TabWalksARowAndOnIntoTheNext)
{
    openActive();
    ServiceRowView *first = vlanView(1010);
    ASSERT_TRUE(first);
    first->moreButton()->setFocus();
    QTest::keyClick(first->moreButton(), Qt::Key_Tab);
    ServiceRowView *next = view->rowView(vlanRow(*model, 1012)->source().id);
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->tick()->hasFocus());
    QTest::keyClick(next->tick(), Qt::Key_Tab);
    EXPECT_TRUE(next->nameField()->hasFocus());
    QTest::keyClick(next->nameField(), Qt::Key_Backtab);
    EXPECT_TRUE(next->tick()->hasFocus());
}

TEST_F(CurrentFlow, TabScrollsTheNextRowIntoView)
{
    openTab({1340, 300});
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    RowList *list = view->rowList();
    const QStringList shown = list->visibleRowIDs();
    ASSERT_FALSE(shown.isEmpty());
    // The last row on show, then Tab until focus leaves it.
    const QString last = shown.last();
    list->scrollToItem(list->indexOfRow(last));
    ServiceRowView *row = view->rowView(last);
    ASSERT_TRUE(row);
    row->moreButton()->setFocus();
    QTest::keyClick(row->moreButton(), Qt::Key_Tab);
    const qsizetype index = list->indexOfRow(last);
    ASSERT_LT(index + 1, list->items().size());
    const QString below = list->items().at(index + 1).isRow() ? list->items().at(index + 1).id
                                                              : list->items().at(index + 3).id;
    ServiceRowView *next = view->rowView(below);
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->tick()->hasFocus());
    EXPECT_LE(next->mapTo(list->viewport(), QPoint()).y() + next->height(),
              list->viewport()->height());
}

} // namespace
