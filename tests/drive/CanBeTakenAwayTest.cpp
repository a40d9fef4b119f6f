#include "OrvaneApp/drive/VolumeFacts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using DriveCare::VolumeFacts;

namespace {

using Fact = std::optional<bool>;
constexpr std::array<Fact, 3> everyState = {Fact{}, Fact{false}, Fact{true}};

VolumeFacts factsOf(bool isRoot, Fact isInternal, Fact isRemovable, Fact isEjectable, Fact isLocal)
{
    VolumeFacts facts;
    facts.volume = QStringLiteral("/media/stick");
    facts.isRoot = isRoot;
    facts.isInternal = isInternal;
    facts.isRemovable = isRemovable;
    facts.isEjectable = isEjectable;
    facts.isLocal = isLocal;
    return facts;
}

struct TruthRow
{
    const char *name;
    VolumeFacts facts;
    bool canGo;
};

class CanBeTakenAwayRows : public ::testing::TestWithParam<TruthRow>
{};

} // namespace

TEST_P(CanBeTakenAwayRows, MatchesTheRuleInItsOrder)
{
    EXPECT_EQ(GetParam().facts.canBeTakenAway(), GetParam().canGo);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CanBeTakenAwayRows,
    ::testing::Values(
        TruthRow{"RootReportingRemovableStays", factsOf(true, false, true, true, true), false},
        TruthRow{"RootOnTheNetworkStays", factsOf(true, {}, {}, {}, false), false},
        TruthRow{"NetworkVolumeReportingInternalCanGo", factsOf(false, true, false, false, false),
                 true},
        TruthRow{"AllFourOptionalFactsUnknownStays", factsOf(false, {}, {}, {}, {}), false},
        TruthRow{"OnlyInternalKnownAndFalseCanGo", factsOf(false, false, {}, {}, {}), true},
        TruthRow{"OnlyInternalKnownAndTrueStays", factsOf(false, true, {}, {}, {}), false},
        TruthRow{"EjectableAndInternalCanGo", factsOf(false, true, {}, true, true), true},
        TruthRow{"RemovableAndInternalCanGo", factsOf(false, true, true, false, true), true},
        TruthRow{"UnknownLocalPassesOverItsRule", factsOf(false, true, false, false, {}), false},
        TruthRow{"LocalInternalFixedDiskStays", factsOf(false, true, false, false, true), false},
        TruthRow{"UnknownRemovableAndEjectableCountAsNo", factsOf(false, true, {}, {}, true),
                 false},
        TruthRow{"UsbStickCanGo", factsOf(false, false, true, true, true), true}),
    [](const auto &row) { return std::string(row.param.name); });

// Every combination of the five facts against the rule said another way: the root stays, and
// otherwise any one sign that the volume can go is enough.
TEST(CanBeTakenAway, EveryCombinationFollowsTheRule)
{
    int combinations = 0;
    for (const bool isRoot : {false, true}) {
        for (const Fact isInternal : everyState) {
            for (const Fact isRemovable : everyState) {
                for (const Fact isEjectable : everyState) {
                    for (const Fact isLocal : everyState) {
                        const bool expected = !isRoot
                                              && (isLocal == false || isRemovable == true
                                                  || isEjectable == true || isInternal == false);
                        const VolumeFacts facts =
                            factsOf(isRoot, isInternal, isRemovable, isEjectable, isLocal);
                        EXPECT_EQ(facts.canBeTakenAway(), expected) << ::testing::PrintToString(
                            std::array{isInternal, isRemovable, isEjectable, isLocal});
                        ++combinations;
                    }
                }
            }
        }
    }
    EXPECT_EQ(combinations, 2 * 81);
}
