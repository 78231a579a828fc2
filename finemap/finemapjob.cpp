// SPDX-License-Identifier: MIT
#include "finemap/finemapjob.h"

#include <mutex>
#include <utility>

namespace halvane {

namespace {

/// The grid of a sketch: a few thousand places                                                  [deg]
double step_of_sketch(const MapWindow& window) {
    constexpr double of_the_world = 5;
    constexpr double of_a_continent = 1;
    constexpr double of_a_country = 0.25;
    const double width = window.east - window.west;
    return width > 100 ? of_the_world : width > 20 ? of_a_continent : of_a_country;
}

} // namespace

/// What the panel's thread and the one that calculates share.
struct FineMapJob::Made {
    std::mutex mutex;
    std::shared_ptr<const FineMap> sketch, map;

    void put(std::shared_ptr<const FineMap> Made::*which, std::optional<FineMap> made) {
        if (!made)
            return;
        auto shared = std::make_shared<const FineMap>(*std::move(made));
        const std::lock_guard lock(mutex);
        this->*which = std::move(shared);
    }
    std::shared_ptr<const FineMap> get(std::shared_ptr<const FineMap> Made::*which) {
        const std::lock_guard lock(mutex);
        return this->*which;
    }
};

FineMapJob::FineMapJob(QObject* parent) : BesideJob(parent) {
    connect(this, &BesideJob::advanced, this, &FineMapJob::look_for_sketch);
}

void FineMapJob::start(const TheoryPointer& theory, const FineMapSettings& settings) {
    made_ = std::make_shared<Made>();
    is_sketch_told_ = false;
    BesideJob::start([theory, settings, made = made_](Progress& progress) {
        FineMapSettings wide = settings;
        wide.step = step_of_sketch(settings.window);
        NoProgress untold;
        if (wide.step > settings.step)
            made->put(&Made::sketch, make_fine_map(theory, wide, untold));
        made->put(&Made::map, make_fine_map(theory, settings, progress));
    });
}

std::shared_ptr<const FineMap> FineMapJob::map() const {
    return made_ == nullptr ? nullptr : made_->get(&Made::map);
}

void FineMapJob::look_for_sketch() {
    if (is_sketch_told_)
        return;
    const std::shared_ptr<const FineMap> sketch = made_->get(&Made::sketch);
    if (sketch == nullptr)
        return;
    is_sketch_told_ = true;
    emit sketched(sketch);
}

} // namespace halvane
