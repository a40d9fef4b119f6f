#include "OrvaneApp/drive/MountTableScan.h"

#include "OrvaneApp/drive/DriveWaiter.h"
#include "tests/support/TemporaryFolder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

const std::string watchedLine = "40 22 8:17 / /media/STICK rw shared:50 - vfat /dev/sdb1 rw\n";

/// A line of another mount, padded so that tables grow quickly.
std::string otherLine(int id)
{
    return std::to_string(id) + " 22 0:" + std::to_string(id) + " / /srv/" + std::string(60, 'x')
           + std::to_string(id) + " rw - tmpfs tmpfs rw\n";
}

bool scanFinds(const std::string &table, std::size_t piece)
{
    MountTableScan scan = MountTableScan::of(40, "8:17");
    for (std::size_t at = 0; at < table.size(); at += piece)
        scan.feed(table.data() + at, std::min(piece, table.size() - at));
    scan.finish();
    return scan.found();
}

/// Reads a table through a descriptor, as the waiter does.
class TableFile : public ::testing::Test
{
protected:
    TableRead readTable(const std::string &table)
    {
        const QString path =
            folder.write(QStringLiteral("mountinfo"), QByteArray::fromStdString(table));
        const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY);
        const TableRead result = readMountTable(descriptor, 40, "8:17");
        close(descriptor);
        return result;
    }

    TemporaryFolder folder;
};

} // namespace

TEST(MountTableScan, FindsTheLineWithTheIdAndTheNumbers)
{
    EXPECT_TRUE(scanFinds(otherLine(1) + watchedLine + otherLine(2), 4096));
}

TEST(MountTableScan, ALineSplitAtAnyByteIsStillFound)
{
    const std::string table = otherLine(1) + watchedLine + otherLine(2);
    for (std::size_t piece = 1; piece <= table.size(); ++piece)
        EXPECT_TRUE(scanFinds(table, piece)) << "pieces of " << piece;
}

TEST(MountTableScan, TheIdInsideOtherFieldsDoesNotCount)
{
    // 40 as the parent, inside a longer ID, in the path and the options; 8:17 elsewhere.
    const std::string table = "1 40 8:17 / /a rw - vfat /dev/sdb1 rw\n"
                              "140 22 8:17 / /b rw - vfat /dev/sdb1 rw\n"
                              "401 22 8:17 / /c rw - vfat /dev/sdb1 rw\n"
                              "7 22 8:17 /40 /40 rw,40 - vfat /dev/sdb1 rw\n";
    EXPECT_FALSE(scanFinds(table, 4096));
}

TEST(MountTableScan, TheIdWithOtherNumbersDoesNotCount)
{
    EXPECT_FALSE(scanFinds("40 22 8:1 / /media/STICK rw - vfat /dev/sdb1 rw\n", 4096));
    EXPECT_FALSE(scanFinds("40 22 8:170 / /media/STICK rw - vfat /dev/sdb1 rw\n", 4096));
    EXPECT_FALSE(scanFinds("40 22 18:17 / /media/STICK rw - vfat /dev/sdb1 rw\n", 4096));
}

TEST(MountTableScan, ALastLineWithoutALineEndCounts)
{
    std::string table = otherLine(1) + watchedLine;
    table.pop_back();
    EXPECT_TRUE(scanFinds(table, 7));
}

TEST_F(TableFile, ATableLargerThanTheBufferIsReadToItsEnd)
{
    std::string table;
    for (int id = 100; table.size() < 5 * mountTableChunk; ++id)
        table += otherLine(id);
    ASSERT_GT(table.size(), 4 * mountTableChunk);
    EXPECT_EQ(readTable(table + watchedLine), TableRead::holdsMount);
    EXPECT_EQ(readTable(table), TableRead::lacksMount);
}

TEST_F(TableFile, ALineAcrossTwoReadsIsFound)
{
    // The watched line starts 10 bytes before the end of the first chunk.
    std::string table;
    for (int id = 100; table.size() < mountTableChunk - 10 - 200; ++id)
        table += otherLine(id);
    table += std::string(mountTableChunk - 10 - table.size() - 1, '#') + '\n';
    ASSERT_EQ(table.size(), mountTableChunk - 10);
    EXPECT_EQ(readTable(table + watchedLine + otherLine(7)), TableRead::holdsMount);
}

TEST_F(TableFile, AnEmptyTableLacksTheMount)
{
    EXPECT_EQ(readTable(""), TableRead::lacksMount);
}

TEST(MountTableRead, AFailedReadIsNeverALack)
{
    // A folder opens but can't be read: the waiter must not take that for a pulled drive.
    TemporaryFolder folder;
    const int descriptor = open(QFile::encodeName(folder.path()).constData(), O_RDONLY);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(readMountTable(descriptor, 40, "8:17"), TableRead::failed);
    close(descriptor);
    EXPECT_EQ(readMountTable(-1, 40, "8:17"), TableRead::failed);
}

TEST(MountTableRead, EachCompleteReadIsCounted)
{
    TemporaryFolder folder;
    const QString path =
        folder.write(QStringLiteral("mountinfo"), QByteArray::fromStdString(watchedLine));
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY);
    const unsigned before = DriveWaiter::tableReads();
    EXPECT_EQ(readMountTable(descriptor, 40, "8:17"), TableRead::holdsMount);
    EXPECT_EQ(readMountTable(descriptor, 40, "8:17"), TableRead::holdsMount);
    EXPECT_EQ(readMountTable(-1, 40, "8:17"), TableRead::failed);
    close(descriptor);
    EXPECT_EQ(DriveWaiter::tableReads() - before, 2U);
}
