#include "VLANKit/internet/InternetMarks.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using Mark = InternetMarks::Mark;
using Candidate = InternetMarks::Candidate;

Candidate vlan(const QString &id, qint64 tag, const QString &device, bool guess = false)
{
    return Candidate{id, tag, device, guess};
}

Candidate adapter(const QString &id, const QString &device, bool guess = false)
{
    return Candidate{id, std::nullopt, device, guess};
}

Mark markOf(const QString &id, std::optional<qint64> tag, const std::optional<QString> &device,
            bool internet)
{
    return Mark{id, tag, device, internet};
}

/// The answer that the reconciled marks give for one service.
std::optional<bool> answerFor(const InternetMarks &marks, const QString &id)
{
    for (const Mark &mark : marks.marks) {
        if (mark.serviceID == id)
            return mark.internet;
    }
    return std::nullopt;
}

TEST(InternetMarks, NoMemoryAtAllTakesTheGuess)
{
    const auto marks = InternetMarks::reconciled(
        std::nullopt, std::nullopt,
        {adapter(u"A"_s, u"en0"_s, true), vlan(u"B"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(answerFor(marks, u"A"_s), true);
    EXPECT_EQ(answerFor(marks, u"B"_s), false);
    EXPECT_EQ(marks.internetServiceIDs(), QSet<QString>{u"A"_s});
}

TEST(InternetMarks, EmptyOldTicksLeaveAdaptersUntickedAndVLANsToTheirGuess)
{
    const auto marks = InternetMarks::reconciled(
        std::nullopt, QSet<QString>{},
        {adapter(u"A"_s, u"en0"_s, true), vlan(u"B"_s, 1010, u"en7"_s, true),
         vlan(u"C"_s, 1012, u"en7"_s, false),
         Candidate{u"VPN"_s, std::nullopt, std::nullopt, true}});
    EXPECT_EQ(answerFor(marks, u"A"_s), false);
    EXPECT_EQ(answerFor(marks, u"B"_s), true);
    EXPECT_EQ(answerFor(marks, u"C"_s), false);
    EXPECT_EQ(answerFor(marks, u"VPN"_s), false);
}

TEST(InternetMarks, OldTicksTickTheServicesTheyName)
{
    const auto marks = InternetMarks::reconciled(
        std::nullopt, QSet<QString>{u"A"_s, u"B"_s},
        {adapter(u"A"_s, u"en0"_s, false), vlan(u"B"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(marks.internetServiceIDs(), (QSet<QString>{u"A"_s, u"B"_s}));
}

TEST(InternetMarks, RememberedEmptyListIsNotAbsent)
{
    // The old ticks name both services, yet they are not looked at: each takes its guess.
    const auto marks = InternetMarks::reconciled(
        QList<Mark>{}, QSet<QString>{u"A"_s, u"B"_s},
        {adapter(u"A"_s, u"en0"_s, false), vlan(u"B"_s, 1010, u"en7"_s, true)});
    EXPECT_EQ(answerFor(marks, u"A"_s), false);
    EXPECT_EQ(answerFor(marks, u"B"_s), true);
}

TEST(InternetMarks, RememberedMarkAnswersForItsService)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"A"_s, std::nullopt, u"en0"_s, false)},
                                  std::nullopt, {adapter(u"A"_s, u"en0"_s, true)});
    EXPECT_EQ(answerFor(marks, u"A"_s), false);
}

TEST(InternetMarks, MarkTakesTheCandidatesTagAndDevice)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"B"_s, 1, u"en1"_s, true)}, std::nullopt,
                                  {vlan(u"B"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(marks.marks, QList<Mark>{markOf(u"B"_s, 1010, u"en7"_s, true)});
}

TEST(InternetMarks, EarlierOfTwoMarksWithOneIdentifierWins)
{
    const auto marks = InternetMarks::reconciled(
        QList<Mark>{markOf(u"B"_s, 1010, u"en7"_s, true), markOf(u"B"_s, 1010, u"en7"_s, false)},
        std::nullopt, {vlan(u"B"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(answerFor(marks, u"B"_s), true);
}

TEST(InternetMarks, HeldIsEveryCandidatesIdentifier)
{
    const auto marks = InternetMarks::reconciled(
        QList<Mark>{markOf(u"Gone"_s, std::nullopt, std::nullopt, true)}, std::nullopt,
        {adapter(u"A"_s, u"en0"_s), vlan(u"B"_s, 1010, u"en7"_s)});
    EXPECT_EQ(marks.held, (QSet<QString>{u"A"_s, u"B"_s}));
    EXPECT_FALSE(marks.internetServiceIDs().contains(u"Gone"_s));
}

TEST(InternetMarks, RebuiltVLANOnTheSameAdapterTakesTheTickAndDropsTheOldMark)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"Old"_s, 1010, u"en7"_s, true)}, std::nullopt,
                                  {vlan(u"New"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(marks.marks, QList<Mark>{markOf(u"New"_s, 1010, u"en7"_s, true)});
}

TEST(InternetMarks, VLANRebuiltOnAnotherAdapterKeepsTheTickByTagAndTheOldMarkWaits)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"Old"_s, 1010, u"en7"_s, true)}, std::nullopt,
                                  {vlan(u"New"_s, 1010, u"en8"_s, false)});
    EXPECT_EQ(marks.marks, (QList<Mark>{markOf(u"New"_s, 1010, u"en8"_s, true),
                                        markOf(u"Old"_s, 1010, u"en7"_s, true)}));
    EXPECT_EQ(marks.internetServiceIDs(), QSet<QString>{u"New"_s});
}

TEST(InternetMarks, AdapterMarkWithoutTagFollowsItsReplacedService)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"Old"_s, std::nullopt, u"en0"_s, true)},
                                  std::nullopt, {adapter(u"New"_s, u"en0"_s, false)});
    EXPECT_EQ(marks.marks, QList<Mark>{markOf(u"New"_s, std::nullopt, u"en0"_s, true)});
}

TEST(InternetMarks, OfSeveralDepartedMarksWithTheTagATickWins)
{
    for (const bool tickedFirst : {true, false}) {
        const auto marks =
            InternetMarks::reconciled(QList<Mark>{markOf(u"One"_s, 1010, u"en7"_s, tickedFirst),
                                                  markOf(u"Two"_s, 1010, u"en8"_s, !tickedFirst)},
                                      std::nullopt, {vlan(u"New"_s, 1010, u"en9"_s, false)});
        EXPECT_EQ(answerFor(marks, u"New"_s), true) << tickedFirst;
    }
}

TEST(InternetMarks, DepartedMarksWithTheTagAllUntickedGiveFalse)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"One"_s, 1010, u"en7"_s, false)},
                                  std::nullopt, {vlan(u"New"_s, 1010, u"en9"_s, true)});
    EXPECT_EQ(answerFor(marks, u"New"_s), false);
}

TEST(InternetMarks, SameVLANMarkAnswersBeforeTheTagRule)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"Elsewhere"_s, 1010, u"en8"_s, true),
                                              markOf(u"Here"_s, 1010, u"en7"_s, false)},
                                  std::nullopt, {vlan(u"New"_s, 1010, u"en7"_s, true)});
    EXPECT_EQ(answerFor(marks, u"New"_s), false);
}

TEST(InternetMarks, DepartedMarkWithoutDeviceIsKeptAndAnswersOnlyByTag)
{
    const QList<Mark> remembered{markOf(u"Old"_s, 1010, std::nullopt, true)};
    // Rule 3.1 never matches it: a VLAN on en7 with another tag takes its guess.
    const auto otherTag = InternetMarks::reconciled(remembered, std::nullopt,
                                                    {vlan(u"New"_s, 1012, u"en7"_s, false)});
    EXPECT_EQ(answerFor(otherTag, u"New"_s), false);
    EXPECT_EQ(otherTag.marks.last(), remembered.first());
    // An adapter on any device doesn't find it either.
    const auto anAdapter =
        InternetMarks::reconciled(remembered, std::nullopt, {adapter(u"New"_s, u"en7"_s, false)});
    EXPECT_EQ(answerFor(anAdapter, u"New"_s), false);
    // Rule 3.2 does: the same tag takes its tick, and the mark still stays.
    const auto sameTag = InternetMarks::reconciled(remembered, std::nullopt,
                                                   {vlan(u"New"_s, 1010, u"en7"_s, false)});
    EXPECT_EQ(answerFor(sameTag, u"New"_s), true);
    EXPECT_EQ(sameTag.marks.last(), remembered.first());
}

TEST(InternetMarks, CandidateWithoutDeviceTakesItsGuess)
{
    const auto marks =
        InternetMarks::reconciled(QList<Mark>{markOf(u"Old"_s, 1010, u"en7"_s, true)}, std::nullopt,
                                  {Candidate{u"New"_s, 1010, std::nullopt, false}});
    EXPECT_EQ(answerFor(marks, u"New"_s), false);
    EXPECT_EQ(marks.marks.size(), 2);
}

TEST(InternetMarks, PresentServicesComeFirstThenDepartedInTheirOrder)
{
    const auto marks = InternetMarks::reconciled(
        QList<Mark>{markOf(u"Gone2"_s, 2, u"en1"_s, true), markOf(u"B"_s, 1, u"en0"_s, false),
                    markOf(u"Gone1"_s, 3, u"en1"_s, false)},
        std::nullopt, {vlan(u"C"_s, 9, u"en0"_s), vlan(u"B"_s, 1, u"en0"_s)});
    QStringList ids;
    for (const Mark &mark : marks.marks)
        ids.append(mark.serviceID);
    EXPECT_EQ(ids, (QStringList{u"C"_s, u"B"_s, u"Gone2"_s, u"Gone1"_s}));
}

TEST(InternetMarks, MarkingAnUnknownIdentifierMakesABareMarkThatIsHeld)
{
    const InternetMarks before{{markOf(u"A"_s, std::nullopt, u"en0"_s, false)}, {u"A"_s}};
    const InternetMarks after = before.marking({u"X"_s});
    EXPECT_EQ(after.marks, (QList<Mark>{markOf(u"A"_s, std::nullopt, u"en0"_s, false),
                                        markOf(u"X"_s, std::nullopt, std::nullopt, true)}));
    EXPECT_TRUE(after.held.contains(u"X"_s));
    EXPECT_EQ(after.internetServiceIDs(), QSet<QString>{u"X"_s});
}

TEST(InternetMarks, MarkingAppendsNewMarksInAscendingOrder)
{
    const InternetMarks after = InternetMarks{}.marking({u"c"_s, u"B"_s, u"a"_s, u"\u00E9"_s});
    QStringList ids;
    for (const Mark &mark : after.marks)
        ids.append(mark.serviceID);
    EXPECT_EQ(ids, (QStringList{u"B"_s, u"a"_s, u"c"_s, u"\u00E9"_s}));
}

TEST(InternetMarks, MarkingSetsEveryHeldMarkAndLeavesDepartedOnesAlone)
{
    const InternetMarks before{{markOf(u"A"_s, std::nullopt, u"en0"_s, true),
                                markOf(u"B"_s, 1, u"en0"_s, false),
                                markOf(u"Gone"_s, 2, u"en0"_s, true)},
                               {u"A"_s, u"B"_s}};
    const InternetMarks after = before.marking({u"B"_s});
    EXPECT_EQ(after.marks, (QList<Mark>{markOf(u"A"_s, std::nullopt, u"en0"_s, false),
                                        markOf(u"B"_s, 1, u"en0"_s, true),
                                        markOf(u"Gone"_s, 2, u"en0"_s, true)}));
    EXPECT_EQ(after.held, (QSet<QString>{u"A"_s, u"B"_s}));
}

TEST(InternetMarks, MarkingADepartedIdentifierHoldsItAgain)
{
    const InternetMarks before{{markOf(u"Gone"_s, 2, u"en0"_s, false)}, {}};
    const InternetMarks after = before.marking({u"Gone"_s});
    EXPECT_EQ(after.marks, QList<Mark>{markOf(u"Gone"_s, 2, u"en0"_s, true)});
    EXPECT_EQ(after.internetServiceIDs(), QSet<QString>{u"Gone"_s});
}

TEST(InternetMarks, StoredMarkHoldsOnlyThePresentFields)
{
    EXPECT_EQ(markOf(u"A"_s, std::nullopt, std::nullopt, true).stored(),
              (QVariantMap{{u"id"_s, u"A"_s}, {u"internet"_s, true}}));
    EXPECT_EQ(markOf(u"B"_s, 1010, u"en7"_s, false).stored(),
              (QVariantMap{{u"id"_s, u"B"_s},
                           {u"internet"_s, false},
                           {u"tag"_s, qint64(1010)},
                           {u"device"_s, u"en7"_s}}));
}

TEST(InternetMarks, StoredFormReadsBackAsTheSameMarks)
{
    const InternetMarks marks{{markOf(u"A"_s, std::nullopt, u"en0"_s, true),
                               markOf(u"B"_s, 1010, u"en7"_s, false),
                               markOf(u"C"_s, std::nullopt, std::nullopt, true)},
                              {u"A"_s}};
    QVariantList list;
    for (const QVariantMap &map : marks.stored())
        list.append(map);
    EXPECT_EQ(InternetMarks::marksFromStored(QVariant(list)), marks.marks);
}

TEST(InternetMarks, StoredEntriesWithEmptyIdOrTextualInternetAreDroppedAndTheListStands)
{
    const QVariantList list{QVariantMap{{u"id"_s, u""_s}, {u"internet"_s, true}},
                            QVariantMap{{u"id"_s, u"A"_s}, {u"internet"_s, u"true"_s}},
                            QVariantMap{{u"id"_s, u"B"_s}, {u"internet"_s, true}},
                            QVariantMap{{u"internet"_s, true}},
                            QVariantMap{{u"id"_s, 5}, {u"internet"_s, true}},
                            QVariantMap{{u"id"_s, u"C"_s}, {u"internet"_s, 1}},
                            QVariant(u"D"_s),
                            QVariant(QVariantList{u"id"_s, u"E"_s}),
                            QVariantMap{{u"id"_s, u"F"_s}, {u"internet"_s, false}}};
    EXPECT_EQ(InternetMarks::marksFromStored(QVariant(list)),
              (QList<Mark>{markOf(u"B"_s, std::nullopt, std::nullopt, true),
                           markOf(u"F"_s, std::nullopt, std::nullopt, false)}));
}

TEST(InternetMarks, MistypedTagOrDeviceLeavesThatFieldAbsent)
{
    const auto mark = Mark::fromStored(QVariantMap{
        {u"id"_s, u"A"_s}, {u"internet"_s, true}, {u"tag"_s, u"1010"_s}, {u"device"_s, 7}});
    EXPECT_EQ(mark, markOf(u"A"_s, std::nullopt, std::nullopt, true));
    const auto real =
        Mark::fromStored(QVariantMap{{u"id"_s, u"A"_s}, {u"internet"_s, true}, {u"tag"_s, 1010.0}});
    EXPECT_EQ(real, markOf(u"A"_s, std::nullopt, std::nullopt, true));
}

TEST(InternetMarks, NothingStoredOrNoListReadsAsNoMarks)
{
    EXPECT_EQ(InternetMarks::marksFromStored(std::nullopt), std::nullopt);
    EXPECT_EQ(InternetMarks::marksFromStored(QVariant(u"marks"_s)), std::nullopt);
    EXPECT_EQ(InternetMarks::marksFromStored(QVariant(QVariantMap{{u"id"_s, u"A"_s}})),
              std::nullopt);
    EXPECT_EQ(InternetMarks::marksFromStored(QVariant(QVariantList{})), QList<Mark>{});
}

} // namespace
