// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace halvane {

/// A number as a person types it, in the digits that are stored.
struct TypedNumber {
    QString text;           ///< Arabic-Indic and Persian digits as 0 to 9, the decimal sign as a point
    bool is_number = false; ///< the whole text is a number: a sign, digits, at most one point
};

/// Arabic-Indic, Persian and all other decimal digits, the Arabic decimal sign, a decimal comma of either
/// script and the long minus sign are taken for what they are; the Arabic thousands sign and the marks of
/// direction are left out. Nothing else of `text` changes.
TypedNumber typed_number(const QString& text);

} // namespace halvane
