#pragma once

#include <memory>
#include <streambuf>

/// To be called first of all in a program. Standard streams that the program was started without
/// lead to nowhere from then on, so that no file which it opens later gets their place; and
/// writing into a pipe that nobody reads, or beyond the size that files may have, is an error of
/// that write instead of the program's end.
void PrepareStandardStreams();

/// What became of all that was printed on standard output.
enum class Printed {
    kWhole,
    kUnread,  ///< the program at the other end of the pipe has stopped reading, as `head` does
    kLost,    ///< the disk is full, or the like
};

/// Lets std::cout print through it for as long as it lives, and remembers the first failure.
class StandardOutput {
public:
    StandardOutput();
    ~StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    /// Prints what is still kept back.
    Printed Finish();

private:
    class Buffer;
    std::unique_ptr<Buffer> buffer_;
    std::streambuf* before_;
};
