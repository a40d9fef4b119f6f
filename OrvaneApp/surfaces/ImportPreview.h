#pragma once

#include "OrvaneApp/surfaces/kit/RenderTextReport.h"

#include <QAbstractScrollArea>
#include <QList>

/// What each VLAN's address becomes on this machine: the name, the address the project holds,
/// struck through once a host is chosen, an arrow and the new address. It paints only the rows
/// on show, and tells the render walk their texts.
class ImportPreview : public QAbstractScrollArea, public RenderTextReport
{
    Q_OBJECT

public:
    static constexpr int nameWidth = 190;
    static constexpr int leastHeight = 24;
    static constexpr int mostHeight = 220;
    static constexpr int rowGap = 4;

    struct Line
    {
        QString name;
        QString before;
        QString after;
        friend bool operator==(const Line &, const Line &) = default;
    };

    explicit ImportPreview(QWidget *parent = nullptr);

    /// The lines, and whether a host is chosen: without one the addresses stand as they are.
    void setLines(const QList<Line> &lines, bool hostChosen);
    [[nodiscard]] const QList<Line> &lines() const { return m_lines; }
    [[nodiscard]] bool hostChosen() const { return m_hostChosen; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QList<Text> visibleTexts() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] int lineHeight() const;
    void updateScrollBar();

    QList<Line> m_lines;
    bool m_hostChosen = false;
};
