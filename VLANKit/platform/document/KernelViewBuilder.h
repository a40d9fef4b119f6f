#pragma once

#include "VLANKit/platform/document/DocumentMachine.h"
#include "VLANKit/platform/document/DocumentSession.h"
#include "VLANKit/platform/document/KernelView.h"

#include <QHash>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace VLANKit {

/// Works out what the kernel holds after the preferences are applied on a machine: the
/// attached adapters, the VLANs that can stand on them, and the addresses that the services of
/// the current set hold.
class KernelViewBuilder
{
public:
    KernelViewBuilder(const QVariantMap &preferences,
                      const std::shared_ptr<const DocumentMachine> &machine);

    [[nodiscard]] KernelView build();

private:
    void add(KernelView::Interface interface);
    void addAdapters();
    void addVLANs();
    void publishInterfaces();
    void publishService(const QString &serviceID);
    static QVariantMap selfAssignedState(const QString &serviceID);
    /// The lease of the first server on the interface's network, else a self-assigned address.
    QVariantMap lease(const QString &serviceID, const KernelView::Interface &interface);

    DocumentSession m_session;
    const DocumentMachine &m_machine;
    std::optional<QString> m_currentSet;
    KernelView m_view;
    QHash<qsizetype, quint32> m_leases;
};

} // namespace VLANKit
