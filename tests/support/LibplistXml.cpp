#include "tests/support/LibplistXml.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <plist/plist.h>

#include <memory>

namespace OrvaneTest {

namespace {

constexpr qint64 plistEpochOffset = 978307200;

struct PlistFree
{
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistFree>;

plist_t newString(const QString &text)
{
    if (text.contains(QChar(0)))
        return nullptr;
    return plist_new_string(text.toUtf8().constData());
}

plist_t toPlist(const QVariant &value);

plist_t toArray(const QVariantList &items)
{
    PlistPtr array(plist_new_array());
    for (const QVariant &item : items) {
        plist_t node = toPlist(item);
        if (!node)
            return nullptr;
        plist_array_append_item(array.get(), node);
    }
    return array.release();
}

plist_t toDict(const QVariantMap &items)
{
    PlistPtr dict(plist_new_dict());
    for (auto it = items.constBegin(); it != items.constEnd(); ++it) {
        plist_t node = toPlist(it.value());
        if (it.key().contains(QChar(0)) || !node) {
            plist_free(node);
            return nullptr;
        }
        plist_dict_set_item(dict.get(), it.key().toUtf8().constData(), node);
    }
    return dict.release();
}

plist_t toDate(const QDateTime &when)
{
    const qint64 ms = when.toMSecsSinceEpoch() - plistEpochOffset * 1000;
    const qint64 seconds = ms >= 0 ? ms / 1000 : -((-ms + 999) / 1000);
    return plist_new_date(static_cast<int32_t>(seconds),
                          static_cast<int32_t>((ms - seconds * 1000) * 1000));
}

plist_t toPlist(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return plist_new_uint(static_cast<uint64_t>(value.toLongLong()));
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QString:
        return newString(value.toString());
    case QMetaType::QByteArray: {
        const QByteArray data = value.toByteArray();
        return plist_new_data(data.constData(), static_cast<uint64_t>(data.size()));
    }
    case QMetaType::QDateTime:
        return toDate(value.toDateTime());
    case QMetaType::QStringList:
        return toArray(QVariant(value.toStringList()).toList());
    case QMetaType::QVariantList:
        return toArray(value.toList());
    case QMetaType::QVariantMap:
        return toDict(value.toMap());
    default:
        return nullptr;
    }
}

} // namespace

std::optional<QByteArray> libplistXml(const QVariant &value)
{
    PlistPtr root(toPlist(value));
    if (!root)
        return std::nullopt;
    char *xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    if (!xml)
        return std::nullopt;
    QByteArray bytes(xml, static_cast<qsizetype>(length));
    plist_to_xml_free(xml);
    return bytes;
}

} // namespace OrvaneTest
