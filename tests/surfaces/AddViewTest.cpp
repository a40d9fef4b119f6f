// The Add tab over the show machine: the address plan's cells as a person types into them, the
// rows to build, the footer, and a build from typed rows through to the Current tab.
#include "OrvaneApp/surfaces/AddView.h"

#include "OrvaneApp/surfaces/AddressPlanField.h"
#include "OrvaneApp/surfaces/DraftRowView.h"
#include "OrvaneApp/surfaces/ExistingVLANRowView.h"
#include "OrvaneApp/surfaces/PlanSheet.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/QtPrinters.h"

#include <QApplication>
#include <QComboBox>
#include <QGraphicsEffect>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

TEST(AddressPlanCells, SevenDigitsPastedKeepTheFirstThreeAndMoveOn)
{
    EXPECT_EQ(AddressPlanField::clean(u"1921681"_s), (AddressPlanField::Cleaned{u"192"_s, true}));
}

TEST(AddressPlanCells, ThreeHundredBecomes255AndMovesOn)
{
    EXPECT_EQ(AddressPlanField::clean(u"300"_s), (AddressPlanField::Cleaned{u"255"_s, true}));
}

TEST(AddressPlanCells, TenAndADotKeepTenAndMoveOn)
{
    EXPECT_EQ(AddressPlanField::clean(u"10."_s), (AddressPlanField::Cleaned{u"10"_s, true}));
    EXPECT_EQ(AddressPlanField::clean(u"10"_s), (AddressPlanField::Cleaned{u"10"_s, false}));
    EXPECT_EQ(AddressPlanField::clean(u"1a2"_s), (AddressPlanField::Cleaned{u"12"_s, false}));
}

TEST(AddressPlanCells, OnlyTheThirdCellMayBeEmpty)
{
    EXPECT_FALSE(AddressPlanField::isBad(QString(), true));
    EXPECT_TRUE(AddressPlanField::isBad(QString(), false));
    EXPECT_TRUE(AddressPlanField::isBad(u"256"_s, false));
    EXPECT_FALSE(AddressPlanField::isBad(u" 10 "_s, false));
}

/// Types as a person does: each key to whatever has the focus then.
void typeIntoFocus(const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
}

class AddTab : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload(false);
        view = std::make_unique<AddView>(*model);
        view->resize(1340, 640);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    void TearDown() override
    {
        view.reset();
        model.reset();
    }

    DraftRowView *rowOf(const AppModel::DraftRow &draft) const
    {
        const QString id = AddView::idOf(*draft);
        view->rowList()->scrollToItem(view->rowList()->indexOfRow(id));
        return qobject_cast<DraftRowView *>(view->rowView(id));
    }

    std::unique_ptr<AppModel> model;
    std::unique_ptr<AddView> view;
};

TEST_F(AddTab, TypingAnAddressWithDotsWalksTheCells)
{
    AddressPlanField *plan = view->planField();
    for (int index = 0; index < 4; ++index)
        plan->cell(index)->clear();
    plan->cell(0)->setFocus();
    typeIntoFocus(u"10.20.30.69"_s);
    EXPECT_EQ(plan->cell(0)->text(), u"10"_s);
    EXPECT_EQ(plan->cell(1)->text(), u"20"_s);
    EXPECT_EQ(plan->cell(2)->text(), u"30"_s);
    EXPECT_EQ(plan->cell(3)->text(), u"69"_s);
    EXPECT_TRUE(plan->cell(3)->hasFocus());
    EXPECT_EQ(model->addressPlan().host, u"69"_s);
    EXPECT_EQ(model->addressPlan().octet3, u"30"_s);
}

TEST_F(AddTab, AShownValueNeverMovesTheFocus)
{
    AddressPlanField *plan = view->planField();
    plan->cell(0)->setFocus();
    AddressPlan changed = model->addressPlan();
    changed.octet1 = u"172"_s;
    model->setAddressPlan(changed);
    EXPECT_EQ(plan->cell(0)->text(), u"172"_s);
    EXPECT_TRUE(plan->cell(0)->hasFocus());
}

TEST_F(AddTab, AnEmptyHostIsBadAndThePillSaysToSetIt)
{
    AddressPlan plan = model->addressPlan();
    plan.host.clear();
    model->setAddressPlan(plan);
    EXPECT_FALSE(view->planField()->isValid());
    EXPECT_TRUE(view->planField()->cell(3)->property("bad").toBool());
    EXPECT_FALSE(view->planField()->cell(2)->property("bad").toBool());
    EXPECT_EQ(view->pill()->text(), u"Set a host octet to auto-fill Manual rows"_s);
    plan.host = u"69"_s;
    model->setAddressPlan(plan);
    EXPECT_EQ(view->pill()->text(), u"1012 \u2192 192.168.12.69"_s);
    plan.octet1 = u"300"_s;
    model->setAddressPlan(plan);
    EXPECT_EQ(view->pill()->text(), u"Address plan isn't valid \u2014 check the prefix"_s);
}

TEST_F(AddTab, OneBlankRowCannotBeRemoved)
{
    ASSERT_EQ(model->drafts().size(), 1);
    DraftRowView *row = rowOf(model->drafts().first());
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->removeButton()->isEnabled());
    EXPECT_TRUE(row->removeButton()->graphicsEffect()->isEnabled());
}

TEST_F(AddTab, TwoBlankRowsCanEachBeRemoved)
{
    view->addButton()->click();
    ASSERT_EQ(model->drafts().size(), 2);
    for (const AppModel::DraftRow &draft : model->drafts()) {
        DraftRowView *row = rowOf(draft);
        ASSERT_TRUE(row);
        EXPECT_TRUE(row->removeButton()->isEnabled());
    }
    rowOf(model->drafts().first())->removeButton()->click();
    EXPECT_EQ(model->drafts().size(), 1);
}

TEST_F(AddTab, AddVLANPutsTheFocusInTheNewRowsName)
{
    view->addButton()->click();
    DraftRowView *row = rowOf(model->drafts().last());
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->nameField()->hasFocus());
}

TEST_F(AddTab, ARowWithAnIssueShowsItUnderTheName)
{
    const AppModel::DraftRow draft = model->drafts().first();
    DraftRowView *row = rowOf(draft);
    ASSERT_TRUE(row);
    row->tagField()->setFocus();
    QTest::keyClicks(row->tagField(), u"1010"_s);
    row = rowOf(draft);
    ASSERT_TRUE(row);
    const QHash<QUuid, QString> issues = model->issues();
    ASSERT_TRUE(issues.contains(draft->id()));
    EXPECT_TRUE(row->issueLabel()->isVisibleTo(row));
    EXPECT_EQ(row->issueLabel()->text(), issues.value(draft->id()));
    EXPECT_GE(row->issueLabel()->x(), 74);
    EXPECT_EQ(row->height(), DraftRowView::rowHeight + DraftRowView::issueHeight);
    EXPECT_EQ(view->statusLabel()->text(), u"1 row needs attention"_s);
    EXPECT_FALSE(view->buildButton()->isEnabled());
    EXPECT_TRUE(row->tagField()->hasFocus());
}

TEST_F(AddTab, TheNameHelpTellsTheNameTheVLANGets)
{
    const AppModel::DraftRow draft = model->drafts().first();
    EXPECT_EQ(DraftRowView::nameHelp(*draft), u"Names are composed as \"<tag> - <name>\""_s);
    draft->setTag(u"1060"_s);
    draft->setName(u"Comms"_s);
    EXPECT_EQ(DraftRowView::nameHelp(*draft), u"Will be named \"1060 - Comms\""_s);
}

TEST_F(AddTab, TheFooterInvitesAFirstRow)
{
    EXPECT_EQ(view->statusLabel()->text(), u"Add a VLAN to get started"_s);
    EXPECT_FALSE(view->buildButton()->isEnabled());
}

TEST_F(AddTab, TheRowsAlreadyHereAreListedToRead)
{
    RowList *list = view->rowList();
    qsizetype existing = 0;
    for (const RowList::Item &item : list->items())
        existing += item.isRow() && item.kind == AddView::existingRow ? 1 : 0;
    EXPECT_EQ(existing, 12);
}

TEST_F(AddTab, RowsTypedUnderAPlanAreBuiltAndShowOnTheCurrentTab)
{
    model->setSelectedAdapter(u"en5"_s);
    AddressPlan plan = model->addressPlan();
    plan.host = u"69"_s;
    model->setAddressPlan(plan);

    const AppModel::DraftRow first = model->drafts().first();
    DraftRowView *row = rowOf(first);
    ASSERT_TRUE(row);
    row->tagField()->setFocus();
    QTest::keyClicks(row->tagField(), u"1060"_s);
    QTest::keyClick(row->tagField(), Qt::Key_Tab);
    typeIntoFocus(u"Comms"_s);
    row->modeChoice()->setCurrentIndex(1);
    Q_EMIT row->modeChoice()->activated(1);
    EXPECT_EQ(first->address(), u"192.168.60.69"_s);

    view->addButton()->click();
    const AppModel::DraftRow second = model->drafts().last();
    row = rowOf(second);
    ASSERT_TRUE(row);
    // The new row proposes the tag after the row above; the engineer types another.
    EXPECT_EQ(row->tagField()->text(), u"1061"_s);
    QTest::keyClicks(row->nameField(), u"Spare"_s);
    row->tagField()->setFocus();
    row->tagField()->selectAll();
    QTest::keyClicks(row->tagField(), u"1062"_s);

    ASSERT_TRUE(view->buildButton()->isEnabled())
        << QStringList(model->issues().values()).join(u"; "_s).toStdString() << " / "
        << first->tag().toStdString() << "," << first->name().toStdString() << " / "
        << second->tag().toStdString() << "," << second->name().toStdString();
    EXPECT_EQ(view->statusLabel()->text(), u"2 VLANs ready to build on DONGLE, into Show"_s);
    QTest::keyClick(row->tagField(), Qt::Key_Return);
    ASSERT_TRUE(model->pendingPlan());
    model->commitPendingPlan();
    clock->advance(std::chrono::seconds(1));
    QStringList names;
    for (const AppModel::Row &each : model->vlanRows())
        names.append(each->source().name);
    EXPECT_TRUE(names.contains(u"1060 - Comms (DONGLE)"_s)) << names.join(u", "_s).toStdString();
    EXPECT_TRUE(names.contains(u"1062 - Spare (DONGLE)"_s));
    EXPECT_EQ(vlanRow(*model, 1060)->source().ip.address, u"192.168.60.69"_s);
}

} // namespace
