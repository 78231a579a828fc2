// SPDX-License-Identifier: MIT
#include "panel/placenames.h"

#include <QCollator>
#include <QString>
#include <algorithm>
#include <utility>

namespace halvane {

QStringList sorted_place_names(const std::vector<Location>& locations) {
    QCollator order{QLocale(QLocale::English)};
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(locations.size());
    for (const Location& location : locations) {
        const QString name = QString::fromStdString(location.name);
        keyed.emplace_back(order.sortKey(name), name);
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first.compare(b.first) < 0; });
    QStringList names;
    for (const auto& [key, name] : keyed)
        names << name;
    return names;
}

} // namespace halvane
