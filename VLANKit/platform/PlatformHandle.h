#pragma once

#include <memory>

namespace VLANKit {

/// What a backend keeps behind a handle. Each backend derives its own objects from it; nobody
/// else looks inside.
class PlatformObject
{
public:
    virtual ~PlatformObject() = default;
};

/// An opaque, cheap, copyable reference to one object of the platform: a preferences session, a
/// set, a service, a protocol, an interface, an authorization or a dynamic-store session. A
/// default-made handle is the platform's "nothing". Copies share the object; the object goes
/// when the last copy does, as a released framework reference would.
template <typename Tag> class PlatformHandle
{
public:
    PlatformHandle() = default;
    explicit PlatformHandle(std::shared_ptr<const PlatformObject> object)
        : m_object(std::move(object))
    {}

    [[nodiscard]] bool isNull() const { return m_object == nullptr; }
    explicit operator bool() const { return m_object != nullptr; }

    /// The backend's own object, or null for nothing or for an object of another backend.
    template <typename Object> [[nodiscard]] const Object *as() const
    {
        return dynamic_cast<const Object *>(m_object.get());
    }

private:
    std::shared_ptr<const PlatformObject> m_object;
};

using SessionRef = PlatformHandle<struct SessionTag>;
using SetRef = PlatformHandle<struct SetTag>;
using ServiceRef = PlatformHandle<struct ServiceTag>;
using ProtocolRef = PlatformHandle<struct ProtocolTag>;
using InterfaceRef = PlatformHandle<struct InterfaceTag>;
using AuthorizationRef = PlatformHandle<struct AuthorizationTag>;
using DynamicStoreRef = PlatformHandle<struct DynamicStoreTag>;

} // namespace VLANKit
