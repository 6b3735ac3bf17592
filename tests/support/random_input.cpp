#include "tests/support/random_input.h"

#include <array>
#include <random>

namespace {

class Writer {
public:
    explicit Writer(std::uint64_t seed) : random_(seed) {}

    std::string File() {
        std::string file;
        if (Once(30)) file += "\xEF\xBB\xBF";
        const std::size_t lines = Below(14);
        for (std::size_t i = 0; i < lines; ++i)
            file += Line() + End();
        if (!Once(12)) {
            const bool isAtLineStart = file.empty() || file.ends_with('\n');
            if (!isAtLineStart && !Once(12)) file += '\n';
            file += Of(kFins) + End();
        }
        if (Once(10)) file += Line() + End();
        return file;
    }

private:
    static constexpr std::array kKeywords{
        "DeadLoadCaseNumber", "EarthquakeLoadCaseNumber",     "FloorLevel",
        "StoryMember",        "AllowStoryDeformAngle",        "AllowStoryStiffRatio",
        "MemberDeformAngle",  "AllowStoryEccentricityModulus"};
    static constexpr std::array kMaimed{
        " FloorLevel", "StoryMember ",  "floorlevel",           "FloorLevels", "\"StoryMember\"",
        "FloorLevel;", "StoryMember\t", "ＦｌｏｏｒＬｅｖｅｌ", "SheetNote",   "SheetTitle"};
    static constexpr std::array kFins{"FIN", "FIN", "FIN", "FIN,,", "FINISH", "FIN of it", "fin"};
    static constexpr std::array kValues{
        "0",     "1",     "2",           "3",    "101",   "102",   "201",    "3500", "7000",
        "10500", "",      " ",           " 2",   "4,500", "1/120", "15%",    "C1",   "3.9",
        "-2",    "0.005", "0.6",         "1e3",  "nan",   "inf",   "1e999",  "２",   "，",
        "\"4\"", "2F",    "99999999999", "0.15", "-0.0",  "0x10",  "101-104"};
    static constexpr std::array kRemarks{"# remark", "remark", "床、１階", "Tower A",
                                         "\t",       "  ",     ",,,"};
    static constexpr std::array kEnds{"\n", "\n", "\n", "\n", "\r\n", "\r\n", "\r", "\r\r\n", ""};

    std::size_t Below(std::size_t bound) { return random_() % bound; }
    bool Once(std::size_t in) { return Below(in) == 0; }

    template <std::size_t N>
    std::string Of(const std::array<const char*, N>& texts) {
        return texts[Below(N)];
    }

    std::string End() { return Of(kEnds); }

    std::string Values(std::size_t most) {
        std::string values;
        const std::size_t count = Below(most + 1);
        for (std::size_t i = 0; i < count; ++i)
            values += ',' + Of(kValues);
        return Once(3) ? values : values + ',';
    }

    std::string Noise() {
        std::string noise;
        const std::size_t length = Below(40);
        for (std::size_t i = 0; i < length; ++i)
            noise += static_cast<char>(Below(256));
        return noise;
    }

    std::string Line() {
        switch (Below(12)) {
            case 0:
                return "FloorLevel,0,3500,7000" + Values(3);
            case 1:
                return "StoryMember,\n1" + Values(4) + "\n2" + Values(4);
            case 2:
                return Of(kKeywords) + Values(6);
            case 3:
                return Of(kMaimed) + Values(3);
            case 4:
            case 5:
            case 6:
                return std::to_string(1 + Below(4)) + Values(5);
            case 7:
                return Of(kValues) + Values(3);
            case 8:
                return Of(kRemarks) + (Once(2) ? "," : "");
            case 9:
                return "";
            case 10:
                return Once(3) ? std::to_string(1 + Below(3)) + Values(80) : Of(kRemarks);
            default:
                return Once(4) ? Noise() : Of(kKeywords);
        }
    }

    std::mt19937_64 random_;
};

}  // namespace

std::string RandomInput(std::uint64_t seed) {
    return Writer(seed).File();
}
