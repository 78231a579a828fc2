// SPDX-License-Identifier: MIT
#include "tools/ratecriteria/criteriarates.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <cmath>
#include <numeric>

namespace halvane {
namespace {

void count(CriterionRates& rates, const CrescentEvening& evening, Seen seen) {
    const auto value = criterion_value(*rates.criterion, evening);
    SeenCounts& counts = value ? rates.classes[class_of_value(*rates.criterion, *value)] : rates.unanswered;
    ++counts[static_cast<std::size_t>(seen)];
}

int sum(const SeenCounts& counts) {
    return std::accumulate(counts.begin(), counts.end(), 0);
}

std::string percent(int part, int whole) {
    return whole == 0 ? "" : format_number(100.0 * part / whole, "##0") + " %";
}

std::string table_row(const std::string& criterion, const std::string& visibility, const SeenCounts& counts) {
    const auto [eye, aid, no] = counts;
    const int all = sum(counts);
    return "| " + criterion + " | " + visibility + " | " + std::to_string(eye) + " | " + std::to_string(aid) +
           " | " + std::to_string(no) + " | " + percent(eye, all) + " | " + percent(eye + aid, all) + " |\n";
}

} // namespace

CrescentEvening evening_of(Ephemeris& ephemeris, const Sighting& sighting) {
    const double local = sighting.universal + sighting.longitude / 360;
    const double day = std::floor(local - 0.5) + 0.5;
    const CrescentKind kind = local - day < 0.5 ? CrescentKind::old_crescent : CrescentKind::new_crescent;
    const auto evening = crescent_evening(ephemeris, observer_at(sighting.longitude, sighting.latitude, 0),
                                          kind, day, geocentric_conjunction(ephemeris, sighting.universal));
    if (!evening)
        throw RunTimeFailure(TwinWords{"Sighting " + sighting.row + " has no evening.",
                                       "لا مساء للرصد " + sighting.row + "."});
    return *evening;
}

std::vector<CriterionRates> rate_criteria(Ephemeris& ephemeris, std::span<const Sighting> sightings) {
    std::vector<CriterionRates> all;
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        if (!criterion.place)
            all.push_back({&criterion, std::vector<SeenCounts>(criterion.bands().size()), {}});
    for (const Sighting& sighting : sightings) {
        const CrescentEvening evening = evening_of(ephemeris, sighting);
        for (CriterionRates& rates : all)
            count(rates, evening, sighting.seen);
    }
    return all;
}

std::string markdown_table(const std::vector<CriterionRates>& rates) {
    std::string text = "| criterion | class | eye | aid | not seen | by eye | by eye or aid |\n"
                       "|---|---|--:|--:|--:|--:|--:|\n";
    for (const CriterionRates& rate : rates) {
        std::string name = std::string("`") + rate.criterion->key + "`";
        const auto bands = rate.criterion->bands();
        for (std::size_t i = bands.size(); i-- > 0; name.clear())
            text += table_row(name, bands[i].text.english, rate.classes[i]);
        if (sum(rate.unanswered) > 0)
            text += table_row(name, "no answer", rate.unanswered);
    }
    return text;
}

} // namespace halvane
