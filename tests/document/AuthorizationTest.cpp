// The administrator right, as the machine's description answers it.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString networkRight = u"system.preferences.network"_s;
constexpr std::uint32_t askFlags = kAuthorizationFlagInteractionAllowed
                                   | kAuthorizationFlagExtendRights
                                   | kAuthorizationFlagPreAuthorize;

class Authorization : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }

    void answer(const QByteArray &administrator)
    {
        write(u"machine.toml"_s, "[administrator]\n" + administrator + "\n");
        reopen();
    }
};

TEST_F(Authorization, AFolderWithoutADescriptionGrantsTheRight)
{
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(created.status, errAuthorizationSuccess);
    ASSERT_TRUE(created.authorization);
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              errAuthorizationSuccess);
}

TEST_F(Authorization, AllowLetsTheSessionCommit)
{
    answer("answer = \"allow\"");
    const AuthorizationCreated created = backend->authorizationCreate();
    ASSERT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags), 0);
    const SessionRef session =
        backend->scPreferencesCreateWithAuthorization(u"Orvane"_s, created.authorization);
    ASSERT_TRUE(backend->scNetworkSetSetName(backend->scNetworkSetCopyCurrent(session), u"Mine"_s));
    EXPECT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_TRUE(backend->scPreferencesApplyChanges(session));
}

TEST_F(Authorization, DenyAnswersDeniedAndTheSessionCannotCommit)
{
    answer("answer = \"deny\"");
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(created.status, errAuthorizationSuccess);
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              errAuthorizationDenied);
    const SessionRef session =
        backend->scPreferencesCreateWithAuthorization(u"Orvane"_s, created.authorization);
    ASSERT_TRUE(session);
    EXPECT_FALSE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(backend->scError(), kSCStatusAccessError);
}

TEST_F(Authorization, CancelAnswersCanceled)
{
    answer("answer = \"cancel\"");
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              errAuthorizationCanceled);
}

TEST_F(Authorization, FailAnswersItsStatus)
{
    answer("answer = \"fail\"\nstatus = -60031");
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(created.status, errAuthorizationSuccess);
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              -60031);
}

TEST_F(Authorization, NoHandleCreatesWithStatusZeroAndNoHandle)
{
    answer("answer = \"no-handle\"");
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(created.status, errAuthorizationSuccess);
    EXPECT_FALSE(created.authorization);
    EXPECT_EQ(backend->openAuthorizations(), 0);
}

TEST_F(Authorization, FreeingGivesTheHandleBackOnce)
{
    const AuthorizationCreated created = backend->authorizationCreate();
    EXPECT_EQ(backend->openAuthorizations(), 1);
    EXPECT_EQ(backend->authorizationFree(created.authorization), errAuthorizationSuccess);
    EXPECT_EQ(backend->openAuthorizations(), 0);
    EXPECT_EQ(backend->authorizationFree(created.authorization), errAuthorizationInvalidRef);
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              errAuthorizationInvalidRef);
    EXPECT_EQ(backend->openAuthorizations(), 0);
}

TEST_F(Authorization, AFreedHandleOpensNoSession)
{
    const AuthorizationCreated created = backend->authorizationCreate();
    ASSERT_EQ(backend->authorizationFree(created.authorization), errAuthorizationSuccess);
    EXPECT_FALSE(backend->scPreferencesCreateWithAuthorization(u"Orvane"_s, created.authorization));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
}

TEST_F(Authorization, AHandleOfAnotherBackendMeansNothingHere)
{
    const auto other = another();
    const AuthorizationCreated created = other->authorizationCreate();
    EXPECT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags),
              errAuthorizationInvalidRef);
    EXPECT_EQ(other->authorizationFree(created.authorization), errAuthorizationSuccess);
}

TEST_F(Authorization, ARightGrantedAfterTheSessionWasOpenedDoesNotReachIt)
{
    const AuthorizationCreated created = backend->authorizationCreate();
    const SessionRef session =
        backend->scPreferencesCreateWithAuthorization(u"Orvane"_s, created.authorization);
    ASSERT_EQ(backend->authorizationCopyRights(created.authorization, networkRight, askFlags), 0);
    EXPECT_FALSE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(backend->scError(), kSCStatusAccessError);
}

} // namespace
