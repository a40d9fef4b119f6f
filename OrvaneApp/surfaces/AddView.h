#pragma once

#include "OrvaneApp/model/AppModel.h"

#include <QWidget>

class AddressPlanField;
class Pill;
class ProminentButton;
class QComboBox;
class QLabel;
class QPushButton;
class QShortcut;
class QToolButton;
class RowList;

/// The Add tab: the adapter to build on and the address plan, the rows of VLANs to build, the
/// VLANs this machine has already, and the line that says whether the rows can be built. Nothing
/// is written until the plan sheet is confirmed.
class AddView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int leftMargin = 12;
    static constexpr int rightMargin = 8;
    /// The kinds of rows in the list.
    enum RowKind { draftRow = 0, existingRow = 1 };

    explicit AddView(AppModel &model, QWidget *parent = nullptr);

    /// The footer's words, and whether they warn.
    [[nodiscard]] static std::pair<QString, bool> status(const AppModel &model,
                                                         qsizetype rowsWithIssues);
    /// The pill beside "VLANs to build", and whether it warns.
    [[nodiscard]] static std::pair<QString, bool> planPill(const VLANKit::AddressPlan &plan);

    // What a test looks at.
    [[nodiscard]] RowList *rowList() const { return m_list; }
    [[nodiscard]] AddressPlanField *planField() const { return m_plan; }
    [[nodiscard]] QComboBox *adapterChoice() const { return m_adapter; }
    [[nodiscard]] QPushButton *nameButton() const { return m_nameButton; }
    [[nodiscard]] Pill *pill() const { return m_pill; }
    [[nodiscard]] QPushButton *addButton() const { return m_addRow; }
    [[nodiscard]] QLabel *statusLabel() const { return m_status; }
    [[nodiscard]] ProminentButton *buildButton() const { return m_build; }
    [[nodiscard]] QWidget *rowView(const QString &id) const;
    /// The identity a draft goes by in the list.
    [[nodiscard]] static QString idOf(const Draft &draft);

private:
    QWidget *makeTargetLine();
    QWidget *makeListHead();
    QWidget *makeColumnHead();
    QWidget *makeExistingHead();
    QWidget *makeFooter();
    QWidget *makeRow(QWidget *viewport, int kind);
    void bindRow(QWidget *row, const QString &id);

    void showRows();
    void showTarget();
    void showPlan();
    void showFooter();
    void addRow();

    AppModel &m_model;
    RowList *m_list = nullptr;
    QComboBox *m_adapter = nullptr;
    QPushButton *m_nameButton = nullptr;
    AddressPlanField *m_plan = nullptr;
    QWidget *m_listHead = nullptr;
    Pill *m_pill = nullptr;
    QWidget *m_loadError = nullptr;
    QPushButton *m_addRow = nullptr;
    QWidget *m_columnHead = nullptr;
    QList<QLabel *> m_columnLabels;
    QWidget *m_existingHead = nullptr;
    Pill *m_existingPill = nullptr;
    QLabel *m_statusSymbol = nullptr;
    QLabel *m_status = nullptr;
    ProminentButton *m_build = nullptr;
    QShortcut *m_returnBuilds = nullptr;

    /// What the list shows, found by identity: the drafts and their issues of the last update,
    /// and the VLANs already here.
    QHash<QString, AppModel::DraftRow> m_drafts;
    QHash<QUuid, QString> m_issues;
    QHash<QString, ExistingVLAN> m_existing;
    bool m_canRemoveBlank = false;
};
