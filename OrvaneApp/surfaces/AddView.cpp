#include "OrvaneApp/surfaces/AddView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/AddColumns.h"
#include "OrvaneApp/surfaces/AddressPlanField.h"
#include "OrvaneApp/surfaces/DraftRowView.h"
#include "OrvaneApp/surfaces/ExistingVLANRowView.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/ProminentButton.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/RowList.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// The tag whose address the plan's pill shows as an example.
constexpr qint64 exampleTag = 1012;

/// A column label over a control: the small label style, at the control's place.
QWidget *labelled(const QString &label, QWidget *control, QWidget *parent)
{
    auto *group = new QWidget(parent);
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(SmallParts::columnLabel(label, group));
    layout->addWidget(control);
    return group;
}

void setColour(QLabel &label, Roles::Role role)
{
    QPalette colours = label.palette();
    const QColor colour = Roles::color(role, colours);
    if (colours.color(QPalette::WindowText) != colour) {
        colours.setColor(QPalette::WindowText, colour);
        label.setPalette(colours);
    }
}

} // namespace

AddView::AddView(AppModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setFont(Theme::font(12));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeTargetLine());
    layout->addWidget(ConfirmParts::divider(this));

    m_listHead = makeListHead();
    m_columnHead = makeColumnHead();
    m_existingHead = makeExistingHead();
    for (QWidget *head : {m_listHead, m_columnHead, m_existingHead})
        head->hide();
    m_list = new RowList(
        DraftRowView::rowHeight,
        [this](QWidget *viewport, int kind) { return makeRow(viewport, kind); },
        [this](QWidget *row, const QString &id) { bindRow(row, id); },
        [](QWidget *row) {
            if (auto *draft = qobject_cast<DraftRowView *>(row))
                return draft->focusOrder();
            return QList<QWidget *>();
        },
        this);
    m_list->setSideMargins(leftMargin, rightMargin);
    connect(m_list, &RowList::rowReleased, this, [](QWidget *row) {
        if (auto *draft = qobject_cast<DraftRowView *>(row))
            draft->release();
    });
    layout->addWidget(m_list, 1);
    layout->addWidget(ConfirmParts::divider(this));
    layout->addWidget(makeFooter());

    // Return builds from anywhere in the tab, while the rows can be built.
    m_returnBuilds = new QShortcut(QKeySequence(Qt::Key_Return), this);
    m_returnBuilds->setContext(Qt::WidgetWithChildrenShortcut);
    connect(m_returnBuilds, &QShortcut::activated, m_build, &QPushButton::click);

    const auto unlessReloading = [this](void (AddView::*refresh)()) {
        return [this, refresh] {
            if (!m_model.isReloading())
                (this->*refresh)();
        };
    };
    for (const auto signal : {&AppModel::draftsChanged, &AppModel::draftEdited,
                              &AppModel::addressPlanChanged, &AppModel::nameColumnWidthChanged})
        connect(&m_model, signal, this, &AddView::showRows);
    for (const auto signal :
         {&AppModel::existingChanged, &AppModel::rowsChanged, &AppModel::isReloadingChanged,
          &AppModel::selectedLocationChanged, &AppModel::loadErrorChanged})
        connect(&m_model, signal, this, unlessReloading(&AddView::showRows));
    for (const auto signal : {&AppModel::adaptersChanged, &AppModel::selectedAdapterChanged})
        connect(&m_model, signal, this, unlessReloading(&AddView::showTarget));
    connect(&m_model, &AppModel::addressPlanChanged, this, &AddView::showPlan);
    showTarget();
    showPlan();
    showRows();
}

QString AddView::idOf(const Draft &draft)
{
    return u"draft:"_s + draft.id().toString(QUuid::WithoutBraces);
}

QWidget *AddView::rowView(const QString &id) const
{
    return m_list->rowWidget(id);
}

QWidget *AddView::makeTargetLine()
{
    auto *line = new QWidget(this);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(leftMargin, 10, rightMargin, 10);
    layout->setSpacing(16);

    auto *buildOn = new QWidget(line);
    auto *buildOnLayout = new QHBoxLayout(buildOn);
    buildOnLayout->setContentsMargins(0, 0, 0, 0);
    buildOnLayout->setSpacing(8);
    m_adapter = new QComboBox(buildOn);
    m_adapter->setAccessibleName(u"Build on"_s);
    m_adapter->setMinimumWidth(220);
    connect(m_adapter, &QComboBox::activated, this, [this](int index) {
        const QString bsdName = m_adapter->itemData(index).toString();
        if (!bsdName.isEmpty())
            m_model.setSelectedAdapter(bsdName);
    });
    m_nameButton = new QPushButton(buildOn);
    m_nameButton->setFlat(true);
    m_nameButton->setAutoDefault(false);
    m_nameButton->setFont(Theme::font(10));
    connect(m_nameButton, &QPushButton::clicked, this, [this] { m_model.beginRenamingAdapter(); });
    buildOnLayout->addWidget(m_adapter);
    buildOnLayout->addWidget(m_nameButton);
    layout->addWidget(labelled(u"Build on"_s, buildOn, line));

    m_plan = new AddressPlanField(line);
    setHelp(m_plan, u"Leave the third octet empty to derive it from the VLAN tag (1010 \u2192 10). "
                    "Type a number to pin the subnet. The last octet is this machine."_s);
    connect(m_plan, &AddressPlanField::edited, this, [this](const std::array<QString, 4> &octets) {
        AddressPlan plan = m_model.addressPlan();
        plan.octet1 = octets[0];
        plan.octet2 = octets[1];
        plan.octet3 = octets[2];
        plan.host = octets[3];
        m_model.setAddressPlan(plan);
    });
    layout->addWidget(labelled(u"Address plan"_s, m_plan, line));
    layout->addStretch(1);
    return line;
}

QWidget *AddView::makeListHead()
{
    auto *head = new QWidget(this);
    head->setFixedHeight(70);
    auto *column = new QVBoxLayout(head);
    column->setContentsMargins(0, 12, 0, 6);
    column->setSpacing(6);
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    auto *title = new QLabel(u"VLANs to build"_s, head);
    title->setFont(Theme::font(15));
    m_pill = new Pill(QString(), 11, head);
    m_loadError = SmallParts::warning(QString(), head);
    m_loadError->hide();
    line->addWidget(title);
    line->addWidget(m_pill);
    line->addSpacing(8);
    line->addWidget(m_loadError, 1);
    line->addStretch(1);
    column->addLayout(line);
    m_addRow = new QPushButton(Symbols::icon(u"plus.circle.fill"_s, Roles::Role::accent),
                               u"Add VLAN"_s, head);
    m_addRow->setFlat(true);
    m_addRow->setAutoDefault(false);
    connect(m_addRow, &QPushButton::clicked, this, &AddView::addRow);
    column->addWidget(m_addRow, 0, Qt::AlignLeft);
    return head;
}

QWidget *AddView::makeColumnHead()
{
    auto *head = new QWidget(this);
    head->setFixedHeight(22);
    for (const QString &word :
         {u"Tag"_s, u"Name"_s, u"IPv4"_s, u"Address"_s, u"Subnet mask"_s, u"Router"_s, u"DNS"_s})
        m_columnLabels.append(SmallParts::headLabel(word, head));
    return head;
}

QWidget *AddView::makeExistingHead()
{
    auto *head = new QWidget(this);
    head->setFixedHeight(40);
    auto *line = new QHBoxLayout(head);
    line->setContentsMargins(0, 14, 0, 4);
    line->setSpacing(8);
    auto *title = new QLabel(u"Already on this Mac"_s, head);
    title->setFont(Theme::font(13));
    m_existingPill = new Pill(QString(), 11, head);
    line->addWidget(title);
    line->addWidget(m_existingPill);
    line->addStretch(1);
    setHelp(head, u"The VLANs this Mac has now. They are changed on the Current tab."_s);
    return head;
}

QWidget *AddView::makeFooter()
{
    auto *footer = new QWidget(this);
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(leftMargin, 10, 12, 10);
    layout->setSpacing(6);
    m_statusSymbol = new QLabel(footer);
    m_statusSymbol->setPixmap(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange)
                                  .pixmap(QSize(13, 13), devicePixelRatioF()));
    m_status = new QLabel(footer);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_build = new ProminentButton(u"Build VLANs\u2026"_s, footer);
    connect(m_build, &QPushButton::clicked, this, [this] {
        if (!m_model.canBuild())
            return;
        const WaitCursor busy;
        m_model.preparePlan();
    });
    layout->addWidget(m_statusSymbol);
    layout->addWidget(m_status, 1);
    layout->addWidget(m_build);
    return footer;
}

QWidget *AddView::makeRow(QWidget *viewport, int kind)
{
    if (kind == existingRow)
        return new ExistingVLANRowView(viewport);
    return new DraftRowView(m_model, viewport);
}

void AddView::bindRow(QWidget *row, const QString &id)
{
    const int nameColumn = int(std::ceil(m_model.nameColumnWidth()));
    if (auto *draftView = qobject_cast<DraftRowView *>(row)) {
        const AppModel::DraftRow draft = m_drafts.value(id);
        if (!draft)
            return;
        const bool canRemove = m_canRemoveBlank || !draft->isBlank();
        const auto issue = m_issues.constFind(draft->id());
        draftView->bind(draft, nameColumn,
                        issue == m_issues.constEnd() ? std::nullopt : std::optional(*issue),
                        canRemove);
    } else if (auto *existing = qobject_cast<ExistingVLANRowView *>(row)) {
        existing->bind(m_existing.value(id), m_model.selectedLocation(), nameColumn);
    }
}

void AddView::showRows()
{
    const int nameColumn = int(std::ceil(m_model.nameColumnWidth()));
    const AddColumns columns = AddColumns::of(nameColumn);
    const std::pair<int, int> places[] = {
        {columns.tagX, AddColumns::tag},    {columns.nameX, columns.nameWidth},
        {columns.modeX, AddColumns::mode},  {columns.addressX, AddColumns::field},
        {columns.maskX, AddColumns::field}, {columns.routerX, AddColumns::field},
        {columns.dnsX, AddColumns::dns}};
    for (qsizetype index = 0; index < m_columnLabels.size(); ++index)
        m_columnLabels.at(index)->setGeometry(places[index].first, 4, places[index].second, 16);

    // The issues of every row, from one call.
    m_issues = m_model.issues();
    m_drafts.clear();
    m_existing.clear();
    const QList<AppModel::DraftRow> &drafts = m_model.drafts();
    m_canRemoveBlank = drafts.size() > 1;
    QList<RowList::Item> items;
    items.reserve(drafts.size() + m_model.existing().size() + 3);
    items.append(RowList::Item::ofHead(m_listHead));
    items.append(RowList::Item::ofHead(m_columnHead));
    for (const AppModel::DraftRow &draft : drafts) {
        const QString id = idOf(*draft);
        m_drafts.insert(id, draft);
        const bool hasIssue = m_issues.contains(draft->id());
        items.append(RowList::Item::ofRow(
            id, draftRow, DraftRowView::rowHeight + (hasIssue ? DraftRowView::issueHeight : 0)));
    }
    const QList<ExistingVLAN> existing = m_model.existingVLANs();
    if (!existing.isEmpty()) {
        items.append(RowList::Item::ofHead(m_existingHead));
        for (const ExistingVLAN &vlan : existing) {
            const QString id = u"existing:"_s + vlan.id;
            m_existing.insert(id, vlan);
            items.append(RowList::Item::ofRow(id, existingRow, ExistingVLANRowView::rowHeight));
        }
    }
    m_existingPill->setText(QString::number(existing.size()));
    SmallParts::setWarningText(*m_loadError, m_model.loadError().value_or(QString()));
    m_loadError->setVisible(m_model.loadError().has_value());
    m_list->setRowWidth(columns.width);
    m_list->setItems(std::move(items));
    showFooter();
}

void AddView::showTarget()
{
    const QList<AdapterChoice> choices = m_model.buildAdapterChoices();
    QList<std::pair<QString, QString>> entries;
    for (const AdapterChoice &choice : choices)
        entries.append({choice.label, choice.bsdName});
    if (entries.isEmpty())
        entries.append({u"No VLAN-capable adapter attached"_s, QString()});
    bool same = m_adapter->count() == entries.size();
    for (int index = 0; same && index < m_adapter->count(); ++index)
        same = m_adapter->itemText(index) == entries.at(index).first
               && m_adapter->itemData(index).toString() == entries.at(index).second;
    if (!same) {
        const QSignalBlocker quiet(m_adapter);
        m_adapter->clear();
        for (const auto &[label, bsdName] : entries)
            m_adapter->addItem(label, bsdName);
    }
    const int chosen = std::max(0, m_adapter->findData(m_model.selectedAdapter()));
    if (m_adapter->currentIndex() != chosen) {
        const QSignalBlocker quiet(m_adapter);
        m_adapter->setCurrentIndex(chosen);
    }

    const std::optional<QString> hint = m_model.selectedAdapterNameHint();
    bool listed = false;
    for (const AdapterRecord &adapter : m_model.adapters())
        listed = listed || adapter.bsdName == m_model.selectedAdapter();
    if (m_model.selectedAdapterNeedsName() && hint) {
        m_nameButton->setText(*hint);
        m_nameButton->setIcon(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange));
        QPalette orange = m_nameButton->palette();
        orange.setColor(QPalette::ButtonText, Roles::color(Roles::Role::orange, orange));
        m_nameButton->setPalette(orange);
        setHelp(m_nameButton, u"A short name reads better in VLAN names and in System Settings"_s);
        m_nameButton->show();
    } else if (listed) {
        m_nameButton->setText(u"Rename\u2026"_s);
        m_nameButton->setIcon(QIcon());
        QPalette grey = m_nameButton->palette();
        grey.setColor(QPalette::ButtonText, Roles::color(Roles::Role::secondaryText, grey));
        m_nameButton->setPalette(grey);
        setHelp(m_nameButton, QString());
        m_nameButton->show();
    } else {
        m_nameButton->hide();
    }
    showFooter();
}

std::pair<QString, bool> AddView::planPill(const AddressPlan &plan)
{
    if (plan.isUsable())
        return {QString::number(exampleTag) + u" \u2192 "_s + plan.exampleForTag(exampleTag),
                false};
    if (!trimSpacesAndTabs(plan.host).isEmpty())
        return {u"Address plan isn't valid \u2014 check the prefix"_s, true};
    return {u"Set a host octet to auto-fill Manual rows"_s, false};
}

void AddView::showPlan()
{
    const AddressPlan &plan = m_model.addressPlan();
    m_plan->showPlan({plan.octet1, plan.octet2, plan.octet3, plan.host}, plan.isUsable());
    const auto [text, warns] = planPill(plan);
    m_pill->setText(text);
    setColour(*m_pill, warns ? Roles::Role::orange : Roles::Role::secondaryText);
    setHelp(m_pill, plan.isUsable() ? u"What a Manual row will fill in, derived from the tag"_s
                                    : QString());
}

std::pair<QString, bool> AddView::status(const AppModel &model, qsizetype rowsWithIssues)
{
    if (rowsWithIssues > 0)
        return {QString::number(rowsWithIssues)
                    + (rowsWithIssues == 1 ? u" row needs"_s : u" rows need"_s) + u" attention"_s,
                true};
    const qsizetype buildable = model.buildableDrafts().size();
    if (buildable == 0)
        return {u"Add a VLAN to get started"_s, false};
    if (const std::optional<QString> problem = model.buildAdapterProblem())
        return {*problem + u" to build "_s
                    + (buildable == 1 ? u"this VLAN"_s
                                      : u"these "_s + QString::number(buildable) + u" VLANs"_s),
                true};
    QString adapter = model.selectedAdapter();
    for (const AdapterRecord &record : model.adapters()) {
        if (record.bsdName == model.selectedAdapter())
            adapter = record.friendlyName();
    }
    return {QString::number(buildable) + (buildable == 1 ? u" VLAN"_s : u" VLANs"_s)
                + u" ready to build on "_s + adapter + u", into "_s + model.selectedLocation(),
            false};
}

void AddView::showFooter()
{
    const auto [text, warns] = status(m_model, m_issues.size());
    if (m_status->text() != text)
        m_status->setText(text);
    m_statusSymbol->setVisible(warns);
    setColour(*m_status, warns ? Roles::Role::orange : Roles::Role::secondaryText);
    const bool canBuild = m_model.canBuild();
    m_build->setEnabled(canBuild);
    m_returnBuilds->setEnabled(canBuild);
}

void AddView::addRow()
{
    m_model.addRow();
    const AppModel::DraftRow added = m_model.drafts().last();
    const QString id = idOf(*added);
    m_list->scrollToItem(m_list->indexOfRow(id));
    if (auto *row = qobject_cast<DraftRowView *>(m_list->rowWidget(id)))
        row->nameField()->setFocus(Qt::OtherFocusReason);
}
