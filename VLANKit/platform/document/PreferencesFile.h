#pragma once

#include "VLANKit/files/FileSignature.h"

#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace VLANKit {

/// One version of preferences.plist as parsed. Nothing in it ever changes: every session
/// opened on that version starts from the same dictionaries, and one that stages copies only
/// the dictionaries it writes, when it writes them.
struct ParsedPreferences
{
    FileSignature signature;
    QVariantMap root;
};

/// preferences.plist, read as the system reads it, and parsed once for each version of the
/// file: a version is told from another by its signature, the same one that the stale check
/// of a commit compares.
class PreferencesFile
{
public:
    explicit PreferencesFile(QString path);

    /// What reading the file gave.
    struct Reading
    {
        /// The parsed document; null when the file is missing or can't be used.
        std::shared_ptr<const ParsedPreferences> parsed;
        bool missing = false;
        /// Why an existing file can't be used, in a sentence naming it; empty otherwise.
        QString problem;
    };

    /// The file as it is now; parses only a version not parsed before.
    [[nodiscard]] Reading read();
    /// How many times the file's bytes were parsed: for tests.
    [[nodiscard]] int parses() const { return m_parses; }

private:
    QString m_path;
    std::shared_ptr<const ParsedPreferences> m_last;
    int m_parses = 0;
};

} // namespace VLANKit
