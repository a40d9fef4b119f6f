#include "VLANKit/platform/document/DocumentMachine.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/document/MachineDescriptionReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

QString hardwareAddressText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(':'));
}

} // namespace

QList<std::pair<HardwareInterface, bool>> DocumentMachine::readInterfaceList(const QString &path)
{
    QList<std::pair<HardwareInterface, bool>> entries;
    QFile file(path);
    if (!file.exists())
        return entries;
    if (!file.open(QIODevice::ReadOnly))
        throw VLANError::operationFailed(curlyQuoted(path) + u" can\u2019t be read: "_s
                                         + file.errorString() + u"."_s);
    QString why = u"it holds no property list whose top level is a dictionary"_s;
    const std::optional<QVariant> parsed = parsePropertyList(file, {}, &why);
    const std::optional<QVariantMap> root = parsed ? anyMap(*parsed) : std::nullopt;
    if (!root)
        throw VLANError::operationFailed(curlyQuoted(path) + u" can\u2019t be read: "_s + why
                                         + u"."_s);
    for (const QVariant &element : anyList(root->value(u"Interfaces"_s)).value_or(QVariantList())) {
        const std::optional<QVariantMap> entry = anyMap(element);
        const std::optional<QString> bsdName =
            entry ? stringIn(*entry, u"BSD Name"_s) : std::nullopt;
        if (!bsdName || bsdName->isEmpty())
            continue;
        const QVariantMap info = mapIn(*entry, u"SCNetworkInterfaceInfo"_s).value_or(QVariantMap());
        HardwareInterface interface;
        interface.bsdName = *bsdName;
        interface.type =
            stringIn(*entry, u"SCNetworkInterfaceType"_s).value_or(kSCNetworkInterfaceTypeEthernet);
        interface.displayName = stringIn(info, u"UserDefinedName"_s).value_or(*bsdName);
        interface.hardwareAddress =
            hardwareAddressText(dataIn(*entry, u"IOMACAddress"_s).value_or(QByteArray()));
        interface.builtIn = boolIn(*entry, u"IOBuiltin"_s).value_or(false);
        // Outside the system's own file the framework takes every Ethernet parent as able to
        // carry a VLAN; the list has no better word on it.
        interface.vlanCapable = interface.type == kSCNetworkInterfaceTypeEthernet;
        entries.append({interface, boolIn(*entry, u"Active"_s).value_or(false)});
    }
    return entries;
}

std::shared_ptr<const DocumentMachine> DocumentMachine::open(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir())
        throw VLANError::operationFailed(curlyQuoted(folder)
                                         + u" is no folder of network preferences: there is no "
                                           "such folder."_s);
    auto machine = std::make_shared<DocumentMachine>();
    machine->m_folder = info.absoluteFilePath();
    if (QFileInfo::exists(machine->path(descriptionFileName)))
        machine->m_description =
            MachineDescriptionReader::readFile(machine->path(descriptionFileName));

    for (const auto &[interface, active] : readInterfaceList(machine->path(interfacesFileName))) {
        if (machine->m_rememberedIndex.contains(interface.bsdName))
            continue;
        machine->m_rememberedIndex.insert(interface.bsdName, machine->m_remembered.size());
        machine->m_remembered.append(interface);
        if (active && !(machine->m_description && machine->m_description->interfaces))
            machine->m_attached.append(interface);
    }
    if (machine->m_description && machine->m_description->interfaces)
        machine->m_attached = *machine->m_description->interfaces;
    for (qsizetype at = 0; at < machine->m_attached.size(); ++at)
        machine->m_attachedIndex.insert(machine->m_attached.at(at).bsdName, at);
    return machine;
}

QString DocumentMachine::path(const QString &fileName) const
{
    return QDir(m_folder).filePath(fileName);
}

const HardwareInterface *DocumentMachine::attachedInterface(const QString &bsdName) const
{
    const auto at = m_attachedIndex.constFind(bsdName);
    return at == m_attachedIndex.constEnd() ? nullptr : &m_attached.at(at.value());
}

const HardwareInterface *DocumentMachine::knownInterface(const QString &bsdName) const
{
    if (const HardwareInterface *attached = attachedInterface(bsdName))
        return attached;
    const auto at = m_rememberedIndex.constFind(bsdName);
    return at == m_rememberedIndex.constEnd() ? nullptr : &m_remembered.at(at.value());
}

MachineDescription::Answer DocumentMachine::answer() const
{
    return m_description ? m_description->answer : MachineDescription::Answer::allow;
}

std::int32_t DocumentMachine::failingStatus() const
{
    return m_description ? m_description->status : 0;
}

QList<MachineDescription::DHCPServer> DocumentMachine::dhcpServers() const
{
    return m_description ? m_description->dhcpServers : QList<MachineDescription::DHCPServer>();
}

} // namespace VLANKit
