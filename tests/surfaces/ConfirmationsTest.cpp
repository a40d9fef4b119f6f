#include "OrvaneApp/surfaces/ChangeConfirmation.h"
#include "OrvaneApp/surfaces/LocationConfirmation.h"
#include "OrvaneApp/surfaces/OrderConfirmation.h"
#include "OrvaneApp/surfaces/PlanSheet.h"
#include "OrvaneApp/surfaces/kit/LineList.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

PlannedChange creation(qint64 tag)
{
    return PlannedChange::CreateVLAN{tag, u"Net %1"_s.arg(tag),
                                     IPConfig{IPMode::dhcp, {}, {}, std::nullopt, {}}, true};
}

Plan planOf(int count)
{
    Plan plan{u"en5"_s, {}};
    for (int tag = 1; tag <= count; ++tag)
        plan.changes.append(creation(tag));
    return plan;
}

QPushButton *buttonLabelled(const QWidget &widget, const QString &text)
{
    for (QPushButton *button : widget.findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

TEST(PlanSheet, OneChangeReadsInTheSingularAfterThese)
{
    EXPECT_EQ(PlanSheet::introduction(planOf(1)),
              u"Nothing has been changed yet. These 1 change will be applied to en5 as a single "
              "transaction."_s);
    EXPECT_EQ(PlanSheet::introduction(planOf(3)),
              u"Nothing has been changed yet. These 3 changes will be applied to en5 as a single "
              "transaction."_s);
}

TEST(PlanSheet, EachKindOfChangeHasItsSymbol)
{
    EXPECT_EQ(PlanSheet::symbolFor(creation(1)), u"plus.circle.fill"_s);
    EXPECT_EQ(PlanSheet::symbolFor(PlannedChange::RemoveVLAN{1, u"a"_s, u"vlan0"_s}), u"trash"_s);
}

TEST(PlanSheet, ALongPlanScrollsAndTheHeadAndButtonsStay)
{
    const PlanSheet sheet(
        planOf(500), [] {}, [] {});
    const LineList *list = sheet.findChild<LineList *>();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->sizeHint().height(), PlanSheet::listLimit);
    EXPECT_LT(sheet.sizeHint().height(), 500);
    EXPECT_TRUE(buttonLabelled(sheet, u"Build"_s));
    EXPECT_TRUE(buttonLabelled(sheet, u"Cancel"_s));
}

TEST(PlanSheet, ReturnBuildsAndEscapeCancels)
{
    int built = 0;
    int cancelled = 0;
    {
        PlanSheet sheet(
            planOf(2), [&] { ++built; }, [&] { ++cancelled; });
        sheet.show();
        QTest::keyClick(&sheet, Qt::Key_Return);
    }
    EXPECT_EQ(built, 1);
    EXPECT_EQ(cancelled, 0);
    {
        PlanSheet sheet(
            planOf(2), [&] { ++built; }, [&] { ++cancelled; });
        sheet.show();
        QTest::keyClick(&sheet, Qt::Key_Escape);
    }
    EXPECT_EQ(built, 1);
    EXPECT_EQ(cancelled, 1);
}

class Popovers : public ::testing::Test
{
protected:
    Popovers()
    {
        anchor = new QPushButton(u"Delete\u2026"_s, &window);
        window.resize(600, 400);
        window.show();
    }

    /// A location question whose actions count themselves.
    LocationConfirmation *question()
    {
        auto *popover = new LocationConfirmation(
            anchor, u"Delete the Location \u201cOffice\u201d?"_s, u"Its 2 services go with it."_s,
            u"Delete"_s, true, [this] { ++confirmed; }, [this] { ++cancelled; });
        popover->present();
        return popover;
    }

    QWidget window;
    QPushButton *anchor = nullptr;
    int confirmed = 0;
    int cancelled = 0;
};

TEST_F(Popovers, ReturnConfirmsOnce)
{
    LocationConfirmation *popover = question();
    QTest::keyClick(popover, Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
    EXPECT_EQ(cancelled, 0);
}

TEST_F(Popovers, EscapeCancels)
{
    LocationConfirmation *popover = question();
    QTest::keyClick(popover, Qt::Key_Escape);
    EXPECT_EQ(confirmed, 0);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(Popovers, AClickAwayCancels)
{
    LocationConfirmation *popover = question();
    // A press on the popover outside its rectangle: how Qt hands a popup a click elsewhere.
    const QPoint away(-20, -20);
    QMouseEvent press(QEvent::MouseButtonPress, away, popover->mapToGlobal(away), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(popover, &press);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(confirmed, 0);
}

TEST_F(Popovers, AHiddenAnchorTakesItsPopoverAlong)
{
    QPointer<LocationConfirmation> popover = question();
    anchor->hide();
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(popover && popover->isVisible());
}

TEST_F(Popovers, TheConfirmButtonIsTheOnlyDefault)
{
    LocationConfirmation *popover = question();
    EXPECT_TRUE(buttonLabelled(*popover, u"Delete"_s)->isDefault());
    EXPECT_FALSE(buttonLabelled(*popover, u"Cancel"_s)->isDefault());
    EXPECT_FALSE(buttonLabelled(*popover, u"Cancel"_s)->autoDefault());
    popover->dismissQuietly();
    EXPECT_EQ(cancelled, 0);
}

TEST(PopoverPlacement, UnderItsAnchorAboveWhenThereIsNoRoomAndOnTheScreen)
{
    const QRect screen(0, 0, 1000, 800);
    EXPECT_EQ(Popover::placement(QRect(100, 100, 80, 24), QSize(400, 200), screen),
              QPoint(100, 128));
    EXPECT_EQ(Popover::placement(QRect(100, 700, 80, 24), QSize(400, 200), screen),
              QPoint(100, 496));
    EXPECT_EQ(Popover::placement(QRect(900, 100, 80, 24), QSize(400, 200), screen),
              QPoint(600, 128));
}

TEST(ChangeConfirmation, AnEmptyDetailTakesNoHeight)
{
    QWidget anchor;
    const QList<PlannedChange> changes{creation(1)};
    const ChangeConfirmation without(
        &anchor, {u"Save 1 change?"_s, {}, changes, u"Save"_s}, [] {}, [] {});
    const ChangeConfirmation with(
        &anchor, {u"Save 1 change?"_s, u"Some detail."_s, changes, u"Save"_s}, [] {}, [] {});
    EXPECT_LT(without.sizeHint().height(), with.sizeHint().height());
    for (const QLabel *label : without.findChildren<QLabel *>())
        EXPECT_FALSE(label->text().isEmpty());
}

TEST(ChangeConfirmation, RevertIsOfferedOnlyWhenGiven)
{
    QWidget anchor;
    const ChangeConfirmation plain(
        &anchor, {u"t"_s, {}, {creation(1)}, u"Save"_s}, [] {}, [] {});
    EXPECT_FALSE(buttonLabelled(plain, u"Revert"_s));
}

TEST(OrderConfirmation, OnlyMovedServicesSayWhereTheyCameFrom)
{
    QWidget anchor;
    const OrderConfirmation popover(
        &anchor, {{1, u"Wi-Fi"_s, 3}, {2, u"Thunderbolt Ethernet"_s, {}}}, [] {}, [] {});
    const LineList *list = popover.findChild<LineList *>();
    ASSERT_TRUE(list);
    QStringList texts;
    for (const RenderTextReport::Text &text : list->visibleTexts())
        texts.append(text.text);
    EXPECT_EQ(texts, (QStringList{u"1  Wi-Fi"_s, u"was 3"_s, u"2  Thunderbolt Ethernet"_s}));
}

} // namespace
