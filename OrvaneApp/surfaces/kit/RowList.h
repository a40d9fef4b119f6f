#pragma once

#include <QAbstractScrollArea>
#include <QHash>
#include <QList>
#include <QString>

#include <functional>

/// A table of many rows of editors that stays quick at thousands of rows: a scroll area of
/// fixed-height items in which the heads are real widgets placed as they are, and the rows are
/// drawn by a pool of real row widgets, one for each visible row only. A row widget is bound to
/// a row by its identity and rebound as the list scrolls, resizes or changes; the list never
/// keeps a row's data, so nothing is held across a reload.
class RowList : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// One line of the list: a head, shown as it is, or a row, known by its identity.
    struct Item
    {
        QWidget *head = nullptr;
        QString id;
        /// Which kind of row widget shows it: each kind has a pool of its own.
        int kind = 0;
        /// Its height; 0 for the list's row height.
        int height = 0;

        [[nodiscard]] static Item ofHead(QWidget *head) { return {head, {}, 0, 0}; }
        [[nodiscard]] static Item ofRow(const QString &id, int kind = 0, int height = 0)
        {
            return {nullptr, id, kind, height};
        }
        [[nodiscard]] bool isRow() const { return head == nullptr; }
    };

    /// Makes an empty row widget of a kind, a child of the viewport.
    using MakeRow = std::function<QWidget *(QWidget *viewport, int kind)>;
    /// Shows the row of this identity in a row widget. The widget may have shown another row,
    /// or the same row before a change: a binder sets only the values that differ.
    using BindRow = std::function<void(QWidget *row, const QString &id)>;
    /// The controls of a row widget in the order Tab walks them, left to right.
    using FocusOrder = std::function<QList<QWidget *>(QWidget *row)>;

    RowList(int rowHeight, MakeRow make, BindRow bind, FocusOrder focusOrder,
            QWidget *parent = nullptr);

    /// The room left of the items and right of them, beside the scroll bar.
    void setSideMargins(int left, int right);
    /// How wide a row is; the heads take the wider of this and the viewport.
    void setRowWidth(int width);
    /// Replaces the items and rebinds every visible row. Heads that are no longer listed are
    /// hidden, not deleted: their owner keeps them.
    void setItems(QList<Item> items);
    /// Rebinds the visible rows in place, after their data changed.
    void rebindVisible();

    [[nodiscard]] const QList<Item> &items() const { return m_items; }
    [[nodiscard]] int rowHeight() const { return m_rowHeight; }
    /// The widget that shows this row now; null when the row is not on show.
    [[nodiscard]] QWidget *rowWidget(const QString &id) const { return m_bound.value(id); }
    /// The identities on show, top to bottom.
    [[nodiscard]] QStringList visibleRowIDs() const;
    /// Row widgets alive, bound or waiting in the pool.
    [[nodiscard]] qsizetype rowWidgetCount() const;
    /// Row widgets made since the list was created.
    [[nodiscard]] qsizetype rowWidgetsMade() const { return m_made; }
    /// The most rows that can be seen at once at the viewport's height: the pool's size.
    [[nodiscard]] int visibleCapacity() const;
    /// Scrolls as little as needed to show the item whole.
    void scrollToItem(qsizetype index);
    /// The item index of a row; -1 when it is not listed.
    [[nodiscard]] qsizetype indexOfRow(const QString &id) const { return m_rowIndex.value(id, -1); }

Q_SIGNALS:
    /// A row widget now shows another row, or none: what hangs from it must close.
    void rowReleased(QWidget *row);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// Places the heads and binds a widget to every visible row; `rebind` rebinds the rows
    /// that already had a widget too.
    void place(bool rebind);
    void updateScrollBars();
    [[nodiscard]] int contentWidth() const;
    [[nodiscard]] QWidget *takeSpare(int kind);
    [[nodiscard]] QWidget *make(int kind);
    [[nodiscard]] qsizetype spareCount() const;
    /// Moves focus to the first (or last) control of the row at `index`, scrolling it into
    /// view; false when that row has no control to take it.
    bool focusRow(qsizetype index, bool first);
    [[nodiscard]] QList<QWidget *> focusable(QWidget *row) const;

    int m_rowHeight;
    MakeRow m_make;
    BindRow m_bind;
    FocusOrder m_focusOrder;
    int m_leftMargin = 0;
    int m_rightMargin = 0;
    int m_rowWidth = 0;

    QList<Item> m_items;
    /// The top of each item in the content, and the content's height behind the last.
    QList<int> m_tops;
    QHash<QString, qsizetype> m_rowIndex;
    QHash<QString, QWidget *> m_bound;
    QHash<int, QList<QWidget *>> m_spare;
    /// The kind of every row widget alive; the pool is made up front of the first kind.
    QHash<const QWidget *, int> m_kinds;
    qsizetype m_made = 0;
};
