#include "VLANKit/values/IPConfig.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

IPConfig IPConfig::dhcp()
{
    return IPConfig{IPMode::dhcp, std::nullopt, std::nullopt, std::nullopt, {}};
}

IPConfig IPConfig::off()
{
    return IPConfig{};
}

QString IPConfig::summary() const
{
    switch (mode) {
    case IPMode::dhcp:
        return u"DHCP"_s;
    case IPMode::linkLocal:
        return u"link-local"_s;
    case IPMode::off:
        return u"off"_s;
    case IPMode::unknown:
        return u"\u2014"_s;
    case IPMode::manual:
        break;
    }
    QString text = address.value_or(u"?"_s) + u"/"_s + subnetMask.value_or(u"?"_s);
    if (router)
        text += u" gw "_s + *router;
    return text;
}

} // namespace VLANKit
