// SPDX-License-Identifier: MIT
#include "timetable/profileboxes.h"

#include "base/numberformat.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/typednumber.h"
#include "timetable/pagedigits.h"
#include "timetable/profilekeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace halvane {

namespace {

constexpr const char* longest_number = "-120.255";
constexpr const char* longest_text = "12:30 13:15 14:00";

/// A box and the key that it stands for.
struct BoxOfKey {
    const char* control;
    const char* section;
    const char* key;
    const char* wrong = nullptr; ///< label below the box
};

constexpr BoxOfKey number_boxes[] = {
    {"txtfajer", "rules", "fajer_angle", "lblangleswrong"},
    {"txtisha", "rules", "isha_angle", "lblangleswrong"},
    {"txtishamin", "rules", "isha_minutes", "lblangleswrong"},
    {"txtisharam", "rules", "isha_minutes_ramadan", "lblangleswrong"},
    {"txtmaghreb", "rules", "maghreb_angle", "lblangleswrong"},
    {"txtimsak", "rules", "imsak_minutes", "lblangleswrong"},
    {"txtreference", "rules", "reference_latitude", "lblhighwrong"},
    {"txtaddfajer", "added", "fajer", "lblminuteswrong"},
    {"txtaddshuroq", "added", "shuroq", "lblminuteswrong"},
    {"txtadddhohur", "added", "dhohur", "lblminuteswrong"},
    {"txtaddaser", "added", "aser", "lblminuteswrong"},
    {"txtaddmaghreb", "added", "maghreb", "lblminuteswrong"},
    {"txtaddisha", "added", "isha", "lblminuteswrong"},
};

constexpr BoxOfKey text_boxes[] = {
    {"iqafajer", "iqamah", "fajer", "lbliqamahwrong"},
    {"iqadhohur", "iqamah", "dhohur", "lbliqamahwrong"},
    {"iqaaser", "iqamah", "aser", "lbliqamahwrong"},
    {"iqamaghreb", "iqamah", "maghreb", "lbliqamahwrong"},
    {"iqaisha", "iqamah", "isha", "lbliqamahwrong"},
    {"iqajumuah", "iqamah", "jumuah", "lbliqamahwrong"},
    {"iqaalarm", "page", "alarm_minutes", "lblalarmwrong"},
};

constexpr BoxOfKey lists[] = {
    {"cboshadow", "rules", "aser"},
    {"cbonight", "rules", "night_until"},
    {"cborule", "rules", "high_latitude"},
    {"cbouse", "rules", "high_latitude_use"},
    {"cboroundfajer", "rounding", "fajer"},
    {"cboroundshuroq", "rounding", "shuroq"},
    {"cborounddhohur", "rounding", "dhohur"},
    {"cboroundaser", "rounding", "aser"},
    {"cboroundmaghreb", "rounding", "maghreb"},
    {"cboroundisha", "rounding", "isha"},
    {"cbohours", "page", "clock"},
    {"cbonames", "page", "names"},
    {"cbodigits", "page", "digits"},
    {"cbolanguage", "page", "language"},
    {"cbopaper", "page", "paper"},
};

/// A box to check, with the file's words for it.
struct CheckOfKey {
    const char* control;
    const char* key; ///< of the rules
    const char* off;
    const char* on;
};

constexpr CheckOfKey checks[] = {
    {"chkheight", "height", "ignored", "counts"},
    {"chkseconds", "seconds", "no", "yes"},
};

/// An entry of the lists of a key's word.
struct EntryOfWord {
    const char* section;
    const char* key; ///< none: every key of the section
    const char* word;
    TwinText text;
};

constexpr EntryOfWord entries[] = {
    {"rules", "aser", "standard", {"Standard", "الجمهور"}},
    {"rules", "aser", "hanafi", {"Hanafi", "حنفي"}},
    {"rules", "night_until", "shuroq", {"Shuroq", "الشروق"}},
    {"rules", "night_until", "fajer", {"Fajer", "الفجر"}},
    {"rules", "high_latitude", "none", {"None", "لا شيء"}},
    {"rules", "high_latitude", "middle", {"Middle of the night", "منتصف الليل"}},
    {"rules", "high_latitude", "seventh", {"A seventh of the night", "سبع الليل"}},
    {"rules", "high_latitude", "angle", {"Part of the night by the angle", "جزء من الليل بحسب الزاوية"}},
    {"rules", "high_latitude", "latitude", {"Clock of a lower latitude", "وقت خط عرض أدنى"}},
    {"rules", "high_latitude", "share", {"Share of a lower latitude's night", "نسبة الليل عند خط عرض أدنى"}},
    {"rules", "high_latitude", "year", {"Smoothed over the year", "التدرج على مدار السنة"}},
    {"rules", "high_latitude_use", "missing", {"Where the angle gives no time", "حيث لا تعطي الزاوية وقتا"}},
    {"rules", "high_latitude_use", "beyond", {"Also beyond the rule's time", "و كذلك عند تجاوز وقت القاعدة"}},
    {"rules", "high_latitude_use", "always", {"Always", "دائما"}},
    {"rounding", nullptr, "nearest", {"To the nearest", "إلى الأقرب"}},
    {"rounding", nullptr, "up", {"Up", "إلى الأعلى"}},
    {"rounding", nullptr, "down", {"Down", "إلى الأسفل"}},
    {"page", "clock", "24", {"24 hours", "24 ساعة"}},
    {"page", "clock", "12", {"12 hours", "12 ساعة"}},
    {"page", "names", "halvane", {"Fajer, Shuroq, Aser ...", "\u2066Fajer, Shuroq, Aser ...\u2069"}},
    {"page", "names", "common", {"Fajr, Sunrise, Asr ...", "\u2066Fajr, Sunrise, Asr ...\u2069"}},
    {"page", "digits", "western", western_entry},
    {"page", "digits", "arabic", arabic_entry},
    {"page", "language", "en", {"English", "الإنجليزية"}},
    {"page", "language", "ar", {"Arabic", "العربية"}},
    {"page", "language", "both", {"English and Arabic", "الإنجليزية و العربية"}},
    {"page", "paper", "A4", {"A4", "A4"}},
    {"page", "paper", "Letter", {"Letter", "Letter"}},
};

constexpr TwinText wanted_words{"%1: wanted %2", "%1: المطلوب %2"};

template <class Control>
Control& box_of(QWidget& form, const char* name) {
    return *form.findChild<Control*>(QString::fromLatin1(name));
}

bool is_of(const EntryOfWord& entry, const BoxOfKey& list) {
    return std::string_view(entry.section) == list.section &&
           (entry.key == nullptr || std::string_view(entry.key) == list.key);
}

/// What a box says to its key. A number box means the number that it takes, as everywhere.
std::string value_in(const QLineEdit& box) {
    if (keeps_number(box))
        return plain_number(number_in(box));
    const std::string text = typed_number(box.text()).text.trimmed().toStdString();
    return text.empty() ? "none" : text;
}

} // namespace

ProfileBoxes::ProfileBoxes(QWidget& form, Language language) : form_(form), language_(language) {
    for (const BoxOfKey& list : lists) {
        auto& box = box_of<QComboBox>(form_, list.control);
        for (const EntryOfWord& entry : entries)
            if (is_of(entry, list))
                box.addItem(text_of(entry.text, language_), QString::fromLatin1(entry.word));
    }
    for (const BoxOfKey& number : number_boxes)
        shape_number_box(box_of<QLineEdit>(form_, number.control), longest_number);
    for (const BoxOfKey& text : text_boxes) {
        auto& box = box_of<QLineEdit>(form_, text.control);
        const bool mirrored = box.isRightToLeft();
        fit_width(box, QString::fromLatin1(longest_text));
        keep_left_to_right(box);
        box.setAlignment(mirrored ? Qt::AlignRight : Qt::AlignLeft);
    }
}

void ProfileBoxes::show(const Profile& profile) {
    const auto value = [&profile](const char* section, const char* key) {
        return QString::fromStdString(value_of_key(profile, section, key));
    };
    const auto show_text = [this, &value](const BoxOfKey& box) {
        auto& control = box_of<QLineEdit>(form_, box.control);
        control.setText(value(box.section, box.key));
    };
    for (const BoxOfKey& box : number_boxes)
        show_text(box);
    for (const BoxOfKey& box : text_boxes)
        show_text(box);
    for (const BoxOfKey& list : lists) {
        auto& box = box_of<QComboBox>(form_, list.control);
        box.setCurrentIndex(box.findData(value(list.section, list.key)));
    }
    for (const CheckOfKey& check : checks) {
        auto& box = box_of<QCheckBox>(form_, check.control);
        box.setChecked(value("rules", check.key) == QLatin1String(check.on));
    }
}

std::vector<WrongBox> ProfileBoxes::take(Profile& profile) const {
    std::vector<WrongBox> wrong;
    const auto take_text = [this, &profile, &wrong](const BoxOfKey& box) {
        auto& control = box_of<QLineEdit>(form_, box.control);
        if (!control.isEnabled())
            return;
        const std::string wanted = take_key(profile, box.section, box.key, value_in(control));
        if (!wanted.empty())
            wrong.push_back({box.control, box.wrong,
                             text_of(wanted_words, language_)
                                 .arg(name_of(control), isolated(QString::fromStdString(wanted)))});
    };
    for (const BoxOfKey& box : number_boxes)
        take_text(box);
    for (const BoxOfKey& box : text_boxes)
        take_text(box);
    for (const BoxOfKey& list : lists) {
        auto& box = box_of<QComboBox>(form_, list.control);
        if (box.isEnabled())
            take_key(profile, list.section, list.key, box.currentData().toString().toStdString());
    }
    for (const CheckOfKey& check : checks) {
        auto& box = box_of<QCheckBox>(form_, check.control);
        if (box.isEnabled())
            take_key(profile, "rules", check.key, box.isChecked() ? check.on : check.off);
    }
    return wrong;
}

void ProfileBoxes::when_changed(QObject& owner, const std::function<void()>& work) {
    for (const BoxOfKey& box : number_boxes)
        QObject::connect(&box_of<QLineEdit>(form_, box.control), &QLineEdit::textChanged, &owner, work);
    for (const BoxOfKey& box : text_boxes)
        QObject::connect(&box_of<QLineEdit>(form_, box.control), &QLineEdit::textChanged, &owner, work);
    for (const BoxOfKey& list : lists)
        QObject::connect(&box_of<QComboBox>(form_, list.control), &QComboBox::currentIndexChanged, &owner,
                         work);
    for (const CheckOfKey& check : checks)
        QObject::connect(&box_of<QCheckBox>(form_, check.control), &QCheckBox::toggled, &owner, work);
}

} // namespace halvane
