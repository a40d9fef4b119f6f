#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "orvanectl/CommandLine.h"
#include "orvanectl/Commands.h"
#include "orvanectl/Output.h"

#include <QCoreApplication>
#include <QHash>

#include <functional>

using namespace Qt::StringLiterals;
using VLANKit::Platform;

namespace Orvanectl {

namespace {

using Command = std::function<int(const Invocation &, const Platform &)>;

const QHash<QString, Command> &handlers()
{
    static const QHash<QString, Command> all{
        {u"list"_s, listVLANs},     {u"locations"_s, listLocations}, {u"plan"_s, planProject},
        {u"apply"_s, applyProject}, {u"delete"_s, deleteVLANs},      {u"capture"_s, captureProject},
        {u"order"_s, showOrder},
    };
    return all;
}

int usageFailure(const UsageError &error)
{
    writeError(error.sentence() + u"\n\n"_s + error.usage());
    return 2;
}

} // namespace

int run(const QStringList &arguments)
{
    // "--prefs" without its folder is a command line that can't be read; the platform's choice
    // would only say so in a sentence of its own.
    if (!arguments.isEmpty() && arguments.last() == VLANKit::prefsOption)
        return usageFailure(UsageError(VLANKit::curlyQuoted(VLANKit::prefsOption)
                                           + u" needs a folder of network preferences after it."_s,
                                       nullptr));
    Invocation invocation;
    try {
        invocation = parse(VLANKit::withoutPlatformArguments(arguments));
    } catch (const UsageError &error) {
        return usageFailure(error);
    }
    if (invocation.version) {
        writeOut(u"orvanectl "_s + QCoreApplication::applicationVersion() + u'\n');
        return 0;
    }
    if (invocation.help) {
        writeOut(invocation.syntax ? usage(*invocation.syntax) : programUsage());
        return 0;
    }
    try {
        const Platform platform = VLANKit::choosePlatform(arguments);
        return handlers().value(invocation.syntax->name)(invocation, platform);
    } catch (const UsageError &error) {
        return usageFailure(error);
    } catch (const std::exception &failure) {
        writeError(VLANKit::localizedDescription(failure) + u'\n');
        return 1;
    }
}

} // namespace Orvanectl
