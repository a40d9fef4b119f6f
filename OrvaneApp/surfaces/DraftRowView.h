#pragma once

#include "OrvaneApp/model/AppModel.h"

#include <QWidget>

class HintField;
class QComboBox;
class QLabel;
class QToolButton;

/// One row of VLANs to build: tag, name, mode, the address fields, DNS and its remove button,
/// with the row's issue under the name when it has one. It edits the draft it is bound to.
class DraftRowView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int rowHeight = 32;
    /// A row with an issue has its line under it.
    static constexpr int issueHeight = 16;

    explicit DraftRowView(AppModel &model, QWidget *parent = nullptr);

    void bind(const AppModel::DraftRow &draft, int nameColumn, const std::optional<QString> &issue,
              bool canRemove);
    void release();
    [[nodiscard]] QList<QWidget *> focusOrder() const;
    /// The help of the name field: what the VLAN will be named.
    [[nodiscard]] static QString nameHelp(const Draft &draft);

    [[nodiscard]] HintField *tagField() const { return m_tag; }
    [[nodiscard]] HintField *nameField() const { return m_name; }
    [[nodiscard]] QComboBox *modeChoice() const { return m_mode; }
    [[nodiscard]] HintField *addressField() const { return m_address; }
    [[nodiscard]] HintField *maskField() const { return m_mask; }
    [[nodiscard]] HintField *routerField() const { return m_router; }
    [[nodiscard]] HintField *dnsField() const { return m_dns; }
    [[nodiscard]] QToolButton *removeButton() const { return m_remove; }
    [[nodiscard]] QLabel *issueLabel() const { return m_issue; }
    [[nodiscard]] const AppModel::DraftRow &draft() const { return m_draft; }

private:
    void show();

    AppModel &m_model;
    AppModel::DraftRow m_draft;
    QMetaObject::Connection m_draftChanged;
    int m_nameColumn = 210;
    std::optional<QString> m_issueText;
    bool m_canRemove = false;

    HintField *m_tag = nullptr;
    HintField *m_name = nullptr;
    QComboBox *m_mode = nullptr;
    HintField *m_address = nullptr;
    HintField *m_mask = nullptr;
    HintField *m_router = nullptr;
    HintField *m_dns = nullptr;
    QToolButton *m_remove = nullptr;
    QLabel *m_issueSymbol = nullptr;
    QLabel *m_issue = nullptr;
};
