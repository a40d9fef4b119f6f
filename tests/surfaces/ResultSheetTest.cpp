#include "OrvaneApp/surfaces/ResultSheet.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList texts(const ResultSheet &sheet)
{
    QStringList found;
    for (const QLabel *label : sheet.findChildren<QLabel *>())
        found.append(label->text());
    return found;
}

TEST(ResultSheet, HeadSaysHowItWent)
{
    EXPECT_EQ(ResultSheet::head(true), u"Done"_s);
    EXPECT_EQ(ResultSheet::head(false), u"Couldn't do that"_s);
}

TEST(ResultSheet, EachLineOfAFailureIsItsOwnSelectableText)
{
    const ResultSheet sheet(BuildResult{.succeeded = false, .message = u"One.\nTwo."_s}, [] {});
    EXPECT_EQ(texts(sheet), (QStringList{u"Couldn't do that"_s, u"One."_s, u"Two."_s}));
    for (const QLabel *label : sheet.findChildren<QLabel *>()) {
        if (label->text() != ResultSheet::head(false)) {
            EXPECT_TRUE(label->textInteractionFlags() & Qt::TextSelectableByMouse);
        }
    }
}

TEST(ResultSheet, OKDismisses)
{
    int dismissed = 0;
    ResultSheet sheet(BuildResult{.succeeded = true, .message = u"Built 3 VLANs"_s},
                      [&] { ++dismissed; });
    sheet.show();
    QPushButton *ok = sheet.findChild<QPushButton *>();
    ASSERT_TRUE(ok);
    EXPECT_TRUE(ok->isDefault());
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_EQ(dismissed, 1);
}

TEST(ResultSheet, EscapeDismissesToo)
{
    int dismissed = 0;
    ResultSheet sheet(BuildResult{.succeeded = true, .message = u"Done it."_s},
                      [&] { ++dismissed; });
    sheet.show();
    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
    EXPECT_FALSE(sheet.isVisible());
}

} // namespace
