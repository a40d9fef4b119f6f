#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

/// The rules of text that every part of Orvane shares: trimming, integer parsing, dotted quads,
/// character counts, Unicode numbers, canonical comparison and stable sorting. Nothing else in
/// the code trims, parses or compares names on its own.
namespace VLANKit {

/// What stands for an identifier or name that the system doesn't report: one em dash, never an
/// empty string.
[[nodiscard]] inline QString notReported()
{
    return QStringLiteral("\u2014");
}

/// Trims the Unicode space separators (Zs) and U+0009 from both ends; line ends stay.
[[nodiscard]] QString trimSpacesAndTabs(const QString &text);

/// Trims every Unicode white space character from both ends, line ends included.
[[nodiscard]] QString trimWhitespaceAndNewlines(const QString &text);

/// True when nothing but spaces and tabs remain after trimming (an empty string included).
[[nodiscard]] bool isBlank(const QString &text);

/// An optional "+" or "-", then one or more ASCII digits, nothing else, within a signed 64-bit
/// integer. "+7" is 7, "-0" is 0, "007" is 7; " 5", "5\n", "+", "٥" and "1e3" are no number.
[[nodiscard]] std::optional<qint64> parseInteger(const QString &text);

/// `parseInteger`, and then a value from 0 to 255.
[[nodiscard]] std::optional<int> parseOctet(const QString &text);

/// Four non-empty pieces between dots, each at most three characters and an octet by
/// `parseOctet`: "+1.-0.010.255" passes, "1.2.3" and "1..2.3" do not.
[[nodiscard]] std::optional<std::array<int, 4>> parseDottedQuad(const QString &text);
[[nodiscard]] inline bool isDottedQuad(const QString &text)
{
    return parseDottedQuad(text).has_value();
}

/// Splits at every `separator`, dropping empty pieces ("10..1" gives two pieces).
[[nodiscard]] QStringList splitDroppingEmpty(const QString &text, QChar separator);

/// Splits at every U+0020, dropping empty pieces: a tab or a hyphen does not separate words.
[[nodiscard]] QStringList splitAtBlanks(const QString &text);

/// The number of characters as a person counts them: grapheme clusters, not UTF-16 units.
[[nodiscard]] qsizetype characterCount(const QString &text);

/// The first `count` characters (grapheme clusters) of the text.
[[nodiscard]] QString firstCharacters(const QString &text, qsizetype count);

/// The characters (grapheme clusters) of the text, in order.
[[nodiscard]] QStringList characters(const QString &text);

/// True when the character's first code point has a Unicode numeric type: "5", "五", "٣", "Ⅻ".
[[nodiscard]] bool isUnicodeNumber(const QString &character);

/// The canonical form of a name: its NFC normalisation. Keys of sets and maps of names use it.
[[nodiscard]] QString canonical(const QString &text);

/// Compares the NFC forms code point by code point: negative, zero or positive.
[[nodiscard]] int compareCanonical(const QString &a, const QString &b);
[[nodiscard]] inline bool canonicallyEqual(const QString &a, const QString &b)
{
    return compareCanonical(a, b) == 0;
}
[[nodiscard]] inline bool canonicallyLess(const QString &a, const QString &b)
{
    return compareCanonical(a, b) < 0;
}

/// Compares two strings code point by code point as they stand, without normalising.
[[nodiscard]] int compareCodePoints(QStringView a, QStringView b);

/// The case-folded NFC form, for case-blind matches: "é" matches "É".
[[nodiscard]] QString caseFolded(const QString &text);
[[nodiscard]] bool caseBlindEqual(const QString &a, const QString &b);

/// "In lower case contains": both sides lowered the same way.
[[nodiscard]] bool lowercaseContains(const QString &haystack, const QString &needle);

/// A file's base name without its last extension only: "show.v2.json" gives "show.v2",
/// ".json" gives ".json".
[[nodiscard]] QString baseNameDroppingLastExtension(const QString &fileName);

/// The text in curly double quotes: “text”.
[[nodiscard]] QString curlyQuoted(const QString &text);

/// Sorts in place, keeping equal elements in the order they came in.
template <typename Container, typename Less>
void sortStably(Container &items, Less less)
{
    std::stable_sort(items.begin(), items.end(), less);
}

/// Sorts names in canonical order, stably.
void sortCanonically(QStringList &names);

} // namespace VLANKit
