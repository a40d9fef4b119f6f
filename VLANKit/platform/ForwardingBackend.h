#pragma once

#include "VLANKit/platform/PlatformBackend.h"

#include <memory>

namespace VLANKit {

/// A backend that hands every call to another one and reports each, with how many handles and
/// list or map elements the answer handed over. Derive from it to watch or count what a piece
/// of code asks of the platform; override one operation to stand in for it.
class ForwardingBackend : public PlatformBackend
{
public:
    explicit ForwardingBackend(std::shared_ptr<PlatformBackend> inner);

    [[nodiscard]] PlatformBackend &inner() const { return *m_inner; }

    [[nodiscard]] QString machineDisplayName() const override;
    [[nodiscard]] std::optional<QString> hardwareUUID() const override;

    SessionRef scPreferencesCreate(const QString &name) override;
    SessionRef scPreferencesCreateWithAuthorization(const QString &name,
                                                    const AuthorizationRef &authorization) override;
    bool scPreferencesCommitChanges(const SessionRef &session) override;
    bool scPreferencesApplyChanges(const SessionRef &session) override;
    int scError() override;
    QString scErrorString(int code) override;
    PlatformError scCopyLastError() override;
    AuthorizationCreated authorizationCreate() override;
    std::int32_t authorizationCopyRights(const AuthorizationRef &authorization,
                                         const QString &rightName, std::uint32_t flags) override;
    std::int32_t authorizationFree(const AuthorizationRef &authorization) override;
    std::uint32_t ifNameToIndex(const QString &bsdName) override;
    SetRef scNetworkSetCopyCurrent(const SessionRef &session) override;
    std::optional<QList<SetRef>> scNetworkSetCopyAll(const SessionRef &session) override;
    SetRef scNetworkSetCopy(const SessionRef &session, const QString &setID) override;
    std::optional<QString> scNetworkSetGetSetID(const SetRef &set) override;
    std::optional<QString> scNetworkSetGetName(const SetRef &set) override;
    std::optional<QList<ServiceRef>> scNetworkSetCopyServices(const SetRef &set) override;
    bool scNetworkSetAddService(const SetRef &set, const ServiceRef &service) override;
    bool scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service) override;
    std::optional<QVariantList> scNetworkSetGetServiceOrder(const SetRef &set) override;
    bool scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order) override;
    SetRef scNetworkSetCreate(const SessionRef &session) override;
    bool scNetworkSetSetName(const SetRef &set, const QString &name) override;
    bool scNetworkSetRemove(const SetRef &set) override;
    bool scNetworkSetSetCurrent(const SetRef &set) override;
    ServiceRef scNetworkServiceCreate(const SessionRef &session,
                                      const InterfaceRef &interface) override;
    ServiceRef scNetworkServiceCopy(const SessionRef &session, const QString &serviceID) override;
    std::optional<QList<ServiceRef>> scNetworkServiceCopyAll(const SessionRef &session) override;
    bool scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service) override;
    bool scNetworkServiceRemove(const ServiceRef &service) override;
    std::optional<QString> scNetworkServiceGetServiceID(const ServiceRef &service) override;
    std::optional<QString> scNetworkServiceGetName(const ServiceRef &service) override;
    bool scNetworkServiceSetName(const ServiceRef &service, const QString &name) override;
    bool scNetworkServiceGetEnabled(const ServiceRef &service) override;
    bool scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled) override;
    InterfaceRef scNetworkServiceGetInterface(const ServiceRef &service) override;
    ProtocolRef scNetworkServiceCopyProtocol(const ServiceRef &service,
                                             const QString &protocolType) override;
    std::optional<QList<ProtocolRef>>
    scNetworkServiceCopyProtocols(const ServiceRef &service) override;
    bool scNetworkServiceAddProtocolType(const ServiceRef &service,
                                         const QString &protocolType) override;
    std::optional<QVariantMap>
    scNetworkProtocolGetConfiguration(const ProtocolRef &protocol) override;
    bool
    scNetworkProtocolSetConfiguration(const ProtocolRef &protocol,
                                      const std::optional<QVariantMap> &configuration) override;
    bool scNetworkProtocolGetEnabled(const ProtocolRef &protocol) override;
    bool scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled) override;
    std::optional<QString> scNetworkProtocolGetProtocolType(const ProtocolRef &protocol) override;
    std::optional<QList<InterfaceRef>> scNetworkInterfaceCopyAll() override;
    std::optional<QString> scNetworkInterfaceGetBSDName(const InterfaceRef &interface) override;
    std::optional<QString>
    scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface) override;
    std::optional<QString>
    scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface) override;
    std::optional<QVariantMap>
    scNetworkInterfaceGetConfiguration(const InterfaceRef &interface) override;
    bool
    scNetworkInterfaceSetConfiguration(const InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) override;
    std::optional<InterfaceMTU> scNetworkInterfaceCopyMTU(const InterfaceRef &interface) override;
    std::optional<InterfaceMedia> scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface,
                                                                     bool filter) override;
    std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available) override;
    std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                              const QString &subType) override;
    std::optional<QList<InterfaceRef>> scVLANInterfaceCopyAvailablePhysicalInterfaces() override;
    std::optional<QList<InterfaceRef>> scVLANInterfaceCopyAll(const SessionRef &session) override;
    InterfaceRef scVLANInterfaceCreate(const SessionRef &session, const InterfaceRef &physical,
                                       qint64 tag) override;
    bool scVLANInterfaceRemove(const InterfaceRef &vlan) override;
    InterfaceRef scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan) override;
    std::optional<qint64> scVLANInterfaceGetTag(const InterfaceRef &vlan) override;
    bool scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                   const InterfaceRef &physical,
                                                   qint64 tag) override;
    bool scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                const QString &name) override;
    DynamicStoreRef scDynamicStoreCreate(const QString &name,
                                         std::function<void()> changed) override;
    std::optional<QVariantMap> scDynamicStoreCopyMultiple(const DynamicStoreRef &store,
                                                          const QStringList &keys,
                                                          const QStringList &patterns) override;
    bool scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store, const QStringList &keys,
                                           const QStringList &patterns) override;
    bool scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store) override;

protected:
    /// Reported after each call, by the name of the framework call it stands for.
    virtual void called(const char *operation, qsizetype handedOver) const;

private:
    /// Makes the call on the inner backend, reports it, and gives its answer.
    template <typename Call>
    auto forward(const char *operation, Call call) const;

    std::shared_ptr<PlatformBackend> m_inner;
};

} // namespace VLANKit
