#include "OrvaneApp/proof/RenderRequest.h"

#include "VLANKit/core/TextRules.h"

#include <QFileInfo>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Surface = RenderRequest::Surface;

constexpr std::array surfaces{
    Surface::current, Surface::add,    Surface::newLocation, Surface::rename, Surface::order,
    Surface::reorder, Surface::import, Surface::result,      Surface::more,   Surface::help};

std::optional<Surface> surfaceNamed(const QString &word)
{
    for (const Surface surface : surfaces) {
        if (RenderRequest::word(surface) == word)
            return surface;
    }
    return std::nullopt;
}

/// Takes the first occurrence of `option` and the word after it out of `rest`. An option at the
/// very end has no value: absent, and left where it stands.
std::optional<QString> takeValue(QStringList &rest, const QString &option)
{
    const qsizetype at = rest.indexOf(option);
    if (at < 0 || at + 1 >= rest.size())
        return std::nullopt;
    QString value = rest.at(at + 1);
    rest.remove(at, 2);
    return value;
}

/// A size in points: a base-10 whole number, else the default stands without a word.
void takeSize(QStringList &rest, const QString &option, int &size)
{
    const std::optional<QString> value = takeValue(rest, option);
    const std::optional<qint64> number = value ? VLANKit::parseInteger(*value) : std::nullopt;
    if (number && *number > 0 && *number <= 100000)
        size = int(*number);
}

} // namespace

QString RenderRequest::word(Surface surface)
{
    switch (surface) {
    case Surface::current:
        return u"current"_s;
    case Surface::add:
        return u"add"_s;
    case Surface::newLocation:
        return u"new"_s;
    case Surface::rename:
        return u"rename"_s;
    case Surface::order:
        return u"order"_s;
    case Surface::reorder:
        return u"reorder"_s;
    case Surface::import:
        return u"import"_s;
    case Surface::result:
        return u"result"_s;
    case Surface::more:
        return u"more"_s;
    case Surface::help:
        return u"help"_s;
    }
    return {};
}

QString RenderRequest::usage()
{
    return u"usage: --render current|add|new|rename|order|reorder|import|result|more|help "
           "<out.png> [--width N] [--height N] [--appearance dark|light] [--location NAME] "
           "[--host N] [--draft TAG,NAME,dhcp|manual]\u2026 [--edit DEVICE] [--build-on DEVICE] "
           "[--name NAME] [--adapters-only] [--switch-now] [--sample-hardware] [--message TEXT] "
           "[--failed] [--project FILE]"_s;
}

RenderRequest::Parsed RenderRequest::parse(const QStringList &arguments)
{
    const qsizetype at = arguments.indexOf(u"--render"_s);
    if (at < 0)
        return NotAsked{};
    if (at + 2 >= arguments.size())
        return BadLine{};
    const std::optional<Surface> surface = surfaceNamed(arguments.at(at + 1));
    if (!surface)
        return BadLine{};

    RenderRequest request;
    request.surface = *surface;
    request.output = QFileInfo(arguments.at(at + 2)).absoluteFilePath();
    // Only what stands behind the picture's path holds options.
    QStringList rest = arguments.mid(at + 3);
    takeSize(rest, u"--width"_s, request.width);
    takeSize(rest, u"--height"_s, request.height);
    if (const auto appearance = takeValue(rest, u"--appearance"_s))
        request.dark = *appearance != u"light"_s;
    request.location = takeValue(rest, u"--location"_s);
    request.host = takeValue(rest, u"--host"_s);
    while (const auto draft = takeValue(rest, u"--draft"_s))
        request.drafts.append(*draft);
    request.edit = takeValue(rest, u"--edit"_s);
    request.name = takeValue(rest, u"--name"_s);
    request.buildOn = takeValue(rest, u"--build-on"_s);
    request.message = takeValue(rest, u"--message"_s);
    if (request.message)
        request.message->replace(u"\\n"_s, u"\n"_s);
    request.project = takeValue(rest, u"--project"_s);
    request.adaptersOnly = rest.contains(u"--adapters-only"_s);
    request.switchNow = rest.contains(u"--switch-now"_s);
    request.sampleHardware = rest.contains(u"--sample-hardware"_s);
    request.failed = rest.contains(u"--failed"_s);
    return request;
}
