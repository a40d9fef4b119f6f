#pragma once

#include "VLANKit/values/LocationRecord.h"

#include <QComboBox>
#include <QList>

#include <functional>

/// The Location pop-up of the bar: one entry a Location in the system's order, the one in use
/// marked " · active" in green, a separator and "New Location…". Choosing never changes what it
/// shows by itself: it goes back to `active` at once and asks, so that it shows what is true
/// until a switch is confirmed.
class LocationPopUp : public QComboBox
{
    Q_OBJECT

public:
    struct Entry
    {
        QString name;
        QString title;
        bool isActive = false;
        friend bool operator==(const Entry &, const Entry &) = default;
    };

    LocationPopUp(std::function<void(const QString &)> choose, std::function<void()> newLocation,
                  QWidget *parent = nullptr);

    /// Puts the Locations on the control, rebuilding its items only when the entries differ,
    /// and selects the one named `active` (none when there is no such entry).
    void update(const QList<VLANKit::LocationRecord> &locations, const QString &active);

    [[nodiscard]] static QList<Entry> entriesOf(const QList<VLANKit::LocationRecord> &locations);
    [[nodiscard]] const QString &active() const { return m_active; }

private:
    void chosen(int index);
    void selectActive();
    void colourTheClosedControl();

    std::function<void(const QString &)> m_choose;
    std::function<void()> m_newLocation;
    QList<Entry> m_shown;
    QString m_active;
};
