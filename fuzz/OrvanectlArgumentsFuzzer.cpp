// orvanectl's command line: an invocation, or a usage error with its sentence and usage.
#include "fuzz/FuzzInput.h"
#include "orvanectl/CommandLine.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    try {
        const Orvanectl::Invocation invocation = Orvanectl::parse(FuzzInput::arguments(data, size));
        if (invocation.syntax)
            (void)Orvanectl::usage(*invocation.syntax);
    } catch (const Orvanectl::UsageError &error) {
        FuzzInput::require(!error.sentence().isEmpty(), "a usage error says why");
        FuzzInput::require(!error.usage().isEmpty(), "a usage error shows the usage");
    }
    return 0;
}
