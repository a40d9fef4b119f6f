#include "OrvaneApp/model/Appearance.h"

#include "VLANKit/files/Defaults.h"

using namespace Qt::StringLiterals;

namespace {
const QString storedKey = u"Orvane.appearance"_s;
}

QString rawValue(Appearance appearance)
{
    switch (appearance) {
    case Appearance::system:
        return u"system"_s;
    case Appearance::light:
        return u"light"_s;
    case Appearance::dark:
        return u"dark"_s;
    }
    return u"system"_s;
}

Appearance loadAppearance(const VLANKit::Defaults &defaults)
{
    const QString stored = defaults.string(storedKey).value_or(QString());
    for (Appearance appearance : {Appearance::light, Appearance::dark}) {
        if (rawValue(appearance) == stored)
            return appearance;
    }
    return Appearance::system;
}

void saveAppearance(Appearance appearance, VLANKit::Defaults &defaults)
{
    defaults.setString(storedKey, rawValue(appearance));
}
