#include "VLANKit/platform/document/PreferencesFile.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace VLANKit {

PreferencesFile::PreferencesFile(QString path)
    : m_path(std::move(path))
{}

PreferencesFile::Reading PreferencesFile::read()
{
    const FileSignature now = FileSignature::ofPath(m_path);
    // A commit replaces the file by a rename and an edit changes its time or size: the same
    // signature is the same bytes.
    if (m_last && !now.isMissing() && now == m_last->signature)
        return {m_last, false, {}};
    QFile file(m_path);
    if (!file.exists())
        return {nullptr, true, {}};
    if (!file.open(QIODevice::ReadOnly)) {
        return {nullptr, false,
                curlyQuoted(m_path) + u" can\u2019t be read: "_s + file.errorString() + u"."_s};
    }
    auto parsed = std::make_shared<ParsedPreferences>();
    // Taken from the open file, so that the signature belongs to the bytes read.
    parsed->signature = FileSignature::ofDescriptor(static_cast<int>(file.handle()));
    ++m_parses;
    QString why = u"it holds no property list whose top level is a dictionary"_s;
    const std::optional<QVariant> value = parsePropertyList(file, {}, &why);
    const std::optional<QVariantMap> root = value ? anyMap(*value) : std::nullopt;
    if (!root) {
        // The system would start from nothing and write over the file at the next commit; a
        // file that a person edited by hand is refused instead, and left as it is.
        return {nullptr, false,
                curlyQuoted(m_path) + u" can\u2019t be read: "_s + why
                    + u". The file was left as it is."_s};
    }
    parsed->root = *root;
    m_last = std::move(parsed);
    return {m_last, false, {}};
}

} // namespace VLANKit
