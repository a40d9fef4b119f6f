#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <exception>
#include <optional>
#include <utility>

namespace Orvanectl {

/// One command of orvanectl: its words, what it takes, and its usage text.
struct CommandSyntax
{
    QString name;
    /// The command line in brief: "plan PROJECT --on ADAPTER [--host N] …".
    QString synopsis;
    /// One line on what it does.
    QString purpose;
    /// The options that take a value, and the flags, besides --json and --help.
    QStringList valueOptions;
    QStringList flags;
    /// Options without which the command can't run.
    QStringList requiredOptions;
    qsizetype fewestArguments = 0;
    /// Absent: as many as are given.
    std::optional<qsizetype> mostArguments;
    /// What to say when the arguments are missing.
    QString missingArguments;
    /// The arguments and options, each with what it means.
    QList<std::pair<QString, QString>> details;
};

/// The commands, in the order the usage lists them.
[[nodiscard]] const QList<CommandSyntax> &commands();
[[nodiscard]] const CommandSyntax *syntaxOf(const QString &name);

/// The usage of one command, and of the program as a whole.
[[nodiscard]] QString usage(const CommandSyntax &syntax);
[[nodiscard]] QString programUsage();

/// What the person asked for, once the command line has been read.
struct Invocation
{
    const CommandSyntax *syntax = nullptr;
    QStringList arguments;
    QMap<QString, QString> values;
    QSet<QString> flags;
    bool json = false;
    bool help = false;
    bool version = false;

    [[nodiscard]] std::optional<QString> value(const QString &option) const;
    [[nodiscard]] bool has(const QString &flag) const { return flags.contains(flag); }
};

/// A command line that can't be carried out as written: the sentence that says why, and the
/// usage that goes with it. The program ends with status 2.
class UsageError : public std::exception
{
public:
    UsageError(QString sentence, const CommandSyntax *syntax);

    [[nodiscard]] const QString &sentence() const { return m_sentence; }
    /// The usage of the command, or of the program when no command was recognised.
    [[nodiscard]] QString usage() const;
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_sentence;
    const CommandSyntax *m_syntax;
    QByteArray m_utf8;
};

/// Reads the arguments after the program's name, "--prefs DIR" already taken out. Throws
/// `UsageError`. "--help", "help" and "--version" alone give an invocation without a command.
[[nodiscard]] Invocation parse(const QStringList &arguments);

} // namespace Orvanectl
