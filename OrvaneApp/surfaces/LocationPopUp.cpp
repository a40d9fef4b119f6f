#include "OrvaneApp/surfaces/LocationPopUp.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

using namespace Qt::StringLiterals;

namespace {

/// Where an entry keeps its Location's name; the foot entry has none.
constexpr int nameRole = Qt::UserRole + 1;

} // namespace

LocationPopUp::LocationPopUp(std::function<void(const QString &)> choose,
                             std::function<void()> newLocation, QWidget *parent)
    : QComboBox(parent)
    , m_choose(std::move(choose))
    , m_newLocation(std::move(newLocation))
{
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setToolTip(u"The Location this Mac is using. Choosing another switches the Mac to it."_s);
    setAccessibleDescription(toolTip());
    connect(this, &QComboBox::activated, this, &LocationPopUp::chosen);
}

QList<LocationPopUp::Entry>
LocationPopUp::entriesOf(const QList<VLANKit::LocationRecord> &locations)
{
    QList<Entry> entries;
    entries.reserve(locations.size());
    for (const VLANKit::LocationRecord &location : locations) {
        entries.append({location.name,
                        location.isCurrent ? location.name + u" \u00b7 active"_s : location.name,
                        location.isCurrent});
    }
    return entries;
}

void LocationPopUp::update(const QList<VLANKit::LocationRecord> &locations, const QString &active)
{
    m_active = active;
    const QList<Entry> entries = entriesOf(locations);
    if (entries != m_shown) {
        const QSignalBlocker quiet(this);
        clear();
        const QColor green = Roles::color(Roles::Role::green, palette());
        for (const Entry &entry : entries) {
            addItem(entry.title, entry.name);
            setItemData(count() - 1, entry.name, nameRole);
            if (entry.isActive) {
                setItemData(count() - 1, green, Qt::ForegroundRole);
                setItemData(count() - 1, Theme::font(13), Qt::FontRole);
            }
        }
        insertSeparator(count());
        addItem(u"New Location\u2026"_s);
        m_shown = entries;
        updateGeometry();
    }
    selectActive();
}

void LocationPopUp::selectActive()
{
    int wanted = -1;
    for (int index = 0; index < m_shown.size(); ++index) {
        if (m_shown.at(index).name == m_active) {
            wanted = index;
            break;
        }
    }
    if (currentIndex() != wanted) {
        const QSignalBlocker quiet(this);
        setCurrentIndex(wanted);
    }
    colourTheClosedControl();
}

void LocationPopUp::colourTheClosedControl()
{
    // The closed control shows the active mark in green too.
    const bool showsActive = currentIndex() >= 0 && currentIndex() < m_shown.size()
                             && m_shown.at(currentIndex()).isActive;
    QPalette colours = palette();
    const QColor text = showsActive ? Roles::color(Roles::Role::green, colours)
                                    : QPalette().color(QPalette::ButtonText);
    colours.setColor(QPalette::ButtonText, text);
    colours.setColor(QPalette::Text, text);
    setPalette(colours);
}

void LocationPopUp::chosen(int index)
{
    const QVariant name = itemData(index, nameRole);
    // What is true stays on show until the switch is confirmed.
    selectActive();
    if (!name.isValid()) {
        if (m_newLocation)
            m_newLocation();
        return;
    }
    if (name.toString() != m_active && m_choose)
        m_choose(name.toString());
}
