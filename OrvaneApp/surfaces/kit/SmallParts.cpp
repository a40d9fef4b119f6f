#include "OrvaneApp/surfaces/kit/SmallParts.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int pillPadding = 6;

} // namespace

QLabel *SmallParts::columnLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(11));
    Roles::useSecondaryText(*label);
    return label;
}

QLabel *SmallParts::headLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text.toUpper(), parent);
    QFont font = Theme::font(10, QFont::DemiBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.6);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    Roles::useSecondaryText(*label);
    return label;
}

QWidget *SmallParts::warning(const QString &text, QWidget *parent)
{
    auto *box = new QWidget(parent);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto *symbol = new QLabel(box);
    symbol->setPixmap(Symbols::icon(u"exclamationmark.triangle.fill"_s, Roles::Role::orange)
                          .pixmap(QSize(11, 11), box->devicePixelRatioF()));
    auto *words = new QLabel(text, box);
    words->setObjectName(u"warningWords"_s);
    words->setTextFormat(Qt::PlainText);
    words->setFont(Theme::font(11));
    QPalette orange = words->palette();
    orange.setColor(QPalette::WindowText, Roles::color(Roles::Role::orange, orange));
    words->setPalette(orange);
    // It takes the width of its words and gives way when the line is short of room, so it
    // never widens the window; a stretch behind it in the line doesn't squeeze it to nothing.
    words->setMinimumWidth(1);
    layout->addWidget(symbol);
    layout->addWidget(words, 1);
    return box;
}

void SmallParts::setWarningText(QWidget &warning, const QString &text)
{
    if (auto *words = warning.findChild<QLabel *>(u"warningWords"_s);
        words && words->text() != text)
        words->setText(text);
}

Pill::Pill(const QString &text, int pixelSize, QWidget *parent)
    : QLabel(text, parent)
{
    setFont(Theme::font(pixelSize, QFont::Medium));
    setAlignment(Qt::AlignCenter);
    setMargin(0);
    setContentsMargins(pillPadding, 1, pillPadding, 1);
}

void Pill::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // The fill is drawn a little stronger than the quaternary one, which alone would vanish
        // on Fusion's window colour.
        QColor fill = Roles::color(Roles::Role::quaternaryFill, palette());
        fill.setAlphaF(std::min(1.0, fill.alphaF() * 2.5));
        painter.setBrush(fill);
        const QRectF shape = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawRoundedRect(shape, shape.height() / 2, shape.height() / 2);
    }
    QLabel::paintEvent(event);
}

StatusDot::StatusDot(QWidget *parent)
    : QWidget(parent)
{
    setFixedSize(diameter, diameter);
}

void StatusDot::setState(ServiceEdit::Liveness state)
{
    if (m_state == state)
        return;
    m_state = state;
    update();
}

Roles::Role StatusDot::roleOf(ServiceEdit::Liveness state)
{
    switch (state) {
    case ServiceEdit::Liveness::connected:
        return Roles::Role::green;
    case ServiceEdit::Liveness::selfAssigned:
        return Roles::Role::yellow;
    case ServiceEdit::Liveness::notConnected:
        return Roles::Role::red;
    case ServiceEdit::Liveness::inactive:
    case ServiceEdit::Liveness::notInLocation:
        break;
    }
    return Roles::Role::grey;
}

void StatusDot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Roles::color(roleOf(m_state), palette()));
    painter.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}
