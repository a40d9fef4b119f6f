#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/LinuxVolume.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace DriveCare {

std::optional<QString> bundleOfThisApp()
{
    const QString path = QFileInfo(u"/proc/self/exe"_s).canonicalFilePath();
    if (path.isEmpty())
        return std::nullopt;
    return path;
}

std::optional<QString> executableOfThisApp()
{
    return bundleOfThisApp();
}

std::optional<VolumeFacts> VolumeFacts::read(const QString &path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    if (real.isEmpty())
        return std::nullopt;
    const std::optional<LinuxVolume> volume = LinuxVolume::read(real, u"/proc"_s, u"/sys"_s);
    if (!volume)
        return std::nullopt;
    return volume->facts;
}

} // namespace DriveCare
