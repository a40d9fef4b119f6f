// The render proof's command line: a request, a bad line, or none, and never a crash.
#include "OrvaneApp/proof/RenderRequest.h"
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const RenderRequest::Parsed parsed = RenderRequest::parse(FuzzInput::arguments(data, size));
    if (const auto *request = std::get_if<RenderRequest>(&parsed)) {
        FuzzInput::require(!request->output.isEmpty(), "a picture has a path");
        (void)RenderRequest::word(request->surface);
    }
    return 0;
}
