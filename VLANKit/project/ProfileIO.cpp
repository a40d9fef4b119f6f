#include "VLANKit/project/ProfileIO.h"

#include "VLANKit/core/FileProblem.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/files/AtomicFile.h"
#include "VLANKit/formats/JsonFields.h"
#include "VLANKit/formats/JsonWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace VLANKit::ProfileIO {

namespace {

/// A project is a few kilobytes; a file far beyond this is something else, and reading it
/// whole would only exhaust the memory.
constexpr qint64 largestFile = qint64(64) * 1024 * 1024;

const QString projectWords = u"project"_s;

[[noreturn]] void failReading(const QString &path, const QString &what)
{
    throw VLANError::operationFailed(FileProblem::cantRead(path, what));
}

/// What a path names when it is no file and no folder, in the words of `FileProblem::isNoFile`;
/// empty for a file or a folder.
QString specialKind(mode_t mode)
{
    if (S_ISFIFO(mode))
        return u"a pipe"_s;
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return u"a device"_s;
    if (S_ISSOCK(mode))
        return u"a socket"_s;
    return {};
}

/// Opens the project for reading without ever waiting: a pipe opened for reading would block
/// until somebody writes into it, so the path is opened without blocking and refused unless it
/// is a plain file. The descriptor is closed by the QFile it is handed to.
int openProjectFile(const QString &path)
{
    const int fd =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        if (errno == ENOENT)
            failReading(path, FileProblem::noSuchFile());
        failReading(path, FileProblem::wontOpen());
    }
    struct stat info
    {};
    const bool known = ::fstat(fd, &info) == 0;
    if (!known || !S_ISREG(info.st_mode)) {
        ::close(fd);
        if (!known)
            failReading(path, FileProblem::wontOpen());
        if (S_ISDIR(info.st_mode))
            failReading(path, FileProblem::isAFolder());
        failReading(path, FileProblem::isNoFile(specialKind(info.st_mode)));
    }
    if (info.st_size > largestFile) {
        ::close(fd);
        failReading(path, FileProblem::tooLarge(info.st_size, projectWords));
    }
    return fd;
}

void insertIfPresent(QJsonObject &object, const QString &key, const std::optional<QString> &value)
{
    if (value)
        object.insert(key, *value);
}

QJsonObject ipJson(const IPConfig &ip)
{
    QJsonObject object{{u"mode"_s, rawValue(ip.mode)},
                       {u"dns"_s, QJsonArray::fromStringList(ip.dns)}};
    insertIfPresent(object, u"address"_s, ip.address);
    insertIfPresent(object, u"subnetMask"_s, ip.subnetMask);
    insertIfPresent(object, u"router"_s, ip.router);
    return object;
}

QJsonObject entryJson(const ProfileEntry &entry)
{
    return QJsonObject{{u"tag"_s, entry.tag},
                       {u"name"_s, entry.name},
                       {u"ip"_s, ipJson(entry.ip)},
                       {u"enabled"_s, entry.enabled}};
}

QJsonObject assignmentJson(const HostAssignment &assignment)
{
    QJsonObject object{{u"host"_s, assignment.host}, {u"machine"_s, assignment.machine}};
    insertIfPresent(object, u"machineID"_s, assignment.machineID);
    return object;
}

QJsonObject profileJson(const Profile &profile)
{
    QJsonArray entries;
    for (const ProfileEntry &entry : profile.entries)
        entries.append(entryJson(entry));
    QJsonObject object{{u"name"_s, profile.name}, {u"entries"_s, entries}};
    insertIfPresent(object, u"note"_s, profile.note);
    insertIfPresent(object, u"capturedFrom"_s, profile.capturedFrom);
    insertIfPresent(object, u"hostOctet"_s, profile.hostOctet);
    insertIfPresent(object, u"addressPrefix"_s, profile.addressPrefix);
    if (profile.assignments) {
        QJsonArray assignments;
        for (const HostAssignment &assignment : *profile.assignments)
            assignments.append(assignmentJson(assignment));
        object.insert(u"assignments"_s, assignments);
    }
    return object;
}

QStringList modeWords()
{
    QStringList words;
    for (IPMode mode : allIPModes)
        words.append(rawValue(mode));
    return words;
}

IPConfig decodeIP(const JsonFields &entry)
{
    // The sentences name the entry, not the "ip" inside it: that is the thing a person knows.
    const JsonFields fields(entry.object(u"ip"_s), entry.path(), entry.place());
    const QString word = fields.string(u"mode"_s);
    const auto mode = ipModeFromRaw(word);
    if (!mode)
        fields.fail(FileProblem::unknownWord(fields.place(), u"mode"_s, word, modeWords()));
    return IPConfig{*mode, fields.optionalString(u"address"_s),
                    fields.optionalString(u"subnetMask"_s), fields.optionalString(u"router"_s),
                    fields.stringList(u"dns"_s)};
}

ProfileEntry decodeEntry(const JsonFields &fields)
{
    ProfileEntry entry;
    entry.tag = fields.integer(u"tag"_s);
    entry.name = fields.string(u"name"_s);
    entry.ip = decodeIP(fields);
    entry.enabled = fields.boolean(u"enabled"_s);
    return entry;
}

HostAssignment decodeAssignment(const JsonFields &fields)
{
    return HostAssignment{fields.string(u"host"_s), fields.string(u"machine"_s),
                          fields.optionalString(u"machineID"_s)};
}

/// The first byte that is no JSON white space; absent when there is none.
std::optional<char> firstSignificant(const QByteArray &bytes)
{
    for (const char byte : bytes) {
        if (byte != ' ' && byte != '\t' && byte != '\n' && byte != '\r')
            return byte;
    }
    return std::nullopt;
}

QJsonObject topObject(const QByteArray &bytes, const QString &path)
{
    const auto first = firstSignificant(bytes);
    if (!first)
        failReading(path, FileProblem::isEmpty());
    // The parser takes only an object or a list (a byte-order mark before them included); a lone
    // value is JSON too, but no project.
    const bool container = *first == '{' || *first == '[' || bytes.startsWith("\xEF\xBB\xBF");
    QJsonParseError error{};
    const QJsonDocument document =
        QJsonDocument::fromJson(container ? bytes : '[' + bytes + ']', &error);
    if (error.error != QJsonParseError::NoError) {
        // The parser that runs out of text gives up at its very end: a file cut short.
        if (container && error.offset >= bytes.size())
            failReading(path, FileProblem::cutShort());
        // The parser's offset is where it gave up, which is near the fault; a line is what a
        // person looks for in an editor.
        const qsizetype offset = container ? error.offset : error.offset - 1;
        failReading(path, FileProblem::notJson(bytes.left(offset).count('\n') + 1));
    }
    if (!container || !document.isObject())
        failReading(path, FileProblem::holdsNo(projectWords, container && document.isArray()));
    return document.object();
}

} // namespace

QByteArray encoded(const Profile &profile)
{
    return prettyJson(profileJson(profile));
}

Profile decoded(const QByteArray &bytes, const QString &path)
{
    const JsonFields fields(topObject(bytes, path), path, FileProblem::theFile());
    Profile profile;
    profile.name = fields.string(u"name"_s);
    profile.note = fields.optionalString(u"note"_s);
    profile.capturedFrom = fields.optionalString(u"capturedFrom"_s);
    profile.hostOctet = fields.optionalString(u"hostOctet"_s);
    profile.addressPrefix = fields.optionalString(u"addressPrefix"_s);
    if (const auto assignments = fields.optionalArray(u"assignments"_s)) {
        QList<HostAssignment> claims;
        claims.reserve(assignments->size());
        for (qsizetype i = 0; i < assignments->size(); ++i)
            claims.append(decodeAssignment(JsonFields::element(
                assignments->at(i), path, FileProblem::item(u"claim"_s, i + 1))));
        profile.assignments = claims;
    }
    const QJsonArray entries = fields.array(u"entries"_s);
    profile.entries.reserve(entries.size());
    for (qsizetype i = 0; i < entries.size(); ++i)
        profile.entries.append(decodeEntry(
            JsonFields::element(entries.at(i), path, FileProblem::item(u"entry"_s, i + 1))));
    return profile;
}

void write(const Profile &profile, const QString &path)
{
    // Renaming over a pipe or a device would replace it by the project: refuse such a name.
    struct stat existing
    {};
    if (::stat(QFile::encodeName(path).constData(), &existing) == 0 && !S_ISREG(existing.st_mode)) {
        const QString kind = S_ISDIR(existing.st_mode)
                                 ? FileProblem::isAFolder()
                                 : FileProblem::isNoFile(specialKind(existing.st_mode));
        throw VLANError::operationFailed(FileProblem::cantSave(path, kind));
    }
    QString reason;
    if (!writeFileAtomically(path, encoded(profile), &reason))
        throw VLANError::operationFailed(FileProblem::cantSave(path, reason));
}

Profile read(const QString &path)
{
    QFile file;
    if (!file.open(openProjectFile(path), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        failReading(path, FileProblem::wontOpen());
    // Read to the end in pieces, not by the size found above: what stands behind the name may
    // be no plain file, and may never end.
    QByteArray bytes;
    while (bytes.size() <= largestFile) {
        const QByteArray piece = file.read(qint64(1024) * 1024);
        if (file.error() != QFileDevice::NoError)
            failReading(path, FileProblem::wontOpen());
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    if (bytes.size() > largestFile)
        failReading(path, FileProblem::tooLarge(bytes.size(), projectWords));
    return decoded(bytes, path);
}

} // namespace VLANKit::ProfileIO
