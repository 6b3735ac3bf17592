#include "report/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "log/formatted_print.h"
#include "route2/tolerances.h"

namespace {

constexpr double kLargestExactWhole = 9007199254740992.0;  // 2^53
constexpr double kWholeLevel = 0.005;                      // mm
constexpr double kNearlyWholeDenominator = 0.001;          // of it
constexpr double kLargestDenominator = 9999.0;
constexpr int kMostDenominatorDecimals = 6;
constexpr double kMillimetresPerMetre = 1000.0;

double PowerOfTen(int exponent) {
    constexpr std::array kPowers{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    return kPowers.at(static_cast<std::size_t>(exponent));
}

// The exact decimal digits of an amount, rounded to nearest; a tie goes to the even digit.
std::string FixedDigits(double amount, int decimals) {
    std::array<char, 400> buffer{};  // the largest double has 309 digits before its point
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), amount,
                                    std::chars_format::fixed, decimals)
                          .ptr;
    return {buffer.data(), end};
}

// Whether an amount lies exactly between two neighbours of `decimals` digits: only a number whose
// last binary digit is worth 2^-(decimals + 1) can.
bool IsTie(double amount, int decimals) {
    return std::fmod(std::ldexp(amount, decimals + 1), 2.0) == 1.0;
}

std::string NearestDigits(double amount, int decimals) {
    const double nudged = IsTie(amount, decimals) ? std::nextafter(amount, INFINITY) : amount;
    return FixedDigits(nudged, decimals);
}

// The digits of a whole number of 10^-decimals.
std::string ScaledDigits(double whole, int decimals) {
    std::string digits = FixedDigits(whole, 0);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    if (places > 0) digits.insert(digits.size() - places, 1, '.');
    return digits;
}

std::string InGroups(std::string digits, const NumberStyle& style) {
    std::size_t place = std::min(digits.find('.'), digits.size());
    for (; place > 3; place -= 3)
        digits.insert(place - 3, style.thousands);
    return digits;
}

bool IsZero(const std::string& digits) {
    return digits.find_first_not_of("0.") == std::string::npos;
}

std::string WithSign(bool isNegative, const std::string& text, const NumberStyle& style) {
    return isNegative ? std::string(style.minus).append(text) : text;
}

std::string Signed(bool isNegative, const std::string& digits, const NumberStyle& style) {
    return WithSign(isNegative && !IsZero(digits), InGroups(digits, style), style);
}

// An amount in units of 10^-decimals, as a whole number.
double RoundedDown(double amount, int decimals) {
    return std::floor(amount * PowerOfTen(decimals) * (1.0 + kRelativeTolerance));
}

double RoundedUp(double amount, int decimals) {
    return std::ceil(amount * PowerOfTen(decimals) * (1.0 - kRelativeTolerance));
}

// `value` in units of 10^-decimals, rounded down or up.
double Scaled(double value, NumberFormat format) {
    const double amount = std::abs(value);
    const bool towardsZero = (format.rounding == Rounding::kDown) == (value >= 0.0);
    const double whole =
        towardsZero ? RoundedDown(amount, format.decimals) : RoundedUp(amount, format.decimals);
    return std::copysign(whole, value);
}

// A whole number of 10^-decimals, less than 2^53; written from its last digit to its first.
std::string ScaledText(double whole, int decimals, const NumberStyle& style) {
    std::array<char, 64> buffer{};
    char* first = buffer.data() + buffer.size();
    const auto put = [&first](std::string_view text) {
        for (std::size_t i = text.size(); i-- > 0;)
            *--first = text[i];
    };
    auto rest = static_cast<std::uint64_t>(std::abs(whole));
    const auto putDigit = [&first](std::uint64_t& from) {
        *--first = static_cast<char>('0' + from % 10);
        from /= 10;
    };
    for (int i = 0; i < decimals; ++i)
        putDigit(rest);
    if (decimals > 0) *--first = '.';
    putDigit(rest);
    for (int left = 2; rest > 0; --left) {
        if (left == 0) {
            put(style.thousands);
            left = 3;
        }
        putDigit(rest);
    }
    if (whole < 0.0) put(style.minus);
    return {first, buffer.data() + buffer.size()};
}

// An amount in units of 10^-decimals, rounded to the nearest whole number: several times as quick
// as the exact digits of a double. Nothing where the amount is too great, or so close to the middle
// of two whole numbers that the product's own rounding could decide.
std::optional<double> QuicklyRounded(double amount, int decimals) {
    constexpr double kGreatest = 1e12;
    constexpr double kFromMiddle = 1e-3;  // more than such a product is wrong by
    const double product = amount * PowerOfTen(decimals);
    if (!(product < kGreatest)) return std::nullopt;
    const auto whole = static_cast<double>(static_cast<std::int64_t>(product));
    const double rest = product - whole;
    if (std::abs(rest - 0.5) < kFromMiddle) return std::nullopt;
    return rest > 0.5 ? whole + 1.0 : whole;
}

std::string NearestText(double value, int decimals, const NumberStyle& style) {
    if (const auto whole = QuicklyRounded(std::abs(value), decimals))
        return ScaledText(std::copysign(*whole, value), decimals, style);
    return Signed(std::signbit(value), NearestDigits(std::abs(value), decimals), style);
}

std::string Text(double value, NumberFormat format, const NumberStyle& style) {
    if (format.rounding == Rounding::kNearest) return NearestText(value, format.decimals, style);
    const double whole = Scaled(value, format);
    if (!(std::abs(whole) < kLargestExactWhole)) return NearestText(value, format.decimals, style);
    return ScaledText(whole, format.decimals, style);
}

// --- Angles --------------------------------------------------------------------------------------

// A denominator N in units of 10^-decimals; 1/N.
std::string OneOver(double scaled, int decimals) {
    return "1/" + ScaledDigits(scaled, decimals);
}

double Denominator(double drift, double height) {
    return height / std::abs(drift);
}

bool IsOneOverAWholeNumber(double angle) {
    const double denominator = 1.0 / angle;
    return std::abs(denominator - std::round(denominator)) <= denominator * kRelativeTolerance;
}

bool IsNearlyOneOverAWholeNumber(double angle) {
    const double denominator = 1.0 / angle;
    return std::abs(denominator - std::round(denominator)) <= denominator * kNearlyWholeDenominator;
}

double ScaledLimit(double allowable, int decimals) {
    return std::round(1.0 / allowable * PowerOfTen(decimals));
}

// The denominators of an angle and of its limit, each in units of 10^-its decimals.
struct ScaledDenominators {
    double angle;
    int angleDecimals;
    double limit;
    int limitDecimals;

    /// Whether their order is that of the verdict.
    bool Agree(CodeVerdict verdict) const {
        const bool isOk = angle * PowerOfTen(limitDecimals) >= limit * PowerOfTen(angleDecimals);
        return verdict == CodeVerdict::kUndetermined || isOk == (verdict == CodeVerdict::kOk);
    }
};

ScaledDenominators ScaledBoth(double denominator, double allowable, int decimals) {
    const int limitDecimals = std::max(decimals, IsNearlyOneOverAWholeNumber(allowable) ? 0 : 1);
    return {RoundedDown(denominator, decimals), decimals, ScaledLimit(allowable, limitDecimals),
            limitDecimals};
}

// What the last digit cannot tell apart is put on the side of the limit where the verdict is.
void PutOnTheSideOf(CodeVerdict verdict, ScaledDenominators& scaled) {
    if (scaled.Agree(verdict)) return;
    const double limit = std::ceil(scaled.limit * PowerOfTen(scaled.angleDecimals) /
                                   PowerOfTen(scaled.limitDecimals));
    scaled.angle = verdict == CodeVerdict::kOk ? limit : limit - 1.0;
}

}  // namespace

std::string NumberText(const Figure& figure, NumberFormat format, const NumberStyle& style) {
    if (!figure || !std::isfinite(*figure)) return std::string(style.notFormed);
    return Text(*figure, format, style);
}

std::string JudgedText(const Figure& figure, NumberFormat format, double limit, CodeVerdict verdict,
                       const NumberStyle& style) {
    if (!figure || verdict == CodeVerdict::kUndetermined) return NumberText(figure, format, style);
    double whole = Scaled(*figure, format);
    if (!(std::abs(whole) < kLargestExactWhole)) return NumberText(figure, format, style);
    const double wholeLimit = std::round(limit * PowerOfTen(format.decimals));
    // A value at the limit, where the last binary digit decides.
    const bool isUpperLimit = format.rounding == Rounding::kUp;
    const bool saysOk = isUpperLimit ? whole <= wholeLimit : whole >= wholeLimit;
    if (saysOk != (verdict == CodeVerdict::kOk))
        whole = verdict == CodeVerdict::kOk ? wholeLimit : wholeLimit + (isUpperLimit ? 1.0 : -1.0);
    return ScaledText(whole, format.decimals, style);
}

std::string LevelText(const Figure& millimetres, const NumberStyle& style) {
    if (!millimetres || !std::isfinite(*millimetres)) return std::string(style.notFormed);
    const double value = *millimetres;
    const bool isWhole = std::abs(value - std::round(value)) <= kWholeLevel;
    return NearestText(value, isWhole ? 0 : 2, style);
}

std::string PercentText(const Figure& share, const NumberStyle& style) {
    return NumberText(share ? Finite(100.0 * *share) : share, kPercentFormat, style);
}

std::string CountText(std::uintmax_t count, const NumberStyle& style) {
    return InGroups(std::to_string(count), style);
}

std::string IdentifierText(const std::optional<std::int32_t>& number, const NumberStyle& style) {
    if (!number) return std::string(style.notFormed);
    const std::string digits = std::to_string(*number);
    return *number < 0 ? WithSign(true, digits.substr(1), style) : digits;
}

std::string AngleText(const Figure& drift, double height, const NumberStyle& style) {
    if (!drift || !std::isfinite(*drift) || !std::isfinite(height) || !(height > 0.0))
        return std::string(style.notFormed);
    if (*drift == 0.0) return "0";
    const bool isNegative = *drift < 0.0;
    const double denominator = RoundedDown(Denominator(*drift, height), 0);
    if (denominator > kLargestDenominator) return WithSign(isNegative, "<1/9999", style);
    if (denominator < 1.0) return WithSign(isNegative, ">1", style);
    return WithSign(isNegative, OneOver(denominator, 0), style);
}

std::string AllowableAngleText(double allowable, const NumberStyle& style) {
    if (!(allowable > 0.0) || !std::isfinite(1.0 / allowable))
        return InputValueText(allowable, style);
    const int decimals = IsNearlyOneOverAWholeNumber(allowable) ? 0 : 1;
    return OneOver(ScaledLimit(allowable, decimals), decimals);
}

AngleBesideLimit AngleBesideLimitText(const WorstUprightMember& worst, double height,
                                      const NumberStyle& style) {
    const std::string allowable = AllowableAngleText(worst.allowable, style);
    if (!worst.angle || !worst.drift) return {std::string(style.notFormed), allowable};
    const Figure amount = std::abs(*worst.drift);
    const std::string plain = AngleText(amount, height, style);
    if (!plain.starts_with("1/")) return {plain, allowable};

    const double denominator = Denominator(*amount, height);
    const bool isWhole = IsOneOverAWholeNumber(worst.allowable);
    ScaledDenominators scaled = ScaledBoth(denominator, worst.allowable, 0);
    for (int decimals = 1; !isWhole && decimals <= kMostDenominatorDecimals; ++decimals) {
        if (scaled.Agree(worst.code)) break;
        scaled = ScaledBoth(denominator, worst.allowable, decimals);
    }
    PutOnTheSideOf(worst.code, scaled);
    return {OneOver(scaled.angle, scaled.angleDecimals),
            OneOver(scaled.limit, scaled.limitDecimals)};
}

std::string ResultsNumberText(const std::optional<double>& number, const NumberStyle& style) {
    if (!number) return std::string(style.notFormed);
    std::array<char, 40> buffer{};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                    Printable(*number), std::chars_format::scientific, 5)
                          .ptr;
    return {buffer.data(), end};
}

std::string InputValueText(double value, const NumberStyle& style) {
    std::array<char, 400> buffer{};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                    std::chars_format::fixed)
                          .ptr;
    return WithSign(value < 0.0, {buffer.data(), end}, style);
}

int TorsionExponent(std::span<const StoryFindings> stories) {
    double greatest = 0.0;  // kN m
    for (const StoryFindings& story : stories)
        greatest = std::max(
            greatest, std::abs(story.torsionalStiffness.value_or(0.0)) / kMillimetresPerMetre);
    int exponent = 0;
    if (!(greatest > 0.0) || !std::isfinite(greatest)) return exponent;
    while (greatest >= std::pow(10.0, exponent + 3))
        exponent += 3;
    while (greatest < std::pow(10.0, exponent))
        exponent -= 3;
    return exponent;
}

std::string TorsionText(const Figure& torsionalStiffness, int exponent, const NumberStyle& style) {
    if (!torsionalStiffness) return std::string(style.notFormed);
    return NumberText(Finite(*torsionalStiffness / kMillimetresPerMetre / std::pow(10.0, exponent)),
                      kTorsionFormat, style);
}
