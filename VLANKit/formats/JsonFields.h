#pragma once

#include "VLANKit/core/FileProblem.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// An integral JSON number within a signed 64-bit integer: 1010 and 1010.0 pass; 1010.5, true,
/// "1010" and 1e20 do not.
[[nodiscard]] std::optional<qint64> jsonInteger(const QJsonValue &value);
[[nodiscard]] std::optional<QString> jsonString(const QJsonValue &value);
/// Only `true` and `false`.
[[nodiscard]] std::optional<bool> jsonBool(const QJsonValue &value);

/// The fields of one JSON object of a file, read by their exact JSON types. A required key that
/// is missing or `null`, and any key of the wrong type, throws the file's one sentence
/// (`VLANError::operationFailed`); `null` in an optional key reads as absent.
class JsonFields
{
public:
    /// `place` names the object in the sentences: "the file", "entry 3".
    JsonFields(QJsonObject object, QString path, QString place);

    /// The element of a list, which must be an object.
    [[nodiscard]] static JsonFields element(const QJsonValue &value, const QString &path,
                                            const QString &place);

    [[nodiscard]] QString string(const QString &key) const;
    [[nodiscard]] std::optional<QString> optionalString(const QString &key) const;
    [[nodiscard]] qint64 integer(const QString &key) const;
    [[nodiscard]] bool boolean(const QString &key) const;
    [[nodiscard]] QJsonArray array(const QString &key) const;
    [[nodiscard]] std::optional<QJsonArray> optionalArray(const QString &key) const;
    [[nodiscard]] QJsonObject object(const QString &key) const;
    /// A list whose every element is a string.
    [[nodiscard]] QStringList stringList(const QString &key) const;

    [[nodiscard]] const QString &path() const { return m_path; }
    [[nodiscard]] const QString &place() const { return m_place; }

    /// Throws the file's sentence with `what` as the reason.
    [[noreturn]] void fail(const QString &what) const;

private:
    /// The value under the key; throws when it is missing or `null`.
    [[nodiscard]] QJsonValue requiredValue(const QString &key, FileProblem::Kind kind) const;
    /// The value under the key; absent when it is missing or `null`.
    [[nodiscard]] std::optional<QJsonValue> presentValue(const QString &key) const;
    [[noreturn]] void failMistyped(const QString &key, FileProblem::Kind kind) const;

    QJsonObject m_object;
    QString m_path;
    QString m_place;
};

} // namespace VLANKit
