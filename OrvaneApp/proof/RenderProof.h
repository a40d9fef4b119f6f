#pragma once

#include "OrvaneApp/proof/RenderRequest.h"
#include "VLANKit/Platform.h"
#include "VLANKit/files/Defaults.h"

#include <QString>

#include <memory>

class AppModel;
class ServiceEdit;
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

private:
    /// "--draft TAG,NAME,dhcp|manual" rows, in order, into the Add tab.
    void addDrafts(AppModel &model) const;
    /// "--edit DEVICE": that row switched to Manual. False with its line printed when there is
    /// no such row.
    [[nodiscard]] bool editRow(AppModel &model) const;
    /// The surface to draw, sized; null with the failure's line printed.
    [[nodiscard]] QWidget *build(AppModel &model);
    /// The row `more` shows: the one named by "--edit", or the first VLAN row.
    [[nodiscard]] std::shared_ptr<ServiceEdit> moreRow(const AppModel &model) const;
    [[nodiscard]] bool writePicture(QWidget &root);
    void printMeasures(const AppModel &model) const;

    RenderRequest m_request;
    VLANKit::Platform m_platform;
    VLANKit::Defaults m_defaults;
};
