#include "VLANKit/core/TextRules.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;

struct IntegerCase
{
    const char *name;
    QString text;
    std::optional<qint64> expected;
};

class StrictIntegerParse : public ::testing::TestWithParam<IntegerCase>
{};

TEST_P(StrictIntegerParse, MatchesExpected)
{
    EXPECT_EQ(parseInteger(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StrictIntegerParse,
    ::testing::Values(
        IntegerCase{"PlusSeven", u"+7"_s, 7}, IntegerCase{"MinusZero", u"-0"_s, 0},
        IntegerCase{"LeadingZeros", u"007"_s, 7}, IntegerCase{"Negative", u"-12"_s, -12},
        IntegerCase{"LoneSign", u"+"_s, std::nullopt},
        IntegerCase{"LoneMinus", u"-"_s, std::nullopt}, IntegerCase{"Empty", u""_s, std::nullopt},
        IntegerCase{"LeadingBlank", u" 5"_s, std::nullopt},
        IntegerCase{"TrailingLineEnd", u"5\n"_s, std::nullopt},
        IntegerCase{"ArabicIndicDigit", u"\u0665"_s, std::nullopt},
        IntegerCase{"Exponent", u"1e3"_s, std::nullopt},
        IntegerCase{"DoubleSign", u"+-1"_s, std::nullopt},
        IntegerCase{"Largest", u"9223372036854775807"_s, std::numeric_limits<qint64>::max()},
        IntegerCase{"Smallest", u"-9223372036854775808"_s, std::numeric_limits<qint64>::min()},
        IntegerCase{"OverflowByOne", u"9223372036854775808"_s, std::nullopt},
        IntegerCase{"UnderflowByOne", u"-9223372036854775809"_s, std::nullopt},
        IntegerCase{"HugeOverflow", u"99999999999999999999999"_s, std::nullopt}),
    [](const auto &row) { return std::string(row.param.name); });

struct QuadCase
{
    const char *name;
    QString text;
    bool valid;
};

class DottedQuad : public ::testing::TestWithParam<QuadCase>
{};

TEST_P(DottedQuad, MatchesExpected)
{
    EXPECT_EQ(isDottedQuad(GetParam().text), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(Rows, DottedQuad,
                         ::testing::Values(QuadCase{"Plain", u"192.168.10.5"_s, true},
                                           QuadCase{"SignsAndZeros", u"+1.-0.010.255"_s, true},
                                           QuadCase{"ThreePieces", u"1.2.3"_s, false},
                                           QuadCase{"FivePieces", u"1.2.3.4.5"_s, false},
                                           QuadCase{"EmptyPiece", u"1..2.3"_s, false},
                                           QuadCase{"TrailingDot", u"1.2.3.4."_s, false},
                                           QuadCase{"FourCharacters", u"0001.2.3.4"_s, false},
                                           QuadCase{"Above255", u"256.1.1.1"_s, false},
                                           QuadCase{"Negative", u"-1.1.1.1"_s, false},
                                           QuadCase{"Blank", u"1.2.3. 4"_s, false},
                                           QuadCase{"Letters", u"a.b.c.d"_s, false}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(TrimSpacesAndTabs, TrimsSpaceSeparatorsAndTabsButNotLineEnds)
{
    EXPECT_EQ(trimSpacesAndTabs(u"\t \u00A0 5 \u3000"_s), u"5"_s);
    EXPECT_EQ(trimSpacesAndTabs(u"\n5\n"_s), u"\n5\n"_s);
    EXPECT_EQ(trimSpacesAndTabs(u" a b "_s), u"a b"_s);
}

TEST(TrimWhitespaceAndNewlines, TrimsLineEndsToo)
{
    EXPECT_EQ(trimWhitespaceAndNewlines(u"\n\t Audio \r\n"_s), u"Audio"_s);
    EXPECT_EQ(trimWhitespaceAndNewlines(u"\u2028x\u2029"_s), u"x"_s);
}

TEST(IsBlank, EmptyAndSpacesAreBlankLineEndsAreNot)
{
    EXPECT_TRUE(isBlank(u""_s));
    EXPECT_TRUE(isBlank(u" \t "_s));
    EXPECT_FALSE(isBlank(u"\n"_s));
}

TEST(SplitAtBlanks, SplitsAtSpaceOnly)
{
    EXPECT_EQ(splitAtBlanks(u"  DONGLE  3 "_s), (QStringList{u"DONGLE"_s, u"3"_s}));
    EXPECT_EQ(splitAtBlanks(u"USB\tLAN-2"_s), QStringList{u"USB\tLAN-2"_s});
}

TEST(SplitDroppingEmpty, DropsEmptyPieces)
{
    EXPECT_EQ(splitDroppingEmpty(u"10..1"_s, u'.'), (QStringList{u"10"_s, u"1"_s}));
    EXPECT_TRUE(splitDroppingEmpty(u""_s, u'.').isEmpty());
}

TEST(CharacterCount, CountsGraphemeClusters)
{
    EXPECT_EQ(characterCount(u"e\u0301"_s), 1);
    EXPECT_EQ(characterCount(u"\U0001D7E0"_s), 1);           // 𝟠, two UTF-16 units
    EXPECT_EQ(characterCount(u"\U0001F1E9\U0001F1EA"_s), 1); // a flag
    EXPECT_EQ(characterCount(u""_s), 0);
    EXPECT_EQ(characterCount(u"abc"_s), 3);
}

TEST(FirstCharacters, TakesWholeClusters)
{
    EXPECT_EQ(firstCharacters(u"e\u0301xy"_s, 2), u"e\u0301x"_s);
    EXPECT_EQ(firstCharacters(u"ab"_s, 5), u"ab"_s);
    EXPECT_EQ(firstCharacters(u"ab"_s, 0), u""_s);
}

TEST(IsUnicodeNumber, CountsEveryNumericType)
{
    EXPECT_TRUE(isUnicodeNumber(u"5"_s));
    EXPECT_TRUE(isUnicodeNumber(u"\u4E94"_s));     // 五
    EXPECT_TRUE(isUnicodeNumber(u"\u0663"_s));     // ٣
    EXPECT_TRUE(isUnicodeNumber(u"\u216B"_s));     // Ⅻ
    EXPECT_TRUE(isUnicodeNumber(u"\U0001D7E0"_s)); // 𝟠
    EXPECT_FALSE(isUnicodeNumber(u"a"_s));
    EXPECT_FALSE(isUnicodeNumber(u""_s));
}

TEST(CompareCanonical, ComparesNormalFormsByCodePoint)
{
    EXPECT_TRUE(canonicallyEqual(u"e\u0301"_s, u"\u00E9"_s));
    // Code point order puts U+FFFD before an emoji; UTF-16 unit order would not.
    EXPECT_TRUE(canonicallyLess(u"\uFFFD"_s, u"\U0001F600"_s));
    EXPECT_TRUE(canonicallyLess(u"Audio"_s, u"audio"_s));
    EXPECT_FALSE(canonicallyLess(u"b"_s, u"a"_s));
    EXPECT_TRUE(canonicallyLess(u"a"_s, u"ab"_s));
}

TEST(CaseBlindEqual, FoldsAccentedCapitals)
{
    EXPECT_TRUE(caseBlindEqual(u"\u00E9t\u00E9"_s, u"\u00C9T\u00C9"_s));
    EXPECT_TRUE(caseBlindEqual(u"E\u0301"_s, u"\u00E9"_s));
    EXPECT_FALSE(caseBlindEqual(u"Audio"_s, u"Audio 2"_s));
}

TEST(LowercaseContains, LowersBothSides)
{
    EXPECT_TRUE(lowercaseContains(u"Main Internet"_s, u"INTERNET"_s));
    EXPECT_FALSE(lowercaseContains(u"Main"_s, u"net"_s));
}

TEST(SortStably, KeepsEqualKeysInTheirOrder)
{
    QList<std::pair<int, char>> items{{2, 'a'}, {1, 'b'}, {2, 'c'}, {1, 'd'}};
    sortStably(items, [](const auto &x, const auto &y) { return x.first < y.first; });
    EXPECT_EQ(items, (QList<std::pair<int, char>>{{1, 'b'}, {1, 'd'}, {2, 'a'}, {2, 'c'}}));
}

TEST(SortCanonically, OrdersByCodePointNotLocale)
{
    QStringList names{u"\U0001F600"_s, u"b"_s, u"B"_s, u"\uFFFD"_s};
    sortCanonically(names);
    EXPECT_EQ(names, (QStringList{u"B"_s, u"b"_s, u"\uFFFD"_s, u"\U0001F600"_s}));
}

TEST(BaseNameDroppingLastExtension, DropsOnlyTheLastExtension)
{
    EXPECT_EQ(baseNameDroppingLastExtension(u"show.v2.json"_s), u"show.v2"_s);
    EXPECT_EQ(baseNameDroppingLastExtension(u".json"_s), u".json"_s);
    EXPECT_EQ(baseNameDroppingLastExtension(u"/media/stick/Show.json"_s), u"Show"_s);
    EXPECT_EQ(baseNameDroppingLastExtension(u"noextension"_s), u"noextension"_s);
}

TEST(CurlyQuoted, UsesCurlyDoubleQuotes)
{
    EXPECT_EQ(curlyQuoted(u"show.json"_s), u"\u201Cshow.json\u201D"_s);
}

TEST(NotReported, IsOneEmDash)
{
    EXPECT_EQ(notReported(), u"\u2014"_s);
}

} // namespace
