#pragma once

#include "OrvaneApp/surfaces/RecommendedOrderQuestion.h"

#include <QWidget>

class AppModel;
class QLabel;
class QPushButton;
struct RankingLine;

/// How the service order stands, in one line: the `rankingLine`, with a warning mark when VLANs
/// outrank the way to the internet and a shield when nothing does.
class ServiceOrderBadge : public QWidget
{
    Q_OBJECT

public:
    explicit ServiceOrderBadge(QWidget *parent = nullptr);

    void showLine(const RankingLine &line);
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool warns() const { return m_warns; }

private:
    QLabel *m_symbol = nullptr;
    QLabel *m_words = nullptr;
    bool m_warns = false;
    bool m_shown = false;
};

/// The line at the foot of the Current tab: the way to the service order sheet, the badge, and
/// the mend when the order needs it.
class ServiceOrderStrip : public QWidget
{
    Q_OBJECT

public:
    explicit ServiceOrderStrip(AppModel &model, QWidget *parent = nullptr);

    [[nodiscard]] bool confirmingRecommended() const { return m_question->asking(); }
    [[nodiscard]] QPushButton *orderButton() const { return m_order; }
    [[nodiscard]] QPushButton *recommendedButton() const { return m_recommended; }
    [[nodiscard]] ServiceOrderBadge *badge() const { return m_badge; }

private:
    void showModel();

    AppModel &m_model;
    QPushButton *m_order = nullptr;
    ServiceOrderBadge *m_badge = nullptr;
    QPushButton *m_recommended = nullptr;
    RecommendedOrderQuestion *m_question = nullptr;
};
