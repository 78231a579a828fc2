// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "panel/application.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberbox.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/picturebox.h"
#include "panel/viewerpages.h"
#include "tests/panel/panelharness.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <sys/stat.h>

namespace halvane {
namespace {

constexpr ControlText twins[] = {
    {"", "Sample", "عينة"},
    {"lblname", "&Name:", "الإ&سم"},
    {"franame", "Names", "أسماء"},
    {"cmdok", "&Ok", "&موافق"},
    {"txtname@spoken", "Name of the place", "اسم المكان"},
    {"txtname@tip", "As the reports print it", "كما تطبعه التقارير"},
};

class SampleForm : public QWidget {
public:
    SampleForm() {
        setObjectName(QStringLiteral("frmsample"));
        auto* frame = new QGroupBox(this);
        frame->setObjectName(QStringLiteral("franame"));
        auto* label = new QLabel(frame);
        label->setObjectName(QStringLiteral("lblname"));
        auto* box = new QLineEdit(frame);
        box->setObjectName(QStringLiteral("txtname"));
        auto* button = new QPushButton(frame);
        button->setObjectName(QStringLiteral("cmdok"));
        auto* layout = new QVBoxLayout(frame);
        layout->addWidget(label);
        layout->addWidget(box);
        layout->addWidget(button);
        (new QVBoxLayout(this))->addWidget(frame);
    }
};

class SupportTest : public PanelTest {};

TEST_F(SupportTest, APictureThatIsNoFileIsNone) {
    EXPECT_FALSE(stored_picture("map.gif").isNull());
    ASSERT_EQ(::mkfifo(path("pipe.gif").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", path("zero.gif"));
    for (const char* name : {"pipe.gif", "zero.gif", "missing.gif", "loc.txt"})
        EXPECT_TRUE(stored_picture(name).isNull()) << name;
}

TEST_F(SupportTest, EveryTextOfATableIsSetInEnglish) {
    SampleForm form;
    apply_language(form, twins, Language::english);
    EXPECT_EQ(wrong_captions(form, twins, Language::english), QStringList());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Sample"));
    EXPECT_EQ(form.layoutDirection(), Qt::LeftToRight);
}

TEST_F(SupportTest, ALabelOfAFormIsNoMarkup) {
    SampleForm form;
    QLabel label(&form);
    apply_language(form, twins, Language::english);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(NameTexts, ALongNameLosesItsMiddle) {
    EXPECT_EQ(shortened(QStringLiteral("Amman")), QStringLiteral("Amman"));
    const QString forty(40, u'a');
    EXPECT_EQ(shortened(forty), forty);
    const QString whole = QStringLiteral("begin") + QString(180, u'x') + QStringLiteral("end");
    const QString part = shortened(whole);
    EXPECT_LT(part.size(), 45);
    EXPECT_TRUE(part.startsWith(QStringLiteral("begin")) && part.endsWith(QStringLiteral("end")));
    EXPECT_TRUE(part.contains(QChar(0x2026)));
    EXPECT_TRUE(shortened(QString::fromUcs4(std::u32string(100, U'\U0001F54C').c_str())).isValidUtf16());
}

TEST(NameTexts, AToolTipShowsTheLettersThemselves) {
    QTextDocument document;
    document.setHtml(plain_tip(QStringLiteral("<h1>A&B</h1>")));
    EXPECT_EQ(document.toPlainText(), QStringLiteral("<h1>A&B</h1>"));
}

TEST_F(SupportTest, EveryTextOfATableIsSetInArabicRightToLeft) {
    SampleForm form;
    apply_language(form, twins, Language::arabic);
    EXPECT_EQ(wrong_captions(form, twins, Language::arabic), QStringList());
    EXPECT_EQ(control(form, "cmdok").layoutDirection(), Qt::RightToLeft);
}

TEST_F(SupportTest, AMarkedControlIsNotMirrored) {
    SampleForm form;
    keep_left_to_right(control(form, "txtname"));
    apply_language(form, twins, Language::arabic);
    EXPECT_EQ(control(form, "txtname").layoutDirection(), Qt::LeftToRight);
}

TEST_F(SupportTest, AMissingFontLeavesTheControlAsItWas) {
    SampleForm form;
    const QFont before = form.font();
    EXPECT_FALSE(set_font_if_present(form, QStringLiteral("No Such Font At All"), 26));
    EXPECT_EQ(form.font(), before);
}

TEST_F(SupportTest, AScaledControlTakesTheFamilyOfItsWindow) {
    SampleForm form;
    QWidget& name = control(form, "txtname");
    QFont other = name.font();
    other.setFamily(QStringLiteral("Another Family"));
    name.setFont(other);
    scale_font(name, 1.5);
    EXPECT_EQ(name.font().families(), form.font().families());
    EXPECT_DOUBLE_EQ(name.font().pointSizeF(), 1.5 * QFontInfo(form.font()).pointSizeF());
}

TEST_F(SupportTest, TheMarkOfAChosenOptionTakesTheAccent) {
    QRadioButton option(QStringLiteral("Option"));
    option.resize(option.sizeHint());
    const int hue = accent_colour(option).hue();
    const auto pixels_of_the_accent = [&option, hue] {
        const QImage picture = option.grab().toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                count += pixel.saturation() > 100 && std::abs(pixel.hue() - hue) < 10 ? 1 : 0;
            }
        return count;
    };
    EXPECT_EQ(pixels_of_the_accent(), 0);
    option.setChecked(true);
    EXPECT_GT(pixels_of_the_accent(), 8);
}

/// Relative luminance and contrast of WCAG 2.2.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double bright = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (bright + 0.05) / (dark + 0.05);
}

/// How many pixels of the indicator of an unselected option or box stand out from the window by 3 to 1, the
/// least that WCAG 2.2 (1.4.11) asks of the parts of a control.
template <class Option>
int visible_pixels() {
    constexpr double least = 3;
    Option option;
    option.setText(QString());
    option.resize(option.sizeHint());
    const QColor paper = option.palette().color(QPalette::Window);
    const QImage picture = option.grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += contrast(picture.pixelColor(x, y), paper) >= least ? 1 : 0;
    return count;
}

TEST_F(SupportTest, AnUnselectedOptionIsSeenOnLightAndDarkWindows) {
    constexpr int outline = 24; // pixels of a circle or square of a dozen pixels across, at least
    const QPalette light = QApplication::palette();
    EXPECT_GT(visible_pixels<QRadioButton>(), outline);
    EXPECT_GT(visible_pixels<QCheckBox>(), outline);
    for (const QColor& window : {QColor(0x2b, 0x2b, 0x2b), QColor(0x14, 0x14, 0x14), QColor(Qt::black)}) {
        QApplication::setPalette(QPalette(window, window));
        EXPECT_GT(visible_pixels<QRadioButton>(), outline) << window.name().toStdString();
        EXPECT_GT(visible_pixels<QCheckBox>(), outline) << window.name().toStdString();
    }
    QApplication::setPalette(light);
}

TEST_F(SupportTest, TheFixedFontHasOneWidthWithoutADesktopsSettings) {
    const QString proportional = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    ASSERT_FALSE(QFontInfo(QFont(proportional)).fixedPitch());
    for (const QString& told : {fixed_family(), fixed_family(proportional), fixed_family(QString())}) {
        const QFontMetrics metrics{QFont(told)};
        EXPECT_EQ(metrics.horizontalAdvance(QStringLiteral("iiiiiiii")),
                  metrics.horizontalAdvance(QStringLiteral("WWWWWWWW")))
            << told.toStdString();
    }
}

TEST_F(SupportTest, AWarningHasTheExclamationIconAndOk) {
    warn(nullptr, QStringLiteral("Angle Error!"), QStringLiteral("Text"), Language::english);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].exclamation);
    EXPECT_EQ(messages[0].title, QStringLiteral("Angle Error!"));
    EXPECT_EQ(messages[0].text, QStringLiteral("Text"));
    EXPECT_EQ(messages[0].buttons, QStringList{QStringLiteral("OK")});
}

TEST_F(SupportTest, AQuestionInArabicHasArabicButtonsRightToLeft) {
    answer({true, false});
    EXPECT_TRUE(ask(nullptr, QStringLiteral("إضافة"), QStringLiteral("؟"), Language::arabic));
    EXPECT_FALSE(ask(nullptr, QStringLiteral("إضافة"), QStringLiteral("؟"), Language::arabic));
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_TRUE(messages[0].exclamation);
    EXPECT_EQ(messages[0].direction, Qt::RightToLeft);
    EXPECT_EQ(messages[0].buttons, (QStringList{QStringLiteral("نعم"), QStringLiteral("لا")}));
}

TEST_F(SupportTest, TheAccentFollowsTheSystemFromLightToDarkAndBack) {
    const QPalette light = QApplication::palette();
    EXPECT_LT(light.color(QPalette::Highlight).lightness(), 128);
    QApplication::setPalette(QPalette(QColor(0x2b, 0x2b, 0x2b), QColor(0x23, 0x23, 0x23)));
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), QColor(0x58, 0xC9, 0xA0));
    EXPECT_EQ(QApplication::palette().color(QPalette::HighlightedText), QColor(Qt::black));
    QApplication::setPalette(light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), light.color(QPalette::Highlight));
}

TEST_F(SupportTest, NoTextOfABoxIsMarkup) {
    int labels = 0;
    set_message_presenter([&](QMessageBox& box) {
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
            ++labels;
        }
        return true;
    });
    tell_failure(RunTimeFailure(TwinWords{"<h1>here</h1>", "<h1>هنا</h1>"}), Language::english);
    warn(nullptr, QStringLiteral("Title"), QStringLiteral("<h1>A&B</h1>"), Language::english);
    EXPECT_GE(labels, 3);
}

TEST_F(SupportTest, EnterIsYesButBeforeALoss) {
    set_message_presenter({});
    const auto answered_by_enter = [](auto& question) {
        QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
        return question(nullptr, QString(), QStringLiteral("a question?"), Language::english);
    };
    EXPECT_TRUE(answered_by_enter(ask));
    EXPECT_FALSE(answered_by_enter(ask_before_loss));
}

TEST_F(SupportTest, ADialogMayGoWithItsOwnerWhileItWaits) {
    set_message_presenter({});
    const std::function<void(QWidget*)> dialogs[] = {
        [](QWidget* owner) { warn(owner, QString(), QStringLiteral("a warning"), Language::english); },
        [](QWidget* owner) {
            EXPECT_FALSE(ask(owner, QString(), QStringLiteral("a question?"), Language::english));
        },
        [](QWidget* owner) {
            EXPECT_EQ(choose_save_file(owner, QString(), QStringLiteral("a.txt"), {}), QString());
        },
        [](QWidget* owner) {
            EXPECT_EQ(choose_picture_file(owner, QString(), QStringLiteral("a.gif"), QString()), QString());
        },
    };
    for (const auto& dialog : dialogs) {
        const QPointer<QWidget> owner = new QWidget;
        owner->show();
        QTimer::singleShot(0, [doomed = owner.data()] { delete doomed; });
        dialog(owner);
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
}

TEST_F(SupportTest, AFailureNamesWhatFailedAndWhatToDo) {
    const RunTimeFailure missing = file_failure(FileAction::open, "/here/loc.vsk", ENOENT);
    tell_failure(missing, Language::english);
    tell_failure(missing, Language::arabic);
    ASSERT_EQ(messages.size(), 2U);
    for (const SeenMessage& message : messages) {
        EXPECT_EQ(message.title, QStringLiteral("Halvane 5.3.9"));
        EXPECT_FALSE(message.exclamation);
        EXPECT_TRUE(message.informative_text.contains(QStringLiteral("/here/loc.vsk")));
    }
    EXPECT_TRUE(
        messages[0].informative_text.contains(QStringLiteral("Cannot open /here/loc.vsk: No such file")));
    EXPECT_TRUE(messages[0].informative_text.contains(QStringLiteral("Put this file back")));
    EXPECT_TRUE(messages[1].informative_text.contains(QStringLiteral("لا يوجد ملف بهذا الاسم")));
    EXPECT_TRUE(messages[1].informative_text.contains(QStringLiteral("أعد هذا الملف إلى مكانه")));
    EXPECT_EQ(messages[1].buttons, QStringList{QStringLiteral("موافق")});
    EXPECT_EQ(messages[1].direction, Qt::RightToLeft);
}

TEST_F(SupportTest, EveryKindOfFailureHasARemedyOfItsOwn) {
    const RunTimeFailure failures[] = {file_failure(FileAction::open, "/f", ENOENT),
                                       file_failure(FileAction::write, "/f", EACCES),
                                       file_failure(FileAction::write, "/f", ENOSPC),
                                       file_failure(FileAction::read, "/f", EISDIR),
                                       damaged_file("/f", {"a", "a"}, {"b", "b"}),
                                       RunTimeFailure({"w", "w"}, FailureKind::no_finite_value),
                                       RunTimeFailure({"w", "w"}, FailureKind::no_memory),
                                       RunTimeFailure(TwinWords{"w", "w"})};
    for (const Language language : languages) {
        QStringList remedies;
        for (const RunTimeFailure& failure : failures) {
            messages.clear();
            tell_failure(failure, language);
            remedies << messages.at(0).informative_text.section(QStringLiteral("\n\n"), -1);
        }
        EXPECT_EQ(remedies.removeDuplicates(), 0);
    }
}

TEST_F(SupportTest, WantOfMemoryIsToldInTheBoxAndEndsTheProgram) {
    EXPECT_EXIT(
        {
            set_message_presenter([](QMessageBox& box) {
                std::fprintf(stderr, "box: %s\n", qPrintable(box.informativeText()));
                return true;
            });
            end_with_failure(std::bad_alloc());
        },
        ::testing::ExitedWithCode(1), "box: .*The system gives no more memory");
}

TEST_F(SupportTest, AnExceptionOfAnyTypeIsToldInTheBoxAndEndsTheProgram) {
    EXPECT_EXIT(
        {
            set_message_presenter([](QMessageBox& box) {
                std::fprintf(stderr, "box: %s\n", qPrintable(box.informativeText()));
                return true;
            });
            try {
                throw 42;
            } catch (...) {
                end_with_present_failure();
            }
        },
        ::testing::ExitedWithCode(1), "box: .*An unexpected failure inside the program");
}

TEST_F(SupportTest, AWrappedNoteIsPaintedWithoutTheBlankBeforeIt) {
    for (const auto& [direction, words] :
         {std::pair(Qt::LeftToRight,
                    QStringLiteral("Please choose the precision and the place from their menus")),
          std::pair(Qt::RightToLeft,
                    QStringLiteral("يرجى اختيار الدقة و التوقيت الصيفي من قائمة الخيارات"))}) {
        const auto painted = [direction = direction](const QString& text) {
            QLabel note(text);
            note.setLayoutDirection(direction);
            note.setWordWrap(true);
            note.resize(200, 120);
            return note.grab().toImage();
        };
        EXPECT_TRUE(painted(u' ' + words) == painted(words)) << words.toStdString();
    }
}

TEST_F(SupportTest, ABoxWithLettersMayGoWithItsPanelWhileItHasTheFocus) {
    auto panel = std::make_unique<QWidget>();
    auto* box = new QLineEdit(panel.get());
    keep_number(*box);
    panel->show();
    panel->activateWindow();
    box->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
    box->setText(QStringLiteral("letters"));
    panel.reset();
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

/// The rightmost inked column of the picture's rows from `top` to before `bottom`.
int right_edge_of_ink(const QImage& picture, int top, int bottom) {
    constexpr int ink = 120;
    int edge = -1;
    for (int y = top; y < bottom; ++y)
        for (int x = edge + 1; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, y)) < ink)
                edge = x;
    return edge;
}

TEST_F(SupportTest, TheLinesOfAWrappedArabicNoteBeginAtOneEdge) {
    // Both lines begin with an alef.
    QLabel note(
        QStringLiteral("التاريخ في هذه القائمة يستخدم لحساب مواقيت الصلاة و مواعيد القمر و مواقيت القبلة"));
    note.setLayoutDirection(Qt::RightToLeft);
    note.setAlignment(Qt::AlignTop | Qt::AlignLeading);
    note.setWordWrap(true);
    note.setFixedWidth(note.fontMetrics().horizontalAdvance(note.text()) * 6 / 10);
    note.setFixedHeight(note.heightForWidth(note.width()));
    const QImage picture = note.grab().toImage();
    const int middle = picture.height() / 2;
    const int first = right_edge_of_ink(picture, 0, middle);
    EXPECT_GT(first, picture.width() / 2);
    EXPECT_EQ(first, right_edge_of_ink(picture, middle, picture.height()));
}

/// How far the letters of a button stand from its middle, in pixels; inside its frame.
int off_the_middle(QPushButton& button) {
    constexpr int frame = 6;
    constexpr int ink = 96;
    const QImage picture = button.grab().toImage();
    const int paper = qGray(picture.pixel(picture.width() / 2, frame));
    int left = picture.width();
    int right = 0;
    for (int x = frame; x < picture.width() - frame; ++x)
        for (int y = frame; y < picture.height() - frame; ++y)
            if (std::abs(qGray(picture.pixel(x, y)) - paper) > ink) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    return (left + right + 1 - picture.width()) / 2;
}

/// A desktop that wants icons on the buttons of boxes.
class IconStyle : public QProxyStyle {
public:
    IconStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

TEST_F(SupportTest, TheWordsOfABoxesButtonsStandInTheirMiddle) {
    auto* const look = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(look, nullptr);
    look->setBaseStyle(new IconStyle);
    int seen = 0;
    set_message_presenter([&](QMessageBox& box) {
        box.show();
        for (QAbstractButton* button : box.buttons()) {
            EXPECT_LE(std::abs(off_the_middle(*qobject_cast<QPushButton*>(button))), 3)
                << button->text().toStdString();
            EXPECT_TRUE(button->icon().isNull()) << "an icon beside the words would push them aside";
            ++seen;
        }
        return false;
    });
    for (const Language language : languages) {
        warn(nullptr, QStringLiteral("Title"), QStringLiteral("Text"), language);
        ask(nullptr, QStringLiteral("Title"), QStringLiteral("Text"), language);
    }
    look->setBaseStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    EXPECT_EQ(seen, 6);
}

TEST_F(SupportTest, FocusSelectsTheWholeTextOfABox) {
    SampleForm form;
    select_whole_text_on_focus(form);
    auto& box = control<QLineEdit>(form, "txtname");
    box.setText(QStringLiteral("Amman"));
    box.deselect();
    focus(form, "txtname");
    EXPECT_EQ(box.selectedText(), QStringLiteral("Amman"));
}

/// A form whose button counts its clicks.
struct CountingForm {
    CountingForm() {
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
        form.show();
    }
    /// The button is pressed by its key, and `meanwhile` happens before the click ends.
    void press(const std::function<void()>& meanwhile = {}) {
        button.animateClick();
        ASSERT_TRUE(button.isDown());
        if (meanwhile)
            meanwhile();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !button.isDown(); }));
    }

    QDialog form;
    QPushButton button{QStringLiteral("&Print"), &form};
    int clicks = 0;
};

TEST_F(SupportTest, AKeysClickEndsWithItsWindow) {
    CountingForm counting;
    counting.press([&counting] { counting.form.close(); });
    EXPECT_EQ(counting.clicks, 0);
    counting.form.show();
    counting.press();
    EXPECT_EQ(counting.clicks, 1);
}

TEST_F(SupportTest, AKeysClickEndsWhenItsButtonIsDisabled) {
    CountingForm counting;
    counting.press([&counting] {
        counting.button.setEnabled(false);
        counting.button.setDown(true);
    });
    EXPECT_EQ(counting.clicks, 0);
}

TEST_F(SupportTest, AKeysClickEndsUnderADialog) {
    CountingForm counting;
    QDialog dialog(&counting.form);
    dialog.setModal(true);
    counting.press([&dialog] { dialog.show(); });
    EXPECT_EQ(counting.clicks, 0);
    dialog.close();
    counting.press();
    EXPECT_EQ(counting.clicks, 1);
}

TEST_F(SupportTest, AKeysClickReachesAWindowOfTheDialog) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    CountingForm counting;
    counting.form.setParent(&dialog, Qt::Dialog);
    counting.form.show();
    counting.press();
    EXPECT_EQ(counting.clicks, 1);
}

TEST_F(SupportTest, AControlWithoutALabelIsToldAsNameless) {
    SampleForm form;
    EXPECT_TRUE(nameless_controls(form).contains(QStringLiteral("txtname")));
    apply_language(form, twins, Language::english);
    EXPECT_EQ(nameless_controls(form), QStringList());
}

TEST_F(SupportTest, TheStoredLanguageIsRead) {
    EXPECT_EQ(stored_language(), Language::english);
    set_language(Language::arabic);
    EXPECT_EQ(stored_language(), Language::arabic);
}

TEST(FigureTexts, KeepTheirInnerOrder) {
    EXPECT_EQ(with_figures_in_order(QStringLiteral("الفجر 18.5°، يضاف +60.0.")),
              QStringLiteral("الفجر \u206618.5°\u2069، يضاف \u2066+60.0\u2069."));
    EXPECT_EQ(with_figures_in_order(QStringLiteral("من 2026-11-01")),
              QStringLiteral("من \u20662026-11-01\u2069"));
    EXPECT_EQ(with_figures_in_order(QStringLiteral("A - B")), QStringLiteral("A - B"));
}

} // namespace
} // namespace halvane
