#include "OrvaneApp/surfaces/HelpView.h"

#include "OrvaneApp/surfaces/kit/TextControlWalk.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The program's stated version, put back after a test that takes it away.
class StatedVersion
{
public:
    explicit StatedVersion(const QString &version)
        : m_kept(QCoreApplication::applicationVersion())
    {
        QCoreApplication::setApplicationVersion(version);
    }
    ~StatedVersion() { QCoreApplication::setApplicationVersion(m_kept); }

private:
    QString m_kept;
};

QStringList labelTexts(const QWidget &view)
{
    QStringList texts;
    for (const QLabel *label : view.findChildren<QLabel *>()) {
        if (label->textFormat() != Qt::RichText) {
            texts.append(label->text());
            continue;
        }
        QTextDocument document;
        document.setHtml(label->text());
        texts.append(document.toPlainText());
    }
    return texts;
}

QString withoutMarks(QString markup)
{
    return markup.remove(u"**"_s).remove(u'`');
}

TEST(HelpView, WithNoStatedVersionTheThirdLineReadsADash)
{
    const StatedVersion none{QString()};
    EXPECT_EQ(HelpView::version(), u"\u2014"_s);
    const HelpView view;
    EXPECT_TRUE(labelTexts(view).contains(u"Version \u2014 \u00b7 Quill Fence"_s));
}

TEST(HelpView, AStatedVersionStandsInTheThirdLine)
{
    const StatedVersion stated{u"2.4.1"_s};
    EXPECT_EQ(HelpView::version(), u"2.4.1"_s);
    const HelpView view;
    EXPECT_TRUE(labelTexts(view).contains(u"Version 2.4.1 \u00b7 Quill Fence"_s));
}

TEST(HelpView, TheSectionsStandInTheirOrder)
{
    QStringList titles;
    QList<qsizetype> paragraphs;
    for (const HelpView::Section &section : HelpView::sections()) {
        titles.append(section.title);
        paragraphs.append(section.paragraphs.size());
    }
    EXPECT_EQ(titles,
              (QStringList{u"Two tabs"_s, u"Setting up several machines"_s, u"Adapters and VLANs"_s,
                           u"The address plan"_s, u"Adapter names"_s, u"Service order"_s,
                           u"Locations"_s, u"What it needs"_s, u"Before anything is written"_s}));
    EXPECT_EQ(paragraphs, (QList<qsizetype>{3, 3, 7, 4, 3, 7, 4, 4, 2}));
}

TEST(HelpView, TheWordsAreTheManualsOwn)
{
    const QList<HelpView::Section> &sections = HelpView::sections();
    EXPECT_EQ(sections.at(0).paragraphs.at(0),
              u"**Current** is what the Location in use holds now: its adapters, its VLANs, and "
              "the order they rank in. Every change there is to something that already exists."_s);
    EXPECT_EQ(sections.at(1).paragraphs.at(0),
              u"Build the VLANs once, then **Save Project\u2026** on Current \u2014 to a thumb "
              "drive alongside the app, if you're walking between machines."_s);
    EXPECT_EQ(sections.at(3).paragraphs.at(0),
              u"A VLAN's tag carries its subnet: **1010 \u2192 192.168.10.N**, 1012 \u2192 "
              "192.168.12.N."_s);
    EXPECT_EQ(sections.at(7).paragraphs.at(0),
              u"You must be an **administrator** \u2014 writing network configuration needs the "
              "`system.preferences.network` right. macOS asks once per login, sometimes not at "
              "all."_s);
    EXPECT_EQ(sections.at(8).paragraphs.at(1),
              u"Changes land as a single transaction \u2014 all of them, or none."_s);
}

TEST(HelpView, EverySectionsWordsAreShownWithoutTheirMarks)
{
    const HelpView view;
    const QStringList shown = labelTexts(view);
    for (const HelpView::Section &section : HelpView::sections()) {
        EXPECT_TRUE(shown.contains(section.title)) << section.title.toStdString();
        for (const QString &paragraph : section.paragraphs)
            EXPECT_TRUE(shown.contains(withoutMarks(paragraph))) << paragraph.toStdString();
    }
    // One bullet a paragraph.
    qsizetype paragraphs = 0;
    for (const HelpView::Section &section : HelpView::sections())
        paragraphs += section.paragraphs.size();
    EXPECT_EQ(shown.count(u"\u2022"_s), paragraphs);
}

TEST(HelpView, LightMarkupIsEscapedFirstThenBoldAndCode)
{
    EXPECT_EQ(HelpView::richText(u"**Save** and `a<b>`"_s),
              u"<b>Save</b> and <code>a&lt;b&gt;</code>"_s);
    EXPECT_EQ(HelpView::richText(u"Tom & Jerry's **\"show\"**"_s),
              u"Tom &amp; Jerry's <b>&quot;show&quot;</b>"_s);
    EXPECT_EQ(HelpView::richText(u"**a** and **b**"_s), u"<b>a</b> and <b>b</b>"_s);
}

TEST(HelpView, AMarkWithoutItsPairStaysAsItIs)
{
    EXPECT_EQ(HelpView::richText(u"2 ** 3"_s), u"2 ** 3"_s);
    EXPECT_EQ(HelpView::richText(u"**a** then **"_s), u"<b>a</b> then **"_s);
    EXPECT_EQ(HelpView::richText(u"it's `x"_s), u"it's `x"_s);
}

TEST(HelpView, AtItsLeastSizeTheTextWrapsWithNothingCutShort)
{
    HelpView view;
    view.resize(HelpView::leastWidth, HelpView::leastHeight);
    view.show();
    ASSERT_EQ(view.size(), QSize(560, 520));
    const TextControlCount count = walkTextControls(view);
    EXPECT_TRUE(count.cutShort.isEmpty()) << count.cutShort.join(u"\n"_s).toStdString();
    EXPECT_TRUE(count.atEdge.isEmpty()) << count.atEdge.join(u"\n"_s).toStdString();
    // Every paragraph is a wrapping text: none is given a line of its own width.
    for (const QLabel *label : view.findChildren<QLabel *>()) {
        if (label->textFormat() == Qt::RichText) {
            EXPECT_TRUE(label->wordWrap());
            EXPECT_LE(label->width(), view.viewport()->width());
        }
    }
    EXPECT_EQ(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST(HelpView, TheViewCanNotGoBelowItsLeastSize)
{
    HelpView view;
    view.resize(300, 200);
    EXPECT_EQ(view.size(), QSize(560, 520));
}

TEST(HelpView, AParagraphWrapsAtTheIndentOfItsBullet)
{
    HelpView view;
    view.resize(HelpView::leastWidth, HelpView::leastHeight);
    view.show();
    int left = -1;
    for (const QLabel *label : view.findChildren<QLabel *>()) {
        if (label->textFormat() != Qt::RichText)
            continue;
        const int x = label->mapTo(&view, QPoint(0, 0)).x();
        if (left < 0)
            left = x;
        EXPECT_EQ(x, left);
        EXPECT_GT(label->height(), 0);
    }
    EXPECT_GT(left, 30);
}

} // namespace
