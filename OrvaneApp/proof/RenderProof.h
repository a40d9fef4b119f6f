#pragma once

#include "OrvaneApp/proof/RenderRequest.h"
#include "VLANKit/Platform.h"
#include "VLANKit/files/Defaults.h"

#include <QString>

class AppModel;
class QWidget;

/// Draws one surface off screen from the real configuration into a PNG, and prints what it
/// measured: the text fields and pop-ups, the texts cut short and those at the window's edge.
/// The model runs as a picture: it remembers nothing and watches nothing.
class RenderProof
{
public:
    RenderProof(RenderRequest request, VLANKit::Platform platform, VLANKit::Defaults defaults);

    /// Draws, prints its lines on standard output, and answers the status: 0 written with
    /// nothing at the edge, 1 a failure (its line printed), 2 written with a text at the edge.
    [[nodiscard]] int run();

    /// "Orvane Projects" beside the executable (the application's bundle on a Mac), when that
    /// is a folder.
    [[nodiscard]] static std::optional<QString> projectsFolder(const QString &besideExecutable);

private:
    /// The surface to draw, sized; null with the failure's line printed.
    [[nodiscard]] QWidget *build(AppModel &model);
    [[nodiscard]] bool writePicture(QWidget &root);
    void printMeasures(const AppModel &model) const;

    RenderRequest m_request;
    VLANKit::Platform m_platform;
    VLANKit::Defaults m_defaults;
};
