#include "VLANKit/core/VLANError.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

TEST(VLANError, AuthorizationFailedShowsNegativeStatusWithItsSign)
{
    const auto error = VLANError::authorizationFailed(-60008);
    EXPECT_EQ(error.errorDescription(), u"Authorization could not be created (OSStatus -60008)."_s);
    EXPECT_EQ(error.errorCase(), VLANError::Case::authorizationFailed);
    EXPECT_EQ(error.status(), -60008);
}

TEST(VLANError, LocationNotFoundListsKnownLocations)
{
    const auto error = VLANError::locationNotFound(u"Stage"_s, {u"Automatic"_s, u"Show"_s});
    EXPECT_EQ(error.errorDescription(),
              u"No network Location named 'Stage'. Known Locations: Automatic, Show."_s);
}

TEST(VLANError, LocationNotFoundWithNoLocationsEndsInAFullStop)
{
    EXPECT_EQ(VLANError::locationNotFound(u"Stage"_s, {}).errorDescription(),
              u"No network Location named 'Stage'. Known Locations: ."_s);
}

TEST(VLANError, AdapterTexts)
{
    EXPECT_EQ(VLANError::adapterNotFound(u"en9"_s).errorDescription(),
              u"No interface named 'en9' is attached to this Mac."_s);
    EXPECT_EQ(VLANError::adapterCannotHostVLAN(u"en1"_s).errorDescription(),
              u"Interface 'en1' cannot host a VLAN."_s);
}

TEST(VLANError, NamesWithAnEmDashAreShownUnchanged)
{
    EXPECT_EQ(VLANError::adapterNotFound(u"\u2014"_s).errorDescription(),
              u"No interface named '\u2014' is attached to this Mac."_s);
    EXPECT_EQ(VLANError::locationNotFound(u"\u2014"_s, {u"\u2014"_s}).errorDescription(),
              u"No network Location named '\u2014'. Known Locations: \u2014."_s);
    EXPECT_EQ(
        VLANError::operationFailed(u"\u2014 has no service in this Location."_s).errorDescription(),
        u"\u2014 has no service in this Location."_s);
}

TEST(VLANError, NamesWithPercentSignsAreNotTreatedAsPlaceholders)
{
    EXPECT_EQ(VLANError::adapterNotFound(u"%1 %2"_s).errorDescription(),
              u"No interface named '%1 %2' is attached to this Mac."_s);
}

TEST(VLANError, TagOutOfRangeUsesAnEnDash)
{
    EXPECT_EQ(VLANError::tagOutOfRange(4095).errorDescription(),
              u"VLAN tag 4095 is out of range (must be 1\u20134094)."_s);
    EXPECT_EQ(VLANError::tagOutOfRange(-1).tag(), -1);
}

TEST(VLANError, CommitAndApplyCarryTheSystemTextWithoutAFullStopOfTheirOwn)
{
    const QString text = u"Write attempted on stale version of object (3005)"_s;
    EXPECT_EQ(
        VLANError::commitFailed(text).errorDescription(),
        u"Committing the configuration failed: Write attempted on stale version of object (3005)"_s);
    EXPECT_EQ(
        VLANError::applyFailed(text).errorDescription(),
        u"Applying the configuration failed: Write attempted on stale version of object (3005)"_s);
}

TEST(VLANError, OperationFailedIsTheSentenceAlone)
{
    EXPECT_EQ(VLANError::operationFailed(u"This session is read-only."_s).errorDescription(),
              u"This session is read-only."_s);
}

TEST(VLANError, FixedSentences)
{
    EXPECT_EQ(VLANError::prefsUnavailable().errorDescription(),
              u"Could not open the system network preferences."_s);
    EXPECT_EQ(VLANError::authorizationDenied().errorDescription(),
              u"Authorization was denied or cancelled \u2014 no changes were made."_s);
    EXPECT_EQ(VLANError::noCurrentSet().errorDescription(),
              u"No current network location (set) is active."_s);
}

TEST(VLANError, LocalizedDescriptionIsTheSameText)
{
    const auto error = VLANError::noCurrentSet();
    EXPECT_EQ(error.localizedDescription(), error.errorDescription());
    EXPECT_EQ(QString::fromUtf8(error.what()), error.errorDescription());
}

TEST(VLANError, AnyFailureHasADescription)
{
    EXPECT_EQ(localizedDescription(VLANError::noCurrentSet()),
              u"No current network location (set) is active."_s);
    EXPECT_EQ(localizedDescription(std::runtime_error("No space left on device")),
              u"No space left on device"_s);
}

TEST(VLANError, IsThrownAndCaughtAsAnException)
{
    try {
        throw VLANError::tagOutOfRange(0);
    } catch (const std::exception &failure) {
        EXPECT_EQ(localizedDescription(failure),
                  u"VLAN tag 0 is out of range (must be 1\u20134094)."_s);
        return;
    }
    FAIL() << "nothing was thrown";
}

} // namespace
