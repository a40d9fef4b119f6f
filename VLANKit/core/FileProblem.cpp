#include "VLANKit/core/FileProblem.h"

#include "VLANKit/core/TextRules.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace VLANKit::FileProblem {

namespace {

QString fileName(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    return name.isEmpty() ? path : name;
}

QString noun(Kind kind)
{
    switch (kind) {
    case Kind::text:
        return u"text"_s;
    case Kind::wholeNumber:
        return u"number"_s;
    case Kind::trueOrFalse:
        return u"setting"_s;
    case Kind::list:
    case Kind::listOfTexts:
        return u"list"_s;
    case Kind::group:
        return u"settings"_s;
    }
    return u"value"_s;
}

QString description(Kind kind)
{
    switch (kind) {
    case Kind::text:
        return u"text"_s;
    case Kind::wholeNumber:
        return u"a whole number"_s;
    case Kind::trueOrFalse:
        return u"true or false"_s;
    case Kind::list:
        return u"a list"_s;
    case Kind::listOfTexts:
        return u"a list of texts"_s;
    case Kind::group:
        return u"a group of settings"_s;
    }
    return u"a value"_s;
}

} // namespace

QString cantRead(const QString &path, const QString &what)
{
    return curlyQuoted(fileName(path)) + u" can\u2019t be read: "_s + what + u"."_s;
}

QString cantSave(const QString &path, const QString &systemReason)
{
    return curlyQuoted(fileName(path)) + u" can\u2019t be saved ("_s + systemReason
           + u"); the file that was there is unchanged."_s;
}

QString noSuchFile()
{
    return u"there is no such file"_s;
}

QString isAFolder()
{
    return u"it is a folder, not a file"_s;
}

QString isNoFile(const QString &what)
{
    return u"it is "_s + what + u", not a file"_s;
}

QString wontOpen()
{
    return u"the system won\u2019t open it"_s;
}

QString isEmpty()
{
    return u"the file is empty"_s;
}

QString tooLarge(qint64 bytes, const QString &thing)
{
    return u"it is %1 bytes long, far too large for a "_s.arg(bytes) + thing;
}

QString cutShort()
{
    return u"it ends too early, as if it had been cut short"_s;
}

QString notJson(qint64 line)
{
    return u"it is not JSON text (the fault is on line %1)"_s.arg(line);
}

QString holdsNo(const QString &thing, bool holdsAList)
{
    return holdsAList ? u"it holds a list, not a "_s + thing : u"it holds no "_s + thing;
}

QString theFile()
{
    return u"the file"_s;
}

QString item(const QString &noun, qsizetype number)
{
    return noun + u" "_s + QString::number(number);
}

QString missing(const QString &place, const QString &key, Kind kind)
{
    return place + u" has no "_s + curlyQuoted(key) + u" "_s + noun(kind);
}

QString mistyped(const QString &place, const QString &key, Kind kind)
{
    return curlyQuoted(key) + u" in "_s + place + u" is not "_s + description(kind);
}

QString mistypedElement(const QString &place, const QString &key, qsizetype number, Kind kind)
{
    return u"item %1 of "_s.arg(number) + curlyQuoted(key) + u" in "_s + place + u" is not "_s
           + description(kind);
}

QString notA(const QString &place, Kind kind)
{
    return place + u" is not "_s + description(kind);
}

QString unknownWord(const QString &place, const QString &key, const QString &word,
                    const QStringList &known)
{
    QString choices;
    for (qsizetype i = 0; i < known.size(); ++i) {
        if (i > 0)
            choices += i + 1 == known.size() ? u" or "_s : u", "_s;
        choices += curlyQuoted(known.at(i));
    }
    return curlyQuoted(key) + u" in "_s + place + u" is "_s + curlyQuoted(word) + u", not one of "_s
           + choices;
}

} // namespace VLANKit::FileProblem
