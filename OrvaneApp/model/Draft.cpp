#include "OrvaneApp/model/Draft.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/project/AddressPlan.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace VLANKit;

Draft::Draft(QString tag, QString name)
    : m_tag(std::move(tag))
    , m_name(std::move(name))
{}

void Draft::setTag(const QString &tag)
{
    update(m_tag, tag);
}

void Draft::setName(const QString &name)
{
    update(m_name, name);
}

void Draft::setMode(IPMode mode)
{
    update(m_mode, mode);
}

void Draft::setAddress(const QString &address)
{
    update(m_fields.address, address);
}

void Draft::setSubnetMask(const QString &subnetMask)
{
    update(m_fields.subnetMask, subnetMask);
}

void Draft::setRouter(const QString &router)
{
    update(m_fields.router, router);
}

void Draft::setDNS(const QString &dns)
{
    update(m_fields.dns, dns);
}

void Draft::setAutoAddress(bool autoAddress)
{
    update(m_autoAddress, autoAddress);
}

void Draft::setFields(const IPFields &fields)
{
    update(m_fields, fields);
}

bool Draft::isBlank() const
{
    return trimSpacesAndTabs(m_tag).isEmpty() && trimSpacesAndTabs(m_name).isEmpty()
           && trimSpacesAndTabs(m_fields.address).isEmpty();
}

std::optional<qint64> Draft::tagValue() const
{
    return parseInteger(trimSpacesAndTabs(m_tag));
}

QString Draft::effectiveName() const
{
    const QString name = trimWhitespaceAndNewlines(m_name);
    const std::optional<qint64> tag = tagValue();
    if (!tag)
        return name.isEmpty() ? u"VLAN"_s : name;
    const QString bare = QString::number(*tag);
    if (name.isEmpty())
        return bare;
    // The separators are tried longest first, so "1010 - Control" doesn't keep its hyphen.
    for (const QString &separator : {u" - "_s, u" \u2013 "_s, u"- "_s, u"-"_s, u" "_s}) {
        if (name.startsWith(bare + separator)) {
            const QString rest =
                trimWhitespaceAndNewlines(name.mid(bare.size() + separator.size()));
            return rest.isEmpty() ? bare : bare + u" - "_s + rest;
        }
    }
    return name == bare ? bare : bare + u" - "_s + name;
}

IPConfig Draft::ipConfig() const
{
    if (m_mode != IPMode::manual)
        return IPConfig::dhcp();
    IPConfig ip = IPFields::manual(m_fields.address, m_fields.subnetMask, m_fields.router);
    static const QRegularExpression separators(u"[, ]"_s);
    ip.dns = m_fields.dns.split(separators, Qt::SkipEmptyParts);
    return ip;
}

void Draft::fillSubnetMask(const AddressPlan &plan)
{
    if (m_fields.subnetMask.isEmpty())
        setSubnetMask(IPFields::planMask(plan));
}

void Draft::applyPlan(const AddressPlan &plan)
{
    if (m_mode != IPMode::manual)
        return;
    fillSubnetMask(plan);
    if (!m_autoAddress)
        return;
    if (const std::optional<QString> address = plan.addressForTag(tagValue()))
        setAddress(*address);
}

void Draft::modeChanged(IPMode from, const AddressPlan &plan)
{
    if (from == IPMode::manual && m_mode != IPMode::manual) {
        update(m_stash, std::optional<IPFields>(m_fields));
        setFields(IPFields{});
    } else if (from != IPMode::manual && m_mode == IPMode::manual) {
        if (m_stash) {
            const IPFields kept = *m_stash;
            update(m_stash, std::optional<IPFields>());
            setFields(kept);
        }
        // Fills an empty mask too.
        applyPlan(plan);
    }
}

void Draft::reconcileAddressOwnership(const AddressPlan &plan)
{
    const QString address = trimSpacesAndTabs(m_fields.address);
    if (address.isEmpty()) {
        update(m_autoAddress, true);
        applyPlan(plan);
        return;
    }
    if (address == plan.addressForTag(tagValue()))
        return;
    update(m_autoAddress, false);
}
