// Replays kept inputs through a fuzz target's entry, with the ordinary compiler: every finding
// stays a test of the normal build.
#include "fuzz/FuzzInput.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

int replay(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "Can't read %s\n", qPrintable(path));
        return 1;
    }
    const QByteArray input = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()),
                           static_cast<size_t>(input.size()));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    int failures = 0;
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (!QFileInfo(argument).isDir()) {
            failures += replay(argument);
            ++replayed;
            continue;
        }
        QDirIterator files(argument, QDir::Files);
        while (files.hasNext()) {
            failures += replay(files.next());
            ++replayed;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    return failures == 0 && replayed > 0 ? 0 : 1;
}
