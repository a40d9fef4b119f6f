#include "VLANKit/machine/LiveState.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using Address = LiveState::Address;

QVariantMap ipv4(const QStringList &addresses, const QVariant &masks = {},
                 const QVariant &router = {})
{
    QVariantMap value{{u"Addresses"_s, addresses}};
    if (masks.isValid())
        value.insert(u"SubnetMasks"_s, masks);
    if (router.isValid())
        value.insert(u"Router"_s, router);
    return value;
}

TEST(LiveState, ReadsEachServicesAddressMaskAndRouter)
{
    const LiveState state = LiveState::parsing(
        {{u"State:/Network/Service/S1/IPv4"_s,
          ipv4({u"10.0.10.5"_s}, QStringList{u"255.255.255.0"_s}, u"10.0.10.1"_s)},
         {u"State:/Network/Service/S2/IPv4"_s, ipv4({u"169.254.3.4"_s})}});
    EXPECT_EQ(state.ipv4,
              (QMap<QString, Address>{
                  {u"S1"_s, Address{u"10.0.10.5"_s, u"255.255.255.0"_s, u"10.0.10.1"_s}},
                  {u"S2"_s, Address{u"169.254.3.4"_s, std::nullopt, std::nullopt}}}));
}

TEST(LiveState, KeyWithTrailingOrDoubledSlashesStillParses)
{
    const LiveState state =
        LiveState::parsing({{u"State://Network/Service//S1/IPv4/"_s, ipv4({u"10.0.0.1"_s})}});
    EXPECT_EQ(state.ipv4.keys(), QStringList{u"S1"_s});
}

TEST(LiveState, KeyWithOnePieceTooManyIsSkipped)
{
    const LiveState state =
        LiveState::parsing({{u"State:/Network/Service/S1/IPv4/Extra"_s, ipv4({u"10.0.0.1"_s})},
                            {u"State:/Network/Service/Service/S1/IPv4"_s, ipv4({u"10.0.0.2"_s})}});
    EXPECT_TRUE(state.ipv4.isEmpty());
}

TEST(LiveState, FirstTwoPiecesAreNotLookedAt)
{
    const LiveState state =
        LiveState::parsing({{u"Setup:/Anything/Service/S1/IPv4"_s, ipv4({u"10.0.0.1"_s})}});
    EXPECT_EQ(state.ipv4.keys(), QStringList{u"S1"_s});
}

TEST(LiveState, ThirdAndFifthPiecesMustBeServiceAndIPv4)
{
    const LiveState state =
        LiveState::parsing({{u"State:/Network/Interface/en0/IPv4"_s, ipv4({u"10.0.0.1"_s})},
                            {u"State:/Network/Service/S1/IPv6"_s, ipv4({u"10.0.0.2"_s})},
                            {u"State:/Network/service/S2/ipv4"_s, ipv4({u"10.0.0.3"_s})}});
    EXPECT_TRUE(state.ipv4.isEmpty());
}

TEST(LiveState, ServiceWithTwoAddressesGetsTheFirstOfEachList)
{
    const LiveState state =
        LiveState::parsing({{u"State:/Network/Service/S1/IPv4"_s,
                             ipv4({u"10.0.0.1"_s, u"10.0.1.1"_s},
                                  QStringList{u"255.255.0.0"_s, u"255.255.255.0"_s})}});
    EXPECT_EQ(state.ipv4.value(u"S1"_s), (Address{u"10.0.0.1"_s, u"255.255.0.0"_s, std::nullopt}));
}

TEST(LiveState, EmptyAddressListGivesNoEntryEvenWithARouter)
{
    const LiveState state =
        LiveState::parsing({{u"State:/Network/Service/S1/IPv4"_s,
                             ipv4({}, QStringList{u"255.0.0.0"_s}, u"10.0.0.1"_s)}});
    EXPECT_TRUE(state.ipv4.isEmpty());
}

TEST(LiveState, AddressesAloneGiveAnEntryWithoutMaskAndRouter)
{
    const LiveState state =
        LiveState::parsing({{u"State:/Network/Service/S1/IPv4"_s, ipv4({u"10.0.0.1"_s})}});
    EXPECT_EQ(state.ipv4.value(u"S1"_s), (Address{u"10.0.0.1"_s, std::nullopt, std::nullopt}));
}

TEST(LiveState, RouterThatIsNoStringStaysAbsentAndTheEntryStands)
{
    const LiveState state = LiveState::parsing(
        {{u"State:/Network/Service/S1/IPv4"_s,
          ipv4({u"10.0.0.1"_s}, QStringList{u"255.0.0.0"_s}, QStringList{u"10.0.0.254"_s})}});
    EXPECT_EQ(state.ipv4.value(u"S1"_s), (Address{u"10.0.0.1"_s, u"255.0.0.0"_s, std::nullopt}));
}

TEST(LiveState, MasksOfTheWrongShapeStayAbsent)
{
    for (const QVariant &masks : {QVariant(QStringList{}), QVariant(u"255.0.0.0"_s),
                                  QVariant(QVariantList{u"255.0.0.0"_s, 8})}) {
        const LiveState state = LiveState::parsing(
            {{u"State:/Network/Service/S1/IPv4"_s, ipv4({u"10.0.0.1"_s}, masks)}});
        EXPECT_EQ(state.ipv4.value(u"S1"_s), (Address{u"10.0.0.1"_s, std::nullopt, std::nullopt}))
            << masks.typeName();
    }
}

TEST(LiveState, AddressesOfTheWrongShapeGiveNoEntry)
{
    const LiveState state = LiveState::parsing(
        {{u"State:/Network/Service/S1/IPv4"_s, QVariantMap{{u"Addresses"_s, u"10.0.0.1"_s}}},
         {u"State:/Network/Service/S2/IPv4"_s,
          QVariantMap{{u"Addresses"_s, QVariantList{u"10.0.0.1"_s, 5}}}},
         {u"State:/Network/Service/S3/IPv4"_s, QVariantMap{{u"Router"_s, u"10.0.0.1"_s}}},
         {u"State:/Network/Service/S4/IPv4"_s, QVariant(QStringList{u"10.0.0.1"_s})},
         {u"State:/Network/Service/S5/IPv4"_s, QVariant()}});
    EXPECT_TRUE(state.ipv4.isEmpty());
}

TEST(LiveState, EmptyAnswerGivesTheEmptySnapshot)
{
    EXPECT_EQ(LiveState::parsing({}), LiveState{});
    EXPECT_TRUE(LiveState::parsing({}).ipv4.isEmpty());
}

TEST(LiveState, SnapshotsCompareByTheirMaps)
{
    const QVariantMap answer{{u"State:/Network/Service/S1/IPv4"_s, ipv4({u"10.0.0.1"_s})}};
    EXPECT_EQ(LiveState::parsing(answer), LiveState::parsing(answer));
    const QVariantMap moved{{u"State:/Network/Service/S1/IPv4"_s, ipv4({u"10.0.0.2"_s})}};
    EXPECT_NE(LiveState::parsing(answer), LiveState::parsing(moved));
}

} // namespace
