#include "OrvaneApp/surfaces/CurrentView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/ChangeConfirmation.h"
#include "OrvaneApp/surfaces/CurrentColumns.h"
#include "OrvaneApp/surfaces/CurrentHeads.h"
#include "OrvaneApp/surfaces/LocationConfirmation.h"
#include "OrvaneApp/surfaces/ServiceOrderStrip.h"
#include "OrvaneApp/surfaces/ServiceRowView.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// A small button in a section head.
QPushButton *smallButton(QWidget *parent)
{
    auto *button = new QPushButton(parent);
    button->setAutoDefault(false);
    button->setFont(Theme::font(11));
    return button;
}

QPushButton *barButton(const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setAutoDefault(false);
    return button;
}

void setTextIfDifferent(QAbstractButton &button, const QString &text)
{
    if (button.text() != text)
        button.setText(text);
}

} // namespace

CurrentView::CurrentView(AppModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setFont(Theme::font(12));
    m_adaptersHead = new SectionHead(u"Adapters"_s, true, this);
    m_adaptersHead->offers()->addWidget(makeAdapterOffers());
    m_adapterColumns = new ColumnHead(false, this);
    m_vlansHead = new SectionHead(u"VLANs"_s, false, this);
    m_vlansHead->offers()->addWidget(makeVLANOffers());
    m_vlanColumns = new ColumnHead(true, this);
    m_emptyNotice = new EmptyNotice(this);
    connect(m_emptyNotice, &EmptyNotice::addRequested, this,
            [this] { m_model.setTab(AppTab::add); });
    // The list shows the heads it lists; none stands on its own.
    for (QWidget *head :
         {static_cast<QWidget *>(m_adaptersHead), static_cast<QWidget *>(m_adapterColumns),
          static_cast<QWidget *>(m_vlansHead), static_cast<QWidget *>(m_vlanColumns),
          static_cast<QWidget *>(m_emptyNotice)})
        head->hide();

    m_list = new RowList(
        ServiceRowView::rowHeight, [this](QWidget *viewport, int) { return makeRow(viewport); },
        [this](QWidget *row, const QString &id) { bindRow(row, id); },
        [](QWidget *row) { return static_cast<ServiceRowView *>(row)->focusOrder(); }, this);
    m_list->setSideMargins(leftMargin, rightMargin);
    connect(m_list, &RowList::rowReleased, this,
            [](QWidget *row) { static_cast<ServiceRowView *>(row)->release(); });

    for (ColumnHead *head : {m_adapterColumns, m_vlanColumns}) {
        const bool vlan = head == m_vlanColumns;
        connect(head->tickAll(), &QCheckBox::clicked, this, [this, vlan](bool on) {
            QSet<QString> ids = m_model.selectedIDs();
            for (const QString &id : vlan ? m_vlanIDs : m_adapterIDs) {
                if (on)
                    ids.insert(id);
                else
                    ids.remove(id);
            }
            m_model.setSelectedIDs(ids);
        });
    }

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list, 1);
    layout->addWidget(ConfirmParts::divider(this));
    layout->addWidget(makeActionBar());
    layout->addWidget(ConfirmParts::divider(this));
    m_strip = new ServiceOrderStrip(m_model, this);
    layout->addWidget(m_strip);

    // A reload announces every row it touches; the tab shows the outcome once, when it ends.
    const auto unlessReloading = [this](void (CurrentView::*refresh)()) {
        return [this, refresh] {
            if (!m_model.isReloading())
                (this->*refresh)();
        };
    };
    for (const auto signal : {&AppModel::rowsChanged, &AppModel::nameColumnWidthChanged,
                              &AppModel::selectedLocationChanged})
        connect(&m_model, signal, this, unlessReloading(&CurrentView::showRows));
    for (const auto signal :
         {&AppModel::adaptersChanged, &AppModel::existingChanged, &AppModel::liveChanged,
          &AppModel::loadErrorChanged, &AppModel::adaptersNotInLocationChanged,
          &AppModel::adapterNameSyncChanged})
        connect(&m_model, signal, this, unlessReloading(&CurrentView::showRead));
    connect(&m_model, &AppModel::isReloadingChanged, this, unlessReloading(&CurrentView::showRows));
    connect(&m_model, &AppModel::selectedIDsChanged, this, [this] {
        m_list->rebindVisible();
        showTickAll();
        showBar();
        closeStale();
    });
    connect(&m_model, &AppModel::rowEdited, this, unlessReloading(&CurrentView::showEdits));
    showRows();
}

CurrentView::~CurrentView()
{
    for (const Open &open : std::as_const(m_open)) {
        if (open.popover)
            open.popover->dismissQuietly();
    }
}

QString CurrentView::counted(qsizetype count, const QString &noun)
{
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : u"s"_s);
}

QString CurrentView::deleteTitle(const QList<PlannedChange> &changes)
{
    if (changes.size() == 1) {
        if (const auto *removal = changes.first().as<PlannedChange::RemoveVLAN>())
            return u"Delete "_s + removal->name + u"?"_s;
    }
    return u"Delete "_s + QString::number(changes.size()) + u" VLANs?"_s;
}

void CurrentView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    alignSaveAll();
}

void CurrentView::alignSaveAll()
{
    // "Save all…" stands under the rows' save and "More…" columns, not at the far right of a
    // window wider than the rows.
    const int rowsEnd =
        leftMargin + CurrentColumns::of(int(std::ceil(m_model.nameColumnWidth())), true).width;
    const int margin = std::max(rightMargin, width() - rowsEnd);
    const QMargins margins = m_barLayout->contentsMargins();
    if (margins.right() != margin)
        m_barLayout->setContentsMargins(margins.left(), margins.top(), margin, margins.bottom());
}

ServiceRowView *CurrentView::rowView(const QString &id) const
{
    return static_cast<ServiceRowView *>(m_list->rowWidget(id));
}

Popover *CurrentView::openConfirmation(Confirmation which) const
{
    const auto found = m_open.constFind(which);
    return found == m_open.constEnd() ? nullptr : found->popover.data();
}

QWidget *CurrentView::makeRow(QWidget *viewport)
{
    return new ServiceRowView(
        m_model, [this](const QList<PlannedChange> &changes) { applyChanges(changes); }, viewport);
}

void CurrentView::bindRow(QWidget *row, const QString &id)
{
    static_cast<ServiceRowView *>(row)->bind(m_model.rowWithID(id),
                                             int(std::ceil(m_model.nameColumnWidth())),
                                             m_model.selectedLocation());
}

QWidget *CurrentView::makeAdapterOffers()
{
    m_addAdapter = new QToolButton(this);
    m_addAdapter->setText(u"Add adapter\u2026"_s);
    m_addAdapter->setFont(Theme::font(11));
    m_addAdapter->setPopupMode(QToolButton::InstantPopup);
    m_addAdapter->setMenu(new QMenu(m_addAdapter));
    return m_addAdapter;
}

QWidget *CurrentView::makeVLANOffers()
{
    auto *offers = new QWidget(this);
    auto *layout = new QHBoxLayout(offers);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    m_orphanWarning = SmallParts::warning(QString(), offers);
    m_reparent = smallButton(offers);
    setHelp(m_reparent, u"Point every orphaned VLAN at the adapter that's actually attached"_s);
    connect(m_reparent, &QPushButton::clicked, this, &CurrentView::confirmReparent);
    m_notInLocationWarning = SmallParts::warning(QString(), offers);
    m_addAll = smallButton(offers);
    connect(m_addAll, &QPushButton::clicked, this, &CurrentView::confirmAddAll);
    m_nameSync = smallButton(offers);
    setHelp(m_nameSync, u"Append the adapter each VLAN sits on, e.g. 1010 - Control (DONGLE)"_s);
    connect(m_nameSync, &QPushButton::clicked, this, &CurrentView::confirmNameSync);
    for (QWidget *widget :
         {m_orphanWarning, static_cast<QWidget *>(m_reparent), m_notInLocationWarning,
          static_cast<QWidget *>(m_addAll), static_cast<QWidget *>(m_nameSync)})
        layout->addWidget(widget);
    return offers;
}

QWidget *CurrentView::makeActionBar()
{
    auto *bar = new QWidget(this);
    auto *layout = new QHBoxLayout(bar);
    m_barLayout = layout;
    layout->setContentsMargins(leftMargin, 8, rightMargin, 8);
    layout->setSpacing(8);
    m_selectedCount = new QLabel(bar);
    Roles::useSecondaryText(*m_selectedCount);
    m_turnOn = barButton(u"Turn on\u2026"_s, bar);
    connect(m_turnOn, &QPushButton::clicked, this, [this] { confirmEnabled(true); });
    m_turnOff = barButton(u"Turn off\u2026"_s, bar);
    connect(m_turnOff, &QPushButton::clicked, this, [this] { confirmEnabled(false); });
    m_delete = barButton(u"Delete\u2026"_s, bar);
    connect(m_delete, &QPushButton::clicked, this, &CurrentView::confirmDelete);
    m_clear = barButton(u"Clear"_s, bar);
    connect(m_clear, &QPushButton::clicked, this, [this] { m_model.setSelectedIDs({}); });
    for (QWidget *widget : {static_cast<QWidget *>(m_selectedCount),
                            static_cast<QWidget *>(m_turnOn), static_cast<QWidget *>(m_turnOff),
                            static_cast<QWidget *>(m_delete), static_cast<QWidget *>(m_clear)})
        layout->addWidget(widget);
    layout->addSpacing(8);

    // The state of the edits gives way in width: it is cut short before it pushes a button.
    m_editSymbol = new QLabel(bar);
    m_editSymbol->setPixmap(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange)
                                .pixmap(QSize(13, 13), devicePixelRatioF()));
    m_editStatus = new QLabel(bar);
    m_editStatus->setTextFormat(Qt::PlainText);
    m_editStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(m_editSymbol);
    layout->addWidget(m_editStatus, 1);

    m_revertAll = barButton(u"Revert all\u2026"_s, bar);
    setHelp(m_revertAll, u"Put every edited row back as the Mac has it"_s);
    connect(m_revertAll, &QPushButton::clicked, this, &CurrentView::confirmRevertAll);
    m_saveAll = new ProminentButton(u"Save all\u2026"_s, bar);
    m_saveAll->setFixedWidth(CurrentColumns::saveAll);
    connect(m_saveAll, &QPushButton::clicked, this, &CurrentView::confirmSaveAll);
    layout->addWidget(m_revertAll);
    layout->addWidget(m_saveAll);
    return bar;
}

void CurrentView::showRows()
{
    const int nameColumn = int(std::ceil(m_model.nameColumnWidth()));
    m_adapterIDs.clear();
    m_vlanIDs.clear();
    for (const AppModel::Row &row : m_model.rows())
        (row->source().isVLAN() ? m_vlanIDs : m_adapterIDs).append(row->source().id);

    QList<RowList::Item> items;
    items.reserve(m_adapterIDs.size() + m_vlanIDs.size() + 5);
    items.append(RowList::Item::ofHead(m_adaptersHead));
    items.append(RowList::Item::ofHead(m_adapterColumns));
    for (const QString &id : std::as_const(m_adapterIDs))
        items.append(RowList::Item::ofRow(id));
    items.append(RowList::Item::ofHead(m_vlansHead));
    items.append(RowList::Item::ofHead(m_vlanColumns));
    for (const QString &id : std::as_const(m_vlanIDs))
        items.append(RowList::Item::ofRow(id));
    if (m_vlanIDs.isEmpty())
        items.append(RowList::Item::ofHead(m_emptyNotice));

    m_adapterColumns->setNameColumn(nameColumn);
    m_vlanColumns->setNameColumn(nameColumn);
    m_list->setRowWidth(CurrentColumns::of(nameColumn, true).width);
    m_list->setItems(std::move(items));
    alignSaveAll();
    showHeads();
    showTickAll();
    showBar();
    closeStale();
}

void CurrentView::showRead()
{
    m_list->rebindVisible();
    showHeads();
    closeStale();
}

void CurrentView::showEdits()
{
    showBar();
    closeStale();
}

void CurrentView::showHeads()
{
    const QString &location = m_model.selectedLocation();
    m_adaptersHead->setCount(m_adapterIDs.size());
    m_vlansHead->setCount(m_vlanIDs.size());
    m_adaptersHead->setLoadError(m_model.loadError());
    m_vlansHead->setLoadError(m_model.loadError());

    QMenu *menu = m_addAdapter->menu();
    menu->clear();
    for (const AdapterRecord &adapter : m_model.adaptersNotInLocation()) {
        connect(menu->addAction(adapter.displayName + u" \u2014 "_s + adapter.bsdName),
                &QAction::triggered, this, [this, adapter] { confirmAddAdapter(adapter); });
    }
    const bool canAdd = !m_model.adaptersNotInLocation().isEmpty();
    m_addAdapter->setEnabled(canAdd);
    setHelp(m_addAdapter,
            canAdd ? u"Give "_s + location + u" a service for an attached adapter it doesn't have"_s
                   : u"Every attached adapter already has a service in "_s + location);

    const qsizetype orphans = orphanCount();
    SmallParts::setWarningText(*m_orphanWarning,
                               QString::number(orphans) + u" parented to absent hardware"_s);
    m_orphanWarning->setVisible(orphans > 0);
    const AdapterRecord *present = presentAdapter();
    m_reparent->setVisible(orphans > 0 && present);
    if (present)
        setTextIfDifferent(*m_reparent, u"Re-parent onto "_s + present->displayName);

    const qsizetype outside = rowsNotInLocation().size();
    SmallParts::setWarningText(*m_notInLocationWarning,
                               QString::number(outside) + (outside == 1 ? u" VLAN"_s : u" VLANs"_s)
                                   + u" not in "_s + location);
    setHelp(m_notInLocationWarning, u"These VLANs exist on the Mac but have no service in "_s
                                        + location + u", so they hold no address there"_s);
    m_notInLocationWarning->setVisible(outside > 0);
    m_addAll->setVisible(outside > 0);
    setTextIfDifferent(*m_addAll, outside == 1
                                      ? u"Add it\u2026"_s
                                      : u"Add all "_s + QString::number(outside) + u"\u2026"_s);
    setHelp(m_addAll, u"Give each of them a service in "_s + location);

    const qsizetype names = m_model.adapterNameSync().size();
    m_nameSync->setVisible(names > 0);
    setTextIfDifferent(*m_nameSync, u"Add adapter to "_s + counted(names, u"name"_s) + u"\u2026"_s);
}

void CurrentView::showTickAll()
{
    const QSet<QString> &selected = m_model.selectedIDs();
    for (ColumnHead *head : {m_adapterColumns, m_vlanColumns}) {
        const QStringList &ids = head == m_vlanColumns ? m_vlanIDs : m_adapterIDs;
        const bool all =
            !ids.isEmpty() && std::all_of(ids.cbegin(), ids.cend(), [&selected](const QString &id) {
                return selected.contains(id);
            });
        if (head->tickAll()->isChecked() != all)
            head->tickAll()->setChecked(all);
    }
}

void CurrentView::showBar()
{
    m_selectedCount->setText(QString::number(m_model.selectedRows().size()) + u" selected"_s);
    const bool canTurnOn = !m_model.setSelectedEnabledChanges(true).isEmpty();
    m_turnOn->setEnabled(canTurnOn);
    setHelp(m_turnOn, canTurnOn ? u"Turn on the ticked rows that are off"_s
                                : u"Tick one or more rows that are off to turn them on"_s);
    const bool canTurnOff = !m_model.setSelectedEnabledChanges(false).isEmpty();
    m_turnOff->setEnabled(canTurnOff);
    setHelp(m_turnOff, canTurnOff ? u"Turn off the ticked rows that are on"_s
                                  : u"Tick one or more rows that are on to turn them off"_s);
    const bool canDelete = !m_model.deleteSelectedChanges().isEmpty();
    m_delete->setEnabled(canDelete);
    setHelp(m_delete,
            canDelete ? u"Delete the ticked VLANs"_s : u"Tick one or more VLANs to delete them"_s);
    m_clear->setEnabled(!m_model.selectedIDs().isEmpty());

    const EditStatus status = m_model.editStatus();
    if (m_editStatus->text() != status.text)
        m_editStatus->setText(status.text);
    m_editSymbol->setVisible(status.warns);
    QPalette colours = m_editStatus->palette();
    colours.setColor(
        QPalette::WindowText,
        Roles::color(status.warns ? Roles::Role::orange : Roles::Role::secondaryText, palette()));
    m_editStatus->setPalette(colours);
    setHelp(m_editStatus, status.text);

    const bool edited = !m_model.dirtyRows().isEmpty();
    m_revertAll->setVisible(edited);
    const bool canSave = edited && m_model.rowProblems().isEmpty();
    m_saveAll->setEnabled(canSave);
    setHelp(m_saveAll, canSave ? u"Apply every edited row at once"_s
                               : u"Nothing to save, or a row can't be saved as typed"_s);
}

void CurrentView::closeStale()
{
    for (const Confirmation which : m_open.keys()) {
        const Open open = m_open.value(which);
        if (!open.popover) {
            closed(which);
        } else if (!open.stillHolds()) {
            closed(which);
            open.popover->dismissQuietly();
        }
    }
}

void CurrentView::open(Confirmation which, Popover *popover, std::function<bool()> stillHolds)
{
    m_open.insert(which, {popover, std::move(stillHolds)});
    popover->present();
}

void CurrentView::closed(Confirmation which)
{
    m_open.remove(which);
    if (which == Confirmation::addAdapter)
        m_addingAdapter.reset();
}

void CurrentView::applyChanges(const QList<PlannedChange> &changes)
{
    const WaitCursor busy;
    m_model.apply(changes);
}

void CurrentView::applyConfirmed(Confirmation which, const QList<PlannedChange> &changes)
{
    closed(which);
    applyChanges(changes);
}

void CurrentView::confirmChanges(Confirmation which, QWidget *anchor, const QString &title,
                                 const QString &detail, const QList<PlannedChange> &changes,
                                 const QString &confirmLabel, bool destructive,
                                 std::function<bool()> stillHolds)
{
    if (isConfirming(which))
        return;
    auto *popover = new ChangeConfirmation(
        anchor, {title, detail, changes, confirmLabel, destructive},
        [this, which, changes] { applyConfirmed(which, changes); },
        [this, which] { closed(which); });
    open(which, popover, std::move(stillHolds));
}

void CurrentView::confirmAddAdapter(const AdapterRecord &adapter)
{
    if (isConfirming(Confirmation::addAdapter))
        return;
    m_addingAdapter = adapter;
    const QString name = adapter.serviceName && !adapter.serviceName->isEmpty()
                             ? *adapter.serviceName
                             : adapter.displayName;
    confirmChanges(Confirmation::addAdapter, m_addAdapter,
                   u"Add "_s + name + u" to "_s + m_model.selectedLocation() + u"?"_s,
                   u"It gets a service there, on DHCP, at the bottom of the service order."_s,
                   {PlannedChange::AddAdapterService{adapter.bsdName, name}}, u"Add"_s, false,
                   [this, bsdName = adapter.bsdName] {
                       const QList<AdapterRecord> &missing = m_model.adaptersNotInLocation();
                       return std::any_of(missing.cbegin(), missing.cend(),
                                          [&bsdName](const AdapterRecord &each) {
                                              return each.bsdName == bsdName;
                                          });
                   });
}

void CurrentView::confirmReparent()
{
    const AdapterRecord *adapter = presentAdapter();
    if (!adapter)
        return;
    const QList<PlannedChange> changes = m_model.orphanReparentChanges(adapter->bsdName);
    confirmChanges(Confirmation::reparent, m_reparent,
                   u"Re-parent "_s + counted(changes.size(), u"VLAN"_s) + u" onto "_s
                       + adapter->displayName + u"?"_s,
                   u"Nothing has changed yet."_s, changes, u"Re-parent"_s, false,
                   [this, changes, bsdName = adapter->bsdName] {
                       return m_model.orphanReparentChanges(bsdName) == changes;
                   });
}

void CurrentView::confirmAddAll()
{
    const QList<PlannedChange> changes = m_model.addToLocationChanges();
    confirmChanges(Confirmation::addAll, m_addAll,
                   u"Add "_s + QString::number(changes.size())
                       + (changes.size() == 1 ? u" VLAN"_s : u" VLANs"_s) + u" to "_s
                       + m_model.selectedLocation() + u"?"_s,
                   u"Each gets a service there, on DHCP, at the bottom of the service order."_s,
                   changes, u"Add"_s, false,
                   [this, changes] { return m_model.addToLocationChanges() == changes; });
}

void CurrentView::confirmNameSync()
{
    const QList<PlannedChange> changes = m_model.adapterNameSync();
    confirmChanges(Confirmation::nameSync, m_nameSync, u"Add the adapter to these names?"_s,
                   u"The suffix is written into the real VLAN name, so it shows in System "
                   "Settings too. It's rewritten whenever a VLAN moves, so it can't go stale."_s,
                   changes, u"Add"_s, false,
                   [this, changes] { return m_model.adapterNameSync() == changes; });
}

std::function<bool()> CurrentView::selectionAndEditsHold() const
{
    return [this, selected = m_model.selectedIDs(), dirty = dirtyIDs()] {
        return m_model.selectedIDs() == selected && dirtyIDs() == dirty;
    };
}

void CurrentView::confirmEnabled(bool enabled)
{
    const QList<PlannedChange> changes = m_model.setSelectedEnabledChanges(enabled);
    if (changes.isEmpty())
        return;
    const QString verb = enabled ? u"Turn on"_s : u"Turn off"_s;
    confirmChanges(enabled ? Confirmation::turnOn : Confirmation::turnOff,
                   enabled ? m_turnOn : m_turnOff,
                   verb + u' ' + counted(changes.size(), u"service"_s) + u"?"_s,
                   u"Nothing has changed yet."_s, changes, verb, false, selectionAndEditsHold());
}

void CurrentView::confirmDelete()
{
    const QList<PlannedChange> changes = m_model.deleteSelectedChanges();
    if (changes.isEmpty())
        return;
    confirmChanges(Confirmation::bulkDelete, m_delete, deleteTitle(changes),
                   u"Each VLAN interface and its network service are removed. This can't be "
                   "undone, but they can be rebuilt from the same tags."_s,
                   changes, u"Delete"_s, true, selectionAndEditsHold());
}

void CurrentView::confirmRevertAll()
{
    const qsizetype rows = m_model.dirtyRows().size();
    if (rows == 0 || isConfirming(Confirmation::revertAll))
        return;
    auto *popover = new LocationConfirmation(
        m_revertAll, u"Discard the edits to "_s + counted(rows, u"row"_s) + u"?"_s,
        u"Each row goes back to what the Mac has. Nothing has been written, so nothing on the "
        "Mac changes."_s,
        u"Discard"_s, true,
        [this] {
            closed(Confirmation::revertAll);
            m_model.revertAll();
        },
        [this] { closed(Confirmation::revertAll); });
    open(Confirmation::revertAll, popover, selectionAndEditsHold());
}

void CurrentView::confirmSaveAll()
{
    const qsizetype rows = m_model.dirtyRows().size();
    if (rows == 0 || !m_model.rowProblems().isEmpty() || isConfirming(Confirmation::saveAll))
        return;
    auto *popover = new ChangeConfirmation(
        m_saveAll,
        {u"Save "_s + counted(rows, u"row"_s) + u" in "_s + m_model.selectedLocation() + u"?"_s,
         u"Nothing has changed yet. Everything below is applied together, or not at all."_s,
         m_model.allChanges(), u"Save"_s, false},
        [this] {
            closed(Confirmation::saveAll);
            // Asked again: the rows may have changed while the question stood.
            if (m_model.dirtyRows().isEmpty() || !m_model.rowProblems().isEmpty())
                return;
            applyChanges(m_model.allChanges());
        },
        [this] { closed(Confirmation::saveAll); });
    open(Confirmation::saveAll, popover, selectionAndEditsHold());
}

qsizetype CurrentView::orphanCount() const
{
    const QList<VLANRecord> &existing = m_model.existing();
    return std::count_if(existing.cbegin(), existing.cend(),
                         [](const VLANRecord &vlan) { return !vlan.live; });
}

const AdapterRecord *CurrentView::presentAdapter() const
{
    for (const AdapterRecord &adapter : m_model.adapters()) {
        if (adapter.present)
            return &adapter;
    }
    return nullptr;
}

QList<AppModel::Row> CurrentView::rowsNotInLocation() const
{
    QList<AppModel::Row> rows;
    for (const QString &id : m_vlanIDs) {
        const AppModel::Row row = m_model.rowWithID(id);
        if (row && !row->source().hasService())
            rows.append(row);
    }
    return rows;
}

QStringList CurrentView::dirtyIDs() const
{
    QStringList ids;
    for (const AppModel::Row &row : m_model.dirtyRows())
        ids.append(row->source().id);
    return ids;
}
