// SPDX-License-Identifier: MIT
#include "desktop/refusedvalue.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"

#include <QLineEdit>

namespace halvane {

namespace {

constexpr TwinText title{"Value Error", "خطأ"};
constexpr TwinText value{"%1: %2", "%1: %2"};
constexpr TwinText no_times{"The prayer times cannot be calculated with this value. Nothing has been stored.",
                            "لا يمكن حساب مواقيت الصلاة بهذه القيمة. لم يحفظ شيء."};
constexpr TwinText beyond_limit{"The value must be between %2 and %1. Nothing has been stored.",
                                "يجب أن تكون القيمة بين %2 و %1. لم يحفظ شيء."};

QString reason_text(RefusalReason reason, double limit, Language language) {
    if (reason == RefusalReason::no_times)
        return text_of(no_times, language);
    const QString largest = QString::fromStdString(plain_number(limit));
    return text_of(beyond_limit, language).arg(isolated(largest), isolated(u'-' + largest));
}

} // namespace

void tell_refused(QWidget& form, QLineEdit& box, RefusalReason reason, double limit, Language language) {
    warn(&form, text_of(title, language),
         text_of(value, language).arg(name_of(box), isolated(shortened(box.text()))) +
             QStringLiteral("\n\n") + reason_text(reason, limit, language),
         language);
    ask_again(box);
}

} // namespace halvane
