// The services and protocols of the document backend: each call finds its session and key in
// the handle and hands over to the document's rules.
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentHandles.h"
#include "VLANKit/platform/document/DocumentProtocols.h"
#include "VLANKit/platform/document/DocumentServices.h"
#include "VLANKit/platform/document/ServiceNaming.h"

namespace VLANKit {

ServiceRef DocumentBackend::scNetworkServiceCreate(const SessionRef &session,
                                                   const InterfaceRef &interface)
{
    const auto *held = sessionOf(session);
    const std::optional<InterfaceFacts> facts = factsOf(interface);
    if (!held || !facts) {
        fail(kSCStatusInvalidArgument);
        return {};
    }
    const std::optional<QString> serviceID = DocumentServices::create(**held, *facts, m_status);
    return serviceID ? documentServiceHandle(*held, *serviceID) : ServiceRef();
}

ServiceRef DocumentBackend::scNetworkServiceCopy(const SessionRef &session,
                                                 const QString &serviceID)
{
    const auto *held = sessionOf(session);
    if (!held || !DocumentServices::exists(**held, serviceID)) {
        fail(held ? kSCStatusNoKey : kSCStatusNoPrefsSession);
        return {};
    }
    return documentServiceHandle(*held, serviceID);
}

std::optional<QList<ServiceRef>> DocumentBackend::scNetworkServiceCopyAll(const SessionRef &session)
{
    const auto *held = sessionOf(session);
    if (!held) {
        fail(kSCStatusNoPrefsSession);
        return std::nullopt;
    }
    QList<ServiceRef> services;
    for (const QString &serviceID : DocumentServices::ids(**held))
        services.append(documentServiceHandle(*held, serviceID));
    return services;
}

bool DocumentBackend::scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentServices::establishDefaultConfiguration(*object->session, object->serviceID,
                                                           m_status);
}

bool DocumentBackend::scNetworkServiceRemove(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentServices::remove(*object->session, object->serviceID, m_status);
}

std::optional<QString> DocumentBackend::scNetworkServiceGetServiceID(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    return object ? std::optional<QString>(object->serviceID) : std::nullopt;
}

std::optional<QString> DocumentBackend::scNetworkServiceGetName(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    return object ? ServiceNaming::shownName(*object->session, object->serviceID) : std::nullopt;
}

bool DocumentBackend::scNetworkServiceSetName(const ServiceRef &service, const QString &name)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentServices::setName(*object->session, object->serviceID, name, m_status);
}

bool DocumentBackend::scNetworkServiceGetEnabled(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    return object && DocumentServices::isEnabled(*object->session, object->serviceID);
}

bool DocumentBackend::scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentServices::setEnabled(*object->session, object->serviceID, enabled, m_status);
}

InterfaceRef DocumentBackend::scNetworkServiceGetInterface(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object || !InterfaceFacts::ofService(*object->session, object->serviceID)) {
        fail(kSCStatusNoKey);
        return {};
    }
    auto interface = std::make_shared<DocumentInterfaceObject>();
    interface->kind = DocumentInterfaceObject::Kind::service;
    interface->session = object->session;
    interface->key = object->serviceID;
    return InterfaceRef(interface);
}

ProtocolRef DocumentBackend::scNetworkServiceCopyProtocol(const ServiceRef &service,
                                                          const QString &protocolType)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object
        || DocumentProtocols::isInterfaceEntity(*object->session, object->serviceID,
                                                protocolType)) {
        fail(kSCStatusInvalidArgument);
        return {};
    }
    if (!DocumentProtocols::exists(*object->session, object->serviceID, protocolType)) {
        fail(kSCStatusNoKey);
        return {};
    }
    return documentProtocolHandle(*object, protocolType);
}

std::optional<QList<ProtocolRef>>
DocumentBackend::scNetworkServiceCopyProtocols(const ServiceRef &service)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object || !DocumentServices::exists(*object->session, object->serviceID)) {
        fail(kSCStatusInvalidArgument);
        return std::nullopt;
    }
    QList<ProtocolRef> protocols;
    for (const QString &type : DocumentProtocols::types(*object->session, object->serviceID))
        protocols.append(documentProtocolHandle(*object, type));
    return protocols;
}

bool DocumentBackend::scNetworkServiceAddProtocolType(const ServiceRef &service,
                                                      const QString &protocolType)
{
    const auto *object = service.as<DocumentServiceObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentProtocols::add(*object->session, object->serviceID, protocolType, m_status);
}

// Protocols.

std::optional<QVariantMap>
DocumentBackend::scNetworkProtocolGetConfiguration(const ProtocolRef &protocol)
{
    const auto *object = protocol.as<DocumentProtocolObject>();
    return object
               ? DocumentProtocols::configuration(*object->session, object->serviceID, object->type)
               : std::nullopt;
}

bool DocumentBackend::scNetworkProtocolSetConfiguration(
    const ProtocolRef &protocol, const std::optional<QVariantMap> &configuration)
{
    const auto *object = protocol.as<DocumentProtocolObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentProtocols::setConfiguration(*object->session, object->serviceID, object->type,
                                               configuration, m_status);
}

bool DocumentBackend::scNetworkProtocolGetEnabled(const ProtocolRef &protocol)
{
    const auto *object = protocol.as<DocumentProtocolObject>();
    return object
           && DocumentProtocols::isEnabled(*object->session, object->serviceID, object->type);
}

bool DocumentBackend::scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled)
{
    const auto *object = protocol.as<DocumentProtocolObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentProtocols::setEnabled(*object->session, object->serviceID, object->type, enabled,
                                         m_status);
}

std::optional<QString>
DocumentBackend::scNetworkProtocolGetProtocolType(const ProtocolRef &protocol)
{
    const auto *object = protocol.as<DocumentProtocolObject>();
    return object ? std::optional<QString>(object->type) : std::nullopt;
}

} // namespace VLANKit
