// SPDX-License-Identifier: MIT
#include "stored/windows1256.h"

#include <array>
#include <cstdint>

namespace halvane {
namespace {

// Code points of the bytes 0x80 to 0xFF, from the Unicode Consortium's table CP1256.TXT.
constexpr std::array<std::uint16_t, 128> upper_half{
    0x20AC, 0x067E, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0679, 0x2039, 0x0152,
    0x0686, 0x0698, 0x0688, 0x06AF, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x06A9, 0x2122,
    0x0691, 0x203A, 0x0153, 0x200C, 0x200D, 0x06BA, 0x00A0, 0x060C, 0x00A2, 0x00A3, 0x00A4, 0x00A5, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x06BE, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF, 0x00B0, 0x00B1, 0x00B2, 0x00B3,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x061B, 0x00BB, 0x00BC, 0x00BD, 0x00BE, 0x061F, 0x06C1,
    0x0621, 0x0622, 0x0623, 0x0624, 0x0625, 0x0626, 0x0627, 0x0628, 0x0629, 0x062A, 0x062B, 0x062C, 0x062D,
    0x062E, 0x062F, 0x0630, 0x0631, 0x0632, 0x0633, 0x0634, 0x0635, 0x0636, 0x00D7, 0x0637, 0x0638, 0x0639,
    0x063A, 0x0640, 0x0641, 0x0642, 0x0643, 0x00E0, 0x0644, 0x00E2, 0x0645, 0x0646, 0x0647, 0x0648, 0x00E7,
    0x00E8, 0x00E9, 0x00EA, 0x00EB, 0x0649, 0x064A, 0x00EE, 0x00EF, 0x064B, 0x064C, 0x064D, 0x064E, 0x00F4,
    0x064F, 0x0650, 0x00F7, 0x0651, 0x00F9, 0x0652, 0x00FB, 0x00FC, 0x200E, 0x200F, 0x06D2,
};

void append_utf8(std::string& text, std::uint16_t code) {
    if (code < 0x80U) {
        text += static_cast<char>(code);
    } else if (code < 0x800U) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        text += static_cast<char>(0x80U | (code & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | (code >> 12U));
        text += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
        text += static_cast<char>(0x80U | (code & 0x3FU));
    }
}

/// Length of the well-formed sequence at the start of `bytes` (Unicode 15, table 3-7); 0 when there is none.
std::size_t sequence_length(std::string_view bytes) {
    const auto byte = [bytes](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : static_cast<unsigned char>(0);
    };
    const auto continues = [&byte](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    if (first < 0x80U)
        return 1;
    if (first >= 0xC2U && first <= 0xDFU)
        return continues(1) ? 2 : 0;
    if (first >= 0xE0U && first <= 0xEFU) {
        const bool overlong = first == 0xE0U && byte(1) < 0xA0U;
        const bool surrogate = first == 0xEDU && byte(1) > 0x9FU;
        return continues(1) && continues(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0U && first <= 0xF4U) {
        const bool overlong = first == 0xF0U && byte(1) < 0x90U;
        const bool beyond = first == 0xF4U && byte(1) > 0x8FU;
        return continues(1) && continues(2) && continues(3) && !overlong && !beyond ? 4 : 0;
    }
    return 0;
}

} // namespace

bool is_utf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = sequence_length(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string utf8_of_windows1256(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        append_utf8(text, byte < 0x80U ? byte : upper_half[byte - 0x80U]);
    }
    return text;
}

} // namespace halvane
