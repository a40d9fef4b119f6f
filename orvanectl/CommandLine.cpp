#include "orvanectl/CommandLine.h"

#include "VLANKit/core/TextRules.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using VLANKit::characterCount;
using VLANKit::curlyQuoted;

namespace Orvanectl {

namespace {

const QString locationDetail = u"the Location to work in, by name (default: the one in use)"_s;
const QString yesDetail = u"go on without asking for a confirmation"_s;

QList<CommandSyntax> makeCommands()
{
    return {
        {u"list"_s,
         u"list [--location NAME] [--json]"_s,
         u"Show the VLANs and the other services of a Location, with their live addresses."_s,
         {u"--location"_s},
         {},
         {},
         0,
         0,
         {},
         {{u"--location NAME"_s, locationDetail}}},
        {u"locations"_s,
         u"locations [--json]"_s,
         u"List every Location; * marks the one the Mac is using."_s,
         {},
         {},
         {},
         0,
         0,
         {},
         {}},
        {u"plan"_s,
         u"plan PROJECT --on ADAPTER [--host N] [--location NAME] [--json]"_s,
         u"Show what applying a project file would change. Nothing is written."_s,
         {u"--on"_s, u"--host"_s, u"--location"_s},
         {},
         {u"--on"_s},
         1,
         1,
         u"Name the project file to plan from."_s,
         {{u"PROJECT"_s, u"the project file (JSON), as Orvane saves it"_s},
          {u"--on ADAPTER"_s, u"the adapter to build on, by its kernel name, such as en5"_s},
          {u"--host N"_s,
           u"this machine's host octet, 0 to 255: the last number of every manual address"_s},
          {u"--location NAME"_s, locationDetail}}},
        {u"apply"_s,
         u"apply PROJECT --on ADAPTER [--host N] [--location NAME] [--claim] [--yes] [--json]"_s,
         u"Build a project file's VLANs on this machine: all of the changes, or none."_s,
         {u"--on"_s, u"--host"_s, u"--location"_s},
         {u"--claim"_s, u"--yes"_s},
         {u"--on"_s},
         1,
         1,
         u"Name the project file to apply."_s,
         {{u"PROJECT"_s, u"the project file (JSON), as Orvane saves it"_s},
          {u"--on ADAPTER"_s, u"the adapter to build on, by its kernel name, such as en5"_s},
          {u"--host N"_s,
           u"this machine's host octet, 0 to 255: the last number of every manual address"_s},
          {u"--location NAME"_s, locationDetail},
          {u"--claim"_s,
           u"record in the project file that this machine holds the host octet (needs --host)"_s},
          {u"--yes"_s, yesDetail}}},
        {u"delete"_s,
         u"delete TAG... [--on ADAPTER] [--yes] [--json]"_s,
         u"Delete VLANs by tag, each with its services in every Location."_s,
         {u"--on"_s},
         {u"--yes"_s},
         {},
         1,
         std::nullopt,
         u"Name at least one VLAN tag to delete."_s,
         {{u"TAG"_s, u"a VLAN tag, 1 to 4094; give as many as you like"_s},
          {u"--on ADAPTER"_s,
           u"only the VLANs on this adapter; needed where a tag stands on two adapters"_s},
          {u"--yes"_s, yesDetail}}},
        {u"capture"_s,
         u"capture OUT [--location NAME] [--json]"_s,
         u"Save the VLANs of a Location as a project file."_s,
         {u"--location"_s},
         {},
         {},
         1,
         1,
         u"Name the project file to write."_s,
         {{u"OUT"_s, u"the project file to write; its name without .json names the project, and "
                     u"the claims it already holds are kept"_s},
          {u"--location NAME"_s, locationDetail}}},
        {u"order"_s,
         u"order [--fix] [--location NAME] [--yes] [--json]"_s,
         u"Show the service order, its Internet ticks, and the VLANs that outrank the internet."_s,
         {u"--location"_s},
         {u"--fix"_s, u"--yes"_s},
         {},
         0,
         0,
         {},
         {{u"--fix"_s, u"put the services in the recommended order: the ways to the internet "
                       u"first, then the adapters, then the closed VLANs"_s},
          {u"--location NAME"_s, locationDetail},
          {u"--yes"_s, yesDetail}}},
    };
}

/// The width that usage texts keep to, as a terminal shows them.
constexpr qsizetype lineWidth = 80;

/// The text wrapped at blanks to the line width, for a text that starts at column `indent`;
/// the lines after the first are indented as far.
QString wrapped(const QString &text, qsizetype indent)
{
    QString out;
    qsizetype used = indent;
    bool lineStart = true;
    for (const QString &word : VLANKit::splitAtBlanks(text)) {
        const qsizetype length = characterCount(word);
        if (!lineStart && used + 1 + length > lineWidth) {
            out += u'\n' + QString(indent, u' ');
            used = indent;
            lineStart = true;
        }
        if (!lineStart) {
            out += u' ';
            ++used;
        }
        out += word;
        used += length;
        lineStart = false;
    }
    return out + u'\n';
}

/// Two columns, the first padded to its widest entry, the second wrapped.
QString aligned(const QList<std::pair<QString, QString>> &rows)
{
    qsizetype width = 0;
    for (const auto &[term, meaning] : rows)
        width = std::max(width, characterCount(term));
    QString text;
    for (const auto &[term, meaning] : rows)
        text += u"  "_s + term + QString(width - characterCount(term) + 2, u' ')
                + wrapped(meaning, width + 4);
    return text;
}

const QString commonOptions =
    u"Every command also takes --json (output for scripts), --help, and --prefs DIR (a folder "
    u"of network preferences to use instead of this Mac's own)."_s;

const QString exitStatuses = u"Exit status: 0 done or nothing to do, 1 a failure (its sentence "
                             u"on standard error), 2 a bad command line."_s;

/// "--on ADAPTER" for "--on", as the usage writes it.
QString optionWithValue(const CommandSyntax &syntax, const QString &option)
{
    for (const auto &[term, meaning] : syntax.details) {
        if (term.startsWith(option + u' '))
            return term;
    }
    return option;
}

bool looksLikeOption(const QString &argument)
{
    // A lone "-" and a negative number are arguments.
    return argument.size() > 1 && argument.startsWith(u'-')
           && !VLANKit::parseInteger(argument).has_value();
}

} // namespace

const QList<CommandSyntax> &commands()
{
    static const QList<CommandSyntax> all = makeCommands();
    return all;
}

const CommandSyntax *syntaxOf(const QString &name)
{
    for (const CommandSyntax &syntax : commands()) {
        if (syntax.name == name)
            return &syntax;
    }
    return nullptr;
}

QString usage(const CommandSyntax &syntax)
{
    const QString lead = u"Usage: orvanectl "_s;
    QString text =
        lead + wrapped(syntax.synopsis, lead.size()) + u'\n' + wrapped(syntax.purpose, 0);
    if (!syntax.details.isEmpty())
        text += u'\n' + aligned(syntax.details);
    return text + u'\n' + wrapped(commonOptions, 0) + wrapped(exitStatuses, 0);
}

QString programUsage()
{
    QList<std::pair<QString, QString>> rows;
    for (const CommandSyntax &syntax : commands())
        rows.append({syntax.name, syntax.purpose});
    return wrapped(u"orvanectl: Orvane's command line, with the same plans and all-or-nothing "
                   u"changes as the window."_s,
                   0)
           + u"\nUsage: orvanectl COMMAND [ARGUMENTS] [OPTIONS]\n\nCommands:\n"_s + aligned(rows)
           + u"\nRun orvanectl COMMAND --help for a command's arguments and options.\n"_s
           + wrapped(commonOptions, 0) + wrapped(exitStatuses, 0);
}

std::optional<QString> Invocation::value(const QString &option) const
{
    const auto found = values.constFind(option);
    if (found == values.constEnd())
        return std::nullopt;
    return *found;
}

UsageError::UsageError(QString sentence, const CommandSyntax *syntax)
    : m_sentence(std::move(sentence))
    , m_syntax(syntax)
    , m_utf8(m_sentence.toUtf8())
{}

QString UsageError::usage() const
{
    return m_syntax ? Orvanectl::usage(*m_syntax) : programUsage();
}

Invocation parse(const QStringList &arguments)
{
    Invocation invocation;
    if (arguments.isEmpty())
        throw UsageError(u"Say what to do: a command comes first."_s, nullptr);
    const QString &first = arguments.first();
    if (first == u"--help"_s || first == u"-h"_s || first == u"help"_s) {
        invocation.help = true;
        if (arguments.size() > 1)
            invocation.syntax = syntaxOf(arguments.at(1));
        return invocation;
    }
    if (first == u"--version"_s) {
        invocation.version = true;
        return invocation;
    }
    invocation.syntax = syntaxOf(first);
    if (!invocation.syntax) {
        if (looksLikeOption(first))
            throw UsageError(u"The command comes first, before "_s + curlyQuoted(first) + u"."_s,
                             nullptr);
        throw UsageError(curlyQuoted(first) + u" is no command of orvanectl."_s, nullptr);
    }
    const CommandSyntax &syntax = *invocation.syntax;
    const QString commandName = curlyQuoted(u"orvanectl "_s + syntax.name);

    bool optionsEnded = false;
    for (qsizetype at = 1; at < arguments.size(); ++at) {
        const QString &argument = arguments.at(at);
        if (optionsEnded || !looksLikeOption(argument)) {
            invocation.arguments.append(argument);
            continue;
        }
        if (argument == u"--"_s) {
            optionsEnded = true;
            continue;
        }
        if (argument == u"--help"_s || argument == u"-h"_s) {
            invocation.help = true;
            continue;
        }
        if (argument == u"--json"_s) {
            invocation.json = true;
            continue;
        }
        // "--on en5" and "--on=en5" alike.
        const qsizetype equals = argument.indexOf(u'=');
        const QString option = equals < 0 ? argument : argument.left(equals);
        if (syntax.valueOptions.contains(option)) {
            if (invocation.values.contains(option))
                throw UsageError(curlyQuoted(option) + u" is given twice."_s, &syntax);
            if (equals >= 0)
                invocation.values.insert(option, argument.mid(equals + 1));
            else if (at + 1 < arguments.size())
                invocation.values.insert(option, arguments.at(++at));
            else
                throw UsageError(curlyQuoted(option) + u" needs a value after it, as in "_s
                                     + curlyQuoted(optionWithValue(syntax, option)) + u"."_s,
                                 &syntax);
        } else if (syntax.flags.contains(option)) {
            if (equals >= 0)
                throw UsageError(curlyQuoted(option) + u" takes no value."_s, &syntax);
            invocation.flags.insert(option);
        } else {
            throw UsageError(curlyQuoted(option) + u" is no option of "_s + commandName + u"."_s,
                             &syntax);
        }
    }
    if (invocation.help)
        return invocation;

    if (invocation.arguments.size() < syntax.fewestArguments)
        throw UsageError(syntax.missingArguments, &syntax);
    if (syntax.mostArguments && invocation.arguments.size() > *syntax.mostArguments)
        throw UsageError(curlyQuoted(invocation.arguments.at(*syntax.mostArguments))
                             + u" is one argument too many for "_s + commandName + u"."_s,
                         &syntax);
    for (const QString &option : syntax.requiredOptions) {
        if (!invocation.values.contains(option))
            throw UsageError(commandName + u" needs "_s + optionWithValue(syntax, option) + u"."_s,
                             &syntax);
    }
    return invocation;
}

} // namespace Orvanectl
