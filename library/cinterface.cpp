// SPDX-License-Identifier: MIT
#include "library/cinterface.h"

#include "halvane/error.h"
#include "library/convert.h"

#include <memory>
#include <new>
#include <string_view>

namespace halvane::v1 {
namespace {

static_assert(HALVANE_BAD_ARGUMENT == static_cast<int>(ErrorKind::bad_argument));
static_assert(HALVANE_MISSING_FILE == static_cast<int>(ErrorKind::missing_file));
static_assert(HALVANE_DAMAGED_FILE == static_cast<int>(ErrorKind::damaged_file));
static_assert(HALVANE_NO_VALUE == static_cast<int>(ErrorKind::no_value));
static_assert(HALVANE_NO_MEMORY == static_cast<int>(ErrorKind::no_memory));
static_assert(HALVANE_CANCELLED == static_cast<int>(ErrorKind::cancelled));
static_assert(HALVANE_OTHER == static_cast<int>(ErrorKind::other));
static_assert(HALVANE_TOO_SMALL > HALVANE_OTHER);
static_assert(HALVANE_UT1 == static_cast<int>(TimeScale::ut1));
static_assert(HALVANE_DYNAMICAL == static_cast<int>(TimeScale::dynamical));

/// The words of a thread's last failure.
class LastWords {
public:
    void set(const std::string& words) noexcept {
        try {
            words_ = words;
            told_ = words_.c_str();
        } catch (...) {
            told_ = "The system gives no more memory.";
        }
    }
    const char* told() const noexcept { return told_; }

private:
    std::string words_;
    const char* told_ = "";
};

LastWords& last_words() noexcept {
    thread_local LastWords words;
    return words;
}

halvane_status told(halvane_status status, const std::string& words) noexcept {
    last_words().set(words);
    return status;
}

halvane_status status_of(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const Error& raised) {
        return told(static_cast<int>(raised.kind()), raised.what());
    } catch (const TooSmall& raised) {
        return told(HALVANE_TOO_SMALL, "The array holds " + std::to_string(raised.capacity) +
                                           " elements, and " + std::to_string(raised.wanted) +
                                           " are wanted.");
    } catch (const std::bad_alloc&) {
        return told(HALVANE_NO_MEMORY, "The system gives no more memory.");
    } catch (const std::exception& raised) {
        return told(HALVANE_OTHER, raised.what());
    } catch (...) {
        return told(HALVANE_OTHER, "Something was raised that is no exception of the library.");
    }
}

/// A text of a data file with its length.
std::string_view data_text(const char* text, std::size_t length, const char* name) {
    return {&required(text, name), length};
}

EngineData data_of(const halvane_engine_data& data) {
    EngineData texts;
    texts.termfull = data_text(data.termfull, data.termfull_length, "termfull");
    texts.term = data_text(data.term, data.term_length, "term");
    texts.mterm = data_text(data.mterm, data.mterm_length, "mterm");
    texts.elp = data_text(data.elp, data.elp_length, "elp");
    if (data.world != nullptr)
        texts.world = {data.world, data.world_length};
    return texts;
}

/// Puts a new handle of what `make` gives into `handle`, which is null after a failure.
template <class Handle, class Make>
halvane_status opened(Handle** handle, const char* name, Make&& make) noexcept {
    return called([&] {
        required(handle, name) = nullptr;
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): `called` handles it
        *handle = new Handle{make()};
    });
}

} // namespace

halvane_status told_failure(const std::exception_ptr& failure) noexcept {
    try {
        return status_of(failure);
    } catch (...) { // no memory for the words of a status
        return HALVANE_NO_MEMORY;
    }
}

void raise_null(const char* name) {
    raise_bad_argument(std::string("The argument `") + name + "` is a null pointer.");
}

void raise_bad_size(const char* name, std::size_t size, std::size_t least) {
    raise_bad_argument(std::string("The size of `") + name + "` is " + std::to_string(size) + ", not the " +
                       std::to_string(least) + " bytes of its first version or more.");
}

void raise_unknown_members(const char* name) {
    raise_bad_argument(std::string("This library does not know all the members that are set in `") + name +
                       "`.");
}

void raise_bad_index(std::size_t index, std::size_t count) {
    raise_bad_argument("There is no index " + std::to_string(index) + " among " + std::to_string(count) +
                       ".");
}

} // namespace halvane::v1

using namespace halvane::v1;

const char* halvane_status_words(halvane_status status) {
    switch (status) {
    case HALVANE_OK:
        return "success";
    case HALVANE_BAD_ARGUMENT:
        return "bad argument";
    case HALVANE_MISSING_FILE:
        return "missing file";
    case HALVANE_DAMAGED_FILE:
        return "damaged file";
    case HALVANE_NO_VALUE:
        return "no value";
    case HALVANE_NO_MEMORY:
        return "no memory";
    case HALVANE_CANCELLED:
        return "cancelled";
    case HALVANE_OTHER:
        return "another failure";
    case HALVANE_TOO_SMALL:
        return "array too small";
    default:
        return "unknown status";
    }
}

const char* halvane_last_error(void) {
    return last_words().told();
}

const char* halvane_version(void) {
    return version();
}

halvane_status halvane_engine_open(halvane_engine** engine) {
    return opened(engine, "engine", [] { return Engine(); });
}

halvane_status halvane_engine_open_folder(const char* folder, halvane_engine** engine) {
    return opened(engine, "engine", [&] { return Engine(text_of(folder, "folder")); });
}

halvane_status halvane_engine_open_memory(const halvane_engine_data* data, halvane_engine** engine) {
    return opened(engine, "engine", [&] {
        return Engine(
            data_of(read_record(data, "data", []() -> halvane_engine_data { raise_null("data"); })));
    });
}

void halvane_engine_close(halvane_engine* engine) {
    delete engine;
}

halvane_status halvane_clock_fixed(double hours, halvane_clock** clock) {
    return opened(clock, "clock", [&] { return Clock::fixed(hours); });
}

halvane_status halvane_clock_of_zone(const char* name, halvane_clock** clock) {
    return opened(clock, "clock", [&] { return Clock::of_zone(text_of(name, "name")); });
}

halvane_status halvane_clock_hours_ahead(const halvane_clock* clock, halvane_date date, double* hours) {
    return called([&] { required(hours, "hours") = clock_of(clock).hours_ahead(same<Date>(date)); });
}

const char* halvane_clock_zone_name(const halvane_clock* clock) {
    return clock == nullptr ? "" : clock->clock.zone_name().c_str();
}

void halvane_clock_free(halvane_clock* clock) {
    delete clock;
}

halvane_horizon halvane_standard_horizon(void) {
    return horizon_value({});
}

halvane_status halvane_julian_day(halvane_date date, double* julian_day) {
    return called([&] { required(julian_day, "julian_day") = halvane::v1::julian_day(same<Date>(date)); });
}

halvane_status halvane_civil_date(double julian_day, halvane_date* date) {
    return called([&] { required(date, "date") = same<halvane_date>(civil_date(julian_day)); });
}

halvane_instant halvane_instant_of_unix(double seconds) {
    return same<halvane_instant>(Instant::of_unix(seconds));
}

halvane_status halvane_unix_seconds(halvane_instant instant, double* seconds) {
    return called([&] {
        const Instant moment = instant_of(instant);
        engine_instant(moment); // for its checks
        required(seconds, "seconds") = moment.unix_seconds();
    });
}

halvane_status halvane_ut1(halvane_instant instant, double* julian_day) {
    return called([&] { required(julian_day, "julian_day") = engine_instant(instant_of(instant)).ut1(); });
}

halvane_status halvane_dynamical(halvane_instant instant, double* julian_day) {
    return called(
        [&] { required(julian_day, "julian_day") = engine_instant(instant_of(instant)).dynamical(); });
}

halvane_status halvane_delta_t(double julian_day, double* seconds) {
    return called([&] { required(seconds, "seconds") = delta_t(julian_day); });
}
