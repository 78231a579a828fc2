// SPDX-License-Identifier: MIT
#include "timetable/inifile.h"

#include "timetable/badline.h"
#include "timetable/inilines.h"

#include <algorithm>

namespace halvane {
namespace {

/// Reads line by line, so that a failure can name its line.
class IniReader {
public:
    IniReader(std::string_view text, const std::string& path, const TakeIniValue& take)
        : rest_(text), path_(path), take_(take) {}

    void run() {
        while (!rest_.empty())
            take_line(rest_.substr(0, std::min(rest_.find('\n'), rest_.size() - 1) + 1));
        if (unreadable_ > 0)
            raise_bad_line(path_, unreadable_, "wanted \"key = value\" or \"[section]\"",
                           "المطلوب \"key = value\" أو \"[section]\"");
        if (!refused_.english.empty())
            raise_bad_line(path_, refused_line_, refused_.english, refused_.arabic);
    }

private:
    void take_line(std::string_view line) {
        constexpr std::size_t longest_line = 199; // [bytes]
        rest_.remove_prefix(line.size());
        ++line_;
        const bool is_text = line.size() <= longest_line && line.find('\0') == std::string_view::npos;
        const IniLines::Found found = is_text ? lines_.take(line) : IniLines::Found::unreadable;
        if (found == IniLines::Found::unreadable && unreadable_ == 0)
            unreadable_ = line_;
        if (found == IniLines::Found::value && refused_.english.empty()) {
            refused_ = take_(lines_.section(), lines_.name(), lines_.value());
            refused_line_ = line_;
        }
    }

    std::string_view rest_;
    const std::string& path_;
    const TakeIniValue& take_;
    IniLines lines_;
    int line_ = 0;
    int unreadable_ = 0; ///< first line that is none of an INI text
    TwinWords refused_;
    int refused_line_ = 0;
};

} // namespace

void read_ini_text(std::string_view text, const std::string& path, const TakeIniValue& take) {
    IniReader(text, path, take).run();
}

TwinWords wanted_words(std::string_view key, const std::string& wanted, std::string_view found) {
    const std::string name(key);
    const std::string value(found);
    return {name + ": wanted " + wanted + "; found \"" + value + "\"",
            name + ": المطلوب " + wanted + "، و الموجود \"" + value + "\""};
}

TwinWords unknown_key_words(std::string_view section, std::string_view key) {
    const std::string name = "[" + std::string(section) + "] " + std::string(key);
    return {"there is no " + name, "لا يوجد " + name};
}

} // namespace halvane
