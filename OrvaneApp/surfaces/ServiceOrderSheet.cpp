#include "OrvaneApp/surfaces/ServiceOrderSheet.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/RecommendedOrderQuestion.h"
#include "OrvaneApp/surfaces/ServiceOrderTable.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

const QString ServiceOrderSheet::alreadyRecommendedHelp =
    u"The order is already the recommended one"_s;

namespace {

constexpr int padding = ServiceOrderLayout::padding;

QLabel *wrapping(const QString &text, int size, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(size));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

ServiceOrderSheet::ServiceOrderSheet(AppModel &model, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
{
    setWindowTitle(u"Service order"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    auto *head = new QVBoxLayout;
    head->setContentsMargins(padding, padding, padding, padding);
    head->setSpacing(6);
    auto *title = new QLabel(u"Service order"_s, this);
    title->setFont(Theme::font(17, QFont::DemiBold));
    head->addWidget(title);
    m_introduction = wrapping(QString(), 12, this);
    Roles::useSecondaryText(*m_introduction);
    head->addWidget(m_introduction);
    layout->addLayout(head);
    layout->addWidget(ConfirmParts::divider(this));

    // The column head stands at the rows' widths: the list's padding and inset, then the
    // columns with the rows' spacing.
    auto *columns = new QHBoxLayout;
    const int side = padding + ServiceOrderLayout::listInset;
    columns->setContentsMargins(side, 6, side, 4);
    columns->setSpacing(ServiceOrderLayout::spacing);
    const QStringList heads{u"#"_s, u"Internet"_s, u"Service"_s, u"Interface"_s, u"IPv4"_s};
    for (const QString &text : heads) {
        QLabel *label = SmallParts::headLabel(text, this);
        m_heads.append(label);
        columns->addWidget(label);
    }
    columns->addStretch();
    layout->addLayout(columns);

    m_table = new ServiceOrderTable(
        m_model,
        [this](const VLANKit::ServiceRecord &service) {
            m_model.setOrderError(std::nullopt);
            m_model.toggleInternet(service);
        },
        [this](const QList<qsizetype> &sources, qsizetype target) {
            m_model.setOrderError(std::nullopt);
            const WaitCursor busy;
            m_model.moveServices(sources, target);
        },
        this);
    auto *list = new QHBoxLayout;
    list->setContentsMargins(side, 0, 0, 0);
    list->addWidget(m_table);
    list->addStretch();
    layout->addLayout(list);

    m_error = new QWidget(this);
    auto *errorLayout = new QHBoxLayout(m_error);
    errorLayout->setContentsMargins(padding, 8, padding, 8);
    errorLayout->setSpacing(6);
    auto *errorSymbol = new QLabel(m_error);
    errorSymbol->setPixmap(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange)
                               .pixmap(QSize(12, 12), devicePixelRatioF()));
    errorLayout->addWidget(errorSymbol, 0, Qt::AlignTop);
    m_errorWords = wrapping(QString(), 12, m_error);
    QPalette orange = m_errorWords->palette();
    orange.setColor(QPalette::WindowText, Roles::color(Roles::Role::orange, orange));
    m_errorWords->setPalette(orange);
    errorLayout->addWidget(m_errorWords, 1);
    layout->addWidget(m_error);
    layout->addWidget(ConfirmParts::divider(this));

    auto *foot = new QHBoxLayout;
    foot->setContentsMargins(padding, padding, padding, padding);
    m_recommended = ConfirmParts::plainButton(u"Apply recommended order\u2026"_s, this);
    m_question = new RecommendedOrderQuestion(m_model, *m_recommended);
    m_done = new QPushButton(u"Done"_s, this);
    m_done->setDefault(true);
    connect(m_done, &QPushButton::clicked, this, &QDialog::accept);
    foot->addWidget(m_recommended);
    foot->addStretch();
    foot->addWidget(m_done);
    layout->addLayout(foot);

    // Every way the sheet closes, Escape and the close box included, is "Done".
    connect(this, &QDialog::finished, this, [this] {
        m_model.setOrderError(std::nullopt);
        m_model.setShowingServiceOrder(false);
    });

    for (const auto signal : {&AppModel::serviceOrderChanged, &AppModel::orderNeedsFixingChanged,
                              &AppModel::selectedLocationChanged,
                              &AppModel::internetServiceIDsChanged, &AppModel::riskyVLANIDsChanged})
        connect(&m_model, signal, this, &ServiceOrderSheet::showModel);
    connect(&m_model, &AppModel::orderErrorChanged, this, &ServiceOrderSheet::showError);
    showModel();
    showError();
}

QString ServiceOrderSheet::introduction(const QString &location)
{
    return u"The services in "_s + location
           + u", highest first. macOS gives the internet to the highest one that has a route to "
             "it. Tick the ones that reach the internet where you are, and drag a row to move "
             "it: the new order is written straight away."_s;
}

void ServiceOrderSheet::showModel()
{
    const QString words = introduction(m_model.selectedLocation());
    if (m_introduction->text() != words)
        m_introduction->setText(words);
    const ServiceOrderLayout columns = ServiceOrderLayout::measuring(m_model.serviceOrder());
    m_table->showLayout(columns);
    for (int column = 0; column < ServiceOrderLayout::columnCount; ++column)
        m_heads.at(column)->setFixedWidth(columns.width(ServiceOrderLayout::Column(column)));
    setFixedWidth(columns.sheetWidth());

    const bool needsFixing = m_model.orderNeedsFixing();
    m_recommended->setEnabled(needsFixing);
    setHelp(m_recommended, needsFixing ? RecommendedOrderQuestion::help : alreadyRecommendedHelp);
    m_question->follow(needsFixing);
}

void ServiceOrderSheet::showError()
{
    const std::optional<QString> &error = m_model.orderError();
    m_error->setVisible(error.has_value());
    if (error && m_errorWords->text() != *error)
        m_errorWords->setText(*error);
    adjustSize();
}
