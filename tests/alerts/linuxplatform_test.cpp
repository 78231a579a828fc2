// SPDX-License-Identifier: MIT
#include "platform/desktopplatform.h"
#include "platform/linux/desktopentry.h"
#include "stored/textfile.h"
#include "tests/panel/panelharness.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <csignal>
#include <filesystem>
#include <functional>
#include <unistd.h>

namespace halvane {
namespace {

namespace fs = std::filesystem;

/// A home of its own; the environment comes back with the object.
class LinuxPlatformTest : public ::testing::Test {
protected:
    LinuxPlatformTest() {
        qputenv("HOME", home_.path().toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
    }
    ~LinuxPlatformTest() override {
        qputenv("HOME", home_before_);
        if (config_before_.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", config_before_);
    }
    fs::path home() const { return home_.path().toStdString(); }
    static Shortcut shortcut() {
        return {"/some/halvane/alert63.exe", "Startup", "Halvane", "/some/halvane", 0, 0};
    }
    /// A copy of sleep(1) under another name.
    fs::path sleeper(const std::string& name) const {
        fs::path copy = home() / name;
        fs::copy_file("/bin/sleep", copy);
        return copy;
    }
    static bool comes_true(const std::function<bool()>& condition) {
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 5000) {
            if (condition())
                return true;
            QThread::msleep(10);
        }
        return false;
    }

    DesktopPlatform platform_{[](const std::string&, const auto& /*run*/) {}};

private:
    QTemporaryDir home_;
    QByteArray home_before_ = qgetenv("HOME");
    QByteArray config_before_ = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(LinuxPlatformTest, TheStartUpEntryStandsInTheUsersAutostartFolder) {
    platform_.create_shortcut(shortcut());
    const std::string text = read_text_file((home() / ".config/autostart/Halvane.desktop").string());
    EXPECT_EQ(text.rfind("[Desktop Entry]\nType=Application\n", 0), 0U);
    EXPECT_NE(text.find("\nExec=\"/some/halvane/alert63.exe\"\n"), std::string::npos);
    EXPECT_NE(text.find("\nPath=/some/halvane\n"), std::string::npos);
}

TEST_F(LinuxPlatformTest, TheConfigurationFolderOfTheUserIsHonoured) {
    qputenv("XDG_CONFIG_HOME", (home() / "settings").string().c_str());
    platform_.create_shortcut(shortcut());
    EXPECT_TRUE(fs::exists(home() / "settings/autostart/Halvane.desktop"));
    EXPECT_FALSE(fs::exists(home() / ".config"));
    platform_.delete_shortcut("Startup", "Halvane");
    EXPECT_FALSE(fs::exists(home() / "settings/autostart/Halvane.desktop"));
}

TEST_F(LinuxPlatformTest, AConfigurationFolderThatIsNotAbsoluteIsIgnored) {
    qputenv("XDG_CONFIG_HOME", "settings");
    platform_.create_shortcut(shortcut());
    EXPECT_TRUE(fs::exists(home() / ".config/autostart/Halvane.desktop"));
    EXPECT_FALSE(fs::exists("settings"));
}

TEST_F(LinuxPlatformTest, AUsersCopyDoesNotStartWithoutItsPackage) {
    fs::create_directories(home() / "package");
    fs::create_directories(home() / "own");
    for (const char* name : {"package/alert63.exe", "package/term.vsk", "own/alert63.exe"})
        save_text_file((home() / name).string(), "");
    fs::create_symlink(home() / "package/term.vsk", home() / "own/term.vsk");
    Shortcut own = shortcut();
    own.target = (home() / "own/alert63.exe").string();
    platform_.create_shortcut(own);
    const std::string entry = (home() / ".config/autostart/Halvane.desktop").string();
    const std::string package = fs::canonical(home() / "package").string();
    EXPECT_NE(read_text_file(entry).find("\nTryExec=" + package + "/alert63.exe\n"), std::string::npos)
        << read_text_file(entry);
    EXPECT_NE(read_text_file(entry).find("\nExec=\"" + own.target + "\"\n"), std::string::npos);
    // A folder that holds everything itself needs itself only.
    own.target = package + "/alert63.exe";
    platform_.create_shortcut(own);
    EXPECT_NE(read_text_file(entry).find("\nTryExec=" + own.target + "\n"), std::string::npos);
}

TEST_F(LinuxPlatformTest, TheEntryIsValidWhateverTheFolderIsCalled) {
    if (QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate")).isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    for (const char* folder : {"/some/halvane", "/a b", "/a\"b", "/$HOME", "/a`b", "/50%", "/a\\b", "/منبه",
                               "/a;b", "/it's", "/a&b", "/#a", "/~b", "/<h1>"}) {
        Shortcut odd = shortcut();
        odd.target = std::string(folder) + "/alert63.exe";
        odd.working_folder = folder;
        platform_.create_shortcut(odd);
        QProcess validate;
        validate.setProcessChannelMode(QProcess::MergedChannels);
        validate.start(QStringLiteral("desktop-file-validate"),
                       {QString::fromStdString((home() / ".config/autostart/Halvane.desktop").string())});
        ASSERT_TRUE(validate.waitForFinished());
        EXPECT_EQ(validate.exitCode(), 0) << folder << ": " << validate.readAll().toStdString();
    }
}

TEST_F(LinuxPlatformTest, DeletingLeavesTheEntriesOfOthersAndPassesOverAMissingOne) {
    fs::create_directories(home() / ".config/autostart");
    save_text_file((home() / ".config/autostart/other.desktop").string(), "[Desktop Entry]\n");
    platform_.delete_shortcut("Startup", "Halvane");
    platform_.create_shortcut(shortcut());
    platform_.delete_shortcut("Startup", "Halvane");
    EXPECT_FALSE(fs::exists(home() / ".config/autostart/Halvane.desktop"));
    EXPECT_TRUE(fs::exists(home() / ".config/autostart/other.desktop"));
}

TEST_F(LinuxPlatformTest, ASecondEntryTakesThePlaceOfTheFirst) {
    platform_.create_shortcut(shortcut());
    Shortcut moved = shortcut();
    moved.target = "/new/alert63.exe";
    platform_.create_shortcut(moved);
    const std::string text = read_text_file((home() / ".config/autostart/Halvane.desktop").string());
    EXPECT_NE(text.find("\"/new/alert63.exe\""), std::string::npos);
    EXPECT_EQ(text.find("\"/some/"), std::string::npos);
}

TEST_F(LinuxPlatformTest, AFolderThatCannotBeMadeIsToldToTheCaller) {
    save_text_file((home() / ".config").string(), "a file where the folder should be");
    EXPECT_ANY_THROW(platform_.create_shortcut(shortcut()));
}

// The rules of quoting: freedesktop.org, Desktop Entry 1.5, "The Exec key".
TEST(DesktopEntry, SpecialCharactersOfTheCommandAreQuoted) {
    const std::string text =
        desktop_entry({"/a b/100%/$x\\y\"z/alert63.exe", "Startup", "Halvane", "/a\\b", 0, 0}, "/a\\b");
    EXPECT_NE(text.find(R"(Exec="/a b/100%%/\\$x\\\\y\\"z/alert63.exe")"
                        "\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("Path=/a\\\\b\n"), std::string::npos);
}

TEST_F(LinuxPlatformTest, ARunningProgramIsFoundByItsName) {
    const std::string name = "halvane-test-" + std::to_string(::getpid());
    EXPECT_FALSE(platform_.is_running("Some Title", name));
    platform_.start_minimised("/nowhere/" + name, home().string());
    EXPECT_FALSE(platform_.is_running("Some Title", name));
    QProcess program;
    program.start(QString::fromStdString(sleeper(name).string()), {QStringLiteral("30")});
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_TRUE(platform_.is_running("Some Title", name));
    EXPECT_FALSE(platform_.is_running("Some Title", name + "x"));
    fs::remove(home() / name);
    EXPECT_TRUE(platform_.is_running("Some Title", name))
        << "an upgrade replaces the file of a running program";
    program.kill();
    program.waitForFinished();
    EXPECT_FALSE(platform_.is_running("Some Title", name));
}

TEST_F(LinuxPlatformTest, AProgramIsStartedInItsFolder) {
    const fs::path script = home() / "program";
    save_text_file(script.string(), "#!/bin/sh\npwd > started\n");
    fs::permissions(script, fs::perms::owner_all);
    fs::create_directory(home() / "work");
    platform_.start_minimised(script.string(), (home() / "work").string());
    const std::string seen = (home() / "work/started").string();
    ASSERT_TRUE(comes_true([&] { return fs::exists(seen) && fs::file_size(seen) > 0; }));
    EXPECT_EQ(read_text_file(seen), fs::canonical(home() / "work").string() + "\n");
}

} // namespace
} // namespace halvane
