#include "VLANKit/Platform.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentMachine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// Where the example is built into the program.
const QString exampleResource = u":/examples/show-mac"_s;

} // namespace

Platform::Platform(std::shared_ptr<PlatformBackend> backend, std::optional<QString> documentFolder)
    : m_backend(std::move(backend))
    , m_folder(std::move(documentFolder))
{}

Platform Platform::overFolder(const QString &folder)
{
    auto backend = DocumentBackend::open(folder);
    const QString absolute = backend->machine().folder();
    return Platform(std::move(backend), absolute);
}

Platform choosePlatform(const QStringList &arguments)
{
    std::optional<QString> folder;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        if (arguments.at(at) != prefsOption)
            continue;
        if (at + 1 >= arguments.size())
            throw VLANError::operationFailed(
                curlyQuoted(prefsOption) + u" needs a folder of network preferences after it."_s);
        folder = arguments.at(++at);
    }
    return folder ? Platform::overFolder(*folder) : systemPlatform();
}

QStringList withoutPlatformArguments(const QStringList &arguments)
{
    QStringList rest;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        if (arguments.at(at) == prefsOption)
            ++at;
        else
            rest.append(arguments.at(at));
    }
    return rest;
}

QString exampleWorkingCopy(const QString &dataFolder)
{
    const QString copy = QDir(dataFolder).filePath(u"show-mac"_s);
    if (QFileInfo(copy).isDir())
        return copy;
    // Made beside its place and renamed into it, so that a copy cut short is never taken for
    // a whole one.
    const QString partial = copy + u".partial"_s;
    QDir(partial).removeRecursively();
    const auto failed = [&](const QString &what) {
        QDir(partial).removeRecursively();
        return VLANError::operationFailed(u"The example machine can\u2019t be copied to "_s
                                          + curlyQuoted(copy) + u": "_s + what + u"."_s);
    };
    if (!QDir().mkpath(partial))
        throw failed(u"the folder can\u2019t be made"_s);
    const QStringList files = QDir(exampleResource).entryList(QDir::Files, QDir::Name);
    if (files.isEmpty())
        throw failed(u"the program holds no example"_s);
    for (const QString &name : files) {
        const QString target = QDir(partial).filePath(name);
        if (!QFile::copy(QDir(exampleResource).filePath(name), target))
            throw failed(curlyQuoted(name) + u" can\u2019t be written"_s);
        // Files built into the program are read-only; the working copy is the user's.
        QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                          | QFileDevice::ReadGroup | QFileDevice::ReadOther);
    }
    if (!QDir().rename(partial, copy))
        throw failed(u"the folder can\u2019t be put in place"_s);
    return copy;
}

} // namespace VLANKit
