#include "OrvaneApp/surfaces/kit/HintField.h"

#include "OrvaneApp/surfaces/kit/ProblemOutline.h"

#include <QEvent>
#include <QPainter>

HintField::HintField(const QString &hint, QWidget *parent)
    : QLineEdit(parent)
    , m_hint(hint)
{
    showHintIfDue();
}

void HintField::setHint(const QString &hint)
{
    m_hint = hint;
    showHintIfDue();
}

void HintField::setProblemOutline(bool on)
{
    if (m_problem == on)
        return;
    m_problem = on;
    update();
}

void HintField::setTextIfDifferent(const QString &text)
{
    if (QLineEdit::text() != text)
        setText(text);
}

void HintField::showHintIfDue()
{
    setPlaceholderText(isEnabled() && !hasFocus() ? m_hint : QString());
}

void HintField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    showHintIfDue();
}

void HintField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    showHintIfDue();
}

void HintField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        showHintIfDue();
}

void HintField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (!m_problem)
        return;
    QPainter painter(this);
    paintProblemOutline(painter, *this);
}
