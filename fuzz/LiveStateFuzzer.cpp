// The live state as the dynamic store answers it: any dictionary of keys and values.
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/machine/LiveState.h"
#include "fuzz/FuzzInput.h"

#include <algorithm>

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<QVariant> answer = parsePropertyList(FuzzInput::bytes(data, size));
    if (!answer)
        return 0;
    const LiveState state = LiveState::parsing(answer->toMap());
    FuzzInput::require(state.ipv4.size() <= answer->toMap().size(),
                       "no more services than the answer has keys");
    const QStringList keys = answer->toMap().keys();
    for (const QString &serviceID : state.ipv4.keys()) {
        FuzzInput::require(std::any_of(keys.begin(), keys.end(),
                                       [&](const QString &key) { return key.contains(serviceID); }),
                           "every live service is named by a key of the answer");
    }
    return 0;
}
