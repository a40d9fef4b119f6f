#include "OrvaneApp/surfaces/kit/TextControlWalk.h"

#include "OrvaneApp/surfaces/kit/RenderTextReport.h"

#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionFrame>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

class TextControlWalk : public ::testing::Test
{
protected:
    TextControlWalk() { root.resize(600, 300); }

    /// The narrowest line edit that holds its whole text, found from the style's own rectangle.
    static int widthHolding(QLineEdit &edit)
    {
        edit.resize(300, edit.height());
        QStyleOptionFrame option;
        option.initFrom(&edit);
        option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
        const int contents =
            edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit).width();
        const qreal text = QFontMetricsF(edit.font()).horizontalAdvance(edit.text());
        return int(std::ceil(text)) + 4 + (300 - contents);
    }

    QWidget root;
};

TEST_F(TextControlWalk, ALineEditThatHoldsItsTextIsNotCutShort)
{
    auto *edit = new QLineEdit(u"192.168.100.200"_s, &root);
    edit->setGeometry(20, 20, widthHolding(*edit), 24);
    const TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.fields, 1);
    EXPECT_TRUE(count.cutShort.isEmpty());
    EXPECT_TRUE(count.atEdge.isEmpty());
}

TEST_F(TextControlWalk, ALineEditTwoPixelsTooNarrowIsCutShort)
{
    auto *edit = new QLineEdit(u"192.168.100.200"_s, &root);
    edit->setGeometry(20, 20, widthHolding(*edit) - 2, 24);
    EXPECT_EQ(walkTextControls(root).cutShort, QStringList{u"192.168.100.200"_s});
}

TEST_F(TextControlWalk, AnEmptyFieldIsNotCounted)
{
    auto *edit = new QLineEdit(&root);
    edit->setGeometry(0, 0, 10, 24);
    EXPECT_EQ(walkTextControls(root), TextControlCount{});
}

TEST_F(TextControlWalk, AWrappingLabelTooLowIsCutShort)
{
    auto *label = new QLabel(u"An empty list after a full one is read again for two seconds "
                             "before it is believed."_s,
                             &root);
    label->setWordWrap(true);
    label->setGeometry(20, 20, 120, label->heightForWidth(120));
    EXPECT_TRUE(walkTextControls(root).cutShort.isEmpty());
    label->setGeometry(20, 20, 120, 20);
    EXPECT_EQ(walkTextControls(root).cutShort.size(), 1);
}

TEST_F(TextControlWalk, ASingleLineLabelReadsRichTextAsPlain)
{
    auto *label = new QLabel(u"<b>Show</b> in use"_s, &root);
    label->setGeometry(20, 20, 300, 20);
    const TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.fields, 1);
    label->resize(10, 20);
    EXPECT_EQ(walkTextControls(root).cutShort, QStringList{u"Show in use"_s});
}

TEST_F(TextControlWalk, AComboIsAPopUpJudgedByItsEditField)
{
    auto *combo = new QComboBox(&root);
    combo->addItems({u"Show"_s, u"A Location with a very long name indeed"_s});
    combo->setGeometry(20, 20, 300, 24);
    combo->setCurrentIndex(1);
    TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.popups, 1);
    EXPECT_EQ(count.fields, 0);
    EXPECT_TRUE(count.cutShort.isEmpty());
    combo->resize(80, 24);
    EXPECT_EQ(walkTextControls(root).cutShort,
              QStringList{u"A Location with a very long name indeed"_s});
}

TEST_F(TextControlWalk, AnEditableCombosLineEditIsNotVisitedApart)
{
    auto *combo = new QComboBox(&root);
    combo->setEditable(true);
    combo->addItem(u"Show"_s);
    combo->setGeometry(20, 20, 200, 24);
    const TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.popups, 1);
    EXPECT_EQ(count.fields, 0);
}

TEST_F(TextControlWalk, AButtonIsJudgedByItsStylesContents)
{
    auto *button = new QPushButton(u"Build VLANs\u2026"_s, &root);
    button->setGeometry(20, 20, 200, 28);
    EXPECT_TRUE(walkTextControls(root).cutShort.isEmpty());
    button->resize(40, 28);
    EXPECT_EQ(walkTextControls(root).cutShort, QStringList{u"Build VLANs\u2026"_s});
}

TEST_F(TextControlWalk, AButtonWithAMenuIsAPopUp)
{
    auto *button = new QPushButton(u"Delete\u2026"_s, &root);
    auto *menu = new QMenu(button);
    menu->addAction(u"Office"_s);
    button->setMenu(menu);
    button->setGeometry(20, 20, 200, 28);
    const TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.popups, 1);
    EXPECT_EQ(count.fields, 0);
}

TEST_F(TextControlWalk, ATextWithinFourPixelsOfEitherSideIsAtTheEdge)
{
    auto *left = new QLabel(u"left"_s, &root);
    left->setGeometry(3, 20, 100, 20);
    auto *right = new QLabel(u"right"_s, &root);
    right->setGeometry(600 - 4 - 99, 50, 100, 20);
    auto *inside = new QLabel(u"inside"_s, &root);
    inside->setGeometry(4, 80, 100, 20);
    auto *touching = new QLabel(u"touching"_s, &root);
    touching->setGeometry(600 - 4 - 100, 110, 100, 20);
    EXPECT_EQ(walkTextControls(root).atEdge, (QStringList{u"left"_s, u"right"_s}));
}

TEST_F(TextControlWalk, HiddenWidgetsAndWhatTheyHoldAreSkipped)
{
    auto *hidden = new QWidget(&root);
    hidden->setGeometry(0, 0, 600, 100);
    auto *label = new QLabel(u"under a hidden box"_s, hidden);
    label->setGeometry(0, 0, 10, 10);
    hidden->hide();
    auto *bar = new QScrollBar(&root);
    bar->setGeometry(0, 0, 10, 100);
    EXPECT_EQ(walkTextControls(root), TextControlCount{});
}

class PaintedList : public QWidget, public RenderTextReport
{
public:
    using QWidget::QWidget;
    QList<Text> visibleTexts() const override
    {
        return {{u"CREATE  vlan0  1010"_s, QRect(10, 0, 200, 20), 400},
                {u"a text far too wide for its room"_s, QRect(10, 20, 20, 20), 20}};
    }
};

TEST_F(TextControlWalk, AReportingViewAddsItsPaintedTexts)
{
    auto *list = new PaintedList(&root);
    list->setGeometry(0, 0, 500, 100);
    const TextControlCount count = walkTextControls(root);
    EXPECT_EQ(count.fields, 2);
    EXPECT_EQ(count.cutShort, QStringList{u"a text far too wide for its room"_s});
    EXPECT_TRUE(count.atEdge.isEmpty());
}

} // namespace
