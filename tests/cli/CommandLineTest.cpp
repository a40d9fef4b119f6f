#include "tests/cli/CliTestSupport.h"

using namespace Qt::StringLiterals;

namespace {

class CommandLine : public CliTest
{
protected:
    /// A bad command line: status 2, the sentence first on standard error and the usage after
    /// it, nothing on standard output, and nothing written.
    void expectUsageFailure(const CliRun &run, const QString &sentence, const QString &usageLine)
    {
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
        EXPECT_TRUE(run.err.startsWith(sentence + u"\n\n"_s)) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(usageLine)) << run.err.toStdString();
    }
};

TEST_F(CommandLine, NoCommandGivesTheProgramsUsage)
{
    expectUsageFailure(orvanectlAlone({}), u"Say what to do: a command comes first."_s,
                       u"Usage: orvanectl COMMAND"_s);
}

TEST_F(CommandLine, UnknownCommandIsNamed)
{
    expectUsageFailure(orvanectl({u"build"_s}), u"“build” is no command of orvanectl."_s,
                       u"Usage: orvanectl COMMAND"_s);
}

TEST_F(CommandLine, OptionBeforeTheCommandIsRefused)
{
    expectUsageFailure(orvanectl({u"--json"_s, u"list"_s}),
                       u"The command comes first, before “--json”."_s,
                       u"Usage: orvanectl COMMAND"_s);
}

TEST_F(CommandLine, UnknownOptionGivesTheCommandsUsage)
{
    expectUsageFailure(orvanectl({u"list"_s, u"--fix"_s}),
                       u"“--fix” is no option of “orvanectl list”."_s,
                       u"Usage: orvanectl list [--location NAME]"_s);
}

TEST_F(CommandLine, PlanWithoutAdapterNamesTheOption)
{
    const QString project = writeProject({u"Show"_s});
    expectUsageFailure(orvanectl({u"plan"_s, project}), u"“orvanectl plan” needs --on ADAPTER."_s,
                       u"Usage: orvanectl plan"_s);
}

TEST_F(CommandLine, ApplyWithoutProjectAsksForOne)
{
    expectUsageFailure(orvanectl({u"apply"_s, u"--on"_s, u"en5"_s}),
                       u"Name the project file to apply."_s, u"Usage: orvanectl apply"_s);
}

TEST_F(CommandLine, OptionWithoutItsValue)
{
    expectUsageFailure(orvanectl({u"list"_s, u"--location"_s}),
                       u"“--location” needs a value after it, as in “--location NAME”."_s,
                       u"Usage: orvanectl list"_s);
}

TEST_F(CommandLine, OptionGivenTwice)
{
    expectUsageFailure(orvanectl({u"list"_s, u"--location"_s, u"Show"_s, u"--location=Office"_s}),
                       u"“--location” is given twice."_s, u"Usage: orvanectl list"_s);
}

TEST_F(CommandLine, FlagWithAValue)
{
    expectUsageFailure(orvanectl({u"order"_s, u"--fix=yes"_s}), u"“--fix” takes no value."_s,
                       u"Usage: orvanectl order"_s);
}

TEST_F(CommandLine, ArgumentTooMany)
{
    expectUsageFailure(orvanectl({u"list"_s, u"Show"_s}),
                       u"“Show” is one argument too many for “orvanectl list”."_s,
                       u"Usage: orvanectl list"_s);
}

TEST_F(CommandLine, HostThatIsNoOctetIsABadCommandLine)
{
    const QString project = writeProject({u"Show"_s});
    const auto before = machineFiles();
    expectUsageFailure(
        orvanectl({u"apply"_s, project, u"--on"_s, u"en5"_s, u"--host"_s, u"256"_s, u"--yes"_s}),
        u"“--host” takes this machine's host octet, a number from 0 to 255, not “256”."_s,
        u"Usage: orvanectl apply"_s);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(CommandLine, ClaimWithoutHostIsABadCommandLine)
{
    const QString project = writeProject({u"Show"_s});
    expectUsageFailure(
        orvanectl({u"apply"_s, project, u"--on"_s, u"en5"_s, u"--claim"_s, u"--yes"_s}),
        u"“--claim” needs --host N: the octet that this machine takes."_s,
        u"Usage: orvanectl apply"_s);
}

TEST_F(CommandLine, TagThatIsNoNumberIsABadCommandLine)
{
    const auto before = machineFiles();
    expectUsageFailure(orvanectl({u"delete"_s, u"1012"_s, u"ten"_s, u"--yes"_s}),
                       u"“ten” is no VLAN tag: a tag is a whole number, such as 1010."_s,
                       u"Usage: orvanectl delete"_s);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(CommandLine, PrefsWithoutAFolder)
{
    expectUsageFailure(orvanectlAlone({u"list"_s, u"--prefs"_s}),
                       u"“--prefs” needs a folder of network preferences after it."_s,
                       u"Usage: orvanectl COMMAND"_s);
}

TEST_F(CommandLine, PrefsMayStandBeforeTheCommand)
{
    const CliRun run = orvanectlAlone({u"--prefs"_s, folder, u"locations"_s});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(u"Show"_s));
}

TEST_F(CommandLine, OptionTakesItsValueAfterAnEqualsSign)
{
    const CliRun run = orvanectl({u"list"_s, u"--location=Rehearsal"_s, u"--json"_s});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.json().value(u"location"_s).toString(), u"Rehearsal"_s);
}

TEST_F(CommandLine, HelpOfEachCommandGoesToStandardOutput)
{
    for (const QString &command : {u"list"_s, u"locations"_s, u"plan"_s, u"apply"_s, u"delete"_s,
                                   u"capture"_s, u"order"_s}) {
        const CliRun run = orvanectlAlone({command, u"--help"_s});
        EXPECT_EQ(run.status, 0) << command.toStdString();
        EXPECT_TRUE(run.out.startsWith(u"Usage: orvanectl "_s + command + u' '))
            << run.out.toStdString();
        EXPECT_TRUE(run.out.contains(u"Exit status: 0"_s)) << command.toStdString();
        EXPECT_TRUE(run.err.isEmpty()) << command.toStdString();
        // "help COMMAND" says the same.
        EXPECT_EQ(orvanectlAlone({u"help"_s, command}).out, run.out) << command.toStdString();
    }
}

TEST_F(CommandLine, HelpWinsOverAnIncompleteCommandLine)
{
    const CliRun run = orvanectlAlone({u"apply"_s, u"--help"_s, u"--host"_s, u"999"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.startsWith(u"Usage: orvanectl apply"_s));
}

TEST_F(CommandLine, ProgramHelpListsEveryCommand)
{
    const CliRun run = orvanectlAlone({u"--help"_s});
    EXPECT_EQ(run.status, 0);
    for (const QString &command :
         {u"list"_s, u"locations"_s, u"plan"_s, u"apply"_s, u"delete"_s, u"capture"_s, u"order"_s})
        EXPECT_TRUE(run.out.contains(u"\n  "_s + command + u' ')) << command.toStdString();
}

TEST_F(CommandLine, UsageKeepsToEightyColumns)
{
    QStringList texts{orvanectlAlone({u"--help"_s}).out};
    for (const QString &command :
         {u"list"_s, u"locations"_s, u"plan"_s, u"apply"_s, u"delete"_s, u"capture"_s, u"order"_s})
        texts.append(orvanectlAlone({command, u"--help"_s}).out);
    for (const QString &text : texts) {
        for (const QString &line : text.split(u'\n'))
            EXPECT_LE(line.size(), 80) << line.toStdString();
    }
}

TEST_F(CommandLine, FolderThatCantBeOpenedIsAFailureNotABadCommandLine)
{
    const CliRun run = orvanectlAlone({u"list"_s, u"--prefs"_s, temporary.filePath(u"none"_s)});
    EXPECT_EQ(run.status, 1);
    EXPECT_FALSE(run.err.contains(u"Usage:"_s));
    EXPECT_FALSE(run.err.isEmpty());
}

} // namespace
