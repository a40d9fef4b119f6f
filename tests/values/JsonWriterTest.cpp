#include "VLANKit/formats/JsonWriter.h"

#include "tests/support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

TEST(JsonWriter, IndentsByTwoSpacesWithSpacedColons)
{
    const QJsonObject value{{u"b"_s, QJsonArray{1, u"x"_s}}, {u"a"_s, QJsonObject{{u"k"_s, true}}}};
    const QByteArray expected = "{\n"
                                "  \"a\" : {\n"
                                "    \"k\" : true\n"
                                "  },\n"
                                "  \"b\" : [\n"
                                "    1,\n"
                                "    \"x\"\n"
                                "  ]\n"
                                "}";
    EXPECT_EQ(prettyJson(value), expected);
}

TEST(JsonWriter, SortsKeysByCodePointAtEveryLevel)
{
    // UTF-16 order would put the emoji (a surrogate pair) before U+FFFD; code points don't.
    const QJsonObject inner{{u"\U0001F600"_s, 1}, {u"\uFFFD"_s, 2}, {u"\u00E9"_s, 3},
                            {u"a"_s, 4},          {u"Z"_s, 5},      {u"ab"_s, 6}};
    const QJsonObject value{{u"z"_s, QJsonArray{inner}}, {u"B"_s, inner}};
    const QByteArray innerAt4 = "{\n"
                                "      \"Z\" : 5,\n"
                                "      \"a\" : 4,\n"
                                "      \"ab\" : 6,\n"
                                "      \"\xC3\xA9\" : 3,\n"
                                "      \"\xEF\xBF\xBD\" : 2,\n"
                                "      \"\xF0\x9F\x98\x80\" : 1\n"
                                "    }";
    QByteArray innerAt2 = innerAt4;
    innerAt2.replace("\n    ", "\n  ");
    const QByteArray expected =
        "{\n  \"B\" : " + innerAt2 + ",\n  \"z\" : [\n    " + innerAt4 + "\n  ]\n}";
    EXPECT_EQ(prettyJson(value), expected);
}

TEST(JsonWriter, SameValueBuiltInAnotherOrderGivesSameBytes)
{
    QJsonObject first;
    first.insert(u"name"_s, u"Show"_s);
    first.insert(u"entries"_s, QJsonArray{QJsonObject{{u"tag"_s, 1010}, {u"ip"_s, u"x"_s}}});
    QJsonObject second;
    second.insert(u"entries"_s, QJsonArray{QJsonObject{{u"ip"_s, u"x"_s}, {u"tag"_s, 1010}}});
    second.insert(u"name"_s, u"Show"_s);
    EXPECT_EQ(prettyJson(first), prettyJson(second));
}

TEST(JsonWriter, WritesEmptyContainersOnOneLine)
{
    const QJsonObject value{{u"list"_s, QJsonArray{}}, {u"map"_s, QJsonObject{}}};
    EXPECT_EQ(prettyJson(value), QByteArray("{\n  \"list\" : [],\n  \"map\" : {}\n}"));
}

TEST(JsonWriter, EscapesOnlyQuotesBackslashesAndControlCharacters)
{
    const QString text = u"a\"b\\c/d\n\t\r\b\f\u0001\u001F \u00E9\U0001F39B\u2028"_s;
    const QByteArray expected = "\"a\\\"b\\\\c/d\\n\\t\\r\\b\\f\\u0001\\u001f "
                                "\xC3\xA9\xF0\x9F\x8E\x9B\xE2\x80\xA8\"";
    EXPECT_EQ(prettyJson(QJsonValue(text)), expected);
}

TEST(JsonWriter, KeepsAllSixtyFourBitsOfIntegers)
{
    const QJsonArray value{std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min(),
                           0, -1};
    EXPECT_EQ(prettyJson(value), QByteArray("[\n  9223372036854775807,\n  -9223372036854775808,\n"
                                            "  0,\n  -1\n]"));
}

TEST(JsonWriter, WritesWholeRealsAsIntegersAndOthersInShortestForm)
{
    const QJsonArray value{1010.0, 0.5, -2.25, 1e20};
    EXPECT_EQ(prettyJson(value), QByteArray("[\n  1010,\n  0.5,\n  -2.25,\n  1e+20\n]"));
}

TEST(JsonWriter, WritesBooleansAndNull)
{
    const QJsonArray value{true, false, QJsonValue()};
    EXPECT_EQ(prettyJson(value), QByteArray("[\n  true,\n  false,\n  null\n]"));
}

TEST(JsonWriter, OutputParsesBackToTheSameValue)
{
    const QJsonObject value{
        {u"name"_s, u"B\u00FChne \u2013 \u201CMain\u201D \U0001F39B"_s},
        {u"nested"_s, QJsonArray{QJsonObject{{u"q"_s, u"\"\\\n"_s}}, QJsonArray{}, 12, false}},
        {u"big"_s, std::numeric_limits<qint64>::max()}};
    QJsonParseError error{};
    const QJsonDocument parsed = QJsonDocument::fromJson(prettyJson(value), &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError);
    EXPECT_EQ(parsed.object(), value);
}

} // namespace
