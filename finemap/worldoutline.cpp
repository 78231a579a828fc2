// SPDX-License-Identifier: MIT
#include "finemap/worldoutline.h"

#include "base/failure.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

constexpr std::string_view file_name = "world.txt";
constexpr std::string_view head = "world 1:";
constexpr int units_per_degree = 100;

/// The next line of a text, which is taken off it.
std::string_view take_line(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

/// Reads a file line by line.
class WorldReader {
public:
    WorldReader(std::string_view text, const std::string& path) : text_(text), path_(path) {}

    WorldOutline read() {
        if (!next().starts_with(head))
            raise({"\"world 1:\" at its start", "\"world 1:\" في أوله"});
        WorldOutline world;
        while (!text_.empty()) {
            const std::string_view line = next();
            const std::string_view kind = line.substr(0, line.find(' '));
            const std::string_view numbers = line.substr(std::min(kind.size() + 1, line.size()));
            if (kind == "land" || kind == "water")
                world.rings.push_back(line_of(numbers, 3));
            else if (kind == "border")
                world.borders.push_back(line_of(numbers, 2));
            else
                raise({"land, water or border", "land أو water أو border"});
        }
        if (world.rings.empty() || world.borders.empty())
            raise({"land and borders", "يابسة و حدود"});
        return world;
    }

private:
    std::string_view next() {
        ++number_;
        return take_line(text_);
    }

    [[noreturn]] void raise(const TwinWords& wanted) const {
        const std::string number = std::to_string(number_);
        throw damaged_file(path_, wanted, {"something else in line " + number, "غير ذلك في السطر " + number});
    }

    int take_number(std::string_view& text) const {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (error != std::errc() || (!text.empty() && text.front() != ' '))
            raise({"whole numbers", "أعداد صحيحة"});
        text.remove_prefix(text.empty() ? 0 : 1);
        return number;
    }

    /// In     numbers  the first point and the steps from it
    WorldLine line_of(std::string_view numbers, std::size_t least) const {
        constexpr int farthest_east = 180 * units_per_degree;
        constexpr int farthest_north = 90 * units_per_degree;
        WorldLine line;
        int x = 0;
        int y = 0;
        while (!numbers.empty()) {
            const int east = take_number(numbers);
            const int north = take_number(numbers);
            if (std::abs(east) > 2 * farthest_east || std::abs(north) > 2 * farthest_north)
                raise({"a place on Earth", "مكان على الأرض"});
            x += east;
            y += north;
            if (std::abs(x) > farthest_east || std::abs(y) > farthest_north)
                raise({"a place on Earth", "مكان على الأرض"});
            line.points.push_back(
                {static_cast<float>(x) / units_per_degree, static_cast<float>(y) / units_per_degree});
        }
        if (line.points.size() < least)
            raise({std::to_string(least) + " points at least", std::to_string(least) + " نقاط على الأقل"});
        line.box = box_of(line.points);
        return line;
    }

    static WorldBox box_of(const std::vector<WorldPoint>& points) {
        const auto [west, east] =
            std::minmax_element(points.begin(), points.end(),
                                [](const auto& a, const auto& b) { return a.longitude < b.longitude; });
        const auto [south, north] =
            std::minmax_element(points.begin(), points.end(),
                                [](const auto& a, const auto& b) { return a.latitude < b.latitude; });
        return {west->longitude, south->latitude, east->longitude, north->latitude};
    }

    std::string_view text_;
    const std::string& path_;
    int number_ = 0;
};

} // namespace

bool is_cut(const WorldPoint& a, const WorldPoint& b) {
    const bool along_meridian = std::fabs(a.longitude) == 180 && std::fabs(b.longitude) == 180;
    const bool along_pole = a.latitude == -90 && b.latitude == -90;
    return along_meridian || along_pole;
}

WorldOutline world_of_text(std::string_view text, const std::string& path) {
    return WorldReader(text, path).read();
}

WorldOutline read_world_outline() {
    const std::string path = delivered_path(file_name);
    return world_of_text(read_text_file(path), path);
}

} // namespace halvane
