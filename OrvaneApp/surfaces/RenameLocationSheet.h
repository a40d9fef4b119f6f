#pragma once

#include "OrvaneApp/surfaces/kit/SheetParts.h"

class AppModel;

/// Asks for a Location's new name; only the name changes.
class RenameLocationSheet : public NameSheet
{
    Q_OBJECT

public:
    static constexpr int sheetWidth = 460;

    explicit RenameLocationSheet(AppModel &model, QWidget *parent = nullptr);

    [[nodiscard]] HintField *nameField() const { return m_name; }
    [[nodiscard]] QWidget *issue() const { return m_issue; }

private:
    void showModel();

    AppModel &m_model;
    HintField *m_name = nullptr;
    QWidget *m_issue = nullptr;
};
