#include "VLANKit/internet/InternetMemory.h"

#include "VLANKit/files/Defaults.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using Mark = InternetMarks::Mark;
using Candidate = InternetMarks::Candidate;

class InternetMemoryTest : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    Defaults defaults = Defaults::inFile(folder.filePath(u"defaults.plist"_s));

    void storeMarks(const QString &location, const QList<Mark> &marks)
    {
        defaults.setMapList(InternetMemory::marksKey(location), InternetMarks{marks, {}}.stored());
    }
    [[nodiscard]] std::optional<QList<Mark>> marksIn(const QString &location) const
    {
        return InternetMarks::marksFromStored(defaults.value(InternetMemory::marksKey(location)));
    }
    [[nodiscard]] std::optional<QStringList> ticksIn(const QString &location) const
    {
        return defaults.stringList(InternetMemory::ticksKey(location));
    }
};

TEST_F(InternetMemoryTest, KeysAreThePrefixAndTheNameVerbatim)
{
    EXPECT_EQ(InternetMemory::marksKey(u"Show / Main\\."_s),
              u"Orvane.internetMarks.Show / Main\\."_s);
    EXPECT_EQ(InternetMemory::ticksKey(u"Show / Main\\."_s), u"Orvane.internet.Show / Main\\."_s);
}

TEST_F(InternetMemoryTest, KeepWritesTheMarksAndTheSortedTicks)
{
    const InternetMarks marks{{Mark{u"C"_s, 1010, u"en7"_s, true}, Mark{u"A"_s, {}, u"en0"_s, true},
                               Mark{u"B"_s, {}, u"en1"_s, false},
                               Mark{u"Gone"_s, 9, u"en7"_s, true}},
                              {u"A"_s, u"B"_s, u"C"_s}};
    InternetMemory::keep(marks, u"Main"_s, defaults);
    EXPECT_EQ(marksIn(u"Main"_s), marks.marks);
    EXPECT_EQ(ticksIn(u"Main"_s), (QStringList{u"A"_s, u"C"_s}));
    EXPECT_TRUE(InternetMemory::holds(marks, u"Main"_s, defaults));
}

TEST_F(InternetMemoryTest, KeepWritesNothingForALocationWithoutAName)
{
    InternetMemory::keep(InternetMarks{}.marking({u"A"_s}), QString(), defaults);
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(QString())), std::nullopt);
    EXPECT_EQ(defaults.value(InternetMemory::ticksKey(QString())), std::nullopt);
}

TEST_F(InternetMemoryTest, KeepsAnEmptyListAsAnEmptyList)
{
    InternetMemory::keep(InternetMarks{}, u"Main"_s, defaults);
    EXPECT_EQ(marksIn(u"Main"_s), QList<Mark>{});
    EXPECT_EQ(ticksIn(u"Main"_s), QStringList{});
}

TEST_F(InternetMemoryTest, LocationNamesWithAnyCharactersKeepTheirOwnMemory)
{
    const QStringList names{u"Show/Main"_s, u"Show\\Main"_s, u"Show."_s, u"Show"_s};
    for (const QString &name : names)
        InternetMemory::keep(InternetMarks{}.marking({name}), name, defaults);
    for (const QString &name : names)
        EXPECT_EQ(ticksIn(name), QStringList{name}) << name.toStdString();
}

TEST_F(InternetMemoryTest, MarksReconcileTheStoredMarksWithTheCandidates)
{
    storeMarks(u"Main"_s, {Mark{u"Old"_s, 1010, u"en7"_s, true}});
    const InternetMarks marks =
        InternetMemory::marks(u"Main"_s, {Candidate{u"New"_s, 1010, u"en7"_s, false}}, defaults);
    EXPECT_EQ(marks.marks, (QList<Mark>{Mark{u"New"_s, 1010, u"en7"_s, true}}));
}

TEST_F(InternetMemoryTest, OldTicksCountWhenNoMarksWereStored)
{
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s), {u"A"_s});
    const InternetMarks marks = InternetMemory::marks(
        u"Main"_s, {Candidate{u"A"_s, {}, u"en0"_s, false}, Candidate{u"B"_s, {}, u"en1"_s, true}},
        defaults);
    EXPECT_EQ(marks.internetServiceIDs(), QSet<QString>{u"A"_s});
}

TEST_F(InternetMemoryTest, TicksThatAreNoListOfStringsCountAsNone)
{
    defaults.setValue(InternetMemory::ticksKey(u"Main"_s), QVariantList{u"A"_s, 5});
    const InternetMarks marks = InternetMemory::marks(
        u"Main"_s, {Candidate{u"A"_s, {}, u"en0"_s, false}, Candidate{u"B"_s, {}, u"en1"_s, true}},
        defaults);
    // No memory at all: both take their guess.
    EXPECT_EQ(marks.internetServiceIDs(), QSet<QString>{u"B"_s});
}

TEST_F(InternetMemoryTest, StoredMarksOfTheWrongShapeShrinkToWhatCanBeRead)
{
    defaults.setValue(InternetMemory::marksKey(u"Main"_s),
                      QVariantList{QVariantMap{{u"id"_s, u"A"_s}, {u"internet"_s, u"yes"_s}},
                                   u"B"_s, QVariantMap{{u"id"_s, u"C"_s}, {u"internet"_s, true}}});
    const InternetMarks marks = InternetMemory::marks(
        u"Main"_s, {Candidate{u"A"_s, {}, u"en0"_s, true}, Candidate{u"C"_s, {}, u"en1"_s, false}},
        defaults);
    // "A" has no readable mark, so the remembered list stands without it and "A" takes its guess.
    EXPECT_EQ(marks.internetServiceIDs(), (QSet<QString>{u"A"_s, u"C"_s}));
}

TEST_F(InternetMemoryTest, MarksThatAreNoListCountAsAbsent)
{
    defaults.setString(InternetMemory::marksKey(u"Main"_s), u"marks"_s);
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s), {});
    const InternetMarks marks =
        InternetMemory::marks(u"Main"_s, {Candidate{u"A"_s, {}, u"en0"_s, true}}, defaults);
    // Absent marks: the old ticks rule, and an adapter they don't name stays unticked.
    EXPECT_TRUE(marks.internetServiceIDs().isEmpty());
}

TEST_F(InternetMemoryTest, HoldsIsFalseUntilBothKeysSayWhatTheMarksSay)
{
    const InternetMarks marks = InternetMarks{}.marking({u"A"_s});
    EXPECT_FALSE(InternetMemory::holds(marks, u"Main"_s, defaults));
    storeMarks(u"Main"_s, marks.marks);
    EXPECT_FALSE(InternetMemory::holds(marks, u"Main"_s, defaults));
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s), {u"B"_s});
    EXPECT_FALSE(InternetMemory::holds(marks, u"Main"_s, defaults));
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s), {u"A"_s, u"A"_s});
    EXPECT_TRUE(InternetMemory::holds(marks, u"Main"_s, defaults));
    EXPECT_FALSE(InternetMemory::holds(marks.marking({}), u"Main"_s, defaults));
}

TEST_F(InternetMemoryTest, ForgetRemovesBothKeys)
{
    InternetMemory::keep(InternetMarks{}.marking({u"A"_s}), u"Main"_s, defaults);
    InternetMemory::forget(u"Main"_s, defaults);
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"Main"_s)), std::nullopt);
    EXPECT_EQ(defaults.value(InternetMemory::ticksKey(u"Main"_s)), std::nullopt);
}

TEST_F(InternetMemoryTest, RenameMovesBothKeysAsTheyAre)
{
    defaults.setValue(
        InternetMemory::marksKey(u"Old"_s),
        QVariantList{QVariantMap{{u"id"_s, u"A"_s}, {u"internet"_s, true}}, u"junk"_s});
    defaults.setStringList(InternetMemory::ticksKey(u"Old"_s), {u"A"_s});
    const auto marksBefore = defaults.value(InternetMemory::marksKey(u"Old"_s));
    InternetMemory::rename(u"Old"_s, u"New"_s, defaults);
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"New"_s)), marksBefore);
    EXPECT_EQ(ticksIn(u"New"_s), QStringList{u"A"_s});
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"Old"_s)), std::nullopt);
    EXPECT_EQ(defaults.value(InternetMemory::ticksKey(u"Old"_s)), std::nullopt);
}

TEST_F(InternetMemoryTest, RenamingALocationWithoutMemoryRemovesStaleMemoryUnderTheNewName)
{
    InternetMemory::keep(InternetMarks{}.marking({u"Stale"_s}), u"New"_s, defaults);
    InternetMemory::rename(u"Old"_s, u"New"_s, defaults);
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"New"_s)), std::nullopt);
    EXPECT_EQ(defaults.value(InternetMemory::ticksKey(u"New"_s)), std::nullopt);
}

TEST_F(InternetMemoryTest, RenamingOnlyOneKeyMovesThatOneAndClearsTheOther)
{
    defaults.setStringList(InternetMemory::ticksKey(u"Old"_s), {u"A"_s});
    storeMarks(u"New"_s, {Mark{u"Stale"_s, {}, {}, true}});
    InternetMemory::rename(u"Old"_s, u"New"_s, defaults);
    EXPECT_EQ(marksIn(u"New"_s), std::nullopt);
    EXPECT_EQ(ticksIn(u"New"_s), QStringList{u"A"_s});
}

TEST_F(InternetMemoryTest, RenamingToTheSameNameKeepsTheMemory)
{
    InternetMemory::keep(InternetMarks{}.marking({u"A"_s}), u"Main"_s, defaults);
    InternetMemory::rename(u"Main"_s, u"Main"_s, defaults);
    EXPECT_EQ(ticksIn(u"Main"_s), QStringList{u"A"_s});
}

TEST_F(InternetMemoryTest, CopyingCarriesEachMarkToItsCopy)
{
    storeMarks(u"Main"_s,
               {Mark{u"A"_s, 1010, u"en7"_s, true},
                Mark{u"NoCounterpartWithDevice"_s, 1012, u"en7"_s, true},
                Mark{u"NoCounterpartNoDevice"_s, {}, {}, true}, Mark{u"B"_s, {}, {}, false}});
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s),
                           {u"A"_s, u"NoCounterpartWithDevice"_s, u"NoCounterpartNoDevice"_s});
    const QMap<QString, QString> copies{{u"A"_s, u"A2"_s}, {u"B"_s, u"B2"_s}};
    InternetMemory::carry(u"Main"_s, u"Copy"_s, copies, defaults);
    // A tick whose service has no counterpart is dropped; a mark with a device stays under its
    // old identifier, one without a device goes.
    EXPECT_EQ(ticksIn(u"Copy"_s), QStringList{u"A2"_s});
    EXPECT_EQ(marksIn(u"Copy"_s),
              (QList<Mark>{Mark{u"A2"_s, 1010, u"en7"_s, true},
                           Mark{u"NoCounterpartWithDevice"_s, 1012, u"en7"_s, true},
                           Mark{u"B2"_s, {}, {}, false}}));
    // The source keeps its own.
    EXPECT_EQ(ticksIn(u"Main"_s)->size(), 3);
}

TEST_F(InternetMemoryTest, CopyingForgetsWhatTheTargetHeldBefore)
{
    InternetMemory::keep(InternetMarks{}.marking({u"Stale"_s}), u"Copy"_s, defaults);
    InternetMemory::carry(u"Main"_s, u"Copy"_s, {}, defaults);
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"Copy"_s)), std::nullopt);
    EXPECT_EQ(defaults.value(InternetMemory::ticksKey(u"Copy"_s)), std::nullopt);
}

TEST_F(InternetMemoryTest, CopyingOnlyOldTicksWritesOnlyTicks)
{
    defaults.setStringList(InternetMemory::ticksKey(u"Main"_s), {u"A"_s, u"B"_s});
    InternetMemory::carry(u"Main"_s, u"Copy"_s, {{u"B"_s, u"B2"_s}}, defaults);
    EXPECT_EQ(ticksIn(u"Copy"_s), QStringList{u"B2"_s});
    EXPECT_EQ(defaults.value(InternetMemory::marksKey(u"Copy"_s)), std::nullopt);
}

TEST_F(InternetMemoryTest, MemoryIsReadBackByASecondStoreOnTheSameFile)
{
    const InternetMarks marks{{Mark{u"A"_s, 1010, u"en7"_s, true}}, {u"A"_s}};
    InternetMemory::keep(marks, u"Main"_s, defaults);
    const Defaults again = Defaults::inFile(folder.filePath(u"defaults.plist"_s));
    EXPECT_TRUE(InternetMemory::holds(marks, u"Main"_s, again));
}

} // namespace
