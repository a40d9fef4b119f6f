#include "orvanectl/Output.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/JsonWriter.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace Orvanectl {

namespace {

void write(std::FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

void writeOut(const QString &text)
{
    write(stdout, text);
}

void writeError(const QString &text)
{
    write(stderr, text);
}

void writeLines(const QStringList &lines)
{
    QString text;
    for (const QString &line : lines)
        text += line + u'\n';
    writeOut(text);
}

void writeJson(const QJsonObject &document)
{
    QByteArray bytes = VLANKit::prettyJson(document);
    if (!bytes.endsWith('\n'))
        bytes += '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

QStringList table(const QList<QStringList> &rows)
{
    // Each cell's width is counted once: counting characters walks the whole text.
    QList<QList<qsizetype>> cellWidths;
    cellWidths.reserve(rows.size());
    QList<qsizetype> widths;
    for (const QStringList &row : rows) {
        QList<qsizetype> &cells = cellWidths.emplace_back();
        for (qsizetype column = 0; column < row.size(); ++column) {
            cells.append(VLANKit::characterCount(row.at(column)));
            if (widths.size() <= column)
                widths.append(0);
            widths[column] = std::max(widths[column], std::min(cells.last(), widestColumn));
        }
    }
    QStringList lines;
    lines.reserve(rows.size());
    for (qsizetype at = 0; at < rows.size(); ++at) {
        const QStringList &row = rows.at(at);
        QString line;
        for (qsizetype column = 0; column < row.size(); ++column) {
            line += row.at(column);
            if (column + 1 < row.size())
                line += QString(std::max(widths[column] - cellWidths[at][column], qsizetype(0)) + 2,
                                u' ');
        }
        lines.append(line);
    }
    return lines;
}

QString counted(qsizetype count, const QString &noun)
{
    return QString::number(count) + u' ' + noun + (count == 1 ? u""_s : u"s"_s);
}

QString orDash(const std::optional<QString> &text)
{
    return text ? *text : VLANKit::notReported();
}

QJsonValue jsonText(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

QJsonValue jsonNumber(const std::optional<qint64> &number)
{
    return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

} // namespace Orvanectl
