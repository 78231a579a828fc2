// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/twintext.h"

#include <cmath>
#include <exception>
#include <memory>
#include <string>

namespace halvane {

/// What kind of thing failed; each kind has a remedy of its own.
enum class FailureKind {
    missing_file,    ///< a file that is not there
    damaged_file,    ///< a file that is not of its form: a record's field, a cut series, a broken picture
    no_right,        ///< the system forbids to read or to write a file
    no_space,        ///< no room left where a file is to be written
    system,          ///< anything else that the system refuses to do with a file
    no_finite_value, ///< a calculation without an answer
    no_memory,       ///< the system gives no more memory
    other,           ///< told in words of its own
};

/// What was to be done with a file.
enum class FileAction { open, read, write };

/// What the words of a failure are made of; what does not apply stays empty or 0.
struct FailureParts {
    FailureKind kind = FailureKind::other;
    std::string file;     ///< path
    int record = 0;       ///< from 1 on
    int field = 0;        ///< of the record, from 1 on
    TwinWords wanted;     ///< what the file should hold there
    TwinWords found;      ///< what it holds there
    FileAction action{};  ///< where the system refused
    int error = 0;        ///< the system's number of the refusal (errno)
    TwinWords quantity;   ///< what was to be calculated
    bool endless = false; ///< its search came to no end
    std::string day;      ///< for which day, as reports print it; empty when no day is known
    std::string place;    ///< for which place; empty when no place is known
    TwinWords words;      ///< whole sentences, for what has none of the parts above
};

/// The words that the parts make, in whole sentences.
std::string words_of(const FailureParts& parts, Language language);

/// The one failure that ends a program: a stored or series file that is missing, short, not of its form or
/// not writable, or a calculation without a finite value. Only where a panel's own rules pass it over is it
/// caught before `main` or the program's event loop. `what()` is all of its words in English.
class RunTimeFailure : public std::exception {
public:
    explicit RunTimeFailure(const FailureParts& parts);
    /// A failure of kind `other`, or of another kind without parts.
    explicit RunTimeFailure(const TwinWords& words, FailureKind kind = FailureKind::other);

    const FailureParts& parts() const { return told_->parts; }
    const char* what() const noexcept override { return told_->english.c_str(); }

    /// Tells which day or place a calculation without a value was about, unless that is known already.
    void tell_day(const DateNumbers& day);
    void tell_place(const std::string& place);

private:
    struct Told {
        FailureParts parts;
        std::string english;
    };
    void tell(const FailureParts& parts);

    std::shared_ptr<const Told> told_;
};

/// The system refused `action` on the file `path`.
/// In     error  the number that the system gave (errno)
RunTimeFailure file_failure(FileAction action, const std::string& path, int error);

/// The file `path`, one without records, is not of its form.
RunTimeFailure damaged_file(const std::string& path, const TwinWords& wanted, const TwinWords& found);

/// The parts of any exception: those of a RunTimeFailure, else its kind and words.
FailureParts parts_of(const std::exception& failure);

/// Does `work`, a calculation for that day or place: a failure without a finite value names it.
template <class Work>
auto about_day(const DateNumbers& day, Work&& work) {
    try {
        return work();
    } catch (RunTimeFailure& failure) {
        failure.tell_day(day);
        throw;
    }
}
template <class Work>
auto about_place(const std::string& place, Work&& work) {
    try {
        return work();
    } catch (RunTimeFailure& failure) {
        failure.tell_place(place);
        throw;
    }
}

/// Raises the RunTimeFailure of a calculation without a finite value.
[[noreturn]] void raise_no_value(TwinText quantity);

/// Returns `value` when it is finite.
/// Error  raises RunTimeFailure naming `quantity`, so that neither "nan" nor "inf" reaches a report or a
/// panel.
inline double require_finite(double value, TwinText quantity) {
    if (!std::isfinite(value)) [[unlikely]]
        raise_no_value(quantity);
    return value;
}

/// Watches a search that has no bound of its own: it converges in a few rounds for any time of the engine.
class SearchGuard {
public:
    explicit SearchGuard(const TwinText& quantity) : quantity_(quantity) {}
    /// Returns `value`, the search's latest one.
    /// Error  raises RunTimeFailure for a value that is not finite, and for a search that does not end (a
    /// time so far off that the theories have lost their meaning).
    double check(double value);

private:
    TwinText quantity_;
    int rounds_ = 0;
};

} // namespace halvane
