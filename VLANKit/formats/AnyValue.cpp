#include "VLANKit/formats/AnyValue.h"

#include <limits>

namespace VLANKit {

namespace {

int typeOf(const QVariant &value)
{
    return value.metaType().id();
}

template <typename Reader>
auto lookUp(const QVariantMap &map, const QString &key, Reader read) -> decltype(read(QVariant()))
{
    const auto found = map.constFind(key);
    if (found == map.constEnd())
        return std::nullopt;
    return read(found.value());
}

} // namespace

std::optional<QString> anyString(const QVariant &value)
{
    if (typeOf(value) != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

std::optional<qint64> anyInteger(const QVariant &value)
{
    switch (typeOf(value)) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::Long:
        return value.toLongLong();
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::UShort:
    case QMetaType::ULong: {
        const qulonglong unsignedValue = value.toULongLong();
        if (unsignedValue > static_cast<qulonglong>(std::numeric_limits<qint64>::max()))
            return std::nullopt;
        return static_cast<qint64>(unsignedValue);
    }
    default:
        return std::nullopt;
    }
}

std::optional<double> anyReal(const QVariant &value)
{
    if (typeOf(value) != QMetaType::Double && typeOf(value) != QMetaType::Float)
        return std::nullopt;
    return value.toDouble();
}

std::optional<bool> anyBool(const QVariant &value)
{
    if (typeOf(value) != QMetaType::Bool)
        return std::nullopt;
    return value.toBool();
}

std::optional<QByteArray> anyData(const QVariant &value)
{
    if (typeOf(value) != QMetaType::QByteArray)
        return std::nullopt;
    return value.toByteArray();
}

std::optional<QVariantList> anyList(const QVariant &value)
{
    if (typeOf(value) == QMetaType::QVariantList)
        return value.toList();
    if (typeOf(value) == QMetaType::QStringList) {
        QVariantList list;
        for (const QString &element : value.toStringList())
            list.append(element);
        return list;
    }
    return std::nullopt;
}

std::optional<QVariantMap> anyMap(const QVariant &value)
{
    if (typeOf(value) != QMetaType::QVariantMap)
        return std::nullopt;
    return value.toMap();
}

std::optional<QStringList> anyStringList(const QVariant &value)
{
    if (typeOf(value) == QMetaType::QStringList)
        return value.toStringList();
    const auto list = anyList(value);
    if (!list)
        return std::nullopt;
    QStringList strings;
    strings.reserve(list->size());
    for (const QVariant &element : *list) {
        const auto string = anyString(element);
        if (!string)
            return std::nullopt;
        strings.append(*string);
    }
    return strings;
}

QStringList anyStringsOf(const QVariant &value)
{
    QStringList strings;
    if (const auto list = anyList(value)) {
        for (const QVariant &element : *list) {
            if (const auto string = anyString(element))
                strings.append(*string);
        }
    }
    return strings;
}

std::optional<QString> stringIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyString);
}

std::optional<qint64> integerIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyInteger);
}

std::optional<bool> boolIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyBool);
}

std::optional<QByteArray> dataIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyData);
}

std::optional<QVariantList> listIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyList);
}

std::optional<QVariantMap> mapIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyMap);
}

std::optional<QStringList> stringListIn(const QVariantMap &map, const QString &key)
{
    return lookUp(map, key, anyStringList);
}

} // namespace VLANKit
