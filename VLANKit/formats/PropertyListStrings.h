#pragma once

#include <QByteArrayView>

/// Looks at the texts of raw property-list data before libplist parses it.
namespace VLANKit::PropertyListStrings {

/// Whether any text or key of the data holds a NUL character: a NUL byte anywhere in XML (where
/// it is never allowed), or a string object of a binary list with a zero byte (ASCII) or a zero
/// code unit (UTF-16). A binary list too damaged to walk answers false: its parser refuses it.
[[nodiscard]] bool holdNul(QByteArrayView data);

} // namespace VLANKit::PropertyListStrings
