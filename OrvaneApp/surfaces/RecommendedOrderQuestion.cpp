#include "OrvaneApp/surfaces/RecommendedOrderQuestion.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/OrderConfirmation.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

const QString RecommendedOrderQuestion::help =
    u"Internet first, then the adapters, then the closed VLANs"_s;

RecommendedOrderQuestion::RecommendedOrderQuestion(AppModel &model, QPushButton &button)
    : QObject(&button)
    , m_model(model)
    , m_button(button)
{
    connect(&m_button, &QPushButton::clicked, this, &RecommendedOrderQuestion::ask);
}

void RecommendedOrderQuestion::follow(bool needsFixing)
{
    if (needsFixing || !m_question)
        return;
    m_asking = false;
    m_question->dismissQuietly();
}

void RecommendedOrderQuestion::ask()
{
    if (m_question)
        return;
    m_asking = true;
    m_question = new OrderConfirmation(
        &m_button, m_model.recommendedOrderLines(),
        [this] {
            m_asking = false;
            // Answering is the next action, which clears the last failure.
            m_model.setOrderError(std::nullopt);
            const WaitCursor busy;
            m_model.applyRecommendedOrder();
        },
        [this] { m_asking = false; });
    m_question->present();
}
