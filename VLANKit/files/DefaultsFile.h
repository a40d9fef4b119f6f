#pragma once

#include "VLANKit/files/Defaults.h"
#include "VLANKit/files/FileSignature.h"

namespace VLANKit {

/// Defaults in one XML property-list file. Every read looks at the file as it is now, so two
/// processes see each other's changes, and parses it only when its signature changed since the
/// last read; every change rewrites it whole, atomically. A file that can't be read counts as
/// holding nothing.
class DefaultsFile final : public DefaultsBackend
{
public:
    explicit DefaultsFile(QString path);

    [[nodiscard]] std::optional<QVariant> value(const QString &key) const override;
    void setValue(const QString &key, const QVariant &value) override;
    void remove(const QString &key) override;

    [[nodiscard]] const QString &path() const { return m_path; }
    /// How many times the file's bytes were parsed: for tests.
    [[nodiscard]] int parses() const { return m_parses; }

private:
    [[nodiscard]] QVariantMap load() const;
    void store(const QVariantMap &values) const;

    QString m_path;
    /// The values of the version of the file last read, and its signature.
    mutable QVariantMap m_values;
    mutable FileSignature m_signature;
    mutable int m_parses = 0;
};

} // namespace VLANKit
