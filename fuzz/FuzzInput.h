#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

/// What every fuzz target shares: turning libFuzzer's bytes into the inputs of a reader, and the
/// checks that end a run with a finding.
namespace FuzzInput {

[[nodiscard]] QByteArray bytes(const uint8_t *data, size_t size);

/// A command line: the bytes split at NUL characters, each part read as UTF-8.
[[nodiscard]] QStringList arguments(const uint8_t *data, size_t size);

/// Several files in one input, split at the line `separator`; missing parts are empty.
inline constexpr char separator[] = "\n--8<--\n";
[[nodiscard]] QList<QByteArray> parts(const uint8_t *data, size_t size, int count);

/// A folder that lives as long as the process, for readers that want files.
[[nodiscard]] QString scratchFolder();

/// Writes `bytes` to `path`, or removes the file when `bytes` is empty.
void writeOrRemove(const QString &path, const QByteArray &bytes);

/// A broken rule of the reader: printed, then the process aborts, so that libFuzzer keeps the
/// input and a replay fails.
void require(bool holds, const char *rule);

} // namespace FuzzInput

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
