// A project file as someone hands it over: read, and what was read written and read back alike.
#include "VLANKit/core/VLANError.h"
#include "VLANKit/project/ProfileIO.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Profile profile;
    try {
        profile = ProfileIO::decoded(FuzzInput::bytes(data, size), QStringLiteral("show.json"));
    } catch (const VLANError &) {
        return 0;
    }
    (void)profile.id();
    (void)profile.hasManualAddresses();
    (void)profile.roster();
    (void)profile.suggestedHost();
    (void)profile.detectedHostOctet();
    (void)profile.rehosted(QStringLiteral("70"));
    const QByteArray written = ProfileIO::encoded(profile);
    Profile again;
    try {
        again = ProfileIO::decoded(written, QStringLiteral("show.json"));
    } catch (const VLANError &) {
        FuzzInput::require(false, "a project file that was read can be read again once written");
    }
    FuzzInput::require(again == profile, "a project file reads back as it was written");
    return 0;
}
