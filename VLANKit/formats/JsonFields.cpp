#include "VLANKit/formats/JsonFields.h"

#include "VLANKit/core/VLANError.h"

#include <QVariant>

#include <cmath>

namespace VLANKit {

using FileProblem::Kind;

std::optional<qint64> jsonInteger(const QJsonValue &value)
{
    if (!value.isDouble())
        return std::nullopt;
    // The parser keeps a number written without fraction or exponent as a 64-bit integer;
    // anything else arrives as a real, which passes only when it is whole and in range.
    const QVariant number = value.toVariant();
    if (number.metaType().id() == QMetaType::LongLong)
        return number.toLongLong();
    const double real = value.toDouble();
    constexpr double twoToThe63 = 9223372036854775808.0;
    if (!std::isfinite(real) || std::trunc(real) != real || real < -twoToThe63
        || real >= twoToThe63)
        return std::nullopt;
    return static_cast<qint64>(real);
}

std::optional<QString> jsonString(const QJsonValue &value)
{
    if (!value.isString())
        return std::nullopt;
    return value.toString();
}

std::optional<bool> jsonBool(const QJsonValue &value)
{
    if (!value.isBool())
        return std::nullopt;
    return value.toBool();
}

JsonFields::JsonFields(QJsonObject object, QString path, QString place)
    : m_object(std::move(object))
    , m_path(std::move(path))
    , m_place(std::move(place))
{}

JsonFields JsonFields::element(const QJsonValue &value, const QString &path, const QString &place)
{
    if (!value.isObject())
        throw VLANError::operationFailed(
            FileProblem::cantRead(path, FileProblem::notA(place, Kind::group)));
    return JsonFields(value.toObject(), path, place);
}

void JsonFields::fail(const QString &what) const
{
    throw VLANError::operationFailed(FileProblem::cantRead(m_path, what));
}

void JsonFields::failMistyped(const QString &key, Kind kind) const
{
    fail(FileProblem::mistyped(m_place, key, kind));
}

QJsonValue JsonFields::requiredValue(const QString &key, Kind kind) const
{
    QJsonValue value = m_object.value(key);
    if (value.isUndefined() || value.isNull())
        fail(FileProblem::missing(m_place, key, kind));
    return value;
}

std::optional<QJsonValue> JsonFields::presentValue(const QString &key) const
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return value;
}

QString JsonFields::string(const QString &key) const
{
    const auto text = jsonString(requiredValue(key, Kind::text));
    if (!text)
        failMistyped(key, Kind::text);
    return *text;
}

std::optional<QString> JsonFields::optionalString(const QString &key) const
{
    const auto value = presentValue(key);
    if (!value)
        return std::nullopt;
    auto text = jsonString(*value);
    if (!text)
        failMistyped(key, Kind::text);
    return text;
}

qint64 JsonFields::integer(const QString &key) const
{
    const auto number = jsonInteger(requiredValue(key, Kind::wholeNumber));
    if (!number)
        failMistyped(key, Kind::wholeNumber);
    return *number;
}

bool JsonFields::boolean(const QString &key) const
{
    const auto flag = jsonBool(requiredValue(key, Kind::trueOrFalse));
    if (!flag)
        failMistyped(key, Kind::trueOrFalse);
    return *flag;
}

QJsonArray JsonFields::array(const QString &key) const
{
    const QJsonValue value = requiredValue(key, Kind::list);
    if (!value.isArray())
        failMistyped(key, Kind::list);
    return value.toArray();
}

std::optional<QJsonArray> JsonFields::optionalArray(const QString &key) const
{
    const auto value = presentValue(key);
    if (!value)
        return std::nullopt;
    if (!value->isArray())
        failMistyped(key, Kind::list);
    return value->toArray();
}

QJsonObject JsonFields::object(const QString &key) const
{
    const QJsonValue value = requiredValue(key, Kind::group);
    if (!value.isObject())
        failMistyped(key, Kind::group);
    return value.toObject();
}

QStringList JsonFields::stringList(const QString &key) const
{
    const QJsonValue value = requiredValue(key, Kind::listOfTexts);
    if (!value.isArray())
        failMistyped(key, Kind::listOfTexts);
    const QJsonArray elements = value.toArray();
    QStringList strings;
    strings.reserve(elements.size());
    for (qsizetype i = 0; i < elements.size(); ++i) {
        const auto text = jsonString(elements.at(i));
        if (!text)
            fail(FileProblem::mistypedElement(m_place, key, i + 1, Kind::text));
        strings.append(*text);
    }
    return strings;
}

} // namespace VLANKit
