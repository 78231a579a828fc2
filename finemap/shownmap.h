// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemappainter.h"

#include <memory>
#include <utility>

namespace halvane {

/// A map with its painter, which a view and a legend share.
class ShownMap {
public:
    /// In     world  may be shared with other maps
    ShownMap(std::shared_ptr<const FineMap> map, std::shared_ptr<const WorldOutline> world,
             const MapLook& look)
        : map_(std::move(map)), world_(std::move(world)), painter_(*map_, *world_, look) {}
    ShownMap(const ShownMap&) = delete;
    ShownMap& operator=(const ShownMap&) = delete;

    const FineMap& map() const { return *map_; }
    const FineMapPainter& painter() const { return painter_; }

private:
    std::shared_ptr<const FineMap> map_;
    std::shared_ptr<const WorldOutline> world_;
    FineMapPainter painter_; ///< of the two above
};

using ShownMapPointer = std::shared_ptr<const ShownMap>;

} // namespace halvane
