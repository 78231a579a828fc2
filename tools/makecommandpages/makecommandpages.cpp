// SPDX-License-Identifier: MIT
// makecommandpages man|bash|zsh|fish FILE: the manual's page and the completions of halvane-report, from the
// command line that the program itself reads. makecommandpages settings DATA: docs/settings.md, from the
// lists of the stored fields and the delivered files of the folder DATA.
#include "base/version.h"
#include "batch/batchline.h"
#include "batch/choices.h"
#include "stored/outputfile.h"
#include "stored/textfile.h"
#include "stored/typedrecords.h"
#include "system/path.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr RecordFile record_files[] = {RecordFile::preferences, RecordFile::location, RecordFile::date,
                                       RecordFile::phase,       RecordFile::crescent, RecordFile::ephemeris,
                                       RecordFile::telescope};

/// An option as the pages tell it.
struct ToldOption {
    std::string name;   ///< "--place"
    std::string letter; ///< "-h"; mostly empty
    std::string form;   ///< "NAME"; empty for a flag
    std::string words;
    std::vector<std::string> choices; ///< that completions offer

    bool takes_folder() const { return form == "DIR"; }
    bool takes_file() const { return form == "FILE"; }
};

std::vector<ToldOption> options_of(CLI::App& app) {
    std::vector<ToldOption> told;
    for (CLI::Option* const option : app.get_options()) {
        if (option->get_lnames().empty())
            continue;
        const bool is_flag = option->get_expected_max() == 0;
        told.push_back({"--" + option->get_lnames().front(),
                        option->get_snames().empty() ? "" : "-" + option->get_snames().front(),
                        is_flag ? "" : option->get_type_name(), option->get_description(),
                        offered_words(*option)});
    }
    // Groups are apps without a name within theirs.
    for (CLI::App* const group :
         app.get_subcommands([](const CLI::App* part) { return part->get_name().empty(); })) {
        const std::vector<ToldOption> of_group = options_of(*group);
        told.insert(told.end(), of_group.begin(), of_group.end());
    }
    std::stable_sort(told.begin(), told.end(),
                     [](const ToldOption& a, const ToldOption& b) { return a.name < b.name; });
    told.erase(std::unique(told.begin(), told.end(),
                           [](const ToldOption& a, const ToldOption& b) { return a.name == b.name; }),
               told.end());
    return told;
}

std::string replaced(std::string_view text, std::string_view letters, const std::string& before) {
    std::string made;
    for (const char letter : text) {
        if (letters.find(letter) != std::string_view::npos)
            made += before;
        made += letter;
    }
    return made;
}

// --- The page of the manual ---

std::string roff(std::string_view text) {
    std::string made;
    for (const char letter : text)
        if (letter == '\\')
            made += "\\e";
        else if (letter == '-')
            made += "\\-";
        else
            made += letter;
    // A line that begins so would be a request.
    return made.starts_with('.') || made.starts_with('\'') ? "\\&" + made : made;
}

void write_options(std::ostream& page, const std::vector<ToldOption>& options) {
    for (const ToldOption& option : options) {
        page << ".TP\n\\fB" << roff(option.name) << "\\fR";
        if (!option.letter.empty())
            page << ", \\fB" << roff(option.letter) << "\\fR";
        if (!option.form.empty())
            page << " \\fI" << roff(option.form) << "\\fR";
        page << "\n" << roff(option.words.empty() ? option.form : option.words) << "\n";
    }
}

void write_man(std::ostream& page, BatchLine& line) {
    page << ".TH HALVANE\\-REPORT 1 \"\" \"" << program_title << "\" \"User commands\"\n"
         << ".SH NAME\nhalvane\\-report \\- the reports of Halvane without its panels\n"
         << ".SH SYNOPSIS\n.B halvane\\-report\n.RI [ OPTION ]...\\& \" TASK \" [ OPTION ]...\n"
         << ".SH DESCRIPTION\n"
         << roff(line.app.get_description()) << "\n"
         << "Every task can be told its place, its days and any stored setting on the command line; the "
            "stored files\n"
         << "stay as they are. Where there are none, the delivered ones are read.\n"
         << ".SH OPTIONS\n";
    write_options(page, options_of(line.app));
    page << ".SH TASKS\n";
    for (const Task& task : line.tasks) {
        page << ".SS " << roff(task.name) << "\n" << roff(task.description) << ".\n";
        write_options(page, options_of(*line.app.get_subcommand(task.name)));
        page << ".PP\nExamples:\n";
        for (const std::string& example : task.examples)
            page << ".PP\n.EX\n" << roff(example) << "\n.EE\n";
    }
    page << ".SH EXIT STATUS\n";
    for (const std::string& status : exit_status_lines())
        page << ".TP\n.B " << status.substr(0, 1) << "\n" << roff(status.substr(2)) << "\n";
    page << ".SH FILES\n.TP\n.I ${XDG_DATA_HOME:\\-~/.local/share}/halvane\n"
         << "the user's folder of the Debian package, as told in\n.BR halvane (1);\n"
         << "a call that keeps no file there does not make it\n"
         << ".SH SEE ALSO\n.BR halvane (1)\n";
}

// --- Completions ---

std::string shell_quoted(std::string_view text) {
    std::string made = "'";
    for (const char letter : text)
        made += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return made + "'";
}

template <class Items, class NameOf>
std::string joined(const Items& items, NameOf name_of) {
    std::string made;
    for (const auto& item : items)
        made += (made.empty() ? "" : " ") + name_of(item);
    return made;
}

std::string joined(const std::vector<std::string>& words) {
    return joined(words, [](const std::string& word) { return word; });
}

std::string names_of(const std::vector<ToldOption>& options) {
    return joined(options, [](const ToldOption& option) { return option.name; });
}

std::string tasks_of(BatchLine& line) {
    return joined(line.tasks, [](const Task& task) { return task.name; });
}

std::vector<std::string> setting_names() {
    return TypedRecords({std::begin(record_files), std::end(record_files)}).names();
}

/// Options of any task that `is_wanted` takes, each once, as a pattern of the shell.
std::string pattern_of(BatchLine& line, const std::function<bool(const ToldOption&)>& is_wanted) {
    std::vector<ToldOption> all = options_of(line.app);
    for (const Task& task : line.tasks) {
        const std::vector<ToldOption> more = options_of(*line.app.get_subcommand(task.name));
        all.insert(all.end(), more.begin(), more.end());
    }
    std::vector<std::string> names;
    for (const ToldOption& option : all)
        if (is_wanted(option) && std::find(names.begin(), names.end(), option.name) == names.end())
            names.push_back(option.name);
    std::string pattern;
    for (const std::string& name : names)
        pattern += (pattern.empty() ? "" : " | ") + name;
    return pattern;
}

/// The words of choices, which may differ from task to task.
void write_bash_choices(std::ostream& script, BatchLine& line) {
    std::map<std::string, std::string> patterns; // of words
    for (const Task& task : line.tasks)
        for (const ToldOption& option : options_of(*line.app.get_subcommand(task.name)))
            if (!option.choices.empty()) {
                std::string& pattern = patterns[joined(option.choices)];
                pattern += (pattern.empty() ? "'" : " | '") + task.name + " " + option.name + "'";
            }
    script << "    case \"$task $before\" in\n";
    for (const auto& [words, pattern] : patterns)
        script << "    " << pattern << ") mapfile -t COMPREPLY < <(compgen -W " << shell_quoted(words)
               << " -- \"$present\") && return ;;\n";
    script << "    esac\n";
}

void write_bash(std::ostream& script, BatchLine& line) {
    script << "# Completion of halvane-report for bash.\n"
           << "_halvane_report() {\n"
           << "    local present=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} task= words= "
              "number\n"
           << "    COMPREPLY=()\n"
           << "    for ((number = 1; number < COMP_CWORD; ++number)); do\n"
           << "        case ${COMP_WORDS[number]} in\n";
    std::string tasks = tasks_of(line);
    std::string pattern;
    for (const Task& task : line.tasks)
        pattern += (pattern.empty() ? "" : " | ") + task.name;
    script << "        " << pattern << ") task=${COMP_WORDS[number]} && break ;;\n"
           << "        esac\n    done\n";
    write_bash_choices(script, line);
    script << "    case $before in\n"
           << "    " << pattern_of(line, [](const ToldOption& o) { return o.takes_folder(); })
           << ") mapfile -t COMPREPLY < <(compgen -d -- \"$present\") && return ;;\n"
           << "    " << pattern_of(line, [](const ToldOption& o) { return o.takes_file(); })
           << ") mapfile -t COMPREPLY < <(compgen -f -- \"$present\") && return ;;\n"
           << "    --set)\n"
           << "        compopt -o nospace 2>/dev/null\n"
           << "        mapfile -t COMPREPLY < <(compgen -S = -W " << shell_quoted(joined(setting_names()))
           << " -- \"$present\")\n        return\n        ;;\n"
           << "    "
           << pattern_of(line,
                         [](const ToldOption& o) {
                             return !o.form.empty() && !o.takes_file() && !o.takes_folder() &&
                                    o.name != "--set";
                         })
           << ") return ;;\n"
           << "    esac\n"
           << "    case $task in\n"
           << "    '') words=" << shell_quoted(names_of(options_of(line.app)) + " " + tasks) << " ;;\n";
    for (const Task& task : line.tasks)
        script << "    " << task.name
               << ") words=" << shell_quoted(names_of(options_of(*line.app.get_subcommand(task.name))))
               << " ;;\n";
    script << "    esac\n"
           << "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$present\")\n"
           << "}\n"
           << "complete -F _halvane_report halvane-report\n";
}

/// An option in the form of _arguments.
std::string zsh_option(const ToldOption& option) {
    std::string spec = option.name + "[" + replaced(option.words, "[]:\\", "\\") + "]";
    if (option.takes_file())
        spec += ":file:_files";
    else if (option.takes_folder())
        spec += ":folder:_files -/";
    else if (option.name == "--set")
        spec = "*" + spec + ":setting:(" +
               joined(setting_names(), [](const std::string& name) { return name + "="; }) + ")";
    else if (!option.form.empty())
        spec += ":" + replaced(option.form, "[]:\\", "\\") + ":" +
                (option.choices.empty() ? " " : "(" + joined(option.choices) + ")");
    return shell_quoted(spec);
}

void write_zsh(std::ostream& script, BatchLine& line) {
    script << "#compdef halvane-report\n# Completion of halvane-report for zsh.\n"
           << "_halvane_report() {\n"
           << "    local context state line\n    typeset -A opt_args\n"
           << "    _arguments -C \\\n";
    for (const ToldOption& option : options_of(line.app))
        script << "        " << zsh_option(option) << " \\\n";
    script << "        '1: :->task' \\\n        '*:: :->options'\n"
           << "    case $state in\n    task)\n        local -a tasks\n        tasks=(\n";
    for (const Task& task : line.tasks)
        script << "            " << shell_quoted(task.name + ":" + replaced(task.description, ":\\", "\\"))
               << "\n";
    script
        << "        )\n        _describe task tasks\n        ;;\n    options)\n        case $words[1] in\n";
    for (const Task& task : line.tasks) {
        script << "        " << task.name << ")\n            _arguments";
        for (const ToldOption& option : options_of(*line.app.get_subcommand(task.name)))
            script << " \\\n                " << zsh_option(option);
        script << "\n            ;;\n";
    }
    script << "        esac\n        ;;\n    esac\n}\n_halvane_report \"$@\"\n";
}

/// A text in the quotes of fish.
std::string fish_quoted(std::string_view text) {
    return "'" + replaced(text, "'\\", "\\") + "'";
}

void write_fish_options(std::ostream& script, const std::string& when, CLI::App& app) {
    for (const ToldOption& option : options_of(app)) {
        script << "complete -c halvane-report -n " << fish_quoted(when) << " -l " << option.name.substr(2);
        if (!option.letter.empty())
            script << " -s " << option.letter.substr(1);
        if (option.takes_file())
            script << " -r -F";
        else if (option.takes_folder())
            script << " -x -a '(__fish_complete_directories)'";
        else if (option.name == "--set")
            script << " -x -a " << fish_quoted(joined(setting_names(), [](const std::string& name) {
                return name + "=";
            }));
        else if (!option.choices.empty())
            script << " -x -a " << fish_quoted(joined(option.choices));
        else if (!option.form.empty())
            script << " -x";
        script << " -d " << fish_quoted(option.words) << "\n";
    }
}

void write_fish(std::ostream& script, BatchLine& line) {
    script << "# Completion of halvane-report for fish.\ncomplete -c halvane-report -f\n";
    write_fish_options(script, "__fish_use_subcommand", line.app);
    for (const Task& task : line.tasks)
        script << "complete -c halvane-report -n __fish_use_subcommand -a " << task.name << " -d "
               << fish_quoted(task.description) << "\n";
    for (const Task& task : line.tasks)
        write_fish_options(script, "__fish_seen_subcommand_from " + task.name,
                           *line.app.get_subcommand(task.name));
}

// --- The stored settings ---

std::string cell(std::string_view text) {
    return replaced(text, "|", "\\");
}

/// Its value as it is typed behind --set.
std::string typed_value(const FieldNote& note) {
    std::string value = note.value;
    std::erase_if(value, [](char letter) { return letter == '"' || letter == '#'; });
    if (note.kind == "Boolean")
        std::transform(value.begin(), value.end(), value.begin(),
                       [](char letter) { return static_cast<char>(letter | 0x20); });
    return value;
}

void write_settings(std::ostream& page, const std::string& data) {
    page << "# Stored settings\n\n"
         << "What the panels store, by the names that `halvane-report --set FIELD=VALUE` takes: `--set "
            "pref.fajer-angle=19.5`, or\n"
         << "without the file's name, `--set fajer-angle=19.5`, where the task reads one of that name. The "
            "run alone "
            "has it; the file\n"
         << "stays. The form of the files is told in [data.md](data.md). Made by `makecommandpages settings "
            "data` from "
            "the lists in\n"
         << "`stored/` and the delivered files; a test compares them.\n";
    for (const RecordFile file : record_files) {
        const std::string name = name_of(file) + std::string(".vsk");
        const std::string path = joined_path(data, name);
        page << "\n## `" << name
             << "`\n\n| Name | Meaning | Unit | Range | Delivered |\n|---|---|---|---|---|\n";
        const std::string text = read_text_file(path);
        for (const StoredSetting& setting : settings_of(file, text, path)) {
            const std::string unit = unit_of_meaning(setting.note.meaning);
            std::string meaning = setting.note.meaning;
            if (!unit.empty())
                meaning.erase(meaning.rfind(" ["));
            page << "| `" << setting.name << "` | " << cell(meaning) << " | " << cell(unit) << " | "
                 << cell(setting.note.range) << " | " << cell(typed_value(setting.note)) << " |\n";
        }
    }
}

int make(const std::vector<std::string>& words) {
    const std::string kind = words.empty() ? "" : words.front();
    std::ostringstream page;
    if (words.size() == 2 && kind == "settings") {
        write_settings(page, words[1]);
        std::cout << page.str();
        return std::cout.flush() ? 0 : 1;
    }
    const std::unique_ptr<BatchLine> line = batch_line();
    const std::pair<const char*, void (*)(std::ostream&, BatchLine&)> writers[] = {
        {"man", write_man}, {"bash", write_bash}, {"zsh", write_zsh}, {"fish", write_fish}};
    const auto* const writer = std::find_if(std::begin(writers), std::end(writers),
                                            [&](const auto& one) { return kind == one.first; });
    if (words.size() != 2 || writer == std::end(writers)) {
        std::cerr << "makecommandpages man|bash|zsh|fish FILE, or settings DATA\n";
        return 2;
    }
    writer->second(page, *line);
    save_result(words[1], page.str());
    return 0;
}

} // namespace
} // namespace halvane

int main(int argc, char** argv) {
    try {
        return halvane::make(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& failure) {
        std::cerr << "makecommandpages: " << failure.what() << "\n";
        return 1;
    }
}
