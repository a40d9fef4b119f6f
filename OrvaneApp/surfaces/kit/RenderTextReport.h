#pragma once

#include <QList>
#include <QRect>
#include <QString>

/// A view that paints texts of its own (a list's delegate, a custom control) tells the render
/// proof's walk what it shows, so that its texts are measured like those of real controls.
class RenderTextReport
{
public:
    /// One text as painted: where it stands in the view's coordinates, and the width it may use.
    struct Text
    {
        QString text;
        QRect rect;
        qreal availableWidth = 0;
    };

    virtual ~RenderTextReport() = default;
    /// The texts that are visible now.
    [[nodiscard]] virtual QList<Text> visibleTexts() const = 0;
};
