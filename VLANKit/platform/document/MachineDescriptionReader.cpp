#include "VLANKit/platform/document/MachineDescriptionReader.h"

#include "VLANKit/core/FileProblem.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/document/TomlTableReader.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <toml++/toml.h>

#include <algorithm>
#include <climits>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

HardwareInterface::MediaOffer readMediaOffer(const TomlTableReader &offer)
{
    offer.allowOnly({"subtype", "options"});
    HardwareInterface::MediaOffer read;
    read.subType = offer.requiredString("subtype");
    if (const toml::node *options = offer.node("options")) {
        const toml::array *sets = options->as_array();
        if (!sets)
            offer.fail(options, u"options"_s, u"expected a list of lists of texts"_s);
        for (const toml::node &set : *sets)
            read.options.append(*offer.strings(&set, u"options"_s));
    }
    return read;
}

HardwareInterface readInterface(const TomlTableReader &entry)
{
    entry.allowOnly({"bsd-name", "type", "display-name", "hardware-address", "vlan-capable",
                     "built-in", "link-up", "mtu", "media", "active-media"});
    HardwareInterface read;
    read.bsdName = entry.requiredString("bsd-name");
    read.type = entry.string("type").value_or(kSCNetworkInterfaceTypeEthernet);
    if (read.type != kSCNetworkInterfaceTypeEthernet
        && read.type != kSCNetworkInterfaceTypeIEEE80211
        && read.type != kSCNetworkInterfaceTypeFireWire)
        entry.fail(entry.node("type"), u"type"_s, u"expected Ethernet, IEEE80211 or FireWire"_s);
    read.displayName = entry.string("display-name").value_or(read.bsdName);
    read.hardwareAddress = entry.string("hardware-address").value_or(QString());
    static const QRegularExpression macAddress(u"^[0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}$"_s);
    if (!read.hardwareAddress.isEmpty() && !macAddress.match(read.hardwareAddress).hasMatch())
        entry.fail(entry.node("hardware-address"), u"hardware-address"_s,
                   u"expected six pairs of hexadecimal digits, such as 3c:a6:f6:4e:21:0a"_s);
    read.vlanCapable =
        entry.boolean("vlan-capable").value_or(read.type == kSCNetworkInterfaceTypeEthernet);
    read.builtIn = entry.boolean("built-in").value_or(false);
    read.linkUp = entry.boolean("link-up").value_or(false);
    if (const auto mtu = entry.table("mtu")) {
        mtu->allowOnly({"current", "min", "max"});
        InterfaceMTU sizes;
        sizes.minimum = mtu->integer("min").value_or(1280);
        sizes.maximum = mtu->integer("max").value_or(1500);
        sizes.current = mtu->integer("current").value_or(1500);
        read.mtu = sizes;
    }
    for (const TomlTableReader &offer : entry.tables("media"))
        read.media.append(readMediaOffer(offer));
    if (const auto active = entry.table("active-media")) {
        active->allowOnly({"subtype", "options"});
        read.activeSubType = active->requiredString("subtype");
        read.activeOptions =
            active->strings(active->node("options"), u"options"_s).value_or(QStringList());
    }
    return read;
}

MachineDescription::DHCPServer readServer(const TomlTableReader &entry)
{
    entry.allowOnly({"adapter", "tag", "first-address", "subnet-mask", "router"});
    MachineDescription::DHCPServer server;
    server.adapter = entry.requiredString("adapter");
    server.tag = entry.integer("tag");
    if (server.tag && (*server.tag < 1 || *server.tag > 4094))
        entry.fail(entry.node("tag"), u"tag"_s, u"expected a VLAN tag from 1 to 4094"_s);
    server.firstAddress = entry.address("first-address", true);
    server.subnetMask = entry.address("subnet-mask", false);
    if (!entry.node("subnet-mask"))
        server.subnetMask = {255, 255, 255, 0};
    if (entry.node("router")) {
        (void)entry.address("router", false);
        server.router = entry.string("router");
    }
    return server;
}

void readAdministrator(const TomlTableReader &table, MachineDescription &description)
{
    table.allowOnly({"answer", "status"});
    static const QList<std::pair<QString, MachineDescription::Answer>> answers{
        {u"allow"_s, MachineDescription::Answer::allow},
        {u"deny"_s, MachineDescription::Answer::deny},
        {u"cancel"_s, MachineDescription::Answer::cancel},
        {u"fail"_s, MachineDescription::Answer::fail},
        {u"no-handle"_s, MachineDescription::Answer::noHandle}};
    const QString answer = table.string("answer").value_or(u"allow"_s);
    const auto known = std::find_if(answers.begin(), answers.end(),
                                    [&](const auto &pair) { return pair.first == answer; });
    if (known == answers.end())
        table.fail(table.node("answer"), u"answer"_s,
                   u"expected allow, deny, cancel, fail or no-handle"_s);
    description.answer = known->second;
    const std::optional<qint64> status = table.integer("status");
    if (description.answer == MachineDescription::Answer::fail && (!status || *status == 0))
        table.fail(table.node("status"), u"status"_s,
                   u"a failing answer needs a status other than 0, such as -60008"_s);
    if (status && (*status < INT32_MIN || *status > INT32_MAX))
        table.fail(table.node("status"), u"status"_s, u"the status is out of range"_s);
    description.status = static_cast<std::int32_t>(status.value_or(0));
}

/// The key that a line of TOML sets or opens, for a sentence about a syntax error there.
QString keyOnLine(const QByteArray &text, qsizetype line)
{
    const QList<QByteArray> lines = text.split('\n');
    if (line < 1 || line > lines.size())
        return {};
    const QString content = trimSpacesAndTabs(QString::fromUtf8(lines.at(line - 1)));
    static const QRegularExpression header(u"^\\[+\\s*([^\\]]*?)\\s*\\]+"_s);
    if (const auto match = header.match(content); match.hasMatch())
        return match.captured(1);
    const qsizetype equals = content.indexOf(u'=');
    return equals > 0 ? trimSpacesAndTabs(content.first(equals)) : QString();
}

} // namespace

MachineDescription MachineDescriptionReader::readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw VLANError::operationFailed(curlyQuoted(path) + u" can\u2019t be read: "_s
                                         + file.errorString() + u"."_s);
    // People write these by hand: a file of megabytes is no description, and is refused before
    // it is read.
    constexpr qint64 largestDescription = 1024 * 1024;
    if (file.size() > largestDescription)
        throw VLANError::operationFailed(
            curlyQuoted(path) + u" can\u2019t be read: "_s
            + FileProblem::tooLarge(file.size(), u"machine description"_s) + u"."_s);
    return parse(file.readAll(), path);
}

MachineDescription MachineDescriptionReader::parse(const QByteArray &text, const QString &path)
{
    toml::table root;
    try {
        root = toml::parse(std::string_view(text.constData(), static_cast<size_t>(text.size())));
    } catch (const toml::parse_error &error) {
        const auto line = static_cast<qsizetype>(error.source().begin.line);
        const QString key = keyOnLine(text, line);
        QString where = u"line %1"_s.arg(line);
        if (!key.isEmpty())
            where += u", key "_s + curlyQuoted(key);
        throw VLANError::operationFailed(curlyQuoted(path) + u" can\u2019t be read: "_s + where
                                         + u": "_s + fromToml(error.description()) + u"."_s);
    }

    const TomlTableReader top(root, path, QString());
    top.allowOnly({"machine", "administrator", "interface", "dhcp-server"});
    MachineDescription description;
    if (const auto machine = top.table("machine")) {
        machine->allowOnly({"computer-name", "hardware-uuid"});
        description.computerName = machine->string("computer-name");
        description.hardwareUUID = machine->string("hardware-uuid");
    }
    if (const auto administrator = top.table("administrator"))
        readAdministrator(*administrator, description);
    if (top.node("interface")) {
        QList<HardwareInterface> interfaces;
        QSet<QString> names;
        for (const TomlTableReader &entry : top.tables("interface")) {
            interfaces.append(readInterface(entry));
            if (names.contains(interfaces.last().bsdName))
                entry.fail(entry.node("bsd-name"), u"bsd-name"_s,
                           u"another interface has this name already"_s);
            names.insert(interfaces.last().bsdName);
        }
        description.interfaces = interfaces;
    }
    for (const TomlTableReader &entry : top.tables("dhcp-server"))
        description.dhcpServers.append(readServer(entry));
    return description;
}

} // namespace VLANKit
