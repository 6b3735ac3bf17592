#pragma once

#include <string>

#include "platform/stdio_file.h"

/// What stands at a path, links followed.
enum class FileKind {
    kNothing,  ///< nothing, or nothing that can be looked at
    kRegular,  ///< a file with contents of its own
    kFolder,
    kOther,  ///< a pipe, a device, a socket
};

/// Looks only; never waits for anybody at the other end of a pipe.
FileKind FileKindOf(const std::string& path);

/// How the C library hands out what it reads.
enum class ReadMode {
    kText,   ///< line ends, and on Windows the character 0x1A, as the platform has them in texts
    kBytes,  ///< byte by byte
};

/// Opens a regular file to read it; null for anything else and for what cannot be opened. Never
/// waits. Others may read and write the file meanwhile.
StdioFile OpenRegularFile(const std::string& path, ReadMode mode);

/// The next character of a file opened as text, or EOF. A carriage return just before a line feed
/// is dropped on every platform.
int ReadTextCharacter(std::FILE* file);
