#include "VLANKit/project/ProfileIO.h"

#include "VLANKit/core/VLANError.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray golden(const QString &name)
{
    return contents(TemporaryFolder::repositoryPath(u"tests/values/golden/"_s + name));
}

IPConfig manual(const QString &address, const std::optional<QString> &router,
                const QStringList &dns)
{
    return IPConfig{IPMode::manual, address, u"255.255.255.0"_s, router, dns};
}

IPConfig plain(IPMode mode)
{
    return IPConfig{mode, std::nullopt, std::nullopt, std::nullopt, {}};
}

Profile minimalProfile()
{
    return Profile{.name = u"Show"_s,
                   .entries = {ProfileEntry{1010, u"Stage"_s, IPConfig::dhcp(), true}}};
}

Profile fullProfile()
{
    return Profile{.name = u"Show 2026"_s,
                   .note = u"Captured from Main by Orvane"_s,
                   .capturedFrom = u"en7"_s,
                   .hostOctet = u"69"_s,
                   .addressPrefix = u"10.0"_s,
                   .assignments = QList<HostAssignment>{{u"68"_s, u"FOH"_s, u"0a1b2c3d4e5f"_s},
                                                        {u"69"_s, u"Lighting"_s, std::nullopt}},
                   .entries = {ProfileEntry{1010, u"Audio"_s,
                                            manual(u"10.0.10.69"_s, u"10.0.10.1"_s,
                                                   {u"10.0.10.1"_s, u"1.1.1.1"_s}),
                                            true},
                               ProfileEntry{1012, u"Video"_s, plain(IPMode::dhcp), false},
                               ProfileEntry{1020, u"Control"_s, plain(IPMode::linkLocal), true},
                               ProfileEntry{2001, u"Spare"_s, plain(IPMode::off), false},
                               ProfileEntry{4094, u"Odd"_s, plain(IPMode::unknown), false}}};
}

Profile unicodeProfile()
{
    IPConfig withoutRouter = manual(u"192.168.100.7"_s, std::nullopt, {});
    return Profile{
        .name = u"B\u00FChne \u2013 \u201ES\u00FCd\u201C \U0001F39B"_s,
        .note = u"Captured from \u201CHaus\u201D by Orvane"_s,
        .capturedFrom = u"en0"_s,
        .hostOctet = u"7"_s,
        .addressPrefix = u"192.168"_s,
        .assignments =
            QList<HostAssignment>{{u"7"_s, u"Zo\u00EB\u2019s MacBook Pro"_s, u"ffeeddccbbaa"_s}},
        .entries = {
            ProfileEntry{100, u"\u7167\u660E"_s, withoutRouter, true},
            ProfileEntry{200, u"\u0422\u043E\u043D"_s,
                         manual(u"192.168.200.7"_s, u"192.168.200.1"_s, {u"192.168.200.1"_s}),
                         true},
            // Written as it stands: a combining accent is not composed on the way.
            ProfileEntry{300, u"Cafe\u0301 / \"A\" \\ B\tC"_s, plain(IPMode::dhcp), false}}};
}

/// The profile that a file of these bytes reads as.
Profile readBytes(const TemporaryFolder &folder, const QByteArray &bytes)
{
    return ProfileIO::read(folder.write(u"show.json"_s, bytes));
}

QJsonObject writtenObject(const Profile &profile)
{
    return QJsonDocument::fromJson(ProfileIO::encoded(profile)).object();
}

struct GoldenCase
{
    const char *name;
    const char *file;
    Profile (*profile)();
};

class ProfileGolden : public ::testing::TestWithParam<GoldenCase>
{};

TEST_P(ProfileGolden, WriteGivesTheGoldenBytes)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ProfileIO::write(GetParam().profile(), path);
    EXPECT_EQ(contents(path), golden(QString::fromLatin1(GetParam().file)));
}

TEST_P(ProfileGolden, GoldenFileReadsAsTheProfile)
{
    TemporaryFolder folder;
    const QByteArray bytes = golden(QString::fromLatin1(GetParam().file));
    ASSERT_FALSE(bytes.isEmpty());
    EXPECT_EQ(readBytes(folder, bytes), GetParam().profile());
}

TEST_P(ProfileGolden, RoundTripGivesAnEqualProfile)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ProfileIO::write(GetParam().profile(), path);
    EXPECT_EQ(ProfileIO::read(path), GetParam().profile());
}

TEST_P(ProfileGolden, TwoWritesGiveIdenticalBytes)
{
    TemporaryFolder folder;
    const QString first = folder.filePath(u"one.json"_s);
    const QString second = folder.filePath(u"two.json"_s);
    ProfileIO::write(GetParam().profile(), first);
    ProfileIO::write(ProfileIO::read(first), second);
    EXPECT_EQ(contents(first), contents(second));
}

using OrvaneTestRows::PrintTo;

INSTANTIATE_TEST_SUITE_P(
    Rows, ProfileGolden,
    ::testing::Values(GoldenCase{"AllOptionalsAbsent", "profile-minimal.json", minimalProfile},
                      GoldenCase{"AllOptionalsPresent", "profile-full.json", fullProfile},
                      GoldenCase{"UnicodeNames", "profile-unicode.json", unicodeProfile}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(ProfileIO, AllOptionalsAbsentWritesOnlyNameAndEntries)
{
    const QJsonObject written = writtenObject(minimalProfile());
    EXPECT_EQ(written.keys(), (QStringList{u"entries"_s, u"name"_s}));
    const QJsonObject ip = written[u"entries"_s][0][u"ip"_s].toObject();
    EXPECT_EQ(ip.keys(), (QStringList{u"dns"_s, u"mode"_s}));
}

TEST(ProfileIO, EmptyAssignmentsAreWrittenAsAnEmptyArray)
{
    Profile profile = minimalProfile();
    profile.assignments = QList<HostAssignment>{};
    const QJsonObject written = writtenObject(profile);
    ASSERT_TRUE(written.contains(u"assignments"_s));
    EXPECT_EQ(written[u"assignments"_s], QJsonValue(QJsonArray{}));
}

TEST(ProfileIO, EmptyAssignmentsReadBackEmptyNotAbsent)
{
    TemporaryFolder folder;
    const Profile profile = readBytes(folder, R"({"name":"Show","entries":[],"assignments":[]})");
    ASSERT_TRUE(profile.assignments.has_value());
    EXPECT_TRUE(profile.assignments->isEmpty());
}

TEST(ProfileIO, EntryWithEmptyDnsReads)
{
    TemporaryFolder folder;
    const Profile profile =
        readBytes(folder, R"({"name":"Show","entries":[{"tag":1010,"name":"A","enabled":true,)"
                          R"("ip":{"mode":"DHCP","dns":[]}}]})");
    ASSERT_EQ(profile.entries.size(), 1);
    EXPECT_TRUE(profile.entries.first().ip.dns.isEmpty());
}

TEST(ProfileIO, ModeUnknownReads)
{
    TemporaryFolder folder;
    const Profile profile =
        readBytes(folder, R"({"name":"Show","entries":[{"tag":1010,"name":"A","enabled":true,)"
                          R"("ip":{"mode":"Unknown","dns":[]}}]})");
    ASSERT_EQ(profile.entries.size(), 1);
    EXPECT_EQ(profile.entries.first().ip.mode, IPMode::unknown);
}

TEST(ProfileIO, ExtraKeysAreDroppedAndGoneAfterWritingAgain)
{
    TemporaryFolder folder;
    const QString path = folder.write(
        u"show.json"_s,
        R"({"name":"Show","version":3,"entries":[{"tag":1010,"name":"A","enabled":true,)"
        R"("colour":"red","ip":{"mode":"DHCP","dns":[],"mtu":9000}}],)"
        R"("assignments":[{"host":"5","machine":"FOH","since":"2026"}]})");
    const Profile profile = ProfileIO::read(path);
    ProfileIO::write(profile, path);
    const QByteArray rewritten = contents(path);
    for (const char *key : {"version", "colour", "mtu", "since"})
        EXPECT_FALSE(rewritten.contains(key)) << key;
    EXPECT_EQ(ProfileIO::read(path), profile);
}

TEST(ProfileIO, NullInAnOptionalKeyReadsAsAbsent)
{
    TemporaryFolder folder;
    const Profile profile = readBytes(
        folder, R"({"name":"Show","note":null,"capturedFrom":null,"hostOctet":null,)"
                R"("addressPrefix":null,"assignments":null,"entries":[{"tag":1,"name":"A",)"
                R"("enabled":false,"ip":{"mode":"Manual","address":null,"subnetMask":null,)"
                R"("router":null,"dns":[]}}]})");
    EXPECT_EQ(profile.note, std::nullopt);
    EXPECT_EQ(profile.capturedFrom, std::nullopt);
    EXPECT_EQ(profile.hostOctet, std::nullopt);
    EXPECT_EQ(profile.addressPrefix, std::nullopt);
    EXPECT_EQ(profile.assignments, std::nullopt);
    ASSERT_EQ(profile.entries.size(), 1);
    EXPECT_EQ(profile.entries.first().ip,
              (IPConfig{IPMode::manual, std::nullopt, std::nullopt, std::nullopt, {}}));
}

TEST(ProfileIO, NothingIsTrimmedOrCheckedOnReading)
{
    TemporaryFolder folder;
    const Profile profile = readBytes(
        folder, R"({"name":" Show\t","hostOctet":" 69 ","entries":[{"tag":99999,"name":"",)"
                R"("enabled":true,"ip":{"mode":"Manual","address":"not an address",)"
                R"("dns":[" 1.1.1.1"]}},{"tag":-5,"name":"B","enabled":false,"ip":{"mode":"Off",)"
                R"("dns":[]}}]})");
    EXPECT_EQ(profile.name, u" Show\t"_s);
    EXPECT_EQ(profile.hostOctet, u" 69 "_s);
    ASSERT_EQ(profile.entries.size(), 2);
    EXPECT_EQ(profile.entries.at(0).tag, 99999);
    EXPECT_EQ(profile.entries.at(0).name, QString());
    EXPECT_EQ(profile.entries.at(0).ip.address, u"not an address"_s);
    EXPECT_EQ(profile.entries.at(0).ip.dns, QStringList{u" 1.1.1.1"_s});
    EXPECT_EQ(profile.entries.at(1).tag, -5);
}

TEST(ProfileIO, WholeRealTagReadsAsItsInteger)
{
    TemporaryFolder folder;
    const Profile profile =
        readBytes(folder, R"({"name":"Show","entries":[{"tag":1010.0,"name":"A","enabled":true,)"
                          R"("ip":{"mode":"DHCP","dns":[]}}]})");
    ASSERT_EQ(profile.entries.size(), 1);
    EXPECT_EQ(profile.entries.first().tag, 1010);
}

TEST(ProfileIO, LargestIntegerTagKeepsAllItsDigits)
{
    TemporaryFolder folder;
    const Profile profile = readBytes(
        folder, R"({"name":"Show","entries":[{"tag":9223372036854775807,"name":"A","enabled":true,)"
                R"("ip":{"mode":"DHCP","dns":[]}}]})");
    ASSERT_EQ(profile.entries.size(), 1);
    EXPECT_EQ(profile.entries.first().tag, std::numeric_limits<qint64>::max());
}

TEST(ProfileIO, LegacyFileWithOnlyHostOctetReadsWithoutClaims)
{
    TemporaryFolder folder;
    const QString path = folder.write(
        u"old.json"_s,
        R"({"name":"Old","hostOctet":"42","entries":[{"tag":1010,"name":"A","enabled":true,)"
        R"("ip":{"mode":"Manual","address":"10.0.10.42","subnetMask":"255.255.255.0",)"
        R"("dns":[]}}]})");
    const Profile profile = ProfileIO::read(path);
    EXPECT_EQ(profile.hostOctet, u"42"_s);
    EXPECT_EQ(profile.assignments, std::nullopt);
    // Not rewritten on reading: written again, it still has no "assignments".
    ProfileIO::write(profile, path);
    EXPECT_FALSE(contents(path).contains("assignments"));
}

TEST(ProfileIO, LegacyClaimsWithoutMachineIDReadAndStayWithout)
{
    TemporaryFolder folder;
    const QString path = folder.write(
        u"old.json"_s, R"({"name":"Old","assignments":[{"host":"69","machine":"FOH"},{"host":"70",)"
                       R"("machine":"Lighting"}],"entries":[]})");
    const Profile profile = ProfileIO::read(path);
    EXPECT_EQ(profile.assignments, (QList<HostAssignment>{{u"69"_s, u"FOH"_s, std::nullopt},
                                                          {u"70"_s, u"Lighting"_s, std::nullopt}}));
    ProfileIO::write(profile, path);
    EXPECT_FALSE(contents(path).contains("machineID"));
}

TEST(ProfileIO, IdJoinsNameAndTagsInFileOrder)
{
    Profile profile{.name = u"Show"_s,
                    .entries = {ProfileEntry{1010, u"A"_s, IPConfig::dhcp(), true},
                                ProfileEntry{1012, u"B"_s, IPConfig::dhcp(), true}}};
    EXPECT_EQ(profile.id(), u"Show#1010,1012"_s);
}

TEST(ProfileIO, IdOfAProfileWithoutEntriesEndsInTheHash)
{
    EXPECT_EQ(Profile{.name = u"Show"_s}.id(), u"Show#"_s);
}

TEST(ProfileIO, IdIgnoresEverythingButNameAndTags)
{
    Profile other = fullProfile();
    other.note = u"Another note"_s;
    other.entries[0].name = u"Renamed"_s;
    EXPECT_EQ(other.id(), fullProfile().id());
    EXPECT_EQ(fullProfile().id(), u"Show 2026#1010,1012,1020,2001,4094"_s);
}

TEST(ProfileIO, HasManualAddressesNeedsAManualEntryWithAnAddress)
{
    Profile profile{.name = u"Show"_s,
                    .entries = {ProfileEntry{1, u"A"_s, plain(IPMode::manual), true},
                                ProfileEntry{2, u"B"_s, IPConfig::dhcp(), true}}};
    EXPECT_FALSE(profile.hasManualAddresses());
    profile.entries[1].ip.address = u"10.0.0.5"_s;
    EXPECT_FALSE(profile.hasManualAddresses());
    profile.entries[0].ip.address = u"10.0.0.5"_s;
    EXPECT_TRUE(profile.hasManualAddresses());
}

TEST(ProfileIO, FiveThousandEntriesReadWhole)
{
    TemporaryFolder folder;
    Profile profile{.name = u"Big"_s};
    for (int i = 0; i < 5000; ++i)
        profile.entries.append(ProfileEntry{i, u"VLAN %1"_s.arg(i), IPConfig::dhcp(), i % 2 == 0});
    const QString path = folder.filePath(u"big.json"_s);
    ProfileIO::write(profile, path);
    EXPECT_EQ(ProfileIO::read(path), profile);
}

TEST(ProfileIO, OneMegabyteNameReadsWhole)
{
    TemporaryFolder folder;
    Profile profile = minimalProfile();
    profile.name = QString(qsizetype(1024) * 1024, u'\u00E9');
    const QString path = folder.filePath(u"long.json"_s);
    ProfileIO::write(profile, path);
    EXPECT_EQ(ProfileIO::read(path), profile);
}

TEST(ProfileIO, WriteReplacesALongerFileWhole)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ProfileIO::write(fullProfile(), path);
    ProfileIO::write(minimalProfile(), path);
    EXPECT_EQ(contents(path), golden(u"profile-minimal.json"_s));
}

TEST(ProfileIO, WriteIntoAMissingFolderFailsWithOneSentence)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"gone/show.json"_s);
    try {
        ProfileIO::write(minimalProfile(), path);
        FAIL() << "the write succeeded";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::operationFailed);
        EXPECT_TRUE(
            error.errorDescription().startsWith(u"\u201Cshow.json\u201D can\u2019t be saved ("_s))
            << error.what();
        EXPECT_TRUE(
            error.errorDescription().endsWith(u"); the file that was there is unchanged."_s));
    }
}

/// Writes the profile in a child whose files may not grow beyond `limit` bytes, so that the
/// write really fails half-way. Answers the child's exit status: 0 when the write failed with
/// the file's sentence, 1 when it succeeded, 2 when it failed otherwise.
int writeUnderSizeLimit(const Profile &profile, const QString &path, rlim_t limit)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{limit, limit};
        if (setrlimit(RLIMIT_FSIZE, &small) != 0)
            _exit(3);
        try {
            ProfileIO::write(profile, path);
            _exit(1);
        } catch (const VLANError &error) {
            _exit(
                error.errorDescription().startsWith(u"\u201Cshow.json\u201D can\u2019t be saved"_s)
                    ? 0
                    : 2);
        } catch (...) {
            _exit(2);
        }
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ProfileIO, WriteThatFailsHalfWayLeavesTheOldFileByteForByte)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ProfileIO::write(fullProfile(), path);
    const QByteArray before = contents(path);

    Profile large = fullProfile();
    for (int i = 0; i < 2000; ++i)
        large.entries.append(ProfileEntry{i, u"VLAN %1"_s.arg(i), IPConfig::dhcp(), true});
    const rlim_t limit = rlim_t(64) * 1024;
    ASSERT_GT(ProfileIO::encoded(large).size(), qsizetype(limit));
    ASSERT_LT(before.size(), qsizetype(limit));

    EXPECT_EQ(writeUnderSizeLimit(large, path, limit), 0);
    EXPECT_EQ(contents(path), before);
    // No half-written temporary file stays beside it.
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{u"show.json"_s});
}

TEST(ProfileIO, WriteUnderTheSameLimitSucceedsWhenTheProfileFits)
{
    // The check of the test above: the limit itself doesn't stop a small write.
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    EXPECT_EQ(writeUnderSizeLimit(minimalProfile(), path, rlim_t(64) * 1024), 1);
    EXPECT_EQ(contents(path), golden(u"profile-minimal.json"_s));
}

} // namespace
