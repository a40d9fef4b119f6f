#pragma once

#include "OrvaneApp/model/ModelRecords.h"

#include <QDialog>

#include <functional>

/// How the last action went: a head, the message one selectable line a text, and "OK". Every
/// way it closes (the button, Escape, the close box) calls `dismiss`.
class ResultSheet : public QDialog
{
    Q_OBJECT

public:
    /// The width the sheet takes; its height is what its layout asks for at that width.
    static constexpr int sheetWidth = 460;

    ResultSheet(const BuildResult &result, std::function<void()> dismiss,
                QWidget *parent = nullptr);

    /// "Done" or "Couldn't do that".
    [[nodiscard]] static QString head(bool succeeded);

private:
    std::function<void()> m_dismiss;
};
