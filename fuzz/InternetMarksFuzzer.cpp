// The stored Internet marks of a Location, as the defaults hold them: any property list.
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/internet/InternetMarks.h"
#include "fuzz/FuzzInput.h"

using namespace VLANKit;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<QVariant> stored = parsePropertyList(FuzzInput::bytes(data, size));
    const auto remembered = InternetMarks::marksFromStored(stored);
    if (!remembered)
        return 0;
    const QList<InternetMarks::Candidate> candidates{
        {QStringLiteral("S1"), 100, QStringLiteral("en5"), false},
        {QStringLiteral("S2"), std::nullopt, QStringLiteral("en0"), true},
    };
    const InternetMarks marks = InternetMarks::reconciled(remembered, std::nullopt, candidates);
    (void)marks.internetServiceIDs();
    (void)marks.marking({QStringLiteral("S1")});
    QVariantList kept;
    for (const QVariantMap &mark : marks.stored())
        kept.append(mark);
    const auto again = InternetMarks::marksFromStored(QVariant(kept));
    FuzzInput::require(again && *again == marks.marks, "kept marks read back as they were kept");
    return 0;
}
