#pragma once

#include <QString>

#include <map>
#include <optional>

namespace VLANKit {

/// Hands out VLAN kernel names as the system does: the first "vlanN" that the preferences don't
/// hold yet, counting from vlan0, so that gaps are reused. It keeps the free numbers as runs,
/// so that neither taking nor giving back a name looks at the names in use.
class VLANNameAllocator
{
public:
    VLANNameAllocator();

    /// Notes a name as in use; names of another shape ("vlan01", "bond0") take no number.
    void use(const QString &name);
    /// Gives a name back.
    void release(const QString &name);
    /// The first free name.
    [[nodiscard]] QString firstFree() const;

    /// The number in a name of the shape "vlanN" as the system writes it: "vlan" and a decimal
    /// without leading zeros.
    [[nodiscard]] static std::optional<qint64> number(const QString &name);

    friend bool operator==(const VLANNameAllocator &, const VLANNameAllocator &) = default;

private:
    /// Runs of free numbers: first to last, both free.
    std::map<qint64, qint64> m_free;
};

} // namespace VLANKit
