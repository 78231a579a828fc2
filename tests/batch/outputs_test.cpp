// SPDX-License-Identifier: MIT
// Where the results of halvane-report go: files, links, pipes, devices, standard output; and what a process
// that is ended leaves behind.

#include "tests/batch/forkedbatch.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <set>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <thread>

namespace halvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* table_head = "longitude,latitude,class\n";

mode_t rights_of(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

class BatchOutputs : public ForkedBatch {
protected:
    Outcome run_map(
        std::vector<std::string> options, const std::function<void()>& in_child = [] {}) const {
        options.insert(options.begin(), "map");
        return run_in_folder(std::move(options), in_child);
    }
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            found.insert(entry.path().filename().string());
        return found;
    }
    /// A period whose report takes far longer than any test waits.
    void store_a_long_period() const {
        folder.write("date.vsk", "#FALSE#,1000,1,1,9000,1,1,1000,1,1,9000,1,1,2026,1,1,#TRUE#,#FALSE#\r\n");
    }
    /// A run of the long report that has begun to write.
    pid_t start_a_long_run(const std::set<std::string>& before) const {
        const pid_t child = start({"--folder", folder.path().string(), "moon"});
        for (int i = 0; i < 1000 && names() == before; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_NE(names(), before) << "the run has written nothing";
        return child;
    }
};

TEST_F(BatchOutputs, GoThroughALinkToItsTarget) {
    const fs::path target = streams / "kept elsewhere";
    put_bytes(target, "earlier");
    fs::create_symlink("results.link", folder / "results.out");
    fs::create_symlink(target, folder / "results.link");
    ASSERT_EQ(run_in_folder({"prayer"}).status, 0);
    EXPECT_TRUE(fs::is_symlink(folder / "results.out"));
    EXPECT_TRUE(fs::is_symlink(folder / "results.link"));
    EXPECT_TRUE(holds(bytes_of(target), "* Remarks:-"));

    for (const char* option : {"--csv", "--output"}) {
        fs::remove(target);
        const Outcome outcome = run_map({option, (folder / "results.out").string()});
        ASSERT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_TRUE(fs::is_symlink(folder / "results.link")) << option;
        EXPECT_TRUE(fs::is_regular_file(target))
            << option << " makes the target of a link that leads nowhere";
    }
    EXPECT_TRUE(bytes_of(target).starts_with("GIF8"));
}

TEST_F(BatchOutputs, GoIntoANamedPipe) {
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const fs::path same_pipe = folder / "same pipe";
    fs::create_hard_link(pipe, same_pipe);
    for (const bool report : {false, true}) {
        std::string received;
        std::thread reader([&] {
            const int end = ::open(pipe.c_str(), O_RDONLY);
            std::array<char, 4096> block{};
            for (ssize_t count = 0; (count = ::read(end, block.data(), block.size())) > 0;)
                received.append(block.data(), static_cast<std::size_t>(count));
            ::close(end);
        });
        if (report)
            fs::create_symlink(pipe, folder / "results.out");
        const Outcome outcome = report ? run_in_folder({"prayer"}) : run_map({"--csv", pipe.string()});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_TRUE(fs::is_fifo(pipe)) << "the pipe has been replaced";
        // A reader that nobody has served ends with this.
        ::close(::open(same_pipe.c_str(), O_WRONLY | O_NONBLOCK));
        reader.join();
        EXPECT_TRUE(holds(received, report ? "* Remarks:-" : table_head));
    }
}

TEST_F(BatchOutputs, TellOfAPipeThatNobodyReads) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const Outcome outcome = run_map({"--csv", (folder / "pipe").string()}, [] { ::alarm(60); });
    expect_failure(outcome, "Cannot write " + (folder / "pipe").string());
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(BatchOutputs, GoIntoASocket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string name = (folder / "s").string();
    ASSERT_LT(name.size(), sizeof address.sun_path);
    name.copy(address.sun_path, name.size());
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 1), 0);
    std::string received;
    std::thread reader([&] {
        const int end = ::accept(listener, nullptr, nullptr);
        std::array<char, 4096> block{};
        for (ssize_t count = 0; (count = ::read(end, block.data(), block.size())) > 0;)
            received.append(block.data(), static_cast<std::size_t>(count));
        ::close(end);
    });
    const Outcome outcome = run_map({"--csv", name});
    ::shutdown(listener, SHUT_RDWR); // ends a wait for a caller that never came
    reader.join();
    ::close(listener);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(fs::is_socket(name));
    EXPECT_TRUE(holds(received, table_head));
}

TEST_F(BatchOutputs, LeaveADeviceADevice) {
    const fs::path null = folder / "null";
    const fs::path full = folder / "full";
    if (::mknod(null.c_str(), S_IFCHR | 0600, makedev(1, 3)) != 0 ||
        ::mknod(full.c_str(), S_IFCHR | 0600, makedev(1, 7)) != 0)
        GTEST_SKIP() << "only the administrator makes devices";
    for (const char* option : {"--csv", "--output"}) {
        EXPECT_EQ(run_map({option, null.string()}).status, 0) << option;
        EXPECT_TRUE(fs::is_character_file(null)) << option;
        expect_failure(run_map({option, full.string()}), "Cannot write " + full.string());
        EXPECT_TRUE(fs::is_character_file(full)) << option;
    }
}

TEST_F(BatchOutputs, RefuseAFolder) {
    const fs::path taken = folder / "taken";
    fs::create_directory(taken);
    for (const char* option : {"--csv", "--output"})
        expect_failure(run_map({option, taken.string()}), "Cannot write " + taken.string());
    EXPECT_TRUE(fs::is_directory(taken));
}

TEST_F(BatchOutputs, AMinusIsStandardOutput) {
    const auto before = names();
    const auto there = [this] {
        if (::chdir(folder.path().c_str()) != 0)
            ::_exit(126);
    };
    Outcome outcome = run_map({"--csv", "-"}, there);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(outcome.output.starts_with("# ")) << outcome.output.substr(0, 80);
    EXPECT_TRUE(holds(outcome.output, table_head));
    EXPECT_TRUE(outcome.output.ends_with("\n") && !outcome.output.ends_with("-\n"));
    outcome = run_map({"--output", "-"}, there);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(outcome.output.starts_with("GIF8"));
    EXPECT_EQ(outcome.output.back(), ';') << "the picture's last byte is the output's";
    outcome = run_map({"--csv", "/dev/stdout"}, there);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(holds(outcome.output, table_head));
    EXPECT_EQ(names(), before);

    outcome = run_map({"--csv", "-", "--output", "both.gif"}, there);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(holds(outcome.output, table_head) && !holds(outcome.output, "both.gif"));
    EXPECT_EQ(outcome.errors, "both.gif\n");
    EXPECT_TRUE(folder.has("both.gif"));
    outcome = run_map({"--csv", "-", "--output", "-"}, there);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_NE(outcome.errors, "");
}

TEST_F(BatchOutputs, AFullOrClosedStandardOutputIsAFailure) {
    const auto full = [] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); };
    const auto closed = [] { ::close(STDOUT_FILENO); };
    const auto broken = [] {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            ::_exit(126);
        ::close(ends[0]);
        ::dup2(ends[1], STDOUT_FILENO);
    };
    const std::string table = (folder / "map.csv").string();
    for (const std::function<void()>& output : {std::function<void()>(full), {closed}, {broken}})
        for (const std::vector<std::string>& task : {std::vector<std::string>{"today"},
                                                     {"prayer"},
                                                     {"telescope"},
                                                     {"--version"},
                                                     {"--help"},
                                                     {"map", "--csv", table},
                                                     {"map", "--csv", "-"},
                                                     {"map", "--output", "-"}}) {
            const Outcome outcome = run_in_folder(task, output);
            expect_failure(outcome, "Cannot write standard output");
            if (task == std::vector<std::string>{"map", "--csv", table}) {
                const std::string written = bytes_of(table);
                EXPECT_TRUE(holds(written, table_head)) << "the result itself is whole";
                EXPECT_FALSE(holds(written, "map.csv")) << "and holds nothing that went to the closed output";
                fs::remove(table);
            }
        }
}

TEST_F(BatchOutputs, OfAFormatHaveTheReportsNameWithItsEnding) {
    for (const char* format : {"csv", "json"}) {
        const fs::path file = folder / (std::string("results.") + format);
        const Outcome outcome = run_in_folder({"prayer", "--format", format});
        ASSERT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_EQ(outcome.output, file.string() + "\n");
        EXPECT_TRUE(
            holds(bytes_of(file), format == std::string("csv") ? "date,summer_time,fajer" : "\"rows\":["));
    }
    EXPECT_FALSE(folder.has("results.out"));
}

TEST_F(BatchOutputs, TheFixedReportGoesWhereItIsSentToo) {
    ASSERT_EQ(run_in_folder({"moon"}).status, 0);
    const std::string report = folder.read("mresults.out");
    const Outcome outcome = run_in_folder({"moon", "--output", (streams / "moon.txt").string()});
    EXPECT_EQ(outcome.output, (streams / "moon.txt").string() + "\n");
    EXPECT_EQ(bytes_of(streams / "moon.txt"), report);
    EXPECT_EQ(run_in_folder({"moon", "--output", "-"}).output, report);
}

TEST_F(BatchOutputs, NeverReplaceAFileOfTheProgram) {
    const std::string place = folder.read("loc.vsk");
    const std::string list = folder.read("loc.txt");
    for (const char* name : {"loc.vsk", "./pref.vsk", "loc.txt"}) {
        const std::string path = (folder / name).string();
        expect_failure(run_in_folder({"prayer", "--format", "csv", "--output", path}),
                       "is a file of the program");
        expect_failure(run_map({"--csv", path}), "is a file of the program");
        expect_failure(run_map({"--format", "json", "--output", path}), "is a file of the program");
    }
    EXPECT_EQ(folder.read("loc.vsk"), place);
    EXPECT_TRUE(folder.read("loc.txt") == list) << "the list of places has changed";
    const std::string own = (folder / "times.txt").string();
    EXPECT_EQ(run_in_folder({"prayer", "--output", own}).status, 0);
    EXPECT_EQ(run_in_folder({"prayer", "--output", own}).status, 0) << "a text of the user's own is replaced";
}

TEST_F(BatchOutputs, OfAnotherFormatAreAUsageError) {
    for (const char* format : {"xml", "CSV", ""})
        EXPECT_EQ(run_in_folder({"prayer", "--format", format}).status, 2) << format;
    EXPECT_EQ(run_map({"--format", "text"}).status, 2) << "a map has no text";
}

TEST_F(BatchOutputs, TakeTheUsersUmask) {
    const auto as = [](mode_t mask) { return [mask] { ::umask(mask); }; };
    const std::string picture = (folder / "map.out.gif").string();
    const std::string table = (folder / "map.csv").string();
    for (const mode_t mask : {mode_t{077}, mode_t{027}, mode_t{0}}) {
        ASSERT_EQ(run_in_folder({"prayer"}, as(mask)).status, 0);
        ASSERT_EQ(run_map({"--output", picture, "--csv", table}, as(mask)).status, 0);
        for (const fs::path& result : {folder / "results.out", fs::path(picture), fs::path(table)}) {
            EXPECT_EQ(rights_of(result), 0666U & ~mask) << result << " under " << mask;
            fs::remove(result);
        }
    }
    // A result that its user has closed to others stays so; what the umask takes away is taken.
    ASSERT_EQ(run_in_folder({"prayer"}, as(022)).status, 0);
    ::chmod((folder / "results.out").c_str(), 0600);
    ASSERT_EQ(run_in_folder({"prayer"}, as(022)).status, 0);
    EXPECT_EQ(rights_of(folder / "results.out"), 0600U);
    ::chmod((folder / "results.out").c_str(), 0777);
    ASSERT_EQ(run_in_folder({"prayer"}, as(027)).status, 0);
    EXPECT_EQ(rights_of(folder / "results.out"), 0640U);
}

TEST_F(BatchOutputs, ALinkDoesNotDecideTheirRights) {
    const fs::path open_to_all = streams / "open to all";
    put_bytes(open_to_all, "earlier");
    ::chmod(open_to_all.c_str(), 0777);
    fs::create_symlink(open_to_all, folder / "results.out");
    ASSERT_EQ(run_in_folder({"prayer"}, [] { ::umask(027); }).status, 0);
    EXPECT_EQ(rights_of(folder / "results.out"), 0640U);
}

TEST_F(BatchOutputs, AnothersLinkIsNotFollowed) {
    constexpr uid_t another = 65534;
    const fs::path target = streams / "target";
    put_bytes(target, "not the program's");
    ::chmod(target.c_str(), 0666);
    fs::create_symlink(target, folder / "results.out");
    if (::lchown((folder / "results.out").c_str(), another, another) != 0)
        GTEST_SKIP() << "only the administrator gives files away";
    ::chmod(folder.path().c_str(), 0777);
    ASSERT_EQ(run_in_folder({"prayer"}, [] { ::umask(027); }).status, 0);
    EXPECT_EQ(bytes_of(target), "not the program's");
    EXPECT_EQ(rights_of(target), 0666U);
    EXPECT_FALSE(fs::is_symlink(folder / "results.out"));
    EXPECT_EQ(rights_of(folder / "results.out"), 0640U);
}

TEST_F(BatchOutputs, LongNamesAreWritten) {
    const fs::path longest = folder / (std::string(251, 'n') + ".csv");
    const Outcome outcome = run_map({"--csv", longest.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(fs::is_regular_file(longest));
}

TEST_F(BatchOutputs, SignalsLeaveNothingBehind) {
    store_a_long_period();
    const auto before = names();
    for (const int signal : {SIGTERM, SIGHUP}) {
        const pid_t child = start_a_long_run(before);
        ::kill(child, signal);
        EXPECT_EQ(wait_for(child).status, 128 + signal);
        EXPECT_EQ(names(), before) << "after signal " << signal;
    }
}

TEST_F(BatchOutputs, ASecondInterruptEndsAWaitForAPipe) {
    ASSERT_EQ(::mkfifo((folder / "results.out").c_str(), 0600), 0);
    const int end = ::open((folder / "results.out").c_str(), O_RDONLY | O_NONBLOCK); // reads nothing
    folder.write("date.vsk", "#FALSE#,1000,1,1,9000,1,1,1000,1,1,9000,1,1,2026,1,1,#TRUE#,#FALSE#\r\n");
    const pid_t child = start({"--folder", folder.path().string(), "prayer"}, [] { ::alarm(60); });
    int status = 0;
    pid_t ended = 0;
    for (int i = 0; i < 3000 && ended == 0; ++i) {
        if (i >= 100)
            ::kill(child, SIGINT);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ended = ::waitpid(child, &status, WNOHANG);
    }
    ::close(end);
    ASSERT_EQ(ended, child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
}

TEST_F(BatchOutputs, AnIgnoredSignalStaysIgnored) {
    store_a_long_period();
    const auto before = names();
    const pid_t child =
        start({"--folder", folder.path().string(), "moon"}, [] { ::signal(SIGHUP, SIG_IGN); });
    for (int i = 0; i < 1000 && names() == before; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ::kill(child, SIGHUP);
    ::kill(child, SIGTERM);
    EXPECT_EQ(wait_for(child).status, 128 + SIGTERM);
    EXPECT_EQ(names(), before);
}

TEST_F(BatchOutputs, ALimitOfFileSizesIsAFailureWithWords) {
    const auto before = names();
    const auto limited = [] {
        const rlimit small{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &small);
    };
    expect_failure(run_in_folder({"prayer"}, limited), "Cannot write " + (folder / "results.out").string());
    expect_failure(run_map({"--csv", (folder / "map.csv").string()}, limited), "Cannot write");
    expect_failure(run_map({"--output", (folder / "big.gif").string()}, limited), "Cannot write");
    EXPECT_EQ(names(), before);
}

TEST_F(BatchOutputs, WhatAKillLeavesGoesAtALaterStart) {
    store_a_long_period();
    const auto before = names();
    const pid_t child = start_a_long_run(before);
    ::kill(child, SIGKILL);
    wait_for(child);
    const auto with_leftover = names();
    ASSERT_EQ(with_leftover.size(), before.size() + 1);
    std::string leftover;
    for (const std::string& name : with_leftover)
        if (!before.contains(name))
            leftover = name;

    ASSERT_EQ(run_in_folder({"today"}).status, 0);
    EXPECT_TRUE(folder.has(leftover)) << "it may be in use";
    const std::time_t now = std::time(nullptr);
    const auto grow_old = [&](const fs::path& path) {
        const std::array<timespec, 2> times{timespec{now - 90000, 0}, timespec{now - 90000, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW), 0);
    };
    // Names of a user's own, however near to the program's.
    std::vector<std::string> kept{"results.out.backup", leftover + "x", leftover.substr(1), "x" + leftover,
                                  leftover.substr(0, leftover.size() - 1)};
    for (const std::string& name : kept)
        folder.write(name, "the user's");
    std::string folder_name = leftover;
    folder_name.back() = leftover.back() == 'q' ? 'p' : 'q';
    fs::create_directory(folder / folder_name);
    std::string link_name = leftover;
    link_name.back() = leftover.back() == 's' ? 'r' : 's';
    fs::create_symlink("elsewhere", folder / link_name);
    kept.insert(kept.end(), {folder_name});
    for (const auto& entry : fs::directory_iterator(folder.path()))
        grow_old(entry.path());
    ASSERT_EQ(run_in_folder({"today"}).status, 0);
    EXPECT_FALSE(folder.has(leftover));
    for (const std::string& name : kept)
        EXPECT_TRUE(folder.has(name)) << name;
    EXPECT_TRUE(fs::is_symlink(folder / link_name));

    folder.write(leftover, "left beside a table");
    grow_old(folder / leftover);
    ASSERT_EQ(
        run({"--folder", streams.path().string(), "map", "--csv", (folder / "map.csv").string()}).status, 0);
    EXPECT_FALSE(folder.has(leftover)) << "the folder of a result is looked at too";
}

TEST_F(BatchOutputs, LeftoversOfAnotherUserStay) {
    folder.write(".halvane-save-a1B2c3", "another's");
    const std::array<timespec, 2> long_ago{};
    ASSERT_EQ(::utimensat(AT_FDCWD, (folder / ".halvane-save-a1B2c3").c_str(), long_ago.data(), 0), 0);
    if (::chown((folder / ".halvane-save-a1B2c3").c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "only the administrator gives files away";
    ASSERT_EQ(run_in_folder({"today"}).status, 0);
    EXPECT_TRUE(folder.has(".halvane-save-a1B2c3"));
}

/// Pipes, endless devices, folders and files too large in the place of what is read.
class BatchInputs : public ForkedBatch {};

TEST_F(BatchInputs, OfAnotherKindThanAFileAreNamed) {
    struct Reader {
        std::vector<std::string> task;
        std::string file;
    };
    const std::vector<Reader> readers{
        {{"today"}, "pref.vsk"},        {{"today"}, "loc.vsk"},      {{"prayer"}, "date.vsk"},
        {{"today"}, "term.vsk"},        {{"today"}, "mterm.vsk"},    {{"moon"}, "elp.vsk"},
        {{"crescent"}, "termfull.vsk"}, {{"map"}, "visib.vsk"},      {{"map"}, "map.gif"},
        {{"telescope"}, "tele.vsk"},    {{"ephemeris"}, "coor.vsk"}, {{"phases"}, "phase.vsk"}};
    const auto limits = [] {
        ::alarm(30);
        const rlimit memory{2000000000, 2000000000};
        ::setrlimit(RLIMIT_AS, &memory);
    };
    for (const Reader& reader : readers) {
        const fs::path path = folder / reader.file;
        const bool was_there = folder.has(reader.file);
        const std::string sound = was_there ? folder.read(reader.file) : bytes_of(delivered(reader.file));
        const auto expect_named = [&](const std::string& kind) {
            const Outcome outcome = run_in_folder(reader.task, limits);
            expect_failure(outcome, path.string());
            EXPECT_TRUE(holds(outcome.errors, kind)) << outcome.errors;
        };
        folder.erase(reader.file);
        ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
        expect_named("named pipe");
        folder.erase(reader.file);
        fs::create_symlink("/dev/zero", path);
        expect_named("device");
        folder.erase(reader.file);
        fs::create_directory(path);
        expect_named("folder");
        folder.erase(reader.file);
        put_bytes(path, "");
        fs::resize_file(path, 16U * 1024U * 1024U + 1U);
        expect_named("16 MB");
        folder.write(reader.file, sound);
    }
}

} // namespace
} // namespace halvane
