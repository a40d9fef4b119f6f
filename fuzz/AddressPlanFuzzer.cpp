// The stored address plan, in its current and its older form.
#include "VLANKit/project/AddressPlan.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<AddressPlan> plan = AddressPlan::decoded(FuzzInput::bytes(data, size));
    if (!plan)
        return 0;
    (void)plan->prefix();
    (void)plan->isUsable();
    (void)plan->pinsSubnet();
    for (const qint64 tag : {qint64(1), qint64(256), qint64(999), qint64(1256), qint64(4094)}) {
        (void)plan->addressForTag(tag);
        (void)plan->exampleForTag(tag);
    }
    FuzzInput::require(AddressPlan::decoded(plan->encoded()) == plan,
                       "a stored plan reads back as it was stored");
    return 0;
}
