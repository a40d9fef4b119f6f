#include "fuzz/FuzzInput.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace FuzzInput {

QByteArray bytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
}

QStringList arguments(const uint8_t *data, size_t size)
{
    QStringList words;
    for (const QByteArray &word : bytes(data, size).split('\0'))
        words.append(QString::fromUtf8(word));
    return words;
}

QList<QByteArray> parts(const uint8_t *data, size_t size, int count)
{
    const QByteArray whole = bytes(data, size);
    QList<QByteArray> split;
    qsizetype from = 0;
    while (split.size() < count - 1) {
        const qsizetype at = whole.indexOf(separator, from);
        if (at < 0)
            break;
        split.append(whole.mid(from, at - from));
        from = at + qsizetype(sizeof separator) - 1;
    }
    split.append(whole.mid(from));
    while (split.size() < count)
        split.append(QByteArray());
    return split;
}

QString scratchFolder()
{
    static QTemporaryDir folder;
    return folder.path();
}

void writeOrRemove(const QString &path, const QByteArray &bytes)
{
    if (bytes.isEmpty()) {
        QFile::remove(path);
        return;
    }
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

void require(bool holds, const char *rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken rule: %s\n", rule);
    std::abort();
}

} // namespace FuzzInput
