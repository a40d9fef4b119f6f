// A decorator between the caller and the backend sees every call and what it handed over.
#include "VLANKit/platform/ForwardingBackend.h"

#include "tests/document/DocumentTestSupport.h"

#include <QHash>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class CountingBackend : public ForwardingBackend
{
public:
    using ForwardingBackend::ForwardingBackend;

    mutable QHash<QString, int> calls;
    mutable qsizetype handedOverInAll = 0;

protected:
    void called(const char *operation, qsizetype handedOver) const override
    {
        ++calls[QString::fromLatin1(operation)];
        handedOverInAll += handedOver;
    }
};

class Forwarding : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }
};

TEST_F(Forwarding, CountsEachCallAndWhatItHandedOver)
{
    CountingBackend counting(backend);
    const SessionRef session = counting.scPreferencesCreate(u"Orvane"_s);
    const SetRef current = counting.scNetworkSetCopyCurrent(session);
    const auto services = counting.scNetworkSetCopyServices(current);
    ASSERT_TRUE(services);
    for (const ServiceRef &service : *services)
        (void)counting.scNetworkServiceGetName(service);
    EXPECT_EQ(counting.calls.value(u"scPreferencesCreate"_s), 1);
    EXPECT_EQ(counting.calls.value(u"scNetworkSetCopyCurrent"_s), 1);
    EXPECT_EQ(counting.calls.value(u"scNetworkServiceGetName"_s), 6);
    // A session, a set and six services.
    EXPECT_EQ(counting.handedOverInAll, 8);
}

TEST_F(Forwarding, GivesTheInnerBackendsAnswers)
{
    CountingBackend counting(backend);
    const SessionRef session = counting.scPreferencesCreate(u"Orvane"_s);
    EXPECT_EQ(counting.scNetworkSetGetName(counting.scNetworkSetCopyCurrent(session)),
              u"KVRT Shows 2"_s);
    EXPECT_EQ(counting.machineDisplayName(), backend->machineDisplayName());
    EXPECT_FALSE(counting.scNetworkSetCopy(session, u"nothing"_s));
    EXPECT_EQ(counting.scError(), backend->scError());
    EXPECT_EQ(counting.calls.value(u"machineDisplayName"_s), 1);
}

} // namespace
