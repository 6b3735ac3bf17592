#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "platform/standard_streams.h"
#include "platform/write_standard_output.h"

void PrepareStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // What is opened gets the lowest number that is free: in this order, just the missing one.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(open("/dev/null", O_RDWR));
}

Printed WriteStandardOutput(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            poll(&output, 1, -1);
        } else if (errno != EINTR) {
            return errno == EPIPE ? Printed::kUnread : Printed::kLost;
        }
    }
    return Printed::kWhole;
}
