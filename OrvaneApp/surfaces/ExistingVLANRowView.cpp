#include "OrvaneApp/surfaces/ExistingVLANRowView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/AddColumns.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// The strength of a VLAN that is switched off.
constexpr qreal dimmed = 0.45;

void setTextIfDifferent(QLabel &label, const QString &text)
{
    if (label.text() != text)
        label.setText(text);
}

} // namespace

ExistingVLANRowView::ExistingVLANRowView(QWidget *parent)
    : QWidget(parent)
{
    setFont(Theme::font(12));
    for (int index = 0; index < 7; ++index) {
        auto *cell = new QLabel(this);
        cell->setTextFormat(Qt::PlainText);
        if (index >= 2)
            Roles::useSecondaryText(*cell);
        m_cells.append(cell);
    }
    m_notInLocation = new QLabel(this);
    m_notInLocation->setTextFormat(Qt::PlainText);
    Roles::useSecondaryText(*m_notInLocation);
    m_dimming = new QGraphicsOpacityEffect(this);
    m_dimming->setOpacity(dimmed);
    m_dimming->setEnabled(false);
    setGraphicsEffect(m_dimming);
}

void ExistingVLANRowView::bind(const ExistingVLAN &vlan, const QString &location, int nameColumn)
{
    const AddColumns columns = AddColumns::of(nameColumn);
    const std::pair<int, int> places[] = {
        {columns.tagX, AddColumns::tag},    {columns.nameX, columns.nameWidth},
        {columns.modeX, AddColumns::mode},  {columns.addressX, AddColumns::field},
        {columns.maskX, AddColumns::field}, {columns.routerX, AddColumns::field},
        {columns.dnsX, AddColumns::dns}};
    const QString texts[] = {vlan.tag,        vlan.name,   vlan.mode, vlan.address,
                             vlan.subnetMask, vlan.router, vlan.dns};
    for (int index = 0; index < 7; ++index) {
        QLabel *cell = m_cells.at(index);
        cell->setGeometry(places[index].first, 0, places[index].second, rowHeight - 1);
        // A value wider than its column ends in an ellipsis; the whole of it is the help.
        const QString shown =
            cell->fontMetrics().elidedText(texts[index], Qt::ElideRight, places[index].second);
        setTextIfDifferent(*cell, shown);
        setHelp(cell, shown == texts[index] ? QString() : texts[index]);
        cell->setVisible(index < 2 || vlan.inLocation);
    }
    m_notInLocation->setGeometry(columns.modeX, 0, columns.width - columns.modeX, rowHeight - 1);
    setTextIfDifferent(*m_notInLocation,
                       u"Not in "_s + location + u". Add it on the Current tab."_s);
    m_notInLocation->setVisible(!vlan.inLocation);
    m_dimming->setEnabled(!vlan.isOn);
}

QStringList ExistingVLANRowView::texts() const
{
    QStringList shown;
    for (const QLabel *cell : m_cells) {
        if (cell->isVisibleTo(this))
            shown.append(cell->text());
    }
    if (m_notInLocation->isVisibleTo(this))
        shown.append(m_notInLocation->text());
    return shown;
}

qreal ExistingVLANRowView::strength() const
{
    return m_dimming->isEnabled() ? m_dimming->opacity() : 1.0;
}

void ExistingVLANRowView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(Roles::color(Roles::Role::separator, palette()));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}
