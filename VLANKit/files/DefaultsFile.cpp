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
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto parsed = parsePropertyList(file.readAll());
    return parsed ? anyMap(*parsed).value_or(QVariantMap()) : QVariantMap();
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
