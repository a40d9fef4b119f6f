// preferences.plist and NetworkInterfaces.plist, XML and binary, through the guarded parser and
// our own writer: what was read is written, and what was written reads back to the same bytes.
#include "VLANKit/formats/PropertyList.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<QVariant> tree = parsePropertyList(FuzzInput::bytes(data, size));
    if (!tree)
        return 0;
    const std::optional<QByteArray> written = xmlPropertyList(*tree);
    FuzzInput::require(written.has_value(), "whatever was read can be written");
    const std::optional<QVariant> again = parsePropertyList(*written);
    FuzzInput::require(again.has_value(), "whatever was written can be read");
    FuzzInput::require(xmlPropertyList(*again) == written, "writing is stable after one read");
    return 0;
}
