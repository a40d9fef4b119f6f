#include "VLANKit/core/TextRules.h"

#include <QTextBoundaryFinder>

#include <unicode/uchar.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

bool isSpaceOrTab(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

template <typename Predicate>
QString trimBy(const QString &text, Predicate isTrimmed)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isTrimmed(text.at(begin)))
        ++begin;
    while (end > begin && isTrimmed(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

// Maps a UTF-16 unit so that comparing mapped units orders strings by code point: surrogates
// (which encode code points above U+FFFF) must sort after U+E000..U+FFFF.
char16_t codePointOrderKey(char16_t unit)
{
    if (unit >= 0xD800 && unit <= 0xDFFF)
        return static_cast<char16_t>(unit + 0x2000);
    if (unit >= 0xE000)
        return static_cast<char16_t>(unit - 0x800);
    return unit;
}

QList<qsizetype> graphemeBoundaries(const QString &text)
{
    QList<qsizetype> boundaries;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype at = finder.toNextBoundary(); at != -1; at = finder.toNextBoundary())
        boundaries.append(at);
    return boundaries;
}

} // namespace

QString trimSpacesAndTabs(const QString &text)
{
    return trimBy(text, isSpaceOrTab);
}

QString trimWhitespaceAndNewlines(const QString &text)
{
    return trimBy(text, [](QChar c) { return c.isSpace(); });
}

bool isBlank(const QString &text)
{
    return std::all_of(text.begin(), text.end(), isSpaceOrTab);
}

std::optional<qint64> parseInteger(const QString &text)
{
    qsizetype at = 0;
    bool negative = false;
    if (at < text.size() && (text.at(at) == u'+' || text.at(at) == u'-')) {
        negative = text.at(at) == u'-';
        ++at;
    }
    if (at == text.size())
        return std::nullopt;
    // Accumulate towards the negative side, which holds one more value than the positive.
    qint64 value = 0;
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    for (; at < text.size(); ++at) {
        const char16_t unit = text.at(at).unicode();
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        const int digit = unit - u'0';
        if (value < (lowest + digit) / 10)
            return std::nullopt;
        value = value * 10 - digit;
    }
    if (negative)
        return value;
    if (value == lowest)
        return std::nullopt;
    return -value;
}

std::optional<int> parseOctet(const QString &text)
{
    const auto value = parseInteger(text);
    if (!value || *value < 0 || *value > 255)
        return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<std::array<int, 4>> parseDottedQuad(const QString &text)
{
    const QStringList pieces = text.split(u'.', Qt::KeepEmptyParts);
    if (pieces.size() != 4)
        return std::nullopt;
    std::array<int, 4> octets{};
    for (int i = 0; i < 4; ++i) {
        const QString &piece = pieces.at(i);
        if (piece.isEmpty() || characterCount(piece) > 3)
            return std::nullopt;
        const auto octet = parseOctet(piece);
        if (!octet)
            return std::nullopt;
        octets[static_cast<std::size_t>(i)] = *octet;
    }
    return octets;
}

QStringList splitDroppingEmpty(const QString &text, QChar separator)
{
    return text.split(separator, Qt::SkipEmptyParts);
}

QStringList splitAtBlanks(const QString &text)
{
    return splitDroppingEmpty(text, QChar(u' '));
}

qsizetype characterCount(const QString &text)
{
    if (text.isEmpty())
        return 0;
    return graphemeBoundaries(text).size();
}

QString firstCharacters(const QString &text, qsizetype count)
{
    if (count <= 0)
        return {};
    const QList<qsizetype> boundaries = graphemeBoundaries(text);
    if (count >= boundaries.size())
        return text;
    return text.left(boundaries.at(count - 1));
}

QStringList characters(const QString &text)
{
    QStringList result;
    qsizetype from = 0;
    for (qsizetype at : graphemeBoundaries(text)) {
        result.append(text.mid(from, at - from));
        from = at;
    }
    return result;
}

bool isUnicodeNumber(const QString &character)
{
    if (character.isEmpty())
        return false;
    const char32_t codePoint = character.at(0).isHighSurrogate() && character.size() > 1
                                   ? QChar::surrogateToUcs4(character.at(0), character.at(1))
                                   : character.at(0).unicode();
    return u_getIntPropertyValue(static_cast<UChar32>(codePoint), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

QString canonical(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C);
}

int compareCodePoints(QStringView a, QStringView b)
{
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t x = a.at(i).unicode();
        const char16_t y = b.at(i).unicode();
        if (x != y)
            return codePointOrderKey(x) < codePointOrderKey(y) ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

int compareCanonical(const QString &a, const QString &b)
{
    return compareCodePoints(canonical(a), canonical(b));
}

QString caseFolded(const QString &text)
{
    return canonical(text).toCaseFolded();
}

bool caseBlindEqual(const QString &a, const QString &b)
{
    return caseFolded(a) == caseFolded(b);
}

bool lowercaseContains(const QString &haystack, const QString &needle)
{
    return canonical(haystack).toLower().contains(canonical(needle).toLower());
}

QString baseNameDroppingLastExtension(const QString &fileName)
{
    const qsizetype slash = fileName.lastIndexOf(u'/');
    const QString name = fileName.mid(slash + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0)
        return name;
    return name.left(dot);
}

QString curlyQuoted(const QString &text)
{
    return u"\u201C"_s + text + u"\u201D"_s;
}

void sortCanonically(QStringList &names)
{
    sortStably(names, canonicallyLess);
}

} // namespace VLANKit
