// SPDX-License-Identifier: MIT
#include "panel/reporthead.h"

#include <QRegularExpression>
#include <algorithm>

namespace halvane {

namespace {

constexpr std::int64_t lines_of_head = 40;
constexpr std::int64_t lines_of_tail = 60;
constexpr int shortest_rule = 60; // equals signs

constexpr TwinText kinds[] = {
    {"Prayer Times", "مواقيت الصلاة"},
    {"Moon Times", "مواقيت القمر"},
    {"Qiblah Times", "أوقات القبلة"},
    {"Topocentric Moon Phases", "أطوار القمر السطحية"},
    {"Geocentric Moon Phases", "أطوار القمر المركزية"},
    {"Crescent Visibility", "رؤية الهلال"},
    {"Sun Ephemeris", "زيج الشمس"},
    {"Moon Ephemeris", "زيج القمر"},
};

/// How the line of a head begins that tells the kind of report.
struct KindLine {
    const char* words;
    const TwinText* kind;
};

constexpr KindLine kind_lines[] = {
    {"- Prayer times for:", &kinds[0]},
    {"- Prayer times from:", &kinds[0]},
    {"- Moon Times for:", &kinds[1]},
    {"- Moon Times from:", &kinds[1]},
    {"- Qiblah Direction for:", &kinds[2]},
    {"- Qiblah Direction from:", &kinds[2]},
    {"- Topocentric Phases of The Moon for The Year:", &kinds[3]},
    {"- Geocentric Phases of The Moon for The Year:", &kinds[4]},
    {"- Crescent Visibility on:", &kinds[5]},
    {"Crescent Visibility calculations on this day", &kinds[5]},
    {"- Sun Ephemeris", &kinds[6]},
    {"- Moon Ephemeris", &kinds[7]},
};

bool is_rule(const QString& line) {
    return line.size() >= shortest_rule && line.count(u'=') == line.size();
}

/// A day, two days, or what follows the colon without the era.
QString period_in(const QString& line) {
    static const QRegularExpression date(QStringLiteral("-?\\d+/-?\\d+/-?\\d+"));
    QStringList dates;
    for (auto match = date.globalMatch(line); match.hasNext();)
        dates << match.next().captured();
    if (!dates.isEmpty())
        return dates.join(QStringLiteral(" – "));
    const qsizetype colon = line.indexOf(u':');
    return colon < 0 ? QString() : line.mid(colon + 1).remove(QStringLiteral(" CE")).trimmed();
}

QString place_in(const QString& line) {
    const qsizetype end =
        line.startsWith(QLatin1String("- ")) ? line.lastIndexOf(QLatin1String(", Long: ")) : -1;
    return end < 0 ? QString() : line.mid(2, end - 2);
}

/// The day of a row of an ephemeris table: "hh:mm:ss dd/mm/yyyy".
QString day_of_row(const QString& line) {
    static const QRegularExpression row(QStringLiteral("^-?\\d+:\\d+:\\d+ (-?\\d+/-?\\d+/-?\\d+) "));
    return row.match(line).captured(1);
}

QString period_of_rows(const KeptText& text, std::int64_t from) {
    const std::int64_t lines = text.lines();
    QString first;
    for (std::int64_t line = from; line < std::min(lines, from + lines_of_head) && first.isEmpty(); ++line)
        first = day_of_row(text.line(line));
    QString last;
    for (std::int64_t line = lines - 1; line >= std::max(from, lines - lines_of_tail) && last.isEmpty();
         --line)
        last = day_of_row(text.line(line));
    return first == last || last.isEmpty() ? first : first + QStringLiteral(" – ") + last;
}

void find_titles(const KeptText& text, std::int64_t rule, ReportHead& head) {
    const std::int64_t first = rule + 2;
    if (!text.line(rule + 1).isEmpty() || !text.line(first).startsWith(u' '))
        return;
    std::int64_t behind = first;
    while (behind < first + lines_of_head && !text.line(behind).isEmpty())
        ++behind;
    head.first_title = first;
    head.titles = behind + 1 - first;
}

void read_line(const QString& line, ReportHead& head) {
    if (head.place.isEmpty())
        head.place = place_in(line);
    const auto tells = [&line](const KindLine& row) { return line.startsWith(QLatin1String(row.words)); };
    const auto* row = std::find_if(std::begin(kind_lines), std::end(kind_lines), tells);
    if (head.kind != nullptr || row == std::end(kind_lines))
        return;
    head.kind = row->kind;
    head.period = period_in(line);
}

QString ordered(const QString& part, Language language) {
    const bool runs_left = language == Language::arabic;
    return part.isRightToLeft() == runs_left ? part : isolated(part);
}

} // namespace

ReportHead report_head(const KeptText& text) {
    ReportHead head;
    if (!text.line(0).trimmed().startsWith(QLatin1String("By the Name of Allah")))
        return head;
    for (std::int64_t line = 0; line < std::min(text.lines(), lines_of_head); ++line) {
        const QString content = text.line(line);
        if (is_rule(content)) {
            find_titles(text, line, head);
            break;
        }
        read_line(content, head);
    }
    if (head.kind != nullptr && head.period.isEmpty() && head.titles > 0)
        head.period = period_of_rows(text, head.first_title + head.titles);
    return head;
}

QString title_of(const ReportHead& head, Language language) {
    if (head.kind == nullptr)
        return {};
    QString title = text_of(*head.kind, language);
    for (const QString& part : {head.place, head.period})
        if (!part.isEmpty())
            title += QStringLiteral(" - ") + ordered(part, language);
    return title;
}

} // namespace halvane
