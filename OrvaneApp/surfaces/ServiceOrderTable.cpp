#include "OrvaneApp/surfaces/ServiceOrderTable.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/ServiceOrderRows.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <cmath>

using namespace Qt::StringLiterals;
using VLANKit::ServiceRecord;

const QString ServiceOrderTable::riskHelp =
    u"Closed VLAN ranked above an adapter that carries internet"_s;

namespace {

constexpr int pillSize = 10;
constexpr int markSize = 9;
/// Between a name, its pill and its mark.
constexpr int partGap = 6;
constexpr qreal dimmed = 0.5;

using Column = ServiceOrderLayout::Column;

/// A painted part of a cell: a text, the pill, the risk mark or the tick.
struct Part
{
    enum Kind { text, secondaryText, pill, mark, tick };
    Kind kind;
    QRect rect;
    QString words{};
};

} // namespace

/// Where the parts of a cell stand: the one answer that painting, the tick's clicks, the help
/// and the render walk all use. It owns the pill, measured and drawn off screen.
class ServiceOrderCells
{
public:
    ServiceOrderCells(const AppModel &model, const ServiceOrderLayout &layout, const QFont &font)
        : m_model(model)
        , m_layout(layout)
        , m_font(font)
        , m_pill(QString(), pillSize)
    {}

    QList<Part> of(const QModelIndex &index, const QRect &cell) const
    {
        const auto column = Column(index.column());
        const QRect room(cell.left(), cell.top(), m_layout.width(column), cell.height());
        switch (column) {
        case Column::internet: {
            const int side = QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth);
            const QRect tick(room.center().x() - side / 2, room.center().y() - side / 2, side,
                             side);
            return {{Part::tick, tick}};
        }
        case Column::service:
            return serviceParts(m_model.serviceOrder().at(index.row()), room);
        case Column::rank:
        case Column::interface:
        case Column::address:
            return {{Part::secondaryText, room, index.data().toString()}};
        case Column::columnCount:
            break;
        }
        return {};
    }

    /// The width a part's words may take, as the render walk measures them: in the list's
    /// font. The pill's own face is smaller, so its room is told by what its words leave free.
    qreal room(const Part &part) const
    {
        if (part.kind != Part::pill)
            return part.rect.width();
        const QMargins padding = m_pill.contentsMargins();
        const qreal free = part.rect.width() - padding.left() - padding.right()
                           - QFontMetricsF(m_pill.font()).horizontalAdvance(part.words);
        return QFontMetricsF(m_font).horizontalAdvance(part.words) + free;
    }

    /// Draws the pill with its words: the same widget the rows of the Current tab show.
    void paintPill(QPainter &painter, const Part &part, const QPalette &palette)
    {
        m_pill.setText(part.words);
        m_pill.setPalette(palette);
        m_pill.resize(part.rect.size());
        painter.save();
        painter.translate(part.rect.topLeft());
        m_pill.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
        painter.restore();
    }

private:
    /// The name, then the pill of a VLAN, then the risk mark; the name gives way to the others.
    QList<Part> serviceParts(const ServiceRecord &service, const QRect &room) const
    {
        const bool risky = m_model.riskyVLANIDs().contains(service.serviceID);
        QSize pill;
        if (service.isVLAN) {
            m_pill.setText(ServiceOrderTable::pillText(service));
            pill = m_pill.sizeHint();
        }
        const int tail =
            (service.isVLAN ? partGap + pill.width() : 0) + (risky ? partGap + markSize : 0);
        const int nameRoom = room.width() - tail;
        const int nameWidth = int(std::ceil(QFontMetricsF(m_font).horizontalAdvance(service.name)));
        QList<Part> parts{
            {Part::text, QRect(room.left(), room.top(), nameRoom, room.height()), service.name}};
        int left = room.left() + std::min(nameWidth, nameRoom) + partGap;
        if (service.isVLAN) {
            parts.append(
                {Part::pill,
                 QRect(QPoint(left, room.top() + (room.height() - pill.height()) / 2), pill),
                 m_pill.text()});
            left += pill.width() + partGap;
        }
        if (risky)
            parts.append({Part::mark, QRect(left, room.top() + (room.height() - markSize) / 2,
                                            markSize, markSize)});
        return parts;
    }

    const AppModel &m_model;
    const ServiceOrderLayout &m_layout;
    const QFont &m_font;
    mutable Pill m_pill;
};

namespace {

class ServiceOrderDelegate : public QStyledItemDelegate
{
public:
    ServiceOrderDelegate(const AppModel &model, const ServiceOrderTable &table,
                         ServiceOrderCells &parts)
        : QStyledItemDelegate(const_cast<ServiceOrderTable *>(&table))
        , m_model(model)
        , m_table(table)
        , m_parts(parts)
    {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const ServiceRecord &service = m_model.serviceOrder().at(index.row());
        const bool selected = option.state & QStyle::State_Selected;
        painter->save();
        if (selected)
            painter->fillRect(option.rect, option.palette.color(QPalette::Highlight));
        if (index.row() + 1 < m_model.serviceOrder().size()) {
            painter->setPen(Roles::color(Roles::Role::separator, option.palette));
            painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        }
        painter->setOpacity(ServiceOrderTable::strength(service));
        painter->setFont(m_table.font());
        const QColor text =
            option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        const QColor secondary =
            selected ? text : Roles::color(Roles::Role::secondaryText, option.palette);
        for (const Part &part : m_parts.of(index, option.rect)) {
            switch (part.kind) {
            case Part::text:
            case Part::secondaryText:
                painter->setPen(part.kind == Part::text ? text : secondary);
                painter->drawText(part.rect, Qt::AlignVCenter | Qt::AlignLeft, part.words);
                break;
            case Part::pill:
                m_parts.paintPill(*painter, part, option.palette);
                break;
            case Part::mark:
                Symbols::icon(u"exclamationmark.triangle.fill"_s, Roles::Role::orange)
                    .paint(painter, part.rect);
                break;
            case Part::tick: {
                QStyleOptionViewItem check = option;
                check.rect = part.rect;
                check.state &= ~QStyle::State_HasFocus;
                check.state |= index.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked
                                   ? QStyle::State_On
                                   : QStyle::State_Off;
                m_table.style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check,
                                               painter, &m_table);
                break;
            }
            }
        }
        painter->restore();
    }

    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override
    {
        if (index.column() != Column::internet)
            return false;
        const auto toggle = [&] {
            const bool ticked =
                index.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
            return model->setData(index, ticked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        };
        if (event->type() == QEvent::MouseButtonRelease) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            const QRect tick = m_parts.of(index, option.rect).first().rect;
            if (mouse->button() != Qt::LeftButton || !tick.contains(mouse->position().toPoint()))
                return false;
            return toggle();
        }
        if (event->type() == QEvent::MouseButtonDblClick)
            return true;
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Space || key == Qt::Key_Select)
                return toggle();
        }
        return false;
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        return {m_table.columnWidth(index.column()), ServiceOrderLayout::rowHeight};
    }

private:
    const AppModel &m_model;
    const ServiceOrderTable &m_table;
    ServiceOrderCells &m_parts;
};

} // namespace

ServiceOrderTable::ServiceOrderTable(AppModel &model, Tick tick, Move move, QWidget *parent)
    : QTableView(parent)
    , m_model(model)
{
    setFont(Theme::font(ServiceOrderLayout::fontSize));
    setModel(new ServiceOrderRows(m_model, std::move(tick), std::move(move), this));
    m_cells = std::make_unique<ServiceOrderCells>(m_model, m_layout, font());
    setItemDelegate(new ServiceOrderDelegate(m_model, *this, *m_cells));

    horizontalHeader()->hide();
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(ServiceOrderLayout::rowHeight);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A drag hands its rows to the model's move; it is a drag and drop, not an internal move,
    // so that the drop goes through the model whatever started it.
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDragDropOverwriteMode(false);
    setDefaultDropAction(Qt::MoveAction);
    viewport()->setAutoFillBackground(false);
    showLayout(m_layout);
}

ServiceOrderTable::~ServiceOrderTable() = default;

void ServiceOrderTable::showLayout(const ServiceOrderLayout &layout)
{
    m_layout = layout;
    for (int column = 0; column < ServiceOrderLayout::columnCount; ++column) {
        const auto each = ServiceOrderLayout::Column(column);
        const bool last = column + 1 == ServiceOrderLayout::columnCount;
        setColumnWidth(column, m_layout.width(each) + (last ? 0 : ServiceOrderLayout::spacing));
    }
    const qsizetype rows = m_model.serviceOrder().size();
    const bool scrolls =
        ServiceOrderLayout::listHeight(rows) < rows * ServiceOrderLayout::rowHeight;
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    // A scroll bar stands beside the last column, in the sheet's padding, not over it.
    const int bar = scrolls ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) : 0;
    setFixedSize(m_layout.rowWidth() + bar, ServiceOrderLayout::listHeight(rows));
}

qreal ServiceOrderTable::strength(const ServiceRecord &service)
{
    return service.enabled ? 1.0 : dimmed;
}

QString ServiceOrderTable::pillText(const ServiceRecord &service)
{
    return service.vlanTag ? QString::number(*service.vlanTag) : u"VLAN"_s;
}

QString ServiceOrderTable::helpAt(const QPoint &point) const
{
    const QModelIndex index = indexAt(point);
    if (!index.isValid())
        return {};
    if (index.column() == ServiceOrderLayout::internet)
        return ServiceOrderRows::tickHelp;
    for (const Part &part : m_cells->of(index, visualRect(index))) {
        if (part.kind == Part::mark && part.rect.adjusted(-2, -4, 2, 4).contains(point))
            return riskHelp;
    }
    return {};
}

QList<RenderTextReport::Text> ServiceOrderTable::visibleTexts() const
{
    QList<Text> texts;
    const QRect shown = viewport()->rect();
    const QPoint offset = viewport()->mapTo(this, QPoint(0, 0));
    for (int row = 0; row < model()->rowCount(); ++row) {
        for (int column = 0; column < model()->columnCount(); ++column) {
            const QModelIndex index = model()->index(row, column);
            const QRect cell = visualRect(index);
            if (!cell.intersects(shown))
                continue;
            for (const Part &part : m_cells->of(index, cell)) {
                if (part.words.isEmpty())
                    continue;
                texts.append({part.words, part.rect.translated(offset), m_cells->room(part)});
            }
        }
    }
    return texts;
}

bool ServiceOrderTable::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QString text = helpAt(help->pos());
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), text, viewport());
        return true;
    }
    return QTableView::viewportEvent(event);
}
