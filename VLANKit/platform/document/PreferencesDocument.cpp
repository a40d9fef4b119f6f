#include "VLANKit/platform/document/PreferencesDocument.h"

#include <QList>

namespace VLANKit {

QVariantMap *mutableMapIn(QVariant &value)
{
    if (value.metaType().id() != QMetaType::QVariantMap)
        return nullptr;
    return static_cast<QVariantMap *>(value.data());
}

const QVariantMap *mapIn(const QVariant &value)
{
    if (value.metaType().id() != QMetaType::QVariantMap)
        return nullptr;
    return static_cast<const QVariantMap *>(value.constData());
}

QVariantList *mutableListIn(QVariant &value)
{
    if (value.metaType().id() != QMetaType::QVariantList)
        return nullptr;
    return static_cast<QVariantList *>(value.data());
}

QVariant storedForm(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::QVariantMap: {
        QVariantMap map;
        const QVariantMap &given = *mapIn(value);
        for (auto entry = given.constBegin(); entry != given.constEnd(); ++entry)
            map.insert(entry.key(), storedForm(entry.value()));
        return map;
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        QVariantList list;
        for (const QVariant &element : value.toList())
            list.append(storedForm(element));
        return list;
    }
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return QVariant(value.toLongLong());
    case QMetaType::Float:
        return QVariant(value.toDouble());
    default:
        return value;
    }
}

const QVariant *PreferencesDocument::value(const QStringList &path) const
{
    const QVariantMap *map = &m_root;
    const QVariant *found = nullptr;
    for (const QString &key : path) {
        if (!map)
            return nullptr;
        const auto at = map->constFind(key);
        if (at == map->constEnd())
            return nullptr;
        found = &at.value();
        map = mapIn(*found);
    }
    return found;
}

const QVariantMap *PreferencesDocument::map(const QStringList &path) const
{
    if (path.isEmpty())
        return &m_root;
    const QVariant *found = value(path);
    return found ? mapIn(*found) : nullptr;
}

QVariantMap *PreferencesDocument::mutableMap(const QStringList &path)
{
    QVariantMap *map = &m_root;
    for (const QString &key : path) {
        QVariant &step = (*map)[key];
        if (!step.isValid())
            step = QVariantMap();
        map = mutableMapIn(step);
        if (!map)
            return nullptr;
    }
    return map;
}

QVariant *PreferencesDocument::mutableValue(const QStringList &path)
{
    if (path.isEmpty() || !value(path))
        return nullptr;
    QVariantMap *parent = mutableMap(path.first(path.size() - 1));
    return parent ? &(*parent)[path.last()] : nullptr;
}

bool PreferencesDocument::setValue(const QStringList &path, const QVariant &value)
{
    if (path.isEmpty())
        return false;
    QVariantMap *parent = mutableMap(path.first(path.size() - 1));
    if (!parent)
        return false;
    parent->insert(path.last(), value);
    return true;
}

bool PreferencesDocument::remove(const QStringList &path)
{
    if (path.isEmpty() || !value(path))
        return false;
    // Walk down once, keeping each dictionary on the way, then prune upwards.
    QList<QVariantMap *> chain{&m_root};
    for (qsizetype at = 0; at + 1 < path.size(); ++at)
        chain.append(mutableMapIn((*chain.last())[path.at(at)]));
    chain.last()->remove(path.last());
    for (qsizetype at = chain.size() - 1; at > 0 && chain.at(at)->isEmpty(); --at)
        chain.at(at - 1)->remove(path.at(at - 1));
    return true;
}

} // namespace VLANKit
