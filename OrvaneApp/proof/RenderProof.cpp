#include "OrvaneApp/proof/RenderProof.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Draft.h"
#include "OrvaneApp/model/ServiceEdit.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/AppearancePalette.h"
#include "OrvaneApp/surfaces/ContentView.h"
#include "OrvaneApp/surfaces/HelpView.h"
#include "OrvaneApp/surfaces/ImportProfileSheet.h"
#include "OrvaneApp/surfaces/MoreSettings.h"
#include "OrvaneApp/surfaces/NewLocationSheet.h"
#include "OrvaneApp/surfaces/OrderConfirmation.h"
#include "OrvaneApp/surfaces/RenameLocationSheet.h"
#include "OrvaneApp/surfaces/ResultSheet.h"
#include "OrvaneApp/surfaces/ServiceOrderSheet.h"
#include "OrvaneApp/surfaces/kit/Pulse.h"
#include "OrvaneApp/surfaces/kit/TextControlWalk.h"

#include <QApplication>
#include <QBuffer>
#include <QCoreApplication>
#include <QEventLoop>
#include <QImage>
#include <QPixmap>
#include <QSaveFile>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The proof's lines are UTF-8 on standard output, whatever the locale.
void say(const QString &line)
{
    const QByteArray bytes = (line + u'\n').toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

/// What a result sheet shows when no "--message" is given.
const QString sampleResult = u"Turned 1014 - Video Stream (DOCK) off.\n"
                             "Turned 1018 - RF (DOCK) off.\n"
                             "Turned 1021 - Music Dept (DOCK) off.\n"
                             "Turned 1099 - Internet (DOCK) off."_s;

/// Capabilities that show every hardware control without the adapter at hand: a wired port
/// with a range of frame sizes, speeds in both spellings drivers use, and an option set beyond
/// the duplex.
VLANKit::HardwareCapabilities sampleHardware()
{
    using Speed = VLANKit::HardwareCapabilities::Speed;
    VLANKit::HardwareCapabilities offers;
    offers.mtuRange = VLANKit::ClosedRange{1280, 9000};
    offers.activeMTU = 1500;
    offers.speeds = {
        Speed{u"10baseT/UTP"_s, {{u"half-duplex"_s}, {u"full-duplex"_s}}},
        Speed{u"100baseTX"_s, {{u"half-duplex"_s}, {u"full-duplex"_s}}},
        Speed{u"1000baseT"_s,
              {{u"full-duplex"_s},
               {u"full-duplex"_s, u"flow-control"_s},
               {u"full-duplex"_s, u"energy-efficient-ethernet"_s}}},
        Speed{u"2500Base-T"_s, {{u"full-duplex"_s}}},
        Speed{u"2500BaseT"_s,
              {{u"full-duplex"_s}, {u"full-duplex"_s, u"energy-efficient-ethernet"_s}}},
    };
    offers.activeSpeed = u"1000baseT"_s;
    offers.activeDuplex = {u"full-duplex"_s};
    return offers;
}

/// The help window is drawn at this size, tall enough to show what a person scrolls through.
constexpr QSize helpSize(620, 900);

/// How long the drawn surface is given to lay itself out before it is grabbed.
constexpr int layoutMilliseconds = 250;

/// A sheet is drawn at its own width and the height its layout asks for there.
void sizeToItsLayout(QWidget &sheet)
{
    const int width = sheet.minimumWidth() > 0 ? sheet.minimumWidth() : sheet.sizeHint().width();
    const int height =
        sheet.hasHeightForWidth() ? sheet.heightForWidth(width) : sheet.sizeHint().height();
    sheet.resize(width, std::max(height, sheet.minimumSizeHint().height()));
}

} // namespace

RenderProof::RenderProof(RenderRequest request, VLANKit::Platform platform,
                         VLANKit::Defaults defaults)
    : m_request(std::move(request))
    , m_platform(std::move(platform))
    , m_defaults(std::move(defaults))
{}

int RenderProof::run()
{
    Pulse::freezeAll(true);
    AppModel model(m_platform, m_defaults, true);
    if (m_request.location)
        model.setPinnedLocation(m_request.location);
    if (m_request.host) {
        VLANKit::AddressPlan plan = model.addressPlan();
        plan.host = *m_request.host;
        model.setAddressPlan(plan);
    }
    if (m_request.buildOn)
        model.setSelectedAdapter(*m_request.buildOn);
    model.reload(false);
    if (model.loadError()) {
        say(u"render: could not read the configuration \u2014 "_s + *model.loadError());
        return 1;
    }
    addDrafts(model);
    if (!editRow(model))
        return 1;

    // The picture's appearance, at the base font, whatever the stored one says.
    AppearancePalette::apply(m_request.dark ? Appearance::dark : Appearance::light);
    QApplication::setFont(Theme::base());

    std::unique_ptr<QWidget> root(build(model));
    if (!root)
        return 1;
    root->setAttribute(Qt::WA_DontShowOnScreen);
    root->show();
    QEventLoop loop;
    QTimer::singleShot(layoutMilliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();

    if (!writePicture(*root))
        return 1;
    const TextControlCount count = walkTextControls(*root);
    say(u"render: "_s + m_request.output);
    printMeasures(model);
    say(u"render: %1 text fields, %2 pop-ups, %3 cut short, %4 at the edge"_s.arg(count.fields)
            .arg(count.popups)
            .arg(count.cutShort.size())
            .arg(count.atEdge.size()));
    for (const QString &text : count.cutShort)
        say(u"render: CUT SHORT \u2014 "_s + text);
    for (const QString &text : count.atEdge)
        say(u"render: AT THE EDGE \u2014 "_s + text);
    return count.atEdge.isEmpty() ? 0 : 2;
}

void RenderProof::addDrafts(AppModel &model) const
{
    QList<AppModel::DraftRow> drafts;
    for (const QString &line : m_request.drafts) {
        const QStringList parts = line.split(u',');
        if (parts.size() < 2)
            continue;
        auto draft = std::make_shared<Draft>(parts.at(0), parts.at(1));
        if (parts.size() > 2 && parts.at(2) == u"manual"_s) {
            const VLANKit::IPMode from = draft->mode();
            draft->setMode(VLANKit::IPMode::manual);
            draft->modeChanged(from, model.addressPlan());
        }
        drafts.append(draft);
    }
    if (!drafts.isEmpty())
        model.setDrafts(drafts);
}

bool RenderProof::editRow(AppModel &model) const
{
    using Surface = RenderRequest::Surface;
    const bool showsRows =
        m_request.surface == Surface::current || m_request.surface == Surface::more;
    if (!m_request.edit || !showsRows)
        return true;
    for (const AppModel::Row &row : model.rows()) {
        if (row->source().device != *m_request.edit)
            continue;
        const VLANKit::IPMode from = row->mode();
        row->setMode(VLANKit::IPMode::manual);
        row->modeChanged(from, model.addressPlan());
        return true;
    }
    say(u"render: no row for "_s + *m_request.edit);
    return false;
}

QWidget *RenderProof::build(AppModel &model)
{
    using Surface = RenderRequest::Surface;
    switch (m_request.surface) {
    case Surface::current:
    case Surface::add: {
        model.setTab(m_request.surface == Surface::current ? AppTab::current : AppTab::add);
        auto *view = new ContentView(model, m_defaults, true, ProjectPanels{});
        // Not below the window's own least size.
        const QSize least = ContentView::minimumWindowSize(model.nameColumnWidth());
        view->resize(std::max(m_request.width, least.width()),
                     std::max(m_request.height, least.height()));
        return view;
    }
    case Surface::result: {
        const BuildResult result{.succeeded = !m_request.failed,
                                 .message = m_request.message.value_or(sampleResult)};
        auto *sheet = new ResultSheet(result, [] {});
        sizeToItsLayout(*sheet);
        return sheet;
    }
    case Surface::order: {
        auto *sheet = new ServiceOrderSheet(model);
        sizeToItsLayout(*sheet);
        return sheet;
    }
    case Surface::reorder: {
        auto *question = new OrderConfirmation(nullptr, model.recommendedOrderLines(), {}, {});
        sizeToItsLayout(*question);
        return question;
    }
    case Surface::newLocation: {
        model.beginCreatingLocation();
        if (m_request.name)
            model.setNewLocationName(*m_request.name);
        if (m_request.adaptersOnly)
            model.setNewLocationStart(LocationStart::adaptersOnly());
        if (m_request.switchNow)
            model.setSwitchToNewLocation(true);
        auto *sheet = new NewLocationSheet(model);
        sizeToItsLayout(*sheet);
        return sheet;
    }
    case Surface::rename: {
        model.beginRenamingLocation();
        if (m_request.name)
            model.setLocationNewName(*m_request.name);
        auto *sheet = new RenameLocationSheet(model);
        sizeToItsLayout(*sheet);
        return sheet;
    }
    case Surface::import: {
        if (!m_request.project) {
            say(u"render: import needs --project FILE"_s);
            return nullptr;
        }
        model.loadProfile(*m_request.project);
        if (!model.pendingImport()) {
            const QString why =
                model.result() ? model.result()->message : u"it has no addresses to re-host"_s;
            say(u"render: "_s + *m_request.project + u" opens no sheet \u2014 "_s + why);
            return nullptr;
        }
        auto *sheet = new ImportProfileSheet(model, *model.pendingImport());
        sizeToItsLayout(*sheet);
        return sheet;
    }
    case Surface::more: {
        const AppModel::Row row = moreRow(model);
        if (!row) {
            say(u"render: no row to show More\u2026 for"_s);
            return nullptr;
        }
        if (m_request.sampleHardware)
            row->setOffers(sampleHardware());
        auto *more =
            new MoreSettings(nullptr, model, row->source().id, model.selectedLocation(), {});
        more->adjustSize();
        return more;
    }
    case Surface::help: {
        auto *help = new HelpView;
        help->resize(helpSize);
        return help;
    }
    }
    return nullptr;
}

std::shared_ptr<ServiceEdit> RenderProof::moreRow(const AppModel &model) const
{
    for (const AppModel::Row &row : model.rows()) {
        if (m_request.edit ? row->source().device == *m_request.edit : row->source().isVLAN())
            return row;
    }
    return nullptr;
}

bool RenderProof::writePicture(QWidget &root)
{
    const QImage image = root.grab().toImage();
    if (image.isNull()) {
        say(u"render: could not make a bitmap"_s);
        return false;
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) {
        say(u"render: could not encode the PNG"_s);
        return false;
    }
    QSaveFile file(m_request.output);
    if (!file.open(QIODevice::WriteOnly) || file.write(png) != png.size() || !file.commit()) {
        say(u"render: could not write "_s + m_request.output);
        return false;
    }
    return true;
}

void RenderProof::printMeasures(const AppModel &model) const
{
    qsizetype vlanRows = 0;
    for (const AppModel::Row &row : model.rows()) {
        if (row->source().isVLAN())
            ++vlanRows;
    }
    say(u"render: location \u201c"_s + model.selectedLocation() + u"\u201d, "_s
        + QString::number(vlanRows) + u" VLANs, name column "_s
        + QString::number(std::lround(model.nameColumnWidth())));
    const std::optional<QString> folder =
        ContentView::projectsFolder(QCoreApplication::applicationFilePath());
    say(u"render: projects folder \u2014 "_s + folder.value_or(u"none beside the app"_s));
    const RankingLine ranking = model.rankingLine();
    say(u"render: ranking line \u2014 "_s + ranking.text
        + (model.orderNeedsFixing() ? u" [Apply recommended order\u2026 offered]"_s : QString()));
}
