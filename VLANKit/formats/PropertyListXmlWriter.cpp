#include "VLANKit/formats/PropertyListXmlWriter.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace VLANKit::PropertyListXmlWriter {

namespace {

// Seconds between the Unix epoch and the property-list epoch, 2001-01-01 00:00:00 UTC.
constexpr qint64 plistEpochOffset = 978307200;

// libplist stops indenting base64 lines at eight tabs, and fits each line into 76 columns
// counting a tab as eight.
constexpr int deepestDataIndent = 8;

int dataBytesPerLine(int indent)
{
    return ((76 - indent * 8) / 4) * 3;
}

// Appends to a std::string: QByteArray's append goes through its general insert, which costs
// more than the characters it copies when most appends are a tag or a short name.
class Writer
{
public:
    std::string bytes;

    bool value(const QVariant &value, int depth)
    {
        switch (value.metaType().id()) {
        case QMetaType::Bool:
            indent(depth);
            bytes.append(value.toBool() ? "<true/>\n" : "<false/>\n");
            return true;
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Long:
        case QMetaType::ULong:
            integer(value.toLongLong(), depth);
            return true;
        case QMetaType::Double:
        case QMetaType::Float:
            real(value.toDouble(), depth);
            return true;
        case QMetaType::QString:
            return text("string", value.toString(), depth);
        case QMetaType::QByteArray:
            data(value.toByteArray(), depth);
            return true;
        case QMetaType::QDateTime:
            date(value.toDateTime(), depth);
            return true;
        case QMetaType::QStringList:
            return stringList(value.toStringList(), depth);
        case QMetaType::QVariantList:
            return list(value.toList(), depth);
        case QMetaType::QVariantMap:
            return map(value.toMap(), depth);
        default:
            return false;
        }
    }

private:
    void indent(int depth) { bytes.append(static_cast<size_t>(depth), '\t'); }

    void open(const char *tag) { bytes.append(1, '<').append(tag).append(1, '>'); }
    void close(const char *tag) { bytes.append("</").append(tag).append(">\n"); }

    void element(const char *tag, std::string_view content, int depth)
    {
        indent(depth);
        open(tag);
        bytes.append(content);
        close(tag);
    }

    void integer(qint64 number, int depth)
    {
        char digits[24];
        const auto written = std::to_chars(digits, digits + sizeof digits, number);
        element("integer", std::string_view(digits, static_cast<size_t>(written.ptr - digits)),
                depth);
    }

    // The shortest form that reads back exactly, as printf's "%.17g" gives it, whatever the
    // locale: libplist turns a decimal comma back into a point.
    void real(double number, int depth)
    {
        if (std::isnan(number))
            return element("real", "nan", depth);
        if (std::isinf(number))
            return element("real", number > 0 ? "+infinity" : "-infinity", depth);
        if (number == 0.0)
            return element("real", "0.0", depth);
        char digits[40];
        const auto written =
            std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 17);
        element("real", std::string_view(digits, static_cast<size_t>(written.ptr - digits)), depth);
    }

    // libplist keeps whole seconds, cut toward the property-list epoch, in 32 bits: a date
    // beyond them stops at their end, so that what is written reads back the same.
    void date(const QDateTime &when, int depth)
    {
        const qint64 sinceEpoch = std::clamp<qint64>(
            (when.toMSecsSinceEpoch() - plistEpochOffset * 1000) / 1000,
            std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
        const qint64 seconds = sinceEpoch + plistEpochOffset;
        const QDateTime whole = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
        element("date", whole.toString(Qt::ISODate).toStdString(), depth);
    }

    bool text(const char *tag, const QString &content, int depth)
    {
        if (content.contains(QChar(0)))
            return false;
        indent(depth);
        open(tag);
        if (isAscii(content))
            appendEscaped(content);
        else
            appendEscaped(content.toUtf8());
        close(tag);
        return true;
    }

    static bool isAscii(QStringView text)
    {
        return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    }

    static const char *entity(char c)
    {
        switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        default:
            return nullptr;
        }
    }

    // Names, identifiers and addresses are ASCII: they go byte by byte, without a UTF-8 copy.
    void appendEscaped(const QString &ascii)
    {
        for (const QChar c : ascii) {
            const char byte = static_cast<char>(c.unicode());
            if (const char *replacement = entity(byte))
                bytes.append(replacement);
            else
                bytes.push_back(byte);
        }
    }

    void appendEscaped(const QByteArray &utf8)
    {
        for (const char byte : utf8) {
            if (const char *replacement = entity(byte))
                bytes.append(replacement);
            else
                bytes.push_back(byte);
        }
    }

    void data(const QByteArray &content, int depth)
    {
        indent(depth);
        bytes.append("<data>\n");
        const int lineIndent = std::min(depth, deepestDataIndent);
        const qsizetype perLine = dataBytesPerLine(lineIndent);
        for (qsizetype at = 0; at < content.size(); at += perLine) {
            indent(lineIndent);
            const QByteArray line =
                content.sliced(at, std::min(perLine, content.size() - at)).toBase64();
            bytes.append(line.constData(), static_cast<size_t>(line.size())).push_back('\n');
        }
        indent(depth);
        bytes.append("</data>\n");
    }

    template <typename Container, typename Each>
    bool container(const char *tag, const Container &items, int depth, Each each)
    {
        indent(depth);
        if (items.isEmpty()) {
            bytes.append(1, '<').append(tag).append("/>\n");
            return true;
        }
        open(tag);
        bytes.push_back('\n');
        if (!each())
            return false;
        indent(depth);
        close(tag);
        return true;
    }

    bool stringList(const QStringList &items, int depth)
    {
        return container("array", items, depth, [&] {
            for (const QString &item : items)
                if (!text("string", item, depth + 1))
                    return false;
            return true;
        });
    }

    bool list(const QVariantList &items, int depth)
    {
        return container("array", items, depth, [&] {
            for (const QVariant &item : items)
                if (!value(item, depth + 1))
                    return false;
            return true;
        });
    }

    bool map(const QVariantMap &items, int depth)
    {
        return container("dict", items, depth, [&] {
            for (auto it = items.constBegin(); it != items.constEnd(); ++it)
                if (!text("key", it.key(), depth + 1) || !value(it.value(), depth + 1))
                    return false;
            return true;
        });
    }
};

constexpr char prolog[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                          "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                          "<plist version=\"1.0\">\n";
constexpr char epilog[] = "</plist>\n";

} // namespace

std::optional<QByteArray> write(const QVariant &value)
{
    Writer writer;
    writer.bytes.reserve(4096);
    writer.bytes.append(prolog);
    if (!writer.value(value, 0))
        return std::nullopt;
    writer.bytes.append(epilog);
    return QByteArray(writer.bytes.data(), static_cast<qsizetype>(writer.bytes.size()));
}

} // namespace VLANKit::PropertyListXmlWriter
