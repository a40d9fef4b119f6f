#include "OrvaneApp/model/ServiceEdit.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/project/AddressPlan.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace VLANKit;

ServiceEdit::Edited ServiceEdit::Edited::from(const RowSource &source)
{
    Edited edited;
    edited.name = source.name;
    edited.parent = source.parent;
    edited.mode = source.ip.mode;
    edited.address = source.ip.address.value_or(QString());
    edited.subnetMask = source.ip.subnetMask.value_or(QString());
    edited.router = source.ip.router.value_or(QString());
    edited.ipv6 = source.ipv6;
    edited.dnsServers = source.ip.dns.join(u", "_s);
    edited.searchDomains = source.searchDomains.join(u", "_s);
    edited.enabled = source.enabled;
    edited.mtu = source.hardware.mtu ? QString::number(*source.hardware.mtu) : QString();
    edited.speed = source.hardware.speed.value_or(QString());
    edited.duplex = source.hardware.duplex;
    return edited;
}

ServiceEdit::ServiceEdit(RowSource source)
    : m_source(std::move(source))
    , m_edited(Edited::from(m_source))
{}

void ServiceEdit::setSource(RowSource source)
{
    update(m_source, source);
}

void ServiceEdit::setName(const QString &name)
{
    update(m_edited.name, name);
}

void ServiceEdit::setParent(const QString &parent)
{
    update(m_edited.parent, parent);
}

void ServiceEdit::setMode(IPMode mode)
{
    update(m_edited.mode, mode);
}

void ServiceEdit::setAddress(const QString &address)
{
    update(m_edited.address, address);
}

void ServiceEdit::setSubnetMask(const QString &subnetMask)
{
    update(m_edited.subnetMask, subnetMask);
}

void ServiceEdit::setRouter(const QString &router)
{
    update(m_edited.router, router);
}

void ServiceEdit::setIPv6(IPv6Mode ipv6)
{
    update(m_edited.ipv6, ipv6);
}

void ServiceEdit::setDNSServers(const QString &dnsServers)
{
    update(m_edited.dnsServers, dnsServers);
}

void ServiceEdit::setSearchDomains(const QString &searchDomains)
{
    update(m_edited.searchDomains, searchDomains);
}

void ServiceEdit::setEnabled(bool enabled)
{
    update(m_edited.enabled, enabled);
}

void ServiceEdit::setMTU(const QString &mtu)
{
    update(m_edited.mtu, mtu);
}

void ServiceEdit::setSpeed(const QString &speed)
{
    update(m_edited.speed, speed);
}

void ServiceEdit::setDuplex(const QStringList &duplex)
{
    update(m_edited.duplex, duplex);
}

void ServiceEdit::setOffers(const std::optional<HardwareCapabilities> &offers)
{
    update(m_offers, offers);
}

void ServiceEdit::setParentFrameRanges(const QHash<QString, ClosedRange> &ranges)
{
    update(m_parentFrameRanges, ranges);
}

void ServiceEdit::setHolds(const std::optional<LiveState::Address> &holds)
{
    update(m_holds, holds);
}

QString ServiceEdit::trimmedName() const
{
    return trimWhitespaceAndNewlines(m_edited.name);
}

bool ServiceEdit::nameChanged() const
{
    const QString trimmed = trimmedName();
    return m_edited.name != m_source.name && !canonicallyEqual(trimmed, m_source.name)
           && !trimmed.isEmpty();
}

bool ServiceEdit::nameEmptied() const
{
    return m_edited.name != m_source.name && trimmedName().isEmpty();
}

bool ServiceEdit::parentChanged() const
{
    return m_source.isVLAN() && m_edited.parent != m_source.parent;
}

bool ServiceEdit::ipv6Changed() const
{
    return m_source.hasService() && m_edited.ipv6 != m_source.ipv6;
}

bool ServiceEdit::dnsChanged() const
{
    return m_source.hasService()
           && (list(m_edited.dnsServers) != m_source.ip.dns
               || list(m_edited.searchDomains) != m_source.searchDomains);
}

bool ServiceEdit::enabledChanged() const
{
    return m_source.hasService() && m_edited.enabled != m_source.enabled;
}

bool ServiceEdit::isDirty() const
{
    ++s_derivations;
    if (nameChanged() || nameEmptied() || parentChanged())
        return true;
    if (!m_source.hasService())
        return false;
    return ipConfig() != originalIP() || ipv6Changed() || dnsChanged() || enabledChanged()
           || hardware() != m_source.hardware || mtuIsNotANumber();
}

bool ServiceEdit::isTouched() const
{
    return m_edited != Edited::from(m_source);
}

bool ServiceEdit::mtuIsNotANumber() const
{
    const QString mtu = trimSpacesAndTabs(m_edited.mtu);
    return !mtu.isEmpty() && !parseInteger(mtu);
}

bool ServiceEdit::hasMoreSettings() const
{
    const HardwareSettings settings = hardware();
    return !list(m_edited.dnsServers).isEmpty() || !list(m_edited.searchDomains).isEmpty()
           || settings.mtu || settings.speed;
}

IPConfig ServiceEdit::ipConfigOf(const Edited &edited)
{
    if (edited.mode == IPMode::manual)
        return IPFields::manual(edited.address, edited.subnetMask, edited.router);
    IPConfig ip;
    ip.mode = edited.mode;
    return ip;
}

IPConfig ServiceEdit::ipConfig() const
{
    return ipConfigOf(m_edited);
}

IPConfig ServiceEdit::originalIP() const
{
    return ipConfigOf(Edited::from(m_source));
}

HardwareSettings ServiceEdit::hardware() const
{
    HardwareSettings settings;
    const QString mtu = trimSpacesAndTabs(m_edited.mtu);
    if (!mtu.isEmpty())
        settings.mtu = parseInteger(mtu) ? parseInteger(mtu) : m_source.hardware.mtu;
    if (!m_edited.speed.isEmpty())
        settings.speed = m_edited.speed;
    settings.duplex = m_edited.duplex;
    return settings;
}

QList<PlannedChange> ServiceEdit::changes() const
{
    ++s_derivations;
    QList<PlannedChange> changes;
    const bool isVLAN = m_source.isVLAN();
    const qint64 tag = m_source.tag.value_or(0);
    const QString &name = m_source.name;
    if (nameChanged()) {
        if (isVLAN)
            changes.append(PlannedChange::Rename{tag, m_source.device, name, trimmedName()});
        else
            changes.append(PlannedChange::RenameAdapter{m_source.device, name, trimmedName()});
    }
    if (parentChanged() && m_source.vlan)
        changes.append(PlannedChange::Reparent{*m_source.vlan, m_source.parent, m_edited.parent});
    if (!m_source.hasService())
        return changes;
    const QString &serviceID = *m_source.serviceID;
    if (ipConfig() != originalIP()) {
        if (isVLAN)
            changes.append(
                PlannedChange::Retag{tag, m_source.device, name, originalIP(), ipConfig()});
        else
            changes.append(PlannedChange::SetServiceIP{serviceID, name, originalIP(), ipConfig()});
    }
    if (ipv6Changed())
        changes.append(PlannedChange::SetIPv6{serviceID, name, m_source.ipv6, m_edited.ipv6});
    if (dnsChanged())
        changes.append(PlannedChange::SetDNS{serviceID, name, list(m_edited.dnsServers),
                                             list(m_edited.searchDomains)});
    if (hardware() != m_source.hardware)
        changes.append(PlannedChange::SetHardware{serviceID, name, m_source.hardware, hardware()});
    if (enabledChanged()) {
        if (isVLAN)
            changes.append(PlannedChange::SetEnabled{tag, m_source.device, name, m_edited.enabled});
        else
            changes.append(PlannedChange::SetServiceEnabled{serviceID, name, m_edited.enabled});
    }
    return changes;
}

std::optional<PlannedChange> ServiceEdit::removeFromLocationChange() const
{
    if (m_source.isVLAN() || !m_source.hasService())
        return std::nullopt;
    return PlannedChange::RemoveService{*m_source.serviceID, m_source.name};
}

std::shared_ptr<ServiceEdit> ServiceEdit::reverted() const
{
    auto row = std::make_shared<ServiceEdit>(m_source);
    row->m_offers = m_offers;
    row->m_holds = m_holds;
    row->m_parentFrameRanges = m_parentFrameRanges;
    return row;
}

void ServiceEdit::applyPlan(const AddressPlan &plan)
{
    if (m_edited.mode != IPMode::manual)
        return;
    if (m_edited.subnetMask.isEmpty())
        setSubnetMask(IPFields::planMask(plan));
    if (m_edited.address.isEmpty()) {
        if (const std::optional<QString> address = plan.addressForTag(m_source.tag))
            setAddress(*address);
    }
}

void ServiceEdit::modeChanged(IPMode from, const AddressPlan &plan)
{
    const bool leavingManual = from == IPMode::manual && m_edited.mode != IPMode::manual;
    const bool comingToManual = from != IPMode::manual && m_edited.mode == IPMode::manual;
    if (leavingManual) {
        // Empty fields keep the last stash: nothing typed is lost by a second switch.
        const IPFields typed{m_edited.address, m_edited.subnetMask, m_edited.router, QString()};
        if (typed != IPFields{}) {
            update(m_stash, std::optional<IPFields>(typed));
            setAddress(QString());
            setSubnetMask(QString());
            setRouter(QString());
        }
    } else if (comingToManual) {
        if (m_stash) {
            const IPFields kept = *m_stash;
            update(m_stash, std::optional<IPFields>());
            setAddress(kept.address);
            setSubnetMask(kept.subnetMask);
            setRouter(kept.router);
        }
        applyPlan(plan);
    }
}

void ServiceEdit::speedChanged()
{
    if (m_edited.speed.isEmpty()) {
        setDuplex({});
        return;
    }
    QList<QStringList> offered;
    if (m_offers) {
        for (const HardwareCapabilities::Speed &speed : m_offers->speeds) {
            if (speed.name == m_edited.speed) {
                offered = speed.duplexes;
                break;
            }
        }
    }
    if (offered.contains(m_edited.duplex))
        return;
    setDuplex(offered.isEmpty() ? QStringList() : offered.first());
}

QList<std::shared_ptr<ServiceEdit>>
ServiceEdit::reseeded(const QList<std::shared_ptr<ServiceEdit>> &old,
                      const QList<RowSource> &sources)
{
    QHash<QString, std::shared_ptr<ServiceEdit>> touched;
    for (const auto &row : old) {
        if (row->isTouched())
            touched.insert(row->source().id, row);
    }
    QList<std::shared_ptr<ServiceEdit>> rows;
    rows.reserve(sources.size());
    for (const RowSource &source : sources) {
        const auto kept = touched.constFind(source.id);
        if (kept != touched.constEnd() && (*kept)->source().sameSettings(source)) {
            (*kept)->setSource(source);
            rows.append(*kept);
        } else {
            rows.append(std::make_shared<ServiceEdit>(source));
        }
    }
    return rows;
}

QStringList ServiceEdit::list(const QString &text)
{
    static const QRegularExpression separators(u"[, \n\t]"_s);
    return text.split(separators, Qt::SkipEmptyParts);
}
