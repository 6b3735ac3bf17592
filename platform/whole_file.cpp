#include "platform/whole_file.h"

#include <filesystem>

#include "platform/native_path.h"

WholeFile::WholeFile(const std::string& path)
    : path_(path), temporary_(path + ".part"), file_(OpenStdioFile(temporary_, "wb")) {
    if (!file_) throw WholeFileError("cannot create " + temporary_);
}

WholeFile::~WholeFile() {
    if (isFinished_) return;
    file_.reset();
    std::remove(temporary_.c_str());
}

void WholeFile::Finish() {
    const bool isWritten = std::ferror(file_.get()) == 0;
    const bool isClosed = std::fclose(file_.release()) == 0;
    if (!isWritten || !isClosed) throw WholeFileError("the disk is full or cannot be written to");
    std::error_code error;
    std::filesystem::rename(NativePath(temporary_), NativePath(path_), error);
    if (error) throw WholeFileError("cannot put it in place: " + error.message());
    isFinished_ = true;
}
