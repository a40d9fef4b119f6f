#include "OrvaneApp/surfaces/ImportPreview.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int arrowWidth = 14;
/// An address before the change: room for the widest there is.
constexpr int beforeWidth = 120;
constexpr int gap = 8;

} // namespace

ImportPreview::ImportPreview(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Window);
    setFont(Theme::font(12));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int ImportPreview::lineHeight() const
{
    return fontMetrics().height() + rowGap;
}

void ImportPreview::setLines(const QList<Line> &lines, bool hostChosen)
{
    if (m_lines == lines && m_hostChosen == hostChosen)
        return;
    m_lines = lines;
    m_hostChosen = hostChosen;
    updateGeometry();
    updateScrollBar();
    viewport()->update();
}

QSize ImportPreview::sizeHint() const
{
    const int height = int(m_lines.size()) * lineHeight();
    return {nameWidth + 300, std::clamp(height, m_lines.isEmpty() ? 0 : leastHeight, mostHeight)};
}

void ImportPreview::updateScrollBar()
{
    verticalScrollBar()->setRange(
        0, std::max(0, int(m_lines.size()) * lineHeight() - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(lineHeight());
}

void ImportPreview::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBar();
}

QList<RenderTextReport::Text> ImportPreview::visibleTexts() const
{
    QList<Text> texts;
    const int top = verticalScrollBar()->value();
    const int height = lineHeight();
    const int right = viewport()->width();
    for (qsizetype index = top / height; index < m_lines.size(); ++index) {
        const int y = int(index) * height - top;
        if (y >= viewport()->height())
            break;
        const Line &line = m_lines.at(index);
        const QPoint origin = viewport()->mapTo(this, QPoint(0, y));
        texts.append({line.name, QRect(origin, QSize(nameWidth, height)), qreal(nameWidth - gap)});
        const int beforeX = origin.x() + nameWidth;
        texts.append(
            {line.before, QRect(beforeX, origin.y(), beforeWidth, height), qreal(beforeWidth)});
        if (m_hostChosen) {
            const int afterX = beforeX + beforeWidth + gap + arrowWidth + gap;
            texts.append({line.after, QRect(afterX, origin.y(), right - afterX, height),
                          qreal(right - afterX)});
        }
    }
    return texts;
}

void ImportPreview::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    const QColor secondary = Roles::color(Roles::Role::secondaryText, palette());
    const QColor text = palette().color(QPalette::WindowText);
    QFont struck = font();
    struck.setStrikeOut(true);
    const QPixmap arrow = Symbols::icon(u"arrow.right"_s, Roles::Role::secondaryText)
                              .pixmap(QSize(12, 12), devicePixelRatioF());
    const int top = verticalScrollBar()->value();
    const int height = lineHeight();
    const int right = viewport()->width();
    for (qsizetype index = top / height; index < m_lines.size(); ++index) {
        const int y = int(index) * height - top;
        if (y >= viewport()->height())
            break;
        const Line &line = m_lines.at(index);
        const QRect row(0, y, right, height);
        painter.setFont(font());
        painter.setPen(text);
        painter.drawText(row.adjusted(0, 0, -(right - nameWidth + gap), 0),
                         Qt::AlignLeft | Qt::AlignVCenter, line.name);
        const QRect before(nameWidth, y, beforeWidth, height);
        painter.setPen(m_hostChosen ? secondary : text);
        painter.setFont(m_hostChosen ? struck : font());
        painter.drawText(before, Qt::AlignLeft | Qt::AlignVCenter, line.before);
        if (!m_hostChosen)
            continue;
        const int arrowX = before.right() + 1 + gap;
        painter.drawPixmap(arrowX, y + (height - 12) / 2, arrow);
        painter.setFont(font());
        painter.setPen(text);
        painter.drawText(
            QRect(arrowX + arrowWidth + gap, y, right - arrowX - arrowWidth - gap, height),
            Qt::AlignLeft | Qt::AlignVCenter, line.after);
    }
}
