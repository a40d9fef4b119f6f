#include "VLANKit/formats/PropertyList.h"

#include "tests/support/QtPrinters.h"

#include <QDateTime>
#include <QFile>

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

// Binary property lists of one entry, as the system's own writer lays them out.
const QByteArray binaryWithNulInUTF16Key(
    "bplist00\xd1\x01\x02\x64\x00\x61\x00\x00\x00\x62\x00\xe9\x52\x78\x79\x08\x0b\x14"
    "\x00\x00\x00\x00\x00\x00\x01\x01\x00\x00\x00\x00\x00\x00\x00\x03\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x17",
    58);
const QByteArray binaryWithNulInASCIIValue(
    "bplist00\xd1\x01\x02\x51\x61\x53\x78\x00\x79\x08\x0b\x0d\x00\x00\x00\x00\x00\x00"
    "\x01\x01\x00\x00\x00\x00\x00\x00\x00\x03\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x11",
    52);
const QByteArray binaryWithNulInUTF16Value(
    "bplist00\xd1\x01\x02\x51\x61\x64\x00\x78\x00\x00\x00\x79\x00\xe9\x08\x0b\x0d\x00"
    "\x00\x00\x00\x00\x00\x01\x01\x00\x00\x00\x00\x00\x00\x00\x03\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x16",
    57);
const QByteArray binaryWithoutNul(
    "bplist00\xd1\x01\x02\x51\x61\x63\x00\x78\x00\x79\x00\xe9\x08\x0b\x0d\x00\x00\x00"
    "\x00\x00\x00\x01\x01\x00\x00\x00\x00\x00\x00\x00\x03\x00\x00\x00\x00\x00\x00\x00"
    "\x00\x00\x00\x00\x00\x00\x00\x00\x14",
    55);

QString refusalOf(const QByteArray &data)
{
    QString why;
    EXPECT_EQ(parsePropertyList(data, {}, &why), std::nullopt);
    return why;
}

TEST(PropertyList, BinaryWithoutNulReadsWhole)
{
    const auto value = parsePropertyList(binaryWithoutNul);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->toMap(), (QVariantMap{{u"a"_s, u"xy\u00e9"_s}}));
}

TEST(PropertyList, NulInABinaryUTF16KeyIsRefusedNotAborted)
{
    EXPECT_EQ(refusalOf(binaryWithNulInUTF16Key), u"it holds a NUL character inside a text"_s);
}

TEST(PropertyList, NulInABinaryASCIIValueIsRefusedNotCutShort)
{
    EXPECT_EQ(refusalOf(binaryWithNulInASCIIValue), u"it holds a NUL character inside a text"_s);
}

TEST(PropertyList, NulInABinaryUTF16ValueIsRefusedNotAborted)
{
    EXPECT_EQ(refusalOf(binaryWithNulInUTF16Value), u"it holds a NUL character inside a text"_s);
}

TEST(PropertyList, NulInAnXMLValueOrKeyIsRefused)
{
    const QByteArray value("<plist version=\"1.0\"><dict><key>a</key><string>x\0y</string>"
                           "</dict></plist>",
                           63);
    const QByteArray key("<plist version=\"1.0\"><dict><key>a\0b</key><string>xy</string>"
                         "</dict></plist>",
                         63);
    EXPECT_EQ(refusalOf(value), u"it holds a NUL character inside a text"_s);
    EXPECT_EQ(refusalOf(key), u"it holds a NUL character inside a text"_s);
}

TEST(PropertyList, NulAsACharacterReferenceIsNoPropertyList)
{
    EXPECT_EQ(parsePropertyList("<plist version=\"1.0\"><dict><key>a</key><string>x&#0;y"
                                "</string></dict></plist>"),
              std::nullopt);
}

TEST(PropertyList, ADamagedBinaryTrailerIsNoPropertyList)
{
    // Offsets and counts that point past the end must neither be followed nor crash the scan.
    QByteArray damaged = binaryWithoutNul;
    for (int at = damaged.size() - 24; at < damaged.size(); ++at)
        damaged[at] = '\xff';
    EXPECT_EQ(parsePropertyList(damaged), std::nullopt);
    QByteArray shortened = binaryWithNulInUTF16Key.left(40);
    EXPECT_EQ(parsePropertyList(shortened), std::nullopt);
}

TEST(PropertyList, TheRefusalsSayWhy)
{
    EXPECT_EQ(refusalOf(QByteArray()), u"the file is empty"_s);
    const auto xml = xmlPropertyList(QVariantMap{{u"a"_s, QString(1000, u'x')}});
    ASSERT_TRUE(xml);
    QString why;
    EXPECT_EQ(parsePropertyList(*xml, PropertyListLimits{100, 256}, &why), std::nullopt);
    EXPECT_TRUE(why.startsWith(u"it is %1 bytes long"_s.arg(xml->size()))) << why.toStdString();
}

TEST(PropertyList, ATextOrKeyHoldingNulIsNotWritten)
{
    const QString withNul = u"x"_s + QChar(0) + u"y"_s;
    EXPECT_EQ(xmlPropertyList(QVariantMap{{u"a"_s, withNul}}), std::nullopt);
    EXPECT_EQ(xmlPropertyList(QVariantMap{{withNul, u"a"_s}}), std::nullopt);
    EXPECT_EQ(xmlPropertyList(QVariantMap{{u"a"_s, QStringList{u"b"_s, withNul}}}), std::nullopt);
}

} // namespace

namespace {

QByteArray fuzzRegression(const QString &name)
{
    QFile file(QStringLiteral(ORVANE_SOURCE_DIR) + u"/fuzz/regressions/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Found by fuzzing: a damaged entry of the offset table came before the key with the NUL, and
// the check gave up there while libplist went on and aborted.
TEST(PropertyList, NulInABinaryKeyBehindADamagedOffsetIsRefusedNotAborted)
{
    const QByteArray damaged = fuzzRegression(u"PropertyList/NulKeyBehindADamagedOffset"_s);
    ASSERT_FALSE(damaged.isEmpty());
    QString why;
    EXPECT_FALSE(parsePropertyList(damaged, {}, &why));
    EXPECT_EQ(why, u"it holds a NUL character inside a text"_s);
}

TEST(PropertyList, DatesBeyondThirtyTwoBitSecondsAreWrittenAtTheirEnd)
{
    const QVariantList dates{QDateTime(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC),
                             QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC)};
    const auto xml = xmlPropertyList(dates);
    ASSERT_TRUE(xml);
    EXPECT_TRUE(xml->contains("<date>1932-12-13T20:45:52Z</date>"));
    EXPECT_TRUE(xml->contains("<date>2069-01-19T03:14:07Z</date>"));
    EXPECT_EQ(xmlPropertyList(*parsePropertyList(*xml)), xml);
}

// Found by fuzzing: a binary date far before 1933 read as a date no file could hold, and so
// changed when it was written and read again.
TEST(PropertyList, AFarBinaryDateReadsBackTheSameOnceWritten)
{
    const auto tree =
        parsePropertyList(fuzzRegression(u"PropertyList/DateBeyondThirtyTwoBitSeconds"_s));
    ASSERT_TRUE(tree);
    const auto written = xmlPropertyList(*tree);
    ASSERT_TRUE(written);
    EXPECT_EQ(xmlPropertyList(*parsePropertyList(*written)), written);
}

} // namespace

namespace {

// Found by fuzzing: a binary list holding a value of a kind no settings file holds read with
// that value absent, and so could not be written back: it is refused whole instead.
TEST(PropertyList, AValueOfAnUnknownKindIsRefusedWithASentence)
{
    const QByteArray odd = fuzzRegression(u"PropertyList/ValueOfAnUnknownKind"_s);
    ASSERT_FALSE(odd.isEmpty());
    QString why;
    EXPECT_FALSE(parsePropertyList(odd, {}, &why));
    EXPECT_EQ(why, u"it holds a value that is no text, number, date, data, list or dictionary"_s);
}

} // namespace
