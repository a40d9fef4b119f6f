#include "OrvaneApp/drive/MountTable.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MountTable, DecodesOctalEscapes)
{
    EXPECT_EQ(MountTable::decodeEscapes(u"/media/My\\040Stick"_s), u"/media/My Stick"_s);
    EXPECT_EQ(MountTable::decodeEscapes(u"/a\\011b\\012c\\134d"_s), u"/a\tb\nc\\d"_s);
}

TEST(MountTable, LeavesABackslashWithoutThreeOctalDigits)
{
    EXPECT_EQ(MountTable::decodeEscapes(u"/a\\09b"_s), u"/a\\09b"_s);
    EXPECT_EQ(MountTable::decodeEscapes(u"/a\\04"_s), u"/a\\04"_s);
    EXPECT_EQ(MountTable::decodeEscapes(u"/a\\"_s), u"/a\\"_s);
}

TEST(MountTable, DecodesEscapedBytesOfUtf8AsOneCharacter)
{
    EXPECT_EQ(MountTable::decodeEscapes(u"/media/B\\303\\274hne"_s), u"/media/B\u00fchne"_s);
}

TEST(MountTable, ReadsALineWithOptionalFields)
{
    const std::optional<MountEntry> entry = MountTable::parseLine(
        u"36 35 8:17 / /media/stick rw,nosuid shared:1 master:2 - vfat /dev/sdb1 rw"_s);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->id, 36);
    EXPECT_EQ(entry->major, 8);
    EXPECT_EQ(entry->minor, 17);
    EXPECT_EQ(entry->deviceNumbers, u"8:17"_s);
    EXPECT_EQ(entry->point, u"/media/stick"_s);
    EXPECT_EQ(entry->fileSystemType, u"vfat"_s);
    EXPECT_EQ(entry->source, u"/dev/sdb1"_s);
}

TEST(MountTable, RefusesALineWithoutItsSeparator)
{
    EXPECT_FALSE(MountTable::parseLine(u"36 35 8:17 / /media/stick rw vfat /dev/sdb1 rw"_s));
    EXPECT_FALSE(MountTable::parseLine(u"x 35 8:17 / /m rw - vfat /dev/sdb1 rw"_s));
    EXPECT_FALSE(MountTable::parseLine(u"36 35 817 / /m rw - vfat /dev/sdb1 rw"_s));
}

TEST(MountTable, TheLongestPointAtAFolderBoundaryHolds)
{
    const QString table = u"1 0 8:2 / / rw - ext4 /dev/sda2 rw\n"
                          "2 1 0:30 / /media rw - tmpfs tmpfs rw\n"
                          "3 2 8:17 / /media/stick rw - vfat /dev/sdb1 rw\n"_s;
    EXPECT_EQ(MountTable::holding(table, u"/media/stick/orvane"_s)->id, 3);
    EXPECT_EQ(MountTable::holding(table, u"/media/stick"_s)->id, 3);
    EXPECT_EQ(MountTable::holding(table, u"/media/stick2/orvane"_s)->id, 2);
    EXPECT_EQ(MountTable::holding(table, u"/usr/bin/orvane"_s)->id, 1);
}

TEST(MountTable, TheLaterOfTwoMountsOnOnePointHolds)
{
    const QString table = u"1 0 8:2 / / rw - ext4 /dev/sda2 rw\n"
                          "5 1 8:17 / /media/stick rw - vfat /dev/sdb1 rw\n"
                          "9 5 8:33 / /media/stick rw - exfat /dev/sdc1 rw\n"_s;
    EXPECT_EQ(MountTable::holding(table, u"/media/stick/orvane"_s)->id, 9);
}

TEST(MountTable, NoMountHoldsARelativePathOrAnEmptyTable)
{
    EXPECT_FALSE(MountTable::holding(u"1 0 8:2 / / rw - ext4 /dev/sda2 rw\n"_s, u"orvane"_s));
    EXPECT_FALSE(MountTable::holding(QString(), u"/usr/bin/orvane"_s));
}
