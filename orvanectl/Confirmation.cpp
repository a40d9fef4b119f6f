#include "orvanectl/Confirmation.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "orvanectl/Output.h"

#include <QTextStream>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Orvanectl {

void confirm(const QString &question)
{
    writeError(question + u" Type y to go on: "_s);
    QTextStream input(stdin);
    QString answer;
    // A closed input gives no line at all: that is no "yes".
    const bool answered = input.readLineInto(&answer);
    // A terminal shows what was typed; an answer from a pipe is shown here, so that the log of
    // standard error reads as the exchange did.
    if (!isatty(fileno(stdin)))
        writeError(answer + u'\n');
    const QString word = VLANKit::trimWhitespaceAndNewlines(answer);
    if (answered
        && (VLANKit::caseBlindEqual(word, u"y"_s) || VLANKit::caseBlindEqual(word, u"yes"_s)))
        return;
    throw VLANKit::VLANError::operationFailed(
        u"Nothing was changed: the changes were not confirmed (answer y, or give --yes)."_s);
}

} // namespace Orvanectl
