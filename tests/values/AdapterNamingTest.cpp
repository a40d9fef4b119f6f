#include "VLANKit/values/AdapterNaming.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QSet<QString> known{u"DONGLE"_s, u"en7"_s, u"en8"_s};

AdapterRecord adapter(std::optional<QString> serviceName)
{
    return AdapterRecord{u"en7"_s, u"USB 10/100/1000 LAN"_s, std::move(serviceName), true};
}

TEST(AdapterNamingLabel, FirstWordOfAnOwnName)
{
    EXPECT_EQ(AdapterNaming::label(adapter(u"DONGLE 3"_s)), u"DONGLE"_s);
    EXPECT_EQ(AdapterNaming::label(adapter(u"  DONGLE"_s)), u"DONGLE"_s);
}

TEST(AdapterNamingLabel, SystemNameGivesKernelName)
{
    EXPECT_EQ(AdapterNaming::label(adapter(u"USB 10/100/1000 LAN"_s)), u"en7"_s);
    EXPECT_EQ(AdapterNaming::label(adapter(std::nullopt)), u"en7"_s);
    EXPECT_EQ(AdapterNaming::label(adapter(u""_s)), u"en7"_s);
}

TEST(AdapterNamingLabel, NameOfBlanksOnlyGivesKernelName)
{
    EXPECT_EQ(AdapterNaming::label(adapter(u"   "_s)), u"en7"_s);
}

TEST(AdapterNamingLabel, OnlyTheBlankSeparatesWords)
{
    EXPECT_EQ(AdapterNaming::label(adapter(u"FOH-Left\tRack two"_s)), u"FOH-Left\tRack"_s);
}

TEST(AdapterNamingStripped, RemovesAKnownSuffix)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio (DONGLE)"_s, known), u"Audio"_s);
}

TEST(AdapterNamingStripped, KeepsAnUnknownSuffix)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Mix (L+R)"_s, known), u"Mix (L+R)"_s);
    EXPECT_EQ(AdapterNaming::stripped(u"Mix (L+R)"_s, {u"L+R"_s}), u"Mix"_s);
}

TEST(AdapterNamingStripped, CaseCounts)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio (dongle)"_s, known), u"Audio (dongle)"_s);
}

TEST(AdapterNamingStripped, LosesOnlyTheLastSuffix)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio (en7) (en8)"_s, known), u"Audio (en7)"_s);
}

TEST(AdapterNamingStripped, NothingButAKnownSuffixStripsToEmpty)
{
    EXPECT_EQ(AdapterNaming::stripped(u"(DONGLE)"_s, known), u""_s);
}

TEST(AdapterNamingStripped, EmptyBracketsAreLeftUnlessEmptyIsKnown)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio ()"_s, known), u"Audio ()"_s);
    EXPECT_EQ(AdapterNaming::stripped(u"Audio ()"_s, {u""_s}), u"Audio"_s);
}

TEST(AdapterNamingStripped, UnbalancedNameIsOnlyTrimmed)
{
    EXPECT_EQ(AdapterNaming::stripped(u"  Audio DONGLE) "_s, known), u"Audio DONGLE)"_s);
}

TEST(AdapterNamingStripped, TrailingBlanksAfterTheBracketStillFindTheSuffix)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio (DONGLE) \t "_s, known), u"Audio"_s);
}

TEST(AdapterNamingStripped, LineEndsAreNotTrimmed)
{
    EXPECT_EQ(AdapterNaming::stripped(u"Audio (DONGLE)\n"_s, known), u"Audio (DONGLE)\n"_s);
}

TEST(AdapterNamingCompose, AddsTheSuffix)
{
    EXPECT_EQ(AdapterNaming::compose(u"Audio"_s, u"DONGLE"_s, known), u"Audio (DONGLE)"_s);
}

TEST(AdapterNamingCompose, ReplacesAnOldKnownSuffix)
{
    EXPECT_EQ(AdapterNaming::compose(u"Audio (en7)"_s, u"DONGLE"_s, known), u"Audio (DONGLE)"_s);
}

TEST(AdapterNamingCompose, IsStable)
{
    const QString once = AdapterNaming::compose(u"Audio"_s, u"DONGLE"_s, known);
    EXPECT_EQ(AdapterNaming::compose(once, u"DONGLE"_s, known), once);
}

TEST(AdapterNamingCompose, EmptyLabelGivesTheStrippedName)
{
    EXPECT_EQ(AdapterNaming::compose(u" Audio (DONGLE) "_s, u""_s, known), u"Audio"_s);
}

TEST(AdapterNamingCompose, UnknownSuffixIsKeptAndTheNewOneAdded)
{
    EXPECT_EQ(AdapterNaming::compose(u"Mix (L+R)"_s, u"DONGLE"_s, known), u"Mix (L+R) (DONGLE)"_s);
}

} // namespace
