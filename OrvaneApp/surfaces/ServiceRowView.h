#pragma once

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/CurrentColumns.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class HintField;
class MoreButton;
class Popover;
class ProminentButton;
class Pulse;
class QCheckBox;
class QComboBox;
class QGraphicsOpacityEffect;
class QLabel;
class QPushButton;
class QToolButton;
class StatusDot;
class Switch;

/// One row of the Current tab: a live editor of one service. It shows the row of the model it
/// is bound to and writes what is typed into that row's `ServiceEdit`; nothing is written to
/// the system but through a confirmation. The list rebinds it to another row as it scrolls, so
/// it keeps no row of its own across a bind.
class ServiceRowView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int rowHeight = 32;
    /// The strength of a row without a service, or switched off: its name, parent and address
    /// controls are drawn at it.
    static constexpr qreal dimmed = 0.45;

    using Apply = std::function<void(const QList<VLANKit::PlannedChange> &)>;

    ServiceRowView(AppModel &model, Apply apply, QWidget *parent = nullptr);
    ~ServiceRowView() override;

    /// Shows `row` (null: nothing) with a name column of `nameColumn` points in `location`.
    void bind(const AppModel::Row &row, int nameColumn, const QString &location);
    /// Drops what hangs from the row: it is no longer shown here.
    void release();
    /// The controls Tab walks, left to right.
    [[nodiscard]] QList<QWidget *> focusOrder() const;

    /// The help of the name field, from the row's liveness.
    [[nodiscard]] static QString statusHelp(const ServiceEdit &row, const QString &location);
    /// 1 with a service that is on, `dimmed` otherwise.
    [[nodiscard]] static qreal strength(const ServiceEdit &row);
    /// The words of the mode's third entry; empty for DHCP and Manual.
    [[nodiscard]] static QString otherModeLabel(VLANKit::IPMode mode);

    // What a test looks at.
    [[nodiscard]] const AppModel::Row &row() const { return m_row; }
    [[nodiscard]] QCheckBox *tick() const { return m_tick; }
    [[nodiscard]] QLabel *device() const { return m_device; }
    [[nodiscard]] StatusDot *dot() const { return m_dot; }
    [[nodiscard]] HintField *nameField() const { return m_name; }
    [[nodiscard]] QComboBox *parentChoice() const { return m_parent; }
    [[nodiscard]] QComboBox *modeChoice() const { return m_mode; }
    [[nodiscard]] HintField *addressField() const { return m_address; }
    [[nodiscard]] HintField *maskField() const { return m_mask; }
    [[nodiscard]] HintField *routerField() const { return m_router; }
    [[nodiscard]] QComboBox *ipv6Choice() const { return m_ipv6; }
    [[nodiscard]] Switch *onSwitch() const { return m_on; }
    [[nodiscard]] QPushButton *addButton() const { return m_add; }
    [[nodiscard]] ProminentButton *saveButton() const { return m_save; }
    [[nodiscard]] QToolButton *problemMark() const { return m_problem; }
    [[nodiscard]] MoreButton *moreButton() const { return m_more; }
    [[nodiscard]] Pulse *savePulse() const { return m_pulse; }
    /// The strength its dimmed controls are drawn at now.
    [[nodiscard]] qreal shownStrength() const;
    /// The popovers open on the row.
    [[nodiscard]] Popover *openPopover() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void build();
    void placeColumns(bool vlan, bool hasService);
    /// Sets every control from the row, touching only what differs.
    void show();
    void showChoices();
    void showAddress();
    void showSaveCell();
    /// Closes the row's popovers when what they ask about is gone.
    void closePopovers();
    void confirmSave();
    void showProblem();
    void confirmAdd();
    void showMore();

    AppModel &m_model;
    Apply m_apply;
    AppModel::Row m_row;
    int m_nameColumn = -1;
    QString m_location;
    QMetaObject::Connection m_rowChanged;
    /// The settings of the row last shown, to tell a reload that changed it from one that
    /// only made a new object of it.
    std::optional<RowSource> m_shownSource;
    bool m_shownTouched = false;

    QCheckBox *m_tick = nullptr;
    QLabel *m_device = nullptr;
    QWidget *m_dimmable = nullptr;
    QGraphicsOpacityEffect *m_dimming = nullptr;
    StatusDot *m_dot = nullptr;
    HintField *m_name = nullptr;
    QComboBox *m_parent = nullptr;
    QComboBox *m_mode = nullptr;
    HintField *m_address = nullptr;
    HintField *m_mask = nullptr;
    HintField *m_router = nullptr;
    QComboBox *m_ipv6 = nullptr;
    Switch *m_on = nullptr;
    QPushButton *m_add = nullptr;
    ProminentButton *m_save = nullptr;
    Pulse *m_pulse = nullptr;
    QToolButton *m_problem = nullptr;
    MoreButton *m_more = nullptr;

    QPointer<Popover> m_confirming;
    QPointer<Popover> m_confirmingAdd;
    QPointer<Popover> m_showingMore;
    QPointer<Popover> m_showingProblem;
};
