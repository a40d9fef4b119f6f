#include "OrvaneApp/surfaces/kit/RowList.h"

#include <QApplication>
#include <QScrollBar>
#include <QSet>

#include <algorithm>

namespace {} // namespace

RowList::RowList(int rowHeight, MakeRow make, BindRow bind, FocusOrder focusOrder, QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_rowHeight(rowHeight)
    , m_make(std::move(make))
    , m_bind(std::move(bind))
    , m_focusOrder(std::move(focusOrder))
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Window);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_tops.append(0);
}

void RowList::setSideMargins(int left, int right)
{
    m_leftMargin = left;
    m_rightMargin = right;
    updateScrollBars();
    place(false);
}

void RowList::setRowWidth(int width)
{
    if (m_rowWidth == width)
        return;
    m_rowWidth = width;
    updateScrollBars();
    place(true);
}

void RowList::setItems(QList<Item> items)
{
    QSet<QWidget *> listed;
    for (const Item &item : items) {
        if (!item.isRow())
            listed.insert(item.head);
    }
    for (const Item &item : std::as_const(m_items)) {
        if (!item.isRow() && !listed.contains(item.head))
            item.head->hide();
    }

    m_items = std::move(items);
    m_tops.clear();
    m_tops.reserve(m_items.size() + 1);
    m_rowIndex.clear();
    m_rowIndex.reserve(m_items.size());
    int top = 0;
    for (qsizetype index = 0; index < m_items.size(); ++index) {
        const Item &item = m_items.at(index);
        m_tops.append(top);
        if (item.isRow()) {
            m_rowIndex.insert(item.id, index);
            top += item.height > 0 ? item.height : m_rowHeight;
        } else {
            if (item.head->parentWidget() != viewport())
                item.head->setParent(viewport());
            top += std::max(item.head->minimumHeight(), item.head->sizeHint().height());
        }
    }
    m_tops.append(top);
    updateScrollBars();
    place(true);
}

void RowList::rebindVisible()
{
    place(true);
}

QStringList RowList::visibleRowIDs() const
{
    QList<std::pair<qsizetype, QString>> shown;
    for (auto bound = m_bound.cbegin(); bound != m_bound.cend(); ++bound)
        shown.append({m_rowIndex.value(bound.key()), bound.key()});
    std::sort(shown.begin(), shown.end(),
              [](const auto &a, const auto &b) { return a.first < b.first; });
    QStringList ids;
    for (const auto &[index, id] : shown)
        ids.append(id);
    return ids;
}

int RowList::visibleCapacity() const
{
    // A row cut at the top and one cut at the bottom both show.
    return (viewport()->height() + m_rowHeight - 1) / m_rowHeight + 1;
}

int RowList::contentWidth() const
{
    return m_leftMargin + m_rowWidth + m_rightMargin;
}

void RowList::updateScrollBars()
{
    const QSize room = viewport()->size();
    verticalScrollBar()->setRange(0, std::max(0, m_tops.last() - room.height()));
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(m_rowHeight);
    horizontalScrollBar()->setRange(0, std::max(0, contentWidth() - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(20);
}

qsizetype RowList::spareCount() const
{
    qsizetype count = 0;
    for (const QList<QWidget *> &spares : m_spare)
        count += spares.size();
    return count;
}

qsizetype RowList::rowWidgetCount() const
{
    return m_bound.size() + spareCount();
}

QWidget *RowList::make(int kind)
{
    ++m_made;
    QWidget *row = m_make(viewport(), kind);
    m_kinds.insert(row, kind);
    return row;
}

QWidget *RowList::takeSpare(int kind)
{
    QList<QWidget *> &spares = m_spare[kind];
    if (!spares.isEmpty())
        return spares.takeLast();
    return make(kind);
}

void RowList::place(bool rebind)
{
    const int top = verticalScrollBar()->value();
    const int left = horizontalScrollBar()->value();
    const int height = viewport()->height();
    const int headWidth =
        std::max(contentWidth(), viewport()->width()) - m_leftMargin - m_rightMargin;

    // The items that meet the viewport: from the last one starting at or above its top.
    const auto firstAfter = std::upper_bound(m_tops.cbegin(), m_tops.cend() - 1, top);
    qsizetype first = std::max<qsizetype>(0, (firstAfter - m_tops.cbegin()) - 1);
    QSet<QString> visible;
    QList<qsizetype> shown;
    for (qsizetype index = first; index < m_items.size() && m_tops.at(index) < top + height;
         ++index) {
        shown.append(index);
        if (m_items.at(index).isRow())
            visible.insert(m_items.at(index).id);
    }

    // Rows that left the view give their widgets back first, so that the rows that came in
    // take them instead of new ones.
    QWidget *focus = QApplication::focusWidget();
    for (auto bound = m_bound.begin(); bound != m_bound.end();) {
        if (visible.contains(bound.key())) {
            ++bound;
            continue;
        }
        QWidget *row = bound.value();
        if (focus && row->isAncestorOf(focus))
            setFocus(Qt::OtherFocusReason);
        row->hide();
        Q_EMIT rowReleased(row);
        m_spare[m_kinds.value(row)].append(row);
        bound = m_bound.erase(bound);
    }

    QSet<QWidget *> headsShown;
    for (const qsizetype index : std::as_const(shown)) {
        const Item &item = m_items.at(index);
        const int y = m_tops.at(index) - top;
        if (!item.isRow()) {
            item.head->setGeometry(m_leftMargin - left, y, headWidth,
                                   m_tops.at(index + 1) - m_tops.at(index));
            item.head->show();
            headsShown.insert(item.head);
            continue;
        }
        QWidget *row = m_bound.value(item.id);
        if (row && m_kinds.value(row) != item.kind) {
            // The same identity is now shown by another kind of row.
            row->hide();
            Q_EMIT rowReleased(row);
            m_spare[m_kinds.value(row)].append(row);
            m_bound.remove(item.id);
            row = nullptr;
        }
        if (!row) {
            row = takeSpare(item.kind);
            m_bound.insert(item.id, row);
            m_bind(row, item.id);
        } else if (rebind) {
            m_bind(row, item.id);
        }
        row->setGeometry(m_leftMargin - left, y, m_rowWidth,
                         m_tops.at(index + 1) - m_tops.at(index));
        row->show();
    }
    for (QWidget *child : viewport()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!headsShown.contains(child) && !m_kinds.contains(child))
            child->hide();
    }

    // The pool is as large as the rows the viewport can show at once, made up front, so that a
    // scroll never makes one and a shorter window gives its spares back.
    const qsizetype wanted = std::min<qsizetype>(visibleCapacity(), m_rowIndex.size());
    while (rowWidgetCount() < wanted) {
        QWidget *row = make(0);
        row->hide();
        m_spare[0].append(row);
    }
    for (auto spares = m_spare.begin(); spares != m_spare.end(); ++spares) {
        while (rowWidgetCount() > wanted && !spares->isEmpty()) {
            QWidget *row = spares->takeLast();
            m_kinds.remove(row);
            row->deleteLater();
        }
    }
}

void RowList::scrollToItem(qsizetype index)
{
    if (index < 0 || index >= m_items.size())
        return;
    const int top = m_tops.at(index);
    const int bottom = m_tops.at(index + 1);
    QScrollBar *bar = verticalScrollBar();
    if (top < bar->value())
        bar->setValue(top);
    else if (bottom > bar->value() + viewport()->height())
        bar->setValue(bottom - viewport()->height());
}

void RowList::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
    place(false);
}

void RowList::scrollContentsBy(int, int)
{
    place(false);
}

QList<QWidget *> RowList::focusable(QWidget *row) const
{
    QList<QWidget *> controls;
    for (QWidget *control : m_focusOrder(row)) {
        if (control->isEnabled() && control->isVisibleTo(row)
            && (control->focusPolicy() & Qt::TabFocus))
            controls.append(control);
    }
    return controls;
}

bool RowList::focusRow(qsizetype index, bool first)
{
    scrollToItem(index);
    place(false);
    QWidget *row = m_bound.value(m_items.at(index).id);
    if (!row)
        return false;
    const QList<QWidget *> controls = focusable(row);
    if (controls.isEmpty())
        return false;
    QWidget *control = first ? controls.first() : controls.last();
    control->setFocus(first ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

bool RowList::focusNextPrevChild(bool next)
{
    QWidget *focus = QApplication::focusWidget();
    for (auto bound = m_bound.cbegin(); focus && bound != m_bound.cend(); ++bound) {
        QWidget *row = bound.value();
        if (!row->isAncestorOf(focus))
            continue;
        const QList<QWidget *> controls = focusable(row);
        qsizetype at = -1;
        for (qsizetype i = 0; i < controls.size(); ++i) {
            if (controls.at(i) == focus || controls.at(i)->isAncestorOf(focus))
                at = i;
        }
        const qsizetype to = at + (next ? 1 : -1);
        if (at >= 0 && to >= 0 && to < controls.size()) {
            controls.at(to)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
        // On into the next row (or back into the one before), scrolled into view.
        const qsizetype step = next ? 1 : -1;
        for (qsizetype index = m_rowIndex.value(bound.key()) + step;
             index >= 0 && index < m_items.size(); index += step) {
            if (m_items.at(index).isRow() && focusRow(index, next))
                return true;
        }
        break;
    }
    return QAbstractScrollArea::focusNextPrevChild(next);
}
