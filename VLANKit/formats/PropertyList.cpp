#include "VLANKit/formats/PropertyList.h"

#include "VLANKit/core/FileProblem.h"
#include "VLANKit/formats/PropertyListStrings.h"
#include "VLANKit/formats/PropertyListXmlWriter.h"

#include <QDateTime>
#include <QVariantList>
#include <QVariantMap>

#include <plist/plist.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

// Seconds between the Unix epoch and the property-list epoch, 2001-01-01 00:00:00 UTC.
constexpr qint64 plistEpochOffset = 978307200;

struct PlistFree
{
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistFree>;

// Counts the nesting of <dict> and <array> in XML text without parsing it, so that a document
// nested deeper than any real one never reaches libplist's recursive parser.
int xmlNestingDepth(const QByteArray &xml)
{
    int depth = 0;
    int deepest = 0;
    const char *text = xml.constData();
    const qsizetype size = xml.size();
    for (qsizetype at = 0; at < size; ++at) {
        if (text[at] != '<')
            continue;
        const QByteArrayView rest(text + at + 1, size - at - 1);
        const bool closing = rest.startsWith("/");
        const QByteArrayView name = closing ? rest.sliced(1) : rest;
        if (!name.startsWith("dict") && !name.startsWith("array"))
            continue;
        const qsizetype close = rest.indexOf('>');
        const bool selfClosing = close > 0 && rest.at(close - 1) == '/';
        if (closing)
            --depth;
        else if (!selfClosing)
            deepest = std::max(deepest, ++depth);
    }
    return deepest;
}

QVariant toVariant(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return QVariant(value != 0);
    }
    case PLIST_UINT: {
        // libplist 2.2 reads every integer as unsigned 64-bit: a negative one arrives as its
        // two's complement, which the cast turns back.
        uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return QVariant(static_cast<qint64>(value));
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return QVariant(value);
    }
    case PLIST_STRING: {
        // Read with its length: libplist asserts when a copied text is longer than its C string.
        uint64_t length = 0;
        const char *value = plist_get_string_ptr(node, &length);
        return QVariant(QString::fromUtf8(value, value ? static_cast<qsizetype>(length) : 0));
    }
    case PLIST_DATA: {
        char *bytes = nullptr;
        uint64_t length = 0;
        plist_get_data_val(node, &bytes, &length);
        QByteArray data(bytes, static_cast<qsizetype>(length));
        free(bytes);
        return QVariant(data);
    }
    case PLIST_DATE: {
        int32_t seconds = 0;
        int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        // libplist keeps whole seconds in 32 bits; far outside that range the fraction it gives
        // is garbage, which would carry the date further than any file can say.
        microseconds = std::clamp(microseconds, -999999, 999999);
        const qint64 ms = (plistEpochOffset + seconds) * 1000 + microseconds / 1000;
        return QVariant(QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC));
    }
    case PLIST_ARRAY: {
        QVariantList list;
        const uint32_t count = plist_array_get_size(node);
        list.reserve(count);
        for (uint32_t i = 0; i < count; ++i) {
            QVariant item = toVariant(plist_array_get_item(node, i));
            // A kind no settings file holds (a keyed archive's UID, say) makes the whole list
            // unreadable: read as absent, it would be lost at the next write.
            if (!item.isValid())
                return {};
            list.append(std::move(item));
        }
        return QVariant(list);
    }
    case PLIST_DICT: {
        QVariantMap map;
        plist_dict_iter iter = nullptr;
        plist_dict_new_iter(node, &iter);
        for (;;) {
            char *key = nullptr;
            plist_t value = nullptr;
            plist_dict_next_item(node, iter, &key, &value);
            if (!key)
                break;
            QVariant item = toVariant(value);
            map.insert(QString::fromUtf8(key), item);
            free(key);
            if (!item.isValid()) {
                free(iter);
                return {};
            }
        }
        free(iter);
        return QVariant(map);
    }
    default:
        return {};
    }
}

} // namespace

std::optional<QVariant> parsePropertyList(const QByteArray &data, PropertyListLimits limits,
                                          QString *why)
{
    const auto refuse = [why](const QString &reason) -> std::optional<QVariant> {
        if (why)
            *why = reason;
        return std::nullopt;
    };
    if (data.isEmpty())
        return refuse(FileProblem::isEmpty());
    if (data.size() > limits.maxBytes)
        return refuse(FileProblem::tooLarge(data.size(), u"property list"_s));
    if (PropertyListStrings::holdNul(data))
        return refuse(u"it holds a NUL character inside a text"_s);
    const auto length = static_cast<uint32_t>(data.size());
    plist_t root = nullptr;
    if (plist_is_binary(data.constData(), length)) {
        plist_from_bin(data.constData(), length, &root);
    } else {
        if (xmlNestingDepth(data) > limits.maxDepth)
            return refuse(u"it is nested more than %1 levels deep"_s.arg(limits.maxDepth));
        plist_from_xml(data.constData(), length, &root);
    }
    // libplist's parsers report no error code: no node is the failure.
    if (!root)
        return std::nullopt;
    PlistPtr owner(root);
    QVariant value = toVariant(root);
    if (!value.isValid())
        return refuse(
            u"it holds a value that is no text, number, date, data, list or dictionary"_s);
    return value;
}

std::optional<QVariant> parsePropertyList(QIODevice &device, PropertyListLimits limits,
                                          QString *why)
{
    const qint64 left = device.size() - device.pos();
    if (!device.isSequential() && left > limits.maxBytes) {
        if (why)
            *why = FileProblem::tooLarge(left, u"property list"_s);
        return std::nullopt;
    }
    return parsePropertyList(device.read(limits.maxBytes + 1), limits, why);
}

std::optional<QByteArray> xmlPropertyList(const QVariant &value)
{
    return PropertyListXmlWriter::write(value);
}

} // namespace VLANKit
