#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <exception>

namespace VLANKit {

/// The one failure of VLANKit. Its text is the whole sentence that the user reads, written
/// where the failure is known and never wrapped on its way up.
class VLANError : public std::exception
{
public:
    enum class Case {
        authorizationFailed,
        locationNotFound,
        adapterNotFound,
        adapterCannotHostVLAN,
        tagOutOfRange,
        commitFailed,
        applyFailed,
        operationFailed,
        prefsUnavailable,
        authorizationDenied,
        noCurrentSet,
    };

    [[nodiscard]] static VLANError authorizationFailed(std::int32_t status);
    [[nodiscard]] static VLANError locationNotFound(const QString &name, const QStringList &known);
    [[nodiscard]] static VLANError adapterNotFound(const QString &name);
    [[nodiscard]] static VLANError adapterCannotHostVLAN(const QString &name);
    [[nodiscard]] static VLANError tagOutOfRange(qint64 tag);
    [[nodiscard]] static VLANError commitFailed(const QString &text);
    [[nodiscard]] static VLANError applyFailed(const QString &text);
    [[nodiscard]] static VLANError operationFailed(const QString &text);
    [[nodiscard]] static VLANError prefsUnavailable();
    [[nodiscard]] static VLANError authorizationDenied();
    [[nodiscard]] static VLANError noCurrentSet();

    [[nodiscard]] Case errorCase() const { return m_case; }
    /// The case's sentence; never empty.
    [[nodiscard]] const QString &errorDescription() const { return m_description; }
    /// The same sentence: what every failure shown to the user answers.
    [[nodiscard]] const QString &localizedDescription() const { return m_description; }

    /// Payloads, for the cases that carry them.
    [[nodiscard]] std::int32_t status() const { return m_status; }
    [[nodiscard]] qint64 tag() const { return m_tag; }
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] const QStringList &known() const { return m_known; }

    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    VLANError(Case errorCase, QString description);

    Case m_case;
    QString m_description;
    QByteArray m_utf8;
    std::int32_t m_status = 0;
    qint64 m_tag = 0;
    QString m_text;
    QStringList m_known;
};

/// The sentence of any failure, whatever its kind: a `VLANError`'s own text, else what the
/// exception says of itself.
[[nodiscard]] QString localizedDescription(const std::exception &failure);

} // namespace VLANKit
