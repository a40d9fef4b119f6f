#include "VLANKit/files/DefaultsFile.h"

#include "VLANKit/files/AtomicFile.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace VLANKit {

DefaultsFile::DefaultsFile(QString path)
    : m_path(std::move(path))
{}

std::optional<QVariant> DefaultsFile::value(const QString &key) const
{
    const QVariantMap values = load();
    const auto found = values.constFind(key);
    if (found == values.constEnd())
        return std::nullopt;
    return found.value();
}

void DefaultsFile::setValue(const QString &key, const QVariant &value)
{
    QVariantMap values = load();
    values.insert(key, value);
    store(values);
}

void DefaultsFile::remove(const QString &key)
{
    QVariantMap values = load();
    if (values.remove(key) > 0)
        store(values);
}

QVariantMap DefaultsFile::load() const
{
    // Every write replaces the file by a rename, and an edit changes its time or size: the
    // same signature is the same bytes.
    const FileSignature now = FileSignature::ofPath(m_path);
    if (!now.isMissing() && now == m_signature)
        return m_values;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_signature = {};
        return {};
    }
    m_signature = FileSignature::ofDescriptor(static_cast<int>(file.handle()));
    ++m_parses;
    const auto parsed = parsePropertyList(file);
    m_values = parsed ? anyMap(*parsed).value_or(QVariantMap()) : QVariantMap();
    return m_values;
}

void DefaultsFile::store(const QVariantMap &values) const
{
    const auto xml = xmlPropertyList(values);
    if (!xml)
        return;
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    // Remembered settings are a convenience: a write that fails leaves the old file, unharmed.
    (void)writeFileAtomically(m_path, *xml);
}

} // namespace VLANKit
