#pragma once

#include "OrvaneApp/surfaces/kit/RenderTextReport.h"

#include <QListView>

#include <optional>

/// A long read-only list of lines (a plan's changes, an order, a preview): an item view, so a
/// plan of thousands of lines costs only what is on screen. Each line may have a symbol before
/// it and a quiet text at its right. Lines are selectable and Copy copies them.
class LineList : public QListView, public RenderTextReport
{
    Q_OBJECT

public:
    struct Line
    {
        QString text;
        /// A symbol's name, drawn in the accent colour before the text.
        std::optional<QString> symbol{};
        /// A quiet text at the right, in the secondary colour.
        QString trailing{};
    };

    /// `fontSize` in pixels; the list is never higher than `maxHeight` and scrolls beyond it.
    LineList(QList<Line> lines, int fontSize, int maxHeight, int spacing = 0,
             QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] QList<Text> visibleTexts() const override;

    /// The height of one line.
    [[nodiscard]] int lineHeight() const;
    /// The selected lines as text, one a line, in list order.
    [[nodiscard]] QString selectedText() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QList<Line> m_lines;
    int m_maxHeight;
    int m_spacing;
};
