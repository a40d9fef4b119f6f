#include "VLANKit/formats/PropertyList.h"

#include "tests/support/QtPrinters.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

TEST(PropertyList, EveryTypeRoundTrips)
{
    const QVariantMap root{
        {u"string"_s, u"Ü \U0001F600"_s},
        {u"integer"_s, qint64(9000)},
        {u"negative"_s, qint64(-5)},
        {u"real"_s, 2.5},
        {u"yes"_s, true},
        {u"no"_s, false},
        {u"data"_s, QByteArray("\x00\x01\x02", 3)},
        {u"date"_s, QDateTime::fromMSecsSinceEpoch(1700000000000, Qt::UTC)},
        {u"list"_s, QVariantList{u"a"_s, qint64(1)}},
        {u"empty"_s, QVariantMap()},
    };
    const auto xml = xmlPropertyList(root);
    ASSERT_TRUE(xml);
    const auto back = parsePropertyList(*xml);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->toMap(), root);
    EXPECT_EQ(back->toMap().value(u"negative"_s).toLongLong(), -5);
}

TEST(PropertyList, ReadsTheReferenceStyleOfXML)
{
    const QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                           "<plist version=\"1.0\">\n<dict>\n\t<key>MTU</key>\n\t<integer>9000"
                           "</integer>\n\t<key>Empty</key>\n\t<dict/>\n</dict>\n</plist>\n";
    const auto value = parsePropertyList(xml);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->toMap().value(u"MTU"_s).toLongLong(), 9000);
    EXPECT_EQ(value->toMap().value(u"Empty"_s).toMap(), QVariantMap());
}

TEST(PropertyList, GarbageIsNoPropertyList)
{
    EXPECT_EQ(parsePropertyList("not a plist at all"), std::nullopt);
    EXPECT_EQ(parsePropertyList(""), std::nullopt);
    EXPECT_EQ(parsePropertyList("<plist><dict><key>a</key>"), std::nullopt);
}

TEST(PropertyList, TooDeepIsRefusedBeforeParsing)
{
    QByteArray xml = "<plist version=\"1.0\">";
    for (int i = 0; i < 300; ++i)
        xml += "<array>";
    for (int i = 0; i < 300; ++i)
        xml += "</array>";
    xml += "</plist>";
    EXPECT_EQ(parsePropertyList(xml), std::nullopt);
    EXPECT_TRUE(parsePropertyList(xml, PropertyListLimits{1 << 20, 400}).has_value());
}

TEST(PropertyList, TooLargeIsRefused)
{
    const auto xml = xmlPropertyList(QVariantMap{{u"a"_s, QString(1000, u'x')}});
    ASSERT_TRUE(xml);
    EXPECT_EQ(parsePropertyList(*xml, PropertyListLimits{100, 256}), std::nullopt);
}

TEST(PropertyList, NullCannotBeWritten)
{
    EXPECT_EQ(xmlPropertyList(QVariantMap{{u"a"_s, QVariant()}}), std::nullopt);
}

} // namespace
