#include "OrvaneApp/drive/MountTable.h"
#include "VLANKit/core/TextRules.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool isOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

/// Whether `point` is `path` itself or one of its folders.
bool isPrefixAtFolder(const QString &point, const QString &path)
{
    if (point == u"/"_s)
        return path.startsWith(u'/');
    if (!path.startsWith(point))
        return false;
    return path.size() == point.size() || path.at(point.size()) == u'/';
}

} // namespace

namespace MountTable {

QString decodeEscapes(const QString &field)
{
    // The table is bytes; decoding as bytes keeps a name in UTF-8 whole.
    const QByteArray bytes = field.toUtf8();
    QByteArray decoded;
    decoded.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) == '\\' && i + 3 < bytes.size() && bytes.at(i + 1) >= '0'
            && bytes.at(i + 1) <= '3' && isOctalDigit(bytes.at(i + 2))
            && isOctalDigit(bytes.at(i + 3))) {
            const int value = (bytes.at(i + 1) - '0') * 64 + (bytes.at(i + 2) - '0') * 8
                              + (bytes.at(i + 3) - '0');
            decoded.append(char(value));
            i += 3;
            continue;
        }
        decoded.append(bytes.at(i));
    }
    return QString::fromUtf8(decoded);
}

std::optional<MountEntry> parseLine(const QString &line)
{
    // Fields: ID, parent ID, MAJOR:MINOR, root, point, options, optional fields, "-", type,
    // source, super options. The optional fields vary in number, so the dash is searched.
    const QStringList fields = VLANKit::splitAtBlanks(line);
    const qsizetype dash = fields.indexOf(u"-"_s, 6);
    if (dash < 0 || dash + 2 >= fields.size())
        return std::nullopt;
    const std::optional<qint64> id = VLANKit::parseInteger(fields.at(0));
    const QStringList numbers = fields.at(2).split(u':');
    if (!id || numbers.size() != 2)
        return std::nullopt;
    const std::optional<qint64> major = VLANKit::parseInteger(numbers.at(0));
    const std::optional<qint64> minor = VLANKit::parseInteger(numbers.at(1));
    if (!major || !minor)
        return std::nullopt;
    MountEntry entry;
    entry.id = *id;
    entry.major = *major;
    entry.minor = *minor;
    entry.deviceNumbers = fields.at(2);
    entry.point = decodeEscapes(fields.at(4));
    entry.fileSystemType = decodeEscapes(fields.at(dash + 1));
    entry.source = decodeEscapes(fields.at(dash + 2));
    return entry;
}

std::optional<MountEntry> holding(const QString &table, const QString &path)
{
    std::optional<MountEntry> best;
    for (const QString &line : table.split(u'\n', Qt::SkipEmptyParts)) {
        const std::optional<MountEntry> entry = parseLine(line);
        if (!entry || !isPrefixAtFolder(entry->point, path))
            continue;
        if (!best || entry->point.size() >= best->point.size())
            best = entry;
    }
    return best;
}

} // namespace MountTable
