#pragma once

#include "VLANKit/project/Profile.h"
#include "tests/store/StoreTestSupport.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

/// What one run of orvanectl left behind.
struct CliRun
{
    int status = -1;
    QString out;
    QString err;

    /// Standard output as lines, without the final line end.
    [[nodiscard]] QStringList lines() const;
    /// The last line of standard error: where the sentence of a failure stands.
    [[nodiscard]] QString lastErrorLine() const;
    /// Standard output parsed as the one JSON object of --json; a failure of the test when it
    /// isn't one.
    [[nodiscard]] QJsonObject json() const;
};

/// Runs the real orvanectl over a temporary copy of an example machine, with the user's
/// configuration and data folders pointed at temporary folders: nothing of the person running
/// the tests is read or written.
class CliTest : public StoreTest
{
protected:
    CliTest();

    /// orvanectl with these arguments and "--prefs" the copied machine, with `input` on
    /// standard input (closed after it).
    CliRun orvanectl(const QStringList &arguments, const QByteArray &input = {}) const;
    /// orvanectl with exactly these arguments.
    CliRun orvanectlAlone(const QStringList &arguments, const QByteArray &input = {}) const;

    /// Writes a project file beside the machine and answers its path.
    QString writeProject(const VLANKit::Profile &profile,
                         const QString &name = QStringLiteral("show.json")) const;

    /// Every file of the machine's folder, by name, with its bytes.
    [[nodiscard]] QMap<QString, QByteArray> machineFiles() const;
    [[nodiscard]] QByteArray bytesOf(const QString &path) const;

    /// The defaults file that orvanectl and the window read, in the temporary configuration.
    [[nodiscard]] QString defaultsPath() const;

    QString configFolder;
    QString dataFolder;
};

/// A manual IPv4 configuration.
[[nodiscard]] VLANKit::IPConfig manualIP(const QString &address,
                                         const QString &mask = QStringLiteral("255.255.255.0"));

/// The cells of a line of a table as orvanectl prints it: columns stand two blanks or more apart.
[[nodiscard]] QStringList cellsOf(const QString &line);
