// What stops a row from being saved, and how its service stands now.
#include "OrvaneApp/model/ServiceEdit.h"
#include "VLANKit/core/TextRules.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

bool isQuad(const QString &text)
{
    return isDottedQuad(trimSpacesAndTabs(text));
}

// An IPv6 server as the system takes it: hexadecimal digits and colons, with the dots of an
// embedded IPv4 address and a zone after "%" ("fe80::1%en0").
bool isIPv6Server(const QString &entry)
{
    if (!entry.contains(u':') || characterCount(entry) < 2)
        return false;
    for (const QString &character : characters(entry)) {
        const QList<uint> points = character.toUcs4();
        if (points.size() != 1)
            return false;
        const uint point = points.first();
        const bool fits = QChar::isLetter(point) || (point >= '0' && point <= '9') || point == ':'
                          || point == '.' || point == '%';
        if (!fits)
            return false;
    }
    return true;
}

} // namespace

QString ServiceEdit::label(Liveness liveness)
{
    switch (liveness) {
    case Liveness::connected:
        return u"Connected"_s;
    case Liveness::selfAssigned:
        return u"Self-assigned IP"_s;
    case Liveness::notConnected:
        return u"Not connected"_s;
    case Liveness::inactive:
        return u"Inactive"_s;
    case Liveness::notInLocation:
        return u"Not in this Location"_s;
    }
    return {};
}

ServiceEdit::Liveness ServiceEdit::liveness() const
{
    if (!m_source.hasService())
        return Liveness::notInLocation;
    if (!m_source.enabled)
        return Liveness::inactive;
    if (!m_holds || m_holds->address.isEmpty())
        return Liveness::notConnected;
    if (m_source.ip.mode == IPMode::dhcp && m_holds->address.startsWith(u"169.254."_s))
        return Liveness::selfAssigned;
    return Liveness::connected;
}

std::optional<ClosedRange> ServiceEdit::newParentRange() const
{
    if (!parentChanged())
        return std::nullopt;
    const auto range = m_parentFrameRanges.constFind(m_edited.parent);
    if (range == m_parentFrameRanges.constEnd())
        return std::nullopt;
    return *range;
}

std::optional<ServiceEdit::Problem> ServiceEdit::problem() const
{
    ++s_derivations;
    if (trimmedName().isEmpty()) {
        return Problem{Field::name, m_source.isVLAN() ? u"A VLAN needs a name."_s
                                                      : u"An adapter needs a name."_s};
    }
    if (!m_source.isVLAN() && nameChanged()
        && (m_edited.name.contains(u'(') || m_edited.name.contains(u')')))
        return Problem{Field::name, u"Brackets clash with the adapter suffix in VLAN names."_s};
    if (auto problem = addressProblem())
        return problem;
    if (auto problem = dnsProblem())
        return problem;
    const HardwareSettings settings = hardware();
    const std::optional<ClosedRange> parentRange = newParentRange();
    if (parentRange && settings.mtu && !parentRange->contains(*settings.mtu)) {
        const QString &parent = m_edited.parent;
        return Problem{Field::mtu,
                       u"MTU %1 is outside what %2 takes (%3\u2013%4). "_s.arg(*settings.mtu)
                               .arg(parent)
                               .arg(parentRange->lower)
                               .arg(parentRange->upper)
                           + u"Under More\u2026, empty it for the standard size or type one "_s
                           + parent + u" takes."_s};
    }
    return hardwareProblem();
}

std::optional<ServiceEdit::Problem> ServiceEdit::addressProblem() const
{
    if (m_edited.mode != IPMode::manual)
        return std::nullopt;
    if (!isQuad(m_edited.address))
        return Problem{Field::address, u"IP address isn't valid."_s};
    if (!isQuad(m_edited.subnetMask))
        return Problem{Field::subnetMask, u"Subnet mask isn't valid."_s};
    if (!trimSpacesAndTabs(m_edited.router).isEmpty() && !isQuad(m_edited.router))
        return Problem{Field::router, u"Router isn't valid."_s};
    return std::nullopt;
}

std::optional<ServiceEdit::Problem> ServiceEdit::dnsProblem() const
{
    for (const QString &entry : list(m_edited.dnsServers)) {
        if (!isQuad(entry) && !isIPv6Server(entry)) {
            return Problem{Field::dns,
                           u"DNS server \u201c"_s + entry + u"\u201d isn't a valid address."_s};
        }
    }
    return std::nullopt;
}

std::optional<ServiceEdit::Problem> ServiceEdit::hardwareProblem() const
{
    const HardwareSettings settings = hardware();
    if (!m_source.hasService())
        return std::nullopt;
    if (settings == m_source.hardware && !mtuIsNotANumber())
        return std::nullopt;
    if (mtuIsNotANumber())
        return Problem{Field::mtu, u"MTU is a whole number, or empty for the standard size."_s};
    if (!settings.mtu && !settings.speed)
        return std::nullopt;
    if (!m_offers)
        return Problem{Field::mtu,
                       u"Not attached, so there is no telling what its hardware takes."_s};
    HardwareCapabilities capabilities = *m_offers;
    if (const std::optional<ClosedRange> parentRange = newParentRange())
        capabilities.mtuRange = parentRange;
    const std::optional<QString> message = capabilities.problem(settings);
    if (!message)
        return std::nullopt;
    const bool mtuOutside =
        settings.mtu && (!capabilities.mtuRange || !capabilities.mtuRange->contains(*settings.mtu));
    return Problem{mtuOutside ? Field::mtu : Field::speed, *message};
}
