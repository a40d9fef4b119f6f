#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <functional>

using namespace Qt::StringLiterals;

namespace Symbols {

namespace {

/// Draws a symbol on a 16 × 16 grid in the painter's pen and brush colour. `cut` paints what
/// a filled symbol leaves open: its inner mark.
struct Drawing
{
    std::function<void(QPainter &)> shape;
    std::function<void(QPainter &)> cut;
};

void arrowHead(QPainter &p, QPointF tip, qreal angleDegrees)
{
    QPainterPath head;
    const QTransform turn = QTransform().translate(tip.x(), tip.y()).rotate(angleDegrees);
    head.moveTo(turn.map(QPointF(-3, -3)));
    head.lineTo(turn.map(QPointF(0, 0)));
    head.lineTo(turn.map(QPointF(-3, 3)));
    p.drawPath(head);
}

void exclamation(QPainter &p, qreal top, qreal bottom)
{
    p.drawLine(QPointF(8, top), QPointF(8, bottom));
    p.drawPoint(QPointF(8, bottom + 2.6));
}

void openBox(QPainter &p)
{
    QPainterPath box;
    box.moveTo(5.5, 6.5);
    box.lineTo(3, 6.5);
    box.lineTo(3, 14.5);
    box.lineTo(13, 14.5);
    box.lineTo(13, 6.5);
    box.lineTo(10.5, 6.5);
    p.drawPath(box);
}

const QHash<QString, Drawing> &drawings()
{
    static const QHash<QString, Drawing> all{
        {u"arrow.clockwise"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawArc(QRectF(2.5, 2.5, 11, 11), 60 * 16, 300 * 16);
              arrowHead(p, QPointF(10.9, 3.2), 20);
          },
          {}}},
        {u"arrow.right"_s,
         {[](QPainter &p) {
              p.drawLine(QPointF(2.5, 8), QPointF(13.5, 8));
              arrowHead(p, QPointF(13.5, 8), 0);
          },
          {}}},
        {u"arrow.triangle.swap"_s,
         {[](QPainter &p) {
              p.drawLine(QPointF(2.5, 5), QPointF(13, 5));
              arrowHead(p, QPointF(13, 5), 0);
              p.drawLine(QPointF(13.5, 11), QPointF(3, 11));
              arrowHead(p, QPointF(3, 11), 180);
          },
          {}}},
        {u"cable.connector"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawRoundedRect(QRectF(4, 5, 8, 6), 1.5, 1.5);
              p.drawLine(QPointF(6, 5), QPointF(6, 2));
              p.drawLine(QPointF(10, 5), QPointF(10, 2));
              p.drawLine(QPointF(8, 11), QPointF(8, 15));
          },
          {}}},
        {u"character.cursor.ibeam"_s,
         {[](QPainter &p) {
              p.drawLine(QPointF(8, 2.5), QPointF(8, 13.5));
              p.drawLine(QPointF(5.5, 2.5), QPointF(10.5, 2.5));
              p.drawLine(QPointF(5.5, 13.5), QPointF(10.5, 13.5));
          },
          {}}},
        {u"checkmark.shield.fill"_s,
         {[](QPainter &p) {
              QPainterPath shield;
              shield.moveTo(8, 1.5);
              shield.lineTo(14, 3.5);
              shield.cubicTo(14, 10, 11, 13, 8, 14.8);
              shield.cubicTo(5, 13, 2, 10, 2, 3.5);
              shield.closeSubpath();
              p.drawPath(shield);
          },
          [](QPainter &p) {
              QPainterPath check;
              check.moveTo(5.2, 8.2);
              check.lineTo(7.2, 10.2);
              check.lineTo(10.8, 5.8);
              p.setBrush(Qt::NoBrush);
              p.drawPath(check);
          }}},
        {u"circle.lefthalf.filled"_s,
         {[](QPainter &p) {
              p.drawChord(QRectF(2, 2, 12, 12), 90 * 16, 180 * 16);
              p.setBrush(Qt::NoBrush);
              p.drawEllipse(QRectF(2, 2, 12, 12));
          },
          {}}},
        {u"exclamationmark.circle.fill"_s,
         {[](QPainter &p) { p.drawEllipse(QRectF(1.5, 1.5, 13, 13)); },
          [](QPainter &p) { exclamation(p, 4.5, 8.8); }}},
        {u"exclamationmark.triangle.fill"_s,
         {[](QPainter &p) {
              QPainterPath triangle;
              triangle.moveTo(8, 1.5);
              triangle.lineTo(15, 14.5);
              triangle.lineTo(1, 14.5);
              triangle.closeSubpath();
              p.drawPath(triangle);
          },
          [](QPainter &p) { exclamation(p, 6, 9.6); }}},
        {u"info.circle"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
              p.drawLine(QPointF(8, 7), QPointF(8, 11.5));
              p.drawPoint(QPointF(8, 4.8));
          },
          {}}},
        {u"lock.fill"_s,
         {[](QPainter &p) {
              p.drawRoundedRect(QRectF(3, 7, 10, 8), 1.5, 1.5);
              p.setBrush(Qt::NoBrush);
              p.drawArc(QRectF(5, 2, 6, 8), 0, 180 * 16);
              p.drawLine(QPointF(5, 6), QPointF(5, 7));
              p.drawLine(QPointF(11, 6), QPointF(11, 7));
          },
          {}}},
        {u"minus.circle.fill"_s,
         {[](QPainter &p) { p.drawEllipse(QRectF(1.5, 1.5, 13, 13)); },
          [](QPainter &p) { p.drawLine(QPointF(4.8, 8), QPointF(11.2, 8)); }}},
        {u"moon"_s,
         {[](QPainter &p) {
              QPainterPath disc;
              disc.addEllipse(QRectF(2, 2, 12, 12));
              QPainterPath bite;
              bite.addEllipse(QRectF(6, 0, 11, 11));
              p.setBrush(Qt::NoBrush);
              p.drawPath(disc.subtracted(bite));
          },
          {}}},
        {u"network"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawEllipse(QRectF(2, 2, 12, 12));
              p.drawEllipse(QRectF(5.5, 2, 5, 12));
              p.drawLine(QPointF(2, 8), QPointF(14, 8));
          },
          {}}},
        {u"plus.circle"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
              p.drawLine(QPointF(8, 4.8), QPointF(8, 11.2));
              p.drawLine(QPointF(4.8, 8), QPointF(11.2, 8));
          },
          {}}},
        {u"plus.circle.fill"_s,
         {[](QPainter &p) { p.drawEllipse(QRectF(1.5, 1.5, 13, 13)); },
          [](QPainter &p) {
              p.drawLine(QPointF(8, 4.8), QPointF(8, 11.2));
              p.drawLine(QPointF(4.8, 8), QPointF(11.2, 8));
          }}},
        {u"power"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawArc(QRectF(2.5, 3, 11, 11), 125 * 16, 290 * 16);
              p.drawLine(QPointF(8, 1.5), QPointF(8, 7.5));
          },
          {}}},
        {u"square.and.arrow.down"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              openBox(p);
              p.drawLine(QPointF(8, 1.5), QPointF(8, 10.5));
              arrowHead(p, QPointF(8, 10.5), 90);
          },
          {}}},
        {u"square.and.arrow.up"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              openBox(p);
              p.drawLine(QPointF(8, 10.5), QPointF(8, 1.5));
              arrowHead(p, QPointF(8, 1.5), -90);
          },
          {}}},
        {u"sun.max"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawEllipse(QRectF(5.2, 5.2, 5.6, 5.6));
              for (int ray = 0; ray < 8; ++ray) {
                  const QTransform turn = QTransform().translate(8, 8).rotate(45.0 * ray);
                  p.drawLine(turn.map(QPointF(0, -5)), turn.map(QPointF(0, -6.8)));
              }
          },
          {}}},
        {u"trash"_s,
         {[](QPainter &p) {
              p.setBrush(Qt::NoBrush);
              p.drawLine(QPointF(2.5, 4), QPointF(13.5, 4));
              p.drawPolyline(
                  QPolygonF({QPointF(6, 4), QPointF(6, 2), QPointF(10, 2), QPointF(10, 4)}));
              p.drawPolyline(QPolygonF(
                  {QPointF(4, 4), QPointF(4.8, 14.5), QPointF(11.2, 14.5), QPointF(12, 4)}));
              p.drawLine(QPointF(6.8, 6.5), QPointF(7, 12));
              p.drawLine(QPointF(9.2, 6.5), QPointF(9, 12));
          },
          {}}},
    };
    return all;
}

class SymbolEngine final : public QIconEngine
{
public:
    SymbolEngine(const Drawing &drawing, Roles::Role role)
        : m_drawing(drawing)
        , m_role(role)
    {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        // Drawn into a pixmap of its own first: a filled symbol's inner mark is cut out of it.
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect, drawn(rect.size(), ratio, mode));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return drawn(size, 1.0, mode);
    }

    // `size` is in device pixels here: the logical size is that over the scale.
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal scale) override
    {
        const QSize logical(qRound(size.width() / scale), qRound(size.height() / scale));
        return drawn(logical, scale, mode);
    }

    QIconEngine *clone() const override { return new SymbolEngine(m_drawing, m_role); }

private:
    QPixmap drawn(const QSize &size, qreal ratio, QIcon::Mode mode) const
    {
        QPixmap pixmap(size * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QColor colour = Roles::color(m_role);
        if (mode == QIcon::Disabled)
            colour.setAlphaF(colour.alphaF() * 0.35);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        const qreal side = std::min(size.width(), size.height());
        p.translate((size.width() - side) / 2.0, (size.height() - side) / 2.0);
        p.scale(side / 16.0, side / 16.0);
        QPen pen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        p.setPen(pen);
        p.setBrush(colour);
        m_drawing.shape(p);
        if (m_drawing.cut) {
            p.setCompositionMode(QPainter::CompositionMode_Clear);
            p.setPen(QPen(Qt::transparent, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            m_drawing.cut(p);
        }
        return pixmap;
    }

    Drawing m_drawing;
    Roles::Role m_role;
};

} // namespace

const QStringList &names()
{
    static const QStringList sorted = [] {
        QStringList all = drawings().keys();
        all.sort();
        return all;
    }();
    return sorted;
}

QIcon icon(const QString &name, Roles::Role role)
{
    const auto found = drawings().constFind(name);
    if (found == drawings().constEnd())
        return {};
    return QIcon(new SymbolEngine(*found, role));
}

} // namespace Symbols
