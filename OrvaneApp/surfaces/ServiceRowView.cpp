#include "OrvaneApp/surfaces/ServiceRowView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/ChangeConfirmation.h"
#include "OrvaneApp/surfaces/MoreButton.h"
#include "OrvaneApp/surfaces/MoreSettings.h"
#include "OrvaneApp/surfaces/kit/Choices.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/LeftAlignedButton.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/Pulse.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Switch.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// The height of a control in a row, centred in it.
constexpr int controlHeight = 22;
/// The dot and the gap before the name field.
constexpr int dotRoom = StatusDot::diameter + 6;

using Field = ServiceEdit::Field;

void setTextIfDifferent(QLabel &label, const QString &text)
{
    if (label.text() != text)
        label.setText(text);
}

void setEnabledIfDifferent(QWidget &widget, bool enabled)
{
    if (widget.isEnabled() != enabled)
        widget.setEnabled(enabled);
}

void setVisibleIfDifferent(QWidget &widget, bool visible)
{
    if (widget.isVisibleTo(widget.parentWidget()) != visible)
        widget.setVisible(visible);
}

/// The row's field that a problem is about, among the ones the row shows.
bool problemIsAbout(const std::optional<ServiceEdit::Problem> &problem, Field field)
{
    return problem && problem->field == field;
}

/// Whether a problem is about a field behind "More…".
bool problemIsBehindMore(const std::optional<ServiceEdit::Problem> &problem)
{
    return problem
           && (problem->field == Field::dns || problem->field == Field::mtu
               || problem->field == Field::speed);
}

} // namespace

ServiceRowView::ServiceRowView(AppModel &model, Apply apply, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_apply(std::move(apply))
{
    setFont(Theme::font(12));
    build();
}

ServiceRowView::~ServiceRowView()
{
    release();
}

void ServiceRowView::build()
{
    m_tick = new QCheckBox(this);
    setHelp(m_tick, u"Select for a bulk action"_s);
    connect(m_tick, &QCheckBox::clicked, this, [this] {
        if (m_row)
            m_model.toggleSelection(m_row);
    });
    m_device = new QLabel(this);
    m_device->setTextFormat(Qt::PlainText);

    m_dimmable = new QWidget(this);
    m_dimming = new QGraphicsOpacityEffect(m_dimmable);
    m_dimming->setOpacity(dimmed);
    m_dimming->setEnabled(false);
    m_dimmable->setGraphicsEffect(m_dimming);

    m_dot = new StatusDot(m_dimmable);
    m_name = new HintField(QString(), m_dimmable);
    m_name->setFrame(false);
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_row)
            m_row->setName(text);
    });

    m_parent = Choices::unlabelled(CurrentColumns::parent, m_dimmable);
    connect(m_parent, &QComboBox::activated, this, [this](int index) {
        if (m_row)
            m_row->setParent(m_parent->itemData(index).toString());
    });

    m_mode = Choices::unlabelled(CurrentColumns::mode, m_dimmable);
    connect(m_mode, &QComboBox::activated, this, [this](int index) {
        if (!m_row)
            return;
        const IPMode chosen = IPMode(m_mode->itemData(index).toInt());
        const IPMode from = m_row->mode();
        if (chosen == from)
            return;
        m_row->setMode(chosen);
        m_row->modeChanged(from, m_model.addressPlan());
    });

    m_address = new HintField(u"Required"_s, m_dimmable);
    m_mask = new HintField(u"255.255.255.0"_s, m_dimmable);
    m_router = new HintField(u"Optional"_s, m_dimmable);
    const std::pair<HintField *, void (ServiceEdit::*)(const QString &)> fields[] = {
        {m_address, &ServiceEdit::setAddress},
        {m_mask, &ServiceEdit::setSubnetMask},
        {m_router, &ServiceEdit::setRouter}};
    for (const auto &field : fields) {
        connect(field.first, &QLineEdit::textEdited, this,
                [this, setter = field.second](const QString &text) {
                    if (m_row)
                        (m_row.get()->*setter)(text);
                });
    }

    m_ipv6 = Choices::unlabelled(CurrentColumns::ipv6, m_dimmable);
    connect(m_ipv6, &QComboBox::activated, this, [this](int index) {
        if (m_row)
            m_row->setIPv6(IPv6Mode(m_ipv6->itemData(index).toInt()));
    });

    m_on = new Switch(m_dimmable);
    connect(m_on, &Switch::clicked, this, [this](bool on) {
        if (m_row)
            m_row->setEnabled(on);
    });

    m_add = new LeftAlignedButton(m_dimmable);
    connect(m_add, &QPushButton::clicked, this, &ServiceRowView::confirmAdd);

    m_save = new ProminentButton(u"Save"_s, this);
    m_save->setFont(Theme::font(11));
    setHelp(m_save, u"Review this row's changes, then apply them"_s);
    m_pulse = new Pulse(m_save);
    connect(m_save, &QPushButton::clicked, this, &ServiceRowView::confirmSave);

    m_problem = new QToolButton(this);
    m_problem->setAutoRaise(true);
    m_problem->setIcon(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange));
    m_problem->setIconSize(QSize(14, 14));
    connect(m_problem, &QToolButton::clicked, this, &ServiceRowView::showProblem);

    m_more = new MoreButton(this);
    connect(m_more, &QPushButton::clicked, this, &ServiceRowView::showMore);
}

void ServiceRowView::placeColumns(bool vlan, bool hasService)
{
    const CurrentColumns columns = CurrentColumns::of(m_nameColumn, vlan);
    setFixedSize(columns.width, rowHeight);
    static constexpr int y = (rowHeight - 1 - controlHeight) / 2;
    const auto put = [](QWidget *widget, int x, int width) {
        const QRect place(x, y, width, controlHeight);
        if (widget->geometry() != place)
            widget->setGeometry(place);
    };
    put(m_tick, columns.tickX, CurrentColumns::tick);
    put(m_device, columns.deviceX, CurrentColumns::device);

    // The dimmed controls stand in one container, from the name to the switch.
    const int dimLeft = columns.nameX;
    const QRect dimPlace(dimLeft, 0, columns.onX + CurrentColumns::on - dimLeft, rowHeight - 1);
    if (m_dimmable->geometry() != dimPlace)
        m_dimmable->setGeometry(dimPlace);
    const auto inner = [&put, dimLeft](QWidget *widget, int x, int width) {
        put(widget, x - dimLeft, width);
    };
    const QRect dotPlace(columns.nameX - dimLeft, (rowHeight - 1 - StatusDot::diameter) / 2,
                         StatusDot::diameter, StatusDot::diameter);
    if (m_dot->geometry() != dotPlace)
        m_dot->setGeometry(dotPlace);
    inner(m_name, columns.nameX + dotRoom, columns.nameWidth - dotRoom);
    setVisibleIfDifferent(*m_parent, vlan);
    if (vlan)
        inner(m_parent, columns.parentX, CurrentColumns::parent);
    inner(m_mode, columns.modeX, CurrentColumns::mode);
    inner(m_address, columns.addressX, CurrentColumns::field);
    inner(m_mask, columns.maskX, CurrentColumns::field);
    inner(m_router, columns.routerX, CurrentColumns::field);
    inner(m_ipv6, columns.ipv6X, CurrentColumns::ipv6);
    inner(m_on, columns.onX, CurrentColumns::on);
    inner(m_add, columns.modeX, CurrentColumns::addButton);
    for (QWidget *control : {static_cast<QWidget *>(m_mode), static_cast<QWidget *>(m_address),
                             static_cast<QWidget *>(m_mask), static_cast<QWidget *>(m_router),
                             static_cast<QWidget *>(m_ipv6), static_cast<QWidget *>(m_on)})
        setVisibleIfDifferent(*control, hasService);
    setVisibleIfDifferent(*m_add, !hasService);

    put(m_save, columns.saveX, CurrentColumns::save);
    put(m_problem, columns.saveX, CurrentColumns::save);
    put(m_more, columns.moreX, CurrentColumns::more);
}

void ServiceRowView::bind(const AppModel::Row &row, int nameColumn, const QString &location)
{
    const bool sameRow = m_row && row && m_row->source().id == row->source().id;
    if (!sameRow) {
        release();
    } else if (row != m_row) {
        // The same row, read again. An edit that was dropped, or settings changed by another
        // hand, take the questions about them away; an untouched row read anew keeps them.
        const bool changed =
            m_shownTouched || !m_shownSource || !row->source().sameSettings(*m_shownSource);
        if (changed)
            closePopovers();
    }
    if (row != m_row) {
        QObject::disconnect(m_rowChanged);
        m_row = row;
        if (m_row)
            m_rowChanged = connect(m_row.get(), &ServiceEdit::changed, this, &ServiceRowView::show);
    }
    m_nameColumn = nameColumn;
    m_location = location;
    show();
}

void ServiceRowView::release()
{
    closePopovers();
    QObject::disconnect(m_rowChanged);
    m_row.reset();
    m_shownSource.reset();
    m_shownTouched = false;
}

void ServiceRowView::closePopovers()
{
    for (const QPointer<Popover> &popover :
         {m_confirming, m_confirmingAdd, m_showingMore, m_showingProblem}) {
        if (popover)
            popover->dismissQuietly();
    }
}

QList<QWidget *> ServiceRowView::focusOrder() const
{
    return {m_tick, m_name, m_parent, m_mode, m_address, m_mask, m_router,
            m_ipv6, m_on,   m_add,    m_save, m_problem, m_more};
}

QString ServiceRowView::statusHelp(const ServiceEdit &row, const QString &location)
{
    switch (row.liveness()) {
    case ServiceEdit::Liveness::connected:
        return u"Connected: on, and holding an address"_s;
    case ServiceEdit::Liveness::selfAssigned:
        return u"Self-assigned IP: on, but nothing answered DHCP"_s;
    case ServiceEdit::Liveness::notConnected:
        if (row.source().attached)
            return u"Not connected: on, but holding no address"_s;
        return row.source().isVLAN() ? u"Not connected: its parent adapter isn't attached"_s
                                     : u"Not connected: the adapter isn't attached"_s;
    case ServiceEdit::Liveness::inactive:
        return u"Inactive: switched off"_s;
    case ServiceEdit::Liveness::notInLocation:
        break;
    }
    return u"Not in "_s + location;
}

qreal ServiceRowView::strength(const ServiceEdit &row)
{
    return row.source().hasService() && row.enabled() ? 1.0 : dimmed;
}

QString ServiceRowView::otherModeLabel(IPMode mode)
{
    switch (mode) {
    case IPMode::dhcp:
    case IPMode::manual:
        return {};
    case IPMode::linkLocal:
        return u"Link-local"_s;
    case IPMode::off:
        return u"Off"_s;
    case IPMode::unknown:
        break;
    }
    return u"Other"_s;
}

qreal ServiceRowView::shownStrength() const
{
    return m_dimming->isEnabled() ? m_dimming->opacity() : 1.0;
}

Popover *ServiceRowView::openPopover() const
{
    for (const QPointer<Popover> &popover :
         {m_confirming, m_confirmingAdd, m_showingMore, m_showingProblem}) {
        if (popover)
            return popover;
    }
    return nullptr;
}

void ServiceRowView::show()
{
    if (!m_row)
        return;
    const RowSource &source = m_row->source();
    const bool vlan = source.isVLAN();
    placeColumns(vlan, source.hasService());
    m_shownSource = source;
    m_shownTouched = m_row->isTouched();

    const QString &name = source.name;
    const bool ticked = m_model.selectedIDs().contains(source.id);
    if (m_tick->isChecked() != ticked)
        m_tick->setChecked(ticked);
    m_tick->setAccessibleName(u"Select "_s + name);
    setTextIfDifferent(*m_device,
                       vlan && source.tag ? QString::number(*source.tag) : source.device);

    const ServiceEdit::Liveness liveness = m_row->liveness();
    m_dot->setState(liveness);
    if (m_dot->accessibleName() != ServiceEdit::label(liveness))
        m_dot->setAccessibleName(ServiceEdit::label(liveness));
    m_name->setTextIfDifferent(m_row->name());
    setHelp(m_name, statusHelp(*m_row, m_location));
    setHelp(m_dot, statusHelp(*m_row, m_location));
    if (m_name->accessibleName() != name)
        m_name->setAccessibleName(name);

    const bool dim = strength(*m_row) < 1.0;
    if (m_dimming->isEnabled() != dim)
        m_dimming->setEnabled(dim);

    showChoices();
    showAddress();
    if (m_on->isChecked() != m_row->enabled())
        m_on->setChecked(m_row->enabled());
    setHelp(m_on, vlan ? u"Turn this VLAN's service on or off"_s
                       : u"Turn this adapter's service on or off"_s);
    m_on->setAccessibleName(u"On, "_s + name);

    if (!source.hasService()) {
        m_add->setText(u"Add to "_s + m_location + u" to enter its settings\u2026"_s);
        setHelp(m_add, name + u" is on this Mac but has no service in "_s + m_location
                           + u", so it holds no address there"_s);
    }
    showSaveCell();
}

void ServiceRowView::showChoices()
{
    const RowSource &source = m_row->source();
    const QString &name = source.name;
    if (source.isVLAN()) {
        // The adapters to choose among, and the present parent when it isn't attached, so that
        // the choice always has something to show.
        QList<Choices::Entry> parents;
        bool listed = false;
        for (const AdapterRecord &adapter : m_model.adapters()) {
            if (!adapter.present)
                continue;
            // A name too long for the column gives way to the adapter's BSD name.
            parents.append({Choices::fitting(*m_parent, adapter.friendlyName(), adapter.bsdName),
                            adapter.bsdName});
            listed = listed || adapter.bsdName == m_row->parent();
        }
        if (!listed && !m_row->parent().isEmpty()) {
            // Its name as the adapters list has it, or as it was last seen.
            QString label = m_model.adapterNamesSeen().value(m_row->parent(), m_row->parent());
            for (const AdapterRecord &adapter : m_model.adapters()) {
                if (adapter.bsdName == m_row->parent())
                    label = adapter.friendlyName();
            }
            parents.append({Choices::fitting(*m_parent, label + u" (absent)"_s,
                                             m_row->parent() + u" (absent)"_s),
                            m_row->parent()});
        }
        Choices::show(*m_parent, parents, m_row->parent());
        Choices::name(*m_parent, u"Parent"_s, name);
    }

    QList<Choices::Entry> modes{{u"DHCP"_s, int(IPMode::dhcp)}, {u"Manual"_s, int(IPMode::manual)}};
    const QString other = otherModeLabel(m_row->mode());
    if (!other.isEmpty())
        modes.append({other, int(m_row->mode())});
    Choices::show(*m_mode, modes, int(m_row->mode()));
    Choices::name(*m_mode, u"IPv4"_s, name);

    QList<Choices::Entry> ipv6;
    for (const IPv6Mode mode : settableIPv6Modes())
        ipv6.append({label(mode), int(mode)});
    if (!isSettable(m_row->ipv6()))
        ipv6.append({m_row->ipv6() == IPv6Mode::manual ? u"Manual"_s : label(m_row->ipv6()),
                     int(m_row->ipv6())});
    Choices::show(*m_ipv6, ipv6, int(m_row->ipv6()));
    Choices::name(*m_ipv6, u"IPv6"_s, name);
}

void ServiceRowView::showAddress()
{
    const bool manual = m_row->mode() == IPMode::manual;
    const bool edited = m_row->isDirty();
    const std::optional<ServiceEdit::Problem> problem = edited ? m_row->problem() : std::nullopt;
    const std::optional<LiveState::Address> live = m_model.liveAddress(m_row);
    const std::pair<HintField *, Field> fields[] = {
        {m_address, Field::address}, {m_mask, Field::subnetMask}, {m_router, Field::router}};
    const QString shownLive[] = {live ? live->address : QString(),
                                 live ? live->subnetMask.value_or(QString()) : QString(),
                                 live ? live->router.value_or(QString()) : QString()};
    const QString typed[] = {m_row->address(), m_row->subnetMask(), m_row->router()};
    for (int index = 0; index < 3; ++index) {
        HintField *field = fields[index].first;
        setEnabledIfDifferent(*field, manual);
        field->setTextIfDifferent(manual ? typed[index] : shownLive[index]);
        field->setProblemOutline(problemIsAbout(problem, fields[index].second));
    }
    setHelp(m_address, manual ? QString() : u"The address this service holds now"_s);
    m_name->setProblemOutline(problemIsAbout(problem, Field::name));
    m_more->setProblemOutline(problemIsBehindMore(problem));
    m_more->setShowsDot(m_row->hasMoreSettings());
    setHelp(m_more, m_row->hasMoreSettings()
                        ? u"DNS or hardware settings are set on this service"_s
                        : u"DNS servers, search domains, MTU, speed and duplex"_s);
}

void ServiceRowView::showSaveCell()
{
    const bool edited = m_row->isDirty();
    const std::optional<ServiceEdit::Problem> problem = edited ? m_row->problem() : std::nullopt;
    setVisibleIfDifferent(*m_save, edited && !problem);
    m_pulse->setActive(edited && !problem);
    setVisibleIfDifferent(*m_problem, edited && problem.has_value());
    setHelp(m_problem, problem ? problem->message : QString());
    if (!edited || problem) {
        if (m_confirming)
            m_confirming->dismissQuietly();
    }
    if (!problem && m_showingProblem)
        m_showingProblem->dismissQuietly();
}

void ServiceRowView::confirmSave()
{
    if (!m_row || m_confirming)
        return;
    const AppModel::Row row = m_row;
    const QList<PlannedChange> changes = row->changes();
    m_confirming = new ChangeConfirmation(
        m_save,
        {u"Apply to "_s + row->source().name + u"?"_s, u"Nothing has changed yet."_s, changes,
         u"Apply"_s, false},
        [this, changes] { m_apply(changes); }, {}, [this, row] { m_model.revert(row); });
    m_confirming->present();
}

void ServiceRowView::showProblem()
{
    if (!m_row || m_showingProblem)
        return;
    const std::optional<ServiceEdit::Problem> problem = m_row->problem();
    if (!problem)
        return;
    auto *popover = new Popover(m_problem, {}, {});
    auto *layout = new QVBoxLayout(popover);
    layout->setContentsMargins(12, 10, 12, 10);
    auto *words = new QLabel(problem->message, popover);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setMaximumWidth(280);
    layout->addWidget(words);
    m_showingProblem = popover;
    popover->present();
}

void ServiceRowView::confirmAdd()
{
    if (!m_row || m_confirmingAdd || !m_row->source().vlan)
        return;
    const VLANRecord &vlan = *m_row->source().vlan;
    const QList<PlannedChange> changes{
        PlannedChange::AddService{vlan.tag, vlan.bsdName, vlan.name}};
    m_confirmingAdd = new ChangeConfirmation(
        m_add,
        {u"Add "_s + m_row->source().name + u" to "_s + m_location + u"?"_s,
         u"It gets a service there, on DHCP, at the bottom of the service order."_s, changes,
         u"Add"_s, false},
        [this, changes] { m_apply(changes); }, {});
    m_confirmingAdd->present();
}

void ServiceRowView::showMore()
{
    if (!m_row || m_showingMore)
        return;
    m_showingMore = new MoreSettings(m_more, m_model, m_row->source().id, m_location,
                                     [this](const PlannedChange &removal) { m_apply({removal}); });
    m_showingMore->present();
}

void ServiceRowView::paintEvent(QPaintEvent *)
{
    // The row's separator, a hairline along its foot.
    QPainter painter(this);
    painter.setPen(Roles::color(Roles::Role::separator, palette()));
    painter.drawLine(0, rowHeight - 1, width(), rowHeight - 1);
}
