// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "panel/besidejob.h"

#include <memory>

namespace halvane {

/// Makes maps beside the event loop, one after the other: a new one cancels the one before. A sketch on a
/// wide grid comes first.
class FineMapJob : public BesideJob {
    Q_OBJECT
public:
    explicit FineMapJob(QObject* parent = nullptr);

    void start(const TheoryPointer& theory, const FineMapSettings& settings);

    /// The map of the last work; null before its end and after a failure.
    std::shared_ptr<const FineMap> map() const;

signals:
    /// The sketch of the map under way.
    void sketched(const std::shared_ptr<const halvane::FineMap>& sketch);

private:
    struct Made;
    void look_for_sketch();

    std::shared_ptr<Made> made_;
    bool is_sketch_told_ = false;
};

} // namespace halvane
