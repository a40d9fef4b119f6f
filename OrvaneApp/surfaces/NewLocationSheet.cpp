#include "OrvaneApp/surfaces/NewLocationSheet.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Switch.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// The gap between the form's blocks.
constexpr int blockGap = 14;

QString countPart(const LocationStart &start, const QList<LocationRecord> &locations)
{
    for (const LocationRecord &location : locations) {
        if (location.name != start.location || location.vlanServiceCount == 0)
            continue;
        return u"It has "_s + QString::number(location.vlanServiceCount)
               + (location.vlanServiceCount == 1 ? u" VLAN."_s : u" VLANs."_s);
    }
    return u"It has no VLANs in it yet."_s;
}

} // namespace

NewLocationSheet::NewLocationSheet(AppModel &model, QWidget *parent)
    : NameSheet(
        formWidth + 2 * padding, [&model] { return model.canCreateLocation(); },
        [&model] {
            const WaitCursor busy;
            model.createLocation();
        },
        [&model] { model.setCreatingLocation(false); }, parent)
    , m_model(model)
{
    setHead(u"New Location"_s,
            {u"A Location is a saved set of network settings. Keeping a show's VLANs in their "
             "own Location leaves your everyday setup untouched."_s});

    form()->addWidget(SheetParts::label(u"Name"_s, this));
    m_name = new HintField(u"Required"_s, this);
    m_name->setAccessibleName(u"Name"_s);
    connect(m_name, &QLineEdit::textEdited, this,
            [this](const QString &text) { m_model.setNewLocationName(text); });
    actOnReturn(m_name);
    form()->addWidget(m_name);
    m_issue = SheetParts::issueLine(this);
    form()->addWidget(m_issue);

    form()->addSpacing(blockGap - 5);
    form()->addWidget(SheetParts::label(u"Starts as"_s, this));
    m_start = new QComboBox(this);
    m_start->setAccessibleName(u"Starts as"_s);
    connect(m_start, &QComboBox::activated, this, [this](int index) {
        const QString copied = m_start->itemData(index).toString();
        m_model.setNewLocationStart(copied.isEmpty() ? LocationStart::adaptersOnly()
                                                     : LocationStart::copy(copied));
    });
    form()->addWidget(m_start);
    QStringList details{detail(LocationStart::adaptersOnly(), m_model.locations())};
    for (const LocationRecord &location : m_model.locations())
        details.append(detail(LocationStart::copy(location.name), m_model.locations()));
    m_startNote = SheetParts::steadyNote(details, formWidth, this);
    form()->addWidget(m_startNote);

    form()->addSpacing(blockGap - 5);
    auto *switchLine = new QHBoxLayout;
    switchLine->setSpacing(8);
    m_switch = new Switch(this);
    m_switch->setAccessibleName(u"Switch to it now"_s);
    setHelp(m_switch, u"Make the new Location the one this Mac uses, as soon as it is made"_s);
    connect(m_switch, &Switch::clicked, this,
            [this](bool on) { m_model.setSwitchToNewLocation(on); });
    switchLine->addWidget(m_switch);
    switchLine->addWidget(SheetParts::label(u"Switch to it now"_s, this));
    switchLine->addStretch(1);
    form()->addLayout(switchLine);
    m_switchNote = SheetParts::steadyNote(
        {m_model.newLocationSwitchNote(false), m_model.newLocationSwitchNote(true)}, formWidth,
        this);
    form()->addWidget(m_switchNote);

    setButtons(u"Create"_s);
    for (const auto signal : {&AppModel::newLocationNameChanged, &AppModel::newLocationStartChanged,
                              &AppModel::switchToNewLocationChanged,
                              &AppModel::newLocationErrorChanged, &AppModel::locationsChanged})
        connect(&m_model, signal, this, &NewLocationSheet::showModel);
    showModel();
}

QString NewLocationSheet::detail(const LocationStart &start, const QList<LocationRecord> &locations)
{
    if (start.kind == LocationStart::Kind::adaptersOnly)
        return u"A service for each attached adapter, on DHCP, and no VLANs. The VLANs on this Mac "
               "can be added to it afterwards, and new ones built into it."_s;
    return u"Every adapter and VLAN in "_s + start.location
           + u" comes across with its address, DNS, IPv6, on or off, and its place in the order. "_s
           + countPart(start, locations) + u" A VPN is not copied: its own app adds it."_s;
}

void NewLocationSheet::showModel()
{
    m_name->setTextIfDifferent(m_model.newLocationName());
    SheetParts::setIssue(*m_issue, m_model.newLocationError() ? m_model.newLocationError()
                                                              : m_model.newLocationIssue());

    // The starts: a copy of each Location, a divider, then the adapters only.
    QStringList entries;
    for (const LocationRecord &location : m_model.locations())
        entries.append(u"A copy of "_s + location.name);
    entries.append(u"Adapters only"_s);
    QStringList shown;
    for (int index = 0; index < m_start->count(); ++index) {
        if (!m_start->itemText(index).isEmpty())
            shown.append(m_start->itemText(index));
    }
    if (shown != entries) {
        const QSignalBlocker quiet(m_start);
        m_start->clear();
        for (const LocationRecord &location : m_model.locations())
            m_start->addItem(u"A copy of "_s + location.name, location.name);
        m_start->insertSeparator(m_start->count());
        m_start->addItem(u"Adapters only"_s, QString());
    }
    const LocationStart &start = m_model.newLocationStart();
    const int chosen = m_start->findData(
        start.kind == LocationStart::Kind::adaptersOnly ? QString() : start.location);
    if (m_start->currentIndex() != chosen) {
        const QSignalBlocker quiet(m_start);
        m_start->setCurrentIndex(chosen);
    }
    m_startNote->setText(detail(start, m_model.locations()));

    if (m_switch->isChecked() != m_model.switchToNewLocation())
        m_switch->setChecked(m_model.switchToNewLocation());
    m_switchNote->setText(m_model.newLocationSwitchNote(m_model.switchToNewLocation()));
    showAllowed();
}
