#include "OrvaneApp/surfaces/kit/LineList.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QAbstractListModel>
#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int symbolWidth = 15;
constexpr int symbolGap = 6;
constexpr int sidePadding = 4;

class LineModel : public QAbstractListModel
{
public:
    explicit LineModel(const QList<LineList::Line> &lines, QObject *parent)
        : QAbstractListModel(parent)
        , m_lines(lines)
    {}
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(m_lines.size());
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole && index.isValid())
            return m_lines.at(index.row()).text;
        return {};
    }
    const LineList::Line &line(int row) const { return m_lines.at(row); }

private:
    const QList<LineList::Line> &m_lines;
};

/// Where a line's parts stand in its row.
struct LineLayout
{
    QRect symbol;
    QRect text;
    QRect trailing;
};

LineLayout layoutOf(const LineList::Line &line, const QRect &row, const QFont &font)
{
    LineLayout layout;
    int left = row.left() + sidePadding;
    if (line.symbol) {
        layout.symbol =
            QRect(left, row.top() + (row.height() - symbolWidth) / 2, symbolWidth, symbolWidth);
        left += symbolWidth + symbolGap;
    }
    int right = row.right() - sidePadding;
    if (!line.trailing.isEmpty()) {
        const int width = int(std::ceil(QFontMetricsF(font).horizontalAdvance(line.trailing)));
        layout.trailing = QRect(right - width, row.top(), width, row.height());
        right -= width + symbolGap;
    }
    layout.text = QRect(left, row.top(), std::max(right - left, 0), row.height());
    return layout;
}

class LineDelegate : public QStyledItemDelegate
{
public:
    LineDelegate(const LineModel &model, const LineList &list)
        : QStyledItemDelegate(const_cast<LineList *>(&list))
        , m_model(model)
        , m_list(list)
    {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const LineList::Line &line = m_model.line(index.row());
        const bool selected = option.state & QStyle::State_Selected;
        if (selected)
            painter->fillRect(option.rect, option.palette.color(QPalette::Highlight));
        const LineLayout layout = layoutOf(line, option.rect, m_list.font());
        if (line.symbol)
            Symbols::icon(*line.symbol, Roles::Role::accent).paint(painter, layout.symbol);
        painter->setFont(m_list.font());
        painter->setPen(
            option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        // Eliding happens in painting only; the proof measures the whole text.
        const QString shown =
            QFontMetricsF(m_list.font()).elidedText(line.text, Qt::ElideRight, layout.text.width());
        painter->drawText(layout.text, Qt::AlignVCenter | Qt::AlignLeft, shown);
        if (!line.trailing.isEmpty()) {
            painter->setPen(Roles::color(Roles::Role::secondaryText, option.palette));
            painter->drawText(layout.trailing, Qt::AlignVCenter | Qt::AlignRight, line.trailing);
        }
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {0, m_list.lineHeight()};
    }

private:
    const LineModel &m_model;
    const LineList &m_list;
};

} // namespace

LineList::LineList(QList<Line> lines, int fontSize, int maxHeight, int spacing, QWidget *parent)
    : QListView(parent)
    , m_lines(std::move(lines))
    , m_maxHeight(maxHeight)
    , m_spacing(spacing)
{
    setFont(Theme::font(fontSize));
    auto *model = new LineModel(m_lines, this);
    setModel(model);
    setItemDelegate(new LineDelegate(*model, *this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

int LineList::lineHeight() const
{
    return int(std::ceil(QFontMetricsF(font()).height())) + 4 + m_spacing;
}

QSize LineList::sizeHint() const
{
    const int all = int(m_lines.size()) * lineHeight() + 2 * frameWidth();
    return {200, std::min(all, m_maxHeight)};
}

QList<RenderTextReport::Text> LineList::visibleTexts() const
{
    QList<Text> texts;
    const QRect shown = viewport()->rect();
    for (int row = 0; row < m_lines.size(); ++row) {
        const QRect rect = visualRect(model()->index(row, 0));
        if (!rect.intersects(shown))
            continue;
        const Line &line = m_lines.at(row);
        const LineLayout layout = layoutOf(line, rect, font());
        const QPoint offset = viewport()->mapTo(this, QPoint(0, 0));
        texts.append({line.text, layout.text.translated(offset), qreal(layout.text.width())});
        if (!line.trailing.isEmpty())
            texts.append({line.trailing, layout.trailing.translated(offset),
                          qreal(layout.trailing.width())});
    }
    return texts;
}

QString LineList::selectedText() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::stable_sort(rows.begin(), rows.end());
    QStringList lines;
    for (const int row : rows)
        lines.append(m_lines.at(row).text);
    return lines.join(u'\n');
}

void LineList::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(selectedText());
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}
