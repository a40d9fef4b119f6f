#pragma once

#include "VLANKit/project/Profile.h"
#include "VLANKit/values/Plan.h"

#include <QJsonObject>
#include <QString>

#include <optional>

namespace VLANKit {
class Platform;
}

namespace Orvanectl {

struct Invocation;

/// A project file and what building it on an adapter would change: what `plan` shows and
/// `apply` carries out.
struct ProjectPlan
{
    QString path;
    /// The file as it was read, claims and addresses untouched: a claim is recorded in this.
    VLANKit::Profile project;
    /// The host octet as given, when one was.
    std::optional<QString> host;
    QString adapter;
    QString location;
    VLANKit::Plan plan;

    /// The file's name in curly quotes, as sentences name it.
    [[nodiscard]] QString fileName() const;
    /// The line before the changes, or the sentence that there is nothing to do.
    [[nodiscard]] QString heading() const;
    /// "file", "project", "adapter", "location", "host" and "changes".
    [[nodiscard]] QJsonObject json(bool made) const;

    /// Reads the project, re-hosts it when a host is given, and plans it on a read-only store.
    /// Throws `UsageError` for a host that is no octet, `VLANError` for the rest.
    [[nodiscard]] static ProjectPlan make(const Invocation &invocation,
                                          const VLANKit::Platform &platform);
};

} // namespace Orvanectl
