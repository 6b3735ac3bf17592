#include "tests/support/run_program.h"

#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

constexpr const char* kOut = "program.out";
constexpr const char* kErr = "program.err";

[[noreturn]] void FailToStart(const std::string& program) {
    throw std::runtime_error("cannot run " + program);
}

#ifdef _WIN32

// A handle that the program inherits, closed at the end.
class InheritedFile {
public:
    InheritedFile(const std::string& path, DWORD access, DWORD creation) {
        SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        handle_ = CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                              creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    ~InheritedFile() { CloseHandle(handle_); }
    InheritedFile(const InheritedFile&) = delete;
    InheritedFile& operator=(const InheritedFile&) = delete;
    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_;
};

// Arguments of the tests hold no quotation marks. A backslash before the closing one would take it
// into the argument, so it is written twice.
std::string CommandLine(const std::string& program, const std::vector<std::string>& arguments) {
    std::string line = "\"" + program + "\"";
    for (const std::string& argument : arguments) {
        line.append(" \"").append(argument);
        if (argument.ends_with('\\')) line += '\\';
        line += '"';
    }
    return line;
}

int Run(const std::string& path, const std::vector<std::string>& arguments,
        const TestFolder& folder) {
    const std::string program = std::filesystem::path(path).make_preferred().string();
    const InheritedFile in("NUL", GENERIC_READ, OPEN_EXISTING);
    const InheritedFile out(folder.Path(kOut), GENERIC_WRITE, CREATE_ALWAYS);
    const InheritedFile err(folder.Path(kErr), GENERIC_WRITE, CREATE_ALWAYS);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in.handle();
    start.hStdOutput = out.handle();
    start.hStdError = err.handle();
    PROCESS_INFORMATION process{};
    const auto isStarted = [&] {
        std::string command = CommandLine(program, arguments);
        return CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                              nullptr, &start, &process) != FALSE;
    };
    // About once in some thousand starts Wine refuses one.
    if (!isStarted() && !isStarted()) FailToStart(program);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

#else

// In the child: puts `path` in place of one of its standard streams.
void Redirect(int stream, const char* path, int flags) {
    const int file = open(path, flags, 0600);
    if (file < 0 || dup2(file, stream) < 0) _exit(127);
    close(file);
}

int Run(const std::string& program, const std::vector<std::string>& arguments,
        const TestFolder& folder) {
    const std::string out = folder.Path(kOut), err = folder.Path(kErr);
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child < 0) FailToStart(program);
    if (child == 0) {
        Redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
        Redirect(STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
        Redirect(STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child) FailToStart(program);
    if (!WIFEXITED(status)) return -1;
    if (WEXITSTATUS(status) == 127) FailToStart(program);
    return WEXITSTATUS(status);
}

#endif

}  // namespace

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const TestFolder& folder) {
    ProgramRun run;
    run.exitCode = Run(program, arguments, folder);
    run.out = folder.Read(kOut);
    run.err = folder.Read(kErr);
    return run;
}
