#include "VLANKit/core/VLANError.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

VLANError::VLANError(Case errorCase, QString description)
    : m_case(errorCase)
    , m_description(std::move(description))
    , m_utf8(m_description.toUtf8())
{}

VLANError VLANError::authorizationFailed(std::int32_t status)
{
    VLANError error(Case::authorizationFailed,
                    u"Authorization could not be created (OSStatus %1)."_s.arg(status));
    error.m_status = status;
    return error;
}

VLANError VLANError::locationNotFound(const QString &name, const QStringList &known)
{
    VLANError error(Case::locationNotFound, u"No network Location named '"_s + name
                                                + u"'. Known Locations: "_s + known.join(u", "_s)
                                                + u"."_s);
    error.m_text = name;
    error.m_known = known;
    return error;
}

VLANError VLANError::adapterNotFound(const QString &name)
{
    VLANError error(Case::adapterNotFound,
                    u"No interface named '"_s + name + u"' is attached to this Mac."_s);
    error.m_text = name;
    return error;
}

VLANError VLANError::adapterCannotHostVLAN(const QString &name)
{
    VLANError error(Case::adapterCannotHostVLAN,
                    u"Interface '"_s + name + u"' cannot host a VLAN."_s);
    error.m_text = name;
    return error;
}

VLANError VLANError::tagOutOfRange(qint64 tag)
{
    VLANError error(Case::tagOutOfRange,
                    u"VLAN tag %1 is out of range (must be 1\u20134094)."_s.arg(tag));
    error.m_tag = tag;
    return error;
}

VLANError VLANError::commitFailed(const QString &text)
{
    VLANError error(Case::commitFailed, u"Committing the configuration failed: "_s + text);
    error.m_text = text;
    return error;
}

VLANError VLANError::applyFailed(const QString &text)
{
    VLANError error(Case::applyFailed, u"Applying the configuration failed: "_s + text);
    error.m_text = text;
    return error;
}

VLANError VLANError::operationFailed(const QString &text)
{
    VLANError error(Case::operationFailed, text);
    error.m_text = text;
    return error;
}

VLANError VLANError::prefsUnavailable()
{
    return {Case::prefsUnavailable, u"Could not open the system network preferences."_s};
}

VLANError VLANError::authorizationDenied()
{
    return {Case::authorizationDenied,
            u"Authorization was denied or cancelled \u2014 no changes were made."_s};
}

VLANError VLANError::noCurrentSet()
{
    return {Case::noCurrentSet, u"No current network location (set) is active."_s};
}

QString localizedDescription(const std::exception &failure)
{
    if (const auto *error = dynamic_cast<const VLANError *>(&failure))
        return error->localizedDescription();
    return QString::fromUtf8(failure.what());
}

} // namespace VLANKit
