#include "platform/null_device.h"

StdioFile OpenNullDevice() {
#ifdef _WIN32
    return OpenStdioFile("NUL", "w");
#else
    return OpenStdioFile("/dev/null", "w");
#endif
}
