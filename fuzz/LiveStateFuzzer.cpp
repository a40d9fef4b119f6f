// The live state as the dynamic store answers it: any dictionary of keys and values.
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/machine/LiveState.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<QVariant> answer = parsePropertyList(FuzzInput::bytes(data, size));
    if (!answer)
        return 0;
    const LiveState state = LiveState::parsing(answer->toMap());
    FuzzInput::require(state.ipv4.size() <= answer->toMap().size(),
                       "no more services than the answer has keys");
    for (const LiveState::Address &address : state.ipv4)
        FuzzInput::require(!address.address.isEmpty(), "a live service has an address");
    return 0;
}
