#include "OrvaneApp/drive/DriveProof.h"

#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/ProofSignal.h"
#include "VLANKit/core/TextRules.h"

#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Each line goes out at once and whole, in UTF-8, before the drive can go.
void say(const QString &line)
{
    const QByteArray bytes = (line + u'\n').toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
}

QString yesOrNo(bool value)
{
    return value ? u"yes"_s : u"no"_s;
}

} // namespace

std::optional<DriveProof> DriveProof::parse(const QStringList &arguments)
{
    if (!arguments.contains(u"--drive-proof"_s))
        return std::nullopt;
    DriveProof proof;
    proof.noCare = arguments.contains(u"--no-care"_s);
    const qsizetype work = arguments.indexOf(u"--work"_s);
    if (work >= 0 && work + 1 < arguments.size())
        proof.work = arguments.at(work + 1);
    return proof;
}

QString DriveProof::stateWord(std::optional<bool> state)
{
    if (!state)
        return u"not said"_s;
    return yesOrNo(*state);
}

QString DriveProof::factsLine(const DriveCare::VolumeFacts &facts)
{
    return u"drive-proof: volume "_s + facts.volume + u" \u2014 internal "_s
           + stateWord(facts.isInternal) + u", removable "_s + stateWord(facts.isRemovable)
           + u", ejectable "_s + stateWord(facts.isEjectable) + u", can be taken away "_s
           + yesOrNo(facts.canBeTakenAway());
}

int DriveProof::workOnce(const Render &render) const
{
    if (!work)
        return -1;
    const RenderRequest::Parsed parsed = RenderRequest::parse({u"--render"_s, u"current"_s, *work});
    const auto *request = std::get_if<RenderRequest>(&parsed);
    return request != nullptr ? render(*request) : -1;
}

int DriveProof::run(const Render &render) const
{
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const QString bundle = DriveCare::bundleOfThisApp().value_or(VLANKit::notReported());
    say(u"drive-proof: running from "_s + bundle);
    if (const std::optional<DriveCare::VolumeFacts> facts = DriveCare::VolumeFacts::read(bundle))
        say(factsLine(*facts));
    // Without care the revoke watch is off, but a page that can't be read still ends the
    // process quietly.
    if (noCare) {
        orvane_end_on_bus_error();
        say(u"drive-proof: no care taken"_s);
    } else if (const std::optional<DriveCare::Care> &care = DriveCare::current()) {
        say(u"drive-proof: closes when pulled "_s + yesOrNo(care->closesWhenPulled));
    } else {
        say(u"drive-proof: not on a drive that can go"_s);
    }

    ProofSignalSource signal;
    if (!signal.isReady()) {
        say(u"drive-proof: could not listen for SIGUSR1"_s);
        return 1;
    }
    QObject::connect(&signal, &ProofSignalSource::arrived, [&] {
        // A render runs the main loop for a moment: no second one may start inside it.
        signal.setEnabled(false);
        if (work) {
            const int status = workOnce(render);
            say(u"drive-proof: work done, status "_s + QString::number(status));
        }
        signal.setEnabled(true);
    });
    // Each picture opens and closes a window off screen; the proof waits on after the last.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    say(u"drive-proof: ready"_s);
    (void)QCoreApplication::exec();
    return 0;
}
