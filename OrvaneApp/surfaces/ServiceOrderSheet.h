#pragma once

#include "OrvaneApp/surfaces/RecommendedOrderQuestion.h"

#include <QDialog>

class AppModel;
class QLabel;
class QPushButton;
class ServiceOrderTable;

/// The whole service order of the Location on show: ticks for what reaches the internet, rows
/// to drag, each written at once, and the recommended order, asked first. Every way it closes
/// is "Done".
class ServiceOrderSheet : public QDialog
{
    Q_OBJECT

public:
    static const QString alreadyRecommendedHelp;

    explicit ServiceOrderSheet(AppModel &model, QWidget *parent = nullptr);

    /// "The services in " + the Location + ", highest first. …"
    [[nodiscard]] static QString introduction(const QString &location);

    [[nodiscard]] bool confirmingRecommended() const { return m_question->asking(); }
    [[nodiscard]] ServiceOrderTable *table() const { return m_table; }
    [[nodiscard]] QPushButton *recommendedButton() const { return m_recommended; }
    [[nodiscard]] QPushButton *doneButton() const { return m_done; }
    [[nodiscard]] QWidget *errorLine() const { return m_error; }

private:
    void showModel();
    void showError();

    AppModel &m_model;
    QLabel *m_introduction = nullptr;
    QList<QLabel *> m_heads;
    ServiceOrderTable *m_table = nullptr;
    QWidget *m_error = nullptr;
    QLabel *m_errorWords = nullptr;
    QPushButton *m_recommended = nullptr;
    QPushButton *m_done = nullptr;
    RecommendedOrderQuestion *m_question = nullptr;
};
