#include "platform/open_file.h"

bool OpenOnDesktop(const std::string& /*path*/) {
    return false;
}
