#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "platform/child_program.h"

namespace {

// What a child has open.
class ChildFiles {
public:
    explicit ChildFiles(const std::string& outputPath) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, outputPath.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0666);
        posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    }
    ~ChildFiles() { posix_spawn_file_actions_destroy(&actions_); }
    ChildFiles(const ChildFiles&) = delete;
    ChildFiles& operator=(const ChildFiles&) = delete;

    const posix_spawn_file_actions_t* Actions() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

ProgramEnd WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1)
        if (errno != EINTR) throw ChildProgramError(std::strerror(errno));
    if (WIFSIGNALED(status)) return {0, WTERMSIG(status)};
    return {WEXITSTATUS(status), 0};
}

}  // namespace

ProgramEnd RunChildProgram(const std::string& program, const std::vector<std::string>& arguments,
                           const std::string& outputPath) {
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const ChildFiles files(outputPath);
    pid_t child = 0;
    const int error =
        posix_spawn(&child, program.c_str(), files.Actions(), nullptr, pointers.data(), environ);
    if (error != 0) throw ChildProgramError(std::strerror(error));
    return WaitFor(child);
}

std::string OwnProgramPath() {
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).string();
}
