#include "VLANKit/machine/MachineIdentity.h"

#include "VLANKit/machine/MachineFacts.h"
#include "tests/support/QtPrinters.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// A machine as a test describes it.
class TestMachine final : public MachineFacts
{
public:
    TestMachine(QString name, std::optional<QString> uuid)
        : m_name(std::move(name))
        , m_uuid(std::move(uuid))
    {}
    [[nodiscard]] QString machineDisplayName() const override { return m_name; }
    [[nodiscard]] std::optional<QString> hardwareUUID() const override { return m_uuid; }

private:
    QString m_name;
    std::optional<QString> m_uuid;
};

QString markOf(const std::optional<QString> &uuid)
{
    return MachineIdentity::current(TestMachine(u"FOH"_s, uuid)).id;
}

TEST(MachineIdentity, CurrentTakesTheNameThatThePlatformGives)
{
    const MachineIdentity identity =
        MachineIdentity::current(TestMachine(u"Zo\u00EB\u2019s MacBook Pro"_s, u"abc"_s));
    EXPECT_EQ(identity.name, u"Zo\u00EB\u2019s MacBook Pro"_s);
    EXPECT_EQ(identity.id, u"ba7816bf8f01"_s);
}

TEST(MachineIdentity, AbsentAndEmptyIdentifiersBothGiveAnEmptyMark)
{
    EXPECT_EQ(markOf(std::nullopt), QString());
    EXPECT_EQ(markOf(u""_s), QString());
}

TEST(MachineIdentity, MarkIsTheStartOfTheSha256DigestAtEveryRun)
{
    // Published and independently computed digests: the mark can't drift between builds.
    EXPECT_EQ(markOf(u"abc"_s), u"ba7816bf8f01"_s);
    EXPECT_EQ(markOf(u"564D0E2A-1B8C-4F5E-9A3D-7C2B1E0F4A6D"_s), u"b533e3c50178"_s);
    EXPECT_EQ(markOf(u"564D0E2A-1B8C-4F5E-9A3D-7C2B1E0F4A6D"_s),
              markOf(u"564D0E2A-1B8C-4F5E-9A3D-7C2B1E0F4A6D"_s));
}

TEST(MachineIdentity, IdentifierIsHashedAsUtf8AsItStands)
{
    EXPECT_EQ(markOf(u"Zo\u00EB"_s), u"c6a12698582f"_s);
    EXPECT_NE(markOf(u" abc"_s), markOf(u"abc"_s));
}

TEST(MachineIdentity, IdentifiersDifferingOnlyInCaseGiveDifferentMarks)
{
    EXPECT_EQ(markOf(u"ABC"_s), u"b5d4045c3f46"_s);
    EXPECT_NE(markOf(u"ABC"_s), markOf(u"abc"_s));
}

TEST(MachineIdentity, MarkKeepsLeadingZeros)
{
    EXPECT_EQ(markOf(u"4C4C4544-0042-2595"_s), u"000c0d31a56e"_s);
}

TEST(MachineIdentity, MarkIsAlwaysTwelveLowerCaseHexCharacters)
{
    const QRegularExpression shape(u"^[0-9a-f]{12}$"_s);
    for (int i = 0; i < 500; ++i) {
        const QString mark = markOf(u"4C4C4544-0042-%1"_s.arg(i));
        EXPECT_TRUE(shape.match(mark).hasMatch()) << mark.toStdString();
    }
}

} // namespace
