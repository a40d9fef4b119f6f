#pragma once

#include <QString>
#include <QStringList>

/// The one maker of the sentences that tell why a file can't be read or saved. Each names the
/// file in curly quotes and says what is wrong in words a person at a show understands:
/// “show.json” can’t be read: entry 3 has no “dns” list.
namespace VLANKit::FileProblem {

/// What a file is expected to hold under a key, as the sentences name it.
enum class Kind { text, wholeNumber, trueOrFalse, list, listOfTexts, group };

/// “name” can’t be read: what. The file is named by its file name, without its folder.
[[nodiscard]] QString cantRead(const QString &path, const QString &what);
/// “name” can’t be saved (reason); the file that was there is unchanged.
[[nodiscard]] QString cantSave(const QString &path, const QString &systemReason);

// What is wrong, for `cantRead`.
[[nodiscard]] QString noSuchFile();
[[nodiscard]] QString isAFolder();
/// The path names something that is neither a file nor a folder: `what` is "a pipe",
/// "a device" or "a socket".
[[nodiscard]] QString isNoFile(const QString &what);
[[nodiscard]] QString wontOpen();
[[nodiscard]] QString isEmpty();
[[nodiscard]] QString tooLarge(qint64 bytes, const QString &thing);
[[nodiscard]] QString cutShort();
/// The text breaks the rules of JSON on `line` (from 1).
[[nodiscard]] QString notJson(qint64 line);
/// The file is JSON but holds a list or a single value where a `thing` (“project”) should be.
[[nodiscard]] QString holdsNo(const QString &thing, bool holdsAList);

/// Where in the document: the file itself, or the `number`th (from 1) item of a list.
[[nodiscard]] QString theFile();
[[nodiscard]] QString item(const QString &noun, qsizetype number);

/// "entry 3 has no “dns” list"
[[nodiscard]] QString missing(const QString &place, const QString &key, Kind kind);
/// "“tag” in entry 3 is not a whole number"
[[nodiscard]] QString mistyped(const QString &place, const QString &key, Kind kind);
/// "item 2 of “dns” in entry 3 is not text"
[[nodiscard]] QString mistypedElement(const QString &place, const QString &key, qsizetype number,
                                      Kind kind);
/// "entry 3 is not a group of settings"
[[nodiscard]] QString notA(const QString &place, Kind kind);
/// "“mode” in entry 3 is “Static”, not one of “DHCP”, … or “Unknown”"
[[nodiscard]] QString unknownWord(const QString &place, const QString &key, const QString &word,
                                  const QStringList &known);

} // namespace VLANKit::FileProblem
