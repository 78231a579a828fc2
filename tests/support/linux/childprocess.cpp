// SPDX-License-Identifier: MIT
#include "tests/support/childprocess.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace halvane {
namespace {

void lead_to(int stream, const std::filesystem::path& file) {
    if (!file.empty())
        ::dup2(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
}

int status_of(pid_t process) {
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                           const std::filesystem::path& out, const std::filesystem::path& err) {
    std::vector<std::string> texts = arguments;
    texts.insert(texts.begin(), program.string());
    std::vector<char*> words;
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot start " + program.string());
    if (child == 0) {
        lead_to(STDOUT_FILENO, out);
        lead_to(STDERR_FILENO, err);
        ::execv(program.c_str(), words.data());
        ::_exit(127);
    }
    process_ = child;
}

int ChildProcess::wait() {
    return status_of(static_cast<pid_t>(process_));
}

bool ChildProcess::kill() {
    ::kill(static_cast<pid_t>(process_), SIGKILL);
    return wait() == 128 + SIGKILL;
}

} // namespace halvane
