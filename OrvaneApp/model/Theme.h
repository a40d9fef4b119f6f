#pragma once

#include <QFont>
#include <QString>

#include <optional>

/// The application's typeface, found once: IBM Plex Sans where it is installed, else the
/// system's font. Every text of the application is set through `font`, so a layout measures
/// the same wherever it runs (sizes are logical pixels, the platform's points).
class Theme
{
public:
    /// The face's family name, or absent when neither name is installed.
    [[nodiscard]] static const std::optional<QString> &faceName();
    /// The face (or the system font) at a fixed pixel size and weight.
    [[nodiscard]] static QFont font(int pixelSize, QFont::Weight weight = QFont::Normal);
    /// The window's base: 13 points, regular.
    [[nodiscard]] static QFont base() { return font(13); }

    /// The rule behind `faceName`, over a list of installed families.
    [[nodiscard]] static std::optional<QString> chooseFace(const QStringList &installedFamilies);
};
