#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

/// What a "--render" command line asks the picture maker for. Plain value.
struct RenderRequest
{
    /// The surfaces a picture can show, in the order the usage line names them.
    enum class Surface {
        current,
        add,
        newLocation,
        rename,
        order,
        reorder,
        import,
        result,
        more,
        help
    };

    Surface surface = Surface::current;
    /// Where the PNG goes: the path as given, made absolute.
    QString output;
    int width = 1340;
    int height = 760;
    bool dark = true;
    std::optional<QString> location;
    std::optional<QString> host;
    /// "TAG,NAME,dhcp|manual", in the order given.
    QStringList drafts;
    std::optional<QString> edit;
    std::optional<QString> name;
    std::optional<QString> buildOn;
    bool adaptersOnly = false;
    bool switchNow = false;
    bool sampleHardware = false;
    /// With "\n" (backslash, n) already turned into a line end.
    std::optional<QString> message;
    bool failed = false;
    std::optional<QString> project;

    friend bool operator==(const RenderRequest &, const RenderRequest &) = default;

    /// The word of a surface on the command line: "current", "new", …
    [[nodiscard]] static QString word(Surface surface);
    /// The one line a bad "--render" line gets on standard error.
    [[nodiscard]] static QString usage();

    /// A "--render" line that can't be read: the caller prints `usage()` and ends with 1.
    struct BadLine
    {
        friend bool operator==(const BadLine &, const BadLine &) = default;
    };
    /// No "--render" at all: the program goes on to its other lives.
    struct NotAsked
    {
        friend bool operator==(const NotAsked &, const NotAsked &) = default;
    };
    using Parsed = std::variant<NotAsked, BadLine, RenderRequest>;

    /// Reads the process's arguments (without the program's name and without "--prefs DIR").
    /// Pure: it prints nothing and never ends the process.
    [[nodiscard]] static Parsed parse(const QStringList &arguments);
};
