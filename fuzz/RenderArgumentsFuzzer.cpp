// The render proof's command line: a request, a bad line, or none, and never a crash.
#include "OrvaneApp/proof/RenderRequest.h"
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const RenderRequest::Parsed parsed = RenderRequest::parse(FuzzInput::arguments(data, size));
    // An empty path is a word too: the picture maker then fails to write, with its sentence.
    if (const auto *request = std::get_if<RenderRequest>(&parsed))
        FuzzInput::require(!RenderRequest::word(request->surface).isEmpty(),
                           "a surface has a word");
    return 0;
}
