#include "VLANKit/files/Defaults.h"

#include "VLANKit/files/DefaultsFile.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class DefaultsInFile : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    QString path = folder.filePath(u"com.quillfence.orvane.plist"_s);
    Defaults defaults = Defaults::inFile(path);
    // A second store over the same file: what another process, or the next run, would read.
    Defaults reader() const { return Defaults::inFile(path); }
};

TEST_F(DefaultsInFile, MissingKeyIsAbsent)
{
    EXPECT_EQ(defaults.value(u"Orvane.addressPlan"_s), std::nullopt);
    EXPECT_EQ(defaults.data(u"Orvane.addressPlan"_s), std::nullopt);
    EXPECT_EQ(defaults.stringList(u"Orvane.internet.Show"_s), std::nullopt);
    EXPECT_EQ(defaults.mapList(u"Orvane.internetMarks.Show"_s), std::nullopt);
}

TEST_F(DefaultsInFile, DataRoundTrips)
{
    const QByteArray blob("{\"octet1\":\"10\"}\x00\xff", 17);
    defaults.setData(u"Orvane.addressPlan"_s, blob);
    EXPECT_EQ(reader().data(u"Orvane.addressPlan"_s), blob);
}

TEST_F(DefaultsInFile, StringRoundTrips)
{
    defaults.setString(u"Orvane.appearance"_s, u"dark \u00E9\U0001F600"_s);
    EXPECT_EQ(reader().string(u"Orvane.appearance"_s), u"dark \u00E9\U0001F600"_s);
}

TEST_F(DefaultsInFile, StringListRoundTrips)
{
    const QStringList ids{u"B"_s, u"A"_s, u""_s};
    defaults.setStringList(u"Orvane.internet.Show"_s, ids);
    EXPECT_EQ(reader().stringList(u"Orvane.internet.Show"_s), ids);
}

TEST_F(DefaultsInFile, EmptyListStaysAnEmptyList)
{
    defaults.setStringList(u"Orvane.internet.Show"_s, {});
    const auto list = reader().stringList(u"Orvane.internet.Show"_s);
    ASSERT_TRUE(list.has_value());
    EXPECT_TRUE(list->isEmpty());
    defaults.setMapList(u"Orvane.internetMarks.Show"_s, {});
    const auto maps = reader().mapList(u"Orvane.internetMarks.Show"_s);
    ASSERT_TRUE(maps.has_value());
    EXPECT_TRUE(maps->isEmpty());
}

TEST_F(DefaultsInFile, MapListRoundTripsKeepingTypes)
{
    const QList<QVariantMap> marks{
        {{u"id"_s, u"A1"_s},
         {u"internet"_s, true},
         {u"tag"_s, qint64(1010)},
         {u"device"_s, u"en7"_s}},
        {{u"id"_s, u"B2"_s}, {u"internet"_s, false}},
    };
    defaults.setMapList(u"Orvane.internetMarks.Show"_s, marks);
    const auto read = reader().mapList(u"Orvane.internetMarks.Show"_s);
    ASSERT_TRUE(read.has_value());
    ASSERT_EQ(read->size(), 2);
    EXPECT_EQ(read->at(0).value(u"internet"_s).metaType().id(), QMetaType::Bool);
    EXPECT_EQ(read->at(0).value(u"tag"_s).metaType().id(), QMetaType::LongLong);
    EXPECT_EQ(read->at(0).value(u"tag"_s).toLongLong(), 1010);
    EXPECT_EQ(read->at(0).value(u"device"_s).toString(), u"en7"_s);
    EXPECT_FALSE(read->at(1).contains(u"tag"_s));
}

TEST_F(DefaultsInFile, KeysAreKeptVerbatim)
{
    const QStringList keys{u"Orvane.internetMarks.Stage/Left"_s,
                           u"Orvane.internetMarks.Back\\slash"_s,
                           u"Orvane.internetMarks.Trailing."_s, u"Orvane.internetMarks.Trailing"_s,
                           u"Orvane.internetMarks.\U0001F3A4 \"Quoted\""_s};
    for (qsizetype i = 0; i < keys.size(); ++i)
        defaults.setStringList(keys.at(i), {QString::number(i)});
    for (qsizetype i = 0; i < keys.size(); ++i)
        EXPECT_EQ(reader().stringList(keys.at(i)), QStringList{QString::number(i)}) << i;
}

TEST_F(DefaultsInFile, RemoveTakesTheKeyAway)
{
    defaults.setString(u"a"_s, u"1"_s);
    defaults.setString(u"b"_s, u"2"_s);
    defaults.remove(u"a"_s);
    EXPECT_EQ(reader().value(u"a"_s), std::nullopt);
    EXPECT_EQ(reader().string(u"b"_s), u"2"_s);
}

TEST_F(DefaultsInFile, TypedReadersRefuseOtherTypes)
{
    defaults.setString(u"k"_s, u"text"_s);
    EXPECT_EQ(defaults.data(u"k"_s), std::nullopt);
    EXPECT_EQ(defaults.stringList(u"k"_s), std::nullopt);
    defaults.setMapList(u"m"_s, {{{u"id"_s, u"x"_s}}});
    EXPECT_EQ(defaults.stringList(u"m"_s), std::nullopt);
    defaults.setStringList(u"s"_s, {u"x"_s});
    EXPECT_EQ(defaults.mapList(u"s"_s), std::nullopt);
    EXPECT_TRUE(defaults.value(u"s"_s).has_value());
}

TEST_F(DefaultsInFile, UnreadableFileReadsAsEmptyAndIsReplacedOnWrite)
{
    folder.write(u"com.quillfence.orvane.plist"_s, "this is no property list");
    EXPECT_EQ(defaults.value(u"k"_s), std::nullopt);
    defaults.setString(u"k"_s, u"v"_s);
    EXPECT_EQ(reader().string(u"k"_s), u"v"_s);
}

// libplist aborts on some texts that hold a NUL: the file reads as unreadable instead.
TEST_F(DefaultsInFile, NulInsideATextReadsAsEmptyWithoutAborting)
{
    folder.write(u"com.quillfence.orvane.plist"_s,
                 QByteArray("<plist version=\"1.0\"><dict><key>k</key><string>a\0b</string>"
                            "</dict></plist>",
                            63));
    EXPECT_EQ(defaults.value(u"k"_s), std::nullopt);
    defaults.setString(u"k"_s, u"v"_s);
    EXPECT_EQ(reader().string(u"k"_s), u"v"_s);
}

TEST_F(DefaultsInFile, FileIsAnXMLPropertyList)
{
    defaults.setString(u"Orvane.appearance"_s, u"light"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("<?xml"));
    EXPECT_TRUE(text.contains("<key>Orvane.appearance</key>"));
}

TEST_F(DefaultsInFile, CreatesItsFolder)
{
    Defaults nested = Defaults::inFile(folder.filePath(u"a/b/defaults.plist"_s));
    nested.setString(u"k"_s, u"v"_s);
    EXPECT_EQ(Defaults::inFile(folder.filePath(u"a/b/defaults.plist"_s)).string(u"k"_s), u"v"_s);
}

TEST(DefaultsStandard, LivesInTheUsersConfigurationFolder)
{
    EXPECT_TRUE(Defaults::standardFilePath().endsWith(u"/com.quillfence.orvane.plist"_s));
}

TEST_F(DefaultsInFile, AnUnchangedFileIsParsedOnce)
{
    defaults.setStringList(u"Orvane.internet.Show"_s, {u"A"_s});
    const auto file = std::make_shared<DefaultsFile>(path);
    const Defaults watching(file);
    EXPECT_EQ(watching.stringList(u"Orvane.internet.Show"_s), QStringList{u"A"_s});
    EXPECT_EQ(watching.stringList(u"Orvane.internet.Show"_s), QStringList{u"A"_s});
    EXPECT_EQ(watching.value(u"Orvane.internet.Office"_s), std::nullopt);
    EXPECT_EQ(file->parses(), 1);
}

TEST_F(DefaultsInFile, AFileChangedByAnotherWriterIsReadAgain)
{
    defaults.setStringList(u"Orvane.internet.Show"_s, {u"A"_s});
    const auto file = std::make_shared<DefaultsFile>(path);
    const Defaults watching(file);
    EXPECT_EQ(watching.stringList(u"Orvane.internet.Show"_s), QStringList{u"A"_s});
    reader().setStringList(u"Orvane.internet.Show"_s, {u"A"_s, u"B"_s});
    EXPECT_EQ(watching.stringList(u"Orvane.internet.Show"_s), (QStringList{u"A"_s, u"B"_s}));
    EXPECT_EQ(file->parses(), 2);
}

TEST_F(DefaultsInFile, AFileThatGoesAwayReadsAsEmpty)
{
    defaults.setStringList(u"Orvane.internet.Show"_s, {u"A"_s});
    const auto file = std::make_shared<DefaultsFile>(path);
    const Defaults watching(file);
    EXPECT_TRUE(watching.stringList(u"Orvane.internet.Show"_s).has_value());
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(watching.stringList(u"Orvane.internet.Show"_s), std::nullopt);
}

} // namespace
