// SPDX-License-Identifier: MIT
#include "base/failure.h"

#include "system/systemerrors.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

/// "21/06/2024".
std::string text_of(const DateNumbers& day) {
    char text[96];
    std::snprintf(text, sizeof text, "%02.0f/%02.0f/%.0f", std::floor(day.day), day.month, day.year);
    return text;
}

struct SystemError {
    int error;
    const char* arabic;
};

constexpr SystemError system_errors[] = {
    {ENOENT, "لا يوجد ملف بهذا الاسم"},
    {EACCES, "لا إذن بذلك"},
    {EPERM, "لا إذن بذلك"},
    {EROFS, "القرص للقراءة فقط"},
    {ENOSPC, "لم تبق مساحة على القرص"},
    {EFBIG, "تجاوز الملف الحجم المسموح به"},
    {EISDIR, "هذا مجلد و ليس ملفا"},
    {ENOTDIR, "جزء من المسار ليس مجلدا"},
    {EIO, "خطأ في القرص"},
    {EMFILE, "عدد الملفات المفتوحة كبير"},
    {EBUSY, "الملف مشغول"},
    {EPIPE, "أغلق القارئ الطرف الآخر"},
    {ENXIO, "لا أحد على الطرف الآخر"},
    {ELOOP, "روابط كثيرة متتابعة"},
};

std::string text_of_error(int error, Language language) {
    if (language == Language::arabic && is_quota_error(error))
        return "استهلكت المساحة المسموح بها على القرص";
    if (language == Language::arabic)
        for (const SystemError& known : system_errors)
            if (known.error == error)
                return known.arabic;
    return std::strerror(error);
}

FailureKind kind_of_error(int error) {
    switch (error) {
    case ENOENT:
        return FailureKind::missing_file;
    case EACCES:
    case EPERM:
    case EROFS:
        return FailureKind::no_right;
    case ENOSPC:
    case EFBIG:
        return FailureKind::no_space;
    case ENOMEM:
        return FailureKind::no_memory;
    default:
        return is_quota_error(error) ? FailureKind::no_space : FailureKind::system;
    }
}

const TwinText& verb_of(FileAction action) {
    static constexpr TwinText verbs[] = {{"Cannot open ", "لا يمكن فتح "},
                                         {"Cannot read ", "لا يمكن قراءة "},
                                         {"Cannot write ", "لا تمكن كتابة "}};
    return verbs[static_cast<int>(action)];
}

std::string words_of_refusal(const FailureParts& parts, Language language) {
    return verb_of(parts.action).in(language) + parts.file + ": " + text_of_error(parts.error, language) +
           ".";
}

std::string words_of_damage(const FailureParts& parts, Language language) {
    static constexpr TwinText record{", record ", "، السجل "};
    static constexpr TwinText field{", field ", "، الحقل "};
    static constexpr TwinText wanted{": wanted ", ": المطلوب "};
    static constexpr TwinText found{", found ", "، و الموجود "};
    std::string words = parts.file;
    if (parts.record > 0)
        words += record.in(language) + std::to_string(parts.record) + field.in(language) +
                 std::to_string(parts.field);
    return words + wanted.in(language) + parts.wanted.in(language) + found.in(language) +
           parts.found.in(language) + ".";
}

/// " on 21/06/2024 for Amman", as far as they are known.
std::string words_of_subject(const FailureParts& parts, Language language) {
    static constexpr TwinText on_day{" on ", " في "};
    static constexpr TwinText for_place{" for ", " في موقع "};
    std::string words;
    if (!parts.day.empty())
        words += on_day.in(language) + parts.day;
    if (!parts.place.empty())
        words += for_place.in(language) + parts.place;
    return words;
}

std::string words_of_no_value(const FailureParts& parts, Language language) {
    const std::string about = parts.quantity.in(language) + words_of_subject(parts, language);
    if (parts.endless)
        return TwinWords("The search for " + about +
                             " does not end: the time is too far off for the theories.",
                         "لا ينتهي البحث عن " + about + ": الوقت أبعد مما تصلح له النظريات.")
            .in(language);
    return TwinWords("The calculation of " + about + " has no finite value with the stored settings.",
                     "ليس لحساب " + about + " قيمة محدودة بالإعدادات المخزونة.")
        .in(language);
}

FailureParts without_value(TwinText quantity) {
    FailureParts parts;
    parts.kind = FailureKind::no_finite_value;
    parts.quantity = quantity;
    return parts;
}

FailureParts with_words(const TwinWords& words, FailureKind kind) {
    FailureParts parts;
    parts.kind = kind;
    parts.words = words;
    return parts;
}

} // namespace

std::string words_of(const FailureParts& parts, Language language) {
    if (!parts.words.english.empty())
        return parts.words.in(language);
    if (parts.error != 0)
        return words_of_refusal(parts, language);
    if (parts.kind == FailureKind::no_finite_value)
        return words_of_no_value(parts, language);
    return words_of_damage(parts, language);
}

RunTimeFailure::RunTimeFailure(const FailureParts& parts) {
    tell(parts);
}

RunTimeFailure::RunTimeFailure(const TwinWords& words, FailureKind kind)
    : RunTimeFailure(with_words(words, kind)) {}

void RunTimeFailure::tell(const FailureParts& parts) {
    told_ = std::make_shared<const Told>(Told{parts, words_of(parts, Language::english)});
}

void RunTimeFailure::tell_day(const DateNumbers& day) {
    if (parts().kind != FailureKind::no_finite_value || !parts().day.empty())
        return;
    FailureParts known = parts();
    known.day = text_of(day);
    tell(known);
}

void RunTimeFailure::tell_place(const std::string& place) {
    if (parts().kind != FailureKind::no_finite_value || !parts().place.empty())
        return;
    FailureParts known = parts();
    known.place = place;
    tell(known);
}

RunTimeFailure file_failure(FileAction action, const std::string& path, int error) {
    FailureParts parts;
    parts.kind = kind_of_error(error);
    parts.file = path;
    parts.action = action;
    parts.error = error;
    return RunTimeFailure(parts);
}

RunTimeFailure damaged_file(const std::string& path, const TwinWords& wanted, const TwinWords& found) {
    FailureParts parts;
    parts.kind = FailureKind::damaged_file;
    parts.file = path;
    parts.wanted = wanted;
    parts.found = found;
    return RunTimeFailure(parts);
}

FailureParts parts_of(const std::exception& failure) {
    if (const auto* known = dynamic_cast<const RunTimeFailure*>(&failure))
        return known->parts();
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ||
        dynamic_cast<const std::length_error*>(&failure) != nullptr)
        return with_words({"The system gives no more memory for this calculation.",
                           "لا يعطي النظام ذاكرة أخرى لهذا الحساب."},
                          FailureKind::no_memory);
    const std::string words = failure.what();
    return with_words({"An unexpected failure inside the program: " + words + ".",
                       "خطأ غير متوقع داخل البرنامج: " + words + "."},
                      FailureKind::other);
}

void raise_no_value(TwinText quantity) {
    throw RunTimeFailure(without_value(quantity));
}

double SearchGuard::check(double value) {
    constexpr int never_needed = 10000;
    if (++rounds_ > never_needed) {
        FailureParts parts = without_value(quantity_);
        parts.endless = true;
        throw RunTimeFailure(parts);
    }
    return require_finite(value, quantity_);
}

} // namespace halvane
