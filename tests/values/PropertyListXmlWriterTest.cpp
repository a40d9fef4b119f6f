// VLANKit writes XML property lists itself; libplist's writer is the reference it must match.
#include "VLANKit/formats/PropertyList.h"
#include "tests/support/LibplistXml.h"
#include "tests/support/QtPrinters.h"

#include <QDateTime>
#include <QFile>
#include <QRandomGenerator>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

void expectSameAsLibplist(const QVariant &value)
{
    const auto ours = xmlPropertyList(value);
    const auto reference = OrvaneTest::libplistXml(value);
    ASSERT_TRUE(ours);
    ASSERT_TRUE(reference);
    EXPECT_EQ(*ours, *reference);
}

QVariant parsedFile(const QString &relative)
{
    QFile file(QStringLiteral(ORVANE_SOURCE_DIR) + u'/' + relative);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return parsePropertyList(file.readAll()).value_or(QVariant());
}

// Texts that exercise escaping and encoding: entities, quotes, controls, non-ASCII and
// characters outside the basic plane.
const QStringList awkwardTexts{
    u""_s,
    u"plain"_s,
    u"<&>"_s,
    u"a < b && c > d"_s,
    u"\"quoted\" 'single'"_s,
    u"tab\tnew line\nreturn\r"_s,
    u"Ü é 東京 \U0001F600"_s,
    u"&amp; already"_s,
    u"]]>"_s,
};

class RandomTree
{
public:
    explicit RandomTree(quint32 seed)
        : m_random(seed)
    {}

    QVariant value(int depth)
    {
        const int kinds = depth >= 12 ? 8 : 11;
        switch (m_random.bounded(kinds)) {
        case 0:
            return m_random.bounded(2) == 1;
        case 1:
            return qint64(m_random.generate64());
        case 2:
            return qint64(m_random.bounded(-5000, 5000));
        case 3:
            return real();
        case 4:
            return text();
        case 5:
            return data();
        case 6:
            return date();
        case 7:
            return QStringList{text(), text()};
        case 8:
        case 9:
            return map(depth);
        default:
            return list(depth);
        }
    }

    QVariantMap map(int depth)
    {
        QVariantMap items;
        const int count = m_random.bounded(5);
        for (int i = 0; i < count; ++i)
            items.insert(text() + QString::number(i), value(depth + 1));
        return items;
    }

private:
    QVariantList list(int depth)
    {
        QVariantList items;
        const int count = m_random.bounded(5);
        for (int i = 0; i < count; ++i)
            items.append(value(depth + 1));
        return items;
    }

    double real()
    {
        const double reals[] = {0.0,
                                -0.0,
                                1.0,
                                0.1,
                                -2.5,
                                1e21,
                                1e-7,
                                123456.789,
                                std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()};
        const int pick = m_random.bounded(int(std::size(reals)) + 1);
        return pick < int(std::size(reals)) ? reals[pick] : (m_random.generateDouble() - 0.5) * 1e6;
    }

    QString text() { return awkwardTexts.at(m_random.bounded(int(awkwardTexts.size()))); }

    QByteArray data()
    {
        QByteArray bytes(m_random.bounded(200), Qt::Uninitialized);
        for (char &byte : bytes)
            byte = char(m_random.bounded(256));
        return bytes;
    }

    // Within the reach of libplist's 32-bit seconds, either side of its epoch.
    QDateTime date()
    {
        const qint64 ms = m_random.bounded(Q_INT64_C(-2000000000000), Q_INT64_C(2000000000000));
        return QDateTime::fromMSecsSinceEpoch(ms + Q_INT64_C(978307200000), Qt::UTC);
    }

    QRandomGenerator m_random;
};

TEST(PropertyListXmlWriter, WritesTheExamplesAsLibplistDoes)
{
    for (const QString &file :
         {u"examples/show-mac/preferences.plist"_s, u"examples/show-mac/NetworkInterfaces.plist"_s,
          u"examples/lighting-mac/preferences.plist"_s,
          u"examples/lighting-mac/NetworkInterfaces.plist"_s,
          u"tests/document/fixtures/preferences.plist"_s,
          u"tests/document/fixtures/NetworkInterfaces.plist"_s}) {
        SCOPED_TRACE(file.toStdString());
        const QVariant tree = parsedFile(file);
        ASSERT_TRUE(tree.isValid());
        expectSameAsLibplist(tree);
    }
}

TEST(PropertyListXmlWriter, WritesGeneratedTreesAsLibplistDoes)
{
    for (quint32 seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        expectSameAsLibplist(RandomTree(seed).map(0));
    }
}

TEST(PropertyListXmlWriter, EscapesOnlyTheThreeEntitiesInTextsAndKeys)
{
    const QVariantMap root{{u"<key & more>"_s, u"\"a\" < 'b' & c > d"_s}};
    expectSameAsLibplist(root);
    EXPECT_TRUE(xmlPropertyList(root)->contains("<key>&lt;key &amp; more&gt;</key>"));
    EXPECT_TRUE(xmlPropertyList(root)->contains("<string>\"a\" &lt; 'b' &amp; c &gt; d</string>"));
}

TEST(PropertyListXmlWriter, WritesEmptyContainersAndTextsLikeLibplist)
{
    const QVariantMap root{{u""_s, u""_s},
                           {u"array"_s, QVariantList()},
                           {u"dict"_s, QVariantMap()},
                           {u"list"_s, QStringList()},
                           {u"data"_s, QByteArray()}};
    expectSameAsLibplist(root);
    expectSameAsLibplist(QVariantMap());
    expectSameAsLibplist(QVariantList());
}

TEST(PropertyListXmlWriter, WritesDataLinesThatNarrowWithDepthAsLibplistDoes)
{
    const QByteArray bytes(300, '\x5a');
    QVariant nested = bytes;
    for (int depth = 0; depth < 12; ++depth) {
        SCOPED_TRACE(depth);
        expectSameAsLibplist(nested);
        nested = QVariantList{nested, bytes.left(depth)};
    }
}

TEST(PropertyListXmlWriter, WritesDatesToTheWholeSecondEitherSideOfTheEpoch)
{
    for (const qint64 ms :
         {Q_INT64_C(978307200000), Q_INT64_C(978307199500), Q_INT64_C(978307200500),
          Q_INT64_C(978307198500), Q_INT64_C(0), Q_INT64_C(1700000000999)}) {
        SCOPED_TRACE(ms);
        expectSameAsLibplist(QVariantList{QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC)});
    }
}

TEST(PropertyListXmlWriter, WritesRealsAndExtremeIntegersAsLibplistDoes)
{
    expectSameAsLibplist(QVariantList{
        0.0, -0.0, 1.0, 0.1, 1e300, -1e-300, 5e-324, std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max(), qint64(-1)});
}

TEST(PropertyListXmlWriter, RefusesWhatNoPropertyListHolds)
{
    EXPECT_FALSE(xmlPropertyList(QVariant()));
    EXPECT_FALSE(xmlPropertyList(QVariantMap{{u"a"_s, QVariant()}}));
    EXPECT_FALSE(xmlPropertyList(QVariantList{QString(u"a\0b"_s)}));
    EXPECT_FALSE(xmlPropertyList(QVariantMap{{u"a\0b"_s, 1}}));
    EXPECT_FALSE(xmlPropertyList(QVariantMap{{u"a"_s, QStringList{u"x\0"_s}}}));
}

} // namespace
