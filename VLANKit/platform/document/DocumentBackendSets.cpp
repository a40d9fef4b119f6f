// The sets of the document backend: each call finds its session and key in the handle and
// hands over to the document's rules.
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentHandles.h"
#include "VLANKit/platform/document/DocumentSets.h"

namespace VLANKit {

SetRef DocumentBackend::scNetworkSetCopyCurrent(const SessionRef &session)
{
    const auto *held = sessionOf(session);
    const auto setID = held ? DocumentSets::current(**held) : std::nullopt;
    if (!setID) {
        fail(held ? kSCStatusNoKey : kSCStatusNoPrefsSession);
        return {};
    }
    return documentSetHandle(*held, *setID);
}

std::optional<QList<SetRef>> DocumentBackend::scNetworkSetCopyAll(const SessionRef &session)
{
    const auto *held = sessionOf(session);
    if (!held) {
        fail(kSCStatusNoPrefsSession);
        return std::nullopt;
    }
    QList<SetRef> sets;
    for (const QString &setID : DocumentSets::ids(**held))
        sets.append(documentSetHandle(*held, setID));
    return sets;
}

SetRef DocumentBackend::scNetworkSetCopy(const SessionRef &session, const QString &setID)
{
    const auto *held = sessionOf(session);
    if (!held || !DocumentSets::exists(**held, setID)) {
        fail(held ? kSCStatusNoKey : kSCStatusNoPrefsSession);
        return {};
    }
    return documentSetHandle(*held, setID);
}

std::optional<QString> DocumentBackend::scNetworkSetGetSetID(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    return object ? std::optional<QString>(object->setID) : std::nullopt;
}

std::optional<QString> DocumentBackend::scNetworkSetGetName(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    return object ? DocumentSets::name(*object->session, object->setID) : std::nullopt;
}

std::optional<QList<ServiceRef>> DocumentBackend::scNetworkSetCopyServices(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    if (!object || !DocumentSets::exists(*object->session, object->setID)) {
        fail(kSCStatusNoKey);
        return std::nullopt;
    }
    QList<ServiceRef> services;
    for (const QString &serviceID : DocumentSets::services(*object->session, object->setID))
        services.append(documentServiceHandle(object->session, serviceID));
    return services;
}

bool DocumentBackend::scNetworkSetAddService(const SetRef &set, const ServiceRef &service)
{
    const auto *held = set.as<DocumentSetObject>();
    const auto *added = service.as<DocumentServiceObject>();
    if (!held || !added || held->session != added->session)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::addService(*held->session, held->setID, added->serviceID, m_status);
}

bool DocumentBackend::scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service)
{
    const auto *held = set.as<DocumentSetObject>();
    const auto *removed = service.as<DocumentServiceObject>();
    if (!held || !removed || held->session != removed->session)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::removeService(*held->session, held->setID, removed->serviceID, m_status);
}

std::optional<QVariantList> DocumentBackend::scNetworkSetGetServiceOrder(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    return object ? DocumentSets::order(*object->session, object->setID) : std::nullopt;
}

bool DocumentBackend::scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order)
{
    const auto *object = set.as<DocumentSetObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::setOrder(*object->session, object->setID, order, m_status);
}

SetRef DocumentBackend::scNetworkSetCreate(const SessionRef &session)
{
    const auto *held = sessionOf(session);
    if (!held) {
        fail(kSCStatusNoPrefsSession);
        return {};
    }
    return documentSetHandle(*held, DocumentSets::create(**held));
}

bool DocumentBackend::scNetworkSetSetName(const SetRef &set, const QString &name)
{
    const auto *object = set.as<DocumentSetObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::setName(*object->session, object->setID, name, m_status);
}

bool DocumentBackend::scNetworkSetRemove(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::remove(*object->session, object->setID, m_status);
}

bool DocumentBackend::scNetworkSetSetCurrent(const SetRef &set)
{
    const auto *object = set.as<DocumentSetObject>();
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentSets::makeCurrent(*object->session, object->setID, m_status);
}

} // namespace VLANKit
