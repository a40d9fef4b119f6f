#include "OrvaneApp/surfaces/AddressPlanField.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "VLANKit/core/TextRules.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QVariantAnimation>

using namespace Qt::StringLiterals;

namespace {

const std::array<QString, 4> prompts{u"192"_s, u"168"_s, u"tag"_s, u"N"_s};

} // namespace

AddressPlanField::Cleaned AddressPlanField::clean(const QString &typed)
{
    const bool dot = typed.contains(u'.');
    QString digits;
    for (const QChar character : typed) {
        if (character >= u'0' && character <= u'9' && digits.size() < 3)
            digits.append(character);
    }
    if (const std::optional<qint64> value = VLANKit::parseInteger(digits); value && *value > 255)
        digits = u"255"_s;
    return {digits, dot || digits.size() == 3};
}

bool AddressPlanField::isBad(const QString &value, bool optional)
{
    const QString trimmed = VLANKit::trimSpacesAndTabs(value);
    if (trimmed.isEmpty())
        return !optional;
    return !VLANKit::parseOctet(trimmed).has_value();
}

AddressPlanField::AddressPlanField(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(0);
    for (int index = 0; index < 4; ++index) {
        auto *cell = new QLineEdit(this);
        cell->setFrame(false);
        cell->setFixedWidth(cellWidth);
        cell->setAlignment(Qt::AlignCenter);
        cell->setFont(Theme::font(13));
        cell->setPlaceholderText(prompts.at(size_t(index)));
        cell->setAccessibleName(u"Address plan, octet "_s + QString::number(index + 1));
        cell->installEventFilter(this);
        // Only what a person types moves the focus, never a value shown from the model.
        connect(cell, &QLineEdit::textEdited, this,
                [this, index](const QString &text) { cellEdited(index, text); });
        m_cells.at(size_t(index)) = cell;
        layout->addWidget(cell);
        if (index < 3) {
            auto *dot = new QLabel(u"."_s, this);
            dot->setFont(Theme::font(15, QFont::Bold));
            Roles::useSecondaryText(*dot);
            layout->addWidget(dot);
        }
    }
    m_focusAnimation = new QVariantAnimation(this);
    m_focusAnimation->setDuration(120);
    m_focusAnimation->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_focusAnimation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) {
                m_focus = value.toReal();
                update();
            });
    setFixedHeight(28);
}

void AddressPlanField::showPlan(const std::array<QString, 4> &octets, bool valid)
{
    for (size_t index = 0; index < 4; ++index) {
        if (m_cells.at(index)->text() != octets.at(index))
            m_cells.at(index)->setText(octets.at(index));
    }
    if (m_valid != valid) {
        m_valid = valid;
        update();
    }
    showBadCells();
}

std::array<QString, 4> AddressPlanField::octets() const
{
    return {m_cells[0]->text(), m_cells[1]->text(), m_cells[2]->text(), m_cells[3]->text()};
}

void AddressPlanField::cellEdited(int index, const QString &text)
{
    QLineEdit *cell = m_cells.at(size_t(index));
    const Cleaned cleaned = clean(text);
    if (cleaned.text != text)
        cell->setText(cleaned.text);
    showBadCells();
    Q_EMIT edited(octets());
    if (cleaned.moveOn && index < 3)
        m_cells.at(size_t(index + 1))->setFocus(Qt::TabFocusReason);
}

void AddressPlanField::showBadCells()
{
    for (int index = 0; index < 4; ++index) {
        QLineEdit *cell = m_cells.at(size_t(index));
        const bool bad = isBad(cell->text(), index == 2);
        QPalette colours = cell->palette();
        QColor fill = bad ? Roles::color(Roles::Role::orange, palette()) : QColor(Qt::transparent);
        if (bad)
            fill.setAlphaF(0.22);
        if (colours.color(QPalette::Base) != fill) {
            colours.setColor(QPalette::Base, fill);
            cell->setPalette(colours);
        }
        cell->setProperty("bad", bad);
    }
}

bool AddressPlanField::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        bool focused = false;
        for (const QLineEdit *cell : m_cells)
            focused =
                focused || (cell == watched ? event->type() == QEvent::FocusIn : cell->hasFocus());
        m_focusAnimation->stop();
        m_focusAnimation->setStartValue(m_focus);
        m_focusAnimation->setEndValue(focused ? 1.0 : 0.0);
        m_focusAnimation->start();
    }
    return QWidget::eventFilter(watched, event);
}

void AddressPlanField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette &colours = palette();
    painter.setBrush(colours.color(QPalette::Base));
    QColor line;
    qreal width = 1;
    if (!m_valid) {
        line = Roles::color(Roles::Role::orange, colours);
    } else {
        QColor rest = Roles::color(Roles::Role::separator, colours);
        rest.setAlphaF(rest.alphaF() * 0.55);
        const QColor accent = Roles::color(Roles::Role::accent, colours);
        // The focus eases the outline from the separator to the accent, and to 2 px.
        line = QColor::fromRgbF(rest.redF() + (accent.redF() - rest.redF()) * m_focus,
                                rest.greenF() + (accent.greenF() - rest.greenF()) * m_focus,
                                rest.blueF() + (accent.blueF() - rest.blueF()) * m_focus,
                                rest.alphaF() + (accent.alphaF() - rest.alphaF()) * m_focus);
        width = 1 + m_focus;
    }
    painter.setPen(QPen(line, width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}
