// SPDX-License-Identifier: MIT
#include "finemap/limitboxes.h"

#include "finemap/finemaprules.h"
#include "panel/numberlists.h"

#include <QLabel>
#include <QLineEdit>

namespace halvane {

namespace {

constexpr const char* danjon = "danjon";
constexpr const char* user = "user";

constexpr ControlText labels[] = {
    {"lbldanjon", "Least elongation [°]:", "أقل استطالة [°]:"},
    {"lbllag", "Least lag [min]:", "أقل مكث [دقيقة]:"},
    {"lblaltitude", "Least altitude [°]:", "أقل ارتفاع [°]:"},
    {"lblelongation", "Least elongation [°]:", "أقل استطالة [°]:"},
    {"lblage", "Least age [h]:", "أقل عمر [ساعة]:"},
};

constexpr TwinText wrong_limit{"A limit is a number, or nothing.", "الحد رقم، أو لا شيء."};
constexpr TwinText no_limit{"One limit at least is needed.", "يلزم حد واحد على الأقل."};

struct UserBox {
    const char* name;
    std::optional<double> UserLimits::*limit;
};
constexpr UserBox user_boxes[] = {{"lag", &UserLimits::lag},
                                  {"altitude", &UserLimits::altitude},
                                  {"elongation", &UserLimits::elongation},
                                  {"age", &UserLimits::age}};

void show_limit(QLineEdit& box, const std::optional<double>& limit) {
    box.setText(limit ? QString::number(*limit) : QString());
}

} // namespace

std::span<const ControlText> LimitBoxes::twins() {
    return labels;
}

LimitBoxes::LimitBoxes(QWidget& form) : form_(form) {}

QLineEdit& LimitBoxes::box(const char* name) const {
    return *form_.findChild<QLineEdit*>(QStringLiteral("txt") + QLatin1String(name));
}

QList<QLineEdit*> LimitBoxes::boxes() const {
    QList<QLineEdit*> all{&box(danjon)};
    for (const UserBox& one : user_boxes)
        all += &box(one.name);
    return all;
}

void LimitBoxes::shape(Language language) {
    constexpr const char* longest_limit = "-888.88";
    apply_language(form_, labels, language);
    for (QLineEdit* one : boxes())
        shape_number_box(*one, longest_limit);
}

void LimitBoxes::show(const CriteriaSettings& limits) {
    show_limit(box(danjon), limits.danjon_limit);
    for (const UserBox& one : user_boxes)
        show_limit(box(one.name), limits.user.*one.limit);
}

void LimitBoxes::show_those_of(std::string_view criterion) {
    const auto show_one = [this](const char* name, bool is_asked) {
        box(name).setVisible(is_asked);
        form_.findChild<QLabel*>(QStringLiteral("lbl") + QLatin1String(name))->setVisible(is_asked);
    };
    show_one(danjon, criterion == danjon);
    for (const UserBox& one : user_boxes)
        show_one(one.name, criterion == user);
}

std::optional<TwinText> LimitBoxes::take(std::string_view criterion, CriteriaSettings& limits) const {
    const TypedLimit elongation = typed_limit(text_of(box(danjon)));
    limits.danjon_limit = elongation.value.value_or(limits.danjon_limit);
    bool is_wrong = false;
    bool has_limit = false;
    for (const UserBox& one : user_boxes) {
        const TypedLimit typed = typed_limit(text_of(box(one.name)));
        limits.user.*one.limit = typed.value;
        is_wrong |= typed.is_wrong;
        has_limit |= typed.value.has_value();
    }
    if (criterion == danjon)
        return elongation.value ? std::nullopt : std::optional(wrong_limit);
    if (criterion != user)
        return std::nullopt;
    return is_wrong ? std::optional(wrong_limit) : has_limit ? std::nullopt : std::optional(no_limit);
}

} // namespace halvane
