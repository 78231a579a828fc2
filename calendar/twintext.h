#pragma once

namespace halvane {

/// A text in both languages, in UTF-8.
struct TwinText {
    const char* english;
    const char* arabic;
};

/// A message box's words.
struct TwinMessage {
    TwinText title;
    TwinText text;
};

} // namespace halvane
