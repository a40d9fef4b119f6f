#include "VLANKit/formats/PropertyListStrings.h"

#include <cstdint>
#include <optional>

namespace VLANKit::PropertyListStrings {

namespace {

constexpr QByteArrayView binaryMagic("bplist00");
constexpr qsizetype trailerSize = 32;

// A big-endian unsigned integer of `width` bytes at `at`; absent past the end or too wide.
std::optional<quint64> bigEndian(QByteArrayView data, qsizetype at, qsizetype width)
{
    if (width < 1 || width > 8 || at < 0 || at > data.size() - width)
        return std::nullopt;
    quint64 value = 0;
    for (qsizetype i = 0; i < width; ++i)
        value = (value << 8) | static_cast<quint8>(data[at + i]);
    return value;
}

// Whether the string object at `at` holds a NUL: ASCII (marker 0x5n) or UTF-16 (0x6n), whose
// length is the low nibble or, when that is 0xF, an integer object (0x1n, 2^n bytes) after it.
bool stringObjectHoldsNul(QByteArrayView data, qsizetype at)
{
    const auto marker = bigEndian(data, at, 1);
    if (!marker)
        return false;
    const quint64 kind = *marker >> 4;
    if (kind != 0x5 && kind != 0x6)
        return false;
    quint64 count = *marker & 0xF;
    qsizetype start = at + 1;
    if (count == 0xF) {
        const auto lengthMarker = bigEndian(data, start, 1);
        if (!lengthMarker || (*lengthMarker >> 4) != 0x1)
            return false;
        const qsizetype width = qsizetype(1) << (*lengthMarker & 0xF);
        const auto length = bigEndian(data, start + 1, width);
        if (!length)
            return false;
        count = *length;
        start += 1 + width;
    }
    const quint64 unit = kind == 0x6 ? 2 : 1;
    if (count > quint64(data.size()) / unit || start > data.size() - qsizetype(count * unit))
        return false;
    for (qsizetype i = 0; i < qsizetype(count); ++i) {
        const qsizetype first = start + i * qsizetype(unit);
        if (data[first] == '\0' && (unit == 1 || data[first + 1] == '\0'))
            return true;
    }
    return false;
}

bool binaryHoldsNul(QByteArrayView data)
{
    if (data.size() < binaryMagic.size() + trailerSize)
        return false;
    const qsizetype trailer = data.size() - trailerSize;
    const auto offsetWidth = bigEndian(data, trailer + 6, 1);
    const auto objectCount = bigEndian(data, trailer + 8, 8);
    const auto tableAt = bigEndian(data, trailer + 24, 8);
    if (!offsetWidth || !objectCount || !tableAt || *tableAt > quint64(trailer))
        return false;
    const auto width = qsizetype(*offsetWidth);
    // Each entry of the offset table takes `width` bytes: a count the file can't hold is damage.
    if (width < 1 || width > 8 || *objectCount > quint64(trailer) / quint64(width))
        return false;
    for (quint64 object = 0; object < *objectCount; ++object) {
        const auto offset = bigEndian(data, qsizetype(*tableAt) + qsizetype(object) * width, width);
        if (!offset)
            return false;
        // libplist reads only the objects it reaches from the top, and doesn't mind a damaged
        // entry elsewhere in the table: one such entry must not hide a NUL in the next.
        if (*offset >= quint64(trailer))
            continue;
        if (stringObjectHoldsNul(data, qsizetype(*offset)))
            return true;
    }
    return false;
}

} // namespace

bool holdNul(QByteArrayView data)
{
    if (data.startsWith(binaryMagic))
        return binaryHoldsNul(data);
    return data.contains('\0');
}

} // namespace VLANKit::PropertyListStrings
