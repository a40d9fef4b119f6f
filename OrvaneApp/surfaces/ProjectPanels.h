#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// The two file panels of the bar, as values that tests replace: each gets what the panel is to
/// propose and answers the path the person confirmed, or nothing for Cancel.
struct ProjectPanels
{
    struct Request
    {
        /// Where the panel starts; empty for the panel's own choice.
        QString folder;
        /// The proposed file name (the save panel only).
        QString fileName;
        /// The words on the panel's button.
        QString acceptLabel;
    };
    using Panel = std::function<std::optional<QString>(QWidget *parent, const Request &)>;

    Panel save;
    Panel open;

    /// The system's own panels (QFileDialog), for JSON files.
    [[nodiscard]] static ProjectPanels system();
};
