// SPDX-License-Identifier: MIT
#include "timetable/inifile.h"

#include "timetable/csvtable.h"

#include <algorithm>
#include <cstring>
#include <ini.h>

namespace halvane {
namespace {

/// Reads line by line, so that a failure can name its line.
class IniReader {
public:
    IniReader(std::string_view text, const std::string& path, const TakeIniValue& take)
        : rest_(text), path_(path), take_(take) {}

    void run() {
        const int bad_line = ini_parse_stream(next_line, this, take_value, this);
        if (bad_line > 0 || unreadable_ > 0)
            raise_bad_line(path_, unreadable_ > 0 ? unreadable_ : bad_line,
                           "wanted \"key = value\" or \"[section]\"",
                           "المطلوب \"key = value\" أو \"[section]\"");
        if (!refused_.english.empty())
            raise_bad_line(path_, refused_line_, refused_.english, refused_.arabic);
    }

private:
    static char* next_line(char* buffer, int size, void* self) {
        return static_cast<IniReader*>(self)->line_into(buffer, static_cast<std::size_t>(size));
    }

    char* line_into(char* buffer, std::size_t size) {
        if (rest_.empty())
            return nullptr;
        ++line_;
        const std::size_t length = std::min(rest_.find('\n'), rest_.size() - 1) + 1;
        const std::size_t taken = std::min(length, size - 1);
        const bool is_text = rest_.substr(0, length).find('\0') == std::string_view::npos;
        if ((taken < length || !is_text) && unreadable_ == 0)
            unreadable_ = line_;
        std::memcpy(buffer, rest_.data(), taken);
        buffer[taken] = '\0';
        rest_.remove_prefix(length);
        return buffer;
    }

    static int take_value(void* self, const char* section, const char* name, const char* value) {
        IniReader& reader = *static_cast<IniReader*>(self);
        if (reader.refused_.english.empty()) {
            reader.refused_ = reader.take_(section, name, value);
            reader.refused_line_ = reader.line_;
        }
        return 1;
    }

    std::string_view rest_;
    const std::string& path_;
    const TakeIniValue& take_;
    int line_ = 0;
    int unreadable_ = 0; ///< first line that the parser cannot take
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
