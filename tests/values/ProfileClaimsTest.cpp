#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/Profile.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const MachineIdentity foh{u"FOH"_s, u"0a1b2c3d4e5f"_s};
const MachineIdentity unmarked{u"FOH"_s, QString()};

HostAssignment claimOf(const QString &host, const QString &machine,
                       const std::optional<QString> &machineID = std::nullopt)
{
    return HostAssignment{host, machine, machineID};
}

Profile withClaims(const QList<HostAssignment> &claims)
{
    return Profile{.name = u"Show"_s, .assignments = claims};
}

ProfileEntry manualEntry(qint64 tag, const QString &address)
{
    return ProfileEntry{
        tag, u"VLAN"_s,
        IPConfig{
            IPMode::manual, address, u"255.255.255.0"_s, u"192.168.10.1"_s, {u"192.168.10.1"_s}},
        true};
}

QStringList hostsOf(const QList<HostAssignment> &claims)
{
    QStringList hosts;
    for (const HostAssignment &claim : claims)
        hosts.append(claim.host);
    return hosts;
}

TEST(ProfileClaims, MarkedMachineFindsItsClaimByMarkAfterARename)
{
    const Profile project = withClaims({claimOf(u"69"_s, u"Old Name"_s, foh.id)});
    const MachineIdentity renamed{u"New Name"_s, foh.id};
    EXPECT_EQ(project.claim(renamed), Profile::Claim::own(claimOf(u"69"_s, u"Old Name"_s, foh.id)));
    // The name in the file stays old until the next claim, which brings the new one.
    EXPECT_EQ(project.assignments->first().machine, u"Old Name"_s);
    const Profile claimedAgain = project.recording(renamed, u"69"_s);
    EXPECT_EQ(claimedAgain.assignments,
              (QList<HostAssignment>{claimOf(u"69"_s, u"New Name"_s, foh.id)}));
}

TEST(ProfileClaims, UnmarkedMachineFindsClaimsByNameAlone)
{
    const Profile project = withClaims({claimOf(u"70"_s, u"Lighting"_s, u"ffffffffffff"_s),
                                        claimOf(u"69"_s, u"FOH"_s, u"ffffffffffff"_s)});
    EXPECT_EQ(project.claim(unmarked),
              Profile::Claim::own(claimOf(u"69"_s, u"FOH"_s, u"ffffffffffff"_s)));
}

TEST(ProfileClaims, UnmarkedMachineMadeAndDidNotMakeAgreeOnTheName)
{
    const QList<HostAssignment> claims{
        claimOf(u"1"_s, u"FOH"_s), claimOf(u"2"_s, u"FOH"_s, u"0a1b2c3d4e5f"_s),
        claimOf(u"3"_s, u"Lighting"_s), claimOf(u"4"_s, u"Lighting"_s, u"0a1b2c3d4e5f"_s)};
    for (const HostAssignment &claim : claims) {
        EXPECT_EQ(unmarked.made(claim), claim.machine == u"FOH"_s) << claim.host.toStdString();
        EXPECT_EQ(unmarked.didNotMake(claim), !unmarked.made(claim)) << claim.host.toStdString();
        EXPECT_FALSE(unmarked.mayHaveMade(claim)) << claim.host.toStdString();
    }
}

TEST(ProfileClaims, MachineNamesCompareInCanonicalForm)
{
    // "Zoë" with a combining diaeresis is the same name as with the composed letter.
    const MachineIdentity composed{u"Zo\u00EB"_s, QString()};
    EXPECT_TRUE(composed.made(claimOf(u"5"_s, u"Zoe\u0308"_s)));
}

TEST(ProfileClaims, MarkedMachineMeetsAnOldClaimWithItsName)
{
    const HostAssignment old = claimOf(u"69"_s, u"FOH"_s);
    const Profile project = withClaims({old});
    EXPECT_TRUE(foh.mayHaveMade(old));
    EXPECT_FALSE(foh.made(old));
    EXPECT_FALSE(foh.didNotMake(old));
    EXPECT_EQ(project.claim(foh), Profile::Claim::sameName(old));
    EXPECT_EQ(project.otherMachine(u"69"_s, foh), std::nullopt);
}

TEST(ProfileClaims, RecordingLeavesAnOldSameNameClaimOnAnotherOctet)
{
    const Profile recorded = withClaims({claimOf(u"69"_s, u"FOH"_s)}).recording(foh, u"70"_s);
    EXPECT_EQ(recorded.assignments, (QList<HostAssignment>{claimOf(u"69"_s, u"FOH"_s),
                                                           claimOf(u"70"_s, u"FOH"_s, foh.id)}));
}

TEST(ProfileClaims, RecordingReplacesAnOldSameNameClaimOnTheSameOctet)
{
    const Profile recorded = withClaims({claimOf(u"69"_s, u"FOH"_s)}).recording(foh, u"69"_s);
    EXPECT_EQ(recorded.assignments, (QList<HostAssignment>{claimOf(u"69"_s, u"FOH"_s, foh.id)}));
}

TEST(ProfileClaims, SameNameWithDifferentMarksIsSomebodyElse)
{
    const MachineIdentity first{u"Mac mini"_s, u"111111111111"_s};
    const MachineIdentity second{u"Mac mini"_s, u"222222222222"_s};
    const HostAssignment firstClaim = claimOf(u"10"_s, u"Mac mini"_s, first.id);
    const HostAssignment secondClaim = claimOf(u"11"_s, u"Mac mini"_s, second.id);
    EXPECT_TRUE(second.didNotMake(firstClaim));
    EXPECT_TRUE(first.didNotMake(secondClaim));
    EXPECT_FALSE(first.didNotMake(firstClaim));
    const Profile project = withClaims({firstClaim, secondClaim});
    EXPECT_EQ(project.claim(second), Profile::Claim::own(secondClaim));
    EXPECT_EQ(project.otherMachine(u"10"_s, second), firstClaim);
}

TEST(ProfileClaims, OtherMachineFindsASecondMachineOnTheSameOctet)
{
    const HostAssignment mine = claimOf(u"69"_s, u"FOH"_s, foh.id);
    const HostAssignment theirs = claimOf(u"69"_s, u"Lighting"_s, u"ffffffffffff"_s);
    const Profile project = withClaims({mine, theirs});
    EXPECT_EQ(project.otherMachine(u"69"_s, foh), theirs);
    EXPECT_EQ(withClaims({mine}).otherMachine(u"69"_s, foh), std::nullopt);
}

TEST(ProfileClaims, ClaimOfAnOctetHeldByAnotherMachineRemovesItsClaim)
{
    const Profile project = withClaims({claimOf(u"69"_s, u"Lighting"_s, u"ffffffffffff"_s),
                                        claimOf(u"70"_s, u"Video"_s, u"eeeeeeeeeeee"_s)});
    const Profile recorded = project.recording(foh, u"69"_s);
    EXPECT_EQ(recorded.assignments,
              (QList<HostAssignment>{claimOf(u"69"_s, u"FOH"_s, foh.id),
                                     claimOf(u"70"_s, u"Video"_s, u"eeeeeeeeeeee"_s)}));
}

TEST(ProfileClaims, RecordingMovesTheMachinesOwnClaim)
{
    const Profile project = withClaims({claimOf(u"69"_s, u"FOH"_s, foh.id)});
    const Profile recorded = project.recording(foh, u" 71\t"_s);
    EXPECT_EQ(recorded.assignments, (QList<HostAssignment>{claimOf(u"71"_s, u"FOH"_s, foh.id)}));
}

TEST(ProfileClaims, RecordingByAnUnmarkedMachineWritesNoMachineID)
{
    const Profile recorded = withClaims({}).recording(unmarked, u"9"_s);
    EXPECT_EQ(recorded.assignments, (QList<HostAssignment>{claimOf(u"9"_s, u"FOH"_s)}));
}

TEST(ProfileClaims, RecordingSortsByHostAndKeepsEverythingElse)
{
    Profile project = withClaims({claimOf(u"100"_s, u"A"_s, u"aaaaaaaaaaaa"_s)});
    project.hostOctet = u"42"_s;
    project.note = u"Note"_s;
    project.entries = {manualEntry(1010, u"192.168.10.5"_s)};
    const Profile recorded = project.recording(foh, u"9"_s);
    EXPECT_EQ(hostsOf(*recorded.assignments), (QStringList{u"9"_s, u"100"_s}));
    EXPECT_EQ(recorded.hostOctet, u"42"_s);
    EXPECT_EQ(recorded.note, u"Note"_s);
    EXPECT_EQ(recorded.entries, project.entries);
}

TEST(ProfileClaims, RosterSortsHostsAsNumbersWithTheUnreadableFirst)
{
    const Profile project =
        withClaims({claimOf(u"100"_s, u"A"_s), claimOf(u"9"_s, u"B"_s), claimOf(u"x"_s, u"C"_s)});
    EXPECT_EQ(hostsOf(project.roster()), (QStringList{u"x"_s, u"9"_s, u"100"_s}));
}

TEST(ProfileClaims, RosterKeepsTheOrderOfEqualHosts)
{
    const Profile project =
        withClaims({claimOf(u"5"_s, u"A"_s), claimOf(u"y"_s, u"B"_s), claimOf(u"0"_s, u"C"_s),
                    claimOf(u" 1"_s, u"D"_s), claimOf(u"+5"_s, u"E"_s)});
    QStringList machines;
    for (const HostAssignment &claim : project.roster())
        machines.append(claim.machine);
    // "y", "0" and " 1" all count as 0; "5" and "+5" as 5.
    EXPECT_EQ(machines, (QStringList{u"B"_s, u"C"_s, u"D"_s, u"A"_s, u"E"_s}));
}

TEST(ProfileClaims, RosterOfAProjectWithoutClaimsIsEmpty)
{
    EXPECT_TRUE(Profile{.name = u"Show"_s}.roster().isEmpty());
}

TEST(ProfileClaims, MachineTakingHostTrimsTheOctetAndIgnoresWhoMadeIt)
{
    const Profile project = withClaims({claimOf(u"69"_s, u"FOH"_s, foh.id)});
    EXPECT_EQ(project.machine(u" 69\t"_s), u"FOH"_s);
    EXPECT_EQ(project.machine(u"069"_s), std::nullopt);
    EXPECT_EQ(project.machine(u"70"_s), std::nullopt);
}

struct SuggestionCase
{
    const char *name;
    QStringList hosts;
    std::optional<QString> hostOctet;
    QString expected;
};

class SuggestedHost : public ::testing::TestWithParam<SuggestionCase>
{};

TEST_P(SuggestedHost, MatchesExpected)
{
    QList<HostAssignment> claims;
    for (const QString &host : GetParam().hosts)
        claims.append(claimOf(host, u"M"_s));
    Profile project = withClaims(claims);
    project.hostOctet = GetParam().hostOctet;
    EXPECT_EQ(project.suggestedHost(), GetParam().expected);
}

QStringList everyOctet()
{
    QStringList hosts;
    for (int i = 254; i >= 1; --i)
        hosts.append(QString::number(i));
    return hosts;
}

QStringList everyOctetBut(int missing)
{
    QStringList hosts = everyOctet();
    hosts.removeAll(QString::number(missing));
    return hosts;
}

using OrvaneTestRows::PrintTo;

INSTANTIATE_TEST_SUITE_P(
    Rows, SuggestedHost,
    ::testing::Values(
        SuggestionCase{"OneAboveTheHighest", {u"69"_s, u"70"_s}, std::nullopt, u"71"_s},
        SuggestionCase{"HighestTakenGivesTheLowestFree", {u"254"_s}, std::nullopt, u"1"_s},
        SuggestionCase{"EveryOctetTaken", everyOctet(), std::nullopt, QString()},
        SuggestionCase{"OnlyGapIsFound", everyOctetBut(17), std::nullopt, u"17"_s},
        SuggestionCase{"NothingAtAll", {}, std::nullopt, u"69"_s},
        SuggestionCase{"HostOctetIsTheBase", {}, u"100"_s, u"101"_s},
        SuggestionCase{"HostOctetAtTheTopGivesOne", {}, u"254"_s, u"1"_s},
        SuggestionCase{"EmptyHostOctet", {}, u""_s, u"69"_s},
        SuggestionCase{"UnreadableHostOctet", {}, u"x"_s, u"69"_s},
        SuggestionCase{"ClaimsOutvoteHostOctet", {u"20"_s}, u"100"_s, u"21"_s},
        SuggestionCase{"UnreadableHostsDontCount", {u"x"_s, u" 80"_s}, std::nullopt, u"69"_s},
        SuggestionCase{"ClaimBeyond254MakesTheBase", {u"300"_s, u"1"_s}, std::nullopt, u"2"_s},
        SuggestionCase{
            "HugeClaimDoesNotOverflow", {u"9223372036854775807"_s}, std::nullopt, u"1"_s},
        SuggestionCase{"SignedHostsParse", {u"+69"_s}, std::nullopt, u"70"_s}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(ProfileClaims, DetectedHostOctetIsTheOneAllAddressesShare)
{
    Profile project{.name = u"Show"_s,
                    .entries = {manualEntry(1, u"10.0.1.5"_s), manualEntry(2, u"10.0.2.5"_s),
                                ProfileEntry{3, u"D"_s, IPConfig::dhcp(), true}}};
    EXPECT_EQ(project.detectedHostOctet(), u"5"_s);
}

TEST(ProfileClaims, DetectedHostOctetFallsBackOnTheFieldWhenAddressesDisagree)
{
    Profile project{.name = u"Show"_s,
                    .entries = {manualEntry(1, u"10.0.1.5"_s), manualEntry(2, u"10.0.2.6"_s)}};
    EXPECT_EQ(project.detectedHostOctet(), std::nullopt);
    project.hostOctet = u"9"_s;
    EXPECT_EQ(project.detectedHostOctet(), u"9"_s);
}

TEST(ProfileClaims, DetectedHostOctetDropsEmptyPiecesAndAddresslessEntries)
{
    Profile project{.name = u"Show"_s,
                    .hostOctet = u"9"_s,
                    .entries = {manualEntry(1, u"10.0.1.5."_s), manualEntry(2, u"..."_s),
                                manualEntry(3, u"5"_s)}};
    project.entries.append(ProfileEntry{4, u"E"_s, IPConfig{IPMode::manual, {}, {}, {}, {}}, true});
    EXPECT_EQ(project.detectedHostOctet(), u"5"_s);
}

TEST(ProfileClaims, DetectedHostOctetWithoutManualAddressesIsTheField)
{
    Profile project{.name = u"Show"_s,
                    .hostOctet = u"9"_s,
                    .entries = {ProfileEntry{1, u"D"_s, IPConfig::dhcp(), true}}};
    EXPECT_EQ(project.detectedHostOctet(), u"9"_s);
}

Profile rehostable()
{
    ProfileEntry dhcp{3, u"D"_s, IPConfig::dhcp(), true};
    dhcp.ip.address = u"10.0.3.5"_s;
    return Profile{
        .name = u"Show"_s,
        .hostOctet = u"5"_s,
        .entries = {manualEntry(1, u"192.168.10.5"_s), manualEntry(2, u"10.0.5"_s), dhcp}};
}

TEST(ProfileClaims, RehostedRefusesAnOctetOutOfRangeOrEmpty)
{
    for (const QString &octet : {u"256"_s, u""_s, u"  "_s, u"-1"_s, u"x"_s})
        EXPECT_EQ(rehostable().rehosted(octet), rehostable()) << octet.toStdString();
}

TEST(ProfileClaims, RehostedMovesEveryWholeManualAddress)
{
    const Profile moved = rehostable().rehosted(u" 7\t"_s);
    EXPECT_EQ(moved.entries.at(0).ip.address, u"192.168.10.7"_s);
    // Router, mask and DNS stay.
    EXPECT_EQ(moved.entries.at(0).ip.router, u"192.168.10.1"_s);
    EXPECT_EQ(moved.entries.at(0).ip.subnetMask, u"255.255.255.0"_s);
    EXPECT_EQ(moved.entries.at(0).ip.dns, QStringList{u"192.168.10.1"_s});
    // Three pieces: left alone. Other modes: left alone.
    EXPECT_EQ(moved.entries.at(1).ip.address, u"10.0.5"_s);
    EXPECT_EQ(moved.entries.at(2).ip.address, u"10.0.3.5"_s);
    EXPECT_EQ(moved.hostOctet, u"7"_s);
    EXPECT_EQ(moved.name, u"Show"_s);
}

TEST(ProfileClaims, RehostedWritesTheOctetAsTyped)
{
    const Profile moved = rehostable().rehosted(u"+7"_s);
    EXPECT_EQ(moved.entries.at(0).ip.address, u"192.168.10.+7"_s);
    EXPECT_EQ(moved.hostOctet, u"+7"_s);
}

TEST(ProfileClaims, RehostedDropsEmptyPiecesOfAnAddress)
{
    Profile project{.name = u"Show"_s, .entries = {manualEntry(1, u"10..0.1.5"_s)}};
    EXPECT_EQ(project.rehosted(u"0"_s).entries.at(0).ip.address, u"10.0.1.0"_s);
}

TEST(ProfileClaims, SavingOverAProjectWithAnEmptyOctetKeepsItsClaimsAsTheyAre)
{
    const Profile existing =
        withClaims({claimOf(u"70"_s, u"Lighting"_s), claimOf(u"69"_s, u"FOH"_s, foh.id)});
    Profile capture{.name = u"New capture"_s, .entries = {manualEntry(1, u"10.0.1.5"_s)}};
    for (const QString &octet : {u""_s, u" \t"_s}) {
        const Profile saved = capture.saving(existing, foh, octet);
        EXPECT_EQ(saved.assignments, existing.assignments);
        EXPECT_EQ(saved.name, u"New capture"_s);
        EXPECT_EQ(saved.entries, capture.entries);
    }
}

TEST(ProfileClaims, SavingOverAProjectCarriesItsClaimsAndRecordsTheOctet)
{
    const Profile existing = withClaims({claimOf(u"70"_s, u"Lighting"_s, u"ffffffffffff"_s)});
    const Profile saved = Profile{.name = u"New"_s}.saving(existing, foh, u"69"_s);
    EXPECT_EQ(saved.assignments,
              (QList<HostAssignment>{claimOf(u"69"_s, u"FOH"_s, foh.id),
                                     claimOf(u"70"_s, u"Lighting"_s, u"ffffffffffff"_s)}));
}

TEST(ProfileClaims, SavingOverAProjectWithoutClaimsTakesItsAbsence)
{
    const Profile capture = withClaims({claimOf(u"1"_s, u"A"_s)});
    const Profile saved = capture.saving(Profile{.name = u"Old"_s}, foh, QString());
    EXPECT_EQ(saved.assignments, std::nullopt);
}

TEST(ProfileClaims, SavingWithoutAProjectKeepsItsOwnClaims)
{
    const Profile capture = withClaims({claimOf(u"1"_s, u"A"_s)});
    EXPECT_EQ(capture.saving(std::nullopt, foh, QString()), capture);
    EXPECT_EQ(hostsOf(*capture.saving(std::nullopt, foh, u"2"_s).assignments),
              (QStringList{u"1"_s, u"2"_s}));
}

TEST(ProfileClaims, ClaimsCompareByCaseAndPayload)
{
    const HostAssignment claim = claimOf(u"69"_s, u"FOH"_s);
    EXPECT_EQ(Profile::Claim::own(claim), Profile::Claim::own(claim));
    EXPECT_NE(Profile::Claim::own(claim), Profile::Claim::sameName(claim));
    EXPECT_NE(Profile::Claim::own(claim), Profile::Claim::own(claimOf(u"70"_s, u"FOH"_s)));
    EXPECT_EQ(withClaims({claimOf(u"70"_s, u"Lighting"_s)}).claim(foh), Profile::Claim::none());
}

} // namespace
