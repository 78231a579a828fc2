// SPDX-License-Identifier: MIT
#include "watch/watchpainter.h"

#include "base/pagewords.h"
#include "timetable/pageframe.h"
#include "timetable/pagetext.h"
#include "watch/crescentfigure.h"
#include "watch/skychart.h"
#include "watch/watchsheet.h"
#include "watch/watchtable.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr double small_points = 7.5;
constexpr double verdict_points = 7;
constexpr double orientation_points = 7;
constexpr double figure_width = 54 * page_units;
constexpr double note_points = 6;
constexpr double title_points = 9;
constexpr double after_block = 2 * page_units;

/// A part of the pages that is not broken. It is painted below a `top`.
struct Block {
    double height = 0;
    std::function<void(QPainter& painter, double top)> paint;
    bool of_table = false; ///< a row of the table, whose head stands above its first row on each page
};

/// A block in its place.
struct Placed {
    const Block* block;
    double top;
    bool with_head;
};

/// Sizes that give way so that the sheet fits on fewer pages.
struct Sizes {
    double picture;
    double row;
};

/// A sheet that is laid out on pages of a size, in one language.
class Layout {
public:
    Layout(std::shared_ptr<const CrescentWatch> watch, const WatchPage& page)
        : watch_(std::move(watch)), sheet_(sheet_of(*watch_)), language_(page.language),
          size_(paper_size(page.paper) * page_units), whole_{page.language, page_margin,
                                                             size_.width() - page_margin},
          table_(sheet_, language_, whole_.left, whole_.right) {
        constexpr Sizes usual{92 * page_units, 4.6 * page_units};
        constexpr Sizes least{48 * page_units, 3.3 * page_units};
        constexpr int steps = 24;
        lay_out(least);
        const std::pair<std::size_t, std::size_t> fewest = left_over();
        for (int step = 0; step <= steps; ++step) {
            const double part = static_cast<double>(step) / steps;
            lay_out({usual.picture + part * (least.picture - usual.picture),
                     usual.row + part * (least.row - usual.row)});
            if (left_over() == fewest)
                return;
        }
    }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    int pages() const { return static_cast<int>(pages_.size()); }

    void paint(QPainter& painter, const QRectF& paper, int number) const {
        painter.save();
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.translate(paper.topLeft());
        painter.scale(paper.width() / size_.width(), paper.height() / size_.height());
        if (number > 1)
            write_short_head(&painter);
        for (const Placed& placed : pages_[static_cast<std::size_t>(number - 1)]) {
            double top = placed.top;
            if (placed.with_head) {
                table_.paint_head(painter, top);
                top += table_.head_height();
            }
            placed.block->paint(painter, top);
        }
        write_foot(painter, number);
        painter.restore();
    }

private:
    /// How many pages follow the first one, and how many blocks stand on them.
    std::pair<std::size_t, std::size_t> left_over() const {
        return {pages_.size() - 1, blocks_.size() - pages_.front().size()};
    }

    // --- Blocks ---

    void lay_out(const Sizes& sizes) {
        blocks_.clear();
        add_head();
        add_words([this](QPainter* painter, double top) { return write_facts(painter, top, sheet_.facts); });
        for (const TwinWords& warning : sheet_.warnings)
            add_warning(warning);
        add_pictures(sizes.picture);
        for (std::size_t row = 0; row < sheet_.rows.size(); ++row)
            blocks_.push_back({sizes.row,
                               [this, row, height = sizes.row](QPainter& painter, double top) {
                                   table_.paint_row(painter, top, height, row);
                               },
                               true});
        if (!sheet_.pointing.empty())
            add_words([this](QPainter* painter, double top) {
                return write_facts(painter, write_title(painter, top, sheet_.pointing_title),
                                   sheet_.pointing);
            });
        add_words([this](QPainter* painter, double top) {
            return write_verdicts(painter, write_title(painter, top, sheet_.verdicts_title));
        });
        add_notes();
        place_blocks();
    }

    void place_blocks() {
        const double bottom = size_.height() - page_margin - foot_height;
        pages_.assign(1, {});
        double top = page_margin;
        for (std::size_t number = 0; number < blocks_.size(); ++number) {
            const Block& block = blocks_[number];
            bool with_head = block.of_table && (number == 0 || !blocks_[number - 1].of_table);
            const double head = with_head ? table_.head_height() : 0;
            if (top + head + block.height > bottom && !pages_.back().empty()) {
                pages_.emplace_back();
                top = page_margin + write_short_head(nullptr);
                with_head = block.of_table;
            }
            pages_.back().push_back({&block, top, with_head});
            top += block.height + (with_head ? table_.head_height() : 0);
        }
    }

    /// A block of words, measured by writing them without a painter.
    void add_words(std::function<double(QPainter* painter, double top)> write) {
        const double height = write(nullptr, 0);
        blocks_.push_back(
            {height, [write = std::move(write)](QPainter& painter, double top) { write(&painter, top); }});
    }

    void add_head() {
        const double height = write_head(nullptr, 0) + rule_height;
        blocks_.push_back({height, [this](QPainter& painter, double top) {
                               paint_star_rule(painter, whole_.left, whole_.right,
                                               write_head(&painter, top) - page_units);
                           }});
    }

    double write_head(QPainter* painter, double top) const {
        const SideWriter writer(painter, whole_);
        const auto in = [this](const TwinWords& words) { return words.in(language_); };
        const PageFont strong = page_font(15, true, PageColours::ink);
        const PageFont green = page_font(11.5, true, PageColours::green);
        const PageFont plain = page_font(10, false, PageColours::ink);
        const PageFont quiet = page_font(8, false, PageColours::quiet);
        const double second = 0.55 * whole_.width();
        top = writer.write_pair(in(sheet_.title), fitted(in(sheet_.place), second), strong, strong, top);
        top = writer.write_pair(in(sheet_.evening), in(sheet_.hijri), green, plain, top);
        return writer.write_pair(in(sheet_.coordinates), in(sheet_.zone), quiet, quiet,
                                 top + 0.4 * page_units);
    }

    /// A name that is not wider than `width`: the end of a very long one is left out.
    std::string fitted(const std::string& name, double width) const {
        std::string text = name;
        while (text.size() > 1 &&
               PageText(text, page_font(15, true, PageColours::ink), language_).width() > width) {
            do
                text.pop_back();
            while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U);
        }
        return text == name ? name : text + "…";
    }

    double write_short_head(QPainter* painter) const {
        const SideWriter writer(painter, whole_);
        const PageFont font = page_font(9, true, PageColours::quiet);
        const double end = writer.write_pair(sheet_.title.in(language_) + ", " + sheet_.place.in(language_),
                                             sheet_.evening.in(language_), font, font, page_margin);
        return end - page_margin + after_block;
    }

    double write_title(QPainter* painter, double top, const TwinWords& title) const {
        return SideWriter(painter, whole_)
            .write(title.in(language_), page_font(title_points, true, PageColours::green), top + page_units);
    }

    void add_warning(const TwinWords& warning) {
        add_words([this, &warning](QPainter* painter, double top) {
            constexpr double inner = 2 * page_units;
            PageSide side = whole_;
            side.left += inner;
            side.right -= inner;
            const double end = SideWriter(painter, side)
                                   .write(warning.in(language_), page_font(9.5, true, PageColours::ink),
                                          top + 1.2 * page_units) +
                               1.2 * page_units;
            if (painter != nullptr) {
                painter->setBrush(Qt::NoBrush);
                painter->setPen(QPen(PageColours::ink, 0.4 * page_units));
                painter->drawRect(QRectF(QPointF(whole_.left, top), QPointF(whole_.right, end)));
            }
            return end + after_block;
        });
    }

    /// One of two columns.
    PageSide half(bool first) const {
        const double middle = (whole_.left + whole_.right) / 2;
        const bool at_left = first == (language_ == Language::english);
        return at_left ? PageSide{language_, whole_.left, middle - between_columns / 2}
                       : PageSide{language_, middle + between_columns / 2, whole_.right};
    }

    /// The part of a side that lies so far from its start.
    PageSide part(const PageSide& side, double from, double to) const {
        return language_ == Language::english ? PageSide{language_, side.left + from, side.left + to}
                                              : PageSide{language_, side.right - to, side.right - from};
    }

    double widest(const std::vector<std::string>& words, bool bold) const {
        double width = 0;
        for (const std::string& text : words)
            width = std::max(
                width, PageText(text, page_font(small_points, bold, PageColours::ink), language_).width());
        return width;
    }

    double write_facts(QPainter* painter, double top, const std::vector<WatchFact>& facts, std::size_t from,
                       std::size_t to, const PageSide& side) const {
        constexpr double gap = 2.5 * page_units;
        std::vector<std::string> labels;
        for (std::size_t i = from; i < to; ++i)
            labels.push_back(facts[i].label.in(language_));
        const double wide = widest(labels, false);
        const PageSide label_side = part(side, 0, wide + gap / 2);
        const PageSide value_side = part(side, wide + gap, side.width());
        for (std::size_t i = from; i < to; ++i) {
            const double a = SideWriter(painter, label_side)
                                 .write(facts[i].label.in(language_),
                                        page_font(small_points, false, PageColours::quiet), top);
            const double b = SideWriter(painter, value_side)
                                 .write(facts[i].value.in(language_),
                                        page_font(small_points, true, PageColours::ink), top);
            top = std::max(a, b);
        }
        return top;
    }

    /// Two columns.
    double write_facts(QPainter* painter, double top, const std::vector<WatchFact>& facts) const {
        const std::size_t middle = (facts.size() + 1) / 2;
        const double a = write_facts(painter, top, facts, 0, middle, half(true));
        const double b = write_facts(painter, top, facts, middle, facts.size(), half(false));
        return std::max(a, b) + after_block;
    }

    /// The chart, and beside it the figure with its words; the sky is not mirrored, the two change sides.
    void add_pictures(double height) {
        blocks_.push_back(
            {height + after_block, [this, height](QPainter& painter, double top) {
                 const PageSide beside = part(whole_, whole_.width() - figure_width, whole_.width());
                 const PageSide chart = watch_->pointing
                                            ? part(whole_, 0, whole_.width() - figure_width - between_columns)
                                            : whole_;
                 paint_sky_chart(painter, QRectF(chart.left, top, chart.width(), height), *watch_, language_);
                 if (watch_->pointing)
                     paint_figure(painter, QRectF(beside.left, top, beside.width(), height));
             }});
    }

    /// The figure in the middle of a room, above its words.
    void paint_figure(QPainter& painter, const QRectF& room) const {
        constexpr double gap = 0.8 * page_units;
        const PageSide side{language_, room.left(), room.right()};
        const double words = write_orientation(nullptr, 0, side);
        const double size = std::min(room.width(), room.height() - gap - words);
        const QRectF square(room.center().x() - size / 2, room.top(), size, size);
        paint_crescent_figure(painter, square, *watch_->pointing, language_);
        write_orientation(&painter, square.bottom() + gap, side);
    }

    double write_orientation(QPainter* painter, double top, const PageSide& side) const {
        for (const TwinWords& words : sheet_.orientation)
            top =
                SideWriter(painter, side)
                    .write(words.in(language_), page_font(orientation_points, false, PageColours::ink), top);
        return top;
    }

    double write_verdicts(QPainter* painter, double top, std::size_t from, std::size_t to,
                          const PageSide& side) const {
        constexpr double gap = 2 * page_units;
        std::vector<std::string> names;
        std::vector<std::string> values;
        for (std::size_t i = from; i < to; ++i) {
            names.push_back(sheet_.verdicts[i].name.in(language_));
            values.push_back(sheet_.verdicts[i].value.in(language_));
        }
        const double name_end = std::min(widest(names, false), 0.42 * side.width());
        const double value_end = name_end + gap + widest(values, true);
        const auto write = [&](const TwinWords& words, double begin, double end, bool bold) {
            return SideWriter(painter, part(side, begin, end))
                .write(words.in(language_), page_font(verdict_points, bold, PageColours::ink), top);
        };
        for (std::size_t i = from; i < to; ++i) {
            const VerdictWords& verdict = sheet_.verdicts[i];
            const double a = write(verdict.name, 0, name_end + gap / 2, false);
            const double b = write(verdict.value, name_end + gap, value_end + gap / 2, true);
            const double c = write(verdict.meaning, value_end + gap, side.width(), false);
            top = std::max({a, b, c});
        }
        return top;
    }

    /// Two columns, the first as short as makes it the longer one.
    double write_verdicts(QPainter* painter, double top) const {
        const std::size_t count = sheet_.verdicts.size();
        std::size_t first = 0;
        while (first < count && write_verdicts(nullptr, 0, 0, first, half(true)) <
                                    write_verdicts(nullptr, 0, first, count, half(false)))
            ++first;
        const double a = write_verdicts(painter, top, 0, first, half(true));
        const double b = write_verdicts(painter, top, first, count, half(false));
        return std::max(a, b);
    }

    void add_notes() {
        add_words([this](QPainter* painter, double top) {
            const SideWriter writer(painter, whole_);
            top += page_units;
            for (const TwinWords& note : sheet_.notes)
                top =
                    writer.write(note.in(language_), page_font(note_points, false, PageColours::quiet), top);
            return top;
        });
    }

    void write_foot(QPainter& painter, int number) const {
        const PageFont font = page_font(7.5, false, PageColours::quiet);
        const double top = paint_foot_rule(painter, whole_.left, whole_.right, size_.height() - page_margin);
        SideWriter(&painter, whole_)
            .write_pair(program_name, words_of_page(number, pages()).in(language_), font, font, top);
    }

    static constexpr double rule_height = 5 * page_units;

    std::shared_ptr<const CrescentWatch> watch_;
    WatchSheet sheet_;
    Language language_;
    QSizeF size_;
    PageSide whole_;
    WatchTable table_;
    std::vector<Block> blocks_;
    std::vector<std::vector<Placed>> pages_;
};

} // namespace

PaintedPages painted_pages(std::shared_ptr<const CrescentWatch> watch, const WatchPage& page) {
    const auto layout = std::make_shared<const Layout>(std::move(watch), page);
    return {page.paper, page.language == Language::arabic ? PageLanguage::arabic : PageLanguage::english,
            layout->pages(), [layout](QPainter& painter, const QRectF& room, int number) {
                layout->paint(painter, room, number);
            }};
}

std::string document_title(const CrescentWatch& watch, Language language) {
    const WatchSheet sheet = sheet_of(watch);
    return sheet.place.in(language) + ": " + sheet.title.in(language) + ", " + sheet.evening.in(language);
}

} // namespace halvane
