#pragma once

#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <optional>

// Look-ups by what a person reads, through a store and its own backend, for tests that stage
// through the seam what the store's rules wouldn't let them.
namespace StoreLookups {

inline std::optional<VLANKit::LocationRecord> locationNamed(const VLANKit::VLANStore &store,
                                                            const QString &name)
{
    for (const VLANKit::LocationRecord &record : store.locations()) {
        if (record.name == name)
            return record;
    }
    return std::nullopt;
}

inline QStringList locationNames(const VLANKit::VLANStore &store)
{
    QStringList names;
    for (const VLANKit::LocationRecord &record : store.locations())
        names.append(record.name);
    return names;
}

inline VLANKit::SetRef setNamed(const VLANKit::VLANStore &store, const QString &name)
{
    VLANKit::PlatformBackend &platform = store.platform();
    for (const VLANKit::SetRef &set :
         VLANKit::presentHandles(platform.scNetworkSetCopyAll(store.prefs()))) {
        if (platform.scNetworkSetGetName(set) == name)
            return set;
    }
    ADD_FAILURE() << "no Location named " << name.toStdString();
    return {};
}

inline VLANKit::ServiceRef serviceIn(const VLANKit::VLANStore &store, const VLANKit::SetRef &set,
                                     const QString &name)
{
    VLANKit::PlatformBackend &platform = store.platform();
    for (const VLANKit::ServiceRef &service :
         VLANKit::presentHandles(platform.scNetworkSetCopyServices(set))) {
        if (platform.scNetworkServiceGetName(service) == name)
            return service;
    }
    ADD_FAILURE() << "no service named " << name.toStdString();
    return {};
}

/// An adapter among those that can carry a VLAN.
inline VLANKit::InterfaceRef adapterNamed(const VLANKit::VLANStore &store, const QString &bsdName)
{
    for (const VLANKit::InterfaceRef &adapter : store.vlanCapableInterfaces()) {
        if (store.platform().scNetworkInterfaceGetBSDName(adapter) == bsdName)
            return adapter;
    }
    ADD_FAILURE() << "no adapter " << bsdName.toStdString();
    return {};
}

inline VLANKit::InterfaceRef vlanNamed(const VLANKit::VLANStore &store, const QString &bsdName)
{
    VLANKit::PlatformBackend &platform = store.platform();
    for (const VLANKit::InterfaceRef &vlan :
         VLANKit::presentHandles(platform.scVLANInterfaceCopyAll(store.prefs()))) {
        if (platform.scNetworkInterfaceGetBSDName(vlan) == bsdName)
            return vlan;
    }
    ADD_FAILURE() << "no VLAN " << bsdName.toStdString();
    return {};
}

/// How many services the preferences hold, in any set or in none.
inline qsizetype serviceCount(const VLANKit::VLANStore &store)
{
    return VLANKit::presentHandles(store.platform().scNetworkServiceCopyAll(store.prefs())).size();
}

/// The failure that the operation throws, if it throws one.
template <typename Operation>
std::optional<VLANKit::VLANError> failureOf(Operation operation)
{
    try {
        operation();
    } catch (const VLANKit::VLANError &error) {
        return error;
    }
    return std::nullopt;
}

/// The sentence of that failure, or words saying that nothing failed.
template <typename Operation>
QString sentenceOf(Operation operation)
{
    const auto failure = failureOf(operation);
    return failure ? failure->localizedDescription() : QStringLiteral("(no failure)");
}

} // namespace StoreLookups
