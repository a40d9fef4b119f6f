// The hand-written description of a machine: read whole, or refused with one sentence.
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/document/MachineDescriptionReader.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    try {
        (void)MachineDescriptionReader::parse(FuzzInput::bytes(data, size),
                                              QStringLiteral("machine.toml"));
    } catch (const VLANError &error) {
        FuzzInput::require(!error.errorDescription().isEmpty(), "a refusal says why");
    }
    return 0;
}
