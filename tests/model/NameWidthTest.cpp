#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "tests/model/ModelTestSupport.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Six points for each character, so the widths are known without a font.
qreal sixEach(const QString &text)
{
    return 6.0 * double(text.size());
}

RowSource named(RowSource::Kind kind, qsizetype characters)
{
    RowSource source;
    source.kind = kind;
    source.name = QString(characters, u'x');
    return source;
}

constexpr auto vlan = RowSource::Kind::vlan;
constexpr auto adapter = RowSource::Kind::adapter;

TEST(NameWidth, ShortNamesKeepTheFloor)
{
    EXPECT_EQ(AppModel::nameWidth({named(vlan, 10), named(adapter, 10)}, sixEach), 210);
    EXPECT_EQ(AppModel::nameWidth({}, sixEach), 210);
}

TEST(NameWidth, LongVLANNameWidensTheColumn)
{
    EXPECT_EQ(AppModel::nameWidth({named(vlan, 50)}, sixEach), 50 * 6 + 40);
}

TEST(NameWidth, AdapterNamesCount132PointsLess)
{
    EXPECT_EQ(AppModel::nameWidth({named(adapter, 50)}, sixEach), 210);
    EXPECT_EQ(AppModel::nameWidth({named(adapter, 70)}, sixEach), 70 * 6 + 40 - 132);
    EXPECT_EQ(AppModel::nameWidth({named(adapter, 70), named(vlan, 60)}, sixEach), 60 * 6 + 40);
}

TEST(NameWidth, EachNameIsRoundedUpFirst)
{
    const auto measure = [](const QString &) { return 300.2; };
    EXPECT_EQ(AppModel::nameWidth({named(vlan, 1)}, measure), 341);
}

class NameWidthOfTheShow : public ModelTest
{};

TEST_F(NameWidthOfTheShow, MeasuresInTheApplicationsFontAt12)
{
    const auto model = makeModel();
    model->reload();
    const QFontMetricsF metrics(Theme::font(12));
    double widest = 210;
    for (const AppModel::Row &row : model->rows()) {
        const double width = std::ceil(metrics.horizontalAdvance(row->source().name)) + 40;
        widest = std::max(widest, row->source().isVLAN() ? width : width - 132);
    }
    EXPECT_EQ(model->nameColumnWidth(), std::ceil(widest));
}

TEST_F(NameWidthOfTheShow, ModelUsesTheMeasureItIsGiven)
{
    const auto model = makeModel();
    model->measureName = [](const QString &text) { return text.startsWith(u"1010"_s) ? 500 : 1; };
    model->reload();
    EXPECT_EQ(model->nameColumnWidth(), 540);
}

} // namespace
