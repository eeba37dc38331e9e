// FormatNumber: how results are shown on screen. The decimals are chosen by fixed constants (some
// branches of the chain can never be reached), and the pictures follow the classic rules: "#" shows a
// digit only if there is one, so .5 has no leading zero, and a value is rounded half away from zero
// on its decimal form.
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "sample/density.h"
#include "text/numbers.h"

namespace halvo {
namespace {

// A decimal number as digits: value = 0.d1d2d3... x 10^point, no leading zeros in digits.
struct Decimal {
    bool negative = false;
    std::string digits;  // empty for zero
    int point = 0;
};

Decimal ParseDecimal(std::string_view t) {
    Decimal d;
    size_t i = 0;
    while (i < t.size() && t[i] == ' ') ++i;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) d.negative = t[i++] == '-';
    int point = 0;
    bool seenPoint = false;
    for (; i < t.size(); ++i) {
        const char c = t[i];
        if (c >= '0' && c <= '9') {
            if (d.digits.empty() && c == '0') {
                if (seenPoint) --point;
                continue;
            }
            d.digits += c;
            if (!seenPoint) ++point;
        } else if (c == '.' && !seenPoint) {
            seenPoint = true;
        } else {
            break;
        }
    }
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
        ++i;
        const bool minus = i < t.size() && t[i] == '-';
        if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
        int e = 0;
        for (; i < t.size() && t[i] >= '0' && t[i] <= '9' && e < 100000; ++i) e = e * 10 + (t[i] - '0');
        point += minus ? -e : e;
    }
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    d.point = d.digits.empty() ? 0 : point;
    return d;
}

// Rounds to `keep` digits (half away from zero); the carry may add a digit in front.
void RoundDigits(Decimal& d, int keep) {
    if (keep < 0) {
        d.digits.clear();
        return;
    }
    if (int(d.digits.size()) <= keep) return;
    const bool up = d.digits[size_t(keep)] >= '5';
    d.digits.resize(size_t(keep));
    if (up) {
        int i = keep - 1;
        for (; i >= 0; --i) {
            if (d.digits[size_t(i)] == '9') {
                d.digits[size_t(i)] = '0';
            } else {
                ++d.digits[size_t(i)];
                break;
            }
        }
        if (i < 0) {
            d.digits.insert(d.digits.begin(), '1');
            ++d.point;
        }
    }
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits.empty()) d.point = 0;
}

std::string DecimalText(double v, int significant) {
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific, significant - 1);
    return std::string(buf, r.ptr);
}

std::string Scientific(double v, int significant, std::int16_t decimals) {
    return FormatScientific(DecimalText(v, significant), decimals > 0 ? decimals : 2);
}

std::string Format(double Value, std::int16_t& Decimals, int significant) {
    const double size = std::fabs(Value);
    if (Decimals == -1) {
        if (size < 10000) {
            double k = 4096 * std::floor(size);
            if (Value < 0) k /= 10;
            if (k >= 2097152 && k <= 9999999)
                Decimals = 3;
            else if (k >= 262144 && k <= 9999999)
                Decimals = 4;
            else if (k <= 999999)
                Decimals = 5;
            else
                Decimals = 0;
        } else {
            Decimals = 0;
        }
    }
    const bool small = size < 10 && Decimals == 0;
    const bool whole = Value == std::floor(Value);
    const std::string digits = DecimalText(Value, significant);
    if (!whole || Decimals != 0) {
        if (size > 999999 || small) return Scientific(Value, significant, Decimals);
        if (Value < 0 && size > 99999) return Scientific(Value, significant, Decimals);
        struct Picture {
            const char* picture;
            const char* zero;
        };
        static const Picture kPictures[] = {
            {"######.0", "0.0"},   {"######.0", "0.0"},     {"#####.00", "0.00"},      {"####.000", "0.000"},
            {"###.0000", "0.0000"}, {"##.00000", "0.00000"}, {"#.000000", "0.000000"}, {".0000000", ".0000000"},
        };
        const Picture& p =
            Decimals >= 0 && Decimals <= 7 ? kPictures[Decimals] : Picture{"######.#", "0.0"};
        if (Value == 0) return p.zero;
        return FormatPicture(digits, p.picture);
    }
    if (size <= 99999999 && Value >= 0) return FormatPicture(digits, "########");
    if (Value < 0 && size <= 9999999) return FormatPicture(digits, "#######");
    return Scientific(Value, significant, Decimals);
}

}  // namespace

std::string FormatPicture(std::string_view decimalText, std::string_view picture) {
    Decimal d = ParseDecimal(decimalText);
    const auto dot = picture.find('.');
    const std::string_view fraction = dot == std::string_view::npos ? std::string_view() : picture.substr(dot + 1);
    RoundDigits(d, d.point + int(fraction.size()));

    std::string whole;
    for (int i = 0; i < d.point; ++i) whole += i < int(d.digits.size()) ? d.digits[size_t(i)] : '0';
    std::string frac;
    for (int j = 0; j < int(fraction.size()); ++j) {
        const int at = d.point + j;
        frac += at >= 0 && at < int(d.digits.size()) ? d.digits[size_t(at)] : '0';
    }
    // Optional places ("#") behind the point drop their trailing zeros; the point itself stays.
    size_t keep = frac.size();
    while (keep > 0 && fraction[keep - 1] == '#' && frac[keep - 1] == '0') --keep;
    frac.resize(keep);

    std::string out = d.negative && !d.digits.empty() ? "-" : "";
    out += whole;
    if (dot != std::string_view::npos) out += "." + frac;
    return out;
}

std::string FormatScientific(std::string_view decimalText, int decimals) {
    Decimal d = ParseDecimal(decimalText);
    RoundDigits(d, decimals + 1);
    std::string mantissa = d.digits.empty() ? std::string("0") : d.digits;
    mantissa.resize(size_t(decimals) + 1, '0');
    const int exponent = d.digits.empty() ? 0 : d.point - 1;
    std::string out = d.negative && !d.digits.empty() ? "-" : "";
    out += mantissa.substr(0, 1);
    if (decimals > 0) out += "." + mantissa.substr(1);
    const int e = std::abs(exponent);
    out += exponent < 0 ? "E-" : "E+";
    if (e < 10) out += "0";
    out += std::to_string(e);
    return out;
}

std::string FormatNumber(float Value, std::int16_t& Decimals) { return Format(double(Value), Decimals, 7); }
std::string FormatNumber(double Value, std::int16_t& Decimals) { return Format(Value, Decimals, 15); }

std::string ShowSigFigs(std::int16_t& Decimals, std::string_view numberText) {
    if (Decimals < -1) Decimals = -1;
    if (Decimals != -1) return "SigFigs =" + text::Str(int(Decimals));
    std::string_view t = numberText;
    const auto exp = t.find_first_of("eEdD");
    if (exp != std::string_view::npos) t = t.substr(0, exp);
    const auto dot = t.find('.');
    std::int16_t places = 0;
    if (dot != std::string_view::npos)
        for (size_t i = dot + 1; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i) ++places;
    Decimals = places;
    return "max";
}

}  // namespace halvo
