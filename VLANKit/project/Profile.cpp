#include "VLANKit/project/Profile.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace VLANKit {

QString Profile::id() const
{
    QStringList tags;
    tags.reserve(entries.size());
    for (const ProfileEntry &entry : entries)
        tags.append(QString::number(entry.tag));
    return name + u"#"_s + tags.join(u","_s);
}

bool Profile::hasManualAddresses() const
{
    for (const ProfileEntry &entry : entries) {
        if (entry.ip.mode == IPMode::manual && entry.ip.address)
            return true;
    }
    return false;
}

} // namespace VLANKit
