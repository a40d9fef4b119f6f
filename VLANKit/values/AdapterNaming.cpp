#include "VLANKit/values/AdapterNaming.h"

#include "VLANKit/core/TextRules.h"

using namespace Qt::StringLiterals;

namespace VLANKit::AdapterNaming {

QString label(const AdapterRecord &adapter)
{
    if (adapter.isNamed()) {
        const QStringList words = splitAtBlanks(*adapter.serviceName);
        if (!words.isEmpty())
            return words.first();
    }
    return adapter.bsdName;
}

QString stripped(const QString &name, const QSet<QString> &knownLabels)
{
    const QString trimmed = trimSpacesAndTabs(name);
    if (!trimmed.endsWith(u')'))
        return trimmed;
    const qsizetype open = trimmed.lastIndexOf(u'(');
    if (open < 0)
        return trimmed;
    const QString candidate = trimmed.mid(open + 1, trimmed.size() - open - 2);
    if (!knownLabels.contains(candidate))
        return trimmed;
    return trimSpacesAndTabs(trimmed.left(open));
}

QString compose(const QString &name, const QString &label, const QSet<QString> &knownLabels)
{
    const QString base = stripped(name, knownLabels);
    if (label.isEmpty())
        return base;
    return base + u" ("_s + label + u')';
}

} // namespace VLANKit::AdapterNaming
