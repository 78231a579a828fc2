// SPDX-License-Identifier: MIT
#include "timetable/timetablehtml.h"

#include "base/version.h"
#include "report/valuetext.h"
#include "timetable/cells.h"
#include "timetable/rowtexts.h"
#include "timetable/timetablefiles.h"

#include <algorithm>
#include <utility>

namespace halvane {
namespace {

constexpr std::string_view style = R"css(
:root{color-scheme:light dark;--ground:#fff;--text:#1b2521;--quiet:#52625a;--line:#dbe5e0;--accent:#1b7f5c;
--head:#1b7f5c;--on-head:#fff;--friday:#e8f3ee}
@media screen and (prefers-color-scheme:dark){:root{--ground:#101815;--text:#e4ece8;--quiet:#a3b5ac;--line:#2a3a33;
--accent:#5fcba1;--head:#15553f;--on-head:#eaf6f1;--friday:#1a2e26}}
*{box-sizing:border-box}
body{margin:0 auto;padding:1rem;max-width:64rem;background:var(--ground);color:var(--text);line-height:1.45;
font:1rem/1.45 "Noto Sans","Segoe UI",system-ui,-apple-system,Roboto,"Helvetica Neue","Noto Sans Arabic",Arial,
sans-serif}
.wide{max-width:96rem}
[lang=ar]{font-family:"Noto Naskh Arabic","Noto Sans Arabic","Geeza Pro","Segoe UI",Tahoma,sans-serif}
h1,h2{margin:0;color:var(--accent);line-height:1.25;font-weight:700}
h1{font-size:1.6rem}
h2{font-size:1.35rem}
p{margin:0}
.twin{display:flex;flex-wrap:wrap;column-gap:1.5rem}
.twin>[lang=ar]{margin-left:auto;text-align:right}
.months{display:flex;flex-wrap:wrap;gap:.4rem;margin:.8rem 0 0;padding:0;list-style:none}
.months a{display:block;padding:.45rem .8rem;border:1px solid var(--line);border-radius:1.2rem;color:var(--accent);
text-decoration:none}
.months a:hover,.months a:focus-visible{border-color:var(--accent)}
.sheet{margin:0 0 2.5rem}
.cover+.sheet{margin-top:1.8rem}
.sheet header{margin:0 0 .9rem;padding:0 0 .7rem;border-bottom:3px solid var(--accent)}
.place{font-size:1.15rem;font-weight:600}
.hijri-months{font-size:1.05rem}
.about{color:var(--quiet);font-size:.9rem}
.scroll{overflow-x:auto;border:1px solid var(--line);border-radius:.6rem}
.scroll:focus-visible{outline:2px solid var(--accent);outline-offset:2px}
table{width:100%;border-collapse:separate;border-spacing:0;font-variant-numeric:tabular-nums lining-nums}
th,td{padding:.42rem .5rem;text-align:center;white-space:nowrap;border-top:1px solid var(--line);font-weight:inherit}
thead th{border-top:0;white-space:normal;background:var(--head);color:var(--on-head);font-weight:600;vertical-align:bottom}
thead span{display:block;text-align:center}
tr>:first-child{position:sticky;inset-inline-start:0;z-index:1;background:var(--ground);
border-inline-end:1px solid var(--line)}
thead tr>:first-child{background:var(--head)}
.friday>*{background:var(--friday);font-weight:700}
.friday>:first-child{background:var(--friday);border-inline-start:4px solid var(--accent)}
.month-begins>*{border-top:2px solid var(--accent)}
.clock-changes>*{border-bottom:2px dotted var(--quiet)}
.mark{display:inline-block;width:0;overflow:visible;color:var(--accent);font-weight:700}
.notes{margin:.8rem 0 0;padding:0;list-style:none;color:var(--quiet);font-size:.9rem}
.notes li+li{margin-top:.25rem}
footer{color:var(--quiet);font-size:.8rem}
.unseen{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%);white-space:nowrap}
@media screen and (max-width:40rem){body{padding:.7rem}h1{font-size:1.35rem}h2{font-size:1.2rem}
th,td{padding:.5rem .32rem}thead th{font-size:.9rem}.words{white-space:normal}.words span{display:block}}
@media print{body{max-width:none;padding:0;font-size:10.5pt}.cover,footer{display:none}
.sheet{margin:0!important;break-after:page;break-inside:avoid}.sheet:last-of-type{break-after:auto}
.sheet header{margin-bottom:2.5mm;padding-bottom:1.5mm}h1,h2{font-size:15pt}.place{font-size:12pt}
.hijri-months{font-size:11pt}.about,.notes{font-size:8pt;line-height:1.3}.notes{margin-top:2mm}
.scroll{overflow:visible;border:0;border-radius:0}th,td{padding:.95mm 1mm;line-height:1.2}
tr>:first-child{position:static}
thead th,.friday>*{print-color-adjust:exact;-webkit-print-color-adjust:exact}
.many{font-size:7.5pt}.many th,.many td{padding:.42mm .4mm}
.wide .sheet header{display:grid;grid-template-columns:1fr 1fr;column-gap:8mm}.wide h1,.wide h2,.wide .rules{grid-column:1/-1}
.wide .about,.wide .notes{font-size:7.5pt;line-height:1.25}}
)css";

constexpr std::size_t most_upright = 12; // columns on a page that stands upright

/// A text as HTML shows it.
std::string escaped(const std::string& given) {
    std::string text;
    for (const char c : as_utf8(given)) {
        if (c == '&')
            text += "&amp;";
        else if (c == '<')
            text += "&lt;";
        else if (c == '>')
            text += "&gt;";
        else if (c == '"')
            text += "&quot;";
        else if (c == '\t' || c == '\n' || (static_cast<unsigned char>(c) >= ' ' && c != '\x7f'))
            text += c;
    }
    return text;
}

/// The file of one timetable as it grows.
class HtmlFile {
public:
    HtmlFile(std::span<const TimetableSheet> sheets, const Timetable& timetable, const PageSettings& page)
        : sheets_(sheets), page_(page), row_(timetable.rows.begin()) {}

    std::string run();

private:
    std::string words(const TwinWords& text) const;
    std::string plain_words(const TwinWords& text) const;
    std::string title() const;
    void add_head();
    void add_cover();
    void add_sheet(const TimetableSheet& sheet, std::size_t number);
    void add_about(const TimetableSheet& sheet);
    void add_table(const TimetableSheet& sheet, const std::string& name);
    void add_row(const TimetableSheet& sheet, const SheetRow& row);
    void add_notes(const TimetableSheet& sheet);
    std::string cell_text(const SheetCell& cell, TimetableColumn column) const;
    std::string friday_word(const SheetRow& row) const;

    bool one_sheet() const { return sheets_.size() == 1; }
    bool is_arabic() const { return page_.language == PageLanguage::arabic; }

    std::span<const TimetableSheet> sheets_;
    const PageSettings& page_;
    std::vector<TimetableRow>::const_iterator row_;
    std::string text_;
};

/// In both languages two spans, which the holder may set apart (class "twin").
std::string HtmlFile::words(const TwinWords& text) const {
    if (page_.language != PageLanguage::both || text.english == text.arabic)
        return escaped(text_in(page_.language, text));
    return "<span>" + escaped(text.english) + "</span> <span lang=\"ar\" dir=\"rtl\">" +
           escaped(text.arabic) + "</span>";
}

/// Of an attribute or a title, which hold no elements.
std::string HtmlFile::plain_words(const TwinWords& text) const {
    return escaped(text_in(page_.language, text));
}

std::string HtmlFile::title() const {
    if (sheets_.empty())
        return "Halvane";
    const TimetableSheet& sheet = sheets_.front();
    const TwinText several{"Prayer times", "مواقيت الصلاة"};
    return plain_words(sheet.place) + " – " + plain_words(one_sheet() ? sheet.title : TwinWords(several));
}

void HtmlFile::add_head() {
    const bool lying = page_.columns.size() > most_upright;
    text_ += is_arabic() ? "<!DOCTYPE html>\n<html lang=\"ar\" dir=\"rtl\">\n"
                         : "<!DOCTYPE html>\n<html lang=\"en\" dir=\"ltr\">\n";
    text_ += "<head>\n<meta charset=\"utf-8\">\n"
             "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
             "<meta name=\"color-scheme\" content=\"light dark\">\n"
             "<meta name=\"generator\" content=\"Halvane ";
    (text_ += version) += "\">\n";
    (((text_ += "<title>") += title()) += "</title>\n<style>") += style;
    text_ += page_.paper == PaperSize::a4 ? "@page{size:A4" : "@page{size:Letter";
    text_ += lying ? " landscape;margin:10mm}\n" : " portrait;margin:12mm}\n";
    text_ += "</style>\n</head>\n";
    text_ += lying ? "<body class=\"wide\">\n" : "<body>\n";
}

/// Above several sheets: their place, and a way to each.
void HtmlFile::add_cover() {
    const TwinText months{"Months", "الشهور"};
    text_ += "<header class=\"cover\">\n<h1><bdi>" + words(sheets_.front().place) + "</bdi></h1>\n";
    text_ += "<nav aria-label=\"" + plain_words(months) + "\"><ul class=\"months\">\n";
    for (std::size_t i = 0; i < sheets_.size(); ++i)
        text_ +=
            "<li><a href=\"#sheet" + std::to_string(i + 1) + "\">" + words(sheets_[i].month) + "</a></li>\n";
    text_ += "</ul></nav>\n</header>\n";
}

void HtmlFile::add_about(const TimetableSheet& sheet) {
    text_ += "<p class=\"hijri-months twin\">" + words(sheet.hijri_months) + "</p>\n";
    text_ += "<p class=\"place\"><bdi>" + words(sheet.place) + "</bdi></p>\n";
    for (const TwinWords* line : {&sheet.coordinates, &sheet.zone})
        text_ += "<p class=\"about twin\">" + words(*line) + "</p>\n";
    text_ += "<p class=\"about rules twin\">" + words(sheet.rules) + "</p>\n";
}

void HtmlFile::add_table(const TimetableSheet& sheet, const std::string& name) {
    text_ += "<div class=\"scroll\" role=\"region\" tabindex=\"0\" aria-labelledby=\"" + name + "\">\n";
    text_ += sheet.columns.size() > most_upright ? "<table class=\"many\">\n" : "<table>\n";
    text_ += "<caption class=\"unseen\">" + plain_words(sheet.title) + " – " + plain_words(sheet.place) +
             "</caption>\n<thead><tr>";
    for (const SheetColumn& column : sheet.columns)
        text_ += "<th scope=\"col\">" + words(column.heading) + "</th>";
    text_ += "</tr></thead>\n<tbody>\n";
    for (const SheetRow& row : sheet.rows)
        add_row(sheet, row);
    text_ += "</tbody>\n</table>\n</div>\n";
}

bool all_have_clocks(const std::vector<RowTime>& times) {
    return std::all_of(times.begin(), times.end(),
                       [](const RowTime& time) { return time.clock.has_value(); });
}

/// A clock is shown once, whatever the languages are.
std::string HtmlFile::cell_text(const SheetCell& cell, TimetableColumn column) const {
    const std::vector<RowTime> times = times_in(*row_, column);
    if (times.empty() || !all_have_clocks(times))
        return words(cell.text);
    std::string shown = escaped(is_arabic() ? cell.text.arabic : cell.text.english);
    if (times.size() > 1 || row_->date.year < 1) // HTML knows no dates before the year 1
        return shown;
    return "<time datetime=\"" + instant_text(row_->jd, *times.front().clock) + "\">" + shown + "</time>";
}

/// For who hears the table, where no column tells the weekday.
std::string HtmlFile::friday_word(const SheetRow& row) const {
    const TwinText friday{"Friday", "الجمعة"};
    if (!row.friday || page_.shows(TimetableColumn::weekday))
        return {};
    return "<span class=\"unseen\"> " + plain_words(friday) + "</span>";
}

bool heads_row(TimetableColumn column) {
    return column == TimetableColumn::date || column == TimetableColumn::hijri ||
           column == TimetableColumn::weekday;
}

std::string classes_of(const SheetRow& row) {
    std::string names;
    for (const auto& [has, name] :
         {std::pair(row.friday, "friday"), std::pair(row.hijri_month_begins, "month-begins"),
          std::pair(row.clock_changes, "clock-changes")})
        if (has)
            (names += names.empty() ? "" : " ") += name;
    return names.empty() ? "" : " class=\"" + names + '"';
}

void HtmlFile::add_row(const TimetableSheet& sheet, const SheetRow& row) {
    text_ += "<tr" + classes_of(row) + '>';
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const TimetableColumn column = sheet.columns[i].column;
        const bool heads = i == 0 && heads_row(column);
        text_ += heads ? "<th scope=\"row\"" : "<td";
        text_ += has_times(column) ? ">" : " class=\"words\">";
        if (column == TimetableColumn::date && row_->date.year >= 1)
            text_ += "<time datetime=\"" + iso_date(row_->date) + "\">" + cell_text(row.cells[i], column) +
                     "</time>";
        else
            text_ += cell_text(row.cells[i], column);
        if (row.cells[i].marked)
            ((text_ += "<span class=\"mark\">") += rule_mark) += "</span>";
        if (i == 0)
            text_ += friday_word(row);
        text_ += heads ? "</th>" : "</td>";
    }
    text_ += "</tr>\n";
    ++row_;
}

void HtmlFile::add_notes(const TimetableSheet& sheet) {
    if (sheet.notes.empty())
        return;
    text_ += "<ul class=\"notes\">\n";
    for (const TwinWords& note : sheet.notes)
        text_ += "<li class=\"twin\">" + words(note) + "</li>\n";
    text_ += "</ul>\n";
}

void HtmlFile::add_sheet(const TimetableSheet& sheet, std::size_t number) {
    const std::string name = "sheet" + std::to_string(number);
    const std::string heading = one_sheet() ? "h1" : "h2";
    text_ +=
        "<section class=\"sheet\" id=\"" + name + "\" aria-labelledby=\"" + name + "-title\">\n<header>\n";
    text_ += '<' + heading + " class=\"twin\" id=\"" + name + "-title\">" + words(sheet.title) + "</" +
             heading + ">\n";
    add_about(sheet);
    text_ += "</header>\n";
    add_table(sheet, name + "-title");
    add_notes(sheet);
    text_ += "</section>\n";
}

std::string HtmlFile::run() {
    add_head();
    text_ += "<main>\n";
    if (sheets_.size() > 1)
        add_cover();
    for (std::size_t i = 0; i < sheets_.size(); ++i)
        add_sheet(sheets_[i], i + 1);
    ((text_ += "</main>\n<footer>Halvane ") += version) += "</footer>\n</body>\n</html>\n";
    return std::move(text_);
}

} // namespace

std::string html_of_sheets(std::span<const TimetableSheet> sheets, const Timetable& timetable,
                           const PageSettings& page) {
    return HtmlFile(sheets, timetable, page).run();
}

std::string html_of(const Timetable& timetable, const PageSettings& page) {
    return html_of_sheets(sheets_of(timetable, page), timetable, page);
}

} // namespace halvane
