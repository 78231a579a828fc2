// SPDX-License-Identifier: MIT
#include "panel/typednumber.h"

#include <QRegularExpression>

namespace halvane {

namespace {

constexpr char16_t arabic_decimal_sign = 0x066B;
constexpr char16_t arabic_thousands_sign = 0x066C;
constexpr char16_t arabic_comma = 0x060C;
constexpr char16_t long_minus = 0x2212;

bool is_unseen(QChar character) {
    return character.unicode() == arabic_thousands_sign || character.category() == QChar::Other_Format;
}

bool is_point(QChar character) {
    return character == u',' || character.unicode() == arabic_comma ||
           character.unicode() == arabic_decimal_sign;
}

QChar stored_character(QChar character) {
    if (character.isDigit())
        return QLatin1Char(static_cast<char>('0' + character.digitValue()));
    if (is_point(character))
        return u'.';
    return character.unicode() == long_minus ? QChar(u'-') : character;
}

} // namespace

TypedNumber typed_number(const QString& text) {
    static const QRegularExpression number(QStringLiteral("\\A[+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)\\z"));
    TypedNumber typed;
    for (const QChar character : text)
        if (!is_unseen(character))
            typed.text += stored_character(character);
    bool has_value = false; // not with more digits than a number holds
    typed.text.toDouble(&has_value);
    typed.is_number = has_value && number.match(typed.text).hasMatch();
    return typed;
}

} // namespace halvane
