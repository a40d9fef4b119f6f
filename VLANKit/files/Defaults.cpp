#include "VLANKit/files/Defaults.h"

#include "VLANKit/files/DefaultsFile.h"
#include "VLANKit/formats/AnyValue.h"

namespace VLANKit {

Defaults::Defaults(std::shared_ptr<DefaultsBackend> backend)
    : m_backend(std::move(backend))
{}

Defaults Defaults::inFile(const QString &path)
{
    return Defaults(std::make_shared<DefaultsFile>(path));
}

std::optional<QVariant> Defaults::value(const QString &key) const
{
    return m_backend->value(key);
}

std::optional<QByteArray> Defaults::data(const QString &key) const
{
    const auto stored = value(key);
    return stored ? anyData(*stored) : std::nullopt;
}

std::optional<QString> Defaults::string(const QString &key) const
{
    const auto stored = value(key);
    return stored ? anyString(*stored) : std::nullopt;
}

std::optional<QStringList> Defaults::stringList(const QString &key) const
{
    const auto stored = value(key);
    return stored ? anyStringList(*stored) : std::nullopt;
}

std::optional<QList<QVariantMap>> Defaults::mapList(const QString &key) const
{
    const auto stored = value(key);
    const auto list = stored ? anyList(*stored) : std::nullopt;
    if (!list)
        return std::nullopt;
    QList<QVariantMap> maps;
    maps.reserve(list->size());
    for (const QVariant &element : *list) {
        const auto map = anyMap(element);
        if (!map)
            return std::nullopt;
        maps.append(*map);
    }
    return maps;
}

void Defaults::setData(const QString &key, const QByteArray &data)
{
    m_backend->setValue(key, QVariant(data));
}

void Defaults::setString(const QString &key, const QString &string)
{
    m_backend->setValue(key, QVariant(string));
}

void Defaults::setStringList(const QString &key, const QStringList &strings)
{
    QVariantList list;
    list.reserve(strings.size());
    for (const QString &string : strings)
        list.append(string);
    m_backend->setValue(key, QVariant(list));
}

void Defaults::setMapList(const QString &key, const QList<QVariantMap> &maps)
{
    QVariantList list;
    list.reserve(maps.size());
    for (const QVariantMap &map : maps)
        list.append(map);
    m_backend->setValue(key, QVariant(list));
}

void Defaults::setValue(const QString &key, const QVariant &value)
{
    m_backend->setValue(key, value);
}

void Defaults::remove(const QString &key)
{
    m_backend->remove(key);
}

} // namespace VLANKit
