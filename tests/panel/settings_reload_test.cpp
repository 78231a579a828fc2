// SPDX-License-Identifier: MIT
#include "desktop/frmlocation.h"
#include "desktop/frmmain.h"
#include "desktop/frmpreferences.h"
#include "desktop/panels.h"
#include "tests/panel/panelharness.h"

#include <QApplication>
#include <QTimer>
#include <functional>

namespace halvane {
namespace {

/// The main panel with the settings panels that it opens.
class SettingsReloadTest : public PanelTest {
protected:
    /// Runs `work` on the modal panel that a click on `button` opens.
    void in_panel(frmmain& main_panel, const char* button, const std::function<void(QWidget&)>& work) {
        QTimer::singleShot(0, [&work] {
            QWidget* panel = QApplication::activeModalWidget();
            ASSERT_NE(panel, nullptr);
            work(*panel);
            panel->close();
        });
        click(main_panel, button);
    }
};

TEST_F(SettingsReloadTest, ANewLocationIsOnTheMainPanelAtOnce) {
    frmmain main_panel(panels());
    main_panel.load();
    main_panel.show();
    const QString fajer = caption(main_panel, "lbltfaj");
    in_panel(main_panel, "cmdloc", [](QWidget& panel) {
        ASSERT_EQ(panel.objectName(), "frmlocation");
        choose(panel, "List1", "Sydney");
        click(panel, "cmdok");
    });
    EXPECT_EQ(caption(main_panel, "lbltloc"), "Sydney");
    EXPECT_NE(caption(main_panel, "lbltfaj"), fajer);
    EXPECT_TRUE(main_panel.isVisible());
}

TEST_F(SettingsReloadTest, ANewLanguageIsOnTheMainPanelAtOnceAndBack) {
    frmmain main_panel(panels());
    main_panel.load();
    main_panel.show();
    in_panel(main_panel, "cmdpre", [](QWidget& panel) {
        ASSERT_EQ(panel.objectName(), "frmpreferences");
        click(panel, "optar");
        click(panel, "cmdok");
    });
    EXPECT_EQ(caption(main_panel, "cmdpre"), "ا&لخيارات");
    EXPECT_TRUE(main_panel.isRightToLeft());
    in_panel(main_panel, "cmdpre", [](QWidget& panel) {
        EXPECT_EQ(panel.windowTitle(), "الخيارات");
        click(panel, "opten");
        click(panel, "cmdok");
    });
    EXPECT_EQ(caption(main_panel, "cmdpre"), "&Preferences");
    EXPECT_FALSE(main_panel.isRightToLeft());
}

TEST_F(SettingsReloadTest, EverySettingsPanelOpensFromItsButton) {
    frmmain main_panel(panels());
    main_panel.load();
    main_panel.show();
    for (const auto& [button, form] : {std::pair{"cmdloc", "frmlocation"},
                                       {"cmddat", "frmdate"},
                                       {"cmdpre", "frmpreferences"},
                                       {"cmdcon", "frmhej"}}) {
        QString opened;
        in_panel(main_panel, button, [&opened](QWidget& panel) { opened = panel.objectName(); });
        EXPECT_EQ(opened, form);
    }
    EXPECT_EQ(content("date.vsk"), "#FALSE#,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,#FALSE#,#TRUE#\r\n");
}

} // namespace
} // namespace halvane
