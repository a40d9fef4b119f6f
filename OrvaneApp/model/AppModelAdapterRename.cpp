// Naming an adapter: the sheet's text, and one change through `apply` that the store carries
// into every VLAN name on the adapter.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/TextRules.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace VLANKit;

void AppModel::beginRenamingAdapter()
{
    const AdapterRecord *adapter = selectedAdapterRecord();
    if (!adapter)
        return;
    setRenamingAdapter(adapter->bsdName);
    // A name that merely repeats the hardware's is no starting point.
    setAdapterNewName(adapter->isNamed() ? *adapter->serviceName : QString());
}

std::optional<QString> AppModel::adapterNameIssue() const
{
    const QString name = trimWhitespaceAndNewlines(m_adapterNewName);
    if (!name.isEmpty() && (name.contains(u'(') || name.contains(u')')))
        return u"Brackets clash with the adapter suffix in VLAN names."_s;
    return std::nullopt;
}

bool AppModel::canRenameAdapter() const
{
    return !trimWhitespaceAndNewlines(m_adapterNewName).isEmpty() && !adapterNameIssue();
}

void AppModel::commitAdapterRename()
{
    if (!m_renamingAdapter)
        return;
    const QString bsdName = *m_renamingAdapter;
    const QString to = trimWhitespaceAndNewlines(m_adapterNewName);
    const auto adapter =
        std::find_if(m_adapters.begin(), m_adapters.end(),
                     [&](const AdapterRecord &each) { return each.bsdName == bsdName; });
    // An adapter pulled out while the sheet was open is known by its kernel name alone.
    const QString from = adapter == m_adapters.end() ? bsdName : adapter->friendlyName();
    // The sheet closes before the write: a failure shows in the result, not in the sheet.
    setRenamingAdapter(std::nullopt);
    apply({PlannedChange::RenameAdapter{bsdName, from, to}});
}
