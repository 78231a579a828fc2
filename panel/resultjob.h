// SPDX-License-Identifier: MIT
#pragma once

#include "panel/besidejob.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace halvane {

/// Makes values beside the event loop, one after the other: a new one cancels the one before.
template <class Result>
class ResultJob : public BesideJob {
public:
    /// Nothing after a cancel. It owns or shares all that it needs.
    using Make = std::function<std::optional<Result>(Progress& progress)>;
    using BesideJob::BesideJob;

    void start(Make make) {
        made_ = std::make_shared<std::shared_ptr<const Result>>();
        BesideJob::start([make = std::move(make), made = made_](Progress& progress) {
            if (std::optional<Result> result = make(progress))
                *made = std::make_shared<const Result>(*std::move(result));
        });
    }

    void cancel() {
        made_.reset();
        BesideJob::cancel();
    }

    /// What the last work made; null before its end, after a cancel and after a failure.
    std::shared_ptr<const Result> result() const {
        return made_ == nullptr || is_running() ? nullptr : *made_;
    }

private:
    std::shared_ptr<std::shared_ptr<const Result>> made_;
};

} // namespace halvane
