#include "OrvaneApp/surfaces/MoreButton.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/ProblemOutline.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QPainter>

using namespace Qt::StringLiterals;

MoreButton::MoreButton(QWidget *parent)
    : QPushButton(u"More\u2026"_s, parent)
{
    setAutoDefault(false);
    setFont(Theme::font(11));
}

void MoreButton::setShowsDot(bool shows)
{
    if (m_dot == shows)
        return;
    m_dot = shows;
    update();
}

void MoreButton::setProblemOutline(bool on)
{
    if (m_problem == on)
        return;
    m_problem = on;
    update();
}

void MoreButton::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!m_dot && !m_problem)
        return;
    QPainter painter(this);
    if (m_problem)
        paintProblemOutline(painter, *this);
    if (m_dot) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Roles::color(Roles::Role::accent, palette()));
        painter.drawEllipse(QRectF(width() - dotDiameter - 1, 1, dotDiameter, dotDiameter));
    }
}
