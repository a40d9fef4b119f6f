#include "VLANKit/project/AddressPlan.h"

#include "VLANKit/files/Defaults.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;

AddressPlan planWithHost(const QString &host, const QString &third = {})
{
    AddressPlan plan;
    plan.octet3 = third;
    plan.host = host;
    return plan;
}

struct TagRow
{
    const char *name;
    qint64 tag;
    qint64 thirdOctet;
    bool fallback;
};

class TagRule : public ::testing::TestWithParam<TagRow>
{};

TEST_P(TagRule, GivesThirdOctetAndFallback)
{
    EXPECT_EQ(AddressPlan::thirdOctetForTag(GetParam().tag), GetParam().thirdOctet);
    EXPECT_EQ(AddressPlan::usesFallbackForTag(GetParam().tag), GetParam().fallback);
}

INSTANTIATE_TEST_SUITE_P(
    Table, TagRule,
    ::testing::Values(TagRow{"Tag1", 1, 1, false}, TagRow{"Tag255", 255, 255, false},
                      TagRow{"Tag256", 256, 56, true}, TagRow{"Tag300", 300, 0, true},
                      TagRow{"Tag999", 999, 99, true}, TagRow{"Tag1000", 1000, 0, false},
                      TagRow{"Tag1010", 1010, 10, false}, TagRow{"Tag1012", 1012, 12, false},
                      TagRow{"Tag1255", 1255, 255, false}, TagRow{"Tag1256", 1256, 56, true},
                      TagRow{"Tag2010", 2010, 10, false}, TagRow{"Tag4094", 4094, 94, false}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(AddressPlan, TagBelowOneGivesNoThirdOctet)
{
    EXPECT_EQ(AddressPlan::thirdOctetForTag(0), std::nullopt);
    EXPECT_EQ(AddressPlan::thirdOctetForTag(-3), std::nullopt);
    EXPECT_FALSE(AddressPlan::usesFallbackForTag(0));
}

TEST(AddressPlan, StartingPlan)
{
    const AddressPlan plan = AddressPlan::starting();
    EXPECT_EQ(plan.octet1, u"192"_s);
    EXPECT_EQ(plan.octet2, u"168"_s);
    EXPECT_EQ(plan.octet3, u""_s);
    EXPECT_EQ(plan.host, u""_s);
    EXPECT_EQ(plan.subnetMask, u"255.255.255.0"_s);
    EXPECT_FALSE(plan.isUsable());
}

TEST(AddressPlan, StartingPlanWithHostDerivesFromTag)
{
    const AddressPlan plan = planWithHost(u"5"_s);
    EXPECT_EQ(plan.addressForTag(1010), u"192.168.10.5"_s);
    EXPECT_EQ(plan.addressForTag(1256), u"192.168.56.5"_s);
    EXPECT_EQ(plan.addressForTag(0), std::nullopt);
    EXPECT_EQ(plan.addressForTag(-3), std::nullopt);
    EXPECT_EQ(plan.addressForTag(std::nullopt), std::nullopt);
}

TEST(AddressPlan, PinnedThirdOctetIgnoresTheTag)
{
    const AddressPlan plan = planWithHost(u"5"_s, u"7"_s);
    EXPECT_EQ(plan.addressForTag(1010), u"192.168.7.5"_s);
    EXPECT_EQ(plan.addressForTag(0), u"192.168.7.5"_s);
    EXPECT_EQ(plan.addressForTag(std::nullopt), u"192.168.7.5"_s);
    EXPECT_TRUE(plan.pinsSubnet());
}

TEST(AddressPlan, BlankThirdOctetDoesNotPinButPrefixKeepsTheBlanks)
{
    const AddressPlan plan = planWithHost(u"5"_s, u"  "_s);
    EXPECT_FALSE(plan.pinsSubnet());
    EXPECT_EQ(plan.addressForTag(1012), u"192.168.12.5"_s);
    EXPECT_EQ(plan.prefix(), u"192.168.  "_s);
    EXPECT_TRUE(plan.isUsable());
}

TEST(AddressPlan, ThirdOctet300PinsButIsUnusable)
{
    const AddressPlan plan = planWithHost(u"5"_s, u"300"_s);
    EXPECT_TRUE(plan.pinsSubnet());
    EXPECT_FALSE(plan.isUsable());
    for (qint64 tag : {1, 1010, 4094})
        EXPECT_EQ(plan.addressForTag(tag), std::nullopt);
    EXPECT_EQ(plan.exampleForTag(1010), u"192.168.300.5"_s);
}

TEST(AddressPlan, BlankHostIsUnusableAndPrintedAsTyped)
{
    const AddressPlan plan = planWithHost(u"  "_s);
    EXPECT_FALSE(plan.isUsable());
    EXPECT_EQ(plan.exampleForTag(1010), u"192.168.\u2014.  "_s);
}

TEST(AddressPlan, ExampleOfTheStartingPlan)
{
    EXPECT_EQ(AddressPlan::starting().exampleForTag(1010), u"192.168.\u2014.N"_s);
}

TEST(AddressPlan, ExampleWithPinnedSubnetAndNoHost)
{
    EXPECT_EQ(planWithHost(u""_s, u"50"_s).exampleForTag(1010), u"192.168.50.N"_s);
}

TEST(AddressPlan, OctetsAreReadByTheStrictParse)
{
    AddressPlan plan = planWithHost(u" +7 "_s, u"\t010 "_s);
    plan.octet1 = u"-0"_s;
    plan.octet2 = u"007"_s;
    EXPECT_EQ(plan.addressForTag(1), u"0.7.10.7"_s);
    plan.host = u"-1"_s;
    EXPECT_EQ(plan.addressForTag(1), std::nullopt);
    plan.host = u"256"_s;
    EXPECT_FALSE(plan.isUsable());
    plan.host = u"5\n"_s;
    EXPECT_FALSE(plan.isUsable());
}

TEST(AddressPlan, PrefixAsTyped)
{
    EXPECT_EQ(planWithHost(u"5"_s).prefix(), u"192.168"_s);
    EXPECT_EQ(planWithHost(u"5"_s, u"07"_s).prefix(), u"192.168.07"_s);
}

TEST(AddressPlan, FromEmptyPrefixGivesThreeEmptyOctets)
{
    const AddressPlan plan = AddressPlan::fromPrefix(u""_s, u"9"_s);
    EXPECT_EQ(plan.octet1, u""_s);
    EXPECT_EQ(plan.octet2, u""_s);
    EXPECT_EQ(plan.octet3, u""_s);
    EXPECT_EQ(plan.host, u"9"_s);
    EXPECT_EQ(plan.subnetMask, u"255.255.255.0"_s);
}

TEST(AddressPlan, FromPrefixDropsEmptyPiecesAndExtraOnes)
{
    const AddressPlan plan = AddressPlan::fromPrefix(u"10..1.2.3"_s, u" x "_s);
    EXPECT_EQ(plan.octet1, u"10"_s);
    EXPECT_EQ(plan.octet2, u"1"_s);
    EXPECT_EQ(plan.octet3, u"2"_s);
    EXPECT_EQ(plan.host, u" x "_s);
}

TEST(AddressPlan, EncodesAllFiveKeys)
{
    const AddressPlan plan = planWithHost(u"5"_s, u"7"_s);
    const QJsonObject object = QJsonDocument::fromJson(plan.encoded()).object();
    EXPECT_EQ(object.size(), 5);
    EXPECT_EQ(object.value(u"octet1"_s).toString(), u"192"_s);
    EXPECT_EQ(object.value(u"octet3"_s).toString(), u"7"_s);
    EXPECT_EQ(object.value(u"host"_s).toString(), u"5"_s);
    EXPECT_EQ(object.value(u"subnetMask"_s).toString(), u"255.255.255.0"_s);
    EXPECT_FALSE(plan.encoded().contains('\n'));
    EXPECT_EQ(AddressPlan::decoded(plan.encoded()), plan);
}

TEST(AddressPlan, DecodesLegacyPrefix)
{
    const auto plan = AddressPlan::decoded(R"({"prefix":"10.20.30","host":"4"})");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->octet1, u"10"_s);
    EXPECT_EQ(plan->octet2, u"20"_s);
    EXPECT_EQ(plan->octet3, u"30"_s);
    EXPECT_EQ(plan->host, u"4"_s);
    EXPECT_EQ(plan->subnetMask, u"255.255.255.0"_s);
}

TEST(AddressPlan, LegacyFormWithoutPrefixTakesTheOldDefaults)
{
    const auto plan = AddressPlan::decoded(R"({"host":"4"})");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->octet1, u"192"_s);
    EXPECT_EQ(plan->octet2, u"168"_s);
    EXPECT_EQ(plan->octet3, u""_s);
}

TEST(AddressPlan, PresentEmptyOctet1StaysEmpty)
{
    const auto plan = AddressPlan::decoded(R"({"octet1":"","host":"4"})");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->octet1, u""_s);
    EXPECT_EQ(plan->octet2, u""_s);
}

TEST(AddressPlan, SanitisingDropsLettersThenCutsToThree)
{
    const auto plan =
        AddressPlan::decoded(R"({"octet1":"1a2b3c4","octet2":"","octet3":"","host":" 7 "})");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->octet1, u"123"_s);
    EXPECT_EQ(plan->host, u"7"_s);
}

TEST(AddressPlan, SanitisingKeepsAnyScriptsNumbers)
{
    const auto plan =
        AddressPlan::decoded(u"{\"octet1\":\"\u0661\u0662x\u0663\u0664\"}"_s.toUtf8());
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->octet1, u"\u0661\u0662\u0663"_s);
}

TEST(AddressPlan, MaskIsTakenAsItStands)
{
    const auto plan = AddressPlan::decoded(R"({"octet1":"10","subnetMask":" junk "})");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->subnetMask, u" junk "_s);
}

TEST(AddressPlan, MistypedKeyFailsTheDecoding)
{
    EXPECT_EQ(AddressPlan::decoded(R"({"octet1":192})"), std::nullopt);
    EXPECT_EQ(AddressPlan::decoded(R"({"prefix":["10"]})"), std::nullopt);
    EXPECT_EQ(AddressPlan::decoded("not json"), std::nullopt);
    EXPECT_EQ(AddressPlan::decoded("[]"), std::nullopt);
}

class StoredAddressPlan : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    Defaults defaults = Defaults::inFile(folder.filePath(u"defaults.plist"_s));
    const QString key = u"Orvane.addressPlan"_s;
};

TEST_F(StoredAddressPlan, NothingStoredGivesTheStartingPlan)
{
    EXPECT_EQ(AddressPlan::load(defaults), AddressPlan::starting());
}

TEST_F(StoredAddressPlan, SavedPlanLoadsBack)
{
    const AddressPlan plan = planWithHost(u"12"_s, u"40"_s);
    plan.save(defaults);
    EXPECT_EQ(AddressPlan::load(defaults), plan);
}

TEST_F(StoredAddressPlan, FiveKeyFormLoadsAndIsNotRewritten)
{
    const QByteArray stored =
        R"({"host":"4","octet1":"10","octet2":"1","octet3":"","subnetMask":"255.255.0.0"})";
    defaults.setData(key, stored);
    const AddressPlan plan = AddressPlan::load(defaults);
    EXPECT_EQ(plan.octet1, u"10"_s);
    EXPECT_EQ(plan.subnetMask, u"255.255.0.0"_s);
    EXPECT_EQ(defaults.data(key), stored);
}

TEST_F(StoredAddressPlan, LegacyPrefixIsWrittenBackInFiveKeyForm)
{
    defaults.setData(key, R"({"prefix":"10.20.30","host":"4"})");
    const AddressPlan plan = AddressPlan::load(defaults);
    EXPECT_EQ(plan.octet3, u"30"_s);
    const QJsonObject rewritten = QJsonDocument::fromJson(*defaults.data(key)).object();
    EXPECT_EQ(rewritten.value(u"octet1"_s).toString(), u"10"_s);
    EXPECT_EQ(rewritten.value(u"octet3"_s).toString(), u"30"_s);
    EXPECT_EQ(rewritten.value(u"host"_s).toString(), u"4"_s);
    EXPECT_FALSE(rewritten.contains(u"prefix"_s));
}

TEST_F(StoredAddressPlan, MistypedKeyGivesStartingPlanAndLeavesTheData)
{
    const QByteArray stored = R"({"octet1":192,"host":"4"})";
    defaults.setData(key, stored);
    EXPECT_EQ(AddressPlan::load(defaults), AddressPlan::starting());
    EXPECT_EQ(defaults.data(key), stored);
}

TEST_F(StoredAddressPlan, UnreadableBlobGivesStartingPlanAndLeavesTheData)
{
    const QByteArray stored("\x00\xff garbage", 10);
    defaults.setData(key, stored);
    EXPECT_EQ(AddressPlan::load(defaults), AddressPlan::starting());
    EXPECT_EQ(defaults.data(key), stored);
}

TEST_F(StoredAddressPlan, AStringInsteadOfDataGivesTheStartingPlan)
{
    defaults.setString(key, u"{\"octet1\":\"10\"}"_s);
    EXPECT_EQ(AddressPlan::load(defaults), AddressPlan::starting());
}

} // namespace
