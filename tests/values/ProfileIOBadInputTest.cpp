#include "VLANKit/core/VLANError.h"
#include "VLANKit/project/ProfileIO.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;

/// An entry whose "ip" object is `ip` and whose other keys are `rest`.
QByteArray entry(const QByteArray &rest, const QByteArray &ip = R"({"mode":"DHCP","dns":[]})")
{
    return R"({"tag":1010,"name":"Stage","enabled":true,"ip":)" + ip + "," + rest + "}";
}

QByteArray projectWith(const QByteArray &entries, const QByteArray &more = {})
{
    return R"({"name":"Show",)" + more + R"("entries":[)" + entries + "]}";
}

/// What reading the file gives: the sentence of its failure, or "read a profile".
QString outcome(const QString &path)
{
    try {
        (void)ProfileIO::read(path);
        return u"read a profile"_s;
    } catch (const VLANError &error) {
        if (error.errorCase() != VLANError::Case::operationFailed)
            return u"a failure of another case: "_s + error.errorDescription();
        return error.errorDescription();
    }
}

QString readingBytes(const QByteArray &bytes)
{
    TemporaryFolder folder;
    return outcome(folder.write(u"show.json"_s, bytes));
}

QString cantRead(const QString &what)
{
    return u"\u201Cshow.json\u201D can\u2019t be read: "_s + what + u"."_s;
}

struct BadCase
{
    const char *name;
    QByteArray bytes;
    QString sentence;
};

class BadProjectFile : public ::testing::TestWithParam<BadCase>
{};

TEST_P(BadProjectFile, GivesOneSentence)
{
    EXPECT_EQ(readingBytes(GetParam().bytes), GetParam().sentence);
}

const QString noDns = cantRead(u"entry 1 has no \u201Cdns\u201D list"_s);
const QString tagNotWhole = cantRead(u"\u201Ctag\u201D in entry 1 is not a whole number"_s);

INSTANTIATE_TEST_SUITE_P(
    Rows, BadProjectFile,
    ::testing::Values(
        BadCase{"EmptyFile", "", cantRead(u"the file is empty"_s)},
        BadCase{"OnlyWhiteSpace", " \n\t\r\n", cantRead(u"the file is empty"_s)},
        BadCase{"NotJson", "Show: 1010, 1012",
                cantRead(u"it is not JSON text (the fault is on line 1)"_s)},
        BadCase{"NotJsonOnTheThirdLine", "{\n  \"name\" : \"Show\",\n  entries : []\n}",
                cantRead(u"it is not JSON text (the fault is on line 3)"_s)},
        BadCase{"GarbageAfterTheObject", projectWith({}) + "\n\nx",
                cantRead(u"it is not JSON text (the fault is on line 3)"_s)},
        BadCase{"JsonArray", "[]", cantRead(u"it holds a list, not a project"_s)},
        BadCase{"JsonArrayOfAProject", "[" + projectWith({}) + "]",
                cantRead(u"it holds a list, not a project"_s)},
        BadCase{"LoneString", "\"Show\"", cantRead(u"it holds no project"_s)},
        BadCase{"LoneNumber", "1010", cantRead(u"it holds no project"_s)},
        BadCase{"TruncatedInAString", R"({"name":"Sh)",
                cantRead(u"it ends too early, as if it had been cut short"_s)},
        BadCase{"TruncatedAfterAComma", R"({"name":"Show","entries":[)" + entry(R"("x":1)") + ",",
                cantRead(u"it ends too early, as if it had been cut short"_s)},
        BadCase{"TruncatedInANumber", R"({"name":"Show","entries":[{"tag":10)",
                cantRead(u"it ends too early, as if it had been cut short"_s)},
        BadCase{"TagAsText",
                projectWith(
                    R"({"tag":"1010","name":"A","enabled":true,"ip":{"mode":"DHCP","dns":[]}})"),
                tagNotWhole},
        BadCase{"TagWithAFraction",
                projectWith(
                    R"({"tag":1010.5,"name":"A","enabled":true,"ip":{"mode":"DHCP","dns":[]}})"),
                tagNotWhole},
        BadCase{
            "TagTrue",
            projectWith(R"({"tag":true,"name":"A","enabled":true,"ip":{"mode":"DHCP","dns":[]}})"),
            tagNotWhole},
        BadCase{
            "TagBeyondSixtyFourBits",
            projectWith(R"({"tag":1e20,"name":"A","enabled":true,"ip":{"mode":"DHCP","dns":[]}})"),
            tagNotWhole},
        BadCase{"TagOneBeyondTheLargest",
                projectWith(R"({"tag":9223372036854775808,"name":"A","enabled":true,)"
                            R"("ip":{"mode":"DHCP","dns":[]}})"),
                tagNotWhole},
        BadCase{"ModeStatic", projectWith(entry(R"("x":1)", R"({"mode":"Static","dns":[]})")),
                cantRead(u"\u201Cmode\u201D in entry 1 is \u201CStatic\u201D, not one of "
                         "\u201CDHCP\u201D, \u201CManual\u201D, \u201CLinkLocal\u201D, "
                         "\u201COff\u201D or \u201CUnknown\u201D"_s)},
        BadCase{"ModeInLowerCase", projectWith(entry(R"("x":1)", R"({"mode":"dhcp","dns":[]})")),
                cantRead(u"\u201Cmode\u201D in entry 1 is \u201Cdhcp\u201D, not one of "
                         "\u201CDHCP\u201D, \u201CManual\u201D, \u201CLinkLocal\u201D, "
                         "\u201COff\u201D or \u201CUnknown\u201D"_s)},
        BadCase{"EntryLackingDns", projectWith(entry(R"("x":1)", R"({"mode":"DHCP"})")), noDns},
        BadCase{"DnsNull", projectWith(entry(R"("x":1)", R"({"mode":"DHCP","dns":null})")), noDns},
        BadCase{"DnsNotAList", projectWith(entry(R"("x":1)", R"({"mode":"DHCP","dns":"1.1.1.1"})")),
                cantRead(u"\u201Cdns\u201D in entry 1 is not a list of texts"_s)},
        BadCase{"DnsWithANumber",
                projectWith(entry(R"("x":1)", R"({"mode":"DHCP","dns":["1.1.1.1",8]})")),
                cantRead(u"item 2 of \u201Cdns\u201D in entry 1 is not text"_s)},
        BadCase{"AddressAsNumber",
                projectWith(entry(R"("x":1)", R"({"mode":"Manual","address":10,"dns":[]})")),
                cantRead(u"\u201Caddress\u201D in entry 1 is not text"_s)},
        BadCase{"EntryLackingIp", projectWith(R"({"tag":1,"name":"A","enabled":true})"),
                cantRead(u"entry 1 has no \u201Cip\u201D settings"_s)},
        BadCase{"IpAsList", projectWith(R"({"tag":1,"name":"A","enabled":true,"ip":[]})"),
                cantRead(u"\u201Cip\u201D in entry 1 is not a group of settings"_s)},
        BadCase{"EnabledAsText", projectWith(entry(R"("x":1)").replace("true", "\"true\"")),
                cantRead(u"\u201Cenabled\u201D in entry 1 is not true or false"_s)},
        BadCase{"EnabledAsOne", projectWith(entry(R"("x":1)").replace("true", "1")),
                cantRead(u"\u201Cenabled\u201D in entry 1 is not true or false"_s)},
        BadCase{"EntryLackingEnabled",
                projectWith(R"({"tag":1,"name":"A","ip":{"mode":"DHCP","dns":[]}})"),
                cantRead(u"entry 1 has no \u201Cenabled\u201D setting"_s)},
        BadCase{"SecondEntryLackingTag",
                projectWith(entry(R"("x":1)")
                            + R"(,{"name":"A","enabled":true,"ip":{"mode":"DHCP","dns":[]}})"),
                cantRead(u"entry 2 has no \u201Ctag\u201D number"_s)},
        BadCase{"EntryNotAnObject", projectWith(entry(R"("x":1)") + ",1010"),
                cantRead(u"entry 2 is not a group of settings"_s)},
        BadCase{"LackingName", R"({"entries":[]})",
                cantRead(u"the file has no \u201Cname\u201D text"_s)},
        BadCase{"NameNull", R"({"name":null,"entries":[]})",
                cantRead(u"the file has no \u201Cname\u201D text"_s)},
        BadCase{"NameAsNumber", R"({"name":5,"entries":[]})",
                cantRead(u"\u201Cname\u201D in the file is not text"_s)},
        BadCase{"LackingEntries", R"({"name":"Show"})",
                cantRead(u"the file has no \u201Centries\u201D list"_s)},
        BadCase{"EntriesAsObject", R"({"name":"Show","entries":{}})",
                cantRead(u"\u201Centries\u201D in the file is not a list"_s)},
        BadCase{"NoteAsNumber", projectWith({}, R"("note":1,)"),
                cantRead(u"\u201Cnote\u201D in the file is not text"_s)},
        BadCase{"HostOctetAsNumber", projectWith({}, R"("hostOctet":69,)"),
                cantRead(u"\u201ChostOctet\u201D in the file is not text"_s)},
        BadCase{"AssignmentsAsObject", projectWith({}, R"("assignments":{},)"),
                cantRead(u"\u201Cassignments\u201D in the file is not a list"_s)},
        BadCase{"ClaimLackingHost", projectWith({}, R"("assignments":[{"machine":"FOH"}],)"),
                cantRead(u"claim 1 has no \u201Chost\u201D text"_s)},
        BadCase{
            "ClaimWithNumericHost",
            projectWith(
                {}, R"("assignments":[{"host":"1","machine":"A"},{"host":69,"machine":"FOH"}],)"),
            cantRead(u"\u201Chost\u201D in claim 2 is not text"_s)},
        BadCase{"ClaimWithNumericMachineID",
                projectWith({}, R"("assignments":[{"host":"1","machine":"A","machineID":7}],)"),
                cantRead(u"\u201CmachineID\u201D in claim 1 is not text"_s)},
        BadCase{"ClaimNotAnObject", projectWith({}, R"("assignments":["69"],)"),
                cantRead(u"claim 1 is not a group of settings"_s)},
        BadCase{"NulBytes", QByteArray(8, '\0'),
                cantRead(u"it is not JSON text (the fault is on line 1)"_s)},
        BadCase{"NotUtf8", "{\"name\":\"Sh\xFF\xFEow\",\"entries\":[]}",
                cantRead(u"it is not JSON text (the fault is on line 1)"_s)}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(ProfileIOBadInput, MissingFileGivesOneSentence)
{
    TemporaryFolder folder;
    EXPECT_EQ(outcome(folder.filePath(u"show.json"_s)), cantRead(u"there is no such file"_s));
}

TEST(ProfileIOBadInput, FolderGivesOneSentence)
{
    TemporaryFolder folder;
    folder.write(u"show.json/inside"_s, "x");
    EXPECT_EQ(outcome(folder.filePath(u"show.json"_s)), cantRead(u"it is a folder, not a file"_s));
}

// Opening a pipe for reading waits for a writer: the reader must refuse it at once instead.
TEST(ProfileIOBadInput, PipeGivesOneSentenceAtOnce)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(outcome(path), cantRead(u"it is a pipe, not a file"_s));
}

TEST(ProfileIOBadInput, DeviceGivesOneSentence)
{
    const QString sentence = outcome(u"/dev/null"_s);
    EXPECT_EQ(sentence, u"\u201Cnull\u201D can\u2019t be read: it is a device, not a file."_s);
}

TEST(ProfileIOBadInput, SavingOverAPipeIsRefusedAndLeavesIt)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"show.json"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    Profile profile;
    profile.name = u"Show"_s;
    try {
        ProfileIO::write(profile, path);
        ADD_FAILURE() << "saved over a pipe";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(),
                  u"\u201Cshow.json\u201D can\u2019t be saved (it is a pipe, not a file); the file "
                  "that was there is unchanged."_s);
    }
    struct stat info
    {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

TEST(ProfileIOBadInput, HugeFileIsRefusedUnread)
{
    TemporaryFolder folder;
    const QString path = folder.write(u"show.json"_s, "{");
    QFile file(path);
    ASSERT_TRUE(file.resize(qint64(65) * 1024 * 1024));
    EXPECT_EQ(outcome(path), cantRead(u"it is 68157440 bytes long, far too large for a project"_s));
}

TEST(ProfileIOBadInput, FiveThousandEntriesWithTheLastOneBrokenGiveOneSentence)
{
    QByteArray entries;
    for (int i = 0; i < 4999; ++i)
        entries += entry(R"("x":1)") + ",";
    entries += entry(R"("x":1)", R"({"mode":"DHCP"})");
    EXPECT_EQ(readingBytes(projectWith(entries)),
              cantRead(u"entry 5000 has no \u201Cdns\u201D list"_s));
}

TEST(ProfileIOBadInput, OneMegabyteNameInABrokenFileGivesOnlyTheSentence)
{
    const QByteArray name(qsizetype(1024) * 1024, 'x');
    const QByteArray bytes = R"({"name":")" + name + R"(","entries":[)"
                             + entry(R"("x":1)", R"({"mode":"Static","dns":[]})") + "]}";
    const QString sentence = readingBytes(bytes);
    EXPECT_TRUE(sentence.startsWith(cantRead(u"\u201Cmode\u201D in entry 1"_s).chopped(1)))
        << sentence.left(200).toStdString();
    EXPECT_LT(sentence.size(), 200);
}

TEST(ProfileIOBadInput, EveryCutOfAWholeFileGivesOneSentence)
{
    TemporaryFolder folder;
    const QString whole = folder.filePath(u"whole.json"_s);
    Profile profile{.name = u"Show"_s,
                    .note = u"Captured from \u201CMain\u201D by Orvane"_s,
                    .hostOctet = u"69"_s,
                    .assignments = QList<HostAssignment>{{u"69"_s, u"FOH"_s, u"0a1b2c3d4e5f"_s}},
                    .entries = {ProfileEntry{1010, u"B\u00FChne"_s,
                                             IPConfig{IPMode::manual,
                                                      u"10.0.10.69"_s,
                                                      u"255.255.255.0"_s,
                                                      u"10.0.10.1"_s,
                                                      {u"10.0.10.1"_s}},
                                             true}}};
    ProfileIO::write(profile, whole);
    QFile file(whole);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        const QString sentence = outcome(folder.write(u"show.json"_s, bytes.left(length)));
        ASSERT_TRUE(sentence.startsWith(u"\u201Cshow.json\u201D can\u2019t be read: "_s))
            << "cut at " << length << ": " << sentence.toStdString();
    }
    EXPECT_EQ(ProfileIO::read(whole), profile);
}

} // namespace
