#include "OrvaneApp/surfaces/CurrentHeads.h"

#include "OrvaneApp/model/ServiceEdit.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/CurrentColumns.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// The key of the dots: the first four states, each with its dot and its label.
QWidget *makeKey(QWidget *parent)
{
    auto *key = new QWidget(parent);
    auto *layout = new QHBoxLayout(key);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    using Liveness = ServiceEdit::Liveness;
    for (const Liveness state : {Liveness::connected, Liveness::selfAssigned,
                                 Liveness::notConnected, Liveness::inactive}) {
        auto *entry = new QWidget(key);
        auto *entryLayout = new QHBoxLayout(entry);
        entryLayout->setContentsMargins(0, 0, 0, 0);
        entryLayout->setSpacing(4);
        auto *dot = new StatusDot(entry);
        dot->setState(state);
        dot->setAccessibleName(ServiceEdit::label(state));
        auto *label = new QLabel(ServiceEdit::label(state), entry);
        label->setFont(Theme::font(11));
        Roles::useSecondaryText(*label);
        entryLayout->addWidget(dot);
        entryLayout->addWidget(label);
        layout->addWidget(entry);
    }
    return key;
}

} // namespace

SectionHead::SectionHead(const QString &title, bool showsKey, QWidget *parent)
    : QWidget(parent)
{
    setFixedHeight(headHeight);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 12, 0, 4);
    layout->setSpacing(8);
    auto *heading = new QLabel(title, this);
    heading->setFont(Theme::font(13, QFont::DemiBold));
    layout->addWidget(heading);
    m_pill = new Pill(u"0"_s, 11, this);
    layout->addWidget(m_pill);
    m_offers = new QHBoxLayout;
    m_offers->setSpacing(8);
    layout->addSpacing(4);
    layout->addLayout(m_offers);
    if (showsKey) {
        layout->addSpacing(8);
        layout->addWidget(makeKey(this));
    }
    m_loadError = SmallParts::warning(QString(), this);
    m_loadError->hide();
    layout->addSpacing(8);
    layout->addWidget(m_loadError, 1);
    layout->addStretch(1);
}

void SectionHead::setCount(qsizetype count)
{
    const QString text = QString::number(count);
    if (m_pill->text() != text)
        m_pill->setText(text);
}

void SectionHead::setLoadError(const std::optional<QString> &error)
{
    SmallParts::setWarningText(*m_loadError, error.value_or(QString()));
    m_loadError->setVisible(error.has_value());
}

ColumnHead::ColumnHead(bool vlan, QWidget *parent)
    : QWidget(parent)
    , m_vlan(vlan)
{
    setFixedHeight(headHeight);
    m_tickAll = new QCheckBox(this);
    setHelp(m_tickAll, vlan ? u"Select every VLAN"_s : u"Select every adapter"_s);
    m_tickAll->setAccessibleName(vlan ? u"Select every VLAN"_s : u"Select every adapter"_s);
    QStringList words{vlan ? u"Tag"_s : u"Device"_s, u"Name"_s};
    if (vlan)
        words.append(u"Parent"_s);
    words.append({u"IPv4"_s, u"Address"_s, u"Subnet mask"_s, u"Router"_s, u"IPv6"_s, u"On"_s});
    for (const QString &word : words)
        m_labels.append(SmallParts::headLabel(word, this));
    setNameColumn(210);
}

void ColumnHead::setNameColumn(int nameColumn)
{
    const CurrentColumns columns = CurrentColumns::of(nameColumn, m_vlan);
    setMinimumWidth(columns.width);
    const int y = (headHeight - 1 - 18) / 2;
    m_tickAll->setGeometry(columns.tickX, y, CurrentColumns::tick, 18);
    QList<std::pair<int, int>> places{{columns.deviceX, CurrentColumns::device},
                                      {columns.nameX, columns.nameWidth}};
    if (m_vlan)
        places.append({columns.parentX, CurrentColumns::parent});
    places.append({{columns.modeX, CurrentColumns::mode},
                   {columns.addressX, CurrentColumns::field},
                   {columns.maskX, CurrentColumns::field},
                   {columns.routerX, CurrentColumns::field},
                   {columns.ipv6X, CurrentColumns::ipv6},
                   {columns.onX, CurrentColumns::on}});
    for (qsizetype index = 0; index < m_labels.size(); ++index)
        m_labels.at(index)->setGeometry(places.at(index).first, y, places.at(index).second, 18);
}

QStringList ColumnHead::labels() const
{
    QStringList words;
    for (const QLabel *label : m_labels)
        words.append(label->text());
    return words;
}

void ColumnHead::paintEvent(QPaintEvent *)
{
    // The head's separator: a hairline under the labels, as wide as the rows.
    QPainter painter(this);
    painter.setPen(Roles::color(Roles::Role::separator, palette()));
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

EmptyNotice::EmptyNotice(QWidget *parent)
    : QWidget(parent)
{
    setFixedHeight(56);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 12, 0, 12);
    layout->setSpacing(12);
    auto *words = new QLabel(u"No VLANs on this Mac."_s, this);
    Roles::useSecondaryText(*words);
    auto *add = new QPushButton(u"Add VLANs"_s, this);
    add->setAutoDefault(false);
    connect(add, &QPushButton::clicked, this, &EmptyNotice::addRequested);
    layout->addWidget(words);
    layout->addWidget(add);
    layout->addStretch(1);
}
