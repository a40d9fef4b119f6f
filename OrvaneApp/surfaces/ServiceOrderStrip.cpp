#include "OrvaneApp/surfaces/ServiceOrderStrip.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/RecommendedOrderQuestion.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

ServiceOrderBadge::ServiceOrderBadge(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(5);
    m_symbol = new QLabel(this);
    m_words = new QLabel(this);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setMinimumWidth(1);
    layout->addWidget(m_symbol);
    layout->addWidget(m_words, 1);
}

void ServiceOrderBadge::showLine(const RankingLine &line)
{
    if (m_words->text() != line.text)
        m_words->setText(line.text);
    if (m_shown && m_warns == line.warns)
        return;
    m_shown = true;
    m_warns = line.warns;
    const Roles::Role role = line.warns ? Roles::Role::orange : Roles::Role::green;
    m_symbol->setPixmap(
        Symbols::icon(line.warns ? u"exclamationmark.triangle.fill"_s : u"checkmark.shield.fill"_s,
                      role)
            .pixmap(QSize(13, 13), devicePixelRatioF()));
    QPalette colours = m_words->palette();
    colours.setColor(QPalette::WindowText, line.warns ? Roles::color(Roles::Role::orange, palette())
                                                      : palette().color(QPalette::WindowText));
    m_words->setPalette(colours);
    setHelp(this, line.warns ? u"These VLANs rank above your internet path. If one picks up a "
                               "router from DHCP, macOS gives it the internet and yours stops "
                               "working."_s
                             : u"macOS gives the internet to the highest-ranked service that has "
                               "a route. Nothing above your internet path can claim it."_s);
}

QString ServiceOrderBadge::text() const
{
    return m_words->text();
}

ServiceOrderStrip::ServiceOrderStrip(AppModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(10);
    m_order = new QPushButton(u"Service order\u2026"_s, this);
    m_order->setAutoDefault(false);
    connect(m_order, &QPushButton::clicked, this, [this] { m_model.setShowingServiceOrder(true); });
    m_badge = new ServiceOrderBadge(this);
    m_recommended = new QPushButton(u"Apply recommended order\u2026"_s, this);
    m_recommended->setAutoDefault(false);
    setHelp(m_recommended, RecommendedOrderQuestion::help);
    m_question = new RecommendedOrderQuestion(m_model, *m_recommended);
    layout->addWidget(m_order);
    layout->addWidget(m_badge, 1);
    layout->addWidget(m_recommended);

    for (const auto signal : {&AppModel::orderNeedsFixingChanged, &AppModel::riskyVLANsChanged,
                              &AppModel::serviceOrderChanged, &AppModel::internetServiceIDsChanged,
                              &AppModel::selectedLocationChanged})
        connect(&m_model, signal, this, &ServiceOrderStrip::showModel);
    showModel();
}

void ServiceOrderStrip::showModel()
{
    setHelp(m_order, u"See which service ranks above which in "_s + m_model.selectedLocation()
                         + u", and change it"_s);
    m_badge->showLine(m_model.rankingLine());
    const bool needsFixing = m_model.orderNeedsFixing();
    m_recommended->setVisible(needsFixing);
    m_question->follow(needsFixing);
}
