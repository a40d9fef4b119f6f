#include "VLANKit/formats/JsonWriter.h"

#include "VLANKit/core/TextRules.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QStringList>
#include <QStringView>
#include <QVariant>

#include <cmath>

namespace VLANKit {

namespace {

QByteArray escaped(char16_t unit)
{
    switch (unit) {
    case u'"':
        return "\\\"";
    case u'\\':
        return "\\\\";
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    case u'\b':
        return "\\b";
    case u'\f':
        return "\\f";
    default:
        return "\\u00" + QByteArray::number(unit, 16).rightJustified(2, '0');
    }
}

void writeString(QByteArray &out, const QString &text)
{
    // Only quotes, backslashes and control characters are escaped; everything else, "/" and
    // every letter of every script, goes in as UTF-8, in runs so that surrogate pairs stay whole.
    out += '"';
    qsizetype runStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text.at(i).unicode();
        if (unit >= 0x20 && unit != u'"' && unit != u'\\')
            continue;
        out += QStringView(text).mid(runStart, i - runStart).toUtf8();
        out += escaped(unit);
        runStart = i + 1;
    }
    out += QStringView(text).mid(runStart).toUtf8();
    out += '"';
}

void writeNumber(QByteArray &out, const QJsonValue &value)
{
    // An integer keeps all 64 bits; a real that happens to be whole is written as one too.
    if (value.toVariant().metaType().id() == QMetaType::LongLong) {
        out += QByteArray::number(value.toVariant().toLongLong());
        return;
    }
    const double real = value.toDouble();
    if (!std::isfinite(real)) {
        out += "null";
        return;
    }
    const qint64 whole = value.toInteger(0);
    if (whole != 0 || real == 0.0) {
        out += QByteArray::number(whole);
        return;
    }
    out += QByteArray::number(real, 'g', QLocale::FloatingPointShortest);
}

void indent(QByteArray &out, int depth)
{
    out += '\n';
    out += QByteArray(qsizetype(2) * depth, ' ');
}

void writeValue(QByteArray &out, const QJsonValue &value, int depth);

void writeArray(QByteArray &out, const QJsonArray &array, int depth)
{
    if (array.isEmpty()) {
        out += "[]";
        return;
    }
    out += '[';
    bool first = true;
    for (const QJsonValue element : array) {
        if (!first)
            out += ',';
        first = false;
        indent(out, depth + 1);
        writeValue(out, element, depth + 1);
    }
    indent(out, depth);
    out += ']';
}

void writeObject(QByteArray &out, const QJsonObject &object, int depth)
{
    if (object.isEmpty()) {
        out += "{}";
        return;
    }
    QStringList keys = object.keys();
    sortStably(keys,
               [](const QString &a, const QString &b) { return compareCodePoints(a, b) < 0; });
    out += '{';
    bool first = true;
    for (const QString &key : keys) {
        if (!first)
            out += ',';
        first = false;
        indent(out, depth + 1);
        writeString(out, key);
        out += " : ";
        writeValue(out, object.value(key), depth + 1);
    }
    indent(out, depth);
    out += '}';
}

void writeValue(QByteArray &out, const QJsonValue &value, int depth)
{
    switch (value.type()) {
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        out += "null";
        break;
    case QJsonValue::Bool:
        out += value.toBool() ? "true" : "false";
        break;
    case QJsonValue::Double:
        writeNumber(out, value);
        break;
    case QJsonValue::String:
        writeString(out, value.toString());
        break;
    case QJsonValue::Array:
        writeArray(out, value.toArray(), depth);
        break;
    case QJsonValue::Object:
        writeObject(out, value.toObject(), depth);
        break;
    }
}

} // namespace

QByteArray prettyJson(const QJsonValue &value)
{
    QByteArray out;
    writeValue(out, value, 0);
    return out;
}

} // namespace VLANKit
