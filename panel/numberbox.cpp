// SPDX-License-Identifier: MIT
#include "panel/numberbox.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberlists.h"
#include "panel/typednumber.h"

#include <QAccessible>
#include <QAction>
#include <QEvent>
#include <QLineEdit>
#include <QStyle>

namespace halvane {

namespace {

constexpr TwinText no_number{"This is not a number; %1 is taken.", "هذا ليس رقما، و القيمة المعتمدة هي %1"};
constexpr TwinText title{"Not a Number", "ليس رقما"};
constexpr TwinText line{"%1: \"%2\" is not a number; %3 is taken.",
                        "%1: \"%2\" ليس رقما، و القيمة المعتمدة هي %3"};
constexpr TwinText empty_line{"%1: the box is empty; %2 is taken.",
                              "%1: المربع فارغ، و القيمة المعتمدة هي %2"};
constexpr TwinText question{"Is that what you want?", "هل هذا ما تريد؟"};

QString value_taken(const QString& text) {
    return QString::fromStdString(plain_number(numeric_prefix(text.toStdString())));
}

/// Settles and marks the box that it belongs to.
class NumberKeeper : public QObject {
public:
    explicit NumberKeeper(QLineEdit& box)
        : QObject(&box), box_(box),
          sign_(box.addAction(box.style()->standardIcon(QStyle::SP_MessageBoxWarning),
                              QLineEdit::TrailingPosition)) {
        sign_->setVisible(false);
        box.installEventFilter(this);
        connect(&box, &QLineEdit::editingFinished, this, [this] { settle(); });
        connect(&box, &QLineEdit::textChanged, this, [this](const QString& text) {
            if (sign_->isVisible() && typed_number(text).is_number)
                unmark();
        });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // A box that is deleted with the focus loses it when it is a box no more.
        if (event->type() == QEvent::FocusOut && qobject_cast<QLineEdit*>(watched) != nullptr)
            settle();
        return QObject::eventFilter(watched, event);
    }

    /// Returns whether the box holds a number.
    bool settle() {
        const TypedNumber typed = typed_number(box_.text());
        if (typed.text != box_.text())
            box_.setText(typed.text);
        if (!typed.is_number)
            mark();
        return typed.is_number;
    }

    void unmark() {
        sign_->setVisible(false);
        box_.setToolTip(tip_);
        box_.setAccessibleDescription({});
    }

private:
    void mark() {
        const Language language = language_of(box_);
        const QString words = text_of(no_number, language).arg(isolated(value_taken(box_.text())));
        if (!sign_->isVisible())
            tip_ = box_.toolTip();
        sign_->setVisible(true);
        box_.setToolTip(words);
        box_.setAccessibleDescription(words);
    }

    QLineEdit& box_;
    QAction*
        sign_; ///< made at once: a panel that is going takes no new parts, and its boxes lose the focus then
    QString tip_;
};

NumberKeeper* keeper_of(const QLineEdit& box) {
    for (QObject* child : box.children())
        if (auto* keeper = dynamic_cast<NumberKeeper*>(child))
            return keeper;
    return nullptr;
}

QString line_of(QLineEdit& box, Language language) {
    const QString name = name_of(box);
    const QString value = isolated(value_taken(box.text()));
    if (box.text().isEmpty())
        return text_of(empty_line, language).arg(name, value);
    return text_of(line, language).arg(name, isolated(shortened(box.text())), value);
}

} // namespace

void keep_number(QLineEdit& box) {
    if (keeper_of(box) == nullptr)
        new NumberKeeper(box);
}

bool keeps_number(const QLineEdit& box) {
    return keeper_of(box) != nullptr;
}

QString name_of(QLineEdit& box) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&box);
    QString name = spoken == nullptr ? box.objectName() : spoken->text(QAccessible::Name);
    name.remove(u'&');
    while (name.endsWith(u':') || name.endsWith(u' '))
        name.chop(1);
    return name;
}

void settle_numbers(QWidget& form) {
    for (const QLineEdit* box : form.findChildren<QLineEdit*>())
        if (NumberKeeper* const keeper = keeper_of(*box))
            keeper->settle();
}

bool numbers_are_meant(QWidget& form, Language language) {
    QList<QLineEdit*> wrong;
    QString words;
    for (QLineEdit* box : form.findChildren<QLineEdit*>()) {
        NumberKeeper* const keeper = keeper_of(*box);
        if (keeper == nullptr || !box->isEnabled() || keeper->settle())
            continue;
        wrong << box;
        words += line_of(*box, language) + u'\n';
    }
    if (wrong.isEmpty())
        return true;
    if (!ask_before_loss(&form, text_of(title, language), words + u'\n' + text_of(question, language),
                         language)) {
        ask_again(*wrong.front());
        return false;
    }
    for (QLineEdit* box : wrong)
        box->setText(value_taken(box->text()));
    return true;
}

} // namespace halvane
