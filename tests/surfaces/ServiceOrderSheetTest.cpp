#include "OrvaneApp/surfaces/ServiceOrderSheet.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/ContentView.h"
#include "OrvaneApp/surfaces/OrderConfirmation.h"
#include "OrvaneApp/surfaces/ServiceOrderRows.h"
#include "OrvaneApp/surfaces/ServiceOrderTable.h"
#include "OrvaneApp/surfaces/kit/Popover.h"
#include "OrvaneApp/surfaces/kit/TextControlWalk.h"
#include "tests/model/ModelTestSupport.h"

#include <QApplication>
#include <QDataStream>
#include <QDropEvent>
#include <QFontMetricsF>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <chrono>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

/// The view's own handling of a drop, which is protected.
struct DropAccess : QTableView
{
    using QTableView::dropEvent;
};
constexpr auto dropOnView = &DropAccess::dropEvent;

/// The sheet over a copy of the show machine, raised as the strip raises it, with the model's
/// clock moved by hand.
class OrderSheet : public ModelTest
{
protected:
    void TearDown() override
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *popover = qobject_cast<Popover *>(window))
                popover->dismissQuietly();
        }
        sheet.reset();
        model.reset();
    }

    void open()
    {
        model = makeModel();
        model->reload(false);
        model->setShowingServiceOrder(true);
        sheet = std::make_unique<ServiceOrderSheet>(*model);
        sheet->show();
    }

    [[nodiscard]] ServiceOrderTable &table() const { return *sheet->table(); }

    static QStringList idsOf(const QList<ServiceRecord> &services)
    {
        QStringList ids;
        for (const ServiceRecord &service : services)
            ids.append(service.serviceID);
        return ids;
    }
    [[nodiscard]] QStringList storedOrder() const { return idsOf(readStore()->services()); }

    /// Keeps the first `count` services of the Location and takes the others out, elsewhere.
    void keepServices(qsizetype count)
    {
        changeElsewhere([count](VLANStore &store) {
            const QList<ServiceRecord> services = store.services();
            for (qsizetype at = count; at < services.size(); ++at)
                store.removeService(services.at(at).serviceID, services.at(at).name);
        });
    }

    /// Drags the rows at these offsets as a person does: selected, carried off by the view's
    /// own drag, and dropped on the upper half of the row at `target`, or on the lower half of
    /// the last row when `target` is past it.
    void drag(const QList<int> &rows, int target)
    {
        QItemSelectionModel &selection = *table().selectionModel();
        selection.clearSelection();
        for (const int row : rows)
            selection.select(table().model()->index(row, 0),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
        std::unique_ptr<QMimeData> carried(table().model()->mimeData(selection.selectedIndexes()));
        const int count = table().model()->rowCount();
        const bool pastTheEnd = target >= count;
        const QRect row = table().visualRect(
            table().model()->index(pastTheEnd ? count - 1 : target, ServiceOrderLayout::service));
        const QPoint point(row.center().x(), pastTheEnd ? row.bottom() - row.height() / 4
                                                        : row.top() + row.height() / 4);
        QDropEvent drop(point, Qt::MoveAction, carried.get(), Qt::LeftButton, Qt::NoModifier);
        // Qt hands a drop to a view only at the end of a drag it runs itself, with the
        // platform's pointer; the test hands the view the drop as that end does.
        (table().*dropOnView)(&drop);
    }

    [[nodiscard]] QStringList texts() const
    {
        QStringList words;
        for (const RenderTextReport::Text &text : table().visibleTexts())
            words.append(text.text);
        return words;
    }

    std::unique_ptr<AppModel> model;
    std::unique_ptr<ServiceOrderSheet> sheet;
};

TEST_F(OrderSheet, OneServiceMakesTheListOneRowHigh)
{
    keepServices(1);
    open();
    ASSERT_EQ(model->serviceOrder().size(), 1);
    EXPECT_EQ(table().height(), 24);
    EXPECT_EQ(table().verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(OrderSheet, TwoServicesMakeTheList48High)
{
    keepServices(2);
    open();
    ASSERT_EQ(model->serviceOrder().size(), 2);
    EXPECT_EQ(table().height(), 48);
}

TEST_F(OrderSheet, NineteenServicesMakeTheList444HighAndScroll)
{
    changeElsewhere([](VLANStore &store) {
        const qsizetype have = store.services().size();
        for (qsizetype tag = 3001; have + (tag - 3001) < 19; ++tag)
            store.createVLAN(tag, u"%1 - Spare (DONGLE)"_s.arg(tag), u"en5"_s, IPConfig{}, true);
    });
    open();
    ASSERT_EQ(model->serviceOrder().size(), 19);
    EXPECT_EQ(table().height(), 444);
    EXPECT_EQ(table().verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
}

TEST(ServiceOrderLayout, NoRowsStillShowOneAndMoreThanNineteenStopAtHalfARowPast18)
{
    EXPECT_EQ(ServiceOrderLayout::listHeight(0), 24);
    EXPECT_EQ(ServiceOrderLayout::listHeight(18), 432);
    EXPECT_EQ(ServiceOrderLayout::listHeight(4094), 444);
}

TEST(ServiceOrderLayout, ShortNamesGiveTheLeastWidths)
{
    ServiceRecord service;
    service.name = u"A"_s;
    const ServiceOrderLayout layout = ServiceOrderLayout::measuring({service});
    EXPECT_EQ(layout.serviceWidth, 220);
    EXPECT_EQ(layout.addressWidth, 60);
    // 26 + 62 + 220 + 90 + 60 + 40 + 16 + 40 is 554, under the sheet's least width.
    EXPECT_EQ(layout.sheetWidth(), 560);
}

TEST(ServiceOrderLayout, ALongNameWidensTheServiceColumnBy64PastIt)
{
    ServiceRecord service;
    service.name = u"1010 - Front of House Control and Monitoring (DONGLE)"_s;
    const int name = int(std::ceil(QFontMetricsF(Theme::font(12)).horizontalAdvance(service.name)));
    ASSERT_GT(name + 64, 220);
    const ServiceOrderLayout layout = ServiceOrderLayout::measuring({service});
    EXPECT_EQ(layout.serviceWidth, name + 64);
    EXPECT_EQ(layout.sheetWidth(), 26 + 62 + name + 64 + 90 + 60 + 40 + 16 + 40);
}

TEST_F(OrderSheet, TheHeadAndTheRowsShowTheOrder)
{
    open();
    EXPECT_EQ(sheet->windowTitle(), u"Service order"_s);
    QStringList heads;
    for (const QLabel *label : sheet->findChildren<QLabel *>())
        heads.append(label->text());
    EXPECT_TRUE(heads.contains(u"Service order"_s));
    EXPECT_TRUE(heads.contains(ServiceOrderSheet::introduction(u"Show"_s)));
    for (const QString &head : {u"#"_s, u"INTERNET"_s, u"SERVICE"_s, u"INTERFACE"_s, u"IPV4"_s})
        EXPECT_TRUE(heads.contains(head)) << head.toStdString();
    EXPECT_EQ(ServiceOrderSheet::introduction(u"Show"_s),
              u"The services in Show, highest first. macOS gives the internet to the highest one "
              "that has a route to it. Tick the ones that reach the internet where you are, and "
              "drag a row to move it: the new order is written straight away."_s);
    const QStringList words = texts();
    // The first row: its rank, its name, its tag in the pill, its interface, its address.
    const ServiceRecord &first = model->serviceOrder().first();
    ASSERT_TRUE(first.isVLAN);
    EXPECT_EQ(words.mid(0, 5), (QStringList{u"1"_s, first.name, QString::number(*first.vlanTag),
                                            first.interfaceBSD, first.ip.summary()}));
    EXPECT_EQ(sheet->width(), ServiceOrderLayout::measuring(model->serviceOrder()).sheetWidth());
}

TEST_F(OrderSheet, TheColumnHeadStandsOverItsColumns)
{
    open();
    const QStringList heads{u"#"_s, u"INTERNET"_s, u"SERVICE"_s, u"INTERFACE"_s, u"IPV4"_s};
    for (int column = 0; column < ServiceOrderLayout::columnCount; ++column) {
        const QLabel *head = nullptr;
        for (const QLabel *label : sheet->findChildren<QLabel *>()) {
            if (label->text() == heads.at(column))
                head = label;
        }
        ASSERT_TRUE(head) << heads.at(column).toStdString();
        const QRect cell = table().visualRect(table().model()->index(0, column));
        EXPECT_EQ(head->mapTo(sheet.get(), QPoint(0, 0)).x(),
                  table().viewport()->mapTo(sheet.get(), cell.topLeft()).x());
        EXPECT_EQ(head->width(), table().columns().width(ServiceOrderLayout::Column(column)));
    }
}

TEST_F(OrderSheet, AVLANWithNoKnownTagReadsVLANInItsPill)
{
    open();
    ServiceRecord untagged = model->serviceOrder().first();
    ASSERT_TRUE(untagged.isVLAN);
    untagged.vlanTag.reset();
    model->setServiceOrder({untagged});
    const QStringList words = texts();
    ASSERT_GE(words.size(), 3);
    EXPECT_EQ(words.at(1), untagged.name);
    EXPECT_EQ(words.at(2), u"VLAN"_s);
    EXPECT_EQ(ServiceOrderTable::pillText(untagged), u"VLAN"_s);
}

TEST_F(OrderSheet, AnAdapterHasNoPill)
{
    open();
    const qsizetype ethernet =
        idsOf(model->serviceOrder()).indexOf(serviceNamed(*readStore(), u"Ethernet"_s).serviceID);
    ASSERT_GE(ethernet, 0);
    model->setServiceOrder({model->serviceOrder().at(ethernet)});
    EXPECT_EQ(texts(), (QStringList{u"1"_s, u"Ethernet"_s, u"en0"_s, u"DHCP"_s}));
}

TEST_F(OrderSheet, ARiskyVLANCarriesTheMarkWithItsHelp)
{
    open();
    ASSERT_FALSE(model->riskyVLANIDs().isEmpty());
    const qsizetype risky = idsOf(model->serviceOrder()).indexOf(*model->riskyVLANIDs().begin());
    ASSERT_GE(risky, 0);
    bool found = false;
    const QRect cell =
        table().visualRect(table().model()->index(int(risky), ServiceOrderLayout::service));
    for (int x = cell.left(); x <= cell.right() && !found; ++x)
        found = table().helpAt(QPoint(x, cell.center().y())) == ServiceOrderTable::riskHelp;
    EXPECT_TRUE(found);
    EXPECT_EQ(ServiceOrderTable::riskHelp,
              u"Closed VLAN ranked above an adapter that carries internet"_s);
    // A service that is not at risk has no mark to explain.
    const QRect safe = table().visualRect(table().model()->index(1, ServiceOrderLayout::service));
    ASSERT_FALSE(model->riskyVLANIDs().contains(model->serviceOrder().at(1).serviceID));
    for (int x = safe.left(); x <= safe.right(); ++x)
        EXPECT_TRUE(table().helpAt(QPoint(x, safe.center().y())).isEmpty());
}

TEST_F(OrderSheet, TheTickFollowsTheInternetSetAndTellsWhatItIs)
{
    open();
    const QAbstractItemModel &rows = *table().model();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QModelIndex tick = rows.index(row, ServiceOrderLayout::internet);
        const bool internet =
            model->internetServiceIDs().contains(model->serviceOrder().at(row).serviceID);
        EXPECT_EQ(tick.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked, internet);
        EXPECT_TRUE(rows.flags(tick) & Qt::ItemIsUserCheckable);
        EXPECT_EQ(table().helpAt(table().visualRect(tick).center()),
                  u"Tick if this service reaches the internet"_s);
    }
}

TEST_F(OrderSheet, ATickChangesTheInternetSetAndClearsAnError)
{
    open();
    model->setOrderError(u"An older failure"_s);
    const ServiceRecord first = model->serviceOrder().first();
    ASSERT_FALSE(model->internetServiceIDs().contains(first.serviceID));
    const QByteArray file = preferencesBytes();
    const QRect tick = table().visualRect(table().model()->index(0, ServiceOrderLayout::internet));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, tick.center());
    EXPECT_TRUE(model->internetServiceIDs().contains(first.serviceID));
    EXPECT_EQ(table().model()->index(0, 1).data(Qt::CheckStateRole).value<Qt::CheckState>(),
              Qt::Checked);
    EXPECT_FALSE(model->orderError());
    EXPECT_FALSE(sheet->errorLine()->isVisible());
    // A tick is remembered, not written to the network's store.
    EXPECT_EQ(preferencesBytes(), file);
}

TEST_F(OrderSheet, DraggingTwoRowsDownWritesThemBeforeTheTarget)
{
    open();
    const QStringList before = idsOf(model->serviceOrder());
    ASSERT_GE(before.size(), 8);
    drag({1, 2}, 6);
    QStringList expected{before.at(0), before.at(3), before.at(4),
                         before.at(5), before.at(1), before.at(2)};
    expected.append(before.mid(6));
    EXPECT_EQ(idsOf(model->serviceOrder()), expected);
    clock->advance(1s);
    EXPECT_EQ(storedOrder(), expected);
    EXPECT_EQ(idsOf(model->serviceOrder()), expected);
    EXPECT_EQ(table().model()->rowCount(), before.size());
}

TEST_F(OrderSheet, DraggingTwoRowsUpWritesThemBeforeTheTarget)
{
    open();
    const QStringList before = idsOf(model->serviceOrder());
    ASSERT_GE(before.size(), 11);
    drag({9, 7}, 2);
    QStringList expected{before.at(0), before.at(1), before.at(7), before.at(9), before.at(2),
                         before.at(3), before.at(4), before.at(5), before.at(6), before.at(8)};
    expected.append(before.mid(10));
    clock->advance(1s);
    EXPECT_EQ(storedOrder(), expected);
    EXPECT_EQ(idsOf(model->serviceOrder()), expected);
}

TEST_F(OrderSheet, DroppingPastTheLastRowMovesToTheEnd)
{
    open();
    const QStringList before = idsOf(model->serviceOrder());
    drag({0}, int(before.size()));
    QStringList expected = before.mid(1);
    expected.append(before.first());
    clock->advance(1s);
    EXPECT_EQ(storedOrder(), expected);
}

TEST_F(OrderSheet, ARowDroppedWhereItStandsWritesNothing)
{
    open();
    const QByteArray file = preferencesBytes();
    drag({3, 4}, 4);
    drag({3, 4}, 5);
    clock->advance(1s);
    EXPECT_EQ(preferencesBytes(), file);
}

TEST_F(OrderSheet, ADropOfOffsetsNotInTheListIsRefused)
{
    open();
    const QByteArray file = preferencesBytes();
    const auto carrying = [](const QList<qsizetype> &offsets) {
        QByteArray encoded;
        QDataStream stream(&encoded, QIODevice::WriteOnly);
        stream << offsets;
        auto data = std::make_unique<QMimeData>();
        data->setData(ServiceOrderRows::offsetsType, encoded);
        return data;
    };
    QAbstractItemModel &rows = *table().model();
    EXPECT_FALSE(rows.dropMimeData(carrying({99}).get(), Qt::MoveAction, 0, 0, {}));
    EXPECT_FALSE(rows.dropMimeData(carrying({4, 2}).get(), Qt::MoveAction, 0, 0, {}));
    EXPECT_FALSE(rows.dropMimeData(carrying({}).get(), Qt::MoveAction, 0, 0, {}));
    EXPECT_FALSE(rows.dropMimeData(carrying({3}).get(), Qt::CopyAction, 0, 0, {}));
    QMimeData words;
    words.setText(u"3"_s);
    EXPECT_FALSE(rows.dropMimeData(&words, Qt::MoveAction, 0, 0, {}));
    clock->advance(1s);
    EXPECT_EQ(preferencesBytes(), file);
    EXPECT_TRUE(rows.dropMimeData(carrying({3}).get(), Qt::MoveAction, 0, 0, {}));
    clock->advance(1s);
    EXPECT_NE(preferencesBytes(), file);
}

TEST_F(OrderSheet, ADisabledServiceIsDrawnAtHalfStrengthAndStillDrags)
{
    open();
    const QList<ServiceRecord> order = model->serviceOrder();
    qsizetype disabled = -1;
    for (qsizetype at = 0; at < order.size() && disabled < 0; ++at) {
        if (!order.at(at).enabled)
            disabled = at;
    }
    ASSERT_GT(disabled, 0) << "the show machine has a service that is off";
    EXPECT_EQ(ServiceOrderTable::strength(order.at(disabled)), 0.5);
    EXPECT_EQ(ServiceOrderTable::strength(order.at(0)), order.at(0).enabled ? 1.0 : 0.5);
    const QModelIndex row = table().model()->index(int(disabled), ServiceOrderLayout::service);
    EXPECT_TRUE(table().model()->flags(row) & Qt::ItemIsDragEnabled);
    EXPECT_TRUE(table().model()->flags(row) & Qt::ItemIsEnabled);
    drag({int(disabled)}, 0);
    clock->advance(1s);
    EXPECT_EQ(storedOrder().first(), order.at(disabled).serviceID);
}

TEST_F(OrderSheet, AFailedMoveShowsItsWordsUnderTheListAndPutsTheRowsBack)
{
    answerAdministrator(u"answer = \"deny\""_s);
    open();
    const QStringList before = idsOf(model->serviceOrder());
    EXPECT_FALSE(sheet->errorLine()->isVisible());
    drag({3}, 0);
    const QString words = u"Authorization was denied or cancelled \u2014 no changes were made."_s;
    EXPECT_EQ(model->orderError(), words);
    EXPECT_TRUE(sheet->errorLine()->isVisible());
    QStringList shown;
    for (const QLabel *label : sheet->errorLine()->findChildren<QLabel *>())
        shown.append(label->text());
    EXPECT_TRUE(shown.contains(words));
    EXPECT_EQ(idsOf(model->serviceOrder()), before);
    EXPECT_FALSE(model->result());
}

TEST_F(OrderSheet, DoneClearsTheErrorAndClosesTheSheet)
{
    open();
    model->setOrderError(u"An older failure"_s);
    sheet->doneButton()->click();
    EXPECT_FALSE(model->orderError());
    EXPECT_FALSE(model->showingServiceOrder());
    EXPECT_TRUE(sheet->doneButton()->isDefault());
}

TEST_F(OrderSheet, EscapeIsDone)
{
    open();
    model->setOrderError(u"An older failure"_s);
    QTest::keyClick(sheet.get(), Qt::Key_Escape);
    EXPECT_FALSE(model->showingServiceOrder());
    EXPECT_FALSE(model->orderError());
}

TEST_F(OrderSheet, AnOrderThatNeedsMendingOffersTheRecommendedOneAndAsksFirst)
{
    open();
    ASSERT_TRUE(model->orderNeedsFixing());
    QPushButton *recommended = sheet->recommendedButton();
    EXPECT_EQ(recommended->text(), u"Apply recommended order\u2026"_s);
    EXPECT_TRUE(recommended->isEnabled());
    EXPECT_EQ(recommended->toolTip(),
              u"Internet first, then the adapters, then the closed VLANs"_s);
    const QByteArray file = preferencesBytes();
    recommended->click();
    EXPECT_TRUE(sheet->confirmingRecommended());
    auto *question = sheet->findChild<OrderConfirmation *>();
    ASSERT_TRUE(question);
    EXPECT_EQ(preferencesBytes(), file);
    QPushButton *apply = nullptr;
    for (QPushButton *button : question->findChildren<QPushButton *>()) {
        if (button->text() == u"Apply"_s)
            apply = button;
    }
    ASSERT_TRUE(apply);
    const QStringList recommendedOrder = idsOf(model->recommendedOrder());
    apply->click();
    EXPECT_FALSE(sheet->confirmingRecommended());
    EXPECT_EQ(storedOrder(), recommendedOrder);
    clock->advance(1s);
    EXPECT_FALSE(model->orderNeedsFixing());
    EXPECT_TRUE(model->showingServiceOrder());
}

TEST_F(OrderSheet, WithNothingToFixTheRecommendedOrderIsOfferedDisabledWithItsHelp)
{
    open();
    model->applyRecommendedOrder();
    clock->advance(1s);
    ASSERT_FALSE(model->orderNeedsFixing());
    QPushButton *recommended = sheet->recommendedButton();
    EXPECT_TRUE(recommended->isVisible());
    EXPECT_FALSE(recommended->isEnabled());
    EXPECT_EQ(recommended->toolTip(), u"The order is already the recommended one"_s);
    EXPECT_EQ(recommended->accessibleDescription(), u"The order is already the recommended one"_s);
}

TEST_F(OrderSheet, TheQuestionClosesWhenNothingIsLeftToMend)
{
    open();
    sheet->recommendedButton()->click();
    ASSERT_TRUE(sheet->confirmingRecommended());
    // The order is mended elsewhere; the settling read finds nothing to fix.
    changeElsewhere([this](VLANStore &store) {
        store.setServiceOrder(idsOf(store.recommendedOrder(model->internetServiceIDs())));
    });
    model->reload(false);
    ASSERT_FALSE(model->orderNeedsFixing());
    EXPECT_FALSE(sheet->confirmingRecommended());
    EXPECT_FALSE(sheet->recommendedButton()->isEnabled());
}

TEST_F(OrderSheet, NothingStandsAtTheEdgeOrIsCutShort)
{
    open();
    sheet->resize(sheet->width(), sheet->sizeHint().height());
    const TextControlCount count = walkTextControls(*sheet);
    EXPECT_TRUE(count.cutShort.isEmpty()) << count.cutShort.join(u", "_s).toStdString();
    EXPECT_TRUE(count.atEdge.isEmpty()) << count.atEdge.join(u", "_s).toStdString();
    EXPECT_GT(count.fields, 5 * int(model->serviceOrder().size()));
}

TEST_F(OrderSheet, TheWindowRaisesTheSheetWhileTheModelAsksForIt)
{
    model = makeModel();
    model->reload(false);
    ContentView content(*model, defaults, false, ProjectPanels{});
    content.resize(1340, 720);
    content.show();
    EXPECT_FALSE(content.findChild<ServiceOrderSheet *>());
    model->setShowingServiceOrder(true);
    auto *shown = content.findChild<ServiceOrderSheet *>();
    ASSERT_TRUE(shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_TRUE(shown->isModal());
    shown->doneButton()->click();
    EXPECT_FALSE(model->showingServiceOrder());
}

} // namespace
