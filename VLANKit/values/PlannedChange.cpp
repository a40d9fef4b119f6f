#include "VLANKit/values/PlannedChange.h"

#include "VLANKit/core/Overloaded.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

// Two blanks between fields; one blank on each side of an arrow, save in CREATE.
const QString gap = u"  "_s;
const QString arrow = u" \u2192 "_s;

QString quoted(const QString &text)
{
    return u'"' + text + u'"';
}

QString enableVerb(bool enabled)
{
    return enabled ? u"ENABLE "_s : u"DISABLE"_s;
}

QString turned(const QString &name, bool enabled)
{
    return u"Turned "_s + name + (enabled ? u" on."_s : u" off."_s);
}

QString number(qint64 value)
{
    return QString::number(value);
}

} // namespace

QString PlannedChange::summary() const
{
    return std::visit(
        Overloaded{
            [](const CreateVLAN &c) {
                return u"CREATE  "_s + number(c.tag) + gap + c.name + u"  \u2192  "_s
                       + c.ip.summary();
            },
            [](const Reparent &c) {
                return u"REPARENT "_s + number(c.record.tag) + gap + c.record.name + gap + c.from
                       + arrow + c.to;
            },
            [](const Retag &c) {
                return u"IP      "_s + number(c.tag) + gap + c.name + gap + c.from.summary() + arrow
                       + c.to.summary();
            },
            [](const SetEnabled &c) {
                return enableVerb(c.enabled) + u' ' + number(c.tag) + gap + c.name;
            },
            [](const RemoveVLAN &c) {
                return u"DELETE  "_s + number(c.tag) + gap + c.name + u"  ("_s + c.bsdName
                       + u") and its service(s)"_s;
            },
            [](const Rename &c) {
                return u"RENAME  "_s + number(c.tag) + gap + quoted(c.from) + arrow + quoted(c.to);
            },
            [](const AddService &c) {
                return u"ADD     "_s + number(c.tag) + gap + c.name + u"  to this Location"_s;
            },
            [](const SetServiceIP &c) {
                return u"IP      "_s + c.name + gap + c.from.summary() + arrow + c.to.summary();
            },
            [](const SetServiceEnabled &c) { return enableVerb(c.enabled) + u' ' + c.name; },
            [](const SetIPv6 &c) {
                return u"IPV6    "_s + c.name + gap + label(c.from) + arrow + label(c.to);
            },
            [](const SetDNS &c) {
                QString line = u"DNS     "_s + c.name + gap
                               + (c.servers.isEmpty() ? u"no servers"_s : c.servers.join(u", "_s));
                if (!c.searchDomains.isEmpty())
                    line += u"  search "_s + c.searchDomains.join(u", "_s);
                return line;
            },
            [](const RenameAdapter &c) {
                return u"NAME    "_s + c.bsdName + gap + quoted(c.from) + arrow + quoted(c.to);
            },
            [](const AddAdapterService &c) {
                return u"ADD     "_s + c.bsdName + gap + c.name + u"  to this Location"_s;
            },
            [](const RemoveService &c) {
                return u"REMOVE  "_s + c.name + u"  from this Location"_s;
            },
            [](const SetHardware &c) {
                return u"HARDWARE "_s + c.name + gap + c.from.summary() + arrow + c.to.summary();
            },
        },
        change);
}

QString PlannedChange::completed() const
{
    return std::visit(
        Overloaded{
            [](const CreateVLAN &c) {
                return u"Built "_s + (c.name.isEmpty() ? number(c.tag) : c.name) + u'.';
            },
            [](const Reparent &c) {
                return u"Moved "_s + c.record.name + u" onto "_s + c.to + u'.';
            },
            [](const Retag &c) { return u"Set "_s + c.name + u" to "_s + c.to.summary() + u'.'; },
            [](const SetEnabled &c) { return turned(c.name, c.enabled); },
            [](const RemoveVLAN &c) {
                return u"Deleted "_s + c.name + u" and its network service."_s;
            },
            [](const Rename &c) { return u"Renamed "_s + c.from + u" to "_s + c.to + u'.'; },
            [](const AddService &c) { return u"Added "_s + c.name + u" to this Location."_s; },
            [](const SetServiceIP &c) {
                return u"Set "_s + c.name + u" to "_s + c.to.summary() + u'.';
            },
            [](const SetServiceEnabled &c) { return turned(c.name, c.enabled); },
            [](const SetIPv6 &c) {
                return u"Set IPv6 on "_s + c.name + u" to "_s + label(c.to) + u'.';
            },
            [](const SetDNS &c) {
                if (c.servers.isEmpty() && c.searchDomains.isEmpty())
                    return u"Cleared the DNS settings on "_s + c.name + u'.';
                return u"Set the DNS settings on "_s + c.name + u'.';
            },
            [](const RenameAdapter &c) {
                return u"Named "_s + c.bsdName + u" \u201C"_s + c.to + u"\u201D."_s;
            },
            [](const AddAdapterService &c) {
                return u"Added "_s + c.name + u" to this Location."_s;
            },
            [](const RemoveService &c) {
                return u"Took "_s + c.name + u" out of this Location."_s;
            },
            [](const SetHardware &c) {
                if (c.to.isAutomatic())
                    return u"Set the hardware of "_s + c.name + u" back to automatic."_s;
                return u"Set the hardware of "_s + c.name + u" to "_s + c.to.summary() + u'.';
            },
        },
        change);
}

} // namespace VLANKit
