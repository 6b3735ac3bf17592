#include "platform/local_time.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

std::string LocalTimeText() {
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    // The same moment in universal time, taken for local time: it is off by the offset.
    std::tm universal = *std::gmtime(&now);
    universal.tm_isdst = local.tm_isdst;
    const int minutes = static_cast<int>(std::difftime(now, std::mktime(&universal))) / 60;
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d%c%02d:%02d",
                  local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                  local.tm_min, local.tm_sec, minutes < 0 ? '-' : '+', std::abs(minutes) / 60,
                  std::abs(minutes) % 60);
    return text;
}
