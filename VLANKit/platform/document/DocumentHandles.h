#pragma once

#include "VLANKit/platform/PlatformHandle.h"
#include "VLANKit/platform/document/DocumentSession.h"
#include "VLANKit/platform/document/InterfaceFacts.h"

#include <QString>

#include <functional>
#include <memory>

namespace VLANKit {

class DocumentWatch;

/// What the document backend's handles hold: the session they belong to and the key of the
/// thing in its document, looked up again at every call, as the framework's objects stand for
/// paths in their preferences.
struct DocumentSessionObject : PlatformObject
{
    std::shared_ptr<DocumentSession> session;
};

struct DocumentSetObject : PlatformObject
{
    std::shared_ptr<DocumentSession> session;
    QString setID;
};

struct DocumentServiceObject : PlatformObject
{
    std::shared_ptr<DocumentSession> session;
    QString serviceID;
};

struct DocumentProtocolObject : PlatformObject
{
    std::shared_ptr<DocumentSession> session;
    QString serviceID;
    QString type;
};

struct DocumentInterfaceObject : PlatformObject
{
    enum class Kind {
        /// An interface of the machine, as it was when handed out.
        fixed,
        /// A VLAN of a session's document, followed through the session.
        sessionVLAN,
        /// The interface of a session's service, followed through the session.
        service,
    };
    Kind kind = Kind::fixed;
    std::shared_ptr<DocumentSession> session;
    /// The VLAN's kernel name, or the service's identifier.
    QString key;
    InterfaceFacts facts;
};

struct DocumentAuthorizationObject : PlatformObject
{
    struct State
    {
        bool granted = false;
        bool freed = false;
    };
    const void *owner = nullptr;
    std::shared_ptr<State> state;
};

struct DocumentDynamicStoreObject : PlatformObject
{
    const void *owner = nullptr;
    std::shared_ptr<DocumentWatch> watch;
};

inline SetRef documentSetHandle(const std::shared_ptr<DocumentSession> &session,
                                const QString &setID)
{
    auto object = std::make_shared<DocumentSetObject>();
    object->session = session;
    object->setID = setID;
    return SetRef(object);
}

inline ServiceRef documentServiceHandle(const std::shared_ptr<DocumentSession> &session,
                                        const QString &serviceID)
{
    auto object = std::make_shared<DocumentServiceObject>();
    object->session = session;
    object->serviceID = serviceID;
    return ServiceRef(object);
}

inline ProtocolRef documentProtocolHandle(const DocumentServiceObject &service, const QString &type)
{
    auto object = std::make_shared<DocumentProtocolObject>();
    object->session = service.session;
    object->serviceID = service.serviceID;
    object->type = type;
    return ProtocolRef(object);
}

inline InterfaceRef documentVLANHandle(const std::shared_ptr<DocumentSession> &session,
                                       const QString &name)
{
    auto object = std::make_shared<DocumentInterfaceObject>();
    object->kind = DocumentInterfaceObject::Kind::sessionVLAN;
    object->session = session;
    object->key = name;
    return InterfaceRef(object);
}

} // namespace VLANKit
