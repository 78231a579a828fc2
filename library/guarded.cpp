// SPDX-License-Identifier: MIT
#include "library/guarded.h"
#include "library/toldprogress.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <cmath>
#include <new>

namespace halvane::v1 {
namespace {

ErrorKind kind_of(FailureKind kind) {
    switch (kind) {
    case FailureKind::missing_file:
        return ErrorKind::missing_file;
    case FailureKind::damaged_file:
        return ErrorKind::damaged_file;
    case FailureKind::no_finite_value:
    case FailureKind::other: // told in words of its own: a method that does not reach so far
        return ErrorKind::no_value;
    case FailureKind::no_memory:
        return ErrorKind::no_memory;
    case FailureKind::no_right:
    case FailureKind::no_space:
    case FailureKind::system:
        break;
    }
    return ErrorKind::other;
}

} // namespace

Error::Error(ErrorKind kind, const std::string& words) : std::runtime_error(words), kind_(kind) {}
Error::~Error() = default;

void raise_as_error(std::exception_ptr failure) {
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const Error&) {
        throw;
    } catch (const RunTimeFailure& raised) {
        throw Error(kind_of(raised.parts().kind), raised.what());
    } catch (const std::bad_alloc&) {
        throw Error(ErrorKind::no_memory, "The system gives no more memory.");
    } catch (const std::exception& raised) {
        throw Error(ErrorKind::other, raised.what());
    }
}

void raise_bad_argument(const std::string& words) {
    throw Error(ErrorKind::bad_argument, words);
}

[[noreturn]] void raise_cancelled() {
    throw Error(ErrorKind::cancelled, "The work was ended by its caller.");
}

void require_within(const char* what, double value, double least, double most) {
    if (value >= least && value <= most)
        return;
    const std::string found = std::isfinite(value) ? plain_number(value) : "something that is no number";
    raise_bad_argument(std::string(what) + " must be from " + plain_number(least) + " to " +
                       plain_number(most) + ", not " + found + ".");
}

} // namespace halvane::v1
