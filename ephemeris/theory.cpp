// SPDX-License-Identifier: MIT
#include "ephemeris/theory.h"

#include "base/failure.h"
#include "base/record.h"

#include <string>

namespace halvane {
namespace {

/// Reads a group of rows whose columns go to `columns`, and pads it; an empty place is read and not kept.
void read_group(RecordReader& reader, std::size_t rows, const std::vector<SeriesColumn*>& columns) {
    for (SeriesColumn* column : columns)
        if (column != nullptr)
            column->reserve(column->size() + padded(rows));
    for (std::size_t row = 0; row < rows; ++row) {
        reader.start_record();
        for (SeriesColumn* column : columns) {
            const double value = reader.number();
            if (column != nullptr)
                column->push_back(value);
        }
    }
    for (SeriesColumn* column : columns)
        if (column != nullptr)
            column->resize(padded(column->size()));
}

void fill_termfull(RecordReader& reader, SunSeries& series) {
    for (const std::size_t rows : termfull_groups)
        read_group(reader, rows, {&series.amplitude, &series.phase, &series.frequency});
}

void fill_term(RecordReader& reader, SunSeries& series) {
    for (const std::size_t rows : term_groups)
        read_group(reader, rows, {nullptr, &series.amplitude, &series.phase, &series.frequency});
}

void fill_mterm(RecordReader& reader, PeriodicTables& tables) {
    PeriodicTerms& nutation = tables.nutation;
    read_group(reader, nutation_rows,
               {nullptr, &nutation.d, &nutation.m, &nutation.m_prime, &nutation.f, &nutation.omega,
                &nutation.sine, &nutation.sine_rate, &nutation.cosine, &nutation.cosine_rate});
    PeriodicTerms& moon = tables.moon;
    for (int table = 0; table < 2; ++table)
        read_group(reader, moon_rows,
                   {nullptr, &moon.d, &moon.m, &moon.m_prime, &moon.f, &moon.sine, &moon.cosine, nullptr,
                    nullptr, nullptr});
    moon.omega.resize(moon.d.size());
}

void fill_elp(RecordReader& reader, MoonSeries& series) {
    MoonMainTerms& main = series.main;
    MoonSecondaryTerms& secondary = series.secondary;
    for (const auto& rows : elp_blocks) {
        read_group(reader, rows[0],
                   {nullptr, &main.amplitude, &main.a0, &main.a1, &main.a2, &main.a3, &main.a4});
        for (std::size_t block = 1; block < rows.size(); ++block)
            read_group(reader, rows[block], {nullptr, &secondary.amplitude, &secondary.a0, &secondary.a1});
    }
}

template <class Table>
std::shared_ptr<const Table> table_of(std::string_view text, const std::string& path,
                                      void (*fill)(RecordReader&, Table&)) {
    RecordReader reader(text, path);
    auto table = std::make_shared<Table>();
    fill(reader, *table);
    return table;
}

template <class Table>
const Table& present(const std::shared_ptr<const Table>& table, const char* name) {
    if (!table)
        throw RunTimeFailure(TwinWords{std::string(name) + ": the series has not been loaded.",
                                       std::string(name) + ": لم تقرأ هذه المتسلسلة."});
    return *table;
}

} // namespace

const SunSeries& Theory::termfull() const {
    return present(complete_sun, "termfull.vsk");
}

const SunSeries& Theory::term() const {
    return present(short_sun, "term.vsk");
}

const PeriodicTables& Theory::mterm() const {
    return present(periodic_tables, "mterm.vsk");
}

const MoonSeries& Theory::elp() const {
    return present(lunar_tables, "elp.vsk");
}

std::shared_ptr<const SunSeries> read_termfull(std::string_view text, const std::string& path) {
    return table_of<SunSeries>(text, path, fill_termfull);
}

std::shared_ptr<const SunSeries> read_term(std::string_view text, const std::string& path) {
    return table_of<SunSeries>(text, path, fill_term);
}

std::shared_ptr<const PeriodicTables> read_mterm(std::string_view text, const std::string& path) {
    return table_of<PeriodicTables>(text, path, fill_mterm);
}

std::shared_ptr<const MoonSeries> read_elp(std::string_view text, const std::string& path) {
    return table_of<MoonSeries>(text, path, fill_elp);
}

} // namespace halvane
