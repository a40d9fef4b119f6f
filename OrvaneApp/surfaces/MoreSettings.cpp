#include "OrvaneApp/surfaces/MoreSettings.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Choices.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int columnGap = 12;
constexpr int rowGap = 9;
constexpr int noteSize = 11;

QLabel *note(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setFont(Theme::font(noteSize));
    label->setTextFormat(Qt::PlainText);
    Roles::useSecondaryText(*label);
    return label;
}

void setTextIfDifferent(QLabel &label, const QString &text)
{
    if (label.text() != text)
        label.setText(text);
}

/// The live speed and its options, when the link runs at a real one.
std::optional<QString> liveSpeed(const HardwareCapabilities &offers)
{
    if (!offers.activeSpeed || *offers.activeSpeed == u"autoselect"_s
        || *offers.activeSpeed == u"none"_s)
        return std::nullopt;
    QStringList words{*offers.activeSpeed};
    words.append(offers.activeDuplex);
    return words.join(u' ');
}

/// The range of frame sizes known for the row: its own driver's, or for a VLAN its parent's.
std::optional<ClosedRange> frameRange(const ServiceEdit &row)
{
    if (row.offers() && row.offers()->mtuRange)
        return row.offers()->mtuRange;
    const auto parent = row.parentFrameRanges().constFind(row.parent());
    if (row.source().isVLAN() && parent != row.parentFrameRanges().constEnd())
        return *parent;
    return std::nullopt;
}

} // namespace

MoreSettings::MoreSettings(QWidget *anchor, AppModel &model, QString id, QString location,
                           Delete remove)
    : Popover(anchor, {}, {})
    , m_model(model)
    , m_id(std::move(id))
    , m_location(std::move(location))
    , m_remove(std::move(remove))
{
    setFont(Theme::font(12));
    build();
    connect(&m_model, &AppModel::rowEdited, this, &MoreSettings::refresh);
    connect(&m_model, &AppModel::rowsChanged, this, &MoreSettings::refresh);
    refresh();
}

std::optional<PlannedChange> MoreSettings::removal(const ServiceEdit &row)
{
    const RowSource &source = row.source();
    if (source.isVLAN()) {
        if (!source.vlan)
            return std::nullopt;
        return PlannedChange::RemoveVLAN{source.vlan->tag, source.vlan->name, source.vlan->bsdName};
    }
    return row.removeFromLocationChange();
}

bool MoreSettings::showsHardware(const ServiceEdit &row)
{
    const RowSource &source = row.source();
    if (!source.hasService())
        return false;
    if (row.offers())
        return true;
    return !(source.isVLAN() && source.attached && row.hardware().isAutomatic());
}

bool MoreSettings::hasSpeeds(const ServiceEdit &row)
{
    return (row.offers() && !row.offers()->speeds.isEmpty()) || !row.speed().isEmpty();
}

QList<QStringList> MoreSettings::duplexChoices(const ServiceEdit &row)
{
    QList<QStringList> choices;
    if (row.offers()) {
        for (const HardwareCapabilities::Speed &speed : row.offers()->speeds) {
            if (speed.name == row.speed())
                choices = speed.duplexes;
        }
    }
    if (!choices.contains(row.duplex()))
        choices.append(row.duplex());
    return choices;
}

QString MoreSettings::duplexLabel(const QStringList &options)
{
    return options.isEmpty() ? u"Automatic"_s : options.join(u", "_s);
}

QString MoreSettings::frameSizeNote(const ServiceEdit &row)
{
    const std::optional<ClosedRange> range = frameRange(row);
    if (!range || range->lower == range->upper)
        return {};
    return QString::number(range->lower) + u"\u2013"_s + QString::number(range->upper)
           + u" on this "_s + (row.source().isVLAN() ? u"VLAN"_s : u"adapter"_s);
}

QString MoreSettings::hardwareNote(const ServiceEdit &row)
{
    if (!row.source().attached) {
        return u"Not attached. What is set here can be put back to automatic: empty the MTU"_s
               + (row.speed().isEmpty() ? u"."_s : u" and choose Automatic."_s);
    }
    QStringList doing;
    if (row.offers()) {
        if (const std::optional<QString> speed = liveSpeed(*row.offers()))
            doing.append(*speed);
        if (!row.source().isVLAN() && row.offers()->activeMTU)
            doing.append(u"MTU "_s + QString::number(*row.offers()->activeMTU));
    }
    if (!doing.isEmpty())
        return u"Running at "_s + doing.join(u", "_s) + u"."_s;
    return row.source().isVLAN() ? u"Not connected."_s : QString();
}

QString MoreSettings::dnsNote(const ServiceEdit &row, const QString &location)
{
    if (row.source().isVLAN() && !row.source().hasService())
        return u"Add this VLAN to "_s + location + u" to set these."_s;
    return u"Leave empty to use what DHCP supplies."_s;
}

void MoreSettings::build()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_title = new QLabel(this);
    m_title->setFont(Theme::font(13));
    m_title->setTextFormat(Qt::PlainText);
    auto *titleLine = new QVBoxLayout;
    titleLine->setContentsMargins(padding, padding, padding, 10);
    titleLine->addWidget(m_title);
    layout->addLayout(titleLine);
    layout->addWidget(ConfirmParts::divider(this));

    auto *body = new QWidget(this);
    m_grid = new QGridLayout(body);
    m_grid->setContentsMargins(padding, 12, padding, 12);
    m_grid->setHorizontalSpacing(columnGap);
    m_grid->setVerticalSpacing(rowGap);
    int line = 0;
    const auto label = [this, body, &line](const QString &text) {
        QLabel *head = SmallParts::columnLabel(text, body);
        m_grid->addWidget(head, line, 0, Qt::AlignRight | Qt::AlignVCenter);
        return head;
    };

    label(u"DNS servers"_s);
    m_dns = new HintField(u"None"_s, body);
    m_grid->addWidget(m_dns, line++, 1);
    connect(m_dns, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (const AppModel::Row edited = row())
            edited->setDNSServers(text);
    });
    label(u"Search domains"_s);
    m_search = new HintField(u"None"_s, body);
    m_grid->addWidget(m_search, line++, 1);
    connect(m_search, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (const AppModel::Row edited = row())
            edited->setSearchDomains(text);
    });
    m_dnsNote = note(body);
    m_grid->addWidget(m_dnsNote, line++, 1);

    m_hardwareRows.append(label(u"MTU"_s));
    auto *mtuLine = new QWidget(body);
    auto *mtuLayout = new QHBoxLayout(mtuLine);
    mtuLayout->setContentsMargins(0, 0, 0, 0);
    mtuLayout->setSpacing(8);
    m_mtu = new HintField(u"Standard"_s, mtuLine);
    m_mtu->setFixedWidth(mtuWidth);
    m_mtu->setAccessibleName(u"MTU"_s);
    m_frameNote = note(mtuLine);
    mtuLayout->addWidget(m_mtu);
    mtuLayout->addWidget(m_frameNote, 1);
    m_grid->addWidget(mtuLine, line++, 1);
    m_hardwareRows.append(mtuLine);
    connect(m_mtu, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (const AppModel::Row edited = row())
            edited->setMTU(text);
    });

    m_speedRows.append(label(u"Speed"_s));
    m_speed = Choices::unlabelled(200, body);
    m_speed->setAccessibleName(u"Speed"_s);
    m_grid->addWidget(m_speed, line++, 1, Qt::AlignLeft);
    m_speedRows.append(m_speed);
    connect(m_speed, &QComboBox::activated, this, [this](int index) {
        if (const AppModel::Row edited = row()) {
            edited->setSpeed(m_speed->itemData(index).toString());
            edited->speedChanged();
        }
    });
    m_speedRows.append(label(u"Duplex"_s));
    m_duplex = Choices::unlabelled(200, body);
    m_duplex->setAccessibleName(u"Duplex"_s);
    m_grid->addWidget(m_duplex, line++, 1, Qt::AlignLeft);
    m_speedRows.append(m_duplex);
    connect(m_duplex, &QComboBox::activated, this, [this](int index) {
        if (const AppModel::Row edited = row())
            edited->setDuplex(m_duplex->itemData(index).toStringList());
    });
    m_hardwareNote = note(body);
    m_grid->addWidget(m_hardwareNote, line++, 1);
    m_hardwareRows.append(m_hardwareNote);
    layout->addWidget(body);

    layout->addWidget(ConfirmParts::divider(this));
    m_foot = new QStackedWidget(this);
    m_foot->setMinimumHeight(footHeight);
    buildFoot(m_foot);
    layout->addWidget(m_foot);
}

void MoreSettings::buildFoot(QWidget *foot)
{
    auto *normal = new QWidget(foot);
    auto *normalLayout = new QHBoxLayout(normal);
    normalLayout->setContentsMargins(padding, 10, padding, 10);
    m_delete = ConfirmParts::plainButton(QString(), normal);
    QPalette red = m_delete->palette();
    red.setColor(QPalette::ButtonText, Roles::color(Roles::Role::red, red));
    m_delete->setPalette(red);
    connect(m_delete, &QPushButton::clicked, this, [this] { setConfirmingDelete(true); });
    m_done = ConfirmParts::plainButton(u"Done"_s, normal);
    normalLayout->addWidget(m_delete);
    normalLayout->addStretch(1);
    normalLayout->addWidget(m_done);

    auto *asking = new QWidget(foot);
    auto *askingLayout = new QHBoxLayout(asking);
    askingLayout->setContentsMargins(padding, 10, padding, 10);
    m_question = new QLabel(asking);
    m_question->setTextFormat(Qt::PlainText);
    m_question->setWordWrap(true);
    auto *cancel = ConfirmParts::plainButton(u"Cancel"_s, asking);
    connect(cancel, &QPushButton::clicked, this, [this] { setConfirmingDelete(false); });
    m_confirmDelete = ConfirmParts::confirmButton(QString(), true, asking);
    m_confirmDelete->setAutoDefault(false);
    connect(m_confirmDelete, &QPushButton::clicked, this, [this] {
        const AppModel::Row edited = row();
        const std::optional<PlannedChange> change = edited ? removal(*edited) : std::nullopt;
        dismissQuietly();
        if (change && m_remove)
            m_remove(*change);
    });
    askingLayout->addWidget(m_question, 1);
    askingLayout->addWidget(cancel);
    askingLayout->addWidget(m_confirmDelete);

    m_foot->addWidget(normal);
    m_foot->addWidget(asking);
    setConfirmButton(m_done);
}

void MoreSettings::setConfirmingDelete(bool confirming)
{
    m_confirmingDelete = confirming;
    m_foot->setCurrentIndex(confirming ? 1 : 0);
}

int MoreSettings::measureValueWidth(const ServiceEdit &edited) const
{
    const QFontMetrics values(font());
    const QFontMetrics notes(Theme::font(noteSize));
    qreal widest = leastValueWidth;
    for (const QString &text : {dnsNote(edited, m_location), hardwareNote(edited)})
        widest = std::max<qreal>(widest, notes.horizontalAdvance(text));
    widest = std::max<qreal>(widest, mtuWidth + 8 + notes.horizontalAdvance(frameSizeNote(edited)));
    for (const QString &text : {edited.dnsServers(), edited.searchDomains()})
        widest = std::max<qreal>(widest, values.horizontalAdvance(text) + 12);
    return int(std::ceil(widest));
}

void MoreSettings::refresh()
{
    const AppModel::Row edited = row();
    if (!edited) {
        dismissQuietly();
        return;
    }
    const RowSource &source = edited->source();
    setTextIfDifferent(*m_title, edited->name());
    m_dns->setTextIfDifferent(edited->dnsServers());
    m_search->setTextIfDifferent(edited->searchDomains());
    const bool hasService = source.hasService();
    m_dns->setEnabled(hasService);
    m_search->setEnabled(hasService);
    setTextIfDifferent(*m_dnsNote, dnsNote(*edited, m_location));

    const bool edits = edited->isDirty();
    const std::optional<ServiceEdit::Problem> problem = edits ? edited->problem() : std::nullopt;
    const auto about = [&problem](ServiceEdit::Field field) {
        return problem && problem->field == field;
    };
    m_dns->setProblemOutline(about(ServiceEdit::Field::dns));

    const bool hardware = showsHardware(*edited);
    const bool speeds = hardware && hasSpeeds(*edited);
    for (QWidget *widget : std::as_const(m_hardwareRows))
        widget->setVisible(hardware);
    for (QWidget *widget : std::as_const(m_speedRows))
        widget->setVisible(speeds);
    m_mtu->setTextIfDifferent(edited->mtu());
    m_mtu->setProblemOutline(about(ServiceEdit::Field::mtu));
    setTextIfDifferent(*m_frameNote, frameSizeNote(*edited));
    setTextIfDifferent(*m_hardwareNote, hardwareNote(*edited));
    m_hardwareNote->setVisible(hardware && !m_hardwareNote->text().isEmpty());

    QList<Choices::Entry> offered{{u"Automatic"_s, QString()}};
    bool listed = edited->speed().isEmpty();
    if (edited->offers()) {
        for (const HardwareCapabilities::Speed &speed : edited->offers()->speeds) {
            offered.append({speed.name, speed.name});
            listed = listed || speed.name == edited->speed();
        }
    }
    if (!listed)
        offered.append({edited->speed(), edited->speed()});
    Choices::show(*m_speed, offered, edited->speed());
    QList<Choices::Entry> duplexes;
    for (const QStringList &options : duplexChoices(*edited))
        duplexes.append({duplexLabel(options), options});
    Choices::show(*m_duplex, duplexes, edited->duplex());

    const std::optional<PlannedChange> change = removal(*edited);
    m_delete->setVisible(change.has_value());
    m_delete->setText(source.isVLAN() ? u"Delete VLAN\u2026"_s
                                      : u"Remove from "_s + m_location + u"\u2026"_s);
    m_question->setText(source.isVLAN()
                            ? u"Delete "_s + source.name + u" and its network service?"_s
                            : u"Remove "_s + source.name + u" from "_s + m_location
                                  + u"? The adapter itself stays."_s);
    m_confirmDelete->setText(source.isVLAN() ? u"Delete"_s : u"Remove"_s);

    m_valueWidth = measureValueWidth(*edited);
    m_grid->setColumnMinimumWidth(1, m_valueWidth);
    if (isVisible())
        adjustSize();
}
